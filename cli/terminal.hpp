#pragma once

#include <cstddef>

namespace TBVNonPara::cli {

/// Whether standard output is a terminal that wants colour: not with NO_COLOR set to anything, nor on a dumb
/// terminal.
[[nodiscard]] bool wantsColour();

/// Whether standard output is a terminal of any kind.
[[nodiscard]] bool writesToTerminal();

/// The columns of the terminal that standard output is; 0 where it is none or does not tell.
[[nodiscard]] std::size_t terminalWidth();

/// Whether standard error is a terminal that can rewrite a line.
[[nodiscard]] bool showsProgress();

}  // namespace TBVNonPara::cli
