#include "tbvnonpara/request/tests_offered.hpp"

#include <array>

namespace TBVNonPara {

namespace {

// clang-format off
constexpr auto catalogue = std::to_array<OfferedTest>({
    // method       name              title             summary                                                shape                  descriptives, tails
    {tbvNPMannU,    "mann-whitney",   "Mann-Whitney",   "Mann-Whitney U: two independent samples",             DataShape::TwoSamples,   true,  true},
    {tbvNPWilcoxon, "wilcoxon",       "Wilcoxon",       "Wilcoxon signed ranks: pairs of observations",        DataShape::Pairs,        true,  true},
    {tbvNPSpearman, "spearman",       "Spearman",       "Spearman rank correlation of two variables",          DataShape::Pairs,        true,  true},
    {tbvNPSign,     "sign",           "sign",           "sign test: pairs, or one column of 1, -1 and 0",      DataShape::CodesOrPairs, false, true},
    {tbvNPMedian,   "median",         "median",         "Mood median test: several independent groups",        DataShape::Groups,       true,  false},
    {tbvNPFriedman, "friedman",       "Friedman",       "Friedman: several treatments in blocks",              DataShape::Blocks,       true,  false},
    {tbvNPKWallis,  "kruskal-wallis", "Kruskal-Wallis", "Kruskal-Wallis: several independent groups",          DataShape::Groups,       true,  false},
    {tbvNPWWRuns,   "runs",           "runs",           "Wald-Wolfowitz runs: is the order of a sequence random", DataShape::Sequence,  false, true},
});
// clang-format on

}  // namespace

std::span<const OfferedTest> offeredTests() noexcept {
    return catalogue;
}

}  // namespace TBVNonPara
