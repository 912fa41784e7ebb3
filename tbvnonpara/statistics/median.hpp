#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/statistics/groups.hpp"
#include "tbvnonpara/statistics/intervals.hpp"
#include "tbvnonpara/statistics/permutations.hpp"

namespace TBVNonPara::statistics {

/// Mood's median test: do the groups differ in their share above the grand median?
struct Median {
    std::size_t n = 0;        ///< values of all groups, N
    std::size_t missing = 0;  ///< values that were left out
    double grandMedian = 0;   ///< of all values, in their unit
    std::size_t equal = 0;    ///< values that equal it; they count as not above
    /// All tables with these margins; beyond two groups while there are not too many.
    std::optional<ExactUpper> exact;
    std::optional<ChiSquare> chiSquare;   ///< none where no value lies above
    std::optional<SampledUpper> sampled;  ///< where that is asked for and nothing was counted
    /// sqrt(chi-square / N) with the interval from noncentral chi-square (Smithson 2003).
    std::optional<Estimate> cramerV;
    /// One group.
    struct Group {
        std::size_t original = 0;  ///< which of the given samples, from 0
        std::size_t n = 0;         ///< values
        std::size_t above = 0;     ///< above the grand median
        std::size_t equal = 0;     ///< equal to it
        Estimate share;            ///< above, with the interval of Clopper and Pearson (1934)
        OrderedEstimate median;    ///< the group's own, in the unit of the data (Thompson 1936)
    };
    std::vector<Group> groups;  ///< those with values
    /// Exact, of the two groups' counts about the median of all groups.
    struct Comparison {
        std::size_t first = 0;   ///< in `groups`, from 0
        std::size_t second = 0;  ///< in `groups`, from 0
        Probability p;           ///< of tables as unlikely or more
        Probability adjusted;    ///< for all comparisons, by Options::adjustment
    };
    std::vector<Comparison> comparisons;  ///< all pairs, or those with the control
    /// A text a group: those that share a letter do not differ (Piepho 2004); none with a control.
    std::optional<std::vector<std::string>> letters;
};

/// The test of Mood (1950). Samples, control and what is thrown: as for kruskalWallis(). Time O(N log N +
/// k^2), memory O(N + k^2), besides the exact count.
[[nodiscard]] TBVNONPARA_API Median median(SampleSpans samples, const Options& options = {},
                                           std::optional<std::size_t> control = {});

/// What P is shown: "exact", "chi-square" or "none".
[[nodiscard]] TBVNONPARA_API std::string_view methodOf(const Median& test);

/// @cond
template <typename Member>
void visit(const Median::Group& group, Member& member) {
    member("n", group.n);
    member("above", group.above);
    member("equal", group.equal);
    member("share", group.share);
    member("median", group.median);
}

template <typename Member>
void visit(const Median::Comparison& comparison, Member& member) {
    member("first", comparison.first + 1);
    member("second", comparison.second + 1);
    member("p", comparison.p);
    member("adjusted", comparison.adjusted);
}

template <typename Member>
void visit(const Median& test, Member& member) {
    member("data", [&](auto& data) {
        data("n", test.n);
        data("missing", test.missing);
        data("grandMedian", test.grandMedian);
        data("equal", test.equal);
    });
    member("p", [&](auto& p) {
        p("method", methodOf(test));
        p("exact", test.exact);
        p("chiSquare", test.chiSquare);
        p("permutations", test.sampled);
    });
    member("effect", [&](auto& effect) { effect("cramerV", test.cramerV); });
    member("groups", test.groups);
    member("comparisons", test.comparisons);
    member("letters", test.letters);
}
/// @endcond

}  // namespace TBVNonPara::statistics
