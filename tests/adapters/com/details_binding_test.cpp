#include "tbvnonpara/core/enumerations.hpp"
#include "tests/adapters/com/desk.hpp"
#include "tests/adapters/com/late_call.hpp"
#include "tests/adapters/com/peer_range.hpp"

namespace TBVNonPara::com {

namespace {

/// The class of the details as a late-bound client uses it, by the names of its members.
class LateDetails : public Desk {
 protected:
    LateDetails() {
        fill("Data!E2:E2", ValueGrid{{"taken"}});
        expectPut(L"Headers", boolean(true));
        putText(L"YRange", "Data!A1:A4");
        putText(L"XRange", "Data!B1:B4");
    }
    ~LateDetails() override { m_Details = {}; }

    static VARIANT boolean(bool truth) { return Variant(truth).release(); }

    LateAnswer use(const wchar_t* member, WORD flags, std::vector<VARIANT> arguments = {},
                   std::vector<DISPID> named = {}) {
        return invoke(*m_Details.get(), idsOf(*m_Details.get(), {member}).front(), flags,
                      std::move(arguments), std::move(named));
    }
    LateAnswer put(const wchar_t* property, const VARIANT& value) {
        return use(property, DISPATCH_PROPERTYPUT, {value}, {DISPID_PROPERTYPUT});
    }
    void expectPut(const wchar_t* property, const VARIANT& value) {
        const LateAnswer answer = put(property, value);
        EXPECT_EQ(answer.status, S_OK) << answer.description;
    }
    void putText(const wchar_t* property, std::string_view text) {
        const Variant value(text);
        expectPut(property, value.get());
    }
    void calculate() {
        const LateAnswer answer = use(L"Calculate", DISPATCH_METHOD);
        EXPECT_EQ(answer.status, S_OK) << answer.description;
        EXPECT_EQ(answer.result.get().vt, VT_EMPTY);
    }
    LateAnswer value(std::string_view name) {
        const Variant asked(name);
        return use(L"Value", DISPATCH_PROPERTYGET | DISPATCH_METHOD, {asked.get()});
    }

    static void expectTaken(const LateAnswer& answer) {
        EXPECT_EQ(answer.error, tbvNPOutputOccupied) << answer.description;
    }
    void expectWritten(const LateAnswer& answer) {
        EXPECT_EQ(answer.status, S_OK) << answer.description;
        EXPECT_EQ(cell("Data!E2"), CellValue("Details"));
        fill("Data!E2:E2", ValueGrid{{"taken"}});
    }

