#include <cmath>
#include <utility>

#include "tbvnonpara/core/enumerations.hpp"
#include "tests/adapters/com/desk.hpp"
#include "tests/adapters/com/late_call.hpp"
#include "tests/adapters/com/peer_range.hpp"

namespace TBVNonPara::com {

namespace {

const std::string inDetails = "Line 0 in TBVNonPara.clsNonParaDetails.";
constexpr auto invalidArgument = static_cast<HRESULT>(0x800A0005);
constexpr auto objectNotSet = static_cast<HRESULT>(0x800A005B);

/// Details on two samples of three, the first below the second.
class DetailsDesk : public Desk {
 protected:
    DetailsDesk() {
        m_Details->put_Headers(VARIANT_TRUE);
        m_Details->put_YRange(Address("Data!A1:A4"));
        m_Details->put_XRange(Address("Data!B1:B4"));
    }
    ~DetailsDesk() override { m_Details = {}; }

    void chooseGroups() {
        fill("Data!A1:C4", ValueGrid{{"a", "b", "c"}, {1.0, 2.0, 11.0}, {3.0, 4.0, 13.0}, {5.0, 6.0, 15.0}});
        m_Details->put_Method(::tbvNPKWallis);
        m_Details->put_YRange(Address("Data!A1:C4"));
        m_Details->put_XRange(Address(""));
    }
    [[nodiscard]] CellValue value(std::string_view name) const {
        Variant value;
        EXPECT_EQ(seen(m_Details->get_Value(Address(name), value.out())), (Seen{S_OK, "", ""}));
        return fromVariant(value.get());
    }
    [[nodiscard]] double number(std::string_view name) const {
        const CellValue found = value(name);
        const auto* number = std::get_if<double>(&found);
        return number == nullptr ? std::nan("") : *number;
    }
    [[nodiscard]] std::vector<std::string> sheets() const {
        std::vector<std::string> names;
        for (const auto& sheet : m_Workbook->activeBook()->sheets()) {
            names.push_back(sheet->GetName());
        }
        return names;
    }
    static std::string taken(BSTR text) {
        std::string result = toUtf8(text);
        SysFreeString(text);
        return result;
    }

