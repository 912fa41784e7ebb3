#include "tests/adapters/com/client_cases.hpp"

#include "tbvnonpara/core/enumerations.hpp"

namespace TBVNonPara::com {

void PrintTo(const ClientTest& test, std::ostream* out) {
    *out << test.name;
}

void PrintTo(const Refusal& refusal, std::ostream* out) {
    *out << refusal.name;
}

ValueGrid testedCells() {
    return {{"a", "b", "s", "g"}, {1.0, 4.5, 1.0, 1.0}, {2.0, 5.0, -1.0, 1.0},
            {3.5, 6.0, 1.0, 2.0}, {3.0, 2.5, 0.0, 2.0}, {5.0, 9.0, 1.0, 2.0}};
}

ValueGrid refusedCells() {
    return {{"a", "b", "s"}, {1.0, 4.0, 1.0}, {2.0, 5.0, 2.0}, {3.0, 6.0, -1.0}};
}

// clang-format off
const std::vector<ClientTest>& clientTests() {
    static const std::vector<ClientTest> tests = {
        {"MannWhitney",   ::tbvNPMannU,    "Data!A1:A6", "Data!B1:B6", "Mann-Whitney Test Results for:"},
        {"Wilcoxon",      ::tbvNPWilcoxon, "Data!A1:A6", "Data!B1:B6", "Wilcoxon Paired-Sample Test Results for:"},
        {"Spearman",      ::tbvNPSpearman, "Data!A1:A6", "Data!B1:B6", "Spearman Rank Correlation Results for:"},
        {"SignOfPairs",   ::tbvNPSign,     "Data!A1:A6", "Data!B1:B6", "Sign Test Results for:"},
        {"SignOfCodes",   ::tbvNPSign,     "Data!C1:C6", "",           "Sign Test Results for:"},
        {"Median",        ::tbvNPMedian,   "Data!A1:B6", "",           "Mood Median Test Results for:"},
        {"Friedman",      ::tbvNPFriedman, "Data!A1:C6", "",           "Friedman Test Results for:"},
        {"KruskalWallis", ::tbvNPKWallis,  "Data!A1:B6", "",           "Kruskal-Wallis Test Results for:"},
        {"Runs",          ::tbvNPWWRuns,   "Data!D1:D6", "",           "Wald-Wolfowitz Runs Test Results for:"},
    };
    return tests;
}
// clang-format on

// clang-format off
const std::vector<Refusal>& refusals() {
    static const std::vector<Refusal> refusals = {
        {"NoSuchYRange",           ::tbvNPMannU,    0,  "Nowhere!A1", "",           tbvNPBadYRange,     0, tbvNPNoYRange},
        {"EmptyYRange",            ::tbvNPMannU,    0,  "",           "",           tbvNPNoYRange,      0, tbvNPNoYRange},
        {"NoSuchXRange",           ::tbvNPMannU,    0,  "Data!A2:A4", "Data!??",    0, tbvNPBadXRange,     tbvNPNoXRange},
        {"NoXRange",               ::tbvNPSpearman, 0,  "Data!A2:A4", "",           0, 0,                  tbvNPNoXRange},
        {"UnequalPairs",           ::tbvNPWilcoxon, 0,  "Data!A2:A4", "Data!B2:B3", 0, 0,                  tbvNPUnequalPairs},
        {"OneGroup",               ::tbvNPKWallis,  0,  "Data!A2:A4", "",           tbvNPTooFewGroups,  0, 0},
        {"OneRow",                 ::tbvNPWWRuns,   -1, "Data!A1:A2", "",           0, 0,                  tbvNPTooFewRows},
        {"TwoColumnsOfData",       ::tbvNPSign,     0,  "Data!A2:B4", "",           tbvNPYRangeColumns, 0, 0},
        {"TwoColumnsOfTheSecond",  ::tbvNPMannU,    0,  "Data!A2:A4", "Data!A2:B4", 0, tbvNPXRangeColumns, 0},
        {"CodesOutsideTheSigns",   ::tbvNPSign,     0,  "Data!C2:C4", "",           0, 0,                  TBVNonPara::tbvNPInvalidSignSymbols},
    };
    return refusals;
}
// clang-format on

}  // namespace TBVNonPara::com
