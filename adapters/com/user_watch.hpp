#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include "adapters/com/host_object.hpp"
#include "adapters/com/system_library.hpp"

namespace TBVNonPara::com {

/// Esc, held down in a window of this process. Another application's is not for us.
class EscapeKey {
 public:
    [[nodiscard]] bool isHeld() const;

 private:
    SystemLibrary m_User{L"user32.dll"};
    decltype(&GetForegroundWindow) m_ForegroundWindow =
        m_User.function<decltype(GetForegroundWindow)>("GetForegroundWindow");
    decltype(&GetWindowThreadProcessId) m_ThreadAndProcess =
        m_User.function<decltype(GetWindowThreadProcessId)>("GetWindowThreadProcessId");
    decltype(&GetAsyncKeyState) m_KeyState = m_User.function<decltype(GetAsyncKeyState)>("GetAsyncKeyState");
};

/// A long count as the application's user sees it: the status bar says how far it is, and Esc ends it. The
/// status bar is given back at the end. An application that has none is not bothered.
class UserWatch {
 public:
    using Clock = std::chrono::steady_clock;

    /// `stops` says whether the user wants the count to end.
    explicit UserWatch(std::function<ComPtr<IDispatch>()> findApplication,
                       std::function<bool()> stops = whileEscapeIsHeld(),
                       std::function<Clock::time_point()> now = Clock::now);
    UserWatch(const UserWatch&) = delete;
    UserWatch& operator=(const UserWatch&) = delete;
    ~UserWatch();

    /// The share that is done, 0 to 1. Raises UserInterrupt where the user wants the count to end.
    void tell(double share);

 private:
    /// The key is looked for when a count first asks: most counts are short.
    [[nodiscard]] static std::function<bool()> whileEscapeIsHeld();

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
