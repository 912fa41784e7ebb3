#include "tbvnonpara/distributions/long_count.hpp"

#include <algorithm>

namespace TBVNonPara {

namespace {

thread_local const CountWatch* watchOfThread = nullptr;

/// Some hundredths of a second.
constexpr double stepsBetween = 1 << 24;

}  // namespace

WatchedCounts::WatchedCounts(const CountWatch& watch) : m_Before(watchOfThread) {
    watchOfThread = watch ? &watch : nullptr;
}

WatchedCounts::~WatchedCounts() {
    watchOfThread = m_Before;
}

LongCount::LongCount(double steps) : m_Steps(steps) {
    if (watchOfThread != nullptr) {
        m_Next = stepsBetween;
    }
}

void LongCount::tell() {
    m_Next = m_Done + stepsBetween;
    (*watchOfThread)(std::min(m_Done / m_Steps, 1.0));
}

}  // namespace TBVNonPara
