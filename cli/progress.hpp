#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace TBVNonPara::cli {

/// A line on standard error that says what is going on, from one second on, and is gone at the end. Only on
/// a terminal.
class Progress {
 public:
    explicit Progress(std::string task);
    ~Progress() { end(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void next(std::string task);
    void end();

 private:
    void show();

    std::mutex m_Mutex;
    std::condition_variable m_Changed;
    std::string m_Task;
    bool m_Ended = false;
    std::thread m_Thread;
};

}  // namespace TBVNonPara::cli
