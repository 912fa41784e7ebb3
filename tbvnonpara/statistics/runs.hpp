#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/statistics/options.hpp"
#include "tbvnonpara/statistics/permutations.hpp"
#include "tbvnonpara/statistics/probability.hpp"

namespace TBVNonPara::statistics {

/// Do equal categories cluster in a sequence, or avoid each other?
struct Runs {
    std::size_t n = 0;                ///< cells
    std::size_t missing = 0;          ///< cells that were left out
    std::vector<std::size_t> counts;  ///< of the categories in order of first appearance
    std::size_t runs = 0;             ///< stretches of one category
    double expected = 0;              ///< runs in a random order
    double variance = 0;              ///< of their number (Mood 1940)
    /// The exact probabilities of the number of runs.
    struct Exact {
        Probability two;    ///< as far from the mean or farther
        Probability fewer;  ///< as few or fewer
        Probability more;   ///< as many or more
        double point = 0;   ///< as many
    };
    std::optional<Exact> exact;  ///< all orders of the cells; beyond two categories while the steps last
    /// `less` stands for fewer runs, `greater` for more; none for one category.
    struct Normal {
        NormalApproximation approximation;  ///< of the number of runs
    };
    std::optional<Normal> normal;  ///< none for one category
    /// Where that is asked for and nothing was counted; `less` stands for fewer runs, `greater` for more.
    struct Sampled {
        SampledTails tails;  ///< of the number of runs
    };
    std::optional<Sampled> sampled;  ///< where that is asked for and nothing was counted
    /// Share of neighbours that are equal and what a random order would have; none for one cell.
    struct EqualNeighbours {
        double value = 0;     ///< of the n - 1 pairs of neighbours, 0 to 1
        double expected = 0;  ///< in a random order
    };
    std::optional<EqualNeighbours> equalNeighbours;  ///< none for one cell
};

/// `categories`: the number of each cell's category, from 0, in order of first appearance; any length from 1.
/// Time O(n), memory O(n), besides the exact count. The test of Wald and Wolfowitz (1940). Throws
/// std::invalid_argument for an empty sequence, and for a number out of that order, which it names, or a
/// level out of its bounds.
[[nodiscard]] TBVNONPARA_API Runs runs(std::span<const std::size_t> categories, const Options& options = {});

/// The same for numbers, each distinct one a category. NaN is refused or left out; O(n log n).
[[nodiscard]] TBVNONPARA_API Runs runs(std::span<const double> values, const Options& options = {});

/// What P is shown: "exact", "normal" or "none".
[[nodiscard]] TBVNONPARA_API std::string_view methodOf(const Runs& test);

/// @cond
template <typename Member>
void visit(const Runs::Exact& exact, Member& member) {
    member("two", exact.two);
    member("fewer", exact.fewer);
    member("more", exact.more);
    member("point", exact.point);
}

/// The normal approximation under the names that runs have.
template <typename Member>
void visit(const Runs::Normal& normal, Member& member) {
    const auto directions = [](const NormalTails& tails) {
        return [&tails](auto& direction) {
            direction("z", tails.z);
            direction("two", tails.two);
            direction("fewer", tails.less);
            direction("more", tails.greater);
        };
    };
    directions(normal.approximation.plain)(member);
    member("corrected", directions(normal.approximation.corrected));
}

template <typename Member>
void visit(const Runs::Sampled& sampled, Member& member) {
    member("arrangements", sampled.tails.arrangements);
    member("seed", sampled.tails.seed);
    member("two", sampled.tails.two);
    member("fewer", sampled.tails.less);
    member("more", sampled.tails.greater);
}

template <typename Member>
void visit(const Runs::EqualNeighbours& share, Member& member) {
    member("value", share.value);
    member("expected", share.expected);
}

template <typename Member>
void visit(const Runs& test, Member& member) {
    member("data", [&](auto& data) {
        data("n", test.n);
        data("missing", test.missing);
        data("categories", test.counts.size());
        data("counts", test.counts);
        data("runs", test.runs);
        data("expected", test.expected);
        data("variance", test.variance);
    });
    member("p", [&](auto& p) {
        p("method", methodOf(test));
        p("exact", test.exact);
        p("normal", test.normal);
        p("permutations", test.sampled);
    });
    member("effect", [&](auto& effect) { effect("equalNeighbours", test.equalNeighbours); });
}
/// @endcond

}  // namespace TBVNonPara::statistics
