#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/statistics/figures.hpp"
#include "tbvnonpara/statistics/options.hpp"

namespace TBVNonPara {

/// "holm", as options and JSON have it.
[[nodiscard]] TBVNONPARA_API std::string_view adjustmentWord(statistics::Adjustment adjustment);

/// The adjustment of such a word; none where there is no such.
[[nodiscard]] TBVNONPARA_API std::optional<statistics::Adjustment> adjustmentNamed(std::string_view word);

/// A figure as JSON. A block of blocks has a line for each member, `indent` blanks further in.
[[nodiscard]] TBVNONPARA_API std::string figureInJson(const statistics::Figure& figure,
                                                      std::size_t indent = 0);

}  // namespace TBVNonPara
