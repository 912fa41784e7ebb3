#include <vector>

#include "tbvnonpara/core/enumerations.hpp"
#include "tests/adapters/com/desk.hpp"
#include "tests/adapters/com/late_call.hpp"
#include "tests/adapters/com/peer_range.hpp"

namespace TBVNonPara::com {

namespace {

/// The object as a late-bound client uses it; the report's place is taken, so that OverWrite decides.
class LateBinding : public Desk {
 protected:
    static constexpr DISPID results = 9;

    LateBinding() {
        m_Object->put_YRange(Address("Data!A2:A4"));
        m_Object->put_XRange(Address("Data!B2:B4"));
        m_Object->put_OutputRange(Address("Data!E1"));
        fill("Data!E1:E1", ValueGrid{{"taken"}});
    }

    LateAnswer invoke(DISPID member, WORD flags, std::vector<VARIANT> arguments,
                      std::vector<DISPID> named = {}) {
        return com::invoke(*m_Object.get(), member, flags, std::move(arguments), std::move(named));
    }

    LateAnswer callResults(std::vector<VARIANT> arguments, std::vector<DISPID> named = {}) {
        return invoke(results, DISPATCH_METHOD, std::move(arguments), std::move(named));
    }

    /// Overwriting succeeds; anything else finds the place taken.
    static void expectOverwritten(const LateAnswer& answer) { EXPECT_EQ(answer.status, S_OK); }
    static void expectRefused(const LateAnswer& answer) {
        EXPECT_EQ(answer.status, DISP_E_EXCEPTION);
        EXPECT_EQ(answer.error, tbvNPOutputOccupied);
        EXPECT_EQ(answer.source, "Line 0 in TBVNonPara.clsNonPara.Results");
        EXPECT_FALSE(answer.description.empty());
    }

    static void expectNamesTheAddress(const LateAnswer& answer) {
        EXPECT_EQ(answer.status, DISP_E_EXCEPTION);
        EXPECT_EQ(answer.error, static_cast<SCODE>(0x800A000D));
        EXPECT_NE(answer.description.find(" = range.Address(External:=True)"), std::string::npos)
            << answer.description;
    }

