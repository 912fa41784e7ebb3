#pragma once

#include "adapters/calc/analysis_settings.hpp"
#include "adapters/calc/documents.hpp"

namespace TBVNonPara::calc {

/// The choices that the dialog was left with last, in whichever document, as far as they hold for other data:
/// the test and what is asked of it, but no ranges, no place for the report, and nothing about rows and
/// groups. The usual ones where none were kept, or where what was kept is no choice.
[[nodiscard]] AnalysisSettings keptChoices(const Context& context);

/// Keeps them in the user's configuration.
void keepChoices(const Context& context, const AnalysisSettings& settings);

}  // namespace TBVNonPara::calc
