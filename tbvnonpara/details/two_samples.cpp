#include "tbvnonpara/details/two_samples.hpp"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <iterator>

#include "tbvnonpara/details/sampled.hpp"
#include "tbvnonpara/details/words.hpp"

namespace TBVNonPara {

namespace {

using statistics::MannWhitney;
using statistics::Sign;
using statistics::Spearman;
using statistics::Wilcoxon;

constexpr std::string_view tooLong = "an exact count would take too long for this many values";

std::string shiftSentence(std::string_view what, const std::string& first, const std::string& second,
                          const statistics::OrderedEstimate& shift, double confidence) {
    return fmt::format("{} {} - {}: {}{}.", what, first, second, fourDecimals(shift.value),
                       intervalText(shift.low, shift.high, confidence));
}

/// Which sample is larger, as a share of pairs of at least one half.
std::string directionOfShares(const MannWhitney& test, const Details& details) {
    const statistics::Estimate& A = test.superiority;
    const double confidence = details.choices.confidence;
    const std::string& x = details.labels[0];
    const std::string& y = details.labels[1];
    if (A.value == 0.5) {
        return fmt::format(
            "Neither {} nor {} tends to be larger: each is in 50 % of all pairs of one value each (equal "
            "ones count half){}.",
            x, y, intervalInPercent(A.low, A.high, confidence));
    }
    const bool first = A.value > 0.5;
    const auto other = [](const std::optional<double>& share) {
        return share ? std::optional(1 - *share) : share;
    };
    return fmt::format(
        "{} tends to be larger than {}: in {} % of all pairs of one value each (equal ones count half){}.",
        first ? x : y, first ? y : x, percentage(first ? A.value : 1 - A.value),
        first ? intervalInPercent(A.low, A.high, confidence)
              : intervalInPercent(other(A.high), other(A.low), confidence));
}

std::string mannWhitneyP(const MannWhitney& test, const Details& details) {
    const auto [n1, n2] = test.n;
    if (test.exact) {
        const std::string how =
            fmt::format("is exact{}: all {}ways to deal the {} ranks into {} and {} were counted",
                        test.ties.groups > 0 ? " for data with these ties" : "", ways(choose(n1 + n2, n1)),
                        n1 + n2, n1, n2);
        return sentenceOnP(inDirection(*test.exact, details.tails), how, details.reportedP);
    }
    if (!test.normal) {
        return "All values are equal: there is nothing to test.";
    }
    return sentenceOnP(inDirection(test.normal->plain, details.tails),
                       fmt::format("is from the normal approximation: {}", tooLong), details.reportedP);
}

DetailTable medianGroups(bool meanRanks) {
    DetailTable table{"Groups", {"N", "Median", "Low", "High"}, {}};
    if (meanRanks) {
        table.headings.emplace_back("Mean Rank");
    }
    return table;
}

std::vector<DetailCell> medianRow(const std::string& label, std::size_t n,
                                  const statistics::OrderedEstimate& median) {
    return {nameCell(label), wholeCell(n), numberCell(median.value), numberCell(median.low),
            numberCell(median.high)};
}

/// "Exact, zeros left out" where there are zeros, so that there are two ways, else "Exact".
void addSignedRanks(DetailTable& table, const statistics::SignedRanks& sums, const std::string& zeros,
                    TBVNPTails tails) {
    addExact(table, "Exact" + zeros, sums.exact, tails);
    addNormal(table, zeros.empty() ? "Normal, tie-corrected" : "Normal" + zeros, sums.normal, tails);
    addSampled(table, "Random signs" + zeros, sums.sampled, tails);
}

std::string wilcoxonP(const Wilcoxon& test, const Details& details) {
    const statistics::SignedRanks& sums = test.zerosLeftOut;
    const std::size_t ranks = test.positive + test.negative;
    if (sums.exact) {
        const double signings = std::ldexp(1.0, static_cast<int>(std::min<std::size_t>(ranks, 1000)));
        const std::string how =
            fmt::format("is exact{}: all {}ways to sign the {} ranks were counted",
                        test.ties.groups > 0 ? " for data with these ties" : "", ways(signings), ranks);
        return sentenceOnP(inDirection(*sums.exact, details.tails), how, details.reportedP);
    }
    if (!sums.normal) {
        return "All differences are zero: there is nothing to test.";
    }
    return sentenceOnP(inDirection(sums.normal->plain, details.tails),
                       fmt::format("is from the normal approximation: {}", tooLong), details.reportedP);
}

std::string spearmanDirection(const Spearman& test, const Details& details) {
    const std::string& x = details.labels[0];
    const std::string& y = details.labels[1];
    if (!test.rho) {
        return fmt::format("{} or {} does not vary: there is no correlation.", x, y);
    }
    const double rho = test.rho->value;
    const std::string together = rho > 0   ? fmt::format("{} and {} rise together", x, y)
                                 : rho < 0 ? fmt::format("{} falls while {} rises", y, x)
                                           : fmt::format("{} and {} neither rise nor fall together", x, y);
    return fmt::format("{}: rho = {}{}.", together, fourDecimals(rho),
                       intervalText(test.rho->low, test.rho->high, details.choices.confidence));
}

std::vector<std::string> spearmanP(const Spearman& test, const Details& details) {
    if (test.exact) {
        double pairings = 1;
        for (std::size_t i = 2; i <= std::min<std::size_t>(test.n, 100); ++i) {
            pairings *= static_cast<double>(i);
        }
        const bool tied = test.ties[0].groups + test.ties[1].groups > 0;
        return {sentenceOnP(inDirection(*test.exact, details.tails),
                            fmt::format("is exact{}: all {}pairings of the ranks were counted",
                                        tied ? " for data with these ties" : "", ways(pairings)),
                            details.reportedP)};
    }
    if (test.series) {
        return {sentenceOnP(inDirection(*test.series, details.tails),
                            fmt::format("is from a series for untied ranks (AS 89): {}", tooLong),
                            details.reportedP)};
    }
    if (test.t) {
        return {sentenceOnP(inDirection(*test.t, details.tails),
                            fmt::format("is from Student's t: {}", tooLong), details.reportedP)};
    }
    return {};
}

std::string tiesOfVariable(const std::string& label, const statistics::Ties& ties) {
    return ties.groups == 0 ? fmt::format("{}: no ties.", label)
                            : fmt::format("{}: {} of ties with {} values, the largest of {}.", label,
                                          counted(ties.groups, "group", "groups"), ties.values, ties.largest);
}

std::string signDirection(const Sign& test, const Details& details) {
    const std::size_t signs = test.positive + test.negative;
    const bool pairs = details.labels.size() > 1;
    if (!test.positiveShare) {
        return pairs ? "No pair differs: there is nothing to test."
                     : "There is no sign: there is nothing to test.";
    }
    const statistics::Estimate& share = *test.positiveShare;
    return fmt::format(
        "{} is {} in {} of the {}: {} %{}.", details.labels[0], pairs ? "larger" : "positive", test.positive,
        pairs ? counted(signs, "pair that differs", "pairs that differ") : counted(signs, "sign", "signs"),
        percentage(share.value), intervalInPercent(share.low, share.high, details.choices.confidence));
}

}  // namespace

DetailPage pageOf(const MannWhitney& test, const Details& details) {
    const double confidence = details.choices.confidence;
    const std::string& x = details.labels[0];
    const std::string& y = details.labels[1];
    DetailPage page;
    page.words = {directionOfShares(test, details)};
    const statistics::Estimate& A = test.superiority;
    if (A.low && *A.low <= 0.5 && 0.5 <= *A.high) {
        page.words.emplace_back("The interval holds 50 %: which of the two is larger in general stays open.");
    }
    page.words.push_back(shiftSentence("Typical difference", x, y, test.shift, confidence));
    page.words.push_back(mannWhitneyP(test, details));

    DetailTable effect = effectTable();
    effect.rows = {effectRow(x + " larger, share of pairs", A),
                   effectRow("Rank-biserial r", test.rankBiserial),
                   effectRow(fmt::format("Shift {} - {} (Hodges-Lehmann)", x, y), test.shift)};
    DetailTable probability = probabilityTable(details.tails);
    const bool tied = test.ties.groups > 0;
    addExact(probability, tied ? "Exact, given the ties" : "Exact", test.exact, details.tails);
    addNormal(probability, tied ? "Normal, tie-corrected" : "Normal", test.normal, details.tails);
    addSampled(probability, "Random arrangements", test.sampled, details.tails);
    const double df = test.robust ? test.robust->df : 0;
    addStudent(probability, fmt::format("Brunner-Munzel t (unequal spreads, {:.1f} df)", df), test.robust,
               details.tails);
    DetailTable groups = medianGroups(true);
    for (std::size_t i = 0; i < test.groups.size(); ++i) {
        groups.rows.push_back(medianRow(details.labels[i], test.groups[i].n, test.groups[i].median));
        groups.rows.back().push_back(numberCell(test.groups[i].meanRank));
    }
    page.tables = {std::move(effect), std::move(probability), std::move(groups)};
    page.notes = {fmt::format("Pairs: {} with {} larger, {} equal, {} with {} larger. {}", test.pairs.greater,
                              x, test.pairs.equal, test.pairs.less, y, tiesText(test.ties, "values"))};
    noteLevel(test.shift, "shift", confidence, page.notes);
    noteSampled(page, test.sampled, test.exact.has_value(), details);
    return page;
}

DetailPage pageOf(const Wilcoxon& test, const Details& details) {
    const double confidence = details.choices.confidence;
    const std::string& x = details.labels[0];
    const std::string& y = details.labels[1];
    DetailPage page;
    page.words = {fmt::format("{} is larger in {} of {}, smaller in {}, equal in {}.", x, test.positive,
                              counted(test.n, "pair", "pairs"), test.negative, test.zero),
                  shiftSentence("Typical difference", x, y, test.pseudomedian, confidence),
                  wilcoxonP(test, details)};

    DetailTable effect = effectTable();
    effect.rows = {effectRow(fmt::format("Difference {} - {} (Hodges-Lehmann)", x, y), test.pseudomedian)};
    if (test.rankBiserial) {
        effect.rows.push_back(effectRow("Rank-biserial r", *test.rankBiserial));
    }
    DetailTable probability = probabilityTable(details.tails);
    addSignedRanks(probability, test.zerosLeftOut, test.pratt ? ", zeros left out" : "", details.tails);
    if (test.pratt) {
        addSignedRanks(probability, *test.pratt, ", Pratt's zeros", details.tails);
    }
    DetailTable groups = medianGroups(false);
    for (std::size_t i = 0; i < test.groups.size(); ++i) {
        groups.rows.push_back(medianRow(details.labels[i], test.groups[i].n, test.groups[i].median));
    }
    page.tables = {std::move(effect), std::move(probability), std::move(groups)};
    page.notes = {fmt::format("T+ = {:.1f}, T- = {:.1f}. {}", test.zerosLeftOut.plus, test.zerosLeftOut.minus,
                              tiesText(test.ties, "differences"))};
    noteLevel(test.pseudomedian, "difference", confidence, page.notes);
    // With their larger ranks, Pratt's zeros may be too many to count where those left out are not.
    const bool zerosAlone = !test.zerosLeftOut.sampled && test.pratt && test.pratt->sampled;
    noteSampled(page, zerosAlone ? test.pratt->sampled : test.zerosLeftOut.sampled,
                test.zerosLeftOut.exact.has_value(), details);
    return page;
}

DetailPage pageOf(const Spearman& test, const Details& details) {
    DetailPage page;
    page.words = {spearmanDirection(test, details)};
    std::ranges::copy(spearmanP(test, details), std::back_inserter(page.words));
    DetailTable effect = effectTable();
    if (test.rho) {
        effect.rows = {effectRow("Spearman's rho", *test.rho)};
    }
    DetailTable probability = probabilityTable(details.tails);
    addExact(probability, "Exact", test.exact, details.tails);
    addExact(probability, "Series AS 89", test.series, details.tails);
    addStudent(probability, fmt::format("Student's t ({} df)", test.n - 2), test.t, details.tails);
    addSampled(probability, "Random pairings", test.sampled, details.tails);
    page.tables = {std::move(effect), std::move(probability)};
    page.notes = {fmt::format("{}. {} {}", counted(test.n, "complete pair", "complete pairs"),
                              tiesOfVariable(details.labels[0], test.ties[0]),
                              tiesOfVariable(details.labels[1], test.ties[1]))};
    noteSampled(page, test.sampled, test.exact.has_value(), details);
    return page;
}

DetailPage pageOf(const Sign& test, const Details& details) {
    const double confidence = details.choices.confidence;
    const bool pairs = test.medianDifference.has_value();
    DetailPage page;
    page.words = {signDirection(test, details)};
    DetailTable effect = effectTable();
    if (test.positiveShare) {
        effect.rows.push_back(effectRow(
            details.labels[0] + (pairs ? " larger, share of differing pairs" : " positive, share of signs"),
            *test.positiveShare));
    }
    if (pairs) {
        const std::string& x = details.labels[0];
        const std::string& y = details.labels[1];
        page.words.push_back(shiftSentence("Median difference", x, y, *test.medianDifference, confidence));
        effect.rows.push_back(effectRow(fmt::format("Median of {} - {}", x, y), *test.medianDifference));
    }
    if (test.exact) {
        page.words.push_back(sentenceOnP(inDirection(*test.exact, details.tails),
                                         fmt::format("is exact: the binomial distribution with {}",
                                                     counted(test.positive + test.negative, "sign", "signs")),
                                         details.reportedP));
    }
    DetailTable probability = probabilityTable(details.tails);
    addExact(probability, "Exact binomial", test.exact, details.tails);
    addNormal(probability, "Normal", test.normal, details.tails);
    page.tables = {std::move(effect), std::move(probability)};
    page.notes = {fmt::format("{}, {} of them {}.",
                              counted(test.n, pairs ? "pair" : "code", pairs ? "pairs" : "codes"), test.zero,
                              pairs ? "equal" : "neither positive nor negative")};
    if (pairs) {
        noteLevel(*test.medianDifference, "median difference", confidence, page.notes);
    }
    return page;
}

}  // namespace TBVNonPara
