#pragma once

#include "adapters/calc/session.hpp"
#include "tbvnonpara/host/formatting.hpp"

namespace TBVNonPara::calc {

/// Brings a document to the front, and one of its sheets to the top of its view. A document without a view
/// stays where it is.
void activate(const Session& session, const DocumentRef& document);
void activate(const Session& session, const DocumentRef& document, const SheetRef& sheet);

/// Selects cells in the view of their document.
void select(const Session& session, const SheetAreas& cells);

/// Puts a copy of `source`, with values, formats and characters' positions, where `target` begins. Whatever
/// stood there is replaced. Refuses, before anything is changed, a read-only document and all obstacles; what
/// does not arrive whole nevertheless is taken back and raised as an error. Neither the clipboard nor another
/// sheet is touched.
void place(Session& session, const SheetAreas& source, const SheetAreas& target, PasteKind kind);

}  // namespace TBVNonPara::calc
