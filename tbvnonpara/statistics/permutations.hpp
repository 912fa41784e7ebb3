#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/statistics/options.hpp"
#include "tbvnonpara/statistics/probability.hpp"

namespace TBVNonPara::statistics {

/// A probability from random arrangements: (hits + 1) / (arrangements + 1), the observed one being one of
/// them (Dwass 1957), and the standard error of it as a share.
struct SampledP {
    Probability p;             ///< the estimate, never 0
    double standardError = 0;  ///< of it
};

/// Of a statistic with two directions.
struct SampledTails {
    std::size_t arrangements = 0;  ///< Options::permutations
    std::uint64_t seed = 0;        ///< Options::seed
    SampledP two;                  ///< as far from the mean or farther
    SampledP greater;              ///< as large or larger
    SampledP less;                 ///< as small or smaller
};

/// Of a statistic with one direction.
struct SampledUpper {
    std::size_t arrangements = 0;  ///< Options::permutations
    std::uint64_t seed = 0;        ///< Options::seed
    SampledP p;                    ///< as large or larger
};

/// @cond
// Each draws `options.permutations` arrangements of ranks with `options.seed`, all as likely as one another,
// and gives none where none are asked for. O(arrangements times ranks), one thread.

/// The sum of the first `first` of the midranks, of any order, when they are dealt anew.
[[nodiscard]] TBVNONPARA_API std::optional<SampledTails> sampledRankSum(std::span<const double> ranks,
                                                                        std::size_t first, double observed,
                                                                        const Options& options);
/// The sum of those midranks that a fair coin makes positive.
[[nodiscard]] TBVNONPARA_API std::optional<SampledTails> sampledSignedRanks(std::span<const double> ranks,
                                                                            double observed,
                                                                            const Options& options);
/// The sum of products of two variables' midranks when those of one are put into another order.
[[nodiscard]] TBVNONPARA_API std::optional<SampledTails> sampledRankProducts(std::span<const double> first,
                                                                             std::span<const double> second,
                                                                             const Options& options);
/// The number of runs when the cells are put into another order; `greater` is more.
[[nodiscard]] TBVNONPARA_API std::optional<SampledTails> sampledRuns(std::span<const std::size_t> categories,
                                                                     std::size_t observed, double expected,
                                                                     const Options& options);
/// The spread of the groups' sums, sum of (R_g - mean)^2 / n_g, when scores (midranks, or 1 above a median
/// and 0 below) are dealt to groups of these sizes anew. The scores are in the groups' order.
[[nodiscard]] TBVNONPARA_API std::optional<SampledUpper> sampledGroups(std::span<const double> scores,
                                                                       std::span<const std::size_t> sizes,
                                                                       const Options& options);
/// The spread of the treatments' rank sums when the midranks of each block are put into another order.
[[nodiscard]] TBVNONPARA_API std::optional<SampledUpper> sampledBlocks(std::span<const double> ranks,
                                                                       std::size_t treatments,
                                                                       const Options& options);

template <typename Member>
void visit(const SampledP& sampled, Member& member) {
    visit(sampled.p, member);
    member("standardError", sampled.standardError);
}

template <typename Member>
void visit(const SampledTails& sampled, Member& member) {
    member("arrangements", sampled.arrangements);
    member("seed", sampled.seed);
    member("two", sampled.two);
    member("greater", sampled.greater);
    member("less", sampled.less);
}

template <typename Member>
void visit(const SampledUpper& sampled, Member& member) {
    member("arrangements", sampled.arrangements);
    member("seed", sampled.seed);
    member("p", sampled.p);
}
/// @endcond

}  // namespace TBVNonPara::statistics
