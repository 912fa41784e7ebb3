#pragma once

#include <com/sun/star/sheet/XFunctionAccess.hpp>
#include <memory>

#include "adapters/calc/session.hpp"
#include "tbvnonpara/host/WorksheetFunction.hpp"

namespace TBVNonPara::calc {

/// The spreadsheet's own functions, called through one object that is made on first use and kept.
class CalcFunctions : public WorksheetFunction {
 public:
    explicit CalcFunctions(std::shared_ptr<Session> session);

    [[nodiscard]] double NORMSDIST(double z) const override;
    [[nodiscard]] double ChiDist(double x, Long df) const override;
    [[nodiscard]] double FDist(double x, Long df1, Long df2) const override;
    [[nodiscard]] double CountIf(const RangeRef& range, std::string_view criterion) const override;

 private:
    using Arguments = css::uno::Sequence<css::uno::Any>;

    [[nodiscard]] double call(const char* name, const Arguments& arguments) const;

    std::shared_ptr<Session> m_Session;
    mutable Reference<css::sheet::XFunctionAccess> m_Access;
};

}  // namespace TBVNonPara::calc
