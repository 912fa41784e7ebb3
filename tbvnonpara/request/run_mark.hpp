#pragma once

#include <atomic>
#include <memory>
#include <utility>

#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara {

/// Marks a run for as long as it lives. All runs build their reports on one scratch sheet, so that a run
/// inside another would take the outer one's report away: it is refused with tbvNPRunInProgress.
class RunMark {
 public:
    explicit RunMark(std::shared_ptr<std::atomic<bool>> running) : m_Running(std::move(running)) {
        if (m_Running->exchange(true)) {
            throw Error(tbvNPRunInProgress,
                        "Another run has not ended yet, and both would build their report on the same sheet. "
                        "Call Results again when it has ended, not from an event that it causes.");
        }
    }
    RunMark(const RunMark&) = delete;
    RunMark& operator=(const RunMark&) = delete;
    ~RunMark() { *m_Running = false; }

 private:
    std::shared_ptr<std::atomic<bool>> m_Running;
};

}  // namespace TBVNonPara
