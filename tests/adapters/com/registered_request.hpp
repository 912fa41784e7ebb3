#pragma once

#include <memory>

#include "tests/whole/scenarios/scenario_host.hpp"

namespace TBVNonPara::com {

/// An object of the registered class. What it answers with comes back as an Error: its status as the number,
/// and the source and the description that the client is told.
[[nodiscard]] std::unique_ptr<Scenarios::Request> earlyBoundRequest();
[[nodiscard]] std::unique_ptr<Scenarios::Request> lateBoundRequest();

}  // namespace TBVNonPara::com
