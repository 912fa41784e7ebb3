#pragma once

#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara::rendering {

/// A text as it stands in a page or a drawing, in an attribute too.
[[nodiscard]] TBVNONPARA_API std::string inHtml(std::string_view text);

}  // namespace TBVNonPara::rendering
