#pragma once

#include "tbvnonpara/analysis/choices.hpp"
#include "tbvnonpara/analysis/ranges.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::analysis {

/// The ranges of a table in long form: one column of values, one that names the group of each, and, where
/// values belong together, one that names their block. Raises an error that says what to name instead.
[[nodiscard]] ChosenRanges chooseLongRanges(const workbook::EmbeddedApplication& application,
                                            const Choices& choices);

}  // namespace TBVNonPara::analysis
