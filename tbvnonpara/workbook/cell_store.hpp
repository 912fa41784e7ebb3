#pragma once

#include <algorithm>
#include <optional>
#include <span>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/number_columns.hpp"
#include "tbvnonpara/core/rectangle.hpp"
#include "tbvnonpara/workbook/cell_block.hpp"

namespace TBVNonPara::workbook {

/// Stands in a cell whose formula a file holds without its result. A range that touches one is not read.
constexpr CellError uncalculated{2043};

/// Stands in a cell whose value a file holds in a form that is none: "1900-02-29" as a date. A range that
/// touches one is not read either.
constexpr CellError unreadable{1};

/// The values of a sheet: columns cut into blocks of rows that reach no further than their last value, so
/// that numbers cost 8 bytes a cell, anything else 16, and a lonely cell at the sheet's end a few kilobytes.
/// Rows and columns count from 1 and must lie on the sheet.
class TBVNONPARA_API CellStore {
 public:
    [[nodiscard]] CellValue at(Index row, Index column) const;
    void set(Index row, Index column, CellValue value);
    /// A number; at its quickest where cells come one below the other.
    void set(Index row, Index column, double number) {
        if (CellBlock* const block = blockEndingAbove(row, column)) {
            block->append(number);
        } else {
            set(row, column, CellValue(number));
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

    /// Whether a row is the first of a block, which `append` can begin with.
    [[nodiscard]] static constexpr bool beginsBlock(Index row) noexcept { return (row - 1) % blockRows == 0; }
    /// Takes the cells of a store that has none but below all of this one's, from the beginning of a block
    /// on.
    void append(CellStore below);

    /// The rectangle around all values; none on an empty sheet.
    [[nodiscard]] std::optional<Rectangle> usedArea() const;
    /// The last row that holds a value in one of the columns; 0 when none does.
    [[nodiscard]] Index lastUsedRow(Index firstColumn, Index lastColumn) const;

    /// Calls visitor(row, column, value) for each value of the area, column by column.
    template <typename Visitor>
    void visit(const Rectangle& area, Visitor&& visitor) const;
    /// The same, but passes over most of the numbers: those that have nothing else around them. Returns how
    /// many these are.
    template <typename Visitor>
    Index visitMixed(const Rectangle& area, Visitor&& visitor) const;

    /// Whether every cell of the area holds a number. O(area / 1024) where there is nothing else around them.
    [[nodiscard]] bool holdsNumbers(const Rectangle& area) const;
    /// Those numbers, which stay as they are now whatever is written to the cells later. The same cost.
    [[nodiscard]] NumberColumns numbers(const Rectangle& area) const;

    /// The memory that the values take, in bytes, without the texts themselves.
    [[nodiscard]] std::size_t memory() const noexcept;

 private:
    static constexpr auto blockRows = static_cast<Index>(CellBlock::rows);

    using Column = std::vector<CellBlock>;

    /// A row's block and its place in it, both from 0.
    struct Place {
        explicit Place(Index row)
            : block(static_cast<std::size_t>((row - 1) / blockRows)),
              offset(static_cast<std::size_t>((row - 1) % blockRows)) {}
        std::size_t block;
        std::size_t offset;
    };

    /// What an area has of a block: places from `first` up to `end`, the former in row `row` of the sheet.
    struct Part {
        const CellBlock* block;
        std::size_t first;
        std::size_t end;
        Index row;
    };

    [[nodiscard]] const Column* findColumn(Index column) const noexcept {
        const auto position = static_cast<std::size_t>(column - 1);
        return position < m_Columns.size() ? &m_Columns[position] : nullptr;
    }
    /// The block that the cell is the next number of, where it holds numbers: cells come one below the other.
    [[nodiscard]] CellBlock* blockEndingAbove(Index row, Index column) noexcept {
        if (static_cast<std::size_t>(column) > m_Columns.size()) {
            return nullptr;
        }
        Column& blocks = m_Columns[static_cast<std::size_t>(column - 1)];
        const Place place(row);
        const bool next = place.block < blocks.size() && blocks[place.block].takesNumberAt(place.offset);
        return next ? &blocks[place.block] : nullptr;
    }
    /// The blocks of a column that hold anything of an area.
    template <typename Visitor>
    void visitParts(const Rectangle& area, Index column, Visitor&& visitor) const;
    Column& columnFor(Place place, Index column);
    static void clearRows(Column& column, Index top, Index bottom);
    static Index lastUsedRow(const Column& column) noexcept;
    static Index firstUsedRow(const Column& column) noexcept;

    std::vector<Column> m_Columns;
};

template <typename Visitor>
void CellStore::visitParts(const Rectangle& area, Index column, Visitor&& visitor) const {
    const Column* const blocks = findColumn(column);
    for (std::size_t i = Place(area.top).block; blocks != nullptr && i < blocks->size(); ++i) {
        const Index above = static_cast<Index>(i) * blockRows;
        const Index first = std::max<Index>(area.top - above, 1);
        const Index last = std::min<Index>(area.bottom - above, static_cast<Index>((*blocks)[i].size()));
        if (first <= last) {
            visitor(Part{&(*blocks)[i], static_cast<std::size_t>(first - 1), static_cast<std::size_t>(last),
                         above + first});
        }
    }
}

template <typename Visitor>
void CellStore::visit(const Rectangle& area, Visitor&& visitor) const {
    const Index lastColumn = std::min(area.right, static_cast<Index>(m_Columns.size()));
    for (Index column = area.left; column <= lastColumn; ++column) {
        visitParts(area, column, [&](Part part) {
            for (; part.first < part.end; ++part.first, ++part.row) {
                const CellValue value = part.block->at(part.first);
                if (!isEmpty(value)) {
                    visitor(part.row, column, value);
                }
            }
        });
    }
}

template <typename Visitor>
Index CellStore::visitMixed(const Rectangle& area, Visitor&& visitor) const {
    Index passed = 0;
    const Index lastColumn = std::min(area.right, static_cast<Index>(m_Columns.size()));
    for (Index column = area.left; column <= lastColumn; ++column) {
        visitParts(area, column, [&](Part part) {
            if (part.block->numbers() != nullptr) {
                passed += static_cast<Index>(part.end - part.first);
                return;
            }
            for (; part.first < part.end; ++part.first, ++part.row) {
                const CellValue& value = part.block->values()[part.first];
                if (!isEmpty(value)) {
                    visitor(part.row, column, value);
                }
            }
        });
    }
    return passed;
}

}  // namespace TBVNonPara::workbook
