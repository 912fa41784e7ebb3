#pragma once

#include <string>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/details/details.hpp"

namespace TBVNonPara::rendering {

/// The section of a page below its picture: the sentences, the tables with numbers that carry their exact
/// value, the comparisons as a picture (40 of them at most), the notes, and a sentence to quote.
/// O(groups + comparisons). What writeHtml() takes.
[[nodiscard]] TBVNONPARA_API std::string detailsInHtml(const Details& details);

}  // namespace TBVNonPara::rendering
