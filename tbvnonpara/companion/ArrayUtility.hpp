#pragma once

#include <span>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/array.hpp"
#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/grid.hpp"
#include "tbvnonpara/ordering/ascending_order.hpp"

namespace TBVNonPara {

/// Sorting and reshaping of arrays. Sizes in rows and columns, everything counted from 1.
class TBVNONPARA_API ArrayUtility {
 public:
    /// Components derive from this class.
    virtual ~ArrayUtility() = default;

    /// Reorders the rows so that the column ascends; whole rows move, equal rows keep their order. The middle
    /// argument is always 0. Raises SubscriptOutOfRange for a column that the table does not have.
    virtual void SortRows(Grid<double>& table, Long reserved, Long column) const = 0;

    /// How the values stand when they ascend, equal ones in the order given. A utility that only sorts rows
    /// leaves this as it is: it then sorts a table of the values and their positions.
    [[nodiscard]] virtual AscendingOrder OrderOf(std::span<const double> values) const;

    /// k elements as a grid of k rows and one column.
    [[nodiscard]] virtual ValueGrid MakeTwoDimensional(const Array<CellValue>& array) const = 0;

    /// The columns of the left grid followed by those of the right one; the shorter is padded with empty
    /// cells.
    [[nodiscard]] virtual ValueGrid JoinColumns(const ValueGrid& left, const ValueGrid& right) const = 0;

    /// Whether SortRows only sorts: the engine then sorts some groups when their medians and sums are asked
    /// for, and not at all where nobody asks. A utility that leaves this as it is sorts while the test runs.
    [[nodiscard]] virtual bool SortsAtAnyTime() const noexcept { return false; }
};

}  // namespace TBVNonPara
