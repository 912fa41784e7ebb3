#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/statistics/intervals.hpp"
#include "tbvnonpara/statistics/midranks.hpp"
#include "tbvnonpara/statistics/options.hpp"
#include "tbvnonpara/statistics/permutations.hpp"
#include "tbvnonpara/statistics/probability.hpp"

namespace TBVNonPara::statistics {

/// The sums of the ranks of positive and of negative differences with what they say.
struct SignedRanks {
    double plus = 0;             ///< T+
    double minus = 0;            ///< T-
    std::optional<Tails> exact;  ///< given the ties, while the count takes no more steps than allowed
    std::optional<NormalApproximation> normal;  ///< none where no difference is left
    std::optional<SampledTails> sampled;        ///< where that is asked for and nothing was counted
};

/// Paired values: does one of the two tend to be larger, and by how much.
struct Wilcoxon {
    std::size_t n = 0;         ///< pairs
    std::size_t missing = 0;   ///< pairs that were left out
    std::size_t positive = 0;  ///< differences first - second above 0
    std::size_t zero = 0;      ///< differences of 0
    std::size_t negative = 0;  ///< differences below 0
    Ties ties;                 ///< among the differences that are not zero, without regard to their signs
    /// Zeros dropped before the ranking (Wilcoxon 1945).
    SignedRanks zerosLeftOut;
    /// Zeros ranked and then dropped (Pratt 1959); none without zeros.
    std::optional<SignedRanks> pratt;
    /// (T+ - T-)/(T+ + T-) (Kerby 2014); the interval inverts the score test in the form of Wilson (1927).
    /// None where all differences are zero.
    std::optional<Estimate> rankBiserial;
    /// Median of the n (n + 1)/2 Walsh averages of all differences, in the unit of the data (Hodges and
    /// Lehmann 1963).
    OrderedEstimate pseudomedian;
    /// One variable.
    struct Group {
        std::size_t n = 0;       ///< pairs
        OrderedEstimate median;  ///< in the unit of the data (Thompson 1936)
    };
    std::array<Group, 2> groups;  ///< first and second
};

/// The test of Wilcoxon (1945). first, second: one length from 1, finite. Time O(n log n), memory O(n),
/// besides the exact count that `options` allow. Throws std::invalid_argument for unequal lengths, no pair, a
/// value that is not finite, which it names, or a level out of its bounds.
[[nodiscard]] TBVNONPARA_API Wilcoxon wilcoxon(std::span<const double> first, std::span<const double> second,
                                               const Options& options = {});

/// What P is shown: "exact", "normal" or "none".
[[nodiscard]] TBVNONPARA_API std::string_view methodOf(const Wilcoxon& test);

/// @cond
template <typename Member>
void visit(const SignedRanks& sums, Member& member) {
    member("plus", sums.plus);
    member("minus", sums.minus);
    member("exact", sums.exact);
    member("normal", sums.normal);
    member("permutations", sums.sampled);
}

template <typename Member>
void visit(const Wilcoxon::Group& group, Member& member) {
    member("n", group.n);
    member("median", group.median);
}

template <typename Member>
void visit(const Wilcoxon& test, Member& member) {
    member("data", [&](auto& data) {
        data("n", test.n);
        data("missing", test.missing);
        data("positive", test.positive);
        data("zero", test.zero);
        data("negative", test.negative);
        data("ties", test.ties);
    });
    member("p", [&](auto& p) {
        p("method", methodOf(test));
        p("zerosLeftOut", test.zerosLeftOut);
        p("pratt", test.pratt);
    });
    member("effect", [&](auto& effect) {
        effect("rankBiserial", test.rankBiserial);
        effect("pseudomedian", test.pseudomedian);
    });
    member("groups", test.groups);
}
/// @endcond

}  // namespace TBVNonPara::statistics
