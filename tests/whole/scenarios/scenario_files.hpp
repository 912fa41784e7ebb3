#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace TBVNonPara::Scenarios {

/// The environment variable by which anyone can have a folder of their own played.
constexpr const char* scenarioFolderVariable = "TBVNONPARA_SCENARIO_FOLDER";

/// That variable's folder; the project's scenarios where it is not set or empty.
[[nodiscard]] std::filesystem::path scenarioFolder(const char* variable);

/// The scenarios in a folder and the folders in it, in order and without ".txt": mann_whitney/two_tailed.
/// None where there is no such folder.
[[nodiscard]] std::vector<std::string> scenariosIn(const std::filesystem::path& folder);

/// A name in letters, digits and underscores for each, no two of them alike.
[[nodiscard]] std::vector<std::string> testNames(const std::vector<std::string>& scenarios);

[[nodiscard]] std::string textOf(const std::filesystem::path& file);

}  // namespace TBVNonPara::Scenarios