    ComPtr<IDispatch> m_Details = m_Server.createDetails().as<IDispatch>();
    Variant m_Place{std::string_view("Data!E2")};
};

TEST_F(LateDetails, NameTheirMembersInAnySpellingOfCapitals) {
    EXPECT_EQ(idsOf(*m_Details.get(), {L"METHOD"}), std::vector<DISPID>{1});
    EXPECT_EQ(idsOf(*m_Details.get(), {L"outputRange", L"address"}), (std::vector<DISPID>{8, 0}));
    EXPECT_EQ(idsOf(*m_Details.get(), {L"confidence"}), std::vector<DISPID>{9});
    EXPECT_EQ(idsOf(*m_Details.get(), {L"writeto", L"overwrite", L"place"}), (std::vector<DISPID>{17, 1, 0}));
    EXPECT_EQ(idsOf(*m_Details.get(), {L"WriteTo", L"Results"}), (std::vector<DISPID>{17, DISPID_UNKNOWN}));
    EXPECT_EQ(idsOf(*m_Details.get(), {L"Results"}), std::vector<DISPID>{DISPID_UNKNOWN});
    EXPECT_EQ(idsOf(*m_Object.get(), {L"Confidence"}), std::vector<DISPID>{DISPID_UNKNOWN});
}

TEST_F(LateDetails, GiveFiguresNumbersTextsAndNothing) {
    calculate();
    EXPECT_EQ(value("effect.superiority").result.get().vt, VT_R8);
    EXPECT_EQ(fromVariant(value("effect.superiority").result.get()), CellValue(0.0));
    EXPECT_EQ(fromVariant(value("data.n.1").result.get()), CellValue(3.0));
    EXPECT_EQ(fromVariant(value("labels.1").result.get()), CellValue("Before"));
    EXPECT_EQ(value("robust.t").result.get().vt, VT_EMPTY);
    EXPECT_EQ(use(L"Text", DISPATCH_PROPERTYGET).result.get().vt, VT_BSTR);
    EXPECT_EQ(use(L"Json", DISPATCH_PROPERTYGET | DISPATCH_METHOD).result.get().vt, VT_BSTR);
}

TEST_F(LateDetails, SayWhatIsWrongAsAnException) {
    const LateAnswer early = value("effect.shift");
    EXPECT_EQ(early.status, DISP_E_EXCEPTION);
    EXPECT_EQ(early.error, static_cast<SCODE>(0x800A005B));
    EXPECT_EQ(early.source, "Line 0 in TBVNonPara.clsNonParaDetails.GetValue");
    EXPECT_EQ(use(L"Text", DISPATCH_PROPERTYGET).result.get().vt, VT_EMPTY);
    calculate();
    EXPECT_EQ(value("effect.shft").description,
              "There is no figure \"effect.shft\"; \"effect\" has superiority, rankBiserial, shift.");
}

TEST_F(LateDetails, TakeWhatConvertsToTheTypesOfTheirSettings) {
    putText(L"Confidence", "90");
    expectPut(L"Confidence", Variant(std::int32_t{90}).release());
    expectPut(L"Trend", Variant(std::int32_t{1}).release());
    putText(L"Adjust", "bh");
    expectPut(L"Control", VARIANT{});
    const Variant word(std::string_view("much"));
    const LateAnswer answer = put(L"Confidence", word.get());
    EXPECT_EQ(answer.status, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(answer.wrongArgument, 0U);
    EXPECT_EQ(use(L"Confidence", DISPATCH_PROPERTYPUT).status, DISP_E_BADPARAMCOUNT);
}

TEST_F(LateDetails, CanBeUsedAsTheyAreMeantOnly) {
    calculate();
    for (const wchar_t* setting : {L"Method", L"Confidence", L"Trend"}) {
        EXPECT_EQ(use(setting, DISPATCH_PROPERTYGET | DISPATCH_METHOD).status, DISP_E_MEMBERNOTFOUND);
    }
    for (const wchar_t* figure : {L"Value", L"Text", L"Json"}) {
        EXPECT_EQ(put(figure, m_Place.get()).status, DISP_E_MEMBERNOTFOUND);
    }
    EXPECT_EQ(use(L"Calculate", DISPATCH_PROPERTYGET).status, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(use(L"Calculate", DISPATCH_METHOD, {m_Place.get()}).status, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(use(L"Text", DISPATCH_PROPERTYGET, {m_Place.get()}).status, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(use(L"Value", DISPATCH_PROPERTYGET).status, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(use(L"Value", DISPATCH_PROPERTYGET, {m_Place.get(), m_Place.get()}).status,
              DISP_E_BADPARAMCOUNT);
    for (const DISPID member : {-1, 0, 18}) {
        EXPECT_EQ(invoke(*m_Details.get(), member, DISPATCH_METHOD, {}).status, DISP_E_MEMBERNOTFOUND);
    }
}

TEST_F(LateDetails, AreWrittenByPosition) {
    calculate();
    expectTaken(use(L"WriteTo", DISPATCH_METHOD, {m_Place.get()}));
    expectTaken(use(L"WriteTo", DISPATCH_METHOD, {boolean(false), m_Place.get()}));
    expectWritten(use(L"WriteTo", DISPATCH_METHOD, {boolean(true), m_Place.get()}));
    VARIANT_BOOL truth = VARIANT_TRUE;
    expectWritten(use(L"WriteTo", DISPATCH_METHOD, {reference(VT_BOOL, &truth), m_Place.get()}));
    EXPECT_EQ(truth, VARIANT_TRUE);
    EXPECT_EQ(use(L"WriteTo", DISPATCH_METHOD, {boolean(true), boolean(true), m_Place.get()}).status,
              DISP_E_BADPARAMCOUNT);
    const LateAnswer answer = use(L"WriteTo", DISPATCH_METHOD, {m_Place.get(), m_Place.get()});
    EXPECT_EQ(answer.status, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(answer.wrongArgument, 0U) << "the last one travels first";
}

TEST_F(LateDetails, AreWrittenByNameInAnyOrder) {
    calculate();
    constexpr DISPID place = 0;
    constexpr DISPID overWrite = 1;
    expectTaken(use(L"WriteTo", DISPATCH_METHOD, {m_Place.get()}, {place}));
    expectWritten(use(L"WriteTo", DISPATCH_METHOD, {m_Place.get(), boolean(true)}, {place, overWrite}));
    expectWritten(use(L"WriteTo", DISPATCH_METHOD, {boolean(true), m_Place.get()}, {overWrite, place}));
    expectWritten(use(L"WriteTo", DISPATCH_METHOD, {boolean(true), m_Place.get()}, {overWrite}));
    EXPECT_EQ(use(L"WriteTo", DISPATCH_METHOD, {m_Place.get(), m_Place.get()}, {place}).status,
              DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(use(L"WriteTo", DISPATCH_METHOD, {m_Place.get()}, {2}).status, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(use(L"WriteTo", DISPATCH_METHOD, {m_Place.get()}, {DISPID_PROPERTYPUT}).status,
              DISP_E_PARAMNOTFOUND);
}

TEST_F(LateDetails, AreWrittenToTheOutputRangeWhereThePlaceIsLeftOut) {
    calculate();
    putText(L"OutputRange", "Data!E2");
    const Variant missing = Variant::missing();
    expectTaken(use(L"WriteTo", DISPATCH_METHOD));
    expectTaken(use(L"WriteTo", DISPATCH_METHOD, {missing.get(), missing.get()}));
    expectWritten(use(L"WriteTo", DISPATCH_METHOD, {boolean(true), missing.get()}));
    expectWritten(use(L"WriteTo", DISPATCH_METHOD, {boolean(true)}, {1}));
}

TEST_F(LateDetails, ARangeInsteadOfAPlaceIsRefusedByTheNameOfItsAddress) {
    calculate();
    const Variant range{Peer::peerRange(m_Workbook->GetRange("Data!E2")).as<IDispatch>()};
    const LateAnswer answer = use(L"WriteTo", DISPATCH_METHOD, {boolean(true), range.get()});
    EXPECT_EQ(answer.error, static_cast<SCODE>(0x800A000D));
    EXPECT_NE(answer.description.find("Write .WriteTo range.Address(External:=True)."), std::string::npos)
        << answer.description;
    EXPECT_EQ(put(L"YRange", range.get()).error, static_cast<SCODE>(0x800A000D));
}

TEST_F(LateDetails, DescribeThemselvesByTheirTypeLibrary) {
    ComPtr<ITypeInfo> information;
    ASSERT_EQ(m_Details->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.out()), S_OK);
    const auto nameOf = [](ITypeInfo& type) {
        BSTR name = nullptr;
        type.GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
        std::string result = toUtf8(name);
        SysFreeString(name);
        return result;
    };
    EXPECT_EQ(nameOf(*information.get()), "_clsNonParaDetails");
    ASSERT_EQ(m_Details.as<IProvideClassInfo>()->GetClassInfo(information.out()), S_OK);
    EXPECT_EQ(nameOf(*information.get()), "clsNonParaDetails");
    const auto told = m_Details.as<ISupportErrorInfo>();
    EXPECT_EQ(told->InterfaceSupportsErrorInfo(__uuidof(_clsNonParaDetails)), S_OK);
    EXPECT_EQ(told->InterfaceSupportsErrorInfo(__uuidof(_clsNonPara)), S_FALSE);
    EXPECT_FALSE(m_Details.as<_clsNonPara>());
    EXPECT_FALSE(m_Object.as<_clsNonParaDetails>());
}

}  // namespace

}  // namespace TBVNonPara::com
