#include "tbvnonpara/distributions/wilcoxon.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/engine/paired_differences.hpp"
#include "tbvnonpara/ordering/ranking.hpp"

namespace TBVNonPara {

namespace {

constexpr Long lastExact = 50;

/// The group of a difference by its sign.
int signCode(double difference) noexcept {
    if (difference > 0) {
        return Positive;
    }
    return difference < 0 ? Negative : Zero;
}

/// The ranks of the differences in entry order, 0 for one that is left out, and their ties.
struct RankedPairs {
    Array<double> ranks;
    TieCounts tieCounts;
};

RankedPairs rankPairs(const Array<double>& differences, bool ignoreZeros, const ArrayUtility& utility) {
    Array<double> sizes = differences;
    std::ranges::transform(sizes.elements(), sizes.elements().begin(), [](double d) { return std::abs(d); });
    Array<double> ranks(sizes.size());
    AscendingOrder order = utility.OrderOf(sizes.elements());
    TieCounts tieCounts = ignoreZeros ? rankWithoutZeros(sizes.elements(), std::move(order), ranks.elements())
                                      : rankValues(std::move(order), ranks.elements());
    return {std::move(ranks), std::move(tieCounts)};
}

/// The rank sum whose small values speak for the alternative.
double chooseT(const RankSums& T, TBVNPTails tails) noexcept {
    switch (tails) {
        case tbvNPVar1GTVar2:
            return T.second;
        case tbvNPVar1LTVar2:
            return T.first;
        default:
            return std::min(T.first, T.second);
    }
}

void copyPairs(const EngineData& first, const EngineData& second, Grid<double>& data) {
    data = Grid<double>(first.rows(), 2);
    first.read(1, data.column(1));
    second.read(1, data.column(2));
}

/// The ranks of the positive, the negative and the zero differences of n pairs.
std::array<Array<double>, 3> ranksBySign(const Array<double>& differences, const Array<double>& ranks,
                                         Long n) {
    const auto signOf = [&](Long i) { return static_cast<std::size_t>(signCode(differences(i)) - 1); };
    std::array<Long, 3> counts;
    // A pair with a blank makes the lists shorter than n, and reading them fails: pairs must be complete.
    for (Long i = 1; i <= n; ++i) {
        ++counts[signOf(i)];
    }
    std::array<Array<double>, 3> bySign{Array<double>(counts[0]), Array<double>(counts[1]),
                                        Array<double>(counts[2])};
    counts = {};
    for (Long i = 1; i <= n; ++i) {
        const std::size_t sign = signOf(i);
        bySign[sign](++counts[sign]) = ranks(i);
    }
    return bySign;
}

/// Difference, rank and signed rank of each pair. Unlike the ranks, the differences shown are not rounded.
Grid<double> signedRanks(const Array<double>& differences, const Array<double>& ranks,
                         const Grid<double>& data) {
    const Long n = data.rows();
    Grid<double> shown(n, 3);
    for (Long i = 1; i <= n; ++i) {
        shown(i, 1) = data(i, 1) - data(i, 2);
        shown(i, 2) = ranks(i);
        shown(i, 3) = differences(i) < 0 ? -ranks(i) : ranks(i);
    }
    return shown;
}

RankedDifferences rankedRows(const DataTable& table) {
    RankedDifferences rows;
    double tied = 1;
    const auto closeTie = [&] {
        rows.tieSum += tied * tied * tied - tied;
        tied = 1;
    };
    for (Long i = 1; i <= table.rows(); ++i) {
        if (table(i, Rank) == 0) {
            continue;
        }
        rows.n += 1;
        if (table(i, Group) == Zero) {
            rows.zeros += 1;
        }
        if (i > Long(1) && table(i - 1, Rank) == table(i, Rank)) {
            tied += 1;
        } else {
            closeTie();
        }
    }
    closeTie();
    return rows;
}

}  // namespace

void clsNonParaBO::AnalyseWilcoxon() try {
    const Long n = m_Ys.rows();
    const Array<double> differences = pairedDifferences(m_Ys, m_Xs);
    const auto [ranks, tieCounts] = rankPairs(differences, m_IgnoreTies, *m_Utility);
    const RankSums sums =
        sumRanksByGroup(ranks.elements(), [&](Index i) { return signCode(differences(i)); });
    const double T = chooseT(sums, m_Tails);

    GroupDescriptives& groups = m_Descriptives.write(m_Utility);
    copyPairs(m_Ys, m_Xs, groups.data);
    GroupSummary ofRanks = summariseLists(ranksBySign(differences, ranks, n), *m_Utility);
    groups.summaries = {summariseColumns(groups.data, *m_Utility), std::move(ofRanks)};
    groups.ranks = signedRanks(differences, ranks, groups.data);

    const bool oneTailed = m_Tails != tbvNPTwoTailed;
    if (differences.size() <= lastExact) {
        m_P = wilcoxonTDist(ranks.elements(), T, oneTailed);
        m_Statistic = T;
    } else {
        m_UseApprox = true;
        const Long signs = sums.firstCount + sums.secondCount;
        const Long rankedZeros = m_IgnoreTies ? Long(0) : differences.size() - signs;
        const RankedDifferences ranked{toDouble(signs + rankedZeros), toDouble(rankedZeros),
                                       tieSum(tieCounts)};
        m_P = wilcoxonZApprox(ranked, T, oneTailed, m_Statistic, normal());
        m_AlternateStat = m_Statistic;
        m_AlternateP = m_P;
    }
    m_DF = {m_IgnoreTies ? sums.firstCount + sums.secondCount : n};
    m_AlternateDF = m_DF;
} catch (...) {
    passOn("clsNonParaBO.AnalyseWilcoxon");
}

double clsNonParaBO::WilcoxonTDist(const DataTable& table, double T, bool oneTailed) const {
    const std::span<const double> none;
    return wilcoxonTDist(table.rows() == Long(0) ? none : table.column(Rank), T, oneTailed);
}

double clsNonParaBO::WilcoxonZApprox(const DataTable& table, double T, bool oneTailed, double& Z) const {
    return wilcoxonZApprox(rankedRows(table), T, oneTailed, Z, normal());
}

}  // namespace TBVNonPara
