#pragma once

#include <string_view>

namespace TBVNonPara::cli {

/// Writes on standard error.
void tell(std::string_view text);

/// Writes lines on standard error: what names cells cannot act on the terminal.
void tellLines(std::string_view text);

}  // namespace TBVNonPara::cli
