#include "tests/whole/scenarios/scenario_files.hpp"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <set>
#include <sstream>

namespace TBVNonPara::Scenarios {

namespace {

bool isScenario(const std::filesystem::path& file) {
    return file.extension() == ".txt" && file.filename() != "CMakeLists.txt";
}

std::string inLettersAndDigits(std::string name) {
    std::ranges::replace_if(
        name, [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

}  // namespace

std::filesystem::path scenarioFolder(const char* variable) {
    return variable != nullptr && *variable != '\0' ? variable : TBVNONPARA_TESTS "/whole/scenarios";
}

std::vector<std::string> scenariosIn(const std::filesystem::path& folder) {
    std::vector<std::string> scenarios;
    std::error_code none;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, none)) {
        if (isScenario(entry.path())) {
            scenarios.push_back(entry.path().lexically_relative(folder).replace_extension().generic_string());
        }
    }
    std::ranges::sort(scenarios);
    return scenarios;
}

std::vector<std::string> testNames(const std::vector<std::string>& scenarios) {
    std::vector<std::string> names;
    std::set<std::string> taken;
    for (const std::string& scenario : scenarios) {
        std::string name = inLettersAndDigits(scenario);
        for (int next = 2; !taken.insert(name).second; ++next) {
            name = inLettersAndDigits(scenario) + '_' + std::to_string(next);
        }
        names.push_back(name);
    }
    return names;
}

std::string textOf(const std::filesystem::path& file) {
    std::ifstream stream(file);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

}  // namespace TBVNonPara::Scenarios
