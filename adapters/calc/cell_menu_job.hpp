#pragma once

#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/task/XJob.hpp>
#include <cppuhelper/implbase2.hxx>

#include "adapters/calc/documents.hpp"

namespace TBVNonPara::calc {

/// Puts our entry into the context menus of a spreadsheet's window, whenever one has come up.
class CellMenuJob : public cppu::WeakImplHelper2<css::task::XJob, css::lang::XServiceInfo> {
 public:
    explicit CellMenuJob(const Context& context) : m_Context(context) {}

    static constexpr auto implementationName = "TBVNonPara.CellMenuJob.Implementation";
    static constexpr auto serviceName = "TBVNonPara.CellMenuJob";

    css::uno::Any SAL_CALL execute(const css::uno::Sequence<css::beans::NamedValue>& arguments) override;

    OUString SAL_CALL getImplementationName() override;
    sal_Bool SAL_CALL supportsService(const OUString& service) override;
    css::uno::Sequence<OUString> SAL_CALL getSupportedServiceNames() override;

 private:
    Context m_Context;
};

}  // namespace TBVNonPara::calc
