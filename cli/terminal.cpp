#include "cli/terminal.hpp"

#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

namespace TBVNonPara::cli {

namespace {

std::string_view variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

bool isCapable() {
    const std::string_view terminal = variable("TERM");
    return !terminal.empty() && terminal != "dumb";
}

}  // namespace

bool wantsColour() {
    return variable("NO_COLOR").empty() && isCapable() && isatty(STDOUT_FILENO) != 0;
}

bool writesToTerminal() {
    return isatty(STDOUT_FILENO) != 0;
}

std::size_t terminalWidth() {
    winsize size{};
    return writesToTerminal() && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

bool showsProgress() {
    return isCapable() && isatty(STDERR_FILENO) != 0;
}

}  // namespace TBVNonPara::cli
