#pragma once

#include <TBVNonPara/AnalysisException.hpp>
#include <TBVNonPara/XclsNonPara.hpp>
#include <com/sun/star/lang/XInitialization.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/script/XInvocation2.hpp>
#include <cppuhelper/implbase4.hxx>
#include <memory>

#include "adapters/calc/session.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"

namespace TBVNonPara::calc {

/// The service TBVNonPara.clsNonPara: one request, by the typed interface for C++ and by late binding for
/// scripts. Properties are write-only; reading one gives nothing back.
class AnalysisObject : public cppu::WeakImplHelper4<XclsNonPara, css::script::XInvocation2,
                                                    css::lang::XInitialization, css::lang::XServiceInfo> {
 public:
    explicit AnalysisObject(const Context& context);

    static constexpr auto implementationName = "TBVNonPara.clsNonPara.Implementation";
    static constexpr auto serviceName = "TBVNonPara.clsNonPara";

    /// The document that addresses mean, where it is not the active one: a hidden one for example.
    void SAL_CALL initialize(const css::uno::Sequence<css::uno::Any>& arguments) override;

    void SAL_CALL setMethod(sal_Int32 Method) override;
    void SAL_CALL setHeaders(sal_Bool Headers) override;
    void SAL_CALL setOutputDescriptives(sal_Bool OutputDescriptives) override;
    void SAL_CALL setIgnoreTies(sal_Bool IgnoreTies) override;
    void SAL_CALL setTails(sal_Int32 Tails) override;
    void SAL_CALL setYRange(const OUString& Address) override;
    void SAL_CALL setXRange(const OUString& Address) override;
    void SAL_CALL setOutputRange(const OUString& Address) override;
    void SAL_CALL Results(sal_Bool OverWrite) override;

    Reference<css::beans::XIntrospectionAccess> SAL_CALL getIntrospection() override;
    css::uno::Any SAL_CALL invoke(const OUString& name, const css::uno::Sequence<css::uno::Any>& arguments,
                                  css::uno::Sequence<sal_Int16>& outPositions,
                                  css::uno::Sequence<css::uno::Any>& outArguments) override;
    void SAL_CALL setValue(const OUString& name, const css::uno::Any& value) override;
    css::uno::Any SAL_CALL getValue(const OUString& name) override;
    sal_Bool SAL_CALL hasMethod(const OUString& name) override;
    sal_Bool SAL_CALL hasProperty(const OUString& name) override;
    css::uno::Sequence<OUString> SAL_CALL getMemberNames() override;
    css::uno::Sequence<css::script::InvocationInfo> SAL_CALL getInfo() override;
    css::script::InvocationInfo SAL_CALL getInfoForName(const OUString& name, sal_Bool exact) override;

    OUString SAL_CALL getImplementationName() override;
    sal_Bool SAL_CALL supportsService(const OUString& service) override;
    css::uno::Sequence<OUString> SAL_CALL getSupportedServiceNames() override;

    css::uno::Sequence<css::uno::Type> SAL_CALL getTypes() override;

 protected:
    [[nodiscard]] Session& session() noexcept { return *m_Session; }

 private:
    void guarded(const auto& work);

    Context m_Context;
    std::shared_ptr<Session> m_Session;
    TBVNonPara::clsNonPara m_Request;
    TBVNPMethod m_Method = tbvNPMannU;
    bool m_Headers = false;
};

/// The service TBVNonPara.clsNonParaVisibleRows: the same members, for the rows that are shown.
class VisibleRowsObject : public AnalysisObject {
 public:
    explicit VisibleRowsObject(const Context& context) : AnalysisObject(context) {
        session().leaveOutHiddenRows();
    }

    static constexpr auto implementationName = "TBVNonPara.clsNonParaVisibleRows.Implementation";
    static constexpr auto serviceName = "TBVNonPara.clsNonParaVisibleRows";

    OUString SAL_CALL getImplementationName() override;
    css::uno::Sequence<OUString> SAL_CALL getSupportedServiceNames() override;
};

}  // namespace TBVNonPara::calc
