#pragma once

#include <string>

#include "tbvnonpara/details/details.hpp"

namespace TBVNonPara::rendering {

/// The sentence that a paper needs: the test, its sizes, its statistic, P and where it comes from, and the
/// effects with their intervals. Empty where there is nothing to test.
[[nodiscard]] std::string quotableSentence(const Details& details);

}  // namespace TBVNonPara::rendering
