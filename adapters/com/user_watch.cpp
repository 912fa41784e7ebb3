#include "adapters/com/user_watch.hpp"

#include <cmath>
#include <memory>
#include <utility>

#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara::com {

namespace {

// A call to the application takes longer than many steps of a count.
constexpr std::chrono::milliseconds betweenTexts(200);

std::string textOf(double share) {
    return "Counting for the details: " + std::to_string(std::lround(share * 100)) + " % (Esc ends it)";
}

}  // namespace

bool EscapeKey::isHeld() const {
    if (m_ForegroundWindow == nullptr || m_ThreadAndProcess == nullptr || m_KeyState == nullptr) {
        return false;
    }
    DWORD process = 0;
    m_ThreadAndProcess(m_ForegroundWindow(), &process);
    // The sign says that the key is down.
    return process == GetCurrentProcessId() && m_KeyState(VK_ESCAPE) < 0;
}

std::function<bool()> UserWatch::whileEscapeIsHeld() {
    return [key = std::shared_ptr<EscapeKey>()]() mutable {
        if (!key) {
            key = std::make_shared<EscapeKey>();
        }
        return key->isHeld();
    };
}

UserWatch::UserWatch(std::function<ComPtr<IDispatch>()> findApplication, std::function<bool()> stops,
                     std::function<Clock::time_point()> now)
    : m_FindApplication(std::move(findApplication)), m_Stops(std::move(stops)), m_Now(std::move(now)) {
}

UserWatch::~UserWatch() {
    if (!m_Application) {
        return;
    }
    try {
        m_Application->put(L"StatusBar", std::move(m_Before));
    } catch (...) {
        return;
    }
}

void UserWatch::tell(double share) {
    if (m_Stops()) {
        raise(RuntimeError::UserInterrupt);
    }
    const Clock::time_point now = m_Now();
    if (!m_Shown || now - *m_Shown >= betweenTexts) {
        const bool isFirst = !m_Shown;
        m_Shown = now;
        if (isFirst) {
            takeStatusBar();
        }
        show(share);
    }
}

/// Which text the application shows at other times: False stands for its own.
void UserWatch::takeStatusBar() {
    try {
        HostObject application(m_FindApplication(), Kind::Application, std::make_shared<ObjectModel>());
        m_Before = application.get(L"StatusBar");
        m_Application.emplace(std::move(application));
    } catch (...) {
        // The count is what counts.
        return;
    }
}

void UserWatch::show(double share) {
    try {
        if (m_Application) {
            m_Application->put(L"StatusBar", std::string_view(textOf(share)));
        }
    } catch (...) {
        return;
    }
}

}  // namespace TBVNonPara::com
