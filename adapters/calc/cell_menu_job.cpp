#include "adapters/calc/cell_menu_job.hpp"

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/ui/XContextMenuInterception.hpp>
#include <cppuhelper/supportsservice.hxx>

#include "adapters/calc/cell_menu.hpp"
#include "adapters/calc/main_thread.hpp"

namespace TBVNonPara::calc {

namespace {

/// What is called so among named values, or the values of a document's description.
css::uno::Any named(const auto& values, std::string_view name) {
    const OUString wanted = fromUtf8(name);
    for (const auto& value : values) {
        if (value.Name == wanted) {
            return value.Value;
        }
    }
    return {};
}

Reference<css::frame::XModel> documentOf(const css::uno::Sequence<css::beans::NamedValue>& arguments) {
    css::uno::Sequence<css::beans::NamedValue> environment;
    named(arguments, "Environment") >>= environment;
    Reference<css::frame::XModel> document;
    named(environment, "Model") >>= document;
    return document;
}

bool isHidden(const Reference<css::frame::XModel>& document) {
    bool hidden = false;
    named(document->getArgs(), "Hidden") >>= hidden;
    return hidden;
}

}  // namespace

css::uno::Any CellMenuJob::execute(const css::uno::Sequence<css::beans::NamedValue>& arguments) {
    const Reference<css::frame::XModel> document = documentOf(arguments);
    // Just installed, the add-in is in a process of its own: a menu must not wait for that.
    if (document.is() && isInsideOffice() && !isHidden(document)) {
        const auto menus = queryIfAny<css::ui::XContextMenuInterception>(document->getCurrentController());
        if (menus.is()) {
            menus->registerContextMenuInterceptor(new CellMenu(m_Context));
        }
    }
    return {};
}

OUString CellMenuJob::getImplementationName() {
    return OUString::createFromAscii(implementationName);
}

sal_Bool CellMenuJob::supportsService(const OUString& service) {
    return cppu::supportsService(this, service);
}

css::uno::Sequence<OUString> CellMenuJob::getSupportedServiceNames() {
    return sequenceOf(OUString::createFromAscii(serviceName));
}

}  // namespace TBVNonPara::calc
