#include "engine/data_table.hpp"

#include <cmath>

#include "core/conversions.hpp"

namespace TBVNonPara {

namespace {

bool isComplete(const ValueGrid& first, const ValueGrid& second, Long i) {
    return !isEmpty(first(i, 1)) && !isEmpty(second(i, 1));
}

Long countComplete(const ValueGrid& first, const ValueGrid& second) {
    Long count = 0;
    for (Long i = 1; i <= first.rows(); ++i) {
        if (isComplete(first, second, i)) {
            ++count;
        }
    }
    return count;
}

double signCode(double difference) noexcept {
    if (difference > 0) {
        return Positive;
    }
    return difference < 0 ? Negative : Zero;
}

/// How many rows from row i on hold the value of row i.
Long sizeOfTie(const DataTable& table, Long i) {
    const Long n = table.rows();
    Long size = 1;
    while (i + size <= n && table(i + size, Value) == table(i, Value)) {
        ++size;
    }
    return size;
}

}  // namespace

DataTable PairedDifferences(const ValueGrid& first, const ValueGrid& second) {
    DataTable table(countComplete(first, second), 4);
    Long k = 0;
    for (Long i = 1; i <= first.rows(); ++i) {
        if (!isComplete(first, second, i)) {
            continue;
        }
        ++k;
        const double d = throughSinglePrecisionText(toDouble(first(i, 1)) - toDouble(second(i, 1)));
        table(k, Value) = std::abs(d);
        table(k, Group) = signCode(d);
        table(k, Sequence) = toDouble(k);
    }
    return table;
}

void sortBy(DataTable& table, const ArrayUtility& utility, DataColumn column) {
    utility.SortRows(table, 0, toIndex(column));
}

TieCounts RankValues(DataTable& table, const ArrayUtility& utility, bool excludeZeros) {
    sortBy(table, utility, Value);

    TieCounts tieCounts;
    Long zeros = 0;
    Long tied = 0;
    for (Long i = 1; i <= table.rows(); i += tied) {
        tied = sizeOfTie(table, i);
        if (excludeZeros && table(i, Value) == 0) {
            zeros = tied;
            continue;
        }
        const double rank = toDouble(i - zeros) + toDouble(tied - 1) * 0.5;
        for (Long k = i; k < i + tied; ++k) {
            table(k, Rank) = rank;
        }
        if (tied > Long(1)) {
            tieCounts.append(tied);
        }
    }
    return tieCounts.allocated() ? tieCounts : TieCounts{0};
}

void SumRanksByGroup(const DataTable& table, RankSums& sums) {
    for (Long i = 1; i <= table.rows(); ++i) {
        if (table(i, Group) == 1) {
            sums.first += table(i, Rank);
            ++sums.firstCount;
        } else if (table(i, Group) == 2) {
            sums.second += table(i, Rank);
            ++sums.secondCount;
        }
    }
}

double tieSum(const TieCounts& tieCounts) {
    double sum = 0;
    for (const Long count : tieCounts.elements()) {
        const double t = toDouble(count);
        sum += t * t * t - t;
    }
    return sum;
}

}  // namespace TBVNonPara
