#include <csignal>

#include "cli/program.hpp"

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

/// Long columns come and go one after the other. What one leaves serves the next, instead of going back to
/// the system, which clears every page that it hands out again: a third of all page faults.
void keepFreedMemory() noexcept {
#ifdef __GLIBC__
    constexpr int largestOfHeap = 32 << 20;  // more is not taken
    constexpr int mostKept = 1 << 30;
    mallopt(M_MMAP_THRESHOLD, largestOfHeap);
    mallopt(M_TRIM_THRESHOLD, mostKept);
#endif
}

}  // namespace

int main(int count, char** words) {
#ifdef SIGPIPE
    // A reader that goes away is an output that fails, with a message and a status of its own.
    std::signal(SIGPIPE, SIG_IGN);
#endif
#ifdef SIGXFSZ
    // So is a file that grows beyond what is allowed.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    keepFreedMemory();
    return TBVNonPara::cli::runProgram(count, words);
}
