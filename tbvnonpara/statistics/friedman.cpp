#include "tbvnonpara/statistics/friedman.hpp"

#include <algorithm>
#include <boost/math/distributions/students_t.hpp>
#include <cmath>
#include <numeric>
#include <stdexcept>

#include "tbvnonpara/distributions/friedman.hpp"
#include "tbvnonpara/ordering/ascending_order.hpp"
#include "tbvnonpara/statistics/comparisons.hpp"
#include "tbvnonpara/statistics/noncentral.hpp"
#include "tbvnonpara/statistics/sample.hpp"

namespace TBVNonPara::statistics {

namespace {

/// Complete blocks: values and midranks, block by block.
struct Blocks {
    std::size_t treatments = 0;
    std::vector<double> values;
    std::vector<double> ranks;
    std::vector<double> tieSums;
    std::size_t missing = 0;

    [[nodiscard]] std::size_t count() const { return tieSums.size(); }
    [[nodiscard]] double value(std::size_t block, std::size_t treatment) const {
        return values[block * treatments + treatment];
    }
    [[nodiscard]] std::span<const double> ranksOf(std::size_t block) const {
        return std::span(ranks).subspan(block * treatments, treatments);
    }
};

void checkShape(SampleSpans samples) {
    if (samples.size() < 2) {
        throw std::invalid_argument("The test compares treatments, and there are fewer than two.");
    }
    for (std::size_t t = 1; t < samples.size(); ++t) {
        if (samples[t].size() != samples[0].size()) {
            throw std::invalid_argument("Treatments need one value a block: treatment 1 has " +
                                        std::to_string(samples[0].size()) + " values, treatment " +
                                        std::to_string(t + 1) + " has " + std::to_string(samples[t].size()) +
                                        '.');
        }
    }
}

Blocks blocksOf(SampleSpans samples, const Options& options) {
    checkShape(samples);
    Blocks blocks;
    blocks.treatments = samples.size();
    for (std::size_t b = 0; b < samples[0].size(); ++b) {
        std::vector<double> block;
        for (const std::span<const double> treatment : samples) {
            block.push_back(treatment[b]);
        }
        const Sample complete = sampleOf(block, "block " + std::to_string(b + 1), options);
        if (complete.missing > 0) {
            blocks.missing += 1;
            continue;
        }
        const Midranks ranked = midranks(block);
        blocks.values.insert(blocks.values.end(), block.begin(), block.end());
        blocks.ranks.insert(blocks.ranks.end(), ranked.ranks.begin(), ranked.ranks.end());
        blocks.tieSums.push_back(ranked.ties.sum);
    }
    if (blocks.count() < 2) {
        throw std::invalid_argument("The test needs at least two complete blocks.");
    }
    return blocks;
}

/// What W is made of, so that a block can be taken out of it.
struct Agreement {
    double blocks = 0;
    double treatments = 0;
    double tieSum = 0;
    std::vector<double> rankSums;

