#include "tests/whole/scenarios/scenario.hpp"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace TBVNonPara::Scenarios {

namespace {

const std::filesystem::path folder = std::filesystem::path(TBVNONPARA_TESTS) / "whole/scenarios";

std::string textOf(const std::filesystem::path& file) {
    std::ifstream stream(file);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

/// mann_whitney/two_tailed, and so on.
std::vector<std::string> allScenarios() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".txt" && entry.path().filename() != "CMakeLists.txt") {
            names.push_back(entry.path().lexically_relative(folder).replace_extension().generic_string());
        }
    }
    std::ranges::sort(names);
    return names;
}

std::string testName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::ranges::replace_if(
        name, [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

/// What a scenario that does not hold says, and where it lies as it was received.
std::string report(const Outcome& outcome, const std::filesystem::path& file) {
    std::string text;
    for (const std::string& difference : outcome.differences) {
        text += difference + '\n';
    }
    std::ofstream stream(file);
    stream << writeScenario(outcome.received);
    return text + file.string() + (stream.flush() ? " is what was received" : " cannot be written");
}

class ScenarioTest : public testing::TestWithParam<std::string> {};

TEST_P(ScenarioTest, GivesItsReport) {
    const std::filesystem::path file = folder / (GetParam() + ".txt");
    const std::filesystem::path receivedFile = folder / (GetParam() + ".received");
    std::filesystem::remove(receivedFile);

    const Scenario expected = readScenario(textOf(file));
    const std::unique_ptr<ScenarioHost> host = createScenarioHost();
    const Outcome outcome = play(expected, *host);
    EXPECT_TRUE(outcome.differences.empty()) << report(outcome, receivedFile);
}

INSTANTIATE_TEST_SUITE_P(Scenarios, ScenarioTest, testing::ValuesIn(allScenarios()), testName);

}  // namespace

}  // namespace TBVNonPara::Scenarios
