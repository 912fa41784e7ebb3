#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/calc/analysis_settings.hpp"

namespace TBVNonPara::calc {

/// A request as one formula: its choices as texts, then the references of the report's cells and of the areas
/// of the data, which the spreadsheet keeps right wherever the cells go.
struct RequestText {
    AnalysisSettings settings;  ///< without addresses
    std::string fingerprint;    ///< of the report's cells as they were placed
    std::string report;
    std::vector<std::string> first;
    std::vector<std::string> second;
    std::vector<std::string> groups;
    std::vector<std::string> blocks;

    friend bool operator==(const RequestText&, const RequestText&) = default;
};

/// For example CHOOSE(1;"v=1&method=0";$Results.$A$1:$D$9;$Data.$A$1:$A$7): what is no reference alone is not
/// offered where ranges are.
[[nodiscard]] std::string formulaOf(const RequestText& request);

/// None for what was not written by this version; a reference that the spreadsheet lost has "#REF!" in it.
[[nodiscard]] std::optional<RequestText> readRequest(std::string_view formula);

[[nodiscard]] bool isLost(std::string_view reference) noexcept;

}  // namespace TBVNonPara::calc
