#include "cli/interruption.hpp"

namespace TBVNonPara::cli {

namespace {

volatile std::sig_atomic_t isNoted = 0;

void note(int /*signal*/) {
    isNoted = 1;
}

}  // namespace

Interruption::Interruption() {
    isNoted = 0;
    struct sigaction once {};
    once.sa_handler = note;
    once.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
    sigemptyset(&once.sa_mask);
    sigaction(SIGINT, &once, &m_Before);
    if (m_Before.sa_handler == SIG_IGN) {
        sigaction(SIGINT, &m_Before, nullptr);  // whoever started the program wants it not to be disturbed
    }
}

Interruption::~Interruption() {
    sigaction(SIGINT, &m_Before, nullptr);
}

bool Interruption::noted() noexcept {
    return isNoted != 0;
}

}  // namespace TBVNonPara::cli
