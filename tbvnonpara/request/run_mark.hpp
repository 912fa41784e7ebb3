#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara {

/// Marks a run for as long as it lives. A run inside another of the same mark, which would take the outer
/// one's report or figures away, is refused with tbvNPRunInProgress.
class RunMark {
 public:
    /// `procedure` is what the client has called.
    RunMark(std::shared_ptr<std::atomic<bool>> running, std::string_view procedure)
        : m_Running(std::move(running)) {
        if (m_Running->exchange(true)) {
            throw Error(tbvNPRunInProgress,
                        "Another run has not ended yet, and this one would take its place. Call " +
                            std::string(procedure) +
                            " again when it has ended, not from an event that it causes.");
        }
    }
    RunMark(const RunMark&) = delete;
    RunMark& operator=(const RunMark&) = delete;
    ~RunMark() { *m_Running = false; }

 private:
    std::shared_ptr<std::atomic<bool>> m_Running;
};

}  // namespace TBVNonPara
