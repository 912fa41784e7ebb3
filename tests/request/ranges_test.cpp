#include "tests/request/request_desk.hpp"

namespace TBVNonPara {
namespace {

struct RangeCase {
    std::string name;
    std::function<void(clsNonPara&)> set;
    std::int32_t number;

    friend std::ostream& operator<<(std::ostream& out, const RangeCase& range) { return out << range.name; }
};

std::function<void(clsNonPara&)> yRange(TBVNPMethod method, const std::string& address) {
    return [=](clsNonPara& request) {
        request.LetMethod(method);
        request.LetYRange(address);
    };
}

// clang-format off
const RangeCase rangesCases[] = {
    {"YRange_Empty",                     yRange(tbvNPMannU, ""),               tbvNPNoYRange},
    {"YRange_NoAddress",                 yRange(tbvNPMannU, "no such place"),  tbvNPBadYRange},
    {"YRange_NoSuchSheet",               yRange(tbvNPMannU, "Nowhere!A1:A3"),  tbvNPBadYRange},
    {"YRange_TwoColumns_MannWhitney",    yRange(tbvNPMannU, "Data!A1:B3"),     tbvNPYRangeColumns},
    {"YRange_TwoColumns_Wilcoxon",       yRange(tbvNPWilcoxon, "Data!A1:B3"),  tbvNPYRangeColumns},
    {"YRange_TwoColumns_Spearman",       yRange(tbvNPSpearman, "Data!A1:B3"),  tbvNPYRangeColumns},
    {"YRange_TwoColumns_Sign",           yRange(tbvNPSign, "Data!A1:B3"),      tbvNPYRangeColumns},
    {"YRange_TwoColumns_Runs",           yRange(tbvNPWWRuns, "Data!A1:B3"),    tbvNPYRangeColumns},
    {"YRange_TwoColumns_NoMethod",       yRange(TBVNPMethod(8), "Data!A1:B3"), tbvNPYRangeColumns},
    {"YRange_TwoColumns_Median",         yRange(tbvNPMedian, "Data!A1:B3"),    0},
    {"YRange_TwoColumns_Friedman",       yRange(tbvNPFriedman, "Data!A1:B3"),  0},
    {"YRange_TwoColumns_KruskalWallis",  yRange(tbvNPKWallis, "Data!A1:B3"),   0},
    {"YRange_OneColumn_Median",          yRange(tbvNPMedian, "Data!A1:A3"),    tbvNPTooFewGroups},
    {"YRange_OneColumn_Friedman",        yRange(tbvNPFriedman, "Data!A1:A3"),  tbvNPTooFewGroups},
    {"YRange_OneColumn_KruskalWallis",   yRange(tbvNPKWallis, "Data!A1:A3"),   tbvNPTooFewGroups},
    {"YRange_TwoAreasOfOneColumn",       yRange(tbvNPKWallis, "Data!A1:A3,Data!C1:C3"), 0},
    {"XRange_Empty",         [](clsNonPara& r) { r.LetXRange(""); },              0},
    {"XRange_NoAddress",     [](clsNonPara& r) { r.LetXRange("no such place"); }, tbvNPBadXRange},
    {"XRange_TwoColumns",    [](clsNonPara& r) { r.LetXRange("Data!A1:B3"); },    tbvNPXRangeColumns},
    {"OutputRange_Empty",    [](clsNonPara& r) { r.LetOutputRange(""); },         0},
    {"OutputRange_NoAddress", [](clsNonPara& r) { r.LetOutputRange("no such place"); }, tbvNPBadOutputRange},
};
// clang-format on

class RangeProperty : public ::testing::TestWithParam<RangeCase> {};

TEST_P(RangeProperty, RaisesABareNumber) {
    RequestDesk desk(threeAndThree);
    const Support::Raised raised = Support::raisedBy([&] { GetParam().set(desk.request); });
    EXPECT_EQ(raised.number, GetParam().number);
    EXPECT_EQ(raised.source, "");
    EXPECT_EQ(raised.description, "");
}

INSTANTIATE_TEST_SUITE_P(Request, RangeProperty, ::testing::ValuesIn(rangesCases),
                         [](const auto& test) { return test.param.name; });

TEST(RangePropertyFilter, LetsErrorsOfTheLibrarysBandPassUnchanged) {
    struct Limit {
        std::int32_t raised;
        std::int32_t seen;
    };
    for (const Limit limit : {Limit{objectErrorBase + 4999, tbvNPBadYRange},
                              Limit{objectErrorBase + 5000, objectErrorBase + 5000},
                              Limit{objectErrorBase + 5101, objectErrorBase + 5101},
                              Limit{objectErrorBase + 5102, tbvNPBadYRange}}) {
        RequestDesk desk(threeAndThree);
        desk.failing = "Application.GetRange";
        desk.failures = 1;
        desk.failure = Error(limit.raised, "", "Host");
        EXPECT_EQ(Support::raisedBy([&] { desk.request.LetYRange("Data!A1:A3"); }).number, limit.seen);
    }
}

TEST(YRange, SetTwiceIsResolvedTwice) {
    RequestDesk desk(threeAndThree);
    desk.request.LetYRange("Data!A1:A3");
    desk.request.LetYRange("Data!A1:A3");
    EXPECT_EQ(desk.count("Application.GetRange"), 2);
}

TEST(YRange, ThatWasRefusedStays) {
    RequestDesk desk(threeAndThree);
    EXPECT_EQ(Support::raisedBy([&] { desk.request.LetYRange("Data!A1:B3"); }).number, tbvNPYRangeColumns);
    desk.request.LetMethod(tbvNPKWallis);
    EXPECT_EQ(desk.run(), Support::Raised());
    EXPECT_EQ(desk.lastSheet()[1], "Data Range = Data!$A$1:$B$3");
}

TEST(YRange, OfOneColumnSetBeforeTheMethodIsNotCheckedAgain) {
    RequestDesk desk(threeAndThree);
    desk.request.LetYRange("Data!A1:A3");
    desk.request.LetMethod(tbvNPKWallis);
    // One group leaves no degrees of freedom: the engine is reached and fails there.
    EXPECT_EQ(desk.run().source, "Line 0 in TBVNonPara.clsNonParaBO.AnalyseKWallis");
}

TEST(XRange, SetTwiceIsResolvedOnce) {
    RequestDesk desk(threeAndThree);
    desk.request.LetXRange("Data!B1:B3");
    desk.request.LetXRange("Data!B1:B3");
    EXPECT_EQ(desk.count("Application.GetRange"), 1);
}

TEST(XRange, ThatWasRefusedStaysAndIsRefusedAgain) {
    RequestDesk desk(threeAndThree);
    desk.request.LetYRange("Data!A1:A3");
    for (int time = 1; time <= 2; ++time) {
        EXPECT_EQ(Support::raisedBy([&] { desk.request.LetXRange("Data!A1:B3"); }).number,
                  tbvNPXRangeColumns);
    }
    EXPECT_EQ(desk.run(), Support::Raised());
    EXPECT_EQ(desk.lastSheet()[2], "Set 2 Range = Data!$A$1:$B$3");
}

TEST(XRange, EmptyReleasesTheSecondRange) {
    RequestDesk desk(threeAndThree);
    desk.request.LetYRange("Data!A1:A3");
    desk.request.LetXRange("Data!B1:B3");
    desk.request.LetXRange("");
    EXPECT_EQ(desk.run(), Support::in("clsNonPara.Results", tbvNPNoXRange));
}

TEST(OutputRange, EmptyMeansANewWorksheetAgain) {
    RequestDesk desk(threeAndThree);
    desk.request.LetYRange("Data!A1:A3");
    desk.request.LetXRange("Data!B1:B3");
    desk.request.LetOutputRange("Out!A1");
    desk.request.LetOutputRange("");
    EXPECT_EQ(desk.run(), Support::Raised());
    EXPECT_EQ(desk.sheets().size(), 3U);
    EXPECT_EQ(desk.cells("Out!A1:H30"), Support::SheetText());
}

}  // namespace
}  // namespace TBVNonPara
