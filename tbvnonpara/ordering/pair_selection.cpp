#include "tbvnonpara/ordering/pair_selection.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <vector>

namespace TBVNonPara {

namespace {

using Place = std::uint64_t;

/// A table in which values ascend to the right and downwards, of which only the stretch begins[i] .. ends[i]
/// of row i can still hold the value that is looked for. `value(row, column)` is a cell, `firstColumn(row)`
/// where a row begins.
template <typename Value, typename FirstColumn>
class AscendingTable {
 public:
    AscendingTable(std::size_t rows, std::size_t columns, Value value, FirstColumn firstColumn)
        : m_Columns(columns),
          m_Value(value),
          m_FirstColumn(firstColumn),
          m_Begins(rows),
          m_Ends(rows, columns) {
        for (std::size_t row = 0; row < rows; ++row) {
            m_Begins[row] = firstColumn(row);
        }
    }

    [[nodiscard]] double at(Place place) {
        constexpr Place fewEnough = 4096;
        Place active = cells(m_Begins, m_Ends);
        while (active > std::max<Place>(fewEnough, m_Begins.size())) {
            for (const double pivot : pivots(place, active)) {
                if (const Split split = narrow(pivot, place); split == Split::Found) {
                    return pivot;
                }
            }
            active = cells(m_Begins, m_Ends);
        }
        return amongTheRest(place);
    }

 private:
    enum class Split { Narrowed, Found };

    [[nodiscard]] static Place cells(const std::vector<std::size_t>& begins,
                                     const std::vector<std::size_t>& ends) {
        return std::transform_reduce(begins.begin(), begins.end(), ends.begin(), Place(0), std::plus<>(),
                                     [](std::size_t begin, std::size_t end) { return Place(end - begin); });
    }

    /// Two values of the table that enclose the wanted one with a good chance: quantiles of a sample of what
    /// is left.
    [[nodiscard]] std::vector<double> pivots(Place place, Place active) {
        constexpr std::size_t sampleSize = 1024;
        std::vector<Place> upTo(m_Begins.size());
        Place sum = 0;
        for (std::size_t row = 0; row < upTo.size(); ++row) {
            upTo[row] = sum += m_Ends[row] - m_Begins[row];
        }
        std::vector<double> sample(sampleSize);
        for (double& drawn : sample) {
            const Place cell = std::uniform_int_distribution<Place>(0, active - 1)(m_Random);
            const auto row = static_cast<std::size_t>(std::ranges::upper_bound(upTo, cell) - upTo.begin());
            drawn = m_Value(row, m_Ends[row] - static_cast<std::size_t>(upTo[row] - cell));
        }
        std::ranges::sort(sample);
        const double share = static_cast<double>(place - m_Below) / static_cast<double>(active);
        const double middle = share * static_cast<double>(sampleSize);
        const double margin = 2 * std::sqrt(middle * (1 - share)) + 1;
        const auto quantile = [&](double rank) {
            return sample[static_cast<std::size_t>(
                std::clamp(rank, 0.0, static_cast<double>(sampleSize - 1)))];
        };
        return {quantile(middle - margin), quantile(middle + margin)};
    }

    /// Leaves out what the pivot shows to be too small or too large. A staircase: the lower the row, the
    /// further to the left its values exceed the pivot.
    Split narrow(double pivot, Place place) {
        std::vector<std::size_t> below(m_Begins.size());
        std::vector<std::size_t> notAbove(m_Begins.size());
        std::size_t less = m_Columns;
        std::size_t lessOrEqual = m_Columns;
        Place countBelow = 0;
        Place countNotAbove = 0;
        for (std::size_t row = 0; row < below.size(); ++row) {
            const std::size_t first = m_FirstColumn(row);
            while (less > first && !(m_Value(row, less - 1) < pivot)) {
                less -= 1;
            }
            while (lessOrEqual > first && m_Value(row, lessOrEqual - 1) > pivot) {
                lessOrEqual -= 1;
            }
            below[row] = std::max(less, first);
            notAbove[row] = std::max(lessOrEqual, first);
            countBelow += below[row] - first;
            countNotAbove += notAbove[row] - first;
        }
        if (place >= countBelow && place < countNotAbove) {
            return Split::Found;
        }
        if (place < countBelow) {
            std::ranges::transform(m_Ends, below, m_Ends.begin(),
                                   [](std::size_t end, std::size_t cut) { return std::min(end, cut); });
        } else {
            std::ranges::transform(m_Begins, notAbove, m_Begins.begin(),
                                   [](std::size_t begin, std::size_t cut) { return std::max(begin, cut); });
            m_Below = countNotAbove;
        }
        for (std::size_t row = 0; row < m_Begins.size(); ++row) {
            m_Ends[row] = std::max(m_Ends[row], m_Begins[row]);
        }
        return Split::Narrowed;
    }

    [[nodiscard]] double amongTheRest(Place place) const {
        std::vector<double> rest;
        for (std::size_t row = 0; row < m_Begins.size(); ++row) {
            for (std::size_t column = m_Begins[row]; column < m_Ends[row]; ++column) {
                rest.push_back(m_Value(row, column));
            }
        }
        const auto wanted = rest.begin() + static_cast<std::ptrdiff_t>(place - m_Below);
        std::ranges::nth_element(rest, wanted);
        return *wanted;
    }

    std::size_t m_Columns;
    Value m_Value;
    FirstColumn m_FirstColumn;
    std::vector<std::size_t> m_Begins;
    std::vector<std::size_t> m_Ends;
    Place m_Below = 0;  ///< cells that are known to be smaller than the wanted one
    std::mt19937_64 m_Random{20260101};
};

}  // namespace

double differenceAtPlace(std::span<const double> first, std::span<const double> second, std::uint64_t place) {
    const auto value = [first, second](std::size_t row, std::size_t column) {
        return first[row] - second[second.size() - 1 - column];
    };
    const auto fromTheLeft = [](std::size_t) { return std::size_t(0); };
    return AscendingTable(first.size(), second.size(), value, fromTheLeft).at(place);
}

double walshAverageAtPlace(std::span<const double> values, std::uint64_t place) {
    const auto value = [values](std::size_t row, std::size_t column) {
        return std::midpoint(values[row], values[column]);  // the sum of large values may overflow
    };
    const auto fromTheDiagonal = [](std::size_t row) { return row; };
    return AscendingTable(values.size(), values.size(), value, fromTheDiagonal).at(place);
}

}  // namespace TBVNonPara
