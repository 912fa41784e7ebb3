#pragma once

#include <com/sun/star/ui/XContextMenuInterceptor.hpp>
#include <cppuhelper/implbase1.hxx>

#include "adapters/calc/documents.hpp"

namespace TBVNonPara::calc {

/// Puts the tests at the end of the context menus of cells, of rows and of columns, where several cells are
/// selected.
class CellMenu : public cppu::WeakImplHelper1<css::ui::XContextMenuInterceptor> {
 public:
    explicit CellMenu(const Context& context) : m_Context(context) {}

    css::ui::ContextMenuInterceptorAction SAL_CALL
    notifyContextMenuExecute(const css::ui::ContextMenuExecuteEvent& event) override;

 private:
    Context m_Context;
};

}  // namespace TBVNonPara::calc
