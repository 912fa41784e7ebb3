#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/statistics/intervals.hpp"
#include "tbvnonpara/statistics/options.hpp"
#include "tbvnonpara/statistics/probability.hpp"

namespace TBVNonPara::statistics {

/// Do the signs of differences balance?
struct Sign {
    std::size_t n = 0;         ///< pairs or codes
    std::size_t missing = 0;   ///< pairs or codes that were left out
    std::size_t positive = 0;  ///< differences above 0
    std::size_t zero = 0;      ///< differences of 0
    std::size_t negative = 0;  ///< differences below 0
    /// The binomial distribution of the positive signs among those that are not zero; none without any.
    std::optional<Tails> exact;
    std::optional<NormalApproximation> normal;  ///< of the same; none without any
    std::optional<Estimate> positiveShare;      ///< with the interval of Clopper and Pearson (1934)
    /// Between two of the differences, in the unit of the data (Thompson 1936); for pairs alone.
    std::optional<OrderedEstimate> medianDifference;
};

/// Pairs of one length from 1, finite. Time O(n log n), memory O(n). The test of Arbuthnott (1710). Throws
/// std::invalid_argument for unequal lengths, no pair, a value that is not finite, which it names, or a level
/// out of its bounds.
[[nodiscard]] TBVNONPARA_API Sign sign(std::span<const double> first, std::span<const double> second,
                                       const Options& options = {});

/// Codes: above 0 is a positive sign, below 0 a negative one; the rest as for pairs. O(n).
[[nodiscard]] TBVNONPARA_API Sign sign(std::span<const double> codes, const Options& options = {});

/// What P is shown: "exact" or "none".
[[nodiscard]] TBVNONPARA_API std::string_view methodOf(const Sign& test);

/// @cond
template <typename Member>
void visit(const Sign& test, Member& member) {
    member("data", [&](auto& data) {
        data("n", test.n);
        data("missing", test.missing);
        data("positive", test.positive);
        data("zero", test.zero);
        data("negative", test.negative);
    });
    member("p", [&](auto& p) {
        p("method", methodOf(test));
        p("exact", test.exact);
        p("normal", test.normal);
    });
    member("effect", [&](auto& effect) {
        effect("positiveShare", test.positiveShare);
        effect("medianDifference", test.medianDifference);
    });
}
/// @endcond

}  // namespace TBVNonPara::statistics
