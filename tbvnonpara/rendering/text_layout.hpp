#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tbvnonpara/rendering/report_block.hpp"

namespace TBVNonPara::rendering {

enum class Side { Left, Centre, Right };

/// What stands between two columns, and the most columns that a text in a table is given.
constexpr std::size_t gap = 2;
constexpr std::size_t mostInTable = 80;

/// Rows of a report with something in each, between blank ones: a title and its table.
struct Section {
    Index first = 1;
    Index last = 0;
};

/// The section that begins at a row; none (last before first) when the row is blank.
[[nodiscard]] Section sectionAt(const ReportBlock& report, Index row);

/// Where the cells of a section stand in a line of text. Columns count from 1.
class TextLayout {
 public:
    /// No text in a table takes more columns than `mostOfText`.
    TextLayout(const ReportBlock& report, Section rows, std::size_t mostOfText = mostInTable);

    /// 0 for a column without anything to show.
    [[nodiscard]] std::size_t width(Index column) const { return m_Placed[at(column)]; }
    /// How far from the left a column begins.
    [[nodiscard]] std::size_t start(Index column) const { return m_Starts[at(column)]; }
    /// The width from the beginning of one column to the end of another.
    [[nodiscard]] std::size_t width(Index first, Index last) const;

    /// The columns in groups, each begun by the column of labels and no wider than `most` unless labels and
    /// one more column are.
    [[nodiscard]] std::vector<std::vector<Index>> parts(std::size_t most) const;
    [[nodiscard]] bool fits(const std::vector<Index>& columns, std::size_t most) const;
    /// Leaves room for these columns only, and for headings across them as far as the line takes `most`.
    void arrange(const std::vector<Index>& columns, std::size_t most);

 private:
    /// A heading across several columns.
    struct Span {
        Index first;
        Index last;
        std::size_t wanted;
    };

    static std::size_t at(Index column) { return static_cast<std::size_t>(column - 1); }

    void measureCells(const ReportBlock& report, Section rows, std::size_t mostOfText);
    void widen(const Span& span, const std::vector<Index>& columns, std::size_t most);

    std::vector<std::size_t> m_Widths;  ///< of the cells in one column
    std::vector<Span> m_Spans;
    std::vector<std::size_t> m_Placed;  ///< the widths in the line, 0 for columns that are left out
    std::vector<std::size_t> m_Starts;
    bool m_BeginsWithLabels = false;
};

/// A cell as a text report shows it: a long text shortened, in a table to so many columns.
[[nodiscard]] std::string shownShort(const ReportBlock& report, Index row, Index column,
                                     std::size_t mostOfText);

/// A cell with nothing to its left or right: it runs on over the empty cells beside it.
[[nodiscard]] bool standsAlone(const ReportBlock& report, Index row, Index column);

/// The last column that a heading is centred across: its own unless empty cells to its right share the
/// alignment.
[[nodiscard]] Index lastOfSpan(const ReportBlock& report, Index row, Index column);

/// The side of its column on which a cell stands. A text over a number stands where the number does.
[[nodiscard]] Side sideOf(const ReportBlock& report, Index row, Index column);

}  // namespace TBVNonPara::rendering
