#pragma once

#include <string>

#include "adapters/com/com_ptr.hpp"

namespace TBVNonPara::com {

/// What keeps the library loaded: objects, class factories, locks and a hooked application.
void holdModule() noexcept;
void letModuleGo() noexcept;
[[nodiscard]] bool moduleIsHeld() noexcept;

/// Keeps the library loaded to the end of the process: each time that it is loaded the compiler's runtime
/// takes a thread-local index that it never gives back, and a process has about a thousand.
void keepModuleLoaded() noexcept;

/// Holds the module for as long as it lives.
struct ModuleHold {
    ModuleHold() noexcept { holdModule(); }
    ~ModuleHold() { letModuleGo(); }
    ModuleHold(const ModuleHold&) = delete;
    ModuleHold& operator=(const ModuleHold&) = delete;
};

/// The full path of the file that this code was loaded from.
[[nodiscard]] std::wstring modulePath();

/// The description of the default interface, from the type library inside that file.
[[nodiscard]] ComPtr<ITypeInfo> typeInformation(const GUID& type);

}  // namespace TBVNonPara::com