    ComPtr<_clsNonParaDetails> m_Details = m_Server.createDetails();
};

// All values of the first lie below those of the second: none of 9 pairs; 2 of the 20 ways to deal six ranks.
TEST_F(DetailsDesk, HaveFiguresByTheirNames) {
    ASSERT_EQ(seen(m_Details->Calculate()), (Seen{S_OK, "", ""}));
    EXPECT_EQ(number("effect.superiority.value"), 0);
    EXPECT_NEAR(number("p.exact.two"), 0.1, 1e-15);
    EXPECT_EQ(number("data.pairs.less"), 9);
    EXPECT_EQ(value("labels.2"), CellValue("After"));
    EXPECT_EQ(value("robust"), CellValue(Empty{})) << "the samples are separated";
}

TEST_F(DetailsDesk, AreTextAndJson) {
    ASSERT_EQ(m_Details->Calculate(), S_OK);
    BSTR text = nullptr;
    ASSERT_EQ(m_Details->get_Text(&text), S_OK);
    const std::string told = taken(text);
    EXPECT_EQ(told.substr(0, told.find(':')), "Details\n═══════\nAfter tends to be larger than Before");
    BSTR json = nullptr;
    ASSERT_EQ(m_Details->get_Json(&json), S_OK);
    EXPECT_NE(taken(json).find("\"labels\": [\"Before\", \"After\"]"), std::string::npos);
}

// Clopper and Pearson for 5 of 5: the root of a half of 5 and of 10 per cent.
TEST_F(DetailsDesk, TakeALevelInPerCent) {
    fill("Data!A1:A6", ValueGrid{{"sign"}, {1.0}, {1.0}, {1.0}, {1.0}, {1.0}});
    m_Details->put_Method(::tbvNPSign);
    m_Details->put_XRange(Address(""));
    m_Details->put_YRange(Address("Data!A1:A6"));
    ASSERT_EQ(seen(m_Details->Calculate()), (Seen{S_OK, "", ""}));
    EXPECT_NEAR(number("effect.positiveShare.low"), std::pow(0.025, 0.2), 1e-12);
    EXPECT_EQ(m_Details->put_Confidence(90), S_OK);
    ASSERT_EQ(m_Details->Calculate(), S_OK);
    EXPECT_NEAR(number("effect.positiveShare.low"), std::pow(0.05, 0.2), 1e-12);
    const Seen refusal = seen(m_Details->put_Confidence(0.95));
    EXPECT_EQ(refusal.status, invalidArgument);
    EXPECT_EQ(refusal.source, inDetails + "LetConfidence");
    EXPECT_NE(refusal.description.find("95, not 0.95"), std::string::npos) << refusal.description;
}

TEST_F(DetailsDesk, CompareGroupsAsTheyAreTold) {
    chooseGroups();
    EXPECT_EQ(m_Details->put_Adjust(Address("none")), S_OK);
    EXPECT_EQ(m_Details->put_Control(Address("b")), S_OK);
    EXPECT_EQ(m_Details->put_Trend(VARIANT_TRUE), S_OK);
    ASSERT_EQ(seen(m_Details->Calculate()), (Seen{S_OK, "", ""}));
    EXPECT_EQ(value("adjust"), CellValue("none"));
    EXPECT_EQ(number("comparisons.2.adjusted"), number("comparisons.2.p"));
    EXPECT_EQ(number("trend.statistic"), 24) << "of 27 pairs 3 are out of order";
    Variant third;
    EXPECT_EQ(seen(m_Details->get_Value(Address("comparisons.3.p"), third.out())).source,
              inDetails + "GetValue");
    EXPECT_EQ(seen(m_Details->put_Adjust(Address("sidak"))).source, inDetails + "LetAdjust");
}

TEST_F(DetailsDesk, ThatTakeLongToCountAreShownInTheStatusBar) {
    ASSERT_EQ(m_Details->Calculate(), S_OK);
    EXPECT_TRUE(Peer::statusBarTexts().empty());
    ValueGrid pairs(500, 2);
    for (Index row = 1; row <= 500; ++row) {
        pairs(row, 1) = static_cast<double>(row);
        pairs(row, 2) = static_cast<double>(3 * row % 1000);
    }
    fill("Data!A2:B501", pairs);
    m_Details->put_Method(::tbvNPWilcoxon);
    m_Details->put_YRange(Address("Data!A1:A501"));
    m_Details->put_XRange(Address("Data!B1:B501"));
    ASSERT_EQ(seen(m_Details->Calculate()), (Seen{S_OK, "", ""}));
    const std::vector<std::string> texts = std::exchange(Peer::statusBarTexts(), {});
    ASSERT_GE(texts.size(), 2U);
    EXPECT_EQ(texts.front().substr(0, 26), "Counting for the details: ");
    EXPECT_EQ(texts.back(), "") << "the application's own text is back";
}

TEST_F(DetailsDesk, RefuseWhatAReportRefuses) {
    const ComPtr<_clsNonParaDetails> empty = m_Server.createDetails();
    EXPECT_EQ(seen(empty->Calculate()), (Seen{tbvNPNoYRange, inDetails + "Calculate", ""}));
    EXPECT_EQ(seen(m_Details->put_YRange(Address("Nowhere!A1"))), (Seen{tbvNPBadYRange, "", ""}));
    fill("Data!A2:A2", ValueGrid{{"n/a"}});
    const Seen refusal = seen(m_Details->Calculate());
    EXPECT_EQ(refusal.status, tbvNPTextInData);
    EXPECT_NE(refusal.description.find("Data!A2"), std::string::npos) << refusal.description;
}

TEST_F(DetailsDesk, AreNothingBeforeTheyAreCalculated) {
    Variant value;
    const Seen refusal = seen(m_Details->get_Value(Address("effect.shift"), value.out()));
    EXPECT_EQ(refusal, (Seen{objectNotSet, inDetails + "GetValue",
                             "Nothing has been calculated yet: call Calculate first."}));
    EXPECT_EQ(value.get().vt, VT_EMPTY);
    BSTR text = nullptr;
    EXPECT_EQ(seen(m_Details->get_Text(&text)).source, inDetails + "GetText");
    EXPECT_EQ(seen(m_Details->get_Json(&text)).source, inDetails + "GetJson");
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(seen(m_Details->WriteTo(nullptr, nullptr)).source, inDetails + "WriteTo");
}

TEST_F(DetailsDesk, AreWrittenToAPlaceAndTheirOwnSheetIsGone) {
    ASSERT_EQ(m_Details->Calculate(), S_OK);
    ASSERT_EQ(seen(m_Details->WriteTo(Address("Data!E2"), nullptr)), (Seen{S_OK, "", ""}));
    EXPECT_EQ(cell("Data!E2"), CellValue("Details"));
    EXPECT_EQ(cell("Data!E3"), CellValue("Data = Data!$A$1:$A$4, Data!$B$1:$B$4"));
    EXPECT_EQ(sheets(), std::vector<std::string>{"Data"}) << "the application asks before a sheet goes";
    EXPECT_TRUE(Peer::displayAlerts());
    VARIANT_BOOL overWrite = VARIANT_FALSE;
    EXPECT_EQ(seen(m_Details->WriteTo(Address("Data!E2"), &overWrite)).status, tbvNPOutputOccupied);
    overWrite = VARIANT_TRUE;
    EXPECT_EQ(m_Details->WriteTo(Address("Data!E2"), &overWrite), S_OK);
    EXPECT_EQ(sheets(), std::vector<std::string>{"Data"});
}

TEST_F(DetailsDesk, WithoutAPlaceGoToTheOutputRangeOrToASheetOfTheirOwn) {
    ASSERT_EQ(m_Details->Calculate(), S_OK);
    ASSERT_EQ(seen(m_Details->WriteTo(nullptr, nullptr)), (Seen{S_OK, "", ""}));
    EXPECT_EQ(sheets(), (std::vector<std::string>{"Data", "Details"}));
    EXPECT_EQ(cell("Details!A1"), CellValue("Details"));
    m_Details->put_OutputRange(Address("Data!H1"));
    ASSERT_EQ(m_Details->WriteTo(Address(""), nullptr), S_OK);
    EXPECT_EQ(cell("Data!H1"), CellValue("Details"));
}

TEST_F(DetailsDesk, AreWrittenInNoOtherRun) {
    ASSERT_EQ(m_Details->Calculate(), S_OK);
    Seen refusal;
    bool asked = false;
    Peer::interruptCalls([&](const Peer::PeerObject&, const std::wstring& member) {
        if (member == L"Copy" && !asked) {
            asked = true;
            refusal = seen(m_Details->WriteTo(Address("Data!K1"), nullptr));
        }
    });
    m_Object->put_YRange(Address("Data!A2:A4"));
    m_Object->put_XRange(Address("Data!B2:B4"));
    m_Object->put_OutputRange(Address("Data!E1"));
    EXPECT_EQ(m_Object->Results(nullptr), S_OK);
    Peer::interruptCalls(nullptr);
    EXPECT_EQ(refusal.status, tbvNPRunInProgress);
    EXPECT_EQ(cell("Data!K1"), CellValue(Empty{}));
}

TEST_F(DetailsDesk, OutliveTheClientsLastReference) {
    std::optional<ULONG> left;
    Peer::interruptCalls([&](const Peer::PeerObject&, const std::wstring& member) {
        if (member == L"Value" && m_Details) {
            left = m_Details.release()->Release();
        }
    });
    _clsNonParaDetails& details = *m_Details.get();
    EXPECT_EQ(details.Calculate(), S_OK);
    Peer::interruptCalls(nullptr);
    EXPECT_EQ(left, 1U);
}

TEST_F(DetailsDesk, KeepTheServerLoaded) {
    m_Object = {};
    m_Server.setApplication(nullptr);
    EXPECT_FALSE(m_Server.canUnload());
    m_Details = {};
    EXPECT_TRUE(m_Server.canUnload());
}

}  // namespace

}  // namespace TBVNonPara::com
