#pragma once

#include <string>

#include "TBVNonPara_h.h"
#include "adapters/com/com_ptr.hpp"

namespace TBVNonPara::com {

/// The server's file: the one beside the test program.
[[nodiscard]] std::wstring serverPath();

/// The server, loaded from its file rather than by its registration, and unloaded with this.
class LoadedServer {
 public:
    LoadedServer();
    LoadedServer(const LoadedServer&) = delete;
    LoadedServer& operator=(const LoadedServer&) = delete;
    ~LoadedServer();

    [[nodiscard]] ComPtr<IClassFactory> factory(REFCLSID id = __uuidof(::clsNonPara)) const;
    [[nodiscard]] ComPtr<_clsNonPara> create() const;
    [[nodiscard]] ComPtr<_clsNonParaDetails> createDetails() const;
    [[nodiscard]] bool canUnload() const;
    HRESULT setApplication(IDispatch* application) const;

    template <typename Function>
    [[nodiscard]] Function* function(const char* name) const {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(m_Module, name)));
    }

 private:
    HMODULE m_Module;
};

}  // namespace TBVNonPara::com
