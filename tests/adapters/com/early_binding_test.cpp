#include <algorithm>
#include <bit>

#include "tbvnonpara/core/enumerations.hpp"
#include "tests/adapters/com/client_cases.hpp"
#include "tests/adapters/com/desk.hpp"
#include "tests/adapters/com/peer_range.hpp"

namespace TBVNonPara::com {

namespace {

const std::string inResults = "Line 0 in TBVNonPara.clsNonPara.Results";

TEST_F(Desk, ReportOfSixValuesHasItsUAndP) {
    ASSERT_EQ(m_Object->put_Headers(VARIANT_TRUE), S_OK);
    ASSERT_EQ(m_Object->put_Tails(::tbvNPVar1LTVar2), S_OK);
    ASSERT_EQ(m_Object->put_YRange(Address("Data!A1:A4")), S_OK);
    ASSERT_EQ(m_Object->put_XRange(Address("Data!B1:B4")), S_OK);
    ASSERT_EQ(m_Object->put_OutputRange(Address("Data!E1")), S_OK);
    ASSERT_EQ(seen(m_Object->Results(nullptr)), (Seen{S_OK, "", ""}));
    EXPECT_EQ(cell("Data!E1"), CellValue("Mann-Whitney Test Results for:"));
    EXPECT_EQ(cell("Data!E7"), CellValue(9.0));
    EXPECT_EQ(cell("Data!H7"), CellValue(0.05));
}

class EachTest : public Desk, public testing::WithParamInterface<ClientTest> {};

TEST_P(EachTest, ComesToAReportUnderItsTitle) {
    fill("Data!A1:D6", testedCells());
    ASSERT_EQ(m_Object->put_Method(GetParam().method), S_OK);
    ASSERT_EQ(m_Object->put_Headers(VARIANT_TRUE), S_OK);
    ASSERT_EQ(m_Object->put_OutputDescriptives(VARIANT_TRUE), S_OK);
    ASSERT_EQ(seen(m_Object->put_YRange(Address(GetParam().y))), (Seen{S_OK, "", ""}));
    ASSERT_EQ(seen(m_Object->put_XRange(Address(GetParam().x))), (Seen{S_OK, "", ""}));
    ASSERT_EQ(m_Object->put_OutputRange(Address("Data!J1")), S_OK);
    ASSERT_EQ(seen(m_Object->Results(nullptr)), (Seen{S_OK, "", ""}));
    EXPECT_EQ(cell("Data!J1"), CellValue(GetParam().title));
}

INSTANTIATE_TEST_SUITE_P(Com, EachTest, testing::ValuesIn(clientTests()),
                         [](const auto& tested) { return tested.param.name; });

class EachRefusal : public Desk, public testing::WithParamInterface<Refusal> {};

TEST_P(EachRefusal, ReachesTheClientAsABareNumberWithItsSource) {
    const Refusal& refusal = GetParam();
    fill("Data!A1:C4", refusedCells());
    m_Object->put_Method(refusal.method);
    m_Object->put_Headers(refusal.headers);
    // The filter of the range properties leaves no source.
    EXPECT_EQ(seen(m_Object->put_YRange(Address(refusal.y))), (Seen{refusal.yNumber, "", ""}));
    EXPECT_EQ(seen(m_Object->put_XRange(Address(refusal.x))), (Seen{refusal.xNumber, "", ""}));
    if (refusal.number != 0) {
        EXPECT_EQ(seen(m_Object->Results(nullptr)), (Seen{refusal.number, inResults, ""}));
    }
}

INSTANTIATE_TEST_SUITE_P(Com, EachRefusal, testing::ValuesIn(refusals()),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(Desk, OutputRangeThatDoesNotExistIsABareNumber) {
    EXPECT_EQ(seen(m_Object->put_OutputRange(Address("Nowhere!A1"))), (Seen{tbvNPBadOutputRange, "", ""}));
}

TEST_F(Desk, DataCheckErrorsBringTheirDescription) {
    fill("Data!A2:A2", ValueGrid{{"n/a"}});
    m_Object->put_YRange(Address("Data!A2:A4"));
    m_Object->put_XRange(Address("Data!B2:B4"));
    const Seen refusal = seen(m_Object->Results(nullptr));
    EXPECT_EQ(refusal.status, tbvNPTextInData);
    EXPECT_EQ(refusal.source, inResults);
    EXPECT_NE(refusal.description.find("Data!A2"), std::string::npos) << refusal.description;
}

TEST_F(Desk, MethodOutsideTheListIsStoredAndFailsForWantOfAReport) {
    EXPECT_EQ(m_Object->put_Method(std::bit_cast<::TBVNPMethod>(8)), S_OK);
    EXPECT_EQ(m_Object->put_Method(std::bit_cast<::TBVNPMethod>(-1)), S_OK);
    m_Object->put_YRange(Address("Data!A2:A4"));
    EXPECT_EQ(seen(m_Object->Results(nullptr)), (Seen{static_cast<HRESULT>(0x800A005B), inResults,
                                                      "Object variable or With block variable not set"}));
}

TEST_F(Desk, ErrorsOfTheApplicationKeepTheirNumberAndText) {
    m_Object->put_YRange(Address("Data!A2:A4"));
    m_Object->put_XRange(Address("Data!B2:B4"));
    m_Workbook->closeBook("Book1");
    const Seen refusal = seen(m_Object->Results(nullptr));
    EXPECT_EQ(refusal.status, static_cast<HRESULT>(0x800A03EC));
    EXPECT_EQ(refusal.source.find("Line 0 in TBVNonPara."), 0U) << refusal.source;
    EXPECT_FALSE(refusal.description.empty());
}

TEST_F(Desk, AmountsAreComparedWithAllTheirDigits) {
    // Rounded to four decimals each pair is a tie, and U is 4.5 instead of 6.
    fill("Data!A2:B4", ValueGrid{{1.00001, 1.00002}, {2.00001, 2.00002}, {3.00001, 3.00002}});
    Peer::showAmounts(true);
    m_Object->put_YRange(Address("Data!A2:A4"));
    m_Object->put_XRange(Address("Data!B2:B4"));
    m_Object->put_OutputRange(Address("Data!E1"));
    const Seen outcome = seen(m_Object->Results(nullptr));
    Peer::showAmounts(false);
    EXPECT_EQ(outcome, (Seen{S_OK, "", ""}));
    EXPECT_EQ(cell("Data!E7"), CellValue(6.0));
}

TEST_F(Desk, WholeColumnsEndWithTheUsedArea) {
    m_Object->put_Headers(VARIANT_TRUE);
    m_Object->put_YRange(Address("Data!A:A"));
    m_Object->put_XRange(Address("Data!$B:$B"));
    m_Object->put_OutputRange(Address("Data!E1"));
    ASSERT_EQ(seen(m_Object->Results(nullptr)), (Seen{S_OK, "", ""}));
    EXPECT_EQ(cell("Data!E2"), CellValue("Set 1 Range = Data!$A$1:$A$4"));
    EXPECT_EQ(cell("Data!E3"), CellValue("Set 2 Range = Data!$B$1:$B$4"));
    EXPECT_EQ(cell("Data!E7"), CellValue(9.0));
}

TEST_F(Desk, WholeColumnsOfSeveralAreasEndWithTheUsedArea) {
    fill("Data!D1:D4", ValueGrid{{"Later"}, {3.5}, {7.0}, {8.0}});
    m_Object->put_Method(::tbvNPKWallis);
    m_Object->put_Headers(VARIANT_TRUE);
    m_Object->put_YRange(Address("Data!A:B,D:D"));
    m_Object->put_OutputRange(Address("Data!G1"));
    ASSERT_EQ(seen(m_Object->Results(nullptr)), (Seen{S_OK, "", ""}));
    EXPECT_EQ(cell("Data!G2"), CellValue("Data Range = Data!$A$1:$B$4,$D$1:$D$4"));
}

TEST_F(Desk, AnAreaWithoutASheetIsAskedForOnTheOneBeforeIt) {
    const WorksheetRef other = m_Workbook->addSheet("Other", ValueGrid{{1.0}});
    other->Activate();
    m_Object->put_Method(::tbvNPKWallis);
    m_Object->put_Headers(VARIANT_TRUE);
    EXPECT_EQ(seen(m_Object->put_YRange(Address("Data!A1:A4,B1:B4"))), (Seen{S_OK, "", ""}));
    m_Object->put_OutputRange(Address("Data!E1"));
    EXPECT_EQ(seen(m_Object->Results(nullptr)), (Seen{S_OK, "", ""}));
    EXPECT_EQ(cell("Data!E2"), CellValue("Data Range = Data!$A$1:$A$4,$B$1:$B$4"));
}

TEST_F(Desk, WithoutTheWorkbookOfTheReportsAnObjectIsNotSet) {
    m_Object->put_YRange(Address("Data!A2:A4"));
    m_Object->put_XRange(Address("Data!B2:B4"));
    m_Workbook->closeBook("tbv2007.xlam");
    EXPECT_EQ(seen(m_Object->Results(nullptr)),
              (Seen{static_cast<HRESULT>(0x800A005B), "Line 0 in TBVNonPara.clsNonParaOutput.Initialise",
                    "Object variable or With block variable not set"}));
}

TEST_F(Desk, TextsThatLookLikeNumbersStayTexts) {
    fill("Data!A1:B1", ValueGrid{{"007", "'tis"}});
    m_Object->put_Headers(VARIANT_TRUE);
    m_Object->put_OutputDescriptives(VARIANT_TRUE);
    m_Object->put_YRange(Address("Data!A1:A4"));
    m_Object->put_XRange(Address("Data!B1:B4"));
    m_Object->put_OutputRange(Address("Data!E1"));
    ASSERT_EQ(seen(m_Object->Results(nullptr)), (Seen{S_OK, "", ""}));
    EXPECT_TRUE(holds("Data!E1:J12", "007"));
    EXPECT_TRUE(holds("Data!E1:J12", "'tis"));
    EXPECT_FALSE(holds("Data!E1:J12", 7.0));
}

}  // namespace

}  // namespace TBVNonPara::com
