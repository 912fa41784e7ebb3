#include <cmath>
#include <gtest/gtest.h>
#include <string>

#include "tests/statistics/tests_by_name.hpp"
#include "tests/support/reference_rows.hpp"

namespace TBVNonPara::statistics {
namespace {

using Support::numberLists;
using Support::referenceRows;

/// The sample that a script beside the figures makes, too: "length:seed:of:shift" (Park and Miller 1988).
std::vector<double> madeSample(const std::string& text) {
    const std::vector<std::string> asked = Support::fieldsOf(text, ':');
    std::vector<double> values(std::stoul(asked[0]));
    double x = std::stod(asked[1]);
    for (double& value : values) {
        x = std::fmod(16807 * x, 2147483647);
        value = std::fmod(x, std::stod(asked[2])) + std::stod(asked[3]);
    }
    return values;
}

Lists samplesOf(const std::string& text) {
    if (text.find(':') == std::string::npos) {
        return numberLists(text);
    }
    Lists samples;
    for (const std::string& sample : Support::fieldsOf(text, '|')) {
        samples.push_back(madeSample(sample));
    }
    return samples;
}

/// Whether two groups share a letter.
bool sharesALetter(const Figure& figures, const std::string& first, const std::string& second) {
    const auto letters = [&](const std::string& group) {
        return std::get<std::string>(find(figures, "letters." + group)->value);
    };
    return letters(first).find_first_of(letters(second)) != std::string::npos;
}

/// Twelve digits; but R adds up noncentral F until 1e-9 is left, and SciPy takes the tails of t as 1 less the
/// rest.
double toleranceOf(const std::string& path, double expected) {
    if (path.starts_with("effect.epsilonSquared.") || path.starts_with("effect.kendallW.")) {
        return 1e-8;
    }
    return path.starts_with("robust.") || expected == 0 ? 1e-12 : 1e-12 * std::abs(expected);
}

/// A path is a figure's, or "alike.1.2".
void expectFigure(const Figure& figures, const std::string& path, const std::string& value) {
    if (value == "null") {
        const std::string block = path.substr(0, path.rfind('.'));
        EXPECT_TRUE(find(figures, path) != nullptr || find(figures, block) != nullptr) << path;
        EXPECT_FALSE(exists(figures, path)) << path;
    } else if (path.starts_with("alike.")) {
        const std::vector<std::string> steps = Support::fieldsOf(path, '.');
        EXPECT_EQ(sharesALetter(figures, steps[1], steps[2]), value == "1") << path;
    } else if (const auto* text = std::get_if<std::string>(&find(figures, path)->value)) {
        EXPECT_EQ(*text, value) << path;
    } else {
        const double expected = std::stod(value);
        EXPECT_NEAR(numberAt(figures, path), expected, toleranceOf(path, expected)) << path;
    }
}

Options optionsFor(std::string_view file, double confidence) {
    Options options{.confidence = confidence, .trend = file == "trend.csv"};
    if (file == "permutations.csv") {
        options.exactSteps = 0;
        options.permutations = 999;
        options.seed = 7;
    }
    return options;
}

class Reference : public testing::TestWithParam<const char*> {};

TEST_P(Reference, HasTheSameFigures) {
    Figure figures;
    std::string about;
    for (const std::vector<std::string>& row : referenceRows(GetParam())) {
        if (!row[0].empty()) {
            about = row[0] + " of " + row[1];
            figures = figuresOfTest(row[0], samplesOf(row[1]), optionsFor(GetParam(), std::stod(row[2])));
        }
        SCOPED_TRACE(about);
        expectFigure(figures, row[3], row[4]);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, Reference,
                         testing::Values("details.csv", "details_counts.csv", "long.csv", "long_counts.csv",
                                         "trend.csv", "permutations.csv"),
                         [](const auto& file) { return Support::fieldsOf(file.param, '.').front(); });

}  // namespace
}  // namespace TBVNonPara::statistics
