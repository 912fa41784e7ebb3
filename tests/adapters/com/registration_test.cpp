#include "adapters/com/registration.hpp"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "TBVNonPara_h.h"
#include "adapters/com/text.hpp"

namespace TBVNonPara::com {

namespace {

constexpr bool is64Bit = sizeof(void*) == 8;
constexpr wchar_t path[] = L"C:\\Programs\\Tabvance\\TBVNonPara.dll";

/// Two branches of the registry of the test's own, the second for the user.
class Registration : public testing::Test {
 protected:
    static constexpr wchar_t root[] = L"Software\\TBVNonPara tests";

    Registration() {
        RegDeleteTreeW(HKEY_CURRENT_USER, root);
        m_Machine = create(L"Machine");
        m_User = create(L"User");
    }
    ~Registration() override {
        RegCloseKey(m_Machine);
        RegCloseKey(m_User);
        RegDeleteTreeW(HKEY_CURRENT_USER, root);
    }

    static HKEY create(const std::wstring& name) {
        HKEY key = nullptr;
        RegCreateKeyExW(HKEY_CURRENT_USER, (root + (L"\\" + name)).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                        nullptr, &key, nullptr);
        return key;
    }

    static std::string value(HKEY key, const std::string& name, const wchar_t* valueName = nullptr) {
        wchar_t text[MAX_PATH] = L"";
        DWORD size = sizeof text;
        if (RegGetValueW(key, toUtf16(name).c_str(), valueName, RRF_RT_REG_SZ, nullptr, text, &size) !=
            ERROR_SUCCESS) {
            return "nothing";
        }
        return toUtf8(std::wstring_view(text));
    }

    static DWORD keysBelow(HKEY key) {
        DWORD keys = 0;
        RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, nullptr, nullptr, nullptr,
                         nullptr, nullptr);
        return keys;
    }

