#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "TBVNonPara_h.h"
#include "adapters/com/com_ptr.hpp"
#include "adapters/com/errors.hpp"
#include "adapters/com/text.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tests/adapters/com/tested_server.hpp"

namespace TBVNonPara::com {

namespace {

/// The type library inside the server's file.
class TypeLibrary : public testing::Test {
 protected:
    void SetUp() override { check(LoadTypeLibEx(serverPath().c_str(), REGKIND_NONE, m_Library.out())); }

    struct Documentation {
        std::string name;
        std::string help;
    };

    static std::string take(BSTR text) {
        std::string result = toUtf8(text);
        SysFreeString(text);
        return result;
    }

    [[nodiscard]] Documentation documentation(INT type) const {
        BSTR name = nullptr;
        BSTR help = nullptr;
        check(m_Library->GetDocumentation(type, &name, &help, nullptr, nullptr));
        return {take(name), take(help)};
    }

    [[nodiscard]] ComPtr<ITypeInfo> type(const wchar_t* name) const {
        ComPtr<ITypeInfo> found;
        MEMBERID member = 0;
        USHORT count = 1;
        std::wstring asked(name);
        check(m_Library->FindName(asked.data(), 0, found.out(), &member, &count));
        return found;
    }

    static std::vector<std::string> names(ITypeInfo& type, MEMBERID member) {
        BSTR raw[4] = {};
        UINT count = 0;
        check(type.GetNames(member, raw, 4, &count));
        std::vector<std::string> result;
        for (UINT k = 0; k < count; ++k) {
            result.push_back(take(raw[k]));
        }
        return result;
    }

    /// "tbvNPMannU = 0", and so on.
    [[nodiscard]] std::vector<std::string> constants(const wchar_t* enumeration) const {
        const ComPtr<ITypeInfo> info = type(enumeration);
        TYPEATTR* attributes = nullptr;
        check(info->GetTypeAttr(&attributes));
        EXPECT_EQ(attributes->typekind, TKIND_ENUM);
        const UINT count = attributes->cVars;
        info->ReleaseTypeAttr(attributes);
        std::vector<std::string> result;
        for (UINT k = 0; k < count; ++k) {
            VARDESC* variable = nullptr;
            check(info->GetVarDesc(k, &variable));
            result.push_back(names(*info.get(), variable->memid).front() + " = " +
                             std::to_string(variable->lpvarValue->lVal));
            info->ReleaseVarDesc(variable);
        }
        return result;
    }

