#include "tests/adapters/com/tested_server.hpp"

#include "adapters/com/errors.hpp"

namespace TBVNonPara::com {

namespace {

template <typename Interface>
ComPtr<Interface> created(IClassFactory& factory) {
    ComPtr<Interface> object;
    check(factory.CreateInstance(nullptr, __uuidof(Interface), reinterpret_cast<void**>(object.out())));
    return object;
}

}  // namespace

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

ComPtr<IClassFactory> LoadedServer::factory(REFCLSID id) const {
    ComPtr<IClassFactory> factory;
    check(function<decltype(DllGetClassObject)>("DllGetClassObject")(
        id, IID_IClassFactory, reinterpret_cast<void**>(factory.out())));
    return factory;
}

ComPtr<_clsNonPara> LoadedServer::create() const {
    return created<_clsNonPara>(*factory().get());
}

ComPtr<_clsNonParaDetails> LoadedServer::createDetails() const {
    return created<_clsNonParaDetails>(*factory(__uuidof(::clsNonParaDetails)).get());
}

bool LoadedServer::canUnload() const {
    return function<decltype(DllCanUnloadNow)>("DllCanUnloadNow")() == S_OK;
}

HRESULT LoadedServer::setApplication(IDispatch* application) const {
    return function<HRESULT WINAPI(IDispatch*)>("SetApplication")(application);
}

}  // namespace TBVNonPara::com
