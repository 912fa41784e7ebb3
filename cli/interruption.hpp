#pragma once

#include <csignal>

namespace TBVNonPara::cli {

/// For as long as it lives, the first Ctrl+C (SIGINT) is noted instead of ending the program; the second one
/// ends it as ever.
class Interruption {
 public:
    Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;
    ~Interruption();

    /// Whether there has been one.
    [[nodiscard]] static bool noted() noexcept;

 private:
    struct sigaction m_Before {};
};

}  // namespace TBVNonPara::cli
