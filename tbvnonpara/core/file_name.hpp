#pragma once

#include <filesystem>
#include <string>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara {

/// A path as text for messages and names: a byte that is no UTF-8 becomes an underline, so that whoever shows
/// or stores the text can rely on it.
[[nodiscard]] TBVNONPARA_API std::string shown(const std::filesystem::path& path);

}  // namespace TBVNonPara
