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

/// A scenario as a host without empty texts gives it: a cell that should hold one is blank.
std::string withoutEmptyTexts(const std::string& text) {
    std::istringstream lines(text);
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        for (std::size_t at = line.find("\"\""); at != std::string::npos; at = line.find("\"\"")) {
            line.replace(at, 2, "  ");
        }
        line.erase(line.find_last_not_of(' ') + 1);
        result += line + '\n';
    }
    return result;
}

/// A scenario as it is compared on a host.
std::string comparable(const Scenario& scenario, const ScenarioHost& host) {
    const std::string text = writeScenario(scenario);
    return host.keepsEmptyTexts() ? text : withoutEmptyTexts(text);
}

class ScenarioTest : public testing::TestWithParam<std::string> {};

TEST_P(ScenarioTest, GivesItsReport) {
    const std::filesystem::path file = folder / (GetParam() + ".txt");
    const std::filesystem::path receivedFile = folder / (GetParam() + ".received");
    std::filesystem::remove(receivedFile);

    const Scenario expected = readScenario(textOf(file));
    const std::unique_ptr<ScenarioHost> host = createScenarioHost();
    const Scenario received = play(expected, *host);
    if (comparable(received, *host) != comparable(expected, *host)) {
        std::ofstream(receivedFile) << writeScenario(received);
        EXPECT_EQ(comparable(expected, *host), comparable(received, *host))
            << receivedFile << " is what was received";
    }
}

INSTANTIATE_TEST_SUITE_P(Scenarios, ScenarioTest, testing::ValuesIn(allScenarios()), testName);

}  // namespace

}  // namespace TBVNonPara::Scenarios
