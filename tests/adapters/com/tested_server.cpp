#include "tests/adapters/com/tested_server.hpp"

#include "adapters/com/errors.hpp"

namespace TBVNonPara::com {

std::wstring serverPath() {
    wchar_t name[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, name, MAX_PATH);
    const std::wstring program(name);
    return program.substr(0, program.find_last_of(L'\\') + 1) + L"TBVNonPara.dll";
}

LoadedServer::LoadedServer() : m_Module(LoadLibraryW(serverPath().c_str())) {
    if (m_Module == nullptr) {
        throw errorOf(HRESULT_FROM_WIN32(GetLastError()));
    }
}

LoadedServer::~LoadedServer() {
    FreeLibrary(m_Module);
}

ComPtr<IClassFactory> LoadedServer::factory() const {
    ComPtr<IClassFactory> factory;
    check(function<decltype(DllGetClassObject)>("DllGetClassObject")(
        __uuidof(::clsNonPara), IID_IClassFactory, reinterpret_cast<void**>(factory.out())));
    return factory;
}

ComPtr<_clsNonPara> LoadedServer::create() const {
    ComPtr<_clsNonPara> object;
    check(factory()->CreateInstance(nullptr, __uuidof(_clsNonPara), reinterpret_cast<void**>(object.out())));
    return object;
}

bool LoadedServer::canUnload() const {
    return function<decltype(DllCanUnloadNow)>("DllCanUnloadNow")() == S_OK;
}

HRESULT LoadedServer::setApplication(IDispatch* application) const {
    return function<HRESULT WINAPI(IDispatch*)>("SetApplication")(application);
}

}  // namespace TBVNonPara::com
