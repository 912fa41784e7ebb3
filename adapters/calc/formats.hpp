#pragma once

#include <com/sun/star/lang/Locale.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <com/sun/star/uno/XInterface.hpp>
#include <string_view>

#include "adapters/calc/documents.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"
#include "tbvnonpara/host/formatting.hpp"

namespace TBVNonPara::calc {

using Cells = Reference<css::uno::XInterface>;

/// The locale in which a document shows the numbers of cells without a format of their own; an empty one is
/// that of the office.
[[nodiscard]] css::lang::Locale localeOfNumbers(const DocumentRef& document);

/// A number format in the notation of English (USA), "General" and "BOOLEAN" among them. Numbers are shown as
/// is usual in `language`.
void setNumberFormat(const DocumentRef& document, const Cells& cells, std::string_view format,
                     const css::lang::Locale& language = {});

/// The spreadsheet cannot centre over several cells: a heading is centred in its own.
void setAlignment(const Cells& cells, HorizontalAlignment alignment);

/// The sixteen basic colours of the classic palette, or none.
void setInteriorColour(const Cells& cells, Integer index);

void setBold(const Cells& cells, bool bold);

/// One edge around the whole range.
void setBorder(const Cells& cells, BorderEdge edge, BorderLine line);

/// Characters counted from 1.
void setSubscript(const Reference<css::table::XCell>& cell, Long start, Long length, bool subscript);

}  // namespace TBVNonPara::calc
