#pragma once

#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/host/Range.hpp"

namespace TBVNonPara {

/// The host's worksheet functions. A domain error is raised as the host's error. The digits of a probability
/// are the host's: a report shows what it gives.
class TBVNONPARA_API WorksheetFunction {
 public:
    /// Hosts derive from this class.
    virtual ~WorksheetFunction() = default;

    /// Lower tail of the standard normal distribution.
    [[nodiscard]] virtual double NORMSDIST(double z) const = 0;
    /// Upper tail of the chi-square distribution.
    [[nodiscard]] virtual double ChiDist(double x, Long df) const = 0;
    /// Upper tail of the F distribution.
    [[nodiscard]] virtual double FDist(double x, Long df1, Long df2) const = 0;
    /// How many cells of the range equal the criterion; a criterion that reads as a number also matches the
    /// number.
    [[nodiscard]] virtual double CountIf(const RangeRef& range, std::string_view criterion) const = 0;
};

}  // namespace TBVNonPara
