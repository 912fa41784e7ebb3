#include "tbvnonpara/workbook/cell_store.hpp"

#include <array>
#include <utility>

namespace TBVNonPara::workbook {

CellValue CellStore::at(Index row, Index column) const {
    const Column* blocks = findColumn(column);
    const Place place(row);
    if (blocks == nullptr || place.block >= blocks->size() || place.offset >= (*blocks)[place.block].size()) {
        return Empty();
    }
    return (*blocks)[place.block].at(place.offset);
}

void CellStore::set(Index row, Index column, CellValue value) {
    if (isEmpty(value)) {
        clear({row, column, row, column});
        return;
    }
    const Place place(row);
    Column& blocks = columnFor(place, column);
    // Below a full block the column goes on, most likely.
    const bool goesOn = place.block > 0 && blocks[place.block - 1].size() == CellBlock::rows;
    blocks[place.block].set(place.offset, std::move(value), goesOn);
}

CellStore::Column& CellStore::columnFor(Place place, Index column) {
    if (m_Columns.size() < static_cast<std::size_t>(column)) {
        m_Columns.resize(static_cast<std::size_t>(column));
    }
    Column& blocks = m_Columns[static_cast<std::size_t>(column - 1)];
    if (blocks.size() <= place.block) {
        blocks.resize(place.block + 1);
    }
    return blocks;
}

void CellStore::read(Index row, Index column, std::span<CellValue> values) const {
    const Column* blocks = findColumn(column);
    while (!values.empty()) {
        const Place place(row);
        const std::size_t rows = std::min(values.size(), CellBlock::rows - place.offset);
        const bool there = blocks != nullptr && place.block < blocks->size();
        const std::size_t held = there ? (*blocks)[place.block].read(place.offset, values.first(rows)) : 0;
        std::ranges::fill(values.subspan(held, rows - held), CellValue());
        values = values.subspan(rows);
        row += static_cast<Index>(rows);
    }
}

void CellStore::write(Index row, Index column, std::span<const CellValue> values) {
    while (!values.empty()) {
        const Place place(row);
        const std::size_t rows = std::min(values.size(), CellBlock::rows - place.offset);
        columnFor(place, column)[place.block].write(place.offset, values.first(rows));
        values = values.subspan(rows);
        row += static_cast<Index>(rows);
    }
}

bool CellStore::holdsNumbers(const Rectangle& area) const {
    for (Index column = area.left; column <= area.right; ++column) {
        Index numbers = 0;
        visitParts(area, column, [&](const Part& part) {
            const auto values = part.block->values();
            const bool alone = part.block->numbers() != nullptr ||
                               std::ranges::all_of(values.subspan(part.first, part.end - part.first),
                                                   [](const CellValue& value) {
                                                       return std::holds_alternative<double>(value);
                                                   });
            numbers += alone ? static_cast<Index>(part.end - part.first) : 0;
        });
        if (numbers != area.rows()) {
            return false;
        }
    }
    return true;
}

NumberColumns CellStore::numbers(const Rectangle& area) const {
    NumberColumns columns(area.columns());
    for (Index column = area.left; column <= area.right; ++column) {
        visitParts(area, column, [&](const Part& part) {
            const std::size_t size = part.end - part.first;
            if (const auto& numbers = part.block->numbers()) {
                columns.append(column - area.left + 1, numbers,
                               std::span(*numbers).subspan(part.first, size));
                return;
            }
            std::vector<double> copied;
            for (const CellValue& value : part.block->values().subspan(part.first, size)) {
                copied.push_back(std::get<double>(value));
            }
            columns.append(column - area.left + 1, std::move(copied));
        });
    }
    return columns;
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
        if (bottom <= above) {
            break;
        }
        column[i].clear(static_cast<std::size_t>(std::max<Index>(top - above, 1) - 1),
                        static_cast<std::size_t>(std::min(bottom - above, blockRows)));
    }
}

void CellStore::copy(const CellStore& from, const Rectangle& area, Index row, Index column) {
    clear({row, column, row + area.rows() - 1, column + area.columns() - 1});
    const Index lastColumn = std::min(area.right, static_cast<Index>(from.m_Columns.size()));
    std::array<CellValue, CellBlock::rows> copied;
    for (Index source = area.left; source <= lastColumn; ++source) {
        from.visitParts(area, source, [&](const Part& part) {
            const auto values = std::span(copied).first(part.end - part.first);
            static_cast<void>(part.block->read(part.first, values));
            write(row + part.row - area.top, column + source - area.left, values);
        });
    }
}

void CellStore::append(CellStore below) {
    m_Columns.resize(std::max(m_Columns.size(), below.m_Columns.size()));
    for (std::size_t column = 0; column < below.m_Columns.size(); ++column) {
        Column& blocks = m_Columns[column];
        Column& more = below.m_Columns[column];
        blocks.resize(std::max(blocks.size(), more.size()));
        for (std::size_t i = 0; i < more.size(); ++i) {
            if (!more[i].empty()) {
                blocks[i] = std::move(more[i]);
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
        if (!column[i].empty()) {
            return static_cast<Index>(i) * blockRows + static_cast<Index>(column[i].firstUsed()) + 1;
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
        bytes += column.capacity() * sizeof(CellBlock);
        for (const CellBlock& block : column) {
            bytes += block.memory();
        }
    }
    return bytes;
}

}  // namespace TBVNonPara::workbook
