#include "engine/data_table.hpp"

namespace TBVNonPara {

namespace {

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

}  // namespace TBVNonPara
