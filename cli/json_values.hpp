#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::cli {

/// A cell as a JSON value: null where it is empty, an error as its text.
[[nodiscard]] nlohmann::ordered_json jsonOf(const CellValue& value);

/// Adds a value on one line to a text. Numbers are the shortest that read back as the same; a number that
/// JSON has no text for is null.
void appendJson(const nlohmann::ordered_json& value, std::string& text);

}  // namespace TBVNonPara::cli
