#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/statistics/groups.hpp"
#include "tbvnonpara/statistics/intervals.hpp"
#include "tbvnonpara/statistics/mann_whitney.hpp"
#include "tbvnonpara/statistics/permutations.hpp"
#include "tbvnonpara/statistics/trend.hpp"

namespace TBVNonPara::statistics {

/// Several treatments of the same blocks: do the blocks agree on an order of them?
struct Friedman {
    std::size_t blocks = 0;      ///< complete ones
    std::size_t treatments = 0;  ///< k
    std::size_t missing = 0;     ///< blocks that were left out
    /// Equal values within blocks; t is the size of a group of them.
    struct BlockTies {
        std::size_t blocks = 0;  ///< that hold ties
        double sum = 0;          ///< of t^3 - t
        double factor = 1;       ///< 1 - sum / (b (k^3 - k))
    };
    BlockTies ties;  ///< of all blocks
    /// All orders of the ranks within their blocks, while the count takes no more steps than allowed.
    std::optional<ExactUpper> exact;
    std::optional<ChiSquare> chiSquare;   ///< corrected for ties; none where all blocks are tied throughout
    std::optional<SampledUpper> sampled;  ///< where that is asked for and nothing was counted
    std::optional<FRatio> f;  ///< from the corrected W (Conover 1999; the report's is uncorrected)
    /// Agreement from 0 to 1; the interval is the hull of that from noncentral F and of the block jackknife
    /// on logit W. None of it for W = 1 or two blocks.
    std::optional<Estimate> kendallW;
    /// One treatment.
    struct Group {
        std::size_t n = 0;       ///< values, as many as blocks
        OrderedEstimate median;  ///< in the unit of the data (Thompson 1936)
        double meanRank = 0;     ///< over the blocks, 1 to k
    };
    std::vector<Group> groups;  ///< the treatments as they were given
    /// z of the mean ranks, two-tailed; positive where the first ranks higher.
    struct Comparison {
        std::size_t first = 0;   ///< from 0
        std::size_t second = 0;  ///< from 0
        double z = 0;            ///< standard normal value
        PairCounts blocks;       ///< in which the first is larger, equal, smaller
        Probability p;           ///< two-tailed
        Probability adjusted;    ///< for all comparisons, by Options::adjustment
    };
    std::vector<Comparison> comparisons;  ///< all pairs, or those with the control
    std::optional<Trend> trend;           ///< where that is asked for
    /// A text a treatment: those that share a letter do not differ (Piepho 2004); none with a control.
    std::optional<std::vector<std::string>> letters;
};

/// `samples`: one span a treatment, all of one length from 2 (blocks), at least two treatments. With
/// Missing::Omit a block that lacks a value is left out whole. `control`: compare with this treatment alone,
/// from 0. Throws std::invalid_argument for fewer treatments or blocks, unequal lengths, a value that is not
/// finite (it names treatment and position), a control that is no treatment, a level out of its bounds. Time
/// O(b k log k + k^2 b), memory O(b k + k^2), besides the exact count. The test of Friedman (1937).
[[nodiscard]] TBVNONPARA_API Friedman friedman(SampleSpans samples, const Options& options = {},
                                               std::optional<std::size_t> control = {});

/// What P is shown: "exact", "chi-square" or "none".
[[nodiscard]] TBVNONPARA_API std::string_view methodOf(const Friedman& test);

/// @cond
template <typename Member>
void visit(const Friedman::BlockTies& ties, Member& member) {
    member("blocks", ties.blocks);
    member("sum", ties.sum);
    member("factor", ties.factor);
}

template <typename Member>
void visit(const Friedman::Group& group, Member& member) {
    member("n", group.n);
    member("median", group.median);
    member("meanRank", group.meanRank);
}

template <typename Member>
void visit(const Friedman::Comparison& comparison, Member& member) {
    member("first", comparison.first + 1);
    member("second", comparison.second + 1);
    member("z", comparison.z);
    member("blocks", comparison.blocks);
    member("p", comparison.p);
    member("adjusted", comparison.adjusted);
}

template <typename Member>
void visit(const Friedman& test, Member& member) {
    member("data", [&](auto& data) {
        data("blocks", test.blocks);
        data("treatments", test.treatments);
        data("missing", test.missing);
        data("ties", test.ties);
    });
    member("p", [&](auto& p) {
        p("method", methodOf(test));
        p("exact", test.exact);
        p("chiSquare", test.chiSquare);
        p("f", test.f);
        p("permutations", test.sampled);
    });
    member("effect", [&](auto& effect) { effect("kendallW", test.kendallW); });
    member("groups", test.groups);
    member("comparisons", test.comparisons);
    member("letters", test.letters);
    member("trend", test.trend);
}
/// @endcond

}  // namespace TBVNonPara::statistics
