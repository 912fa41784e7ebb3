#include "cli/progress.hpp"

#include <chrono>
#include <cstdio>
#include <fmt/format.h>
#include <utility>

#include "cli/terminal.hpp"

namespace TBVNonPara::cli {

Progress::Progress(std::string task) : m_Task(std::move(task)) {
    if (showsProgress()) {
        m_Thread = std::thread([this] { show(); });
    }
}

void Progress::next(std::string task) {
    const std::scoped_lock lock(m_Mutex);
    m_Task = std::move(task);
}

void Progress::end() {
    if (!m_Thread.joinable()) {
        return;
    }
    {
        const std::scoped_lock lock(m_Mutex);
        m_Ended = true;
    }
    m_Changed.notify_all();
    m_Thread.join();
}

void Progress::show() {
    std::unique_lock lock(m_Mutex);
    int seconds = 0;
    while (!m_Changed.wait_for(lock, std::chrono::seconds(1), [this] { return m_Ended; })) {
        seconds += 1;
        fmt::print(stderr, "\r\033[K{} ... {} s", m_Task, seconds);
        std::fflush(stderr);
    }
    if (seconds > 0) {
        fmt::print(stderr, "\r\033[K");
        std::fflush(stderr);
    }
}

}  // namespace TBVNonPara::cli
