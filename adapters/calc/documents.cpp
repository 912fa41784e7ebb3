#include "adapters/calc/documents.hpp"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/frame/XTitle.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>

#include "adapters/calc/scratch_document.hpp"

namespace TBVNonPara::calc {

namespace {

OUString titleOf(const DocumentRef& document) {
    return query<css::frame::XTitle>(document)->getTitle();
}

/// A saved document bears its file's name, also while its title says that it is read-only.
OUString fileNameOf(const DocumentRef& document) {
    const OUString url = query<css::frame::XModel>(document)->getURL();
    return url.isEmpty() ? titleOf(document) : url.copy(url.lastIndexOf('/') + 1);
}

DocumentRef findDocument(const Context& context, const auto& wanted) {
    const auto documents = css::frame::Desktop::create(context)->getComponents()->createEnumeration();
    while (documents->hasMoreElements()) {
        const DocumentRef document(documents->nextElement(), css::uno::UNO_QUERY);
        if (document.is() && wanted(document)) {
            return document;
        }
    }
    return {};
}

}  // namespace

DocumentRef activeDocument(const Context& context) {
    const DocumentRef current(css::frame::Desktop::create(context)->getCurrentComponent(),
                              css::uno::UNO_QUERY);
    if (current.is() && !isScratch(current)) {
        return current;
    }
    // A macro's editor or the help may be in front of the spreadsheet.
    const DocumentRef other =
        findDocument(context, [](const DocumentRef& document) { return !isScratch(document); });
    if (!other.is()) {
        raiseHostError("No spreadsheet is open; open one and try again.");
    }
    return other;
}

DocumentRef documentNamed(const Context& context, std::string_view name) {
    const OUString wanted = fromUtf8(name);
    DocumentRef document = findDocument(context, [&](const DocumentRef& candidate) {
        return fileNameOf(candidate).equalsIgnoreAsciiCase(wanted);
    });
    if (!document.is() && name == scratchWorkbookName) {
        document = makeScratch(context);
    }
    if (!document.is()) {
        raise(RuntimeError::SubscriptOutOfRange);
    }
    return document;
}

Reference<css::sheet::XSpreadsheetView> viewOf(const DocumentRef& document) {
    return queryIfAny<css::sheet::XSpreadsheetView>(
        query<css::frame::XModel>(document)->getCurrentController());
}

Reference<css::sheet::XSpreadsheets> sheetsOf(const DocumentRef& document) {
    return given(document->getSheets());
}

SheetRef sheetAt(const DocumentRef& document, std::int32_t position) {
    return {query<css::container::XIndexAccess>(sheetsOf(document))->getByIndex(position),
            css::uno::UNO_QUERY_THROW};
}

SheetRef sheetNamed(const DocumentRef& document, const OUString& name) {
    return {sheetsOf(document)->getByName(name), css::uno::UNO_QUERY_THROW};
}

SheetRef activeSheet(const DocumentRef& document) {
    const auto view = viewOf(document);
    return view.is() ? given(view->getActiveSheet()) : sheetAt(document, 0);
}

OUString nameOf(const SheetRef& sheet) {
    return query<css::container::XNamed>(sheet)->getName();
}

std::int16_t positionOf(const SheetRef& sheet) {
    return query<css::sheet::XCellRangeAddressable>(sheet)->getRangeAddress().Sheet;
}

bool isSameSheet(const SheetRef& one, const SheetRef& other) {
    return one == other || positionOf(one) == positionOf(other);
}

void refuseReadOnly(const DocumentRef& document) {
    if (query<css::frame::XStorable>(document)->isReadonly()) {
        raiseHostError("The document " + toUtf8(titleOf(document)) +
                       " is read-only; save it under another name or choose a place in another document.");
    }
}

}  // namespace TBVNonPara::calc
