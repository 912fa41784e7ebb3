#pragma once

#include <cstddef>
#include <vector>

#include "tbvnonpara/rendering/report_block.hpp"

namespace TBVNonPara::rendering {

enum class Side { Left, Centre, Right };

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
    TextLayout(const ReportBlock& report, Section rows);

    /// 0 for a column without anything to show.
    [[nodiscard]] std::size_t width(Index column) const { return m_Widths[at(column)]; }
    /// How far from the left a column begins.
    [[nodiscard]] std::size_t start(Index column) const { return m_Starts[at(column)]; }
    /// The width from the beginning of one column to the end of another.
    [[nodiscard]] std::size_t width(Index first, Index last) const;

 private:
    static std::size_t at(Index column) { return static_cast<std::size_t>(column - 1); }

    void measureCells(const ReportBlock& report, Section rows);
    void widenForSpans(const ReportBlock& report, Section rows);
    void place();

    std::vector<std::size_t> m_Widths;
    std::vector<std::size_t> m_Starts;
};

/// A cell with nothing to its left or right: it runs on over the empty cells beside it.
[[nodiscard]] bool standsAlone(const ReportBlock& report, Index row, Index column);

/// The last column that a heading is centred across: its own unless empty cells to its right share the
/// alignment.
[[nodiscard]] Index lastOfSpan(const ReportBlock& report, Index row, Index column);

/// The side of its column on which a cell stands. A text over a number stands where the number does.
[[nodiscard]] Side sideOf(const ReportBlock& report, Index row, Index column);

}  // namespace TBVNonPara::rendering
