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

/// Do two variables rise together?
struct Spearman {
    std::size_t n = 0;         ///< complete pairs
    std::size_t missing = 0;   ///< pairs that were left out
    std::array<Ties, 2> ties;  ///< of each variable
    /// Given the ties, while the count takes no more steps than allowed.
    std::optional<Tails> exact;
    /// AS 89 (Best and Roberts 1975): beyond the exact count, without ties, below 1,290 pairs, while the
    /// smaller tail is 0.0005 or more.
    std::optional<Tails> series;
    std::optional<StudentTails> t;        ///< n - 2 degrees of freedom; none for rho = 1 or -1
    std::optional<SampledTails> sampled;  ///< where that is asked for and nothing was counted
    /// The correlation of the midranks (the report's coefficient differs under ties), with the interval of
    /// Bonett and Wright (2000) from 4 pairs on. None where a variable does not vary.
    std::optional<Estimate> rho;
};

/// The rank correlation of Spearman (1904). first, second: one length from 2, finite. Time O(n log n), memory
/// O(n), besides the exact count that `options` allow. Throws std::invalid_argument for unequal lengths,
/// fewer than two pairs, a value that is not finite, which it names, or a level out of its bounds.
[[nodiscard]] TBVNONPARA_API Spearman spearman(std::span<const double> first, std::span<const double> second,
                                               const Options& options = {});

/// What P is shown: "exact", "series", "t" or "none".
[[nodiscard]] TBVNONPARA_API std::string_view methodOf(const Spearman& test);

/// @cond
template <typename Member>
void visit(const Spearman& test, Member& member) {
    member("data", [&](auto& data) {
        data("n", test.n);
        data("missing", test.missing);
        data("ties", test.ties);
    });
    member("p", [&](auto& p) {
        p("method", methodOf(test));
        p("exact", test.exact);
        p("series", test.series);
        p("t", test.t);
        p("permutations", test.sampled);
    });
    member("effect", [&](auto& effect) { effect("rho", test.rho); });
}
/// @endcond

}  // namespace TBVNonPara::statistics
