#include "tests/adapters/com/peer_tests.hpp"

#include <utility>

#include "adapters/com/errors.hpp"
#include "adapters/com/text.hpp"

namespace TBVNonPara::Peer {

namespace {

using com::check;
using com::ComPtr;
using com::Variant;

HWND shownWindow = nullptr;
DWORD activeRegistration = 0;

CLSID classNamed(const wchar_t* name) {
    CLSID result;
    check(CLSIDFromProgID(name, &result));
    return result;
}

/// The file of the registered library.
std::wstring libraryPath() {
    wchar_t id[39] = L"";
    StringFromGUID2(classNamed(L"TBVNonPara.clsNonPara"), id, 39);
    const std::wstring key = std::wstring(L"CLSID\\") + id + L"\\InprocServer32";
    wchar_t path[MAX_PATH] = L"";
    DWORD size = sizeof path;
    RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, path, &size);
    return path;
}

/// A hook lasts as long as its library is loaded.
Variant hook(IDispatch* application) {
    static HMODULE library = nullptr;
    if (library == nullptr) {
        library = LoadLibraryW(libraryPath().c_str());
    }
    using SetApplication = HRESULT(WINAPI*)(IDispatch*);
    const auto set =
        reinterpret_cast<SetApplication>(reinterpret_cast<void*>(GetProcAddress(library, "SetApplication")));
    if (set == nullptr) {
        raise(RuntimeError::ObjectNotSet);
    }
    const HRESULT status = set(application);
    if (application == nullptr) {
        FreeLibrary(std::exchange(library, nullptr));
    }
    return Variant(static_cast<std::int32_t>(status));
}

Variant publish(IDispatch* application) {
    check(RegisterActiveObject(application, classNamed(L"Excel.Application"), ACTIVEOBJECT_WEAK,
                               &activeRegistration));
    return Variant();
}

Variant withdraw() {
    check(RevokeActiveObject(activeRegistration, nullptr));
    return Variant();
}

Variant create(const std::string& name) {
    ComPtr<IDispatch> object;
    check(CoCreateInstance(classNamed(com::toUtf16(name).c_str()), nullptr, CLSCTX_INPROC_SERVER,
                           IID_IDispatch, reinterpret_cast<void**>(object.out())));
    return Variant(object);
}

}  // namespace

void setWindow(HWND window) noexcept {
    shownWindow = window;
}

void addTestMembers(PeerObject& application) {
    IDispatch* self = &application;
    application.add(plain(L"Application", [self] { return Variant(ComPtr<IDispatch>::share(self)); }));
    application.add(
        plain(L"Hwnd", [] { return Variant(static_cast<std::int32_t>(HandleToLong(shownWindow))); }));
    application.add(plain(L"Calls", [] { return Variant(std::int32_t(callsReceived())); }));
    application.add(plain(L"Objects", [] { return Variant(std::int32_t(objectsAlive())); }));
    application.add(plain(L"Hook", [self] { return hook(self); }));
    application.add(plain(L"Unhook", [] { return hook(nullptr); }));
    application.add(plain(L"Publish", [self] { return publish(self); }));
    application.add(plain(L"Withdraw", [] { return withdraw(); }));
    application.add({L"CreateObject", [](const Arguments& a) { return create(a.text(0)); }});
}

}  // namespace TBVNonPara::Peer
