#include "adapters/com/registration.hpp"

#include <initguid.h>

#include "TBVNonPara_h.h"
#include "adapters/com/errors.hpp"

namespace TBVNonPara::com {

namespace {

// The marshaller that works from a registered type library.
constexpr wchar_t typeLibraryMarshaller[] = L"{00020424-0000-0000-C000-000000000046}";
constexpr wchar_t programId[] = L"TBVNonPara.clsNonPara";
constexpr wchar_t libraryVersion[] = L"1.0";
// A type library's key is the same for libraries of both widths.
constexpr bool is64Bit = sizeof(void*) == 8;
constexpr const wchar_t* ownPlatform = is64Bit ? L"\\0\\win64" : L"\\0\\win32";
constexpr const wchar_t* otherPlatform = is64Bit ? L"\\0\\win32" : L"\\0\\win64";

std::wstring text(REFGUID guid) {
    wchar_t buffer[39] = L"";
    StringFromGUID2(guid, buffer, 39);
    return buffer;
}

std::wstring classKey() {
    return L"CLSID\\" + text(__uuidof(::clsNonPara));
}

std::wstring interfaceKey() {
    return L"Interface\\" + text(__uuidof(_clsNonPara));
}

std::wstring libraryKey() {
    return L"TypeLib\\" + text(LIBID_TBVNonPara);
}

std::wstring versionKey() {
    return libraryKey() + L"\\" + libraryVersion;
}

class Classes {
 public:
    explicit Classes(HKEY key) : m_Key(key) {}

    void set(const std::wstring& key, const std::wstring& value, const wchar_t* name = nullptr) const {
        HKEY created = nullptr;
        require(
            RegCreateKeyExW(m_Key, key.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &created, nullptr));
        const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
        const LSTATUS status =
            RegSetValueExW(created, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()), bytes);
        RegCloseKey(created);
        require(status);
    }

    [[nodiscard]] bool has(const std::wstring& key) const {
        HKEY found = nullptr;
        if (RegOpenKeyExW(m_Key, key.c_str(), 0, KEY_QUERY_VALUE, &found) != ERROR_SUCCESS) {
            return false;
        }
        RegCloseKey(found);
        return true;
    }

    void remove(const std::wstring& key) const {
        const LSTATUS status = RegDeleteTreeW(m_Key, key.c_str());
        if (status != ERROR_FILE_NOT_FOUND) {
            require(status);
        }
    }

 private:
    static void require(LSTATUS status) {
        if (status != ERROR_SUCCESS) {
            throw Error(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
        }
    }

    HKEY m_Key;
};

void writeClass(const Classes& classes, const std::wstring& path) {
    classes.set(classKey(), programId);
    classes.set(classKey() + L"\\InprocServer32", path);
    classes.set(classKey() + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
    classes.set(classKey() + L"\\ProgID", programId);
    classes.set(classKey() + L"\\TypeLib", text(LIBID_TBVNonPara));
    classes.set(classKey() + L"\\Version", libraryVersion);
    classes.set(programId, programId);
    classes.set(std::wstring(programId) + L"\\CLSID", text(__uuidof(::clsNonPara)));
}

void writeTypeLibrary(const Classes& classes, const std::wstring& path) {
    const std::wstring version = versionKey();
    classes.set(version, L"Tabvance Nonparametrics");
    classes.set(version + ownPlatform, path);
    classes.set(version + L"\\FLAGS", L"0");
    classes.set(version + L"\\HELPDIR", path.substr(0, path.find_last_of(L'\\')));
    classes.set(interfaceKey(), L"_clsNonPara");
    classes.set(interfaceKey() + L"\\ProxyStubClsid32", typeLibraryMarshaller);
    classes.set(interfaceKey() + L"\\TypeLib", text(LIBID_TBVNonPara));
    classes.set(interfaceKey() + L"\\TypeLib", libraryVersion, L"Version");
}

void removeAll(HKEY key) {
    const Classes classes(key);
    classes.remove(classKey());
    classes.remove(versionKey() + ownPlatform);
    // What the library of the other width needs as well goes with the last of the two.
    if (!classes.has(versionKey() + otherPlatform)) {
        for (const std::wstring& root : {std::wstring(programId), interfaceKey(), libraryKey()}) {
            classes.remove(root);
        }
    }
}

HRESULT statusOf(auto body) noexcept {
    try {
        body();
        return S_OK;
    } catch (const Error& error) {
        return toHresult(error.number());
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

HRESULT registerBelow(HKEY key, const std::wstring& path) noexcept {
    const HRESULT status = statusOf([&] {
        writeClass(Classes(key), path);
        writeTypeLibrary(Classes(key), path);
    });
    if (FAILED(status)) {
        (void)statusOf([&] { removeAll(key); });
    }
    return status;
}

}  // namespace

HRESULT registerServer(HKEY machineClasses, HKEY userClasses, const std::wstring& path) noexcept {
    const HRESULT status = registerBelow(machineClasses, path);
    return FAILED(status) ? registerBelow(userClasses, path) : status;
}

HRESULT unregisterServer(HKEY machineClasses, HKEY userClasses) noexcept {
    const HRESULT machine = statusOf([&] { removeAll(machineClasses); });
    const HRESULT user = statusOf([&] { removeAll(userClasses); });
    return FAILED(machine) ? machine : user;
}

}  // namespace TBVNonPara::com
