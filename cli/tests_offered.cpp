#include "cli/tests_offered.hpp"

#include <array>

namespace TBVNonPara::cli {

namespace {

constexpr std::string_view namesHelp = "greater: the first variable lies above the second;\nless: below it";

constexpr auto table = std::to_array<OfferedTest>({
    {tbvNPMannU, "mann-whitney", "Mann-Whitney", "Mann-Whitney U: two independent samples",
     DataShape::TwoSamples, true, true, "", "", namesHelp, "mann-whitney examples/permeability.csv"},
    {tbvNPWilcoxon, "wilcoxon", "Wilcoxon", "Wilcoxon signed ranks: pairs of observations", DataShape::Pairs,
     true, true, "", "", namesHelp, "wilcoxon examples/sleep.csv --ignore-ties"},
    {tbvNPSpearman, "spearman", "Spearman", "Spearman rank correlation of two variables", DataShape::Pairs,
     true, true, "positive", "negative",
     "greater or positive: a positive correlation;\nless or negative: a negative one",
     "spearman examples/tuna.csv --tails positive"},
    {tbvNPSign, "sign", "sign", "sign test: pairs, or one column of 1, -1 and 0", DataShape::CodesOrPairs,
     false, true, "", "", namesHelp, "sign examples/maize.csv --y Crossed --x Self"},
    {tbvNPMedian, "median", "median", "Mood median test: several independent groups", DataShape::Groups, true,
     false, "", "", "", "median examples/sprays.csv --y A:C"},
    {tbvNPFriedman, "friedman", "Friedman", "Friedman: several treatments in blocks", DataShape::Blocks, true,
     false, "", "", "", "friedman examples/rounding.csv --descriptives"},
    {tbvNPKWallis, "kruskal-wallis", "Kruskal-Wallis", "Kruskal-Wallis: several independent groups",
     DataShape::Groups, true, false, "", "", "", "kruskal-wallis examples/chicks.csv --format json"},
    {tbvNPWWRuns, "runs", "runs", "Wald-Wolfowitz runs: is the order of a sequence random",
     DataShape::Sequence, false, true, "fewer", "more",
     "greater or fewer: fewer runs than expected;\nless or more: more runs than expected",
     "runs examples/huron.csv --tails fewer"},
});

}  // namespace

std::span<const OfferedTest> offeredTests() noexcept {
    return table;
}

}  // namespace TBVNonPara::cli
