#pragma once

#include <functional>

#include "adapters/com/com_ptr.hpp"
#include "tbvnonpara/host/Application.hpp"

namespace TBVNonPara::com {

/// The spreadsheet application behind an automation object. The object is asked for when it is first used and
/// released with the last range, sheet and application that came from it.
[[nodiscard]] ObjectRef<Application> automationApplication(std::function<ComPtr<IDispatch>()> find);

}  // namespace TBVNonPara::com
