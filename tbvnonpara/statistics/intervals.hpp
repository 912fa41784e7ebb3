#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <optional>
#include <span>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara::statistics {

/// An estimate with its interval, where there is one; its member says in which unit.
struct Estimate {
    double value = 0;            ///< the estimate
    std::optional<double> low;   ///< lower end at Options::confidence
    std::optional<double> high;  ///< upper end; there are both or none
};

/// An estimate whose interval ends at observations: `attained` is the level that it has in truth, `best` the
/// highest that these data allow (where that falls short of the level asked for, there is no interval).
struct OrderedEstimate {
    double value = 0;                ///< the estimate, in the unit of the data
    std::optional<double> low;       ///< lower end
    std::optional<double> high;      ///< upper end; there are both or none
    std::optional<double> attained;  ///< level that the interval has
    double best = 0;                 ///< highest level that an interval of these data can have
};

/// @cond
/// A share of successes with the interval of Clopper and Pearson (1934). `trials` is not 0.
[[nodiscard]] TBVNONPARA_API Estimate share(std::size_t successes, std::size_t trials, double confidence);

/// The median of values that ascend with the interval between two of them (Thompson 1936). Not empty.
[[nodiscard]] TBVNONPARA_API OrderedEstimate medianOf(std::span<const double> ascending, double confidence);

/// How far from either end of ordered values an interval ends (0: there is none), with the levels of
/// OrderedEstimate.
struct Depth {
    std::uint64_t k = 0;
    double attained = 0;
    double best = 0;
};

/// The depth in a symmetric distribution by its standard normal approximation.
[[nodiscard]] TBVNONPARA_API Depth normalDepth(double mean, double deviation, double confidence);

/// The median of `count` ordered values and the interval of this depth; `at` gives the values at places from
/// 0 on, all at once: a span of std::uint64_t in, a range of doubles out.
template <typename At>
[[nodiscard]] OrderedEstimate medianAmong(std::uint64_t count, const Depth& depth, At at) {
    std::array<std::uint64_t, 4> places = {(count - 1) / 2, count / 2};
    if (depth.k > 0) {
        places[2] = depth.k - 1;
        places[3] = count - depth.k;
    }
    const auto values = at(std::span<const std::uint64_t>(places).first(depth.k > 0 ? 4 : 2));
    const auto value = [&](std::size_t i) { return values[i] + 0.0; };  // 0, not -0
    OrderedEstimate median{std::midpoint(value(0), value(1)), {}, {}, {}, depth.best};
    if (depth.k > 0) {
        median.low = value(2);
        median.high = value(3);
        median.attained = depth.attained;
    }
    return median;
}

/// The number k of values to count from either end for such an interval, 0 for none: the largest for which k
/// - 1 or fewer of n fair coins has a probability of at most half of what the level leaves.
[[nodiscard]] TBVNONPARA_API std::size_t coinsFromTheEnd(std::size_t n, double confidence);

/// Probability that at most k of n fair coins fall one way.
[[nodiscard]] TBVNONPARA_API double fairCoinsAtMost(std::size_t k, std::size_t n);

template <typename Member>
void visit(const Estimate& estimate, Member& member) {
    member("value", estimate.value);
    member("low", estimate.low);
    member("high", estimate.high);
}

template <typename Member>
void visit(const OrderedEstimate& estimate, Member& member) {
    member("value", estimate.value);
    member("low", estimate.low);
    member("high", estimate.high);
    member("attained", estimate.attained);
    member("best", estimate.best);
}
/// @endcond

}  // namespace TBVNonPara::statistics
