#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <numbers>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "tbvnonpara/statistics/friedman.hpp"
#include "tbvnonpara/statistics/kruskal_wallis.hpp"
#include "tbvnonpara/statistics/mann_whitney.hpp"
#include "tbvnonpara/statistics/median.hpp"
#include "tbvnonpara/statistics/sign.hpp"
#include "tbvnonpara/statistics/spearman.hpp"
#include "tbvnonpara/statistics/wilcoxon.hpp"

// How often intervals at 95 % hold the true value: 2,000 samples a case from distributions of which that
// value is known. With an interval that holds 95 % a case lies between 93.5 and 96.5 % in all but 2 of 1,000
// runs. Epsilon squared holds 93 % where groups differ; other seeds may take a case of it below 92.

namespace TBVNonPara::statistics {
namespace {

constexpr double leastCoverage = 0.92;
const Options withoutCounts{.exactSteps = 0};

double phi(double z) {
    return std::erfc(-z / std::numbers::sqrt2) / 2;
}

/// The same numbers with every standard library.
class Random {
 public:
    explicit Random(std::uint64_t seed) : m_Bits(seed) {}

    double uniform() { return (static_cast<double>(m_Bits() >> 12U) + 0.5) / 4503599627370496.0; }
    /// Box and Muller (1958).
    double normal() {
        const double radius = std::sqrt(-2 * std::log(uniform()));
        return radius * std::cos(2 * std::numbers::pi * uniform());
    }
    double exponential() { return -std::log(uniform()); }

    std::vector<double> normals(std::size_t n, double mean) {
        std::vector<double> values(n);
        std::ranges::generate(values, [&] { return mean + normal(); });
        return values;
    }

