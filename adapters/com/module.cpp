#include "adapters/com/module.hpp"

#include <atomic>

#include "adapters/com/errors.hpp"

namespace TBVNonPara::com {

namespace {

std::atomic<long> holds = 0;

HMODULE thisModule(DWORD flag) noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | flag,
                       reinterpret_cast<const wchar_t*>(&holds), &module);
    return module;
}

}  // namespace

void holdModule() noexcept {
    holds += 1;
}

void letModuleGo() noexcept {
    holds -= 1;
}

bool moduleIsHeld() noexcept {
    return holds != 0;
}

void keepModuleLoaded() noexcept {
    (void)thisModule(GET_MODULE_HANDLE_EX_FLAG_PIN);
}

std::wstring modulePath() {
    const HMODULE module = thisModule(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT);
    // A path that does not fit comes back cut, with the length of the buffer; long ones have no fixed limit.
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) {
            throw errorOf(HRESULT_FROM_WIN32(GetLastError()));
        }
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

ComPtr<ITypeInfo> typeInformation(const GUID& type) {
    ComPtr<ITypeLib> library;
    // From this file's own resource and without registering it, which calling a member must not do.
    check(LoadTypeLibEx(modulePath().c_str(), REGKIND_NONE, library.out()));
    ComPtr<ITypeInfo> information;
    check(library->GetTypeInfoOfGuid(type, information.out()));
    return information;
}

}  // namespace TBVNonPara::com
