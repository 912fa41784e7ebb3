#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "tests/scenarios/scenario.hpp"

namespace TBVNonPara::Scenarios {

namespace {

const std::filesystem::path folder = std::filesystem::path(TBVNONPARA_TESTS) / "scenarios";

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

class ScenarioTest : public testing::TestWithParam<std::string> {};

/// The spreadsheet keeps no empty text as a value: on its sheets "" is a blank cell.
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

TEST_P(ScenarioTest, GivesTheReportOfTheEmbeddedWorkbook) {
    const Scenario expected = readScenario(textOf(folder / (GetParam() + ".txt")));
    const Scenario received = play(expected, *createScenarioHost());
    EXPECT_EQ(withoutEmptyTexts(writeScenario(expected)), withoutEmptyTexts(writeScenario(received)));
}

INSTANTIATE_TEST_SUITE_P(Scenarios, ScenarioTest, testing::ValuesIn(allScenarios()), testName);

}  // namespace

}  // namespace TBVNonPara::Scenarios
