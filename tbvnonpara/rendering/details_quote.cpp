#include "tbvnonpara/rendering/details_quote.hpp"

#include <fmt/format.h>

#include "tbvnonpara/details/trend.hpp"
#include "tbvnonpara/details/words.hpp"

namespace TBVNonPara::rendering {

namespace {
using statistics::Probability;

std::string tailsWord(const Details& details) {
    return details.tails == tbvNPTwoTailed ? "two-tailed" : "one-tailed";
}

std::string quotedP(const Probability& p, std::string_view how, const std::string& tails = "") {
    return fmt::format("P = {} ({}{}{})", probabilityText(p), how, tails.empty() ? "" : ", ", tails);
}

/// Of the exact count, or else of the normal approximation.
std::string quotedP(const std::optional<statistics::Tails>& exact,
                    const std::optional<statistics::NormalApproximation>& normal, const Details& details) {
    return exact ? quotedP(inDirection(*exact, details.tails), "exact", tailsWord(details))
                 : quotedP(inDirection(normal->plain, details.tails), "normal approximation",
                           tailsWord(details));
}

template <typename Estimate>
std::string quoted(std::string_view name, const std::optional<Estimate>& estimate, const Details& details) {
    return estimate ? fmt::format("; {} = {}{}", name, fourDecimals(estimate->value),
                                  intervalText(estimate->low, estimate->high, details.choices.confidence))
                    : "";
}

std::string quote(const statistics::MannWhitney& test, const Details& details) {
    if (!test.exact && !test.normal) {
        return "";
    }
    const std::string& x = details.labels[0];
    const std::string& y = details.labels[1];
    return fmt::format(
        "Mann-Whitney test of {} (n = {}) and {} (n = {}): U = {:.10g} ({:.10g} for {}), {}{}{}.", x,
        test.n[0], y, test.n[1], test.u[0], test.u[1], y, quotedP(test.exact, test.normal, details),
        quoted(fmt::format("share of pairs with {} larger", x), std::optional(test.superiority), details),
        quoted(fmt::format("Hodges-Lehmann shift {} - {}", x, y), std::optional(test.shift), details));
}

std::string quote(const statistics::Wilcoxon& test, const Details& details) {
    const statistics::SignedRanks& sums = test.zerosLeftOut;
    if (!sums.exact && !sums.normal) {
        return "";
    }
    const std::string& x = details.labels[0];
    const std::string& y = details.labels[1];
    return fmt::format(
        "Wilcoxon signed-rank test of {} and {} ({}, {} without a difference): T+ = {:.10g}, T- = {:.10g}, "
        "{}{}{}.",
        x, y, counted(test.n, "pair", "pairs"), test.zero, sums.plus, sums.minus,
        quotedP(sums.exact, sums.normal, details),
        quoted(fmt::format("Hodges-Lehmann difference {} - {}", x, y), std::optional(test.pseudomedian),
               details),
        quoted("rank-biserial r", test.rankBiserial, details));
}

std::string quote(const statistics::Spearman& test, const Details& details) {
    const TBVNPTails tails = details.tails;
    const std::string word = tailsWord(details);
    const std::string p = test.exact    ? quotedP(inDirection(*test.exact, tails), "exact", word)
                          : test.series ? quotedP(inDirection(*test.series, tails), "series AS 89", word)
                          : test.t      ? quotedP(inDirection(*test.t, tails),
                                                  fmt::format("Student's t, {:.0f} df", test.t->df), word)
                                        : "";
    if (!test.rho || p.empty()) {
        return "";
    }
    return fmt::format("Spearman's rank correlation of {} and {} ({}): {}{}.", details.labels[0],
                       details.labels[1], counted(test.n, "pair", "pairs"), p,
                       quoted("rho", test.rho, details));
}

std::string quote(const statistics::Sign& test, const Details& details) {
    if (!test.exact) {
        return "";
    }
    const bool pairs = details.labels.size() > 1;
    const std::string what = pairs ? details.labels[0] + " and " + details.labels[1] : details.labels[0];
    return fmt::format("Sign test of {} ({}): {} positive, {} negative, {} neither, {}{}{}.", what,
                       pairs ? counted(test.n, "pair", "pairs") : counted(test.n, "code", "codes"),
                       test.positive, test.negative, test.zero,
                       quotedP(inDirection(*test.exact, details.tails), "exact", tailsWord(details)),
                       quoted("share of positive ones", test.positiveShare, details),
                       quoted("median difference", test.medianDifference, details));
}

std::string quote(const statistics::Runs& test, const Details& details) {
    if (!test.exact && !test.normal) {
        return "";
    }
    const std::string word = tailsWord(details);
    std::string p;
    if (test.exact) {
        p = quotedP(inDirection(test.exact->two, test.exact->fewer, test.exact->more, details.tails), "exact",
                    word);
    } else {
        const statistics::NormalTails& plain = test.normal->approximation.plain;
        p = quotedP(inDirection(plain.two, plain.less, plain.greater, details.tails), "normal approximation",
                    word);
    }
    return fmt::format("Wald-Wolfowitz runs test ({}, {}): {}, {:.2f} expected, {}.",
                       counted(test.n, "cell", "cells"),
                       counted(test.counts.size(), "category", "categories"),
                       counted(test.runs, "run", "runs"), test.expected, p);
}

/// "H(2) = 7.9882, P = 0.0184 (chi-square)".
template <typename Test>
std::string quotedChiSquare(std::string_view statistic, const Test& test) {
    return fmt::format("{}({:.0f}) = {}, {}", statistic, test.chiSquare->df,
                       fourDecimals(test.chiSquare->value),
                       test.exact ? quotedP(test.exact->p, "exact")
                                  : quotedP(test.chiSquare->p, "chi-square approximation"));
}

/// A sentence with those behind it on which groups differ, and on the trend.
template <typename Test>
std::string withDifferences(std::string sentence, const Test& test, const Details& details) {
    return std::move(sentence) + ". " + differencesText(test.comparisons, details.choices);
}

std::string withTrend(std::string sentences, const std::optional<statistics::Trend>& trend,
                      const Details& details) {
    return trend && trend->normal ? std::move(sentences) + ' ' + trendText(*trend, details.choices)
                                  : sentences;
}

std::string quote(const statistics::Median& test, const Details& details) {
    return !test.chiSquare ? ""
                           : withDifferences(fmt::format("Mood's median test of {} ({}): {}{}",
                                                         counted(test.groups.size(), "group", "groups"),
                                                         counted(test.n, "value", "values"),
                                                         quotedChiSquare("chi-square", test),
                                                         quoted("Cramer's V", test.cramerV, details)),
                                             test, details);
}

std::string quote(const statistics::KruskalWallis& test, const Details& details) {
    return !test.chiSquare
               ? ""
               : withTrend(withDifferences(
                               fmt::format("Kruskal-Wallis test of {} ({}): {}{}",
                                           counted(test.groups.size(), "group", "groups"),
                                           counted(test.n, "value", "values"), quotedChiSquare("H", test),
                                           quoted("epsilon squared", test.epsilonSquared, details)),
                               test, details),
                           test.trend, details);
}

std::string quote(const statistics::Friedman& test, const Details& details) {
    return !test.chiSquare
               ? ""
               : withTrend(withDifferences(fmt::format("Friedman test of {} in {}: {}{}",
                                                       counted(test.treatments, "treatment", "treatments"),
                                                       counted(test.blocks, "block", "blocks"),
                                                       quotedChiSquare("chi-square", test),
                                                       quoted("Kendall's W", test.kendallW, details)),
                                           test, details),
                           test.trend, details);
}

}  // namespace

std::string quotableSentence(const Details& details) {
    return std::visit([&](const auto& test) { return quote(test, details); }, details.result);
}

}  // namespace TBVNonPara::rendering
