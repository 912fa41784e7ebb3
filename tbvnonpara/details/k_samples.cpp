#include "tbvnonpara/details/k_samples.hpp"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <utility>

#include "tbvnonpara/details/sampled.hpp"
#include "tbvnonpara/details/trend.hpp"
#include "tbvnonpara/details/words.hpp"

namespace TBVNonPara {

namespace {

using statistics::Friedman;
using statistics::KruskalWallis;
using statistics::Median;
using statistics::Runs;

constexpr std::string_view fromChiSquare =
    "P is from the chi-square approximation: an exact count would take too long for this many values.";

void tellP(DetailPage& page, const std::optional<statistics::ExactUpper>& exact, bool approximate,
           std::string_view how, double reportedP) {
    if (exact) {
        page.words.push_back(sentenceOnP(exact->p, fmt::format("is exact: {} were counted", how), reportedP));
    } else if (approximate) {
        page.words.emplace_back(fromChiSquare);
    }
}

DetailTable upperTails(const std::optional<statistics::ExactUpper>& exact,
                       const std::optional<statistics::ChiSquare>& chiSquare,
                       const std::string& chiSquareName) {
    DetailTable table{"Probability", {"Value", "DF", "P"}, {}};
    if (exact) {
        table.rows.push_back({nameCell("Exact"), {}, {}, probabilityCell(exact->p)});
    }
    if (chiSquare) {
        table.rows.push_back({nameCell(chiSquareName), numberCell(chiSquare->value),
                              DetailCell{chiSquare->df, DetailForm::Whole}, probabilityCell(chiSquare->p)});
    }
    return table;
}

void addF(DetailTable& table, const std::optional<statistics::FRatio>& f) {
    if (f) {
        table.rows.push_back({nameCell("F of the ranks"), numberCell(f->value),
                              nameCell(fmt::format("{:.0f}, {:.0f}", f->df1, f->df2)),
                              probabilityCell(f->p)});
    }
}

/// The letters as a last column, and the note on them.
void addLetters(DetailPage& page, DetailTable& groups, const std::optional<std::vector<std::string>>& letters,
                double confidence) {
    if (!letters) {
        return;
    }
    groups.headings.emplace_back("Alike");
    for (std::size_t g = 0; g < letters->size(); ++g) {
        groups.rows[g].push_back(nameCell((*letters)[g]));
    }
    page.notes.push_back(fmt::format("Groups that share a letter under \"Alike\" do not differ at {}.",
                                     levelText(1 - confidence)));
}

template <typename Group>
DetailTable meanRankGroups(const std::vector<Group>& groups, const std::vector<std::string>& labels) {
    DetailTable table{"Groups", {"N", "Median", "Low", "High", "Mean Rank"}, {}};
    for (std::size_t g = 0; g < groups.size(); ++g) {
        const statistics::OrderedEstimate& median = groups[g].median;
        table.rows.push_back({nameCell(labels[g]), wholeCell(groups[g].n), numberCell(median.value),
                              numberCell(median.low), numberCell(median.high),
                              numberCell(groups[g].meanRank)});
    }
    return table;
}

template <typename Comparison>
std::vector<DetailCell> comparisonRow(const Comparison& comparison, const std::vector<std::string>& labels) {
    return {nameCell(fmt::format("{} - {}", labels[comparison.first], labels[comparison.second]))};
}

template <typename Comparison>
void addProbabilities(std::vector<DetailCell>& row, const Comparison& comparison) {
    row.push_back(probabilityCell(comparison.p));
    row.push_back(probabilityCell(comparison.adjusted));
}

std::string runsDirection(const Runs& test) {
    if (!test.equalNeighbours) {
        return "One cell has no neighbours: there is nothing to test.";
    }
    const auto& [value, expected] = *test.equalNeighbours;
    const std::string conclusion = value > expected   ? " Equal ones cluster, or there is a trend."
                                   : value < expected ? " Equal ones keep apart."
                                                      : "";
    return fmt::format("{} % of the neighbours are equal; {} % would be in a random order.{}",
                       percentage(value), percentage(expected), conclusion);
}

/// That shares differ is said where P says so.
std::string sharesSentence(const Median& test, double confidence) {
    const statistics::Estimate& V = *test.cramerV;
    const statistics::Probability& p = test.exact ? test.exact->p : test.chiSquare->p;
    const std::string interval =
        V.low ? fmt::format(", {} CI {:.2f} to {:.2f}", levelText(confidence), *V.low, *V.high) : "";
    return fmt::format("{} in their share above the grand median{}; Cramer's V = {:.2f}{}.",
                       p.value <= 1 - confidence ? "The groups differ" : "Whether the groups differ",
                       p.value <= 1 - confidence ? "" : " stays open", V.value, interval);
}

}  // namespace

DetailPage pageOf(const Runs& test, const Details& details) {
    DetailPage page;
    page.words = {runsDirection(test)};
    DetailTable probability = probabilityTable(details.tails, "fewer", "more");
    if (test.exact) {
        const statistics::Probability& p =
            inDirection(test.exact->two, test.exact->fewer, test.exact->more, details.tails);
        page.words.push_back(sentenceOnP(
            p, fmt::format("is exact: all orders of the {} were counted", counted(test.n, "cell", "cells")),
            details.reportedP));
        probability.rows.push_back({nameCell("Exact"), {}, probabilityCell(p)});
    }
    if (test.normal) {
        const auto row = [&](std::string name, const statistics::NormalTails& tails) {
            probability.rows.push_back(
                {nameCell(std::move(name)), numberCell(tails.z),
                 probabilityCell(inDirection(tails.two, tails.less, tails.greater, details.tails))});
        };
        row("Normal", test.normal->approximation.plain);
        row("  with continuity correction", test.normal->approximation.corrected);
    }
    const std::optional<statistics::SampledTails> sampled = fewerFirst(test.sampled);
    addSampled(probability, "Random orders", sampled, details.tails);
    page.tables = {std::move(probability)};
    page.notes = {fmt::format("{} in {}, {}; expected {:.2f}, standard deviation {:.2f}.",
                              counted(test.n, "cell", "cells"),
                              counted(test.counts.size(), "category", "categories"),
                              counted(test.runs, "run", "runs"), test.expected, std::sqrt(test.variance))};
    noteSampled(page, sampled, test.exact.has_value(), details);
    return page;
}

DetailPage pageOf(const Median& test, const Details& details) {
    const double confidence = details.choices.confidence;
    DetailPage page;
    DetailTable effect = effectTable();
    if (test.cramerV) {
        page.words = {sharesSentence(test, confidence), differencesText(test.comparisons, details.choices)};
        effect.rows = {effectRow("Cramer's V", *test.cramerV)};
    } else {
        page.words = {"No value lies above the grand median: there is nothing to test."};
    }
    tellP(page, test.exact, test.chiSquare.has_value(), "all arrangements of the values over the groups",
          details.reportedP);
    DetailTable groups{"Groups", {"N", "Median", "Low", "High", "Above", "Share", "Low", "High"}, {}};
    for (std::size_t g = 0; g < test.groups.size(); ++g) {
        const auto& [original, n, above, equal, share, median] = test.groups[g];
        groups.rows.push_back({nameCell(details.labels[g]), wholeCell(n), numberCell(median.value),
                               numberCell(median.low), numberCell(median.high), wholeCell(above),
                               numberCell(share.value), numberCell(share.low), numberCell(share.high)});
    }
    addLetters(page, groups, test.letters, confidence);
    DetailTable comparisons{"Comparisons (exact, about the grand median)", {"P", "Adjusted"}, {}};
    for (const Median::Comparison& comparison : test.comparisons) {
        comparisons.rows.push_back(comparisonRow(comparison, details.labels));
        addProbabilities(comparisons.rows.back(), comparison);
    }
    DetailTable probability = upperTails(test.exact, test.chiSquare, "Chi-square");
    addSampled(probability, test.sampled);
    page.tables = {std::move(effect), std::move(probability), std::move(groups), std::move(comparisons)};
    page.notes.push_back(fmt::format("{} of {} equal the grand median {} and count as not above it.",
                                     test.equal, counted(test.n, "value", "values"),
                                     fourDecimals(test.grandMedian)));
    noteSampled(page, test.sampled, test.exact.has_value(), details);
    return page;
}

DetailPage pageOf(const KruskalWallis& test, const Details& details) {
    const double confidence = details.choices.confidence;
    DetailPage page;
    DetailTable effect = effectTable();
    if (test.epsilonSquared) {
        const statistics::Estimate& epsilon = *test.epsilonSquared;
        const std::string interval =
            epsilon.low ? intervalInPercent(epsilon.low, epsilon.high, confidence) : "";
        page.words = {fmt::format("Groups explain {} % of the variation of the ranks (epsilon squared{}).",
                                  percentage(epsilon.value), interval),
                      differencesText(test.comparisons, details.choices)};
        effect.rows = {effectRow("Epsilon squared", epsilon)};
    } else {
        page.words = {"All values are equal: there is nothing to test."};
    }
    tellP(page, test.exact, test.chiSquare.has_value(), "all ways to deal the ranks to the groups",
          details.reportedP);
    DetailTable probability = upperTails(test.exact, test.chiSquare, "Chi-square, tie-corrected");
    addF(probability, test.f);
    addSampled(probability, test.sampled);
    DetailTable groups = meanRankGroups(test.groups, details.labels);
    addLetters(page, groups, test.letters, confidence);
    DetailTable comparisons{"Comparisons (Dunn's z)", {"First larger", "z", "P", "Adjusted"}, {}};
    for (const KruskalWallis::Comparison& comparison : test.comparisons) {
        std::vector<DetailCell> row = comparisonRow(comparison, details.labels);
        row.push_back(percentCell(comparison.superiority));
        row.push_back(numberCell(comparison.z));
        addProbabilities(row, comparison);
        comparisons.rows.push_back(std::move(row));
    }
    page.tables = {std::move(effect), std::move(probability), std::move(groups), std::move(comparisons)};
    tellTrend(page, test.trend, details.choices);
    page.notes.push_back(tiesText(test.ties, "values"));
    noteSampled(page, test.sampled, test.exact.has_value(), details);
    return page;
}

DetailPage pageOf(const Friedman& test, const Details& details) {
    const double confidence = details.choices.confidence;
    DetailPage page;
    DetailTable effect = effectTable();
    if (test.kendallW) {
        const statistics::Estimate& W = *test.kendallW;
        const std::string interval = W.low ? intervalInPercent(W.low, W.high, confidence) : "";
        page.words = {fmt::format("The blocks agree on the order of the treatments to {} % (Kendall's W{}).",
                                  percentage(W.value), interval),
                      differencesText(test.comparisons, details.choices)};
        effect.rows = {effectRow("Kendall's W", W)};
    } else {
        page.words = {"All values of each block are equal: there is nothing to test."};
    }
    tellP(page, test.exact, test.chiSquare.has_value(), "all arrangements of the ranks within their blocks",
          details.reportedP);
    DetailTable probability = upperTails(test.exact, test.chiSquare, "Chi-square, tie-corrected");
    addF(probability, test.f);
    addSampled(probability, test.sampled);
    DetailTable groups = meanRankGroups(test.groups, details.labels);
    addLetters(page, groups, test.letters, confidence);
    DetailTable comparisons{"Comparisons (z of the mean ranks)", {"First larger", "z", "P", "Adjusted"}, {}};
    for (const Friedman::Comparison& comparison : test.comparisons) {
        std::vector<DetailCell> row = comparisonRow(comparison, details.labels);
        row.push_back(shareCell(comparison.blocks.greater, test.blocks));
        row.push_back(numberCell(comparison.z));
        addProbabilities(row, comparison);
        comparisons.rows.push_back(std::move(row));
    }
    page.tables = {std::move(effect), std::move(probability), std::move(groups), std::move(comparisons)};
    tellTrend(page, test.trend, details.choices);
    page.notes.push_back(fmt::format("Ties in {} of {}; factor {}.", test.ties.blocks,
                                     counted(test.blocks, "block", "blocks"),
                                     fourDecimals(test.ties.factor)));
    noteSampled(page, test.sampled, test.exact.has_value(), details);
    return page;
}

}  // namespace TBVNonPara
