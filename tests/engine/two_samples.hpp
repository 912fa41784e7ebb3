#pragma once

#include <gtest/gtest.h>

#include "tests/support/engine_fixture.hpp"
#include "tests/support/raised.hpp"
#include "tests/support/reference_rows.hpp"

/// What the tests of two samples share.
namespace TBVNonPara::Support {

/// The alternative as the reference tables name it.
inline TBVNPTails tailsOf(const std::string& alternative) {
    if (alternative == "two") {
        return tbvNPTwoTailed;
    }
    return alternative == "greater" ? tbvNPVar1GTVar2 : tbvNPVar1LTVar2;
}

/// A row of tests/reference/two_sample.csv: what the other package found for the samples.
struct ReferencePair {
    std::string samples;
    std::string alternative;
    ValueGrid ys;
    ValueGrid xs;
    double statistic;
    double P;

    [[nodiscard]] LoadedEngine loaded(TBVNPMethod method) const {
        return {method, tailsOf(alternative), ys, xs};
    }
};

inline std::vector<ReferencePair> referencePairs(const std::string& test) {
    std::vector<ReferencePair> pairs;
    for (const auto& row : referenceRows("two_sample.csv")) {
        if (row.at(0) == test) {
            pairs.push_back({row.at(2), row.at(1), asColumns(numberLists(row.at(2))),
                             asColumns(numberLists(row.at(3))), std::stod(row.at(4)), std::stod(row.at(5))});
        }
    }
    return pairs;
}

/// The summaries under a descriptive table, one number a column.
struct Summaries {
    std::vector<double> mediansRaw, sumsRaw, nsRaw;
    std::vector<double> mediansRank, sumsRank, nsRank;
};

inline void expectSummaries(const clsNonParaBO& engine, const Summaries& expected) {
    EXPECT_EQ(numbers(engine.GetMediansRaw()), expected.mediansRaw);
    EXPECT_EQ(numbers(engine.GetSumsRaw()), expected.sumsRaw);
    EXPECT_EQ(numbers(engine.GetNsRaw()), expected.nsRaw);
    EXPECT_EQ(numbers(engine.GetMediansRank()), expected.mediansRank);
    EXPECT_EQ(numbers(engine.GetSumsRank()), expected.sumsRank);
    EXPECT_EQ(numbers(engine.GetNsRank()), expected.nsRank);
}

/// Two samples on which an analysis fails, and the error's number.
struct PairFailure {
    std::string name;
    Cells ys;
    Cells xs;
    std::int32_t number;
};

}  // namespace TBVNonPara::Support