    [[nodiscard]] double factor() const {
        return 1 - tieSum / (blocks * (treatments * treatments * treatments - treatments));
    }
    /// Chi-square with the correction for ties.
    [[nodiscard]] double chiSquare() const {
        const double mean = blocks * (treatments + 1) / 2;
        double S = 0;
        for (const double sum : rankSums) {
            S += (sum - mean) * (sum - mean);
        }
        return 12 * S / (blocks * treatments * (treatments + 1)) / factor();
    }
    [[nodiscard]] double W() const { return chiSquare() / (blocks * (treatments - 1)); }
    [[nodiscard]] Agreement without(std::span<const double> ranks, double tiesOfBlock) const {
        Agreement rest{blocks - 1, treatments, tieSum - tiesOfBlock, rankSums};
        std::ranges::transform(rest.rankSums, ranks, rest.rankSums.begin(), std::minus<>());
        return rest;
    }
};

Agreement agreementOf(const Blocks& blocks) {
    Agreement all{static_cast<double>(blocks.count()), static_cast<double>(blocks.treatments),
                  std::accumulate(blocks.tieSums.begin(), blocks.tieSums.end(), 0.0),
                  std::vector<double>(blocks.treatments)};
    for (std::size_t b = 0; b < blocks.count(); ++b) {
        std::ranges::transform(all.rankSums, blocks.ranksOf(b), all.rankSums.begin(), std::plus<>());
    }
    return all;
}

double clippedLogit(double W) {
    constexpr double clip = 0.001;
    const double inside = std::clamp(W, clip, 1 - clip);
    return std::log(inside / (1 - inside));
}

double logistic(double x) {
    return 1 / (1 + std::exp(-x));
}

/// How far the block jackknife (Tukey 1958) reaches to either side of logit W. None where leaving a block out
/// leaves nothing but ties.
std::optional<double> jackknifeReach(const Blocks& blocks, const Agreement& all, double confidence) {
    const double b = all.blocks;
    const double whole = clippedLogit(all.W());
    std::vector<double> pseudo(blocks.count());
    for (std::size_t i = 0; i < blocks.count(); ++i) {
        const Agreement rest = all.without(blocks.ranksOf(i), blocks.tieSums[i]);
        if (!(rest.factor() > 0)) {
            return std::nullopt;
        }
        pseudo[i] = b * whole - (b - 1) * clippedLogit(rest.W());
    }
    const double mean = std::accumulate(pseudo.begin(), pseudo.end(), 0.0) / b;
    const double squares = std::transform_reduce(pseudo.begin(), pseudo.end(), 0.0, std::plus<>(),
                                                 [mean](double p) { return (p - mean) * (p - mean); });
    const boost::math::students_t t(b - 1);
    return boost::math::quantile(boost::math::complement(t, (1 - confidence) / 2)) *
           std::sqrt(squares / (b - 1) / b);
}

Estimate kendallOf(const Blocks& blocks, const Agreement& all, double confidence) {
    const double W = std::min(all.W(), 1.0);
    Estimate estimate{W, {}, {}};
    if (W >= 1 || blocks.count() == 2) {
        return estimate;
    }
    const double b = all.blocks;
    const double k = all.treatments;
    const auto lambda = noncentralF((b - 1) * W / (1 - W), k - 1, (b - 1) * (k - 1), confidence);
    const std::optional<double> reach = jackknifeReach(blocks, all, confidence);
    if (lambda && reach) {
        const double share = b * (k - 1);
        const double logit = clippedLogit(W);
        estimate.low = std::min(lambda->low / (lambda->low + share), logistic(logit - *reach));
        estimate.high = std::max(lambda->high / (lambda->high + share), logistic(logit + *reach));
    }
    return estimate;
}

PairCounts compareBlocks(const Blocks& blocks, const GroupPair& pair) {
    PairCounts counts;
    for (std::size_t b = 0; b < blocks.count(); ++b) {
        const double first = blocks.value(b, pair.first);
        const double second = blocks.value(b, pair.second);
        (first > second ? counts.greater : first < second ? counts.less : counts.equal) += 1;
    }
    return counts;
}

void compareTreatments(Friedman& test, const Blocks& blocks, const Options& options,
                       std::optional<std::size_t> control) {
    const auto k = static_cast<double>(test.treatments);
    // Of mean ranks: the sums' b k (k + 1) C / 6 over b^2.
    const double spread = std::sqrt(k * (k + 1) * test.ties.factor / 6 / static_cast<double>(test.blocks));
    const std::vector<GroupPair> pairs = pairsOfGroups(test.treatments, control);
    const double steps = stepsToCompare(test.blocks);
    LongCount count(steps * static_cast<double>(pairs.size()));
    for (const GroupPair& pair : pairs) {
        const double distance = test.groups[pair.first].meanRank - test.groups[pair.second].meanRank;
        const Probability p = normalTwoTailed(distance / spread);
        test.comparisons.push_back(
            {pair.first, pair.second, distance / spread, compareBlocks(blocks, pair), p, {}});
        count.add(steps);
    }
    std::vector<double> ranks;
    for (const Friedman::Group& group : test.groups) {
        ranks.push_back(group.meanRank);
    }
    test.letters = adjustTogether(test.comparisons, ranks, options, control.has_value());
}

Friedman::Group treatmentGroup(const Blocks& blocks, std::size_t treatment, double rankSum,
                               double confidence) {
    std::vector<double> values(blocks.count());
    for (std::size_t b = 0; b < blocks.count(); ++b) {
        values[b] = blocks.value(b, treatment);
    }
    sortAscending(values);
    return {values.size(), medianOf(values, confidence), rankSum / static_cast<double>(values.size())};
}

}  // namespace

Friedman friedman(SampleSpans samples, const Options& options, std::optional<std::size_t> control) {
    checkOptions(options);
    const WatchedCounts watched(options.watch);
    if (control && *control >= samples.size()) {
        throw std::invalid_argument("The control is none of the treatments.");
    }
    const Blocks blocks = blocksOf(samples, options);
    const Agreement all = agreementOf(blocks);
    Friedman test;
    test.blocks = blocks.count();
    test.treatments = blocks.treatments;
    test.missing = blocks.missing;
    test.ties = {
        static_cast<std::size_t>(std::ranges::count_if(blocks.tieSums, [](double sum) { return sum > 0; })),
        all.tieSum, all.factor()};
    for (std::size_t t = 0; t < blocks.treatments; ++t) {
        test.groups.push_back(treatmentGroup(blocks, t, all.rankSums[t], options.confidence));
    }
    if (!(test.ties.factor > 0)) {
        return test;
    }
    const double b = all.blocks;
    const double k = all.treatments;
    const double X = all.chiSquare();
    test.chiSquare = ChiSquare{X, k - 1, chiSquareTail(X, k - 1)};
    if (const double W = all.W(); W < 1) {
        const double F = (b - 1) * W / (1 - W);
        test.f = FRatio{F, k - 1, (b - 1) * (k - 1), fTail(F, k - 1, (b - 1) * (k - 1))};
    }
    if (const auto exact = friedmanTail(blocks.ranks, blocks.treatments, options.exactSteps)) {
        test.exact = ExactUpper{probability(exact->p), exact->point};
    } else {
        test.sampled = sampledBlocks(blocks.ranks, blocks.treatments, options);
    }
    test.kendallW = kendallOf(blocks, all, options.confidence);
    compareTreatments(test, blocks, options, control);
    if (options.trend) {
        test.trend = pageTrend(blocks.ranks, blocks.treatments, options.exactSteps);
    }
    return test;
}

std::string_view methodOf(const Friedman& test) {
    return test.exact ? "exact" : test.chiSquare ? "chi-square" : "none";
}

}  // namespace TBVNonPara::statistics
