#include "tests/whole/scenarios/scenario.hpp"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

#include "tests/whole/scenarios/scenario_files.hpp"

namespace TBVNonPara::Scenarios {

namespace {

const std::filesystem::path folder = scenarioFolder(std::getenv(scenarioFolderVariable));
const std::vector<std::string> scenarios = scenariosIn(folder);

std::string testName(const testing::TestParamInfo<std::string>& info) {
    return testNames(scenarios)[info.index];
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

TEST(ScenarioFolder, HoldsScenarios) {
    EXPECT_FALSE(scenarios.empty()) << "no .txt file in " << folder;
}

class ScenarioTest : public testing::TestWithParam<std::string> {};

TEST_P(ScenarioTest, GivesItsReport) {
    const std::filesystem::path receivedFile = folder / (GetParam() + ".received");
    std::filesystem::remove(receivedFile);

    const Scenario expected = readScenario(textOf(folder / (GetParam() + ".txt")));
    const std::unique_ptr<ScenarioHost> host = createScenarioHost();
    const Outcome outcome = play(expected, *host);
    EXPECT_TRUE(outcome.differences.empty()) << report(outcome, receivedFile);
}

INSTANTIATE_TEST_SUITE_P(Scenarios, ScenarioTest, testing::ValuesIn(scenarios), testName);

}  // namespace

}  // namespace TBVNonPara::Scenarios
