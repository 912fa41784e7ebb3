#pragma once

#include <cstddef>
#include <cstdint>
#include <numeric>
#include <span>
#include <vector>

namespace TBVNonPara {

/// A place among the cells of a table when their values ascend, counted from 0.
using Place = std::uint64_t;

/// The middles of stretches of 32 values; few values as they are.
[[nodiscard]] inline std::vector<double> middlesOf(std::span<const double> values) {
    constexpr std::size_t stretch = 32;
    const std::size_t size = values.size() < 2 * stretch ? values.size() : values.size() / stretch;
    std::vector<double> middles(size);
    for (std::size_t i = 0; i < size; ++i) {
        middles[i] = values[static_cast<std::size_t>(Place(2 * i + 1) * values.size() / (2 * size))];
    }
    return middles;
}

/// Differences in a table in which they ascend to the right and downwards.
class DifferenceTable {
 public:
    DifferenceTable(std::span<const double> first, std::span<const double> second)
        : m_First(first), m_Second(second) {}

    [[nodiscard]] std::size_t rows() const { return m_First.size(); }
    [[nodiscard]] std::size_t columns() const { return m_Second.size(); }
    [[nodiscard]] Place cells() const { return Place(rows()) * columns(); }
    [[nodiscard]] static std::size_t firstColumn(std::size_t /*row*/) { return 0; }
    [[nodiscard]] double value(std::size_t row, std::size_t column) const {
        return m_First[row] - m_Second[columns() - 1 - column];
    }

    /// A table of fewer values that are spread alike.
    class Thinned {
     public:
        explicit Thinned(const DifferenceTable& whole)
            : m_First(middlesOf(whole.m_First)), m_Second(middlesOf(whole.m_Second)) {}
        [[nodiscard]] DifferenceTable table() const { return {m_First, m_Second}; }

     private:
        std::vector<double> m_First;
        std::vector<double> m_Second;
    };

 private:
    std::span<const double> m_First;
    std::span<const double> m_Second;
};

/// Walsh averages in such a table, whose rows begin at the diagonal.
class WalshTable {
 public:
    explicit WalshTable(std::span<const double> values) : m_Values(values) {}

    [[nodiscard]] std::size_t rows() const { return m_Values.size(); }
    [[nodiscard]] std::size_t columns() const { return m_Values.size(); }
    [[nodiscard]] Place cells() const { return Place(rows()) * (rows() + 1) / 2; }
    [[nodiscard]] static std::size_t firstColumn(std::size_t row) { return row; }
    [[nodiscard]] double value(std::size_t row, std::size_t column) const {
        return std::midpoint(m_Values[row], m_Values[column]);  // the sum of large values may overflow
    }

    class Thinned {
     public:
        explicit Thinned(const WalshTable& whole) : m_Values(middlesOf(whole.m_Values)) {}
        [[nodiscard]] WalshTable table() const { return WalshTable(m_Values); }

     private:
        std::vector<double> m_Values;
    };

 private:
    std::span<const double> m_Values;
};

}  // namespace TBVNonPara
