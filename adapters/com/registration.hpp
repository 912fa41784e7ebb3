#pragma once

#include <string>

#include "adapters/com/windows.hpp"

namespace TBVNonPara::com {

/// Writes what clients need to create the objects and to read their type library: below the first of the two
/// keys of classes that takes it, the machine's and then the user's. What was written before a failure is
/// removed again.
[[nodiscard]] HRESULT registerServer(HKEY machineClasses, HKEY userClasses,
                                     const std::wstring& path) noexcept;

/// Removes it from below both keys; not one key stays. Succeeds when there is nothing to remove.
[[nodiscard]] HRESULT unregisterServer(HKEY machineClasses, HKEY userClasses) noexcept;

}  // namespace TBVNonPara::com
