#include "tbvnonpara/workbook/cell_store.hpp"

#include <bit>
#include <utility>

namespace TBVNonPara::workbook {

namespace {

const CellValue emptyCell;

/// Copies values; numbers and texts, by far the most, without the detour through the variant's table of
/// copiers.
void copyValues(std::span<const CellValue> from, CellValue* to) {
    for (const CellValue& value : from) {
        if (const auto* number = std::get_if<double>(&value)) {
            *to = *number;
        } else if (const auto* text = std::get_if<Text>(&value)) {
            *to = *text;
        } else {
            *to = value;
        }
        ++to;
    }
}

}  // namespace

const CellValue& CellStore::at(Index row, Index column) const noexcept {
    const Column* blocks = findColumn(column);
    const Place place(row);
    if (blocks == nullptr || place.block >= blocks->size() || place.offset >= (*blocks)[place.block].size()) {
        return emptyCell;
    }
    return (*blocks)[place.block][place.offset];
}

void CellStore::setAnywhere(Index row, Index column, CellValue value) {
    if (isEmpty(value)) {
        clear({row, column, row, column});
        return;
    }
    const Place place(row);
    Block& block = blockFor(place, column);
    if (place.offset == block.size()) {
        block.push_back(std::move(value));
    } else {
        growTo(place.offset, block)[place.offset] = std::move(value);
    }
}

CellStore::Block& CellStore::blockFor(Place place, Index column) {
    if (m_Columns.size() < static_cast<std::size_t>(column)) {
        m_Columns.resize(static_cast<std::size_t>(column));
    }
    Column& blocks = m_Columns[static_cast<std::size_t>(column - 1)];
    if (blocks.size() <= place.block) {
        blocks.resize(place.block + 1);
        // Below a full block the column goes on, most likely.
        if (place.block > 0 && blocks[place.block - 1].size() == blockRows) {
            blocks[place.block].reserve(blockRows);
        }
    }
    return blocks[place.block];
}

CellStore::Block& CellStore::growTo(std::size_t offset, Block& block) {
    if (block.size() <= offset) {
        if (block.capacity() <= offset) {
            block.reserve(std::bit_ceil(offset + 1));
        }
        block.resize(offset + 1);
    }
    return block;
}

void CellStore::read(Index row, Index column, std::span<CellValue> values) const {
    const Column* blocks = findColumn(column);
    if (blocks == nullptr) {
        std::ranges::fill(values, CellValue());
        return;
    }
    while (!values.empty()) {
        const Place place(row);
        const std::size_t rows = std::min(values.size(), blockRows - place.offset);
        std::size_t held = 0;
        if (place.block < blocks->size() && place.offset < (*blocks)[place.block].size()) {
            const auto block = std::span<const CellValue>((*blocks)[place.block]).subspan(place.offset);
            held = std::min(rows, block.size());
            copyValues(block.first(held), values.data());
        }
        std::ranges::fill(values.subspan(held, rows - held), CellValue());
        values = values.subspan(rows);
        row += static_cast<Index>(rows);
    }
}

void CellStore::write(Index row, Index column, std::span<const CellValue> values) {
    while (!values.empty()) {
        const Place place(row);
        const std::size_t rows = std::min(values.size(), blockRows - place.offset);
        Block& block = growTo(place.offset + rows - 1, blockFor(place, column));
        copyValues(values.first(rows), block.data() + place.offset);
        dropEmptyEnd(block);
        values = values.subspan(rows);
        row += static_cast<Index>(rows);
    }
}

void CellStore::fill(const Rectangle& area, const CellValue& value) {
    if (isEmpty(value)) {
        clear(area);
        return;
    }
    const std::vector<CellValue> piece(static_cast<std::size_t>(std::min(blockRows, area.rows())), value);
    for (Index column = area.left; column <= area.right; ++column) {
        for (Index row = area.top; row <= area.bottom; row += blockRows) {
            const auto rows = static_cast<std::size_t>(std::min(blockRows, area.bottom - row + 1));
            write(row, column, std::span(piece).first(rows));
        }
    }
}

void CellStore::clear(const Rectangle& area) {
    if (area == wholeSheet) {
        m_Columns.clear();
        return;
    }
    const Index lastColumn = std::min(area.right, static_cast<Index>(m_Columns.size()));
    for (Index column = area.left; column <= lastColumn; ++column) {
        clearRows(m_Columns[static_cast<std::size_t>(column - 1)], area.top, area.bottom);
    }
}

void CellStore::clearRows(Column& column, Index top, Index bottom) {
    for (std::size_t i = Place(top).block; i < column.size(); ++i) {
        const Index above = static_cast<Index>(i) * blockRows;
        Block& block = column[i];
        const Index first = std::max<Index>(top - above, 1);
        const Index last = std::min<Index>(bottom - above, static_cast<Index>(block.size()));
        if (bottom <= above) {
            break;
        }
        if (first == 1 && last == static_cast<Index>(block.size())) {
            Block().swap(block);
            continue;
        }
        for (Index row = first; row <= last; ++row) {
            block[static_cast<std::size_t>(row - 1)] = Empty();
        }
        dropEmptyEnd(block);
    }
}

void CellStore::dropEmptyEnd(Block& block) {
    while (!block.empty() && isEmpty(block.back())) {
        block.pop_back();
    }
}

void CellStore::copy(const CellStore& from, const Rectangle& area, Index row, Index column) {
    clear({row, column, row + area.rows() - 1, column + area.columns() - 1});
    const Index lastColumn = std::min(area.right, static_cast<Index>(from.m_Columns.size()));
    for (Index source = area.left; source <= lastColumn; ++source) {
        const Column& blocks = *from.findColumn(source);
        for (std::size_t i = Place(area.top).block; i < blocks.size(); ++i) {
            const Index above = static_cast<Index>(i) * blockRows;
            const Index first = std::max<Index>(area.top - above, 1);
            const Index last = std::min<Index>(area.bottom - above, static_cast<Index>(blocks[i].size()));
            if (first <= last) {
                write(row + above + first - area.top, column + source - area.left,
                      std::span(blocks[i]).subspan(static_cast<std::size_t>(first - 1),
                                                   static_cast<std::size_t>(last - first + 1)));
            }
        }
    }
}

Index CellStore::lastUsedRow(const Column& column) noexcept {
    for (std::size_t i = column.size(); i > 0; --i) {
        if (!column[i - 1].empty()) {
            return static_cast<Index>(i - 1) * blockRows + static_cast<Index>(column[i - 1].size());
        }
    }
    return 0;
}

Index CellStore::firstUsedRow(const Column& column) noexcept {
    for (std::size_t i = 0; i < column.size(); ++i) {
        const auto first = std::ranges::find_if_not(column[i], isEmpty);
        if (first != column[i].end()) {
            return static_cast<Index>(i) * blockRows + (first - column[i].begin()) + 1;
        }
    }
    return 0;
}

std::optional<Rectangle> CellStore::usedArea() const {
    std::optional<Rectangle> used;
    for (Index column = 1; column <= static_cast<Index>(m_Columns.size()); ++column) {
        const Column& blocks = *findColumn(column);
        if (const Index first = firstUsedRow(blocks); first > 0) {
            const Rectangle rows{first, column, lastUsedRow(blocks), column};
            used = used ? around(*used, rows) : rows;
        }
    }
    return used;
}

Index CellStore::lastUsedRow(Index firstColumn, Index lastColumn) const {
    Index last = 0;
    lastColumn = std::min(lastColumn, static_cast<Index>(m_Columns.size()));
    for (Index column = firstColumn; column <= lastColumn; ++column) {
        last = std::max(last, lastUsedRow(*findColumn(column)));
    }
    return last;
}

std::size_t CellStore::memory() const noexcept {
    std::size_t bytes = m_Columns.capacity() * sizeof(Column);
    for (const Column& column : m_Columns) {
        bytes += column.capacity() * sizeof(Block);
        for (const Block& block : column) {
            bytes += block.capacity() * sizeof(CellValue);
        }
    }
    return bytes;
}

}  // namespace TBVNonPara::workbook