    ComPtr<ITypeLib> m_Library;
};

TEST_F(TypeLibrary, BearsTheNameAndTheHelpString) {
    EXPECT_EQ(documentation(-1).name, "TBVNonPara");
    EXPECT_EQ(documentation(-1).help, "Tabvance Nonparametrics");
}

TEST_F(TypeLibrary, HoldsTheEnumerationsAndEachInterfaceWithItsClass) {
    std::vector<std::string> types;
    for (UINT k = 0; k < m_Library->GetTypeInfoCount(); ++k) {
        types.push_back(documentation(static_cast<INT>(k)).name);
    }
    EXPECT_EQ(types, (std::vector<std::string>{"TBVNPMethod", "TBVNPTails", "tbvNonParaErrors", "TBVNPErrors",
                                               "_clsNonPara", "clsNonPara", "_clsNonParaDetails",
                                               "clsNonParaDetails"}));
}

TEST_F(TypeLibrary, NumbersTheTests) {
    EXPECT_EQ(constants(L"TBVNPMethod"),
              (std::vector<std::string>{"tbvNPMannU = 0", "tbvNPWilcoxon = 1", "tbvNPSpearman = 2",
                                        "tbvNPSign = 3", "tbvNPMedian = 4", "tbvNPFriedman = 5",
                                        "tbvNPKWallis = 6", "tbvNPWWRuns = 7"}));
}

TEST_F(TypeLibrary, NumbersTheAlternatives) {
    EXPECT_EQ(constants(L"TBVNPTails"),
              (std::vector<std::string>{"tbvNPTwoTailed = 0", "tbvNPVar1GTVar2 = 1", "tbvNPVar1LTVar2 = 2"}));
}

TEST_F(TypeLibrary, NumbersTheNamedError) {
    EXPECT_EQ(constants(L"tbvNonParaErrors"),
              (std::vector<std::string>{"tbvNPInvalidSignSymbols = -2147215504"}));
}

/// The errors that a header of the library numbers, as `constants` writes them.
std::vector<std::string> errorsIn(const std::string& header) {
    std::ifstream file(TBVNONPARA_TESTS "/../" + header);
    std::ostringstream read;
    read << file.rdbuf();
    const std::string text = read.str();
    const std::regex error(R"((\w+) = objectErrorBase \+ (\d+))");
    std::vector<std::string> errors;
    for (std::sregex_iterator found(text.begin(), text.end(), error), end; found != end; ++found) {
        errors.push_back((*found)[1].str() + " = " +
                         std::to_string(objectErrorBase + std::stoi((*found)[2])));
    }
    return errors;
}

TEST_F(TypeLibrary, HoldsEveryErrorOfTheLibraryAndNoOther) {
    std::vector<std::string> held = constants(L"tbvNonParaErrors");
    std::ranges::copy(constants(L"TBVNPErrors"), std::back_inserter(held));
    std::vector<std::string> raised = errorsIn("tbvnonpara/core/enumerations.hpp");
    ASSERT_GE(raised.size(), 20U);
    std::ranges::copy(errorsIn("adapters/com/errors.hpp"), std::back_inserter(raised));
    std::ranges::sort(held);
    std::ranges::sort(raised);
    EXPECT_EQ(held, raised);
}

TEST_F(TypeLibrary, SaysOfEachTypeWhatItIsFor) {
    for (UINT k = 0; k < m_Library->GetTypeInfoCount(); ++k) {
        const Documentation said = documentation(static_cast<INT>(k));
        EXPECT_GE(said.help.size(), 10U) << said.name;
    }
}

/// A class and its interface.
struct ClassCase {
    const wchar_t* name;
    GUID id;
    const wchar_t* interfaceName;
    GUID interfaceId;
};

void PrintTo(const ClassCase& offered, std::ostream* out) {
    *out << toUtf8(std::wstring_view(offered.name));
}

const ClassCase offeredClasses[] = {
    {L"clsNonPara", __uuidof(::clsNonPara), L"_clsNonPara", __uuidof(_clsNonPara)},
    {L"clsNonParaDetails", __uuidof(::clsNonParaDetails), L"_clsNonParaDetails",
     __uuidof(_clsNonParaDetails)},
};

class OfferedClass : public TypeLibrary, public testing::WithParamInterface<ClassCase> {};

TEST_P(OfferedClass, IsCreatableAndItsDefaultIsItsInterface) {
    const ComPtr<ITypeInfo> info = type(GetParam().name);
    TYPEATTR* attributes = nullptr;
    check(info->GetTypeAttr(&attributes));
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_EQ(attributes->guid, GetParam().id);
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE, 0);
    EXPECT_EQ(attributes->cImplTypes, 1);
    info->ReleaseTypeAttr(attributes);

    INT flags = 0;
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> implemented;
    check(info->GetImplTypeFlags(0, &flags));
    check(info->GetRefTypeOfImplType(0, &reference));
    check(info->GetRefTypeInfo(reference, implemented.out()));
    EXPECT_EQ(flags & IMPLTYPEFLAG_FDEFAULT, IMPLTYPEFLAG_FDEFAULT);
    EXPECT_EQ(flags & IMPLTYPEFLAG_FSOURCE, 0);
    BSTR name = nullptr;
    check(implemented->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr));
    EXPECT_EQ(take(name), toUtf8(std::wstring_view(GetParam().interfaceName)));
}

TEST_P(OfferedClass, HasAnInterfaceThatIsDualAndFixed) {
    const ComPtr<ITypeInfo> info = type(GetParam().interfaceName);
    TYPEATTR* attributes = nullptr;
    check(info->GetTypeAttr(&attributes));
    EXPECT_EQ(attributes->typekind, TKIND_DISPATCH);
    EXPECT_EQ(attributes->guid, GetParam().interfaceId);
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FDUAL, 0);
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FNONEXTENSIBLE, 0);
    info->ReleaseTypeAttr(attributes);
}

