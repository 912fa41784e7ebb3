#pragma once

#include <cstddef>
#include <string>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/details/page.hpp"

namespace TBVNonPara {

/// The details as they stand below a text report: sentences, tables with the numbers to the right, notes.
/// Sentences are folded at 100 columns, or at the width; a table that is wider than the width stays whole.
[[nodiscard]] TBVNONPARA_API std::string detailsText(const DetailPage& page, std::size_t width = 0);

}  // namespace TBVNonPara
