#pragma once

#include <string>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/details/details.hpp"

namespace TBVNonPara::rendering {

/// The section of a page below its picture: the sentences, the tables with numbers that carry their exact
/// value, the comparisons as a picture, the notes, and a sentence to quote.
[[nodiscard]] TBVNONPARA_API std::string detailsInHtml(const Details& details);

}  // namespace TBVNonPara::rendering