INSTANTIATE_TEST_SUITE_P(Com, OfferedClass, testing::ValuesIn(offeredClasses),
                         [](const auto& tested) { return toUtf8(std::wstring_view(tested.param.name)); });

struct MemberCase {
    const char* name;
    const char* parameter;
    INVOKEKIND kind;
    VARTYPE type;
    const wchar_t* enumeration;
};

// clang-format off
const MemberCase members[] = {
    {"Method",             "",          INVOKE_PROPERTYPUT, VT_USERDEFINED, L"TBVNPMethod"},
    {"Headers",            "",          INVOKE_PROPERTYPUT, VT_BOOL,        nullptr},
    {"OutputDescriptives", "",          INVOKE_PROPERTYPUT, VT_BOOL,        nullptr},
    {"IgnoreTies",         "",          INVOKE_PROPERTYPUT, VT_BOOL,        nullptr},
    {"Tails",              "",          INVOKE_PROPERTYPUT, VT_USERDEFINED, L"TBVNPTails"},
    {"YRange",             "",          INVOKE_PROPERTYPUT, VT_BSTR,        nullptr},
    {"XRange",             "",          INVOKE_PROPERTYPUT, VT_BSTR,        nullptr},
    {"OutputRange",        "",          INVOKE_PROPERTYPUT, VT_BSTR,        nullptr},
    {"Results",            "OverWrite", INVOKE_FUNC,        VT_PTR,         nullptr},
};
// clang-format on

/// The interface as late-bound clients see it; its own functions stand behind the seven of IDispatch.
class Interface : public TypeLibrary {
 protected:
    static constexpr UINT inherited = 7;
    static constexpr UINT slotSize = sizeof(void*);

    explicit Interface(const wchar_t* name = L"_clsNonPara") : m_Name(name) {}

    void SetUp() override {
        TypeLibrary::SetUp();
        m_Interface = type(m_Name);
        check(m_Interface->GetTypeAttr(&m_Attributes));
    }
    void TearDown() override { m_Interface->ReleaseTypeAttr(m_Attributes); }

    void expectMember(UINT position, const MemberCase& expected) const {
        FUNCDESC* function = nullptr;
        check(m_Interface->GetFuncDesc(inherited + position, &function));
        const std::vector<std::string> found = names(*m_Interface.get(), function->memid);
        EXPECT_EQ(found.front(), expected.name);
        EXPECT_EQ(function->memid, static_cast<MEMBERID>(position) + 1);
        EXPECT_EQ(function->invkind, expected.kind);
        EXPECT_EQ(function->oVft, static_cast<SHORT>((inherited + position) * slotSize));
        EXPECT_EQ(function->cParams, 1);
        EXPECT_EQ(function->elemdescFunc.tdesc.vt, VT_VOID) << expected.name;
        expectParameter(function->lprgelemdescParam[0], expected);
        if (*expected.parameter != '\0') {
            EXPECT_EQ(found.back(), expected.parameter);
        }
        m_Interface->ReleaseFuncDesc(function);
    }

    void expectParameter(const ELEMDESC& parameter, const MemberCase& expected) const {
        EXPECT_EQ(parameter.tdesc.vt, expected.type) << expected.name;
        if (expected.enumeration != nullptr) {
            EXPECT_EQ(referencedName(parameter.tdesc.hreftype),
                      toUtf8(std::wstring_view(expected.enumeration)));
        }
        const USHORT flags = parameter.paramdesc.wParamFlags;
        if (expected.kind == INVOKE_FUNC) {
            constexpr USHORT optionalByReference =
                PARAMFLAG_FIN | PARAMFLAG_FOUT | PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT;
            EXPECT_EQ(flags, optionalByReference);
            EXPECT_EQ(parameter.tdesc.lptdesc->vt, VT_BOOL);
            EXPECT_EQ(parameter.paramdesc.pparamdescex->varDefaultValue.boolVal, VARIANT_FALSE);
        } else {
            EXPECT_EQ(flags, PARAMFLAG_FIN) << expected.name;
        }
    }

