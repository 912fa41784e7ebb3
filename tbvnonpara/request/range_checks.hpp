#pragma once

#include "tbvnonpara/companion/DataCheck.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/host/Application.hpp"

namespace TBVNonPara {

/// What each test asks of its ranges before anything is computed. The first rule that is broken raises.
struct RangeChecks {
    const Application& application;
    const DataCheck& check;
    TBVNPMethod method;
    bool headers;

    /// The sign test on coded data: every cell is 1, -1 or 0.
    void checkSignCodes(const RangeRef& yRange) const;
    /// The cells of the data range.
    void checkData(const RangeRef& yRange) const;
    /// Whether a second range is there and as long as the first.
    void checkPair(const RangeRef& yRange, const RangeRef& xRange) const;
    /// At least two rows of data in the first area.
    void checkRows(const RangeRef& yRange) const;
    /// The cells of the second range.
    void checkXData(const RangeRef& xRange) const;
};

}  // namespace TBVNonPara
