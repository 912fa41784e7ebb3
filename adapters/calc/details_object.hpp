#pragma once

#include <TBVNonPara/XclsNonParaDetails.hpp>
#include <com/sun/star/lang/XInitialization.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/script/XInvocation2.hpp>
#include <cppuhelper/implbase4.hxx>
#include <memory>

#include "adapters/calc/session.hpp"
#include "tbvnonpara/details/clsNonParaDetails.hpp"

namespace TBVNonPara::calc {

/// The service TBVNonPara.clsNonParaDetails: a test in full, by the typed interface for C++ and by late
/// binding for scripts. Its settings are write-only properties, Text and Json such that can only be read.
class DetailsObject : public cppu::WeakImplHelper4<XclsNonParaDetails, css::script::XInvocation2,
                                                   css::lang::XInitialization, css::lang::XServiceInfo> {
 public:
    explicit DetailsObject(const Context& context);

    static constexpr auto implementationName = "TBVNonPara.clsNonParaDetails.Implementation";
    static constexpr auto serviceName = "TBVNonPara.clsNonParaDetails";

    /// The document that addresses mean, where it is not the active one.
    void SAL_CALL initialize(const css::uno::Sequence<css::uno::Any>& arguments) override;

    void SAL_CALL setMethod(sal_Int32 Method) override;
    void SAL_CALL setHeaders(sal_Bool Headers) override;
    void SAL_CALL setOutputDescriptives(sal_Bool OutputDescriptives) override;
    void SAL_CALL setIgnoreTies(sal_Bool IgnoreTies) override;
    void SAL_CALL setTails(sal_Int32 Tails) override;
    void SAL_CALL setYRange(const OUString& Address) override;
    void SAL_CALL setXRange(const OUString& Address) override;
    void SAL_CALL setOutputRange(const OUString& Address) override;
    void SAL_CALL setConfidence(double Confidence) override;
    void SAL_CALL setAdjust(const OUString& Adjust) override;
    void SAL_CALL setControl(const OUString& Control) override;
    void SAL_CALL setTrend(sal_Bool Trend) override;
    void SAL_CALL Calculate() override;
    css::uno::Any SAL_CALL Value(const OUString& Name) override;
    OUString SAL_CALL getText() override;
    OUString SAL_CALL getJson() override;
    OUString SAL_CALL WriteTo(const OUString& Address, sal_Bool OverWrite) override;

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

 private:
    [[nodiscard]] Reference<css::uno::XInterface> self() { return static_cast<cppu::OWeakObject*>(this); }

    Context m_Context;
    std::shared_ptr<Session> m_Session;
    TBVNonPara::clsNonParaDetails m_Details;
};

}  // namespace TBVNonPara::calc