    [[nodiscard]] std::string referencedName(HREFTYPE reference) const {
        ComPtr<ITypeInfo> referenced;
        check(m_Interface->GetRefTypeInfo(reference, referenced.out()));
        BSTR name = nullptr;
        check(referenced->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr));
        return take(name);
    }

    void expectHelp() const {
        ASSERT_GT(m_Attributes->cFuncs, inherited);
        for (UINT k = inherited; k < m_Attributes->cFuncs; ++k) {
            FUNCDESC* function = nullptr;
            check(m_Interface->GetFuncDesc(k, &function));
            BSTR help = nullptr;
            check(m_Interface->GetDocumentation(function->memid, nullptr, &help, nullptr, nullptr));
            EXPECT_GE(take(help).size(), 10U) << names(*m_Interface.get(), function->memid).front();
            m_Interface->ReleaseFuncDesc(function);
        }
    }

    const wchar_t* m_Name;
    ComPtr<ITypeInfo> m_Interface;
    TYPEATTR* m_Attributes = nullptr;
};

TEST_F(Interface, SaysOfEachMemberWhatItIsFor) {
    expectHelp();
}

TEST_F(Interface, HasTheNineMembersInOrderAndNoOther) {
    ASSERT_EQ(m_Attributes->cFuncs, inherited + std::size(members));
    EXPECT_EQ(m_Attributes->cVars, 0);
    for (UINT k = 0; k < std::size(members); ++k) {
        expectMember(k, members[k]);
    }
}

/// The interface of the details as late-bound clients see it, each member as a line.
class DetailsInterface : public Interface {
 protected:
    DetailsInterface() : Interface(L"_clsNonParaDetails") {}

    [[nodiscard]] std::string typeName(const TYPEDESC& described) const {
        switch (described.vt) {
            case VT_BOOL:
                return "Boolean";
            case VT_BSTR:
                return "String";
            case VT_R8:
                return "Double";
            case VT_VARIANT:
                return "Variant";
            case VT_PTR:
                return typeName(*described.lptdesc) + "&";
            case VT_USERDEFINED:
                return referencedName(described.hreftype);
            default:
                return described.vt == VT_VOID ? "" : std::to_string(described.vt);
        }
    }

    [[nodiscard]] std::string line(UINT position) const {
        FUNCDESC* function = nullptr;
        check(m_Interface->GetFuncDesc(inherited + position, &function));
        std::string result = std::to_string(function->memid) + ' ' + kindName(function->invkind) + ' ' +
                             names(*m_Interface.get(), function->memid).front() + '(';
        for (SHORT k = 0; k < function->cParams; ++k) {
            const ELEMDESC& parameter = function->lprgelemdescParam[k];
            const bool isOptional = (parameter.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
            result +=
                (k == 0 ? "" : ", ") + std::string(isOptional ? "optional " : "") + typeName(parameter.tdesc);
        }
        result += ") " + typeName(function->elemdescFunc.tdesc);
        m_Interface->ReleaseFuncDesc(function);
        return result;
    }

    static std::string kindName(INVOKEKIND kind) {
        return kind == INVOKE_PROPERTYPUT ? "put" : kind == INVOKE_PROPERTYGET ? "get" : "call";
    }
};

TEST_F(DetailsInterface, HasTheSettingsInTheirOrderAndItsOwnMembersBehindThem) {
    std::vector<std::string> lines;
    for (UINT k = inherited; k < m_Attributes->cFuncs; ++k) {
        lines.push_back(line(k - inherited));
    }
    EXPECT_EQ(lines, (std::vector<std::string>{
                         "1 put Method(TBVNPMethod) ", "2 put Headers(Boolean) ",
                         "3 put OutputDescriptives(Boolean) ", "4 put IgnoreTies(Boolean) ",
                         "5 put Tails(TBVNPTails) ", "6 put YRange(String) ", "7 put XRange(String) ",
                         "8 put OutputRange(String) ", "9 put Confidence(Double) ", "10 put Adjust(String) ",
                         "11 put Control(String) ", "12 put Trend(Boolean) ", "13 call Calculate() ",
                         "14 get Value(String) Variant", "15 get Text() String", "16 get Json() String",
                         "17 call WriteTo(optional String, optional Boolean&) "}));
    EXPECT_EQ(names(*m_Interface.get(), 17), (std::vector<std::string>{"WriteTo", "Place", "OverWrite"}));
}

TEST_F(DetailsInterface, SaysOfEachMemberWhatItIsFor) {
    expectHelp();
}

}  // namespace

}  // namespace TBVNonPara::com
