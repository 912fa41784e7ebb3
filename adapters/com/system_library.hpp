#pragma once

#include "adapters/com/windows.hpp"

namespace TBVNonPara::com {

/// A library of the system, for what a process without windows does not need to have loaded.
class SystemLibrary {
 public:
    explicit SystemLibrary(const wchar_t* name)
        : m_Module(LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) {}
    SystemLibrary(const SystemLibrary&) = delete;
    SystemLibrary& operator=(const SystemLibrary&) = delete;
    ~SystemLibrary() {
        if (m_Module != nullptr) {
            FreeLibrary(m_Module);
        }
    }

    /// Null where the system has no such function.
    template <typename Function>
    [[nodiscard]] Function* function(const char* name) const {
        const FARPROC address = m_Module == nullptr ? nullptr : GetProcAddress(m_Module, name);
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(address));
    }

 private:
    HMODULE m_Module;
};

}  // namespace TBVNonPara::com
