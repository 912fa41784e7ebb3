#include "tbvnonpara/reshaping/blocks.hpp"

#include <algorithm>

#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::reshaping {

namespace {

constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

/// Where each block met each group: the cells of a table, row by row.
class Meetings {
 public:
    Meetings(std::size_t groups, std::size_t blocks) : m_Groups(groups), m_RowOf(blocks, nowhere) {}

    /// The place of a cell's number; a block that comes for the first time begins a row.
    [[nodiscard]] std::size_t& cellOf(std::int32_t block, std::int32_t group) {
        std::size_t& row = m_RowOf[static_cast<std::size_t>(block)];
        if (row == nowhere) {
            row = m_Blocks.size();
            m_Blocks.push_back(block);
            m_Cells.resize(m_Cells.size() + m_Groups, nowhere);
        }
        return m_Cells[row * m_Groups + static_cast<std::size_t>(group)];
    }

    [[nodiscard]] MatchedBlocks arranged(const Column& values, Groups groups) const {
        groups.ofCell.assign(values.cells.size(), Groups::none);
        MatchedBlocks matched{splitByGroup(values, groups), m_Blocks};
        for (std::size_t cell = 0; cell < m_Cells.size(); ++cell) {
            Column& column = matched.columns[cell % m_Groups];
            const std::size_t source = m_Cells[cell];
            column.rows.push_back(source == nowhere ? 0 : values.rows[source]);
            column.cells.push_back(source == nowhere ? CellValue() : values.cells[source]);
        }
        return matched;
    }

 private:
    std::size_t m_Groups;
    std::vector<std::size_t> m_RowOf;
    std::vector<std::int32_t> m_Blocks;
    std::vector<std::size_t> m_Cells;
};

bool isWhole(const std::vector<Column>& columns, std::size_t row) {
    return std::ranges::none_of(columns, [&](const Column& column) { return isEmpty(column.cells[row]); });
}

}  // namespace

MatchedBlocks matchBlocks(const Column& values, const Groups& groups, const Column& blockColumn,
                          const Groups& blocks) {
    Meetings meetings(groups.groups.size(), blocks.groups.size());
    for (std::size_t cell = 0; cell < values.cells.size(); ++cell) {
        const std::int32_t group = groups.ofCell[cell];
        const std::int32_t block = blocks.ofCell[cell];
        if (group == Groups::none || block == Groups::none) {
            continue;
        }
        std::size_t& place = meetings.cellOf(block, group);
        if (place != nowhere) {
            throw Refusal(tbvNPUnequalPairs,
                          "The block " + inQuotes(blocks.groups[static_cast<std::size_t>(block)].name) +
                              " of " + nameOf(blockColumn) + " has two values of " +
                              inQuotes(groups.groups[static_cast<std::size_t>(group)].name) + ": " +
                              nameOfCell(values, place) + " and " + nameOfCell(values, cell) +
                              "; every block takes one of each.")
                .about(Reason::SecondValue,
                       {blocks.groups[static_cast<std::size_t>(block)].name, nameOf(blockColumn),
                        groups.groups[static_cast<std::size_t>(group)].name, nameOfCell(values, place),
                        nameOfCell(values, cell)});
        }
        place = cell;
    }
    return meetings.arranged(values, groups);
}

Gap firstGap(const std::vector<Column>& columns) {
    Gap gap;
    const std::size_t rows = columns.empty() ? 0 : columns.front().cells.size();
    for (std::size_t row = 0; row < rows; ++row) {
        if (isWhole(columns, row)) {
            continue;
        }
        if (gap.rows == 0) {
            const auto empty =
                std::ranges::find_if(columns, [&](const Column& c) { return isEmpty(c.cells[row]); });
            gap = {row, static_cast<std::size_t>(empty - columns.begin()), 0};
        }
        gap.rows += 1;
    }
    return gap;
}

std::size_t dropGaps(std::vector<Column>& columns) {
    const std::size_t rows = columns.empty() ? 0 : columns.front().cells.size();
    std::vector<bool> keep(rows);
    for (std::size_t row = 0; row < rows; ++row) {
        keep[row] = isWhole(columns, row);
    }
    for (Column& column : columns) {
        keepCells(column, keep);
    }
    return static_cast<std::size_t>(std::ranges::count(keep, false));
}

std::vector<bool> filledCells(const Column& column) {
    std::vector<bool> filled;
    filled.reserve(column.cells.size());
    for (const CellValue& cell : column.cells) {
        filled.push_back(!isEmpty(cell));
    }
    return filled;
}

std::size_t dropEmpty(Column& column) {
    const std::vector<bool> filled = filledCells(column);
    keepCells(column, filled);
    return static_cast<std::size_t>(std::ranges::count(filled, false));
}

}  // namespace TBVNonPara::reshaping
