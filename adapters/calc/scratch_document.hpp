#pragma once

#include "adapters/calc/documents.hpp"
#include "tbvnonpara/host/Workbook.hpp"

namespace TBVNonPara::calc {

/// Whether a document is the hidden scratch workbook.
[[nodiscard]] bool isScratch(const DocumentRef& document);

/// A hidden workbook with one sheet, "Results". It keeps no undo steps, never counts as changed and goes with
/// the office.
[[nodiscard]] DocumentRef makeScratch(const Context& context);

}  // namespace TBVNonPara::calc
