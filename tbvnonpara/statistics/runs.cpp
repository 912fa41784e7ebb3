#include "tbvnonpara/statistics/runs.hpp"

#include <cmath>
#include <numeric>
#include <stdexcept>
#include <unordered_map>

#include "tbvnonpara/distributions/runs.hpp"
#include "tbvnonpara/statistics/sample.hpp"

namespace TBVNonPara::statistics {

namespace {

/// Power sums of the categories' sizes, which mean and variance are made of.
double sumOfPowers(std::span<const std::size_t> counts, int power) {
    return std::transform_reduce(counts.begin(), counts.end(), 0.0, std::plus<>(),
                                 [power](std::size_t n) { return std::pow(static_cast<double>(n), power); });
}

/// Mood (1940) for any number of categories.
double varianceOfRuns(double N, double squares, double cubes) {
    return N > 1 ? (squares * (squares + N * (N + 1)) - 2 * N * cubes - N * N * N) / (N * N * (N - 1)) : 0;
}

}  // namespace

Runs runs(std::span<const std::size_t> categories, const Options& options) {
    checkOptions(options);
    const WatchedCounts watched(options.watch);
    if (categories.empty()) {
        throw std::invalid_argument("The sequence is empty.");
    }
    Runs test;
    test.n = categories.size();
    test.runs = 1;
    for (std::size_t i = 0; i < categories.size(); ++i) {
        if (categories[i] > test.counts.size()) {
            throw std::invalid_argument("Categories are numbered from 0 in order of first appearance; cell " +
                                        std::to_string(i + 1) + " is of category " +
                                        std::to_string(categories[i]) + " after " +
                                        std::to_string(test.counts.size()) + " others.");
        }
        test.counts.resize(std::max(test.counts.size(), categories[i] + 1));
        test.counts[categories[i]] += 1;
        test.runs += i > 0 && categories[i] != categories[i - 1] ? 1 : 0;
    }
    const auto N = static_cast<double>(test.n);
    const double squares = sumOfPowers(test.counts, 2);
    test.expected = (N * (N + 1) - squares) / N;
    test.variance = varianceOfRuns(N, squares, sumOfPowers(test.counts, 3));
    if (options.exactSteps > 0) {
        if (const auto counted = runsTails(test.counts, test.runs, options.exactSteps)) {
            test.exact = Runs::Exact{{counted->two, counted->log10Two},
                                     {counted->fewer, counted->log10Fewer},
                                     {counted->more, counted->log10More},
                                     counted->point};
        }
    }
    const auto observed = static_cast<double>(test.runs);
    if (test.counts.size() > 1) {
        if (const auto normal = normalApproximation(observed - test.expected, std::sqrt(test.variance), 1)) {
            test.normal = Runs::Normal{*normal};
        }
    }
    if (test.normal && !test.exact) {
        if (const auto sampled = sampledRuns(categories, test.runs, test.expected, options)) {
            test.sampled = Runs::Sampled{*sampled};
        }
    }
    if (test.n > 1) {
        test.equalNeighbours = Runs::EqualNeighbours{(N - observed) / (N - 1), (squares - N) / (N * (N - 1))};
    }
    return test;
}

Runs runs(std::span<const double> values, const Options& options) {
    const Sample sample = sampleOf(values, "the sequence", options);
    std::unordered_map<double, std::size_t> known;
    std::vector<std::size_t> categories;
    for (const double value : sample.values) {
        categories.push_back(known.try_emplace(value, known.size()).first->second);
    }
    Runs test = runs(categories, options);
    test.missing = sample.missing;
    return test;
}

std::string_view methodOf(const Runs& test) {
    return test.exact ? "exact" : test.normal ? "normal" : "none";
}

}  // namespace TBVNonPara::statistics
