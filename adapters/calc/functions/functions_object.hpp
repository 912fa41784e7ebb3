#pragma once

#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/tbvnonpara/XFunctions.hpp>
#include <cppuhelper/implbase2.hxx>
#include <mutex>

#include "adapters/calc/documents.hpp"
#include "adapters/calc/functions/function_results.hpp"

namespace TBVNonPara::calc {

/// The functions that formulas call. The names of the service and of its methods stand in files of users:
/// they stay for ever. What formulas call them, and what the Function Wizard says, is in
/// registration/CalcAddIns.xcu. A figure that cannot be had comes back as the error value of its cell.
class FunctionsObject : public cppu::WeakImplHelper2<com::tbvnonpara::XFunctions, css::lang::XServiceInfo> {
 public:
    static constexpr const char* implementationName = "com.tbvnonpara.Functions.Implementation";
    static constexpr const char* serviceName = "com.tbvnonpara.Functions";

    explicit FunctionsObject(const Context&) {}

    using Any = css::uno::Any;
    using Ranges = css::uno::Sequence<Any>;

    Any SAL_CALL mannWhitneyTest(const Any& range1, const Any& range2, const Any& alternative) override;
    Any SAL_CALL wilcoxonTest(const Any& range1, const Any& range2, const Any& alternative) override;
    Any SAL_CALL spearmanTest(const Any& range1, const Any& range2, const Any& alternative) override;
    Any SAL_CALL signTest(const Any& range1, const Any& range2, const Any& alternative) override;
    Any SAL_CALL medianTest(const Ranges& ranges) override;
    Any SAL_CALL friedmanTest(const Ranges& ranges) override;
    Any SAL_CALL kruskalWallisTest(const Ranges& ranges) override;
    Any SAL_CALL runsTest(const Any& range, const Any& alternative) override;

    Any SAL_CALL mannWhitneyDetails(const Any& range1, const Any& range2, const Any& name) override;
    Any SAL_CALL wilcoxonDetails(const Any& range1, const Any& range2, const Any& name) override;
    Any SAL_CALL spearmanDetails(const Any& range1, const Any& range2, const Any& name) override;
    Any SAL_CALL signDetails(const Any& range1, const Any& range2, const Any& name) override;
    Any SAL_CALL medianDetails(const Ranges& rangesAndName) override;
    Any SAL_CALL friedmanDetails(const Ranges& rangesAndName) override;
    Any SAL_CALL kruskalWallisDetails(const Ranges& rangesAndName) override;
    Any SAL_CALL runsDetails(const Any& range, const Any& name) override;

    OUString SAL_CALL getImplementationName() override;
    sal_Bool SAL_CALL supportsService(const OUString& service) override;
    css::uno::Sequence<OUString> SAL_CALL getSupportedServiceNames() override;

 private:
    [[nodiscard]] Any details(TBVNPMethod method, const CellColumns& columns, const Any& name);
    [[nodiscard]] Any detailsOfGroups(TBVNPMethod method, const Ranges& rangesAndName);

    std::mutex m_Mutex;
    FigureCache m_Cache;
};

}  // namespace TBVNonPara::calc
