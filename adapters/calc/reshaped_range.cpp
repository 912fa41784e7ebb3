#include "adapters/calc/reshaped_range.hpp"

#include <algorithm>

namespace TBVNonPara::calc {

namespace {

std::size_t longestOf(const std::vector<reshaping::Column>& columns) {
    std::size_t longest = 0;
    for (const reshaping::Column& column : columns) {
        longest = std::max(longest, column.cells.size());
    }
    return longest;
}

}  // namespace

ReshapedColumns::ReshapedColumns(SheetAreas origin, std::vector<reshaping::Column> columns, bool headers)
    : m_Origin(std::move(origin)),
      m_Columns(std::move(columns)),
      m_Values(Long(longestOf(m_Columns) + (headers ? 1 : 0)), Long(m_Columns.size())),
      m_Labels(headers ? 1 : 0) {
    Index place = 0;
    for (reshaping::Column& column : m_Columns) {
        place += 1;
        if (headers && !column.header.empty()) {
            m_Values(1, place) = Text(column.header);
        }
        std::ranges::move(std::exchange(column.cells, {}), m_Values.column(place).begin() + m_Labels);
    }
}

CellArea ReshapedColumns::whole() const {
    return {0, 0, m_Values.columns().value() - 1, m_Values.rows().value() - 1};
}

ValueGrid ReshapedColumns::values(const CellArea& part) const {
    if (part == whole()) {
        return m_Values;
    }
    ValueGrid values(part.rows(), part.columns());
    for (std::int32_t column = 0; column < part.columns(); ++column) {
        const auto source = m_Values.column(part.left + column + 1);
        std::ranges::copy(
            source.subspan(static_cast<std::size_t>(part.top), static_cast<std::size_t>(part.rows())),
            values.column(column + 1).begin());
    }
    return values;
}

SheetAreas ReshapedColumns::originOf(std::int32_t row, std::int32_t column) const {
    const reshaping::Column& source = m_Columns[static_cast<std::size_t>(column)];
    const auto value = static_cast<std::size_t>(std::max(row - m_Labels, 0));
    const bool isValue = row >= m_Labels && value < source.rows.size();
    const std::int32_t top = isValue ? source.rows[value] - 1 : m_Origin.areas.front().top;
    const std::int32_t left = static_cast<std::int32_t>(source.place) - 1;
    return {m_Origin.document, m_Origin.sheet, {{left, top, left, top}}};
}

ReshapedRange::ReshapedRange(const std::shared_ptr<Session>& session, const ReshapedColumnsRef& columns)
    : ReshapedRange(session, columns, columns->origin(), columns->whole()) {
}

ReshapedRange::ReshapedRange(const std::shared_ptr<Session>& session, ReshapedColumnsRef columns,
                             SheetAreas shown, const CellArea& part)
    : CalcRange(session, std::move(shown)), m_Session(session), m_Columns(std::move(columns)), m_Part(part) {
}

RangeRef ReshapedRange::GetCells(Long row, Long column) const {
    const std::int32_t left = m_Part.left + column.value() - 1;
    const std::int32_t top = m_Part.top + row.value() - 1;
    const CellArea cell{left, top, left, top};
    if (!m_Columns->whole().contains(cell)) {
        raise(RuntimeError::SubscriptOutOfRange);
    }
    return makeObject<ReshapedRange>(m_Session, m_Columns, m_Columns->originOf(top, left), cell);
}

RangeRef ReshapedRange::GetAreas(Long area) const {
    if (area != 1) {
        raise(RuntimeError::SubscriptOutOfRange);
    }
    return makeObject<ReshapedRange>(m_Session, m_Columns, cells(), m_Part);
}

RangeRef ReshapedRange::to(const ReshapedRange& last) const {
    return makeObject<ReshapedRange>(m_Session, m_Columns, m_Columns->origin(), around(m_Part, last.m_Part));
}

}  // namespace TBVNonPara::calc
