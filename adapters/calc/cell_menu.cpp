#include "adapters/calc/cell_menu.hpp"

#include <com/sun/star/container/XIndexContainer.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>

#include "adapters/calc/command_handler.hpp"
#include "adapters/calc/dialog_texts.hpp"
#include "adapters/calc/office_language.hpp"
#include "adapters/calc/selection.hpp"

namespace TBVNonPara::calc {

namespace {

using css::ui::ContextMenuInterceptorAction;
using Entries = Reference<css::container::XIndexContainer>;

OUString commandOf(const css::uno::Any& entry) {
    const Reference<css::beans::XPropertySet> properties(entry, css::uno::UNO_QUERY);
    OUString command;
    if (properties.is() && properties->getPropertySetInfo()->hasPropertyByName("CommandURL")) {
        properties->getPropertyValue("CommandURL") >>= command;
    }
    return command;
}

bool has(const Entries& entries, std::string_view command) {
    const OUString wanted = fromUtf8(command);
    for (sal_Int32 place = 0; place < entries->getCount(); ++place) {
        if (commandOf(entries->getByIndex(place)) == wanted) {
            return true;
        }
    }
    return false;
}

Reference<css::beans::XPropertySet> append(const Entries& entries, const OUString& kind) {
    const Reference<css::beans::XPropertySet> entry(
        query<css::lang::XMultiServiceFactory>(entries)->createInstance(kind), css::uno::UNO_QUERY_THROW);
    entries->insertByIndex(entries->getCount(), css::uno::Any(entry));
    return entry;
}

/// Menus of sheets, drawings and charts format no cells.
bool isOfSeveralCells(const css::ui::ContextMenuExecuteEvent& event) {
    const Reference<css::uno::XInterface> selection(event.Selection->getSelection(), css::uno::UNO_QUERY);
    return areSeveralCells(selection) && has(event.ActionTriggerContainer, ".uno:FormatCellDialog");
}

}  // namespace

ContextMenuInterceptorAction CellMenu::notifyContextMenuExecute(
    const css::ui::ContextMenuExecuteEvent& event) {
    const Entries& entries = event.ActionTriggerContainer;
    if (!isOfSeveralCells(event) || has(entries, CommandHandler::dialogCommand)) {
        return css::ui::ContextMenuInterceptorAction_IGNORED;
    }
    const DialogTexts& texts = dialogTexts(languageOfTheOffice(m_Context));
    append(entries, "com.sun.star.ui.ActionTriggerSeparator");
    const auto entry = append(entries, "com.sun.star.ui.ActionTrigger");
    setProperty(entry, "Text", fromUtf8(std::string(texts.title) + "..."));
    setProperty(entry, "CommandURL", fromUtf8(CommandHandler::dialogCommand));
    return css::ui::ContextMenuInterceptorAction_CONTINUE_MODIFIED;
}

}  // namespace TBVNonPara::calc
