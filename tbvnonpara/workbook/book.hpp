#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/host/Workbook.hpp"
#include "tbvnonpara/workbook/sheet.hpp"

namespace TBVNonPara::workbook {

class EmbeddedApplication;

/// A hidden workbook is found by its name, but never becomes the active one and is not the user's.
enum class Visibility {
    Visible,  ///< the user's
    Hidden,   ///< the library's own
};

/// A workbook in memory: `application->activeBook()->addSheet("Data")`. Names of sheets are the same in upper
/// and lower case; what is wrong raises the host's error.
class TBVNONPARA_API Book final : public Workbook, public std::enable_shared_from_this<Book> {
 public:
    /// For EmbeddedApplication::addBook, which opens workbooks.
    Book(std::string name, Visibility visibility, std::weak_ptr<EmbeddedApplication> application);

    /// How many sheets there are, 0 in a new workbook.
    [[nodiscard]] Long GetWorksheetsCount() const override { return m_Sheets.size(); }
    /// The sheet at a position from 1 on.
    [[nodiscard]] WorksheetRef GetWorksheets(Long position) const override;
    /// Upper and lower case are the same; an unknown name raises an error that lists the sheets there are.
    [[nodiscard]] WorksheetRef GetWorksheets(std::string_view name) const override { return sheet(name); }
    /// Makes it the active workbook; raises the host's error for a hidden one.
    void Activate() override;

    /// Its file name.
    [[nodiscard]] const std::string& name() const noexcept { return m_Name; }
    /// Whether it is the library's own.
    [[nodiscard]] bool hidden() const noexcept { return m_Visibility == Visibility::Hidden; }
    /// The sheets in order.
    [[nodiscard]] const std::vector<std::shared_ptr<Sheet>>& sheets() const noexcept { return m_Sheets; }
    /// The sheet of a name; an unknown one raises an error that lists the sheets there are.
    [[nodiscard]] std::shared_ptr<Sheet> sheet(std::string_view name) const;
    /// None in a workbook without sheets.
    [[nodiscard]] const std::shared_ptr<Sheet>& activeSheet() const noexcept { return m_ActiveSheet; }
    /// The application; raises the host's error once it or the workbook is closed.
    [[nodiscard]] std::shared_ptr<EmbeddedApplication> application() const;

    /// Adds an empty sheet behind the others; the first one becomes the active sheet. Raises the host's
    /// error for a name that is taken or that no sheet may have.
    std::shared_ptr<Sheet> addSheet(std::string_view name);
    /// The same for a sheet of a file, which may have a name that no sheet made here would be given. A name
    /// that is taken gets a number behind it.
    std::shared_ptr<Sheet> adoptSheet(std::string_view name);
    /// Adds a sheet with the next free name ("Sheet2") in front of the active one and makes it active.
    std::shared_ptr<Sheet> insertSheet();
    /// The same names as for sheets that are added; a sheet may get its own in other letters.
    void renameSheet(Sheet& sheet, std::string_view name);
    /// Ranges of the sheet that are still held keep it; a sheet of another workbook is left alone.
    void removeSheet(const Sheet& sheet) noexcept;
    /// Moves a sheet behind another one.
    void moveSheet(const Sheet& sheet, const Worksheet& after);
    /// Makes a sheet the active one.
    void activateSheet(const Sheet& sheet);

    /// The name itself, or with a number behind it when a sheet bears it already: "Data (2)".
    [[nodiscard]] std::string freeSheetName(std::string_view name) const;

 private:
    std::shared_ptr<Sheet> append(std::string_view name);
    [[nodiscard]] std::shared_ptr<Sheet> find(std::string_view name) const;
    void requireFreeName(std::string_view name, const Sheet* own) const;
    [[nodiscard]] std::size_t positionOf(const Worksheet& sheet) const;

    std::string m_Name;
    Visibility m_Visibility;
    std::weak_ptr<EmbeddedApplication> m_Application;
    std::vector<std::shared_ptr<Sheet>> m_Sheets;
    std::shared_ptr<Sheet> m_ActiveSheet;
};

/// The nearest name that a sheet may have: no []:*?/\ and no control characters, no apostrophe at either end,
/// at most 31 characters, not empty.
[[nodiscard]] TBVNONPARA_API std::string sanitisedSheetName(std::string_view name);

}  // namespace TBVNonPara::workbook
