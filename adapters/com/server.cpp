#include <string_view>

#include "adapters/com/class_factory.hpp"
#include "adapters/com/errors.hpp"
#include "adapters/com/find_application.hpp"
#include "adapters/com/registration.hpp"

// What the library exports. (The names and types are the system's, hence outside any namespace.)

namespace com = TBVNonPara::com;

namespace {

/// A branch of the registry in which classes are looked up; opened for what registration does.
class ClassesKey {
 public:
    explicit ClassesKey(HKEY hive) {
        // Keys can be removed only below one that was opened for it. Who may not write can still look.
        if (open(hive, KEY_READ | KEY_WRITE | DELETE) != ERROR_SUCCESS) {
            open(hive, KEY_READ);
        }
    }
    ClassesKey(const ClassesKey&) = delete;
    ClassesKey& operator=(const ClassesKey&) = delete;
    ~ClassesKey() {
        if (m_Key != nullptr) {
            RegCloseKey(m_Key);
        }
    }

    [[nodiscard]] HKEY get() const { return m_Key; }

 private:
    LSTATUS open(HKEY hive, REGSAM rights) {
        return RegCreateKeyExW(hive, L"Software\\Classes", 0, nullptr, 0, rights, nullptr, &m_Key, nullptr);
    }

    HKEY m_Key = nullptr;
};

/// Makes the classes known, or forgets them, below one branch only.
HRESULT installBelow(HKEY hive, bool install) {
    const ClassesKey classes(hive);
    return install ? com::registerServer(classes.get(), classes.get(), com::modulePath())
                   : com::unregisterServer(classes.get(), classes.get());
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID wanted, REFIID interfaceId, void** object) {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    try {
        const com::ComPtr<com::ClassFactory> factory = com::factoryOf(wanted);
        if (!factory) {
            return CLASS_E_CLASSNOTAVAILABLE;
        }
        const HRESULT status = factory->QueryInterface(interfaceId, object);
        if (SUCCEEDED(status)) {
            com::keepModuleLoaded();
        }
        return status;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

STDAPI DllCanUnloadNow() {
    return com::moduleIsHeld() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
    try {
        const ClassesKey machine(HKEY_LOCAL_MACHINE);
        const ClassesKey user(HKEY_CURRENT_USER);
        return com::registerServer(machine.get(), user.get(), com::modulePath());
    } catch (...) {
        return com::toErrorInfo();
    }
}

STDAPI DllUnregisterServer() {
    const ClassesKey machine(HKEY_LOCAL_MACHINE);
    const ClassesKey user(HKEY_CURRENT_USER);
    return com::unregisterServer(machine.get(), user.get());
}

/// As the two above, for whom the words after regsvr32's /i: say: "user" or "machine", without words for whom
/// it can.
STDAPI DllInstall(BOOL install, PCWSTR words) {
    try {
        const std::wstring_view scope = words == nullptr ? L"" : words;
        if (scope.empty()) {
            return install != FALSE ? DllRegisterServer() : DllUnregisterServer();
        }
        if (scope != L"user" && scope != L"machine") {
            return E_INVALIDARG;
        }
        return installBelow(scope == L"user" ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE, install != FALSE);
    } catch (...) {
        return com::toErrorInfo();
    }
}

/// Tells the library which application it works for; none releases the application. For add-ins whose
/// application cannot be found by its window.
STDAPI SetApplication(IDispatch* application) {
    try {
        com::hookApplication(com::ComPtr<IDispatch>::share(application));
        return S_OK;
    } catch (...) {
        return com::toErrorInfo();
    }
}
