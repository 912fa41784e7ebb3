#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tbvnonpara/statistics/options.hpp"

namespace TBVNonPara::calc {

/// What the user wants to be told beside the report.
struct DetailSettings {
    bool wanted = false;
    std::string confidence = "95";  ///< in per cent, as it was typed
    statistics::Adjustment adjustment = statistics::Adjustment::Holm;
    bool picture = false;  ///< of the data, with or without the rest

    friend bool operator==(const DetailSettings&, const DetailSettings&) = default;
};

/// A level as people write it in per cent, "95", "97,5" or "99 %", as a part of 1; none for what is no number
/// from 50 to 99.9.
[[nodiscard]] std::optional<double> levelIn(std::string_view percent);

}  // namespace TBVNonPara::calc
