#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/host/WorksheetFunction.hpp"

namespace TBVNonPara::Support {

/// The worksheet functions. `calls` names those called; `failure`, when set, is what each call raises.
class FakeFunctions : public WorksheetFunction {
 public:
    [[nodiscard]] double NORMSDIST(double z) const override;
    [[nodiscard]] double ChiDist(double x, Long df) const override;
    [[nodiscard]] double FDist(double x, Long df1, Long df2) const override;
    [[nodiscard]] double CountIf(const RangeRef& range, std::string_view criterion) const override;

    mutable std::vector<std::string> calls;
    std::optional<Error> failure;

 private:
    void enter(const char* name) const;
};

}  // namespace TBVNonPara::Support
