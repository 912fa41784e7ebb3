#pragma once

namespace TBVNonPara::cli {

/// The program: 0 when everything was written, 1 for an error, 2 for a command line that makes no sense.
int runProgram(int count, const char* const* words);

}  // namespace TBVNonPara::cli
