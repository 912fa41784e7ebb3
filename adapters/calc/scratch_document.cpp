#include "adapters/calc/scratch_document.hpp"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XTitle.hpp>
#include <com/sun/star/util/XModifiable2.hpp>

#include "adapters/calc/macro_modules.hpp"

namespace TBVNonPara::calc {

namespace {

css::beans::PropertyValue named(const char* name, bool value) {
    css::beans::PropertyValue property;
    property.Name = OUString::createFromAscii(name);
    property.Value <<= value;
    return property;
}

void keepOneSheet(const DocumentRef& document) {
    const auto sheets = sheetsOf(document);
    const auto positions = query<css::container::XIndexAccess>(sheets);
    while (positions->getCount() > 1) {
        sheets->removeByName(nameOf(sheetAt(document, 1)));
    }
    query<css::container::XNamed>(sheetAt(document, 0))->setName(fromUtf8(scratchSheetName));
}

}  // namespace

bool isScratch(const DocumentRef& document) {
    return query<css::frame::XTitle>(document)->getTitle() == fromUtf8(scratchWorkbookName) &&
           query<css::frame::XModel>(document)->getURL().isEmpty();
}

DocumentRef makeScratch(const Context& context) {
    const css::uno::Sequence<css::beans::PropertyValue> hidden =
        sequenceOf(named("Hidden", true), named("NoAutoSave", true));
    const DocumentRef document(css::frame::Desktop::create(context)->loadComponentFromURL(
                                   "private:factory/scalc", "_blank", 0, hidden),
                               css::uno::UNO_QUERY_THROW);
    query<css::frame::XTitle>(document)->setTitle(fromUtf8(scratchWorkbookName));
    setProperty(document, "IsUndoEnabled", false);
    keepOneSheet(document);
    giveModule(document, sheetAt(document, 0));
    // It must neither ask to be saved when the office ends nor draw what nobody sees.
    const auto modifiable = query<css::util::XModifiable2>(document);
    modifiable->setModified(false);
    modifiable->disableSetModified();
    query<css::frame::XModel>(document)->lockControllers();
    return document;
}

}  // namespace TBVNonPara::calc
