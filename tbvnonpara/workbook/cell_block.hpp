#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::workbook {

/// Some cells of a column, one below the other, the last of them never empty. Numbers alone take 8 bytes a
/// cell, and who reads them shares them; anything else takes 16. Places count from 0.
class TBVNONPARA_API CellBlock {
 public:
    static constexpr std::size_t rows = 1024;

    [[nodiscard]] std::size_t size() const noexcept {
        return m_Numbers == nullptr ? m_Values.size() : m_Numbers->size();
    }
    [[nodiscard]] bool empty() const noexcept { return size() == 0; }
    [[nodiscard]] CellValue at(std::size_t place) const {
        return m_Numbers == nullptr ? m_Values[place] : CellValue((*m_Numbers)[place]);
    }
    /// The place of the first cell that holds something.
    [[nodiscard]] std::size_t firstUsed() const noexcept;

    /// The numbers, where there is nothing else: whoever holds them has them as they are now.
    [[nodiscard]] const std::shared_ptr<std::vector<double>>& numbers() const noexcept { return m_Numbers; }
    /// The cells where there is something else, or are few.
    [[nodiscard]] std::span<const CellValue> values() const noexcept { return m_Values; }

    /// Whether append puts a number at this place.
    [[nodiscard]] bool takesNumberAt(std::size_t place) const noexcept {
        return m_Numbers != nullptr && place == m_Numbers->size() && m_Numbers.use_count() == 1;
    }
    void append(double number) { m_Numbers->push_back(number); }

    /// A value, not an empty one. `goesOn` where many more are expected below.
    void set(std::size_t place, CellValue value, bool goesOn);
    void write(std::size_t place, std::span<const CellValue> values);
    /// Copies as many cells from a place on as there are to be filled and the block has. Returns their
    /// number.
    [[nodiscard]] std::size_t read(std::size_t place, std::span<CellValue> values) const;
    /// Empties the cells from a place up to another.
    void clear(std::size_t from, std::size_t end);

    /// The memory that the cells take, in bytes, without the texts themselves.
    [[nodiscard]] std::size_t memory() const noexcept;

 private:
    [[nodiscard]] std::vector<double>& ownNumbers();
    void beginNumbers();
    void becomeNumbersWhenAlone();
    void becomeValues();
    void dropEmptyEnd();

    /// The one or the other. Never changed while somebody else holds it.
    std::shared_ptr<std::vector<double>> m_Numbers;
    std::vector<CellValue> m_Values;
};

}  // namespace TBVNonPara::workbook
