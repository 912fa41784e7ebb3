#pragma once

#include <cstddef>

#include "tbvnonpara/rendering/details_page.hpp"
#include "tbvnonpara/rendering/output.hpp"

namespace TBVNonPara::rendering {

/// Writes the details below a text report: sentences, tables with the numbers to the right, notes. Sentences
/// are folded at 100 columns, or at the width; a table that is wider than the width stays whole.
void writeDetails(const DetailPage& page, Output& output, std::size_t width = 0);

}  // namespace TBVNonPara::rendering
