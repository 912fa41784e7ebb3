#include "tbvnonpara/ordering/pair_selection.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

#include "tbvnonpara/ordering/pair_tables.hpp"
#include "tbvnonpara/ordering/sort_keys.hpp"

namespace TBVNonPara {

namespace {

/// Where a row's cells begin that are not below a pivot (or, with OrEqual, that are above it), for rows asked
/// for one after the other. A staircase: the lower the row, the further to the left its values exceed the
/// pivot.
template <typename Table, bool OrEqual>
class Staircase {
 public:
    Staircase(const Table& table, double pivot) : m_Table(table), m_Pivot(pivot), m_Column(table.columns()) {}

    [[nodiscard]] std::size_t inRow(std::size_t row) {
        const std::size_t first = m_Table.firstColumn(row);
        while (m_Column > first && exceeds(m_Table.value(row, m_Column - 1))) {
            m_Column -= 1;
        }
        return std::max(m_Column, first);
    }

 private:
    [[nodiscard]] bool exceeds(double value) const { return OrEqual ? value > m_Pivot : value >= m_Pivot; }

    Table m_Table;
    double m_Pivot;
    std::size_t m_Column;
};

/// How many cells are below a value, and how many are not above it.
struct Counted {
    double pivot = 0;
    Place below = 0;
    Place notAbove = 0;

    [[nodiscard]] double middle() const {
        return (static_cast<double>(below) + static_cast<double>(notAbove)) / 2;
    }
};

template <typename Table>
Counted countedAt(const Table& table, double pivot) {
    Staircase<Table, false> less(table, pivot);
    Staircase<Table, true> lessOrEqual(table, pivot);
    Counted counted{pivot};
    for (std::size_t row = 0; row < table.rows(); ++row) {
        const std::size_t first = table.firstColumn(row);
        counted.below += less.inRow(row) - first;
        counted.notAbove += lessOrEqual.inRow(row) - first;
    }
    return counted;
}

/// Finds values by their places. What was counted for one narrows the search for the next.
template <typename Table>
class TableSearch {
 public:
    explicit TableSearch(const Table& table) : m_Table(table) {
        constexpr std::size_t few = 4096;
        m_FewEnough = std::max(few, (table.rows() + table.columns()) / 2);
        constexpr double infinity = std::numeric_limits<double>::infinity();
        m_Bounds = {{-infinity, 0, 0}, {infinity, table.cells(), table.cells()}};
        if (std::isinf(table.value(0, table.firstColumn(0)))) {
            m_Bounds.front() = countedAt(table, -infinity);
        }
        if (std::isinf(table.value(table.rows() - 1, table.columns() - 1))) {
            m_Bounds.back() = countedAt(table, infinity);
        }
    }

    [[nodiscard]] double at(Place place) {
        for (int attempt = 0;; ++attempt) {
            if (place >= m_BeforeRest && place - m_BeforeRest < m_Rest.size()) {
                return inRest(place);
            }
            const auto above = std::ranges::upper_bound(m_Bounds, place, {}, &Counted::notAbove);
            if (above != m_Bounds.end() && above->below <= place) {
                return above->pivot;
            }
            const Counted low = *(above - 1);
            const Counted high = *above;
            if (high.below - low.notAbove <= m_FewEnough) {
                collect(low, high);
            } else {
                m_Bounds.insert(above, countedAt(m_Table, pivotBetween(low, high, place, attempt)));
            }
        }
    }

 private:
    /// Twice around where the thinned table has it, then the middle of all doubles between the bounds, by
    /// which the search ends whatever the data are.
    [[nodiscard]] double pivotBetween(const Counted& low, const Counted& high, Place place, int attempt) {
        const int step = attempt % 4;
        if (step < 3) {
            const double guess = guessed(low, high, place, step == 0 ? 0 : step == 1 ? -1 : 1);
            if (guess > low.pivot && guess < high.pivot) {
                return guess;
            }
        }
        const std::uint64_t lowKey = keyOf(low.pivot);
        return valueOf(lowKey + (keyOf(high.pivot) - lowKey) / 2);
    }

    /// The thinned table's value at the place, corrected by how far that table is off at the nearest bound,
    /// or a margin to the left (-1) or to the right (1) of it.
    [[nodiscard]] double guessed(const Counted& low, const Counted& high, Place place, int side) {
        if (!m_Thinned) {
            m_Thinned = std::make_unique<Thinned>(m_Table);
        }
        const auto wanted = static_cast<double>(place);
        const double toLow = wanted - static_cast<double>(low.notAbove);
        const double toHigh = static_cast<double>(high.below) - wanted;
        const Counted& nearest = toLow < toHigh ? low : high;
        const Table thin = m_Thinned->values.table();
        const double scale = static_cast<double>(m_Table.cells()) / static_cast<double>(thin.cells());
        const double off = nearest.middle() - scale * countedAt(thin, nearest.pivot).middle();
        const double margin =
            std::min(toLow, toHigh) / 4 + static_cast<double>(m_Table.rows() + m_Table.columns()) / 32;
        const double thinPlace = (wanted - off + side * margin) / scale;
        const auto last = static_cast<double>(thin.cells() - 1);
        return m_Thinned->search.at(static_cast<Place>(std::clamp(thinPlace, 0.0, last)));
    }

    void collect(const Counted& low, const Counted& high) {
        Staircase<Table, true> begin(m_Table, low.pivot);
        Staircase<Table, false> end(m_Table, high.pivot);
        m_BeforeRest = low.notAbove;
        m_Rest.clear();
        m_Rest.reserve(static_cast<std::size_t>(high.below - low.notAbove));
        for (std::size_t row = 0; row < m_Table.rows(); ++row) {
            const std::size_t last = end.inRow(row);
            for (std::size_t column = begin.inRow(row); column < last; ++column) {
                m_Rest.push_back(m_Table.value(row, column));
            }
        }
    }

    [[nodiscard]] double inRest(Place place) {
        const auto wanted = m_Rest.begin() + static_cast<std::ptrdiff_t>(place - m_BeforeRest);
        std::ranges::nth_element(m_Rest, wanted);
        return *wanted;
    }

    struct Thinned;

    Table m_Table;
    std::size_t m_FewEnough;
    std::vector<Counted> m_Bounds;  ///< ascending
    std::vector<double> m_Rest;     ///< the cells strictly between two bounds
    Place m_BeforeRest = 0;         ///< how many cells are smaller than these
    std::unique_ptr<Thinned> m_Thinned;
};

template <typename Table>
struct TableSearch<Table>::Thinned {
    explicit Thinned(const Table& whole) : values(whole), search(values.table()) {}

    typename Table::Thinned values;
    TableSearch search;
};

template <typename Table>
std::vector<double> valuesIn(const Table& table, std::span<const Place> places) {
    TableSearch<Table> search(table);
    std::vector<double> values;
    values.reserve(places.size());
    for (const Place place : places) {
        values.push_back(search.at(place));
    }
    return values;
}

}  // namespace

std::vector<double> differencesAtPlaces(std::span<const double> first, std::span<const double> second,
                                        std::span<const std::uint64_t> places) {
    return valuesIn(DifferenceTable(first, second), places);
}

std::vector<double> walshAveragesAtPlaces(std::span<const double> values,
                                          std::span<const std::uint64_t> places) {
    return valuesIn(WalshTable(values), places);
}

}  // namespace TBVNonPara