    static VARIANT boolean(bool truth) { return Variant(truth).release(); }
};

TEST_F(LateBinding, OverWriteLeftOutIsFalse) {
    expectRefused(callResults({}));
}

TEST_F(LateBinding, OverWriteByValue) {
    expectRefused(callResults({boolean(false)}));
    expectOverwritten(callResults({boolean(true)}));
}

TEST_F(LateBinding, OverWriteByReference) {
    VARIANT_BOOL truth = VARIANT_FALSE;
    expectRefused(callResults({reference(VT_BOOL, &truth)}));
    truth = VARIANT_TRUE;
    expectOverwritten(callResults({reference(VT_BOOL, &truth)}));
    EXPECT_EQ(truth, VARIANT_TRUE);
}

TEST_F(LateBinding, OverWriteInAVariableOfAScript) {
    VARIANT variable = boolean(false);
    expectRefused(callResults({reference(VT_VARIANT, &variable)}));
    variable = boolean(true);
    expectOverwritten(callResults({reference(VT_VARIANT, &variable)}));
}

TEST_F(LateBinding, OverWriteInAVariableThatHoldsNothingIsFalse) {
    VARIANT variable{};
    expectRefused(callResults({reference(VT_VARIANT, &variable)}));
}

TEST_F(LateBinding, OverWriteByName) {
    const std::vector<DISPID> ids = idsOf(*m_Object.get(), {L"RESULTS", L"overwrite"});
    ASSERT_EQ(ids.front(), results);
    expectRefused(callResults({boolean(false)}, {ids[1]}));
    expectOverwritten(callResults({boolean(true)}, {ids[1]}));
}

TEST_F(LateBinding, OverWriteMissingIsFalse) {
    expectRefused(callResults({Variant::missing().release()}));
    VARIANT variable = Variant::missing().release();
    expectRefused(callResults({reference(VT_VARIANT, &variable)}));
}

TEST_F(LateBinding, OverWriteAsANumberOrText) {
    expectOverwritten(callResults({Variant(std::int32_t{1}).release()}));
    VARIANT text = Variant(std::string_view("True")).release();
    expectOverwritten(callResults({text}));
    VariantClear(&text);
}

TEST_F(LateBinding, OverWriteThatIsNoTruthIsATypeMismatch) {
    VARIANT text = Variant(std::string_view("perhaps")).release();
    const LateAnswer answer = callResults({text});
    VariantClear(&text);
    EXPECT_EQ(answer.status, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(answer.wrongArgument, 0U);
}

TEST_F(LateBinding, TooManyArgumentsAreRefused) {
    EXPECT_EQ(callResults({boolean(true), boolean(true)}).status, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(2, DISPATCH_PROPERTYPUT, {boolean(true), boolean(true)}, {DISPID_PROPERTYPUT}).status,
              DISP_E_BADPARAMCOUNT);
}

TEST_F(LateBinding, AnotherNameIsRefused) {
    EXPECT_EQ(callResults({boolean(true)}, {7}).status, DISP_E_PARAMNOTFOUND);
    std::wstring name = L"Engine";
    LPOLESTR names[] = {name.data()};
    DISPID id = 0;
    EXPECT_EQ(m_Object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(id, DISPID_UNKNOWN);
}

TEST_F(LateBinding, PropertiesCannotBeRead) {
    for (DISPID member = 1; member < results; ++member) {
        EXPECT_EQ(invoke(member, DISPATCH_PROPERTYGET, {}).status, DISP_E_MEMBERNOTFOUND);
    }
}

TEST_F(LateBinding, MembersOutsideTheListAreNotFound) {
    for (const DISPID member : {-1, 0, 10, 1000}) {
        EXPECT_EQ(invoke(member, DISPATCH_METHOD, {}).status, DISP_E_MEMBERNOTFOUND);
    }
}

TEST_F(LateBinding, PropertiesTakeWhatConvertsToTheirType) {
    const auto put = [this](DISPID member, VARIANT value) {
        const HRESULT status = invoke(member, DISPATCH_PROPERTYPUT, {value}, {DISPID_PROPERTYPUT}).status;
        VariantClear(&value);
        return status;
    };
    EXPECT_EQ(put(1, Variant(std::string_view("3")).release()), S_OK);
    EXPECT_EQ(put(1, Variant(2.0).release()), S_OK);
    EXPECT_EQ(put(2, Variant(std::int32_t{1}).release()), S_OK);
    EXPECT_EQ(put(7, VARIANT{}), S_OK);
    EXPECT_EQ(put(1, Variant(std::string_view("three")).release()), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(put(5, Variant(3e10).release()), DISP_E_OVERFLOW);
}

/// A range where a range's address is asked for, in each way in which a language passes it.
TEST_F(LateBinding, ARangeInsteadOfAnAddressIsRefusedByTheNameOfItsAddress) {
    const Variant range{Peer::peerRange(m_Workbook->GetRange("Data!A2:A4")).as<IDispatch>()};
    const Variant values = toVariant(ValueGrid{{1.0}, {2.0}}, Texts::AsHeld);
    IDispatch* inVariable = range.get().pdispVal;
    VARIANT variable = range.get();
    const VARIANT given[] = {range.get(), reference(VT_DISPATCH, &inVariable),
                             reference(VT_VARIANT, &variable), values.get()};
    for (const VARIANT& value : given) {
        for (const DISPID member : {6, 7, 8}) {
            for (const WORD flags : {WORD(DISPATCH_PROPERTYPUT), WORD(DISPATCH_PROPERTYPUTREF)}) {
                expectNamesTheAddress(invoke(member, flags, {value}, {DISPID_PROPERTYPUT}));
            }
        }
    }
}

TEST_F(LateBinding, AnObjectThatStandsForNoTextIsATypeMismatch) {
    const Variant object{Peer::makePeer({}).as<IDispatch>()};
    EXPECT_EQ(invoke(6, DISPATCH_PROPERTYPUT, {object.get()}, {DISPID_PROPERTYPUT}).status,
              DISP_E_TYPEMISMATCH);
}

TEST_F(LateBinding, BareNumbersHaveNoDescription) {
    const Variant empty{std::string_view()};
    const LateAnswer answer = invoke(6, DISPATCH_PROPERTYPUT, {empty.get()}, {DISPID_PROPERTYPUT});
    EXPECT_EQ(answer.status, DISP_E_EXCEPTION);
    EXPECT_EQ(answer.error, tbvNPNoYRange);
    EXPECT_EQ(answer.description, "");
}

TEST_F(LateBinding, DescribesItselfByItsTypeLibrary) {
    UINT count = 0;
    EXPECT_EQ(m_Object->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1U);
    ComPtr<ITypeInfo> information;
    ASSERT_EQ(m_Object->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.out()), S_OK);
    BSTR name = nullptr;
    information->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
    EXPECT_EQ(toUtf8(name), "_clsNonPara");
    SysFreeString(name);
    EXPECT_EQ(m_Object->GetTypeInfo(1, LOCALE_USER_DEFAULT, information.out()), DISP_E_BADINDEX);
    EXPECT_TRUE(m_Object.as<IProvideClassInfo>());
    EXPECT_EQ(m_Object.as<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(__uuidof(_clsNonPara)), S_OK);
}

}  // namespace

}  // namespace TBVNonPara::com
