#include "tbvnonpara/engine/group_descriptives.hpp"

#include <cmath>
#include <utility>

#include "tbvnonpara/ordering/ranking.hpp"

namespace TBVNonPara {

namespace {

/// Whether nothing can go wrong later: no sum of these values can leave the range of a double, and sorting
/// them has no effect that a client's own utility could wait for.
bool canWait(std::span<const double> values, const ArrayUtility& utility) {
    constexpr double sumsStayInRange = 1e290;  // of more values than any memory holds
    bool small = true;
    for (const double value : values) {
        small &= std::abs(value) <= sumsStayInRange;
    }
    return small && utility.SortsAtAnyTime();
}

bool canWait(const Grid<double>& data, const ArrayUtility& utility) {
    bool all = true;
    for (Long c = 1; all && c <= data.columns(); ++c) {
        all = canWait(data.column(c), utility);
    }
    return all;
}

void rankWhereNobodyHas(const PooledGroups& groups, Array<double>& ranks, const ArrayUtility& utility) {
    if (!ranks.allocated()) {
        Array<double> ranked(groups.values.size());
        rankValues(utility.OrderOf(groups.values.elements()), ranked.elements());
        ranks = std::move(ranked);
    }
}

}  // namespace

void UnreadDescriptives::keep(Grid<double> data, Grid<double> ranks, std::optional<Array<Long>> counts,
                              const ObjectRef<ArrayUtility>& utility) {
    const bool waits = canWait(data, *utility);
    GroupDescriptives& filled = waits ? m_Filled : write(utility);
    filled.data = std::move(data);
    filled.ranks = std::move(ranks);
    if (waits) {
        m_Unread = Unread{std::nullopt, std::move(counts)};
    } else {
        filled.summaries = summariseGroups(filled.data, filled.ranks, *utility, counts);
    }
}

void UnreadDescriptives::keep(PooledGroups groups, Array<double> ranks, Long rows,
                              const ObjectRef<ArrayUtility>& utility) {
    if (canWait(groups.values.elements(), *utility)) {
        Array<Long> counts = groups.counts;
        m_Unread = Unread{Pooled{std::move(groups), std::move(ranks), rows}, std::move(counts)};
        return;
    }
    rankWhereNobodyHas(groups, ranks, *utility);
    GroupDescriptives& filled = write(utility);
    filled.data = spreadOverGroups(std::exchange(groups.values, {}), groups.counts, rows);
    filled.ranks = spreadOverGroups(std::exchange(ranks, {}), groups.counts, rows);
    filled.summaries = summariseGroups(filled.data, filled.ranks, *utility, groups.counts);
}

const GroupDescriptives& UnreadDescriptives::read(const ObjectRef<ArrayUtility>& utility) const {
    if (m_Unread) {
        fill(*utility);
    }
    return m_Filled;
}

GroupDescriptives& UnreadDescriptives::write(const ObjectRef<ArrayUtility>& utility) {
    (void)read(utility);
    return m_Filled;
}

// All or nothing: without memory the next who reads must not be given what an earlier test left.
void UnreadDescriptives::fill(const ArrayUtility& utility) const {
    if (m_Unread->pooled) {
        auto& [groups, ranks, rows] = *m_Unread->pooled;
        rankWhereNobodyHas(groups, ranks, utility);
        GroupDescriptives spread{spreadOverGroups(groups.values, groups.counts, rows),
                                 spreadOverGroups(ranks, groups.counts, rows),
                                 {}};
        m_Filled.data = std::move(spread.data);
        m_Filled.ranks = std::move(spread.ranks);
        m_Unread->pooled.reset();
    }
    m_Filled.summaries = summariseGroups(m_Filled.data, m_Filled.ranks, utility, m_Unread->counts);
    m_Unread.reset();
}

}  // namespace TBVNonPara
