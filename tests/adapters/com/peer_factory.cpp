#include "tests/adapters/com/peer_factory.hpp"

#include "adapters/com/errors.hpp"
#include "tests/adapters/com/peer_application.hpp"

namespace TBVNonPara::Peer {

namespace {

class Factory final : public IClassFactory {
 public:
    STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
        const bool known = wanted == IID_IUnknown || wanted == IID_IClassFactory;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    // It lives as long as its module.
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown* /*outer*/, REFIID wanted, void** object) override {
        return peerApplication(workbook::makeApplication())->QueryInterface(wanted, object);
    }
    STDMETHODIMP LockServer(BOOL /*lock*/) override { return S_OK; }
};

std::wstring text(const GUID& guid) {
    wchar_t buffer[39] = L"";
    StringFromGUID2(guid, buffer, 39);
    return buffer;
}

void set(const std::wstring& key, const std::wstring& value, const wchar_t* name = nullptr) {
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + key).c_str(), name, REG_SZ, value.c_str(),
                    static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

void registerClass(const std::wstring& name, const GUID& id, const std::wstring& server,
                   const std::wstring& path) {
    set(name + L"\\CLSID", text(id));
    set(L"CLSID\\" + text(id) + L"\\" + server, path);
}

}  // namespace

com::ComPtr<IClassFactory> peerFactory() {
    static Factory factory;
    return com::ComPtr<IClassFactory>::share(&factory);
}

void registerPeers(const std::wstring& library, const std::wstring& program) {
    registerClass(L"TBVPeer.InProcess", inProcessClass, L"InprocServer32", library);
    set(L"CLSID\\" + text(inProcessClass) + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
    registerClass(L"TBVPeer.OutOfProcess", outOfProcessClass, L"LocalServer32", program);
    set(L"Excel.Application\\CLSID", text(outOfProcessClass));
}

void unregisterPeers() {
    for (const std::wstring& key : {std::wstring(L"TBVPeer.InProcess"), std::wstring(L"TBVPeer.OutOfProcess"),
                                    std::wstring(L"Excel.Application"), L"CLSID\\" + text(inProcessClass),
                                    L"CLSID\\" + text(outOfProcessClass)}) {
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + key).c_str());
    }
}

com::ComPtr<IDispatch> startPeer(const GUID& id, DWORD context) {
    constexpr int attempts = 20;
    constexpr DWORD milliseconds = 50;
    for (int attempt = 1;; ++attempt) {
        com::ComPtr<IDispatch> peer;
        HRESULT status =
            CoCreateInstance(id, nullptr, context, IID_IDispatch, reinterpret_cast<void**>(peer.out()));
        if (SUCCEEDED(status) && context == CLSCTX_LOCAL_SERVER) {
            Sleep(milliseconds);
            UINT count = 0;
            status = peer->GetTypeInfoCount(&count);
        }
        if (SUCCEEDED(status)) {
            return peer;
        }
        if (attempt == attempts) {
            com::check(status);
        }
        Sleep(milliseconds);
    }
}

}  // namespace TBVNonPara::Peer
