#include <algorithm>
#include <bit>

#include "core/enumerations.hpp"
#include "tests/adapters/com/desk.hpp"

namespace TBVNonPara::com {

namespace {

using Method = ::TBVNPMethod;

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

struct Test {
    const char* name;
    Method method;
    const char* y;
    const char* x;
    const char* title;
};

void PrintTo(const Test& test, std::ostream* out) {
    *out << test.name;
}

class EachTest : public Desk, public testing::WithParamInterface<Test> {};

TEST_P(EachTest, ComesToAReportUnderItsTitle) {
    fill("Data!A1:D6", ValueGrid{{"a", "b", "s", "g"},
                                 {1.0, 4.5, 1.0, 1.0},
                                 {2.0, 5.0, -1.0, 1.0},
                                 {3.5, 6.0, 1.0, 2.0},
                                 {3.0, 2.5, 0.0, 2.0},
                                 {5.0, 9.0, 1.0, 2.0}});
    ASSERT_EQ(m_Object->put_Method(GetParam().method), S_OK);
    ASSERT_EQ(m_Object->put_Headers(VARIANT_TRUE), S_OK);
    ASSERT_EQ(m_Object->put_OutputDescriptives(VARIANT_TRUE), S_OK);
    ASSERT_EQ(seen(m_Object->put_YRange(Address(GetParam().y))), (Seen{S_OK, "", ""}));
    ASSERT_EQ(seen(m_Object->put_XRange(Address(GetParam().x))), (Seen{S_OK, "", ""}));
    ASSERT_EQ(m_Object->put_OutputRange(Address("Data!J1")), S_OK);
    ASSERT_EQ(seen(m_Object->Results(nullptr)), (Seen{S_OK, "", ""}));
    EXPECT_EQ(cell("Data!J1"), CellValue(GetParam().title));
}

// clang-format off
const Test tests[] = {
    {"MannWhitney",   ::tbvNPMannU,    "Data!A1:A6", "Data!B1:B6", "Mann-Whitney Test Results for:"},
    {"Wilcoxon",      ::tbvNPWilcoxon, "Data!A1:A6", "Data!B1:B6", "Wilcoxon Paired-Sample Test Results for:"},
    {"Spearman",      ::tbvNPSpearman, "Data!A1:A6", "Data!B1:B6", "Spearman Rank Correlation Results for:"},
    {"SignOfPairs",   ::tbvNPSign,     "Data!A1:A6", "Data!B1:B6", "Sign Test Results for:"},
    {"SignOfCodes",   ::tbvNPSign,     "Data!C1:C6", "",           "Sign Test Results for:"},
    {"Median",        ::tbvNPMedian,   "Data!A1:B6", "",           "Mood Median Test Results for:"},
    {"Friedman",      ::tbvNPFriedman, "Data!A1:C6", "",           "Friedman Test Results for:"},
    {"KruskalWallis", ::tbvNPKWallis,  "Data!A1:B6", "",           "Kruskal-Wallis Test Results for:"},
    {"Runs",          ::tbvNPWWRuns,   "Data!D1:D6", "",           "Wald-Wolfowitz Runs Test Results for:"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Com, EachTest, testing::ValuesIn(tests),
                         [](const auto& tested) { return tested.param.name; });

struct Refusal {
    const char* name;
    Method method;
    VARIANT_BOOL headers;
    const char* y;
    const char* x;
    /// What YRange, XRange and Results come to, 0 for success.
    std::int32_t yNumber;
    std::int32_t xNumber;
    std::int32_t number;
};

void PrintTo(const Refusal& refusal, std::ostream* out) {
    *out << refusal.name;
}

class EachRefusal : public Desk, public testing::WithParamInterface<Refusal> {};

TEST_P(EachRefusal, ReachesTheClientAsABareNumberWithItsSource) {
    const Refusal& refusal = GetParam();
    fill("Data!A1:C4", ValueGrid{{"a", "b", "s"}, {1.0, 4.0, 1.0}, {2.0, 5.0, 2.0}, {3.0, 6.0, -1.0}});
    m_Object->put_Method(refusal.method);
    m_Object->put_Headers(refusal.headers);
    // The filter of the range properties leaves no source.
    EXPECT_EQ(seen(m_Object->put_YRange(Address(refusal.y))), (Seen{refusal.yNumber, "", ""}));
    EXPECT_EQ(seen(m_Object->put_XRange(Address(refusal.x))), (Seen{refusal.xNumber, "", ""}));
    if (refusal.number != 0) {
        EXPECT_EQ(seen(m_Object->Results(nullptr)), (Seen{refusal.number, inResults, ""}));
    }
}

// clang-format off
const Refusal refusals[] = {
    {"NoSuchYRange",           ::tbvNPMannU,    0,  "Nowhere!A1", "",           tbvNPBadYRange,     0, tbvNPNoYRange},
    {"EmptyYRange",            ::tbvNPMannU,    0,  "",           "",           tbvNPNoYRange,      0, tbvNPNoYRange},
    {"NoSuchXRange",           ::tbvNPMannU,    0,  "Data!A2:A4", "Data!??",    0, tbvNPBadXRange,     tbvNPNoXRange},
    {"NoXRange",               ::tbvNPSpearman, 0,  "Data!A2:A4", "",           0, 0,                  tbvNPNoXRange},
    {"UnequalPairs",           ::tbvNPWilcoxon, 0,  "Data!A2:A4", "Data!B2:B3", 0, 0,                  tbvNPUnequalPairs},
    {"OneGroup",               ::tbvNPKWallis,  0,  "Data!A2:A4", "",           tbvNPTooFewGroups,  0, 0},
    {"OneRow",                 ::tbvNPWWRuns,   -1, "Data!A1:A2", "",           0, 0,                  tbvNPTooFewRows},
    {"TwoColumnsOfData",       ::tbvNPSign,     0,  "Data!A2:B4", "",           tbvNPYRangeColumns, 0, 0},
    {"TwoColumnsOfTheSecond",  ::tbvNPMannU,    0,  "Data!A2:A4", "Data!A2:B4", 0, tbvNPXRangeColumns, 0},
    {"CodesOutsideTheSigns",   ::tbvNPSign,     0,  "Data!C2:C4", "",           0, 0,                  TBVNonPara::tbvNPInvalidSignSymbols},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Com, EachRefusal, testing::ValuesIn(refusals),
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
    EXPECT_EQ(m_Object->put_Method(std::bit_cast<Method>(8)), S_OK);
    EXPECT_EQ(m_Object->put_Method(std::bit_cast<Method>(-1)), S_OK);
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
