#pragma once

#include <string_view>

namespace TBVNonPara::cli {

/// TBVNONPARA_VERSION is the version of the CMake project.
constexpr std::string_view version = TBVNONPARA_VERSION;

}  // namespace TBVNonPara::cli
