#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/host/Worksheet.hpp"
#include "tbvnonpara/workbook/address.hpp"
#include "tbvnonpara/workbook/cell_store.hpp"
#include "tbvnonpara/workbook/format_store.hpp"

namespace TBVNonPara::workbook {

class Book;

/// Row and column of cells, and what is wrong with their values.
using UnreadableCells = std::map<std::pair<Index, Index>, std::string>;

/// A worksheet in memory. Beside the host's interface it shows its cells directly; rows and columns count
/// from 1 and must lie on the sheet.
class TBVNONPARA_API Sheet final : public Worksheet, public std::enable_shared_from_this<Sheet> {
 public:
    Sheet(std::string name, std::weak_ptr<Book> book);

    [[nodiscard]] std::string GetName() const override { return m_Name; }
    [[nodiscard]] WorkbookRef GetParent() const override;
    [[nodiscard]] RangeRef GetCells() const override;
    [[nodiscard]] RangeRef GetCells(Long row, Long column) const override;
    [[nodiscard]] RangeRef GetRange(std::string_view address) const override;
    [[nodiscard]] RangeRef GetRange(const RangeRef& first, const RangeRef& last) const override;
    void Move(const WorksheetRef& after) override;
    void Activate() override;
    void LetName(std::string_view name) override;
    void Delete() override;

    [[nodiscard]] const std::string& name() const noexcept { return m_Name; }
    /// A formula whose result the file does not hold shows as `uncalculated`, a value that cannot be read as
    /// `unreadable`.
    [[nodiscard]] CellValue value(Index row, Index column) const { return m_Values.at(row, column); }
    [[nodiscard]] const CellFormat& format(Index row, Index column) const {
        return m_Formats.at(row, column);
    }
    /// The rectangle around everything that holds a value.
    [[nodiscard]] std::optional<Rectangle> usedArea() const { return m_Values.usedArea(); }

    [[nodiscard]] const CellStore& values() const noexcept { return m_Values; }
    [[nodiscard]] CellStore& values() noexcept { return m_Values; }
    [[nodiscard]] const FormatStore& formats() const noexcept { return m_Formats; }
    [[nodiscard]] FormatStore& formats() noexcept { return m_Formats; }

    /// Why cells are `unreadable`, as far as it is known.
    [[nodiscard]] const UnreadableCells& unreadableCells() const noexcept { return m_Unreadable; }
    void setUnreadableCells(UnreadableCells cells) { m_Unreadable = std::move(cells); }

    /// Makes rows of the columns and columns of the rows of all values; formats stay where they are.
    void turnOver();
    [[nodiscard]] bool turnedOver() const noexcept { return m_TurnedOver; }

    /// For the workbook, which knows what names are free.
    void setName(std::string_view name) { m_Name = name; }

    /// The workbook; raises the host's error once it is closed.
    [[nodiscard]] std::shared_ptr<Book> book() const;
    /// The range of areas that lie on the sheet.
    [[nodiscard]] RangeRef range(Areas areas) const;
    /// The range of areas as they were written: whole columns and rows end with the sheet's data.
    [[nodiscard]] RangeRef range(const std::vector<AddressArea>& areas) const;

 private:
    [[nodiscard]] Rectangle trimmed(const AddressArea& area) const;

    std::string m_Name;
    std::weak_ptr<Book> m_Book;
    CellStore m_Values;
    FormatStore m_Formats;
    UnreadableCells m_Unreadable;
    bool m_TurnedOver = false;
};

}  // namespace TBVNonPara::workbook
