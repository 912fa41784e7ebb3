#pragma once

#include <optional>

#include "tbvnonpara/core/object_ref.hpp"
#include "tbvnonpara/engine/group_summary.hpp"
#include "tbvnonpara/engine/pooled_groups.hpp"

namespace TBVNonPara {

/// Data and ranks of each group, and what summarises them.
struct GroupDescriptives {
    Grid<double> data;
    Grid<double> ranks;
    GroupSummaries summaries;
};

/// Those of the last test that had them. Sorting every group for its sum and its median costs more than most
/// tests, and few who run one ask for them: a test leaves here what they follow from, and who asks first
/// fills them. Nobody can tell when: what could raise an error is done at once.
class UnreadDescriptives {
 public:
    /// The data and the ranks of a test, with the counts that summariseGroups takes.
    void keep(Grid<double> data, Grid<double> ranks, std::optional<Array<Long>> counts,
              const ObjectRef<ArrayUtility>& utility);

    /// The same of pooled groups and the rank of each of their values, to be spread over so many rows.
    /// Without ranks, which take an array that is not allocated, the values are ranked, too.
    void keep(PooledGroups groups, Array<double> ranks, Long rows, const ObjectRef<ArrayUtility>& utility);

    /// For who reads them.
    [[nodiscard]] const GroupDescriptives& read(const ObjectRef<ArrayUtility>& utility) const;

    /// For a test that fills some of them itself.
    [[nodiscard]] GroupDescriptives& write(const ObjectRef<ArrayUtility>& utility);

 private:
    struct Pooled {
        PooledGroups groups;
        Array<double> ranks;
        Long rows;
    };
    /// What is still to be done: the spreading where there are pooled groups, and the summaries.
    struct Unread {
        std::optional<Pooled> pooled;
        std::optional<Array<Long>> counts;
    };

    void fill(const ArrayUtility& utility) const;

    mutable GroupDescriptives m_Filled;
    mutable std::optional<Unread> m_Unread;
};

}  // namespace TBVNonPara
