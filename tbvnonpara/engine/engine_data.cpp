#include "tbvnonpara/engine/engine_data.hpp"

#include <algorithm>
#include <utility>

namespace TBVNonPara {

Long EngineData::rows() const {
    return std::visit([](const auto& data) { return data.rows(); }, m_Data);
}

Long EngineData::columns() const {
    return std::visit([](const auto& data) { return data.columns(); }, m_Data);
}

const ValueGrid& EngineData::cells() const {
    const NumberColumns* const given = numbers();
    if (given == nullptr) {
        return std::get<ValueGrid>(m_Data);
    }
    if (m_MadeOfNumbers.allocated()) {
        return m_MadeOfNumbers;
    }
    ValueGrid cells(given->rows(), given->columns());
    for (Long column = 1; column <= given->columns(); ++column) {
        auto next = cells.column(column).begin();
        given->visit(column,
                     [&](std::span<const double> piece) { next = std::ranges::copy(piece, next).out; });
    }
    m_MadeOfNumbers = std::move(cells);
    return m_MadeOfNumbers;
}

// A sample of no rows need not have a column.
std::span<const CellValue> EngineData::cells(Long column) const {
    const auto& grid = std::get<ValueGrid>(m_Data);
    return grid.rows() == Long(0) ? std::span<const CellValue>() : grid.column(column);
}

bool EngineData::isBlank() const {
    return numbers() == nullptr && isEmpty(std::get<ValueGrid>(m_Data)(1, 1));
}

void EngineData::read(Long column, std::span<double> numbers) const {
    const NumberColumns* const given = this->numbers();
    if (given != nullptr && numbers.size() <= static_cast<std::size_t>(given->rows().value())) {
        return given->copy(column, numbers);
    }
    const std::span<const CellValue> from = given == nullptr ? cells(column) : std::span<const CellValue>();
    const std::size_t there = std::min(from.size(), numbers.size());
    std::ranges::transform(from.first(there), numbers.begin(),
                           [](const CellValue& cell) { return toDouble(cell); });
    if (there < numbers.size()) {
        raise(RuntimeError::SubscriptOutOfRange);
    }
}

}  // namespace TBVNonPara
