#include "tbvnonpara/statistics/permutations.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <vector>

#include "tbvnonpara/distributions/exact_tails.hpp"
#include "tbvnonpara/distributions/long_count.hpp"
#include "tbvnonpara/statistics/random.hpp"

namespace TBVNonPara::statistics {

namespace {

/// Midranks, and sums of them, twice as large are whole numbers.
Score twice(double value) {
    return std::llround(2 * value);
}

std::vector<Score> twiceAll(std::span<const double> values) {
    std::vector<Score> scores(values.size());
    std::ranges::transform(values, scores.begin(), twice);
    return scores;
}

SampledP sampledP(std::size_t hits, std::size_t arrangements) {
    const double all = static_cast<double>(arrangements) + 1;
    const double p = (static_cast<double>(hits) + 1) / all;
    return {probability(p), std::sqrt(p * (1 - p) / all)};
}

/// `draw` gives the statistic of another arrangement of `size` values; `doubledMean` is twice its mean.
template <typename Draw>
SampledTails sampledTails(Score observed, Score doubledMean, std::size_t size, const Options& options,
                          Draw draw) {
    RandomBits random(options.seed);
    const Score distance = std::abs(2 * observed - doubledMean);
    std::size_t two = 0;
    std::size_t greater = 0;
    std::size_t less = 0;
    LongCount count(static_cast<double>(size) * static_cast<double>(options.permutations));
    for (std::size_t i = 0; i < options.permutations; ++i) {
        const Score drawn = draw(random);
        two += std::abs(2 * drawn - doubledMean) >= distance ? 1 : 0;
        greater += drawn >= observed ? 1 : 0;
        less += drawn <= observed ? 1 : 0;
        count.add(static_cast<double>(size));
    }
    return {options.permutations, options.seed, sampledP(two, options.permutations),
            sampledP(greater, options.permutations), sampledP(less, options.permutations)};
}

/// `draw` gives the spread of another arrangement of `size` values, good to 1e-13: equal ones may differ by
/// rounding.
template <typename Draw>
SampledUpper sampledUpper(double observed, std::size_t size, const Options& options, Draw draw) {
    constexpr double rounding = 1e-12;
    RandomBits random(options.seed);
    std::size_t hits = 0;
    LongCount count(static_cast<double>(size) * static_cast<double>(options.permutations));
    for (std::size_t i = 0; i < options.permutations; ++i) {
        hits += draw(random) >= observed * (1 - rounding) ? 1 : 0;
        count.add(static_cast<double>(size));
    }
    return {options.permutations, options.seed, sampledP(hits, options.permutations)};
}

/// Less their mean, times as little as makes that whole: sums of these are exact.
std::vector<Score> centred(std::vector<Score> scores) {
    const auto n = static_cast<Score>(scores.size());
    const Score total = std::accumulate(scores.begin(), scores.end(), Score(0));
    const Score divisor = std::gcd(n, total);
    for (Score& score : scores) {
        score = score * (n / divisor) - total / divisor;
    }
    return scores;
}

double squared(Score sum) {
    const auto value = static_cast<double>(sum);
    return value * value;
}

/// Of centred scores.
double spreadOfGroups(std::span<const Score> scores, std::span<const std::size_t> sizes) {
    double spread = 0;
    std::size_t first = 0;
    for (const std::size_t size : sizes) {
        const auto own = scores.subspan(first, size);
        spread += squared(std::accumulate(own.begin(), own.end(), Score(0))) / static_cast<double>(size);
        first += size;
    }
    return spread;
}

/// Of centred ranks; `sums` has a place for each treatment.
double spreadOfTreatments(std::span<const Score> ranks, std::span<Score> sums) {
    std::ranges::fill(sums, Score(0));
    for (std::size_t first = 0; first < ranks.size(); first += sums.size()) {
        for (std::size_t t = 0; t < sums.size(); ++t) {
            sums[t] += ranks[first + t];
        }
    }
    double spread = 0;
    for (const Score sum : sums) {
        spread += squared(sum);
    }
    return spread;
}

}  // namespace

std::optional<SampledTails> sampledRankSum(std::span<const double> ranks, std::size_t first, double observed,
                                           const Options& options) {
    if (options.permutations == 0) {
        return std::nullopt;
    }
    std::vector<Score> scores = twiceAll(ranks);
    const auto n1 = static_cast<Score>(first);
    const Score doubledMean = 2 * n1 * (static_cast<Score>(scores.size()) + 1);
    return sampledTails(twice(observed), doubledMean, scores.size(), options, [&](RandomBits& random) {
        Score sum = 0;
        for (std::size_t i = 0; i < first; ++i) {
            std::swap(scores[i], scores[i + static_cast<std::size_t>(random.below(scores.size() - i))]);
            sum += scores[i];
        }
        return sum;
    });
}

std::optional<SampledTails> sampledSignedRanks(std::span<const double> ranks, double observed,
                                               const Options& options) {
    if (options.permutations == 0) {
        return std::nullopt;
    }
    const std::vector<Score> scores = twiceAll(ranks);
    const Score all = std::accumulate(scores.begin(), scores.end(), Score(0));
    return sampledTails(twice(observed), all, scores.size(), options, [&](RandomBits& random) {
        constexpr std::size_t word = 64;
        Score sum = 0;
        for (std::size_t first = 0; first < scores.size(); first += word) {
            std::uint64_t coins = random();
            const std::size_t end = std::min(first + word, scores.size());
            for (std::size_t i = first; i < end; ++i) {
                sum += (coins & 1U) != 0 ? scores[i] : 0;
                coins >>= 1U;
            }
        }
        return sum;
    });
}

std::optional<SampledTails> sampledRankProducts(std::span<const double> first, std::span<const double> second,
                                                const Options& options) {
    if (options.permutations == 0) {
        return std::nullopt;
    }
    const std::vector<Score> x = twiceAll(first);
    std::vector<Score> y = twiceAll(second);
    const auto n = static_cast<Score>(x.size());
    const Score observed = std::inner_product(x.begin(), x.end(), y.begin(), Score(0));
    return sampledTails(observed, 2 * n * (n + 1) * (n + 1), x.size(), options, [&](RandomBits& random) {
        shuffle(std::span(y), random);
        return std::inner_product(x.begin(), x.end(), y.begin(), Score(0));
    });
}

std::optional<SampledTails> sampledRuns(std::span<const std::size_t> categories, std::size_t observed,
                                        double expected, const Options& options) {
    if (options.permutations == 0) {
        return std::nullopt;
    }
    // The mean is a fraction of the number of cells.
    const auto n = static_cast<Score>(categories.size());
    const Score doubledMean = std::llround(2 * expected * static_cast<double>(n));
    std::vector<std::size_t> cells(categories.begin(), categories.end());
    return sampledTails(n * static_cast<Score>(observed), doubledMean, cells.size(), options,
                        [&](RandomBits& random) {
                            shuffle(std::span(cells), random);
                            Score runs = 1;
                            for (std::size_t i = 1; i < cells.size(); ++i) {
                                runs += cells[i] != cells[i - 1] ? 1 : 0;
                            }
                            return n * runs;
                        });
}

std::optional<SampledUpper> sampledGroups(std::span<const double> scores, std::span<const std::size_t> sizes,
                                          const Options& options) {
    if (options.permutations == 0) {
        return std::nullopt;
    }
    std::vector<Score> dealt = centred(twiceAll(scores));
    return sampledUpper(spreadOfGroups(dealt, sizes), dealt.size(), options, [&](RandomBits& random) {
        shuffle(std::span(dealt), random);
        return spreadOfGroups(dealt, sizes);
    });
}

std::optional<SampledUpper> sampledBlocks(std::span<const double> ranks, std::size_t treatments,
                                          const Options& options) {
    if (options.permutations == 0) {
        return std::nullopt;
    }
    std::vector<Score> orders = centred(twiceAll(ranks));
    std::vector<Score> sums(treatments);
    return sampledUpper(spreadOfTreatments(orders, sums), orders.size(), options, [&](RandomBits& random) {
        for (std::size_t first = 0; first < orders.size(); first += treatments) {
            shuffle(std::span(orders).subspan(first, treatments), random);
        }
        return spreadOfTreatments(orders, sums);
    });
}

}  // namespace TBVNonPara::statistics
