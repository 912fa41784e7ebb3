#pragma once

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/host/Range.hpp"

namespace TBVNonPara {

/// Checks ranges before anything is computed or written. A problem is raised as an error of the library's
/// band whose description names the first offending cell and what to do.
class TBVNONPARA_API DataCheck {
 public:
    /// Components derive from this class.
    virtual ~DataCheck() = default;

    /// Every cell below the header must hold a number or a text that reads as one. `flag` says on entry
    /// whether blank cells are allowed and on return whether any were found. `first`, `second` and `third`
    /// are set to the numbers of data rows, of data cells and of blank cells.
    virtual void CheckData(const RangeRef& range, bool headers, Long& first, Long& second, Long& third,
                           bool& flag) const = 0;

    /// The same for the second range, where no cell may be blank.
    virtual void CheckXData(const RangeRef& range, bool headers, Long& first, Long& second,
                            Long& third) const = 0;

    /// Every kind of cell but error values.
    virtual void CheckRunsData(const RangeRef& range, bool headers) const = 0;

    /// The block of `rows` x `columns` cells that starts at the range's first cell must lie on the sheet and,
    /// unless `overwrite` is True, hold no value.
    virtual void CheckOutputArea(const RangeRef& range, Long columns, Long rows, bool overwrite) const = 0;
};

}  // namespace TBVNonPara
