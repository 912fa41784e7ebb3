#pragma once

#include <string>
#include <vector>

#include "tests/whole/scenarios/scenario_host.hpp"

namespace TBVNonPara::Scenarios {

/// The parts of a text between commas that a blank follows; a comma inside an address has none.
[[nodiscard]] std::vector<std::string> splitList(const std::vector<std::string>& lines);

/// Puts the settings of a request in the order in which they are written and calls Results. OverWrite is the
/// argument of Results; the others are properties. Raises std::runtime_error for a setting that does not
/// exist.
void carryOut(Request& request, const std::vector<std::string>& settings);

}  // namespace TBVNonPara::Scenarios
