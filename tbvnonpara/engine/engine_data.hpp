#pragma once

#include <span>
#include <utility>
#include <variant>

#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/number_columns.hpp"

namespace TBVNonPara {

/// An input of the engine as it was given: cells, or numbers alone. Rows and columns count from 1.
class EngineData {
 public:
    /// No cells: unallocated.
    EngineData() = default;
    EngineData(ValueGrid cells) : m_Data(std::move(cells)) {}
    EngineData(NumberColumns numbers) : m_Data(std::move(numbers)) {}

    [[nodiscard]] Long rows() const;
    [[nodiscard]] Long columns() const;

    /// The numbers, where they were given as such.
    [[nodiscard]] const NumberColumns* numbers() const noexcept {
        return std::get_if<NumberColumns>(&m_Data);
    }
    /// The cells, made of the numbers where these were given and nobody has asked before.
    [[nodiscard]] const ValueGrid& cells() const;
    /// The cells of one column, for whoever has seen that they are no numbers.
    [[nodiscard]] std::span<const CellValue> cells(Long column) const;

    /// Whether the first cell is empty; raises SubscriptOutOfRange without one.
    [[nodiscard]] bool isBlank() const;

    /// The first cells of a column as numbers, an empty one as 0. Raises TypeMismatch for a cell that is
    /// none, SubscriptOutOfRange behind the last cell.
    void read(Long column, std::span<double> numbers) const;

 private:
    std::variant<ValueGrid, NumberColumns> m_Data;
    mutable ValueGrid m_MadeOfNumbers;
};

}  // namespace TBVNonPara
