#pragma once

#include "adapters/com/com_ptr.hpp"

namespace TBVNonPara::com {

/// The spreadsheet application of this process, looked for in this order: the one that the add-in has hooked,
/// the one behind a window of this process, the active one when it lives in this process. Raises
/// `tbvNPApplicationElsewhere` when the only one to be found lives in another process, `tbvNPNoApplication`
/// when there is none.
[[nodiscard]] ComPtr<IDispatch> findApplication();

/// Hooks an application, or none; a hooked one keeps the library loaded. Raises `tbvNPApplicationElsewhere`
/// for one that lives in another process.
void hookApplication(ComPtr<IDispatch> application);

}  // namespace TBVNonPara::com
