#pragma once

#include <functional>
#include <limits>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara {

/// Told from time to time which share of a long count is done, 0 to 1; a count that follows another begins at
/// 0 again. What it throws ends the count.
using CountWatch = std::function<void(double share)>;

/// For as long as it lives, the long counts of this thread tell the watch; none where it is empty.
class TBVNONPARA_API WatchedCounts {
 public:
    explicit WatchedCounts(const CountWatch& watch);
    WatchedCounts(const WatchedCounts&) = delete;
    WatchedCounts& operator=(const WatchedCounts&) = delete;
    ~WatchedCounts();

 private:
    const CountWatch* m_Before;
};

/// One count, and how many of its steps are done.
class TBVNONPARA_API LongCount {
 public:
    explicit LongCount(double steps);

    void add(double steps) {
        m_Done += steps;
        if (m_Done >= m_Next) {
            tell();
        }
    }

 private:
    void tell();

    double m_Steps;
    double m_Done = 0;
    double m_Next = std::numeric_limits<double>::infinity();
};

}  // namespace TBVNonPara
