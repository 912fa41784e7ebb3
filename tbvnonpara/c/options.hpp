#pragma once

#include <cstddef>
#include <optional>

#include "tbvnonpara/c/tbvnonpara.h"
#include "tbvnonpara/statistics/options.hpp"

namespace TBVNonPara::c {

/// What a caller asks for.
struct TakenOptions {
    statistics::Options options;
    std::optional<std::size_t> control;  ///< from 0
};

/// The caller's options; the defaults where there are none. Throws BadArgument that says which member is
/// wrong, and for a structure of a later version that uses what this one does not know.
[[nodiscard]] TakenOptions takenOptions(const tbv_options* options);

}  // namespace TBVNonPara::c
