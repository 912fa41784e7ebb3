#pragma once

#include "adapters/calc/dialog_texts.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::calc {

/// What helps against a refusal, in the dialog's terms; empty where the data must be corrected.
[[nodiscard]] std::string remedyText(const DialogTexts& texts, reshaping::Remedy remedy);

/// A refusal and what helps.
[[nodiscard]] std::string refusalWords(const reshaping::Refusal& refusal, std::string_view language);

}  // namespace TBVNonPara::calc
