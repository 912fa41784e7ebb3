#pragma once

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/host/WorksheetFunction.hpp"

namespace TBVNonPara::workbook {

/// The worksheet functions. Arguments outside a function's domain raise the host's error, whose description
/// shows the call.
class TBVNONPARA_API SheetFunctions final : public WorksheetFunction {
 public:
    /// Within two units in the last place for every z; raises for NaN.
    [[nodiscard]] double NORMSDIST(double z) const override;
    /// x >= 0 and finite, df >= 1.
    [[nodiscard]] double ChiDist(double x, Long df) const override;
    /// x >= 0 and finite, df1 >= 1, df2 >= 1.
    [[nodiscard]] double FDist(double x, Long df1, Long df2) const override;
    /// Counts the cells of all areas. A number equals a criterion that reads as the same number, a text one
    /// that is the same text but for upper and lower case ("1.0" is not "1"), a Boolean "True" or "False", an
    /// error its own text; blank cells and empty texts equal the empty criterion. There are no wildcards and
    /// no comparisons.
    [[nodiscard]] double CountIf(const RangeRef& range, std::string_view criterion) const override;
};

}  // namespace TBVNonPara::workbook
