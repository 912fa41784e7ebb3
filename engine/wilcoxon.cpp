#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "engine/clsNonParaBO.hpp"
#include "engine/distributions.hpp"
#include "engine/paired_differences.hpp"
#include "engine/ranking.hpp"

namespace TBVNonPara {

namespace {

constexpr Long lastExact = 50;

/// The ranks of the differences in entry order, 0 for one that is left out, and what the approximation needs.
struct RankedPairs {
    Array<double> ranks;
    RankedDifferences differences;
};

RankedPairs rankPairs(const Array<double>& differences, bool ignoreZeros, const ArrayUtility& utility) {
    Array<double> sizes = differences;
    std::ranges::transform(sizes.elements(), sizes.elements().begin(), [](double d) { return std::abs(d); });
    AscendingOrder order = utility.OrderOf(sizes.elements());
    const auto zeros = static_cast<double>(std::ranges::count(sizes.elements(), 0.0));
    const double leftOut = ignoreZeros ? zeros : 0;
    if (leftOut > 1) {
        order.ties.erase(order.ties.begin());  // the zeros, the smallest of all, are no tie when left out
    }
    RankedPairs ranked{std::move(sizes),
                       {toDouble(differences.size()) - leftOut, zeros - leftOut, tieSum(order.ties)}};
    const std::span<double> ranks = ranked.ranks.elements();
    visitRanks(order,
               [&](std::uint32_t position, double rank) { ranks[position] = std::max(rank - leftOut, 0.0); });
    return ranked;
}

struct RankSums {
    double positive = 0;
    double negative = 0;
    Long signs;
};

RankSums sumRanksBySign(const Array<double>& differences, const Array<double>& ranks) {
    RankSums sums;
    for (Long k = 1; k <= differences.size(); ++k) {
        sums.positive += differences(k) > 0 ? ranks(k) : 0;
        sums.negative += differences(k) < 0 ? ranks(k) : 0;
        sums.signs += differences(k) != 0 ? 1 : 0;
    }
    return sums;
}

/// The rank sum whose small values speak for the alternative.
double chooseT(const RankSums& T, TBVNPTails tails) noexcept {
    switch (tails) {
        case tbvNPVar1GTVar2:
            return T.negative;
        case tbvNPVar1LTVar2:
            return T.positive;
        default:
            return std::min(T.positive, T.negative);
    }
}

void copyPairs(const ValueGrid& first, const ValueGrid& second, Grid<double>& data) {
    const Long n = first.rows();
    data = Grid<double>(n, 2);
    for (Long i = 1; i <= n; ++i) {
        data(i, 1) = toDouble(first(i, 1));
        data(i, 2) = toDouble(second(i, 1));
    }
}

/// The ranks of the positive, the negative and the zero differences of n pairs.
std::array<Array<double>, 3> ranksBySign(const Array<double>& differences, const Array<double>& ranks,
                                         Long n) {
    const auto signOf = [](double d) -> std::size_t { return d > 0 ? 0 : d < 0 ? 1 : 2; };
    std::array<Long, 3> counts;
    // A pair with a blank makes the lists shorter than n, and reading them fails: pairs must be complete.
    for (Long i = 1; i <= n; ++i) {
        ++counts[signOf(differences(i))];
    }
    std::array<Array<double>, 3> bySign{Array<double>(counts[0]), Array<double>(counts[1]),
                                        Array<double>(counts[2])};
    counts = {};
    for (Long i = 1; i <= n; ++i) {
        const std::size_t sign = signOf(differences(i));
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

}  // namespace

void clsNonParaBO::AnalyseWilcoxon() try {
    const Long n = m_Ys.rows();
    const Array<double> differences = PairedDifferences(m_Ys, m_Xs);
    const auto [ranks, ranked] = rankPairs(differences, m_IgnoreTies, *m_Utility);
    const RankSums sums = sumRanksBySign(differences, ranks);
    const double T = chooseT(sums, m_Tails);

    copyPairs(m_Ys, m_Xs, m_Data);
    const auto bySign = ranksBySign(differences, ranks, n);
    store({SummariseColumns(m_Data, *m_Utility), SummariseLists(bySign, *m_Utility)});
    m_Ranks = signedRanks(differences, ranks, m_Data);

    const bool oneTailed = m_Tails != tbvNPTwoTailed;
    if (differences.size() <= lastExact) {
        m_P = TBVNonPara::WilcoxonTDist(ranks.elements(), T, oneTailed);
        m_Statistic = T;
    } else {
        m_UseApprox = true;
        m_P = TBVNonPara::WilcoxonZApprox(ranked, T, oneTailed, m_Statistic, m_Companions.application);
        m_AlternateStat = m_Statistic;
        m_AlternateP = m_P;
    }
    m_DF = {m_IgnoreTies ? sums.signs : n};
    m_AlternateDF = m_DF;
} catch (...) {
    passOn("clsNonParaBO.AnalyseWilcoxon");
}

}  // namespace TBVNonPara
