#include "tbvnonpara/files/file_cells.hpp"

#include <set>
#include <string>
#include <utility>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr std::size_t mostCells = std::size_t(1) << 27U;
constexpr std::size_t mostRepeatedCells = std::size_t(1) << 24U;
constexpr std::size_t mostWaste = std::size_t(512) << 20U;

/// A single cell can make a block of a column grow by this much, so memory is looked at once in so many
/// cells.
constexpr std::size_t largestGrowth = std::size_t(40) << 10U;
constexpr std::size_t cellsBetweenChecks = (std::size_t(64) << 20U) / largestGrowth;

/// Cells that cannot be read are few, or all for one reason.
constexpr std::size_t mostReasons = 1000;

constexpr std::size_t longestText = std::size_t(16) << 20U;
constexpr std::size_t mostTextsShared = 1U << 16U;
constexpr std::size_t longestTextShared = 64;

/// A number of a row or column; of a very long one no more than its least is known.
std::string numberOf(Index place) {
    return std::to_string(place) + (place < farOutside ? "" : " or more");
}

void requireOnSheet(Index row, Index column) {
    if (row < 1 || row > sheetRows) {
        refuse("row " + numberOf(row) + " lies outside a sheet, whose last row is 1048576");
    }
    if (column < 1 || column > sheetColumns) {
        refuse("column " + numberOf(column) + " lies outside a sheet, whose last column is 16384 (XFD)");
    }
}

}  // namespace

void showVisibleSheet(FileContents& contents) noexcept {
    const auto& sheets = contents.sheets;
    if (contents.active < sheets.size() && !sheets[contents.active].hidden) {
        return;
    }
    const auto visible = std::ranges::find(sheets, false, &FileSheet::hidden);
    contents.active = visible == sheets.end() ? 0 : static_cast<std::size_t>(visible - sheets.begin());
}

void tellSheetsApart(FileContents& contents) {
    std::set<std::string> names;
    for (const FileSheet& sheet : contents.sheets) {
        names.insert(foldCase(sheet.name));
    }
    std::set<std::string> taken;
    for (FileSheet& sheet : contents.sheets) {
        std::string name = sheet.name;
        for (int i = 2; taken.contains(foldCase(name)) || (i > 2 && names.contains(foldCase(name))); ++i) {
            name = sheet.name + " (" + std::to_string(i) + ')';
        }
        sheet.name = std::move(name);
        taken.insert(foldCase(sheet.name));
    }
}

void FileCells::begin(FileSheet& sheet) {
    m_MemoryBefore += m_Cells == nullptr ? 0 : m_Cells->memory();
    m_Sheet = &sheet;
    m_Cells = &sheet.cells;
}

void FileCells::beginAgain(const FileCells& before) {
    *this = before;
    m_Sheet->cells = CellStore();
    m_Sheet->unreadable.clear();
}

void FileCells::remember(Index row, Index column, std::string why) {
    if (!why.empty() && m_Sheet->unreadable.size() < mostReasons) {
        m_Sheet->unreadable.emplace(std::pair(row, column), std::move(why));
    }
}

void FileCells::set(Index row, Index column, ReadCell cell) {
    if (isEmpty(cell.value)) {
        return;
    }
    if (row < 1 || row > sheetRows || column < 1 || column > sheetColumns) {
        requireOnSheet(row, column);
    }
    count(1);
    m_Cells->set(row, column, std::move(cell.value));
    remember(row, column, std::move(cell.why));
}

void FileCells::set(Index row, Index column, double number) {
    if (row < 1 || row > sheetRows || column < 1 || column > sheetColumns) {
        requireOnSheet(row, column);
    }
    count(1);
    m_Cells->set(row, column, number);
}

void FileCells::fill(const Rectangle& area, const ReadCell& cell) {
    if (isEmpty(cell.value)) {
        return;
    }
    requireOnSheet(area.top, area.left);
    requireOnSheet(area.bottom, area.right);
    const auto cells = static_cast<std::size_t>(area.cells());
    m_Repeated += cells - 1;
    if (m_Repeated > mostRepeatedCells) {
        refuse("cells that stand for more than " + std::to_string(mostRepeatedCells) +
               " filled cells; fill no more cells than there are data");
    }
    for (Index column = area.left; column <= area.right; ++column) {
        count(static_cast<std::size_t>(area.rows()));
        m_Cells->fill({area.top, column, area.bottom, column}, cell.value);
    }
    remember(area.top, area.left, cell.why);
}

void FileCells::count(std::size_t cells) {
    m_Held += cells;
    if (m_Held > mostCells) {
        refuse("more than " + std::to_string(mostCells) + " cells with a value; split the file");
    }
    if (m_Held >= m_NextCheck) {
        requireDensity();
    }
}

void FileCells::requireDensity() {
    const std::size_t memory = m_MemoryBefore + m_Cells->memory();
    if (memory > mostWaste + 4 * sizeof(CellValue) * m_Held) {
        refuse("cells scattered so widely that " + std::to_string(m_Held) + " of them would take " +
               std::to_string(memory >> 20U) + " MiB; move the data together");
    }
    // Looking takes time in proportion to the memory.
    m_NextCheck = m_Held + cellsBetweenChecks + memory / (std::size_t(16) << 10U);
}

void appendToText(std::string& text, std::string_view piece) {
    if (text.size() + piece.size() > longestText) {
        refuse("a text of more than 16 MiB in one cell");
    }
    text += piece;
}

Text SharedTexts::share(std::string_view text) {
    if (text.size() > longestTextShared) {
        return text;
    }
    const auto found = m_Texts.find(text);
    if (found != m_Texts.end()) {
        return found->second;
    }
    Text shared(text);
    if (m_Texts.size() < mostTextsShared) {
        m_Texts.emplace(shared.string(), shared);
    }
    return shared;
}

}  // namespace TBVNonPara::workbook
