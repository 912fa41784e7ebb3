#include <csignal>

#include "cli/program.hpp"

int main(int count, char** words) {
#ifdef SIGPIPE
    // A reader that goes away is an output that fails, with a message and a status of its own.
    std::signal(SIGPIPE, SIG_IGN);
#endif
#ifdef SIGXFSZ
    // So is a file that grows beyond what is allowed.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    return TBVNonPara::cli::runProgram(count, words);
}
