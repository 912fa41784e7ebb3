#pragma once

#include <cmath>
#include <gtest/gtest.h>

#include "tests/support/engine_fixture.hpp"
#include "tests/support/reference_rows.hpp"

/// What the tests of the Friedman and of the Kruskal-Wallis test share: samples side by side, and two
/// statistics with their probabilities.
namespace TBVNonPara::Support {

/// An engine that is ready to analyse samples; `Samples<tbvNPFriedman>(values)`.
template <TBVNPMethod method>
struct Samples : LoadedEngine {
    explicit Samples(const ValueGrid& values) : LoadedEngine(method, tbvNPTwoTailed, values, CellValue()) {}
};

/// The same with the analysis done.
template <TBVNPMethod method>
struct AnalysedSamples : Samples<method> {
    explicit AnalysedSamples(const ValueGrid& values) : Samples<method>(values) { this->engine.Analyse(); }
};

/// A result by its name in tests/reference/k_samples.csv.
inline double resultNamed(const clsNonParaBO& engine, const std::string& name) {
    return name == "chi_square" ? engine.GetChiSq()
           : name == "p"        ? engine.GetP()
           : name == "f"        ? engine.GetAlternateStat()
                                : engine.GetAlternateP();
}

/// Compares the engine with the rows that a test has in tests/reference/k_samples.csv; how many there were.
/// The statistic is a difference, which loses the digits of its larger part before its own.
template <TBVNPMethod method>
int compareWithR(const std::string& test) {
    int compared = 0;
    for (const auto& row : referenceRows("k_samples.csv")) {
        if (row.at(0) != test) {
            continue;
        }
        const AnalysedSamples<method> analysed(asColumns(numberLists(row.at(1))));
        const double expected = std::stod(row.at(3));
        EXPECT_NEAR(resultNamed(analysed.engine, row.at(2)), expected, 1e-12 * std::abs(expected))
            << row.at(2) << " of " << row.at(1);
        compared += 1;
    }
    return compared;
}

/// Samples on which an analysis fails, and the error's number.
struct SamplesFailure {
    const char* name;
    std::vector<Cells> samples;
    int number;
    friend void PrintTo(const SamplesFailure& each, std::ostream* out) { *out << each.name; }
};

/// Number and source of the error that the analysis of samples raises.
template <TBVNPMethod method>
std::string failureOfSamples(const ValueGrid& values) {
    Samples<method> test(values);
    return failureOf([&] { test.engine.Analyse(); });
}

}  // namespace TBVNonPara::Support
