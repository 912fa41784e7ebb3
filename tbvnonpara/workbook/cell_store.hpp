#pragma once

#include <algorithm>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/rectangle.hpp"

namespace TBVNonPara::workbook {

/// Stands in a cell whose formula a file holds without its result. A range that touches one is not read.
constexpr CellError uncalculated{2043};

/// Stands in a cell whose value a file holds in a form that is none: "1900-02-29" as a date. A range that
/// touches one is not read either.
constexpr CellError unreadable{1};

/// The values of a sheet: columns cut into blocks of rows that reach no further than their last value, so
/// that data costs 16 bytes a cell and a lonely cell at the sheet's end costs a few kilobytes. Rows and
/// columns count from 1 and must lie on the sheet.
class TBVNONPARA_API CellStore {
 public:
    [[nodiscard]] const CellValue& at(Index row, Index column) const noexcept;
    void set(Index row, Index column, CellValue value) {
        if (Block* const block = blockEndingAbove(row, column); block != nullptr && !isEmpty(value)) {
            block->push_back(std::move(value));
        } else {
            setAnywhere(row, column, std::move(value));
        }
    }

    /// The values of one column downwards from a row, as many as the span takes or brings.
    void read(Index row, Index column, std::span<CellValue> values) const;
    void write(Index row, Index column, std::span<const CellValue> values);

    /// One value into every cell of an area.
    void fill(const Rectangle& area, const CellValue& value);
    void clear(const Rectangle& area);
    /// Replaces the cells from (row, column) on by an area of another store.
    void copy(const CellStore& from, const Rectangle& area, Index row, Index column);

    /// The rectangle around all values; none on an empty sheet.
    [[nodiscard]] std::optional<Rectangle> usedArea() const;
    /// The last row that holds a value in one of the columns; 0 when none does.
    [[nodiscard]] Index lastUsedRow(Index firstColumn, Index lastColumn) const;

    /// Calls visitor(row, column, value) for each value of the area, column by column.
    template <typename Visitor>
    void visit(const Rectangle& area, Visitor&& visitor) const;

    /// The memory that the values take, in bytes, without the texts themselves.
    [[nodiscard]] std::size_t memory() const noexcept;

 private:
    static constexpr Index blockRows = 1024;

    /// The last element is never empty.
    using Block = std::vector<CellValue>;
    using Column = std::vector<Block>;

    /// A row's block and its place in it, both from 0.
    struct Place {
        explicit Place(Index row)
            : block(static_cast<std::size_t>((row - 1) / blockRows)),
              offset(static_cast<std::size_t>((row - 1) % blockRows)) {}
        std::size_t block;
        std::size_t offset;
    };

    [[nodiscard]] const Column* findColumn(Index column) const noexcept {
        const auto position = static_cast<std::size_t>(column - 1);
        return position < m_Columns.size() ? &m_Columns[position] : nullptr;
    }
    /// The block that the cell is the next one of, where it has room for it: cells come one below the other.
    [[nodiscard]] Block* blockEndingAbove(Index row, Index column) noexcept {
        if (static_cast<std::size_t>(column) > m_Columns.size()) {
            return nullptr;
        }
        Column& blocks = m_Columns[static_cast<std::size_t>(column - 1)];
        const Place place(row);
        const bool next = place.block < blocks.size() && place.offset == blocks[place.block].size() &&
                          place.offset < blocks[place.block].capacity();
        return next ? &blocks[place.block] : nullptr;
    }
    void setAnywhere(Index row, Index column, CellValue value);
    Block& blockFor(Place place, Index column);
    static Block& growTo(std::size_t offset, Block& block);
    static void clearRows(Column& column, Index top, Index bottom);
    static void dropEmptyEnd(Block& block);
    static Index lastUsedRow(const Column& column) noexcept;
    static Index firstUsedRow(const Column& column) noexcept;

    std::vector<Column> m_Columns;
};

template <typename Visitor>
void CellStore::visit(const Rectangle& area, Visitor&& visitor) const {
    const Index lastColumn = std::min(area.right, static_cast<Index>(m_Columns.size()));
    for (Index column = area.left; column <= lastColumn; ++column) {
        const Column& blocks = *findColumn(column);
        for (std::size_t i = Place(area.top).block; i < blocks.size(); ++i) {
            const Index above = static_cast<Index>(i) * blockRows;
            const Index first = std::max<Index>(area.top - above, 1);
            const Index last = std::min<Index>(area.bottom - above, static_cast<Index>(blocks[i].size()));
            for (Index row = first; row <= last; ++row) {
                const CellValue& value = blocks[i][static_cast<std::size_t>(row - 1)];
                if (!isEmpty(value)) {
                    visitor(above + row, column, value);
                }
            }
        }
    }
}

}  // namespace TBVNonPara::workbook
