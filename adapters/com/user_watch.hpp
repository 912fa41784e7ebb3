#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include "adapters/com/host_object.hpp"

namespace TBVNonPara::com {

/// Whether the user holds Esc down, in a window of this process.
[[nodiscard]] bool escapeIsHeld();

/// A long count as the application's user sees it: the status bar says how far it is, and Esc ends it. The
/// status bar is given back at the end. An application that has none is not bothered.
class UserWatch {
 public:
    using Clock = std::chrono::steady_clock;

    explicit UserWatch(std::function<ComPtr<IDispatch>()> findApplication,
                       std::function<bool()> stops = escapeIsHeld,
                       std::function<Clock::time_point()> now = Clock::now);
    UserWatch(const UserWatch&) = delete;
    UserWatch& operator=(const UserWatch&) = delete;
    ~UserWatch();

    /// The share that is done, 0 to 1. Raises UserInterrupt where the user wants the count to end.
    void tell(double share);

 private:
    void takeStatusBar();
    void show(double share);

    std::function<ComPtr<IDispatch>()> m_FindApplication;
    std::function<bool()> m_Stops;
    std::function<Clock::time_point()> m_Now;
    std::optional<Clock::time_point> m_Shown;
    std::optional<HostObject> m_Application;  ///< one whose status bar is ours
    Variant m_Before;
};

}  // namespace TBVNonPara::com
