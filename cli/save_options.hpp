#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "cli/arguments.hpp"

namespace TBVNonPara::cli {

/// The options that say where a report goes.
void offerSaving(CLI::App& command, Arguments& arguments);

/// Settles the form of the file that is saved, by --format or else by the file's ending. Returns what is
/// wrong with the options.
[[nodiscard]] std::optional<std::string> settleSaving(Arguments& arguments, bool formatGiven);

}  // namespace TBVNonPara::cli
