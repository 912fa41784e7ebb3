#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/statistics/groups.hpp"
#include "tbvnonpara/statistics/intervals.hpp"
#include "tbvnonpara/statistics/permutations.hpp"

namespace TBVNonPara::statistics {

/// Mood's median test: do the groups differ in their share above the grand median?
struct Median {
    std::size_t n = 0;
    std::size_t missing = 0;
    double grandMedian = 0;
    std::size_t equal = 0;  ///< values that equal it; they count as not above
    /// All tables with these margins; beyond two groups while there are not too many.
    std::optional<ExactUpper> exact;
    std::optional<ChiSquare> chiSquare;   ///< none where no value lies above
    std::optional<SampledUpper> sampled;  ///< where that is asked for and nothing was counted
    /// sqrt(chi-square / N) with the interval from noncentral chi-square (Smithson 2003).
    std::optional<Estimate> cramerV;
    struct Group {
        std::size_t original = 0;  ///< which of the given samples, from 0
        std::size_t n = 0;
        std::size_t above = 0;
        std::size_t equal = 0;
        Estimate share;  ///< above, with the interval of Clopper and Pearson (1934)
        OrderedEstimate median;
    };
    std::vector<Group> groups;  ///< those with values
    /// Exact, of the two groups' counts about the median of all groups.
    struct Comparison {
        std::size_t first = 0;  ///< in `groups`, from 0
        std::size_t second = 0;
        Probability p;
        Probability adjusted;
    };
    std::vector<Comparison> comparisons;
    std::optional<std::vector<std::string>> letters;
};

/// Throws as kruskalWallis. O(N log N + k^2) and the exact count.
[[nodiscard]] Median median(SampleSpans samples, const Options& options = {},
                            std::optional<std::size_t> control = {});

/// What P is shown: "exact", "chi-square" or "none".
[[nodiscard]] std::string_view methodOf(const Median& test);

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

}  // namespace TBVNonPara::statistics
