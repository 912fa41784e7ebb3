#pragma once

#include "adapters/calc/background_run.hpp"
#include "adapters/calc/dialog_texts.hpp"

namespace TBVNonPara::calc {

/// Why a report that was placed is not all that was wanted: one sentence a line; empty where it is.
[[nodiscard]] std::string wordsOnWhatIsMissing(const Outcome& outcome, const DialogTexts& texts);

}  // namespace TBVNonPara::calc
