#pragma once

#include <string>
#include <string_view>

#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/report/clsNonParaOutput.hpp"

namespace TBVNonPara {

/// The statement of the alternative: "1-tailed Test (Before > After)", and "2-tailed Test" for every value
/// of `tails` that names no side; only a one-tailed statement reads the names. `test` stands for "Test".
[[nodiscard]] std::string alternative(const Labels& names, TBVNPTails tails, std::string_view test = "Test");

}  // namespace TBVNonPara