    HKEY m_Machine;
    HKEY m_User;
};

std::string idOf(REFGUID guid) {
    wchar_t text[39] = L"";
    StringFromGUID2(guid, text, 39);
    return toUtf8(std::wstring_view(text));
}

struct RegisteredClass {
    const char* programId;
    GUID id;
    const char* interfaceName;
    GUID interfaceId;
};

const RegisteredClass registeredClasses[] = {
    {"TBVNonPara.clsNonPara", __uuidof(::clsNonPara), "_clsNonPara", __uuidof(_clsNonPara)},
    {"TBVNonPara.clsNonParaDetails", __uuidof(::clsNonParaDetails), "_clsNonParaDetails",
     __uuidof(_clsNonParaDetails)},
};

TEST_F(Registration, WritesEachClassItsNameAndItsInterface) {
    ASSERT_EQ(registerServer(m_Machine, m_User, path), S_OK);
    for (const RegisteredClass& offered : registeredClasses) {
        const std::string classKey = "CLSID\\" + idOf(offered.id);
        EXPECT_EQ(value(m_Machine, classKey + "\\InprocServer32"), toUtf8(std::wstring_view(path)));
        EXPECT_EQ(value(m_Machine, classKey + "\\InprocServer32", L"ThreadingModel"), "Apartment");
        EXPECT_EQ(value(m_Machine, classKey + "\\ProgID"), offered.programId);
        EXPECT_EQ(value(m_Machine, classKey + "\\TypeLib"), idOf(LIBID_TBVNonPara));
        EXPECT_EQ(value(m_Machine, std::string(offered.programId) + "\\CLSID"), idOf(offered.id));
        const std::string interfaceKey = "Interface\\" + idOf(offered.interfaceId);
        EXPECT_EQ(value(m_Machine, interfaceKey), offered.interfaceName);
        EXPECT_EQ(value(m_Machine, interfaceKey + "\\TypeLib"), idOf(LIBID_TBVNonPara));
    }
    EXPECT_EQ(keysBelow(m_User), 0U);
}

TEST_F(Registration, WritesTheTypeLibrary) {
    ASSERT_EQ(registerServer(m_Machine, m_User, path), S_OK);
    const std::string library = "TypeLib\\" + idOf(LIBID_TBVNonPara) + "\\1.0";
    EXPECT_EQ(value(m_Machine, library), "Tabvance Nonparametrics");
    EXPECT_EQ(value(m_Machine, library + (is64Bit ? "\\0\\win64" : "\\0\\win32")),
              toUtf8(std::wstring_view(path)));
    EXPECT_EQ(value(m_Machine, library + "\\HELPDIR"), "C:\\Programs\\Tabvance");
}

TEST_F(Registration, UnregisteringLeavesNotOneKey) {
    // What others keep there stays.
    ASSERT_EQ(registerServer(m_Machine, m_User, path), S_OK);
    EXPECT_EQ(unregisterServer(m_Machine, m_User), S_OK);
    for (const char* parent : {"CLSID", "TypeLib", "Interface"}) {
        HKEY key = nullptr;
        ASSERT_EQ(RegOpenKeyExW(m_Machine, toUtf16(parent).c_str(), 0, KEY_READ, &key), ERROR_SUCCESS);
        EXPECT_EQ(keysBelow(key), 0U) << parent;
        RegCloseKey(key);
    }
    // The three parents, which belong to the system.
    EXPECT_EQ(keysBelow(m_Machine), 3U);
}

TEST_F(Registration, LeavesTheLibraryOfTheOtherWidthItsTypeLibrary) {
    ASSERT_EQ(registerServer(m_Machine, m_User, path), S_OK);
    const std::string library =
        "TypeLib\\" + value(m_Machine, "CLSID\\" + idOf(__uuidof(::clsNonPara)) + "\\TypeLib") + "\\1.0\\0";
    const std::string own = library + (is64Bit ? "\\win64" : "\\win32");
    const std::wstring other = toUtf16(library + (is64Bit ? "\\win32" : "\\win64"));
    RegSetKeyValueW(m_Machine, other.c_str(), nullptr, REG_SZ, L"other", sizeof L"other");
    EXPECT_EQ(unregisterServer(m_Machine, m_User), S_OK);
    EXPECT_EQ(value(m_Machine, own), "nothing");
    EXPECT_EQ(value(m_Machine, toUtf8(std::wstring_view(other))), "other");
    EXPECT_EQ(value(m_Machine, "Interface\\" + idOf(__uuidof(_clsNonPara))), "_clsNonPara");
    RegDeleteTreeW(m_Machine, other.c_str());
    EXPECT_EQ(unregisterServer(m_Machine, m_User), S_OK);
    EXPECT_EQ(keysBelow(m_Machine), 3U);
}

TEST_F(Registration, RegisteringTwiceAndUnregisteringTwiceSucceed) {
    EXPECT_EQ(registerServer(m_Machine, m_User, path), S_OK);
    EXPECT_EQ(registerServer(m_Machine, m_User, path), S_OK);
    EXPECT_EQ(unregisterServer(m_Machine, m_User), S_OK);
    EXPECT_EQ(unregisterServer(m_Machine, m_User), S_OK);
}

TEST_F(Registration, GoesToTheUserWhereTheMachineRefuses) {
    // Below a key that lives in memory only, no lasting key can be made.
    HKEY refusing = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, (std::wstring(root) + L"\\Refusing").c_str(), 0, nullptr,
                    REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr, &refusing, nullptr);
    const HRESULT status = registerServer(refusing, m_User, path);
    const DWORD keys = keysBelow(refusing);
    RegCloseKey(refusing);
    EXPECT_EQ(status, S_OK);
    EXPECT_EQ(value(m_User, "TBVNonPara.clsNonPara\\CLSID"), idOf(__uuidof(::clsNonPara)));
    EXPECT_EQ(keys, 0U);
    EXPECT_EQ(unregisterServer(m_Machine, m_User), S_OK);
    EXPECT_EQ(value(m_User, "TBVNonPara.clsNonPara\\CLSID"), "nothing");
}

TEST_F(Registration, RefusalByBothIsReported) {
    HKEY closed = create(L"Closed");
    RegCloseKey(closed);
    EXPECT_TRUE(FAILED(registerServer(closed, closed, path)));
}

}  // namespace

}  // namespace TBVNonPara::com
