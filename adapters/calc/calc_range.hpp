#pragma once

#include <memory>

#include "adapters/calc/session.hpp"
#include "tbvnonpara/host/Range.hpp"

namespace TBVNonPara::calc {

class CalcRange : public Range {
 public:
    /// `rows` are those that take part, area by area; with none at all, every row does. They alone are
    /// counted and read, and the cells below one another are theirs; the address is that of the whole range.
    CalcRange(std::shared_ptr<Session> session, SheetAreas cells, std::vector<KeptRowsRef> rows = {});

    [[nodiscard]] const SheetAreas& cells() const noexcept { return m_Cells; }
    [[nodiscard]] const std::vector<KeptRowsRef>& rows() const noexcept { return m_Rows; }

    [[nodiscard]] RangeRef GetCells(Long row, Long column) const override;
    [[nodiscard]] Long GetRowsCount() const override;
    [[nodiscard]] Long GetColumnsCount() const override;
    [[nodiscard]] Long GetAreasCount() const override;
    [[nodiscard]] RangeRef GetAreas(Long area) const override;
    [[nodiscard]] WorksheetRef GetWorksheet() const override;

    [[nodiscard]] std::string GetAddress() const override;
    [[nodiscard]] std::string GetAddressLocal() const override;
    [[nodiscard]] ValueGrid GetValue() const override;
    /// True only in a run, which remembers what it has read.
    [[nodiscard]] bool HoldsNumbers(Long firstRow) const override;
    [[nodiscard]] NumberColumns GetNumbers() const override;

    void LetValue(const CellValue& value) override;
    void LetValue(std::span<const CellValue> values) override;
    void LetValue(const ValueGrid& values) override;
    void Clear() override;

    void LetNumberFormat(std::string_view format) override;
    void LetHorizontalAlignment(HorizontalAlignment alignment) override;
    void LetInteriorColorIndex(Integer index) override;
    void LetFontBold(bool bold) override;
    void LetBorder(BorderEdge edge, BorderLine line) override;
    void LetCharactersFontSubscript(Long start, Long length, bool subscript) override;

    void Copy() override;
    void PasteSpecial(PasteKind kind) override;
    void Select() override;

 private:
    using Block = Reference<css::table::XCellRange>;

    [[nodiscard]] const CellArea& first() const noexcept { return m_Cells.areas.front(); }
    [[nodiscard]] std::span<const std::int32_t> keptRows() const;
    [[nodiscard]] ValueGrid readAll() const;
    [[nodiscard]] Block block(const CellArea& area) const;
    void noteBooleans(const ValueGrid& values, const CellArea& area) const;
    /// Changes each area, after the session was told.
    void change(const auto& work);

    std::shared_ptr<Session> m_Session;
    SheetAreas m_Cells;
    std::vector<KeptRowsRef> m_Rows;
};

/// The cells behind a range of this host.
[[nodiscard]] const SheetAreas& cellsOf(const RangeRef& range);

/// The smallest rectangle around the first areas of two ranges of one sheet.
[[nodiscard]] RangeRef rangeBetween(const std::shared_ptr<Session>& session, const RangeRef& first,
                                    const RangeRef& last);

}  // namespace TBVNonPara::calc
