#pragma once

#include "adapters/calc/analysis_settings.hpp"
#include "adapters/calc/dialog_texts.hpp"
#include "adapters/calc/documents.hpp"

namespace TBVNonPara::calc {

/// What the two samples of the settings are called: by the labels above their columns, or as the two groups
/// that are compared. None where one of them has no name, or the ranges are none yet.
[[nodiscard]] SampleNames sampleNames(const DocumentRef& document, const AnalysisSettings& settings);

}  // namespace TBVNonPara::calc
