#include "cli/test_words.hpp"

#include <algorithm>
#include <array>

#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara::cli {

namespace {

constexpr std::string_view namesHelp = "greater: the first variable lies above the second;\nless: below it";
constexpr std::string_view correlationHelp =
    "greater or positive: a positive correlation;\nless or negative: a negative one";
constexpr std::string_view runsHelp =
    "greater or fewer: fewer runs than expected;\nless or more: more runs than expected";

// clang-format off
constexpr auto wordsOfTests = std::to_array<TestWords>({
    // method       greater     less        help             example
    {tbvNPMannU,    "",         "",         namesHelp,       "mann-whitney examples/permeability.csv"},
    {tbvNPWilcoxon, "",         "",         namesHelp,       "wilcoxon examples/sleep.csv --ignore-ties"},
    {tbvNPSpearman, "positive", "negative", correlationHelp, "spearman examples/tuna.csv --tails positive"},
    {tbvNPSign,     "",         "",         namesHelp,       "sign examples/maize.csv --y Crossed --x Self"},
    {tbvNPMedian,   "",         "",         "",              "median examples/sprays.csv --y A:C"},
    {tbvNPFriedman, "",         "",         "",              "friedman examples/rounding.csv --descriptives"},
    {tbvNPKWallis,  "",         "",         "",              "kruskal-wallis examples/chicks.csv --format json"},
    {tbvNPWWRuns,   "fewer",    "more",     runsHelp,        "runs examples/huron.csv --tails fewer"},
});
// clang-format on

}  // namespace

const TestWords& wordsOf(const OfferedTest& test) {
    const auto* const found = std::ranges::find(wordsOfTests, test.method, &TestWords::method);
    if (found == wordsOfTests.end()) {
        raise(RuntimeError::SubscriptOutOfRange);
    }
    return *found;
}

}  // namespace TBVNonPara::cli
