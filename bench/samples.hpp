#pragma once

#include <random>
#include <string>

#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::Bench {

/// The same numbers in every run. With `distinct` values the data have ties; 0 means none to speak of.
class Samples {
 public:
    explicit Samples(int distinct = 0) : m_Distinct(distinct) {}

    double next() {
        if (m_Distinct == 0) {
            return std::normal_distribution(50.0, 10.0)(m_Generator);
        }
        return std::uniform_int_distribution(1, m_Distinct)(m_Generator);
    }

    ValueGrid grid(Long rows, Long columns) {
        ValueGrid cells(rows, columns);
        for (Long column = 1; column <= columns; ++column) {
            for (CellValue& cell : cells.column(column)) {
                cell = next();
            }
        }
        return cells;
    }

 private:
    int m_Distinct;
    std::mt19937_64 m_Generator{20260101};
};

}  // namespace TBVNonPara::Bench
