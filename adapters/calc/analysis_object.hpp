#pragma once

#include <TBVNonPara/XclsNonPara.hpp>

#include "adapters/calc/script_object.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"

namespace TBVNonPara::calc {

/// The service TBVNonPara.clsNonPara: one request, by the typed interface for C++ and by late binding for
/// scripts. Properties are write-only; reading one gives nothing back.
class AnalysisObject : public ScriptObject<AnalysisObject, XclsNonPara> {
 public:
    explicit AnalysisObject(const Context& context);

    static constexpr auto implementationName = "TBVNonPara.clsNonPara.Implementation";
    static constexpr auto serviceName = "TBVNonPara.clsNonPara";

    [[nodiscard]] static std::span<const ScriptMember<AnalysisObject>> members();

    void SAL_CALL setMethod(sal_Int32 Method) override;
    void SAL_CALL setHeaders(sal_Bool Headers) override;
    void SAL_CALL setOutputDescriptives(sal_Bool OutputDescriptives) override;
    void SAL_CALL setIgnoreTies(sal_Bool IgnoreTies) override;
    void SAL_CALL setTails(sal_Int32 Tails) override;
    void SAL_CALL setYRange(const OUString& Address) override;
    void SAL_CALL setXRange(const OUString& Address) override;
    void SAL_CALL setOutputRange(const OUString& Address) override;
    void SAL_CALL Results(sal_Bool OverWrite) override;

 private:
    TBVNonPara::clsNonPara m_Request;
    TBVNPMethod m_Method = tbvNPMannU;
    bool m_Headers = false;
};

/// The service TBVNonPara.clsNonParaVisibleRows: the same members, for the rows that are shown.
class VisibleRowsObject : public AnalysisObject {
 public:
    explicit VisibleRowsObject(const Context& context) : AnalysisObject(context) {
        session()->leaveOutHiddenRows();
    }

    static constexpr auto implementationName = "TBVNonPara.clsNonParaVisibleRows.Implementation";
    static constexpr auto serviceName = "TBVNonPara.clsNonParaVisibleRows";

    OUString SAL_CALL getImplementationName() override;
    css::uno::Sequence<OUString> SAL_CALL getSupportedServiceNames() override;
};

}  // namespace TBVNonPara::calc