 private:
    std::mt19937_64 m_Bits;
};

/// An interval, or none; without one nothing is claimed.
struct Ends {
    std::optional<double> low;
    std::optional<double> high;
};

template <typename Estimated>
Ends endsOf(const Estimated& estimate) {
    return {estimate.low, estimate.high};
}

/// An interval and the true value.
struct Claim {
    std::string interval;
    double truth = 0;
};

/// What is drawn, and what is claimed of it: as many pairs of ends as claims.
struct Case {
    std::string data;
    std::vector<Claim> claims;
    std::function<std::vector<Ends>(Random&)> draw;
};

std::string figure(double value) {
    std::string text = std::to_string(value);
    text.resize(text.find('.') + 3);
    return text;
}

void twoSampleCases(std::vector<Case>& cases) {
    for (const auto& [n1, n2] : {std::pair(5, 5), std::pair(8, 20), std::pair(30, 30)}) {
        for (const double shift : {0.0, 1.0}) {
            const auto draw = [n1 = n1, n2 = n2, shift](Random& random) -> std::vector<Ends> {
                const std::vector<double> x = random.normals(static_cast<std::size_t>(n1), shift);
                const std::vector<double> y = random.normals(static_cast<std::size_t>(n2), 0);
                const MannWhitney test = mannWhitney(x, y, withoutCounts);
                return {endsOf(test.superiority), endsOf(test.shift)};
            };
            cases.push_back({std::to_string(n1) + " and " + std::to_string(n2) + ", shift " + figure(shift),
                             {{"share of pairs", phi(shift / std::numbers::sqrt2)}, {"shift", shift}},
                             draw});
        }
    }
}

void pairCases(std::vector<Case>& cases) {
    for (const std::size_t n : {8U, 15U, 40U}) {
        for (const double mean : {0.0, 0.7}) {
            const auto draw = [=](Random& random) -> std::vector<Ends> {
                const Wilcoxon test =
                    wilcoxon(random.normals(n, mean), std::vector<double>(n), withoutCounts);
                return {endsOf(*test.rankBiserial), endsOf(test.pseudomedian)};
            };
            const auto size = static_cast<double>(n);
            // The expected share of the positive ranks: single differences and sums of two.
            const double positive =
                (phi(mean) + (size - 1) / 2 * phi(mean * std::numbers::sqrt2)) / ((size + 1) / 2);
            cases.push_back(
                {std::to_string(n) + " normal differences, mean " + figure(mean),
                 {{"matched rank-biserial r", 2 * positive - 1}, {"difference (pseudomedian)", mean}},
                 draw});
        }
    }
}

/// A skewed distribution, which only signs and order do not mind.
void signCases(std::vector<Case>& cases) {
    for (const std::size_t n : {8U, 15U, 40U}) {
        for (const double median : {0.0, 0.4}) {
            const auto draw = [=](Random& random) -> std::vector<Ends> {
                std::vector<double> differences(n);
                std::ranges::generate(differences,
                                      [&] { return median + random.exponential() - std::numbers::ln2; });
                const Sign test = sign(differences, std::vector<double>(n), withoutCounts);
                return {endsOf(*test.positiveShare), endsOf(*test.medianDifference)};
            };
            cases.push_back(
                {std::to_string(n) + " exponential differences, median " + figure(median),
                 {{"share positive", std::exp(median - std::numbers::ln2)}, {"median difference", median}},
                 draw});
        }
    }
}

void correlationCases(std::vector<Case>& cases) {
    for (const std::size_t n : {10U, 25U, 80U}) {
        for (const double r : {0.0, 0.6}) {
            const auto draw = [=](Random& random) -> std::vector<Ends> {
                const std::vector<double> x = random.normals(n, 0);
                std::vector<double> y = random.normals(n, 0);
                std::ranges::transform(x, y, y.begin(),
                                       [r](double a, double b) { return r * a + std::sqrt(1 - r * r) * b; });
                return {endsOf(spearman(x, y, withoutCounts).rho.value())};
            };
            cases.push_back({std::to_string(n) + " normal pairs, correlation " + figure(r),
                             {{"Spearman's rho", 6 / std::numbers::pi * std::asin(r / 2)}},
                             draw});
        }
    }
}

using Lists = std::vector<std::vector<double>>;

Lists shifted(Random& random, std::size_t groups, std::size_t n, double step) {
    Lists lists;
    for (std::size_t g = 0; g < groups; ++g) {
        lists.push_back(random.normals(n, step * static_cast<double>(g)));
    }
    return lists;
}

/// P that a value of one group exceeds one of another, the groups being `step` apart.
double exceeds(double step, std::size_t group, std::size_t other) {
    return phi(step * (static_cast<double>(group) - static_cast<double>(other)) / std::numbers::sqrt2);
}

/// 12 times the mean square by which a group's mean share of smaller values lies off 1/2.
double trueEpsilonSquared(std::size_t groups, double step) {
    double sum = 0;
    for (std::size_t g = 0; g < groups; ++g) {
        double share = 0;
        for (std::size_t h = 0; h < groups; ++h) {
            share += exceeds(step, g, h) / static_cast<double>(groups);
        }
        sum += (share - 0.5) * (share - 0.5) / static_cast<double>(groups);
    }
    return 12 * sum;
}

/// The variance of the expected ranks over that of full agreement.
double trueW(std::size_t treatments, double step) {
    const auto k = static_cast<double>(treatments);
    double sum = 0;
    for (std::size_t t = 0; t < treatments; ++t) {
        double rank = 0.5;
        for (std::size_t h = 0; h < treatments; ++h) {
            rank += exceeds(step, t, h);
        }
        sum += (rank - (k + 1) / 2) * (rank - (k + 1) / 2);
    }
    return 12 * sum / (k * (k * k - 1));
}

void groupCases(std::vector<Case>& cases) {
    for (const std::size_t k : {3U, 5U}) {
        for (const std::size_t n : {8U, 15U, 30U}) {
            for (const double step : {0.0, 0.6}) {
                const auto draw = [=](Random& random) -> std::vector<Ends> {
                    const Lists drawn = shifted(random, k, n, step);
                    const std::vector<std::span<const double>> spans(drawn.begin(), drawn.end());
                    const KruskalWallis test = kruskalWallis(spans, withoutCounts);
                    return {endsOf(*test.epsilonSquared), endsOf(test.groups[1].median),
                            endsOf(*friedman(spans, withoutCounts).kendallW)};
                };
                cases.push_back({std::to_string(k) + " x " + std::to_string(n) + " normal values, steps of " +
                                     figure(step),
                                 {{"epsilon squared", trueEpsilonSquared(k, step)},
                                  {"median of a group", step},
                                  {"Kendall's W", trueW(k, step)}},
                                 draw});
            }
        }
    }
}

/// From the shares above the median of all: between groups that are equally large.
double trueV(std::size_t groups, double step) {
    const double grand = step * static_cast<double>(groups - 1) / 2;
    double sum = 0;
    for (std::size_t g = 0; g < groups; ++g) {
        const double above = phi(step * static_cast<double>(g) - grand);
        sum += 4 * (above - 0.5) * (above - 0.5) / static_cast<double>(groups);
    }
    return std::sqrt(sum);
}

void medianCases(std::vector<Case>& cases) {
    for (const std::size_t n : {10U, 20U, 40U}) {
        for (const double step : {0.0, 0.6}) {
            const auto draw = [=](Random& random) -> std::vector<Ends> {
                const Lists drawn = shifted(random, 3, n, step);
                const std::vector<std::span<const double>> spans(drawn.begin(), drawn.end());
                return {endsOf(*median(spans, withoutCounts).cramerV)};
            };
            cases.push_back({"3 x " + std::to_string(n) + " normal values, steps of " + figure(step),
                             {{"Cramer's V of the counts", trueV(3, step)}},
                             draw});
        }
    }
}

std::vector<Case> allCases() {
    std::vector<Case> cases;
    twoSampleCases(cases);
    pairCases(cases);
    signCases(cases);
    correlationCases(cases);
    groupCases(cases);
    medianCases(cases);
    return cases;
}

/// How many samples had an interval, and how many of these intervals held the true value.
struct Held {
    int intervals = 0;
    int held = 0;
    [[nodiscard]] double coverage() const { return static_cast<double>(held) / intervals; }
};

std::vector<Held> simulate(const Case& simulated, int samples, std::uint64_t seed) {
    Random random(seed);
    std::vector<Held> held(simulated.claims.size());
    constexpr double rounding = 1e-12;
    for (int sample = 0; sample < samples; ++sample) {
        const std::vector<Ends> ends = simulated.draw(random);
        for (std::size_t claim = 0; claim < ends.size(); ++claim) {
            const double truth = simulated.claims[claim].truth;
            if (ends[claim].low) {
                held[claim].intervals += 1;
                held[claim].held +=
                    *ends[claim].low <= truth + rounding && *ends[claim].high >= truth - rounding ? 1 : 0;
            }
        }
    }
    return held;
}

/// With TBVNONPARA_COVERAGE=FILE the rows of the table in docs/accuracy.md are written there, from ten times
/// as many samples.
TEST(Intervals, HoldTheirLevel) {
    const char* const file = std::getenv("TBVNONPARA_COVERAGE");
    const int samples = file == nullptr ? 2000 : 20000;
    std::multimap<std::string, std::string> rows;
    const std::vector<Case> cases = allCases();
    for (std::size_t number = 0; number < cases.size(); ++number) {
        const std::vector<Held> held = simulate(cases[number], samples, number + 101);
        for (std::size_t claim = 0; claim < held.size(); ++claim) {
            const Claim& claimed = cases[number].claims[claim];
            const std::string row = "| " + claimed.interval + " | " + cases[number].data + " | " +
                                    figure(claimed.truth) + " | " +
                                    std::to_string(held[claim].coverage()).substr(0, 5) + " |\n";
            EXPECT_GT(held[claim].intervals, samples / 2) << row;
            EXPECT_GE(held[claim].coverage(), leastCoverage) << row;
            rows.emplace(claimed.interval, row);
        }
    }
    if (file != nullptr) {
        std::ofstream table(file);
        for (const auto& [interval, row] : rows) {
            table << row;
        }
    }
}

}  // namespace
}  // namespace TBVNonPara::statistics
