#pragma once

#include <string>
#include <string_view>

#include "tbvnonpara/analysis/ranges.hpp"
#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/request/tests_offered.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::cli {

/// What is known of a run when an error is explained. The ranges are empty until they are chosen.
struct Circumstances {
    const OfferedTest* test = nullptr;
    analysis::ChosenRanges ranges;
};

/// One or two sentences: what happened, to which range or option, and what to do. An error that brings its
/// own description says that.
[[nodiscard]] std::string explain(const Error& error, const Circumstances& circumstances);

/// The explanation, and below it number, name and source, for standard error.
[[nodiscard]] std::string errorText(const Error& error, const Circumstances& circumstances);

/// The same as one JSON object on a line.
[[nodiscard]] std::string errorInJson(const Error& error, const Circumstances& circumstances);

/// A refusal with the option that helps behind its description, and the command to type where groups are to
/// be picked.
[[nodiscard]] Error withRemedy(const reshaping::Refusal& refusal, std::string_view command);

}  // namespace TBVNonPara::cli
