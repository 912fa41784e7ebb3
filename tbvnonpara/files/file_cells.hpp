#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/workbook/cell_store.hpp"
#include "tbvnonpara/workbook/sheet.hpp"

namespace TBVNonPara::workbook {

/// A sheet as a file holds it. Its name may be one that no sheet made here would be given.
struct FileSheet {
    std::string name;
    bool hidden = false;
    CellStore cells;
    UnreadableCells unreadable;
};

/// A workbook as a file holds it.
struct FileContents {
    std::deque<FileSheet> sheets;
    /// The sheet on top when the file was saved, counted from 0.
    std::size_t active = 0;
};

/// Gives each sheet a name of its own: the second of a name gets a number that no other sheet bears.
TBVNONPARA_API void tellSheetsApart(FileContents& contents);

/// What a cell of a file holds: `unreadable` when `read` raises an error, and then why.
struct ReadCell {
    CellValue value;
    std::string why;
};

template <typename Read>
[[nodiscard]] ReadCell readCell(Read read) {
    ReadCell cell;
    try {
        cell.value = read();
    } catch (const Error& error) {
        cell = {unreadable, error.description()};
    }
    return cell;
}

/// Makes the sheet on top one that can be seen, where there is any.
TBVNONPARA_API void showVisibleSheet(FileContents& contents) noexcept;

/// Takes the cells of a file, sheet after sheet, and raises the host's error when they lie outside a sheet or
/// are more than files of people hold: 2^27 cells, 2^24 of which may come from a cell that stands for many,
/// and 512 MiB for cells scattered so widely that they take far more room than they fill.
class TBVNONPARA_API FileCells {
 public:
    /// The cells that follow belong to this sheet.
    void begin(FileSheet& sheet);

    /// Forgets what came since: what was taken of this sheet, in front of which it was `before`.
    void beginAgain(const FileCells& before);

    /// Empty values are not stored.
    void set(Index row, Index column, ReadCell cell);
    void set(Index row, Index column, double number);
    /// One value for a block of cells.
    void fill(const Rectangle& area, const ReadCell& cell);

 private:
    void count(std::size_t cells);
    void requireDensity();
    void remember(Index row, Index column, std::string why);

    FileSheet* m_Sheet = nullptr;
    CellStore* m_Cells = nullptr;
    std::size_t m_Held = 0;
    std::size_t m_Repeated = 0;
    std::size_t m_NextCheck = 0;
    /// Of the sheets that are finished.
    std::size_t m_MemoryBefore = 0;
};

/// Appends to a text of a cell; a text beyond 16 MiB is refused.
TBVNONPARA_API void appendToText(std::string& text, std::string_view piece);

/// Gives equal texts the same memory, as long as they are not too many.
class TBVNONPARA_API SharedTexts {
 public:
    [[nodiscard]] Text share(std::string_view text);

 private:
    /// The keys are the texts' own characters.
    std::unordered_map<std::string_view, Text> m_Texts;
};

}  // namespace TBVNonPara::workbook
