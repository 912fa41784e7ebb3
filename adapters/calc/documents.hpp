#pragma once

#include <com/sun/star/frame/XController.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/sheet/XSpreadsheets.hpp>

#include "adapters/calc/uno.hpp"

namespace TBVNonPara::calc {

using Context = Reference<css::uno::XComponentContext>;
using DocumentRef = Reference<css::sheet::XSpreadsheetDocument>;
using SheetRef = Reference<css::sheet::XSpreadsheet>;

/// The spreadsheet in which the user works.
[[nodiscard]] DocumentRef activeDocument(const Context& context);

/// An open spreadsheet by its file's name or, before it was saved, by its title. The scratch
/// workbook is hidden and is made when it is not there yet.
[[nodiscard]] DocumentRef documentNamed(const Context& context, std::string_view name);

/// The view of a document; empty where none is shown.
[[nodiscard]] Reference<css::sheet::XSpreadsheetView> viewOf(const DocumentRef& document);

[[nodiscard]] Reference<css::sheet::XSpreadsheets> sheetsOf(const DocumentRef& document);
[[nodiscard]] SheetRef sheetAt(const DocumentRef& document, std::int32_t position);
[[nodiscard]] SheetRef sheetNamed(const DocumentRef& document, const OUString& name);
/// The sheet on top of the document's view, or its first one.
[[nodiscard]] SheetRef activeSheet(const DocumentRef& document);
[[nodiscard]] OUString nameOf(const SheetRef& sheet);
/// Where a sheet stands in its document, counted from 0.
[[nodiscard]] std::int16_t positionOf(const SheetRef& sheet);

/// Whether two objects stand for one sheet of a document: the spreadsheet may make one each time it is asked.
[[nodiscard]] bool isSameSheet(const SheetRef& one, const SheetRef& other);

/// Raises an error where a document must not be changed.
void refuseReadOnly(const DocumentRef& document);

}  // namespace TBVNonPara::calc
