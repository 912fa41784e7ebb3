#include "adapters/com/registration.hpp"

#include <initguid.h>
// It stands before what declares the GUIDs.
#include <array>

#include "TBVNonPara_h.h"
#include "adapters/com/errors.hpp"

namespace TBVNonPara::com {

namespace {

// The marshaller that works from a registered type library.
constexpr wchar_t typeLibraryMarshaller[] = L"{00020424-0000-0000-C000-000000000046}";
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

/// A class that clients can create, and its interface.
struct OfferedClass {
    const wchar_t* programId;
    GUID id;
    const wchar_t* interfaceName;
    GUID interfaceId;

    [[nodiscard]] std::wstring key() const { return L"CLSID\\" + text(id); }
    [[nodiscard]] std::wstring interfaceKey() const { return L"Interface\\" + text(interfaceId); }
};

std::array<OfferedClass, 2> offeredClasses() {
    return {{{L"TBVNonPara.clsNonPara", __uuidof(::clsNonPara), L"_clsNonPara", __uuidof(_clsNonPara)},
             {L"TBVNonPara.clsNonParaDetails", __uuidof(::clsNonParaDetails), L"_clsNonParaDetails",
              __uuidof(_clsNonParaDetails)}}};
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

void writeClass(const Classes& classes, const OfferedClass& offered, const std::wstring& path) {
    const std::wstring key = offered.key();
    classes.set(key, offered.programId);
    classes.set(key + L"\\InprocServer32", path);
    classes.set(key + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
    classes.set(key + L"\\ProgID", offered.programId);
    classes.set(key + L"\\TypeLib", text(LIBID_TBVNonPara));
    classes.set(key + L"\\Version", libraryVersion);
    classes.set(offered.programId, offered.programId);
    classes.set(std::wstring(offered.programId) + L"\\CLSID", text(offered.id));
}

void writeInterface(const Classes& classes, const OfferedClass& offered) {
    const std::wstring key = offered.interfaceKey();
    classes.set(key, offered.interfaceName);
    classes.set(key + L"\\ProxyStubClsid32", typeLibraryMarshaller);
    classes.set(key + L"\\TypeLib", text(LIBID_TBVNonPara));
    classes.set(key + L"\\TypeLib", libraryVersion, L"Version");
}

void writeTypeLibrary(const Classes& classes, const std::wstring& path) {
    const std::wstring version = versionKey();
    classes.set(version, L"Tabvance Nonparametrics");
    classes.set(version + ownPlatform, path);
    classes.set(version + L"\\FLAGS", L"0");
    classes.set(version + L"\\HELPDIR", path.substr(0, path.find_last_of(L'\\')));
}

void removeAll(HKEY key) {
    const Classes classes(key);
    for (const OfferedClass& offered : offeredClasses()) {
        classes.remove(offered.key());
    }
    classes.remove(versionKey() + ownPlatform);
    // What the library of the other width needs as well goes with the last of the two.
    if (classes.has(versionKey() + otherPlatform)) {
        return;
    }
    for (const OfferedClass& offered : offeredClasses()) {
        classes.remove(offered.programId);
        classes.remove(offered.interfaceKey());
    }
    classes.remove(libraryKey());
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
        const Classes classes(key);
        for (const OfferedClass& offered : offeredClasses()) {
            writeClass(classes, offered, path);
            writeInterface(classes, offered);
        }
        writeTypeLibrary(classes, path);
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
