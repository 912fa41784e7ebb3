#pragma once

#include <functional>
#include <variant>
#include <vector>

#include "python/engine/tested.hpp"

namespace TBVNonPara::python {

/// What became of each of several tests: a result, or why there is none.
using TestedOrNot = std::variant<Tested, std::string>;

/// Runs `count` tests on all processors, each on the samples that `samplesOf` gives for its number from 0.
/// `look` is called on this thread from time to time; what it throws ends them all.
[[nodiscard]] std::vector<TestedOrNot> runMany(const OfferedTest& test, std::size_t count,
                                               const std::function<Samples(std::size_t)>& samplesOf,
                                               const Choices& choices, const std::function<void()>& look);

}  // namespace TBVNonPara::python
