#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/engine/named_results.hpp"
#include "tbvnonpara/files/csv/file.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"

// Figures of published data sets, from file to result, beside those of R: golden.R says where each comes
// from.

namespace TBVNonPara {
namespace {

const std::filesystem::path folder = std::filesystem::path(TBVNONPARA_TESTS) / "whole/golden";

// Both sides round in every step; the largest difference seen is printed.
constexpr double tolerance = 1e-12;

struct GoldenFigure {
    std::string data;
    std::string test;
    std::string tails;
    bool ignoreTies = false;
    std::string result;
    double value = 0;
    std::string peer;
    bool differs = false;
};

void PrintTo(const GoldenFigure& figure, std::ostream* out) {
    *out << figure.test << " of " << figure.data << ", " << figure.tails << ", " << figure.result;
}

std::vector<GoldenFigure> readGoldenFigures() {
    const auto application = workbook::makeApplication();
    const auto sheet = workbook::openCsv(*application, folder / "golden.csv");
    const auto text = [&](Index row, Index column) { return toText(sheet->value(row, column)); };
    std::vector<GoldenFigure> figures;
    const auto rows = sheet->usedArea().value().bottom;
    for (Index row = 2; row <= rows; ++row) {
        figures.push_back({.data = text(row, 1),
                           .test = text(row, 2),
                           .tails = text(row, 3),
                           .ignoreTies = text(row, 4) == "1",
                           .result = text(row, 5),
                           .value = toDouble(sheet->value(row, 6)),
                           .peer = text(row, 7),
                           .differs = text(row, 8) == "differs"});
    }
    return figures;
}

const std::map<std::string, TBVNPMethod> methods = {
    {"mann-whitney", tbvNPMannU}, {"wilcoxon", tbvNPWilcoxon},     {"spearman", tbvNPSpearman},
    {"sign", tbvNPSign},          {"median", tbvNPMedian},         {"friedman", tbvNPFriedman},
    {"runs", tbvNPWWRuns},        {"kruskal-wallis", tbvNPKWallis}};

const std::map<std::string, TBVNPTails> alternatives = {
    {"two", tbvNPTwoTailed}, {"greater", tbvNPVar1GTVar2}, {"less", tbvNPVar1LTVar2}};

/// A column below and with its header, without the blank cells at its end.
std::string columnAddress(const workbook::Sheet& sheet, Index column) {
    Index last = sheet.usedArea().value().bottom;
    while (isEmpty(sheet.value(last, column))) {
        last -= 1;
    }
    const char letter = static_cast<char>('A' + column - 1);
    return std::string(1, letter) + "1:" + letter + std::to_string(last);
}

std::vector<NamedResult> resultsOf(const GoldenFigure& figure) {
    const auto application = workbook::makeApplication();
    const auto sheet = workbook::openCsv(*application, folder / "data" / (figure.data + ".csv"));
    const TBVNPMethod method = methods.at(figure.test);
    clsNonPara request(ownCompanions(application));
    request.LetMethod(method);
    request.LetTails(alternatives.at(figure.tails));
    request.LetIgnoreTies(figure.ignoreTies);
    request.LetHeaders(true);
    if (method == tbvNPMedian || method == tbvNPFriedman || method == tbvNPKWallis) {
        const char last = static_cast<char>('A' + sheet->usedArea().value().right - 1);
        request.LetYRange(std::string("A:") + last);
    } else {
        request.LetYRange(columnAddress(*sheet, 1));
        if (method != tbvNPWWRuns) {
            request.LetXRange(columnAddress(*sheet, 2));
        }
    }
    request.Results();
    return namedResults(method, request.engine());
}

/// Counts are numbers, too.
double numberNamed(const std::string& name, const std::vector<NamedResult>& results) {
    const auto found = std::ranges::find(results, name, &NamedResult::name);
    if (found == results.end()) {
        throw std::invalid_argument("no result \"" + name + '"');
    }
    const auto* const count = std::get_if<Long>(&found->value);
    return count != nullptr ? toDouble(*count) : std::get<double>(found->value);
}

double relativeDifference(double value, double expected) {
    return value == expected ? 0 : std::abs(value - expected) / std::max(std::abs(value), std::abs(expected));
}

class Golden : public ::testing::TestWithParam<GoldenFigure> {
 protected:
    static void TearDownTestSuite() {
        for (const auto& [test, difference] : largest) {
            std::cout << test << ": largest relative difference " << difference << '\n';
        }
    }

    static std::map<std::string, double> largest;
};

std::map<std::string, double> Golden::largest;

TEST_P(Golden, AgreesWithThePeerOrDiffersOnPurpose) {
    const GoldenFigure& figure = GetParam();
    const double value = numberNamed(figure.result, resultsOf(figure));
    const double difference = relativeDifference(value, figure.value);
    if (figure.differs) {
        EXPECT_GT(difference, tolerance)
            << value << " equals " << figure.peer << " although it is said to differ";
    } else {
        EXPECT_LE(difference, tolerance) << value << " instead of " << figure.value << " by " << figure.peer;
        largest[figure.test] = std::max(largest[figure.test], difference);
    }
}

INSTANTIATE_TEST_SUITE_P(DataSets, Golden, ::testing::ValuesIn(readGoldenFigures()), [](const auto& each) {
    const GoldenFigure& figure = each.param;
    std::string name = figure.data + "_" + figure.test + "_" + figure.tails + "_" + figure.result + "_" +
                       std::to_string(each.index);
    std::ranges::replace(name, '-', '_');
    return name;
});

}  // namespace
}  // namespace TBVNonPara
