#pragma once

#include <memory>
#include <string_view>

#include "TBVNonPara_h.h"
#include "adapters/com/com_ptr.hpp"
#include "tests/whole/scenarios/scenario_host.hpp"

namespace TBVNonPara::com {

/// A request to an object through its table of functions, or by the names of its members. What the object
/// answers with comes back as an Error: its status as the number, and the source and the description that the
/// client is told.
[[nodiscard]] std::unique_ptr<Scenarios::Request> earlyBoundRequest(ComPtr<_clsNonPara> object);
[[nodiscard]] std::unique_ptr<Scenarios::Request> lateBoundRequest(ComPtr<IDispatch> object);

/// A request to a new object of the registered class, bound "early" or "late"; no other word will do.
[[nodiscard]] std::unique_ptr<Scenarios::Request> registeredRequest(std::string_view binding);

}  // namespace TBVNonPara::com
