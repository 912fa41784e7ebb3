#include "tbvnonpara/report/details_sheet.hpp"

#include <algorithm>
#include <unordered_set>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/utf8.hpp"

namespace TBVNonPara {

namespace {

constexpr std::string_view sheetName = "Details";
constexpr std::size_t wordsRow = 3;
constexpr std::size_t firstTableRow = 8;

/// The first of "Details", "Details (2)" and so on that no worksheet bears.
std::string freeSheetName(const Workbook& book) {
    std::unordered_set<std::string> taken;
    const Long sheets = book.GetWorksheetsCount();
    for (Long position = 1; position <= sheets; ++position) {
        taken.insert(foldCase(book.GetWorksheets(position)->GetName()));
    }
    std::string name(sheetName);
    for (int number = 2; taken.contains(foldCase(name)); ++number) {
        name = std::string(sheetName) + " (" + std::to_string(number) + ')';
    }
    return name;
}

/// A table and the row of its title, counted from 1.
struct PlacedTable {
    const DetailTable* table;
    std::size_t row;
};

/// Where everything stands, and all cells at once.
class Layout {
 public:
    explicit Layout(const DetailPage& page) : m_Page(page) {
        std::size_t row = firstTableRowOf(page);
        for (const DetailTable& table : page.tables) {
            if (!table.rows.empty()) {
                m_Tables.push_back({&table, row});
                row += table.rows.size() + 3;
                m_Columns = std::max(m_Columns, table.headings.size() + 1);
            }
        }
        m_NotesRow = row;
        m_Rows = std::max(row + page.notes.size(), firstTableRow) - 1;
    }

    [[nodiscard]] const std::vector<PlacedTable>& tables() const { return m_Tables; }
    [[nodiscard]] std::size_t rows() const { return m_Rows; }
    [[nodiscard]] std::size_t columns() const { return m_Columns; }

    [[nodiscard]] ValueGrid cells(const std::string& source) const {
        ValueGrid grid{Long(m_Rows), Long(m_Columns)};
        put(grid, 1, 1, Text(std::string(sheetName)));
        put(grid, 2, 1, Text(source));
        putLines(grid, wordsRow, m_Page.words);
        for (const PlacedTable& placed : m_Tables) {
            putTable(grid, placed);
        }
        putLines(grid, m_NotesRow, m_Page.notes);
        return grid;
    }

 private:
    static void put(ValueGrid& grid, std::size_t row, std::size_t column, CellValue value) {
        grid(Long(row), Long(column)) = std::move(value);
    }

    static void putLines(ValueGrid& grid, std::size_t row, const std::vector<std::string>& lines) {
        for (const std::string& line : lines) {
            put(grid, row, 1, Text(line));
            row += 1;
        }
    }

    static void putTable(ValueGrid& grid, const PlacedTable& placed) {
        const DetailTable& table = *placed.table;
        put(grid, placed.row, 1, Text(table.title));
        for (std::size_t column = 0; column < table.headings.size(); ++column) {
            put(grid, placed.row + 1, column + 2, Text(table.headings[column]));
        }
        for (std::size_t row = 0; row < table.rows.size(); ++row) {
            for (std::size_t column = 0; column < table.rows[row].size(); ++column) {
                put(grid, placed.row + 2 + row, column + 1, sheetValue(table.rows[row][column]));
            }
        }
    }

    const DetailPage& m_Page;
    std::vector<PlacedTable> m_Tables;
    std::size_t m_NotesRow = 0;
    std::size_t m_Rows = 0;
    std::size_t m_Columns = 2;
};

/// Makes a sheet look as reports do.
class Look {
 public:
    Look(const CompanionLibrary& companions, WorksheetRef sheet)
        : m_Formatter(companions.createReportFormatter()),
          m_Style(companions.createReportStyle()),
          m_Sheet(std::move(sheet)) {}

    void apply(const Layout& layout) const {
        block(1, 1, layout.rows(), layout.columns())->LetInteriorColorIndex(m_Style->GetInteriorColorIndex());
        m_Formatter->FormatTitle(block(1, 1, 2, 1), true);
        for (const PlacedTable& placed : layout.tables()) {
            apply(placed);
        }
    }

    [[nodiscard]] RangeRef block(std::size_t top, std::size_t left, std::size_t bottom,
                                 std::size_t right) const {
        const RangeRef first = m_Sheet->GetCells(Long(top), Long(left));
        const RangeRef last = m_Sheet->GetCells(Long(bottom), Long(right));
        return m_Sheet->GetRange(first, last);
    }

 private:
    void apply(const PlacedTable& placed) const {
        const DetailTable& table = *placed.table;
        const std::size_t headings = placed.row + 1;
        const std::size_t last = headings + table.rows.size();
        const std::size_t columns = table.headings.size() + 1;
        m_Formatter->FormatTitle(block(placed.row, 1, placed.row, 1), false);
        m_Formatter->FormatTable(block(headings, 1, headings, columns), false);
        m_Formatter->FormatTable(block(headings, 1, last, columns), true);
        m_Formatter->FormatBody(block(headings + 1, 2, last, columns), false);
        block(headings, 2, last, columns)->LetHorizontalAlignment(AlignRight);
        for (std::size_t column = 1; column < columns; ++column) {
            applyFormats(table, column, headings + 1);
        }
    }

