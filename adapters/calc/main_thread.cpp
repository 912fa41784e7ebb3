#include "adapters/calc/main_thread.hpp"

#include <atomic>
#include <chrono>
#include <com/sun/star/awt/AsyncCallback.hpp>
#include <com/sun/star/awt/XCallback.hpp>
#include <cppuhelper/implbase1.hxx>
#include <dlfcn.h>
#include <exception>
#include <future>
#include <memory>
#include <sys/syscall.h>
#include <unistd.h>

namespace TBVNonPara::calc {

namespace {

/// On Linux the first thread of a process bears the process's number.
bool isMainThread() {
    return syscall(SYS_gettid) == getpid();
}

class Callback : public cppu::WeakImplHelper1<css::awt::XCallback> {
 public:
    explicit Callback(std::function<void()> work) : m_Work(std::move(work)) {}
    void SAL_CALL notify(const css::uno::Any&) override { m_Work(); }

 private:
    std::function<void()> m_Work;
};

/// Work for the main thread that the one who asked can take back until it has begun.
class Errand {
 public:
    explicit Errand(std::function<void()> work) : m_Work(std::move(work)) {}

    // Whoever sets "taken" first owns the work: either it runs, or the one who asked goes on without it. It
    // never runs after wait() has returned, when what it refers to may be gone.
    void run() {
        if (m_Taken.exchange(true)) {
            return;
        }
        m_Begun.set_value();
        try {
            m_Work();
            m_Done.set_value();
        } catch (...) {
            m_Done.set_exception(std::current_exception());
        }
    }

    /// Whether the work was done.
    bool wait() {
        // The main thread may itself be waiting for this one, in a macro or a call from another process; then
        // nobody would ever begin.
        constexpr std::chrono::milliseconds patience(500);
        if (m_Begun.get_future().wait_for(patience) != std::future_status::ready && !m_Taken.exchange(true)) {
            return false;
        }
        m_Done.get_future().get();
        return true;
    }

 private:
    std::function<void()> m_Work;
    std::atomic<bool> m_Taken = false;
    std::promise<void> m_Begun;
    std::promise<void> m_Done;
};

}  // namespace

bool isInsideOffice() noexcept {
    // A function that only the office's own process holds.
    static const bool inside = dlsym(RTLD_DEFAULT, "soffice_main") != nullptr;
    return inside;
}

void whenIdle(const Context& context, std::function<void()> work) {
    css::awt::AsyncCallback::create(context)->addCallback(new Callback(std::move(work)), css::uno::Any());
}

bool tryOnMainThread(const Context& context, const std::function<void()>& work) {
    if (isMainThread()) {
        work();
        return true;
    }
    const auto errand = std::make_shared<Errand>(work);
    whenIdle(context, [errand] { errand->run(); });
    return errand->wait();
}

}  // namespace TBVNonPara::calc
