#include "tbvnonpara/statistics/sign.hpp"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <vector>

#include "tbvnonpara/ordering/ascending_order.hpp"
#include "tbvnonpara/statistics/differences.hpp"
#include "tbvnonpara/statistics/sample.hpp"

namespace TBVNonPara::statistics {

namespace {

void countSign(Sign& test, bool isPositive, bool isNegative) {
    test.n += 1;
    test.positive += isPositive ? 1 : 0;
    test.negative += isNegative ? 1 : 0;
    test.zero += isPositive || isNegative ? 0 : 1;
}

/// What follows from the counts.
void judgeSigns(Sign& test, const Options& options) {
    const std::size_t signs = test.positive + test.negative;
    if (signs == 0) {
        return;
    }
    const auto k = static_cast<double>(test.positive);
    const auto m = static_cast<double>(signs);
    const Probability greater = fairCoinsAtLeast(k, m);
    const Probability less = fairCoinsAtLeast(m - k, m);
    const Probability& smaller = greater.value < less.value ? greater : less;
    const double extreme = std::max(k, m - k);
    const double point = smaller.value - (extreme < m ? fairCoinsAtLeast(extreme + 1, m).value : 0);
    test.exact = Tails{{std::min(2 * smaller.value, 1.0), std::min(smaller.log10 + std::log10(2.0), 0.0)},
                       greater,
                       less,
                       point};
    test.normal = normalApproximation(k - m / 2, std::sqrt(m) / 2, 1);
    test.positiveShare = share(test.positive, signs, options.confidence);
}

}  // namespace

Sign sign(std::span<const double> first, std::span<const double> second, const Options& options) {
    checkOptions(options);
    const Pairs pairs = pairsOf(first, second, options);
    if (pairs.first.empty()) {
        throw std::invalid_argument("There are no pairs of values.");
    }
    Sign test;
    test.missing = pairs.missing;
    for (std::size_t i = 0; i < pairs.first.size(); ++i) {
        countSign(test, pairs.first[i] > pairs.second[i], pairs.first[i] < pairs.second[i]);
    }
    judgeSigns(test, options);
    std::vector<double> differences = cleanedDifferences(pairs.first, pairs.second);
    sortAscending(differences);
    test.medianDifference = medianOf(differences, options.confidence);
    return test;
}

Sign sign(std::span<const double> codes, const Options& options) {
    checkOptions(options);
    const Sample sample = sampleOf(codes, "the signs", options);
    if (sample.values.empty()) {
        throw std::invalid_argument("There are no signs.");
    }
    Sign test;
    test.missing = sample.missing;
    for (const double code : sample.values) {
        countSign(test, code > 0, code < 0);
    }
    judgeSigns(test, options);
    return test;
}

std::string_view methodOf(const Sign& test) {
    return test.exact ? "exact" : "none";
}

}  // namespace TBVNonPara::statistics
