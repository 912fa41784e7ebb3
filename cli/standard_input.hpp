#pragma once

#include <string>

namespace TBVNonPara::cli {

/// Everything that standard input holds. Raises the host's error when it cannot be read to its end.
[[nodiscard]] std::string readStandardInput();

}  // namespace TBVNonPara::cli
