#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "tbvnonpara/workbook/cell_store.hpp"

namespace TBVNonPara::workbook {

/// A sheet as a file holds it. Its name may be one that no sheet made here would be given.
struct FileSheet {
    std::string name;
    bool hidden = false;
    CellStore cells;
};

/// A workbook as a file holds it.
struct FileContents {
    std::deque<FileSheet> sheets;
    /// The sheet on top when the file was saved, counted from 0.
    std::size_t active = 0;
};

/// Makes the sheet on top one that can be seen, where there is any.
void showVisibleSheet(FileContents& contents) noexcept;

/// Takes the cells of a file, sheet after sheet, and raises the host's error when they lie outside a sheet or
/// are more than files of people hold: 2^27 cells, 2^24 of which may come from a cell that stands for many,
/// and 512 MiB for cells scattered so widely that they take far more room than they fill.
class FileCells {
 public:
    /// The cells that follow belong to this sheet.
    void begin(CellStore& cells);

    /// Empty values are not stored.
    void set(Index row, Index column, CellValue value);
    /// One value for a block of cells.
    void fill(const Rectangle& area, const CellValue& value);

 private:
    void count(std::size_t cells);
    void requireDensity();

    CellStore* m_Cells = nullptr;
    std::size_t m_Held = 0;
    std::size_t m_Repeated = 0;
    std::size_t m_NextCheck = 0;
    /// Of the sheets that are finished.
    std::size_t m_MemoryBefore = 0;
};

/// Appends to a text of a cell; a text beyond 16 MiB is refused.
void appendToText(std::string& text, std::string_view piece);

/// Gives equal texts the same memory, as long as they are not too many.
class SharedTexts {
 public:
    [[nodiscard]] Text share(std::string_view text);

 private:
    /// The keys are the texts' own characters.
    std::unordered_map<std::string_view, Text> m_Texts;
};

}  // namespace TBVNonPara::workbook
