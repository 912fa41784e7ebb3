#pragma once

#include <com/sun/star/frame/XDispatch.hpp>
#include <com/sun/star/frame/XDispatchProvider.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/lang/XInitialization.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <cppuhelper/implbase4.hxx>

#include "adapters/calc/documents.hpp"

namespace TBVNonPara::calc {

/// Carries out the menu's commands, org.tbvnonpara.calc:dialog and org.tbvnonpara.calc:again, in the window
/// that they were chosen in.
class CommandHandler : public cppu::WeakImplHelper4<css::frame::XDispatchProvider, css::frame::XDispatch,
                                                    css::lang::XInitialization, css::lang::XServiceInfo> {
 public:
    explicit CommandHandler(const Context& context) : m_Context(context) {}

    static constexpr auto implementationName = "TBVNonPara.CommandHandler.Implementation";
    static constexpr auto serviceName = "TBVNonPara.CommandHandler";

    static constexpr auto dialogCommand = "org.tbvnonpara.calc:dialog";

    void SAL_CALL initialize(const css::uno::Sequence<css::uno::Any>& arguments) override;
    Reference<css::frame::XDispatch> SAL_CALL queryDispatch(const css::util::URL& url, const OUString& target,
                                                            sal_Int32 flags) override;
    css::uno::Sequence<Reference<css::frame::XDispatch>> SAL_CALL
    queryDispatches(const css::uno::Sequence<css::frame::DispatchDescriptor>& requests) override;

    void SAL_CALL dispatch(const css::util::URL& url,
                           const css::uno::Sequence<css::beans::PropertyValue>& arguments) override;
    void SAL_CALL addStatusListener(const Reference<css::frame::XStatusListener>& listener,
                                    const css::util::URL& url) override;
    void SAL_CALL removeStatusListener(const Reference<css::frame::XStatusListener>&,
                                       const css::util::URL&) override {}

    OUString SAL_CALL getImplementationName() override;
    sal_Bool SAL_CALL supportsService(const OUString& service) override;
    css::uno::Sequence<OUString> SAL_CALL getSupportedServiceNames() override;

 private:
    Context m_Context;
    Reference<css::frame::XFrame> m_Frame;
};

}  // namespace TBVNonPara::calc
