#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
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

/// Columns side by side that something goes across: a heading, a rule.
struct Run {
    Index first = 0;
    Index last = 0;
};

/// Where the cells of a section stand in a line of text. Columns count from 1.
class TextLayout {
 public:
    /// No text in a table takes more columns than `mostOfText`.
    TextLayout(const ReportBlock& report, Section rows, std::size_t mostOfText = mostInTable);

    /// The columns in groups, each begun by the column of labels and no wider than `most` unless labels and
    /// one more column are.
    [[nodiscard]] std::vector<std::vector<Index>> parts(std::size_t most) const;
    [[nodiscard]] bool fits(const std::vector<Index>& columns, std::size_t most) const;
    /// Leaves room for these columns only, in ascending order, and for headings across them as far as the
    /// line takes `most`. In the beginning all columns are arranged.
    void arrange(std::vector<Index> columns, std::size_t most);

    /// The columns that are arranged.
    [[nodiscard]] const std::vector<Index>& columns() const { return m_Columns; }
    /// How far from the left a column begins; the next one, when it is not arranged.
    [[nodiscard]] std::size_t start(Index column) const { return m_Starts[placeOf(column)]; }
    /// The width that the arranged ones of some columns take; 0 when none has anything to show.
    [[nodiscard]] std::size_t width(Run run) const;

    /// The column of a cell that has nothing to its left or right; 0 for any other row.
    [[nodiscard]] Index onlyCell(Index row) const;
    /// The columns that the cell in a column of a row goes across: its own, or those of the heading over it.
    [[nodiscard]] Run across(Index row, Index column) const;

 private:
    struct Heading : Run {
        std::size_t wanted = 0;
    };

    /// How much some columns take: their widths, and a gap between those that have one.
    struct Taken {
        std::size_t widths = 0;
        std::size_t columns = 0;

        void add(std::size_t width);
        [[nodiscard]] std::size_t total() const { return columns == 0 ? 0 : widths + (columns - 1) * gap; }
    };

    static std::size_t at(Index column) { return static_cast<std::size_t>(column - 1); }

    [[nodiscard]] std::size_t placeOf(Index column) const;
    [[nodiscard]] Taken taken(const Run& run) const;
    void measureRow(const ReportBlock& report, Index row, std::size_t mostOfText);
    void widen(const Heading& heading, Taken& whole, std::size_t most);

    std::vector<std::size_t> m_Widths;                 ///< of the cells in one column
    std::map<Index, std::vector<Heading>> m_Headings;  ///< row by row, from left to right
    std::map<Index, Index> m_OnlyCells;
    std::vector<Index> m_Columns;
    std::vector<std::size_t> m_Placed;  ///< the widths of `m_Columns` in the line
    std::vector<std::size_t> m_Starts;  ///< where they begin, and the end
    bool m_BeginsWithLabels = false;
};

/// The run, of some from left to right, that a column belongs to; nothing when none does.
template <typename Runs>
[[nodiscard]] const typename Runs::value_type* runAt(const Runs& runs, Index column) {
    const auto next = std::ranges::upper_bound(runs, column, {}, &Run::first);
    return next != runs.begin() && std::prev(next)->last >= column ? &*std::prev(next) : nullptr;
}

/// A cell as a text report shows it: a long text shortened, in a table to so many columns.
[[nodiscard]] std::string shownShort(const ReportBlock& report, Index row, Index column, bool alone,
                                     std::size_t mostOfText);

/// A cell with nothing to its left or right: it runs on over the empty cells beside it.
[[nodiscard]] bool standsAlone(const ReportBlock& report, Index row, Index column);

/// The last column that a heading is centred across: its own unless empty cells to its right share the
/// alignment.
[[nodiscard]] Index lastOfSpan(const ReportBlock& report, Index row, Index column);

/// The side of its column on which a cell stands. A text over a number stands where the number does.
[[nodiscard]] Side sideOf(const ReportBlock& report, Index row, Index column, bool alone);

}  // namespace TBVNonPara::rendering
