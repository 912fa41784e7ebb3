#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "tbvnonpara/statistics/intervals.hpp"
#include "tbvnonpara/statistics/options.hpp"
#include "tbvnonpara/statistics/probability.hpp"

namespace TBVNonPara::statistics {

/// Do the signs of differences balance?
struct Sign {
    std::size_t n = 0;  ///< pairs or codes
    std::size_t missing = 0;
    std::size_t positive = 0;
    std::size_t zero = 0;
    std::size_t negative = 0;
    /// The binomial distribution of the positive signs among those that are not zero; none without any.
    std::optional<Tails> exact;
    std::optional<NormalApproximation> normal;
    std::optional<Estimate> positiveShare;  ///< with the interval of Clopper and Pearson (1934)
    /// Between two of the differences (Thompson 1936); for pairs alone.
    std::optional<OrderedEstimate> medianDifference;
};

/// Pairs of one length from 1, finite. O(n log n). Throws std::invalid_argument for unequal lengths, no pair,
/// or a value that is not finite, which it names.
[[nodiscard]] Sign sign(std::span<const double> first, std::span<const double> second,
                        const Options& options = {});

/// Codes: above 0 is a positive sign, below 0 a negative one. O(n).
[[nodiscard]] Sign sign(std::span<const double> codes, const Options& options = {});

/// What P is shown: "exact" or "none".
[[nodiscard]] std::string_view methodOf(const Sign& test);

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

}  // namespace TBVNonPara::statistics
