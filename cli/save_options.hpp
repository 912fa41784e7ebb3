#pragma once

#include <optional>
#include <string>

#include "cli/arguments.hpp"

namespace TBVNonPara::cli {

/// Settles the form of the file that is saved, by --format or else by the file's ending. Returns what is
/// wrong with the options.
[[nodiscard]] std::optional<std::string> settleSaving(Arguments& arguments, bool formatGiven);

}  // namespace TBVNonPara::cli
