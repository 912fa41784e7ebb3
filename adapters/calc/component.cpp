#include <com/sun/star/lang/XSingleComponentFactory.hpp>
#include <cppuhelper/factory.hxx>
#include <string_view>

#include "adapters/calc/analysis_object.hpp"
#include "adapters/calc/cell_menu_job.hpp"
#include "adapters/calc/command_handler.hpp"
#include "adapters/calc/details_object.hpp"
#include "adapters/calc/functions/functions_object.hpp"

namespace TBVNonPara::calc {

namespace {

using Factory = Reference<css::lang::XSingleComponentFactory>;

template <typename Implementation>
Reference<css::uno::XInterface> create(const Context& context) {
    return static_cast<cppu::OWeakObject*>(new Implementation(context));
}

template <typename Implementation>
Factory factoryOf() {
    return cppu::createSingleComponentFactory(
        create<Implementation>, OUString::createFromAscii(Implementation::implementationName),
        sequenceOf(OUString::createFromAscii(Implementation::serviceName)));
}

Factory factoryOf(std::string_view implementation) {
    if (implementation == AnalysisObject::implementationName) {
        return factoryOf<AnalysisObject>();
    }
    if (implementation == VisibleRowsObject::implementationName) {
        return factoryOf<VisibleRowsObject>();
    }
    if (implementation == DetailsObject::implementationName) {
        return factoryOf<DetailsObject>();
    }
    if (implementation == CommandHandler::implementationName) {
        return factoryOf<CommandHandler>();
    }
    if (implementation == CellMenuJob::implementationName) {
        return factoryOf<CellMenuJob>();
    }
    if (implementation == FunctionsObject::implementationName) {
        return factoryOf<FunctionsObject>();
    }
    return {};
}

}  // namespace

}  // namespace TBVNonPara::calc

/// What the spreadsheet's loader asks for by the name of an implementation; the caller owns the factory.
extern "C" SAL_DLLPUBLIC_EXPORT void* component_getFactory(const char* implementation, void*, void*) {
    const auto factory = TBVNonPara::calc::factoryOf(std::string_view(implementation));
    if (factory.is()) {
        factory->acquire();
    }
    return factory.get();
}
