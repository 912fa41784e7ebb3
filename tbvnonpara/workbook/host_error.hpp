#pragma once

#include <cstdint>
#include <string>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara::workbook {

/// The number of every error of the embedded host; the description says what was wrong, where, and what to
/// do.
constexpr std::int32_t hostErrorNumber = 1004;

[[noreturn]] TBVNONPARA_API void refuse(std::string description);

}  // namespace TBVNonPara::workbook