    /// One call for each stretch of a column that is shown alike; four decimals are what bodies have.
    void applyFormats(const DetailTable& table, std::size_t column, std::size_t top) const {
        const auto formatAt = [&](std::size_t row) {
            const std::vector<DetailCell>& cells = table.rows[row];
            return sheetFormat(column < cells.size() ? cells[column] : DetailCell());
        };
        for (std::size_t first = 0; first < table.rows.size();) {
            const std::string format = formatAt(first);
            std::size_t end = first + 1;
            while (end < table.rows.size() && formatAt(end) == format) {
                end += 1;
            }
            if (format != sheetFormat({})) {
                block(top + first, column + 1, top + end - 1, column + 1)->LetNumberFormat(format);
            }
            first = end;
        }
    }

    ObjectRef<ReportFormatter> m_Formatter;
    ObjectRef<ReportStyle> m_Style;
    WorksheetRef m_Sheet;
};

void requireRoom(const Layout& layout, const Worksheet& sheet) {
    const Long rows = sheet.GetCells()->GetRowsCount();
    if (layout.rows() > static_cast<std::size_t>(rows.value())) {
        throw Error(tbvNPOutputOffSheet, "The details need " + std::to_string(layout.rows()) +
                                             " rows, and a sheet has " + std::to_string(rows.value()) +
                                             "; compare with one control group alone.");
    }
}

RangeRef writeOn(const WorksheetRef& sheet, const CompanionLibrary& companions, const Layout& layout,
                 const std::string& source) {
    const Look look(companions, sheet);
    look.apply(layout);
    RangeRef block = look.block(1, 1, layout.rows(), layout.columns());
    block->LetValue(layout.cells(source));
    return block;
}

/// A new sheet, which goes again unless it is kept.
class NewSheet {
 public:
    NewSheet(Application& application, WorksheetRef active)
        : m_Active(std::move(active)), m_Sheet(application.AddWorksheets()) {}
    NewSheet(const NewSheet&) = delete;
    NewSheet& operator=(const NewSheet&) = delete;
    ~NewSheet() {
        if (!m_Kept) {
            // A host may ask its user before it deletes a sheet that holds something.
            attempt([this] { m_Sheet->GetCells()->Clear(); });
            attempt([this] { m_Sheet->Delete(); });
            attempt([this] { m_Active->Activate(); });
        }
    }

    [[nodiscard]] const WorksheetRef& sheet() const { return m_Sheet; }
    void keep() { m_Kept = true; }

 private:
    /// The error that brought this about is the one to tell of.
    static void attempt(const auto& step) noexcept {
        try {
            step();
        } catch (...) {
            return;
        }
    }

    WorksheetRef m_Active;
    WorksheetRef m_Sheet;
    bool m_Kept = false;
};

}  // namespace

std::size_t firstTableRowOf(const DetailPage& page) {
    return std::max(firstTableRow, wordsRow + page.words.size() + 1);
}

RangeRef writeDetailsSheet(const CompanionLibrary& companions, const RangeRef& report,
                           const DetailPage& page) {
    const WorksheetRef sheet = report->GetWorksheet();
    return writeDetailsSheet(companions, sheet,
                             "Report = " + quotedSheetName(sheet->GetName()) + '!' + report->GetAddress(),
                             page);
}

RangeRef writeDetailsSheet(const CompanionLibrary& companions, const WorksheetRef& before,
                           const std::string& source, const DetailPage& page) {
    const Layout layout(page);
    requireRoom(layout, *before);
    const WorkbookRef book = before->GetParent();
    const std::string name = freeSheetName(*book);
    book->Activate();
    before->Activate();
    NewSheet added(*companions.application, before);
    RangeRef block = writeOn(added.sheet(), companions, layout, source);
    added.sheet()->Move(before);
    // Last, so that nothing unfinished bears the name.
    added.sheet()->LetName(name);
    before->Activate();
    added.keep();
    return block;
}

RangeRef placeDetails(const CompanionLibrary& companions, const RangeRef& place, const std::string& source,
                      const DetailPage& page, bool overWrite) {
    const Layout layout(page);
    const Long rows{static_cast<std::int64_t>(layout.rows())};
    const Long columns{static_cast<std::int64_t>(layout.columns())};
    companions.createDataCheck()->CheckOutputArea(place, columns, rows, overWrite);
    const WorksheetRef sheet = place->GetWorksheet();
    sheet->GetParent()->Activate();
    sheet->Activate();
    const RangeRef first = place->GetCells(1, 1);
    RangeRef placed = sheet->GetRange(first, place->GetCells(rows, columns));
    {
        const NewSheet made(*companions.application, sheet);
        const RangeRef block = writeOn(made.sheet(), companions, layout, source);
        sheet->Activate();
        block->Copy();
        first->PasteSpecial(companions.constants.ReportPaste);
    }
    return placed;
}

}  // namespace TBVNonPara
