#pragma once

#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/host/Application.hpp"
#include "tbvnonpara/workbook/book.hpp"
#include "tbvnonpara/workbook/clipboard.hpp"
#include "tbvnonpara/workbook/sheet_functions.hpp"

namespace TBVNonPara::workbook {

/// Numbers below a label, as a column of a new sheet. The numbers are copied.
struct NumberColumn {
    std::string_view label;           ///< what stands in row 1
    std::span<const double> numbers;  ///< what stands below it
};

/// The spreadsheet in memory. It begins with the user's workbook "Book1", which has no sheets yet, and the
/// hidden scratch workbook with its sheet for reports. Everything is used by one thread.
///
///     auto application = workbook::makeApplication();
///     application->addSheet("Data", ValueGrid{{"Before", "After"}, {1.0, 4.0}, {2.0, 5.0}});
///     CompanionLibrary companions = ownCompanions(application);
///
/// Errors have the number 1004 and a description.
class TBVNONPARA_API EmbeddedApplication final : public Application,
                                                 public std::enable_shared_from_this<EmbeddedApplication> {
 public:
    /// The range of an address of the active workbook; areas lie on one sheet.
    [[nodiscard]] RangeRef GetRange(std::string_view address) const override;
    /// @copydoc Application::GetRange(const RangeRef&, const RangeRef&) const
    [[nodiscard]] RangeRef GetRange(const RangeRef& first, const RangeRef& last) const override;
    [[nodiscard]] WorkbookRef GetWorkbooks(std::string_view name) const override;
    [[nodiscard]] WorksheetRef AddWorksheets() override;
    /// Kept and nothing else: there is no screen.
    void LetScreenUpdating(bool updating) override { m_ScreenUpdating = updating; }
    /// Worksheet functions in full precision.
    [[nodiscard]] const WorksheetFunction& GetWorksheetFunction() const override { return m_Functions; }

    /// The user's workbooks, without hidden ones.
    [[nodiscard]] std::vector<std::shared_ptr<Book>> books() const;
    /// An open workbook by its name, hidden ones too; raises the host's error for one that is not open.
    [[nodiscard]] std::shared_ptr<Book> book(std::string_view name) const;
    /// Opens an empty workbook; a visible one becomes the active one.
    std::shared_ptr<Book> addBook(std::string_view name, Visibility visibility = Visibility::Visible);
    /// Closes a workbook: ranges and sheets of it that are still held raise errors from then on.
    void closeBook(std::string_view name);

    /// Adds an empty sheet behind the others of the active workbook.
    std::shared_ptr<Sheet> addSheet(std::string_view name);
    /// The same with values that stand from A1 on.
    std::shared_ptr<Sheet> addSheet(std::string_view name, const ValueGrid& values);
    /// The same with values as files are read into.
    std::shared_ptr<Sheet> addSheet(std::string_view name, CellStore values);
    /// Columns side by side, each below its label in row 1; they may differ in length. NaN is a blank cell,
    /// an infinite number shows as \#NUM!.
    ///
    ///     application->addSheet("Data", {{"before", before}, {"after", after}});  // vectors of doubles
    std::shared_ptr<Sheet> addSheet(std::string_view name, std::initializer_list<NumberColumn> columns);
    /// The same for any number of columns.
    std::shared_ptr<Sheet> addSheet(std::string_view name, std::span<const NumberColumn> columns);

    /// The active workbook.
    [[nodiscard]] std::shared_ptr<Book> activeBook() const;
    /// None while the active workbook has no sheet.
    [[nodiscard]] std::shared_ptr<Sheet> activeSheet() const;
    /// What was selected last; none before.
    [[nodiscard]] const RangeRef& selection() const noexcept { return m_Selection; }
    /// What LetScreenUpdating was last given.
    [[nodiscard]] bool screenUpdating() const noexcept { return m_ScreenUpdating; }

    /// @cond
    // For the workbooks, sheets and ranges of this application.
    [[nodiscard]] bool holds(const Book& book) const noexcept;
    void activateBook(const Book& book);
    [[nodiscard]] const std::shared_ptr<const Clipping>& clipboard() const noexcept { return m_Clipboard; }
    void setClipboard(std::shared_ptr<const Clipping> clipping) { m_Clipboard = std::move(clipping); }
    void setSelection(RangeRef selection) { m_Selection = std::move(selection); }
    /// @endcond

 private:
    [[nodiscard]] std::shared_ptr<Book> find(std::string_view name) const;

    std::vector<std::shared_ptr<Book>> m_Books;
    std::shared_ptr<Book> m_ActiveBook;
    std::shared_ptr<const Clipping> m_Clipboard;
    RangeRef m_Selection;
    bool m_ScreenUpdating = true;
    SheetFunctions m_Functions;
};

/// A new spreadsheet in memory.
[[nodiscard]] TBVNONPARA_API ObjectRef<EmbeddedApplication> makeApplication();

}  // namespace TBVNonPara::workbook
