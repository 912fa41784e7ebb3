#include "tests/request/request_desk.hpp"

namespace TBVNonPara {
namespace {

/// A run that the checks stop, or let pass (number 0).
struct CheckedRun {
    std::string name;
    TBVNPMethod method;
    bool headers;
    ValueGrid data;
    std::string y;
    std::string x;
    std::int32_t number;

    friend std::ostream& operator<<(std::ostream& out, const CheckedRun& run) { return out << run.name; }
};

ValueGrid rows(Long first, Long second) {
    ValueGrid data(second > first ? second : first, 2);
    for (Long i = 1; i <= first; ++i) {
        data(i, 1) = toDouble(i * i);
    }
    for (Long i = 1; i <= second; ++i) {
        data(i, 2) = toDouble(3 * i + 1);
    }
    return data;
}

const ValueGrid withBlank = {{1.0, 4.0}, {2.0, blank}, {3.0, 6.5}, {2.5, 7.0}};

// clang-format off
const CheckedRun runCases[] = {
    {"NoYRange",                   tbvNPMannU,    false, threeAndThree, "", "Data!B1:B3", tbvNPNoYRange},
    {"MannWhitneyWithoutXRange",   tbvNPMannU,    false, threeAndThree, "Data!A1:A3", "", tbvNPNoXRange},
    {"WilcoxonWithoutXRange",      tbvNPWilcoxon, false, threeAndThree, "Data!A1:A3", "", tbvNPNoXRange},
    {"SpearmanWithoutXRange",      tbvNPSpearman, false, threeAndThree, "Data!A1:A3", "", tbvNPNoXRange},
    {"WilcoxonOf10And11Rows",      tbvNPWilcoxon, false, rows(10, 11), "Data!A1:A10", "Data!B1:B11", tbvNPUnequalPairs},
    {"SpearmanOf10And11Rows",      tbvNPSpearman, false, rows(10, 11), "Data!A1:A10", "Data!B1:B11", tbvNPUnequalPairs},
    {"MannWhitneyOf10And11Rows",   tbvNPMannU,    false, rows(10, 11), "Data!A1:A10", "Data!B1:B11", 0},
    {"OneDataRowBelowTheHeader",   tbvNPMannU,    true,  threeAndThree, "Data!A1:A2", "Data!B1:B2", tbvNPTooFewRows},
    {"TwoDataRowsBelowTheHeader",  tbvNPMannU,    true,  threeAndThree, "Data!A1:A3", "Data!B1:B3", 0},
    {"OneRowWithoutHeaders",       tbvNPMannU,    false, threeAndThree, "Data!A1", "Data!B1", tbvNPTooFewRows},
    {"RowsOfTheFirstAreaCount",    tbvNPKWallis,  false, threeAndThree, "Data!A1,Data!B1:B3", "", tbvNPTooFewRows},
    {"OnlyAHeaderInTheFirstRange", tbvNPMannU,    true,  threeAndThree, "Data!A1", "Data!B1:B3", tbvNPNoData},
    {"OnlyAHeaderInTheSecondRange", tbvNPMannU,   true,  threeAndThree, "Data!A1:A3", "Data!B1", tbvNPNoData},
    {"ABlankInTheSecondRange",     tbvNPMannU,    false, withBlank, "Data!A1:A4", "Data!B1:B4", tbvNPBlankInData},
    {"ABlankInTheFirstRange",      tbvNPMannU,    false, withBlank, "Data!B1:B4", "Data!A1:A4", tbvNPBlankInData},
    {"ABlankInAFriedmanBlock",     tbvNPFriedman, false, withBlank, "Data!A1:B4", "", tbvNPBlankInData},
    {"ABlankInAKruskalWallisGroup", tbvNPKWallis, false, withBlank, "Data!A1:B4", "", 0},
    {"ABlankInAMedianGroup",       tbvNPMedian,   false, withBlank, "Data!A1:B4", "", 0},
    {"ATextInARun",                tbvNPWWRuns,   false, {{"a"}, {1.0}, {"a"}, {blank}, {"a"}}, "Data!A1:A5", "", 0},
    {"AnErrorInARun",              tbvNPWWRuns,   false, {{"a"}, {CellError::Number}}, "Data!A1:A2", "", tbvNPErrorInData},
    {"AHeaderThatIsNoNumber",      tbvNPMannU,    false, {{"a", "b"}, {1.0, 2.0}}, "Data!A1:A2", "Data!B1:B2", tbvNPTextInData},
    {"CodesUnderALabel",           tbvNPSign, true,  {{"Sign"}, {1.0}, {-1.0}, {0.0}, {1.0}}, "Data!A1:A5", "", 0},
    {"CodesUnderTheLabel1",        tbvNPSign, true,  {{"1"}, {1.0}, {-1.0}, {0.0}, {1.0}},    "Data!A1:A5", "", 0},
    {"CodesUnderTheNumber1",       tbvNPSign, true,  {{1.0}, {1.0}, {-1.0}, {0.0}, {1.0}},    "Data!A1:A5", "", 0},
    {"CodesUnderTheLabelMinus1",   tbvNPSign, true,  {{"-1"}, {1.0}, {-1.0}, {0.0}, {1.0}},   "Data!A1:A5", "", 0},
    {"CodesUnderTheLabel0",        tbvNPSign, true,  {{0.0}, {1.0}, {-1.0}, {0.0}, {1.0}},    "Data!A1:A5", "", 0},
    {"CodesUnderTheLabel2",        tbvNPSign, true,  {{2.0}, {1.0}, {-1.0}, {0.0}, {1.0}},    "Data!A1:A5", "", 0},
    {"CodesWithoutALabel",         tbvNPSign, false, {{1.0}, {-1.0}, {0.0}, {"1"}},           "Data!A1:A4", "", 0},
    {"A2AmongTheCodes",            tbvNPSign, true,  {{"Sign"}, {1.0}, {-1.0}, {2.0}}, "Data!A1:A4", "", tbvNPInvalidSignSymbols},
    {"A2AmongTheCodesWithoutALabel", tbvNPSign, false, {{1.0}, {-1.0}, {2.0}},         "Data!A1:A3", "", tbvNPInvalidSignSymbols},
    {"OneCode",                    tbvNPSign, false, {{1.0}}, "Data!A1", "", tbvNPTooFewRows},
    {"SignOfTwoRangesNeedsNoCodes", tbvNPSign, false, threeAndThree, "Data!A1:A3", "Data!B1:B3", 0},
};
// clang-format on

class Run : public ::testing::TestWithParam<CheckedRun> {};

TEST_P(Run, ChecksTheRangesAndLeavesTheSheetsAlone) {
    RequestDesk desk(GetParam().data);
    desk.request.LetMethod(GetParam().method);
    desk.request.LetHeaders(GetParam().headers);
    if (!GetParam().y.empty()) {
        desk.request.LetYRange(GetParam().y);
    }
    desk.request.LetXRange(GetParam().x);
    const Support::Raised raised = desk.run();
    EXPECT_EQ(raised.number, GetParam().number) << raised;
    EXPECT_EQ(raised.source, GetParam().number == 0 ? "" : inResults);
    EXPECT_EQ(desk.sheets().size(), GetParam().number == 0 ? 3U : 2U);
    EXPECT_EQ(desk.cells("Out!A1:H60"), Support::SheetText());
}

INSTANTIATE_TEST_SUITE_P(Request, Run, ::testing::ValuesIn(runCases),
                         [](const auto& test) { return test.param.name; });

struct MannWhitneyDesk : RequestDesk {
    MannWhitneyDesk() : RequestDesk(threeAndThree) {
        request.LetYRange("Data!A1:A3");
        request.LetXRange("Data!B1:B3");
    }
};

TEST(Placing, WithoutAPlaceUsesANewLastWorksheet) {
    MannWhitneyDesk desk;
    EXPECT_EQ(desk.run(), Support::Raised());
    const std::vector<std::string> sheets = desk.sheets();
    ASSERT_EQ(sheets.size(), 3U);
    EXPECT_EQ(sheets[0], "Data");
    EXPECT_EQ(sheets[1], "Out");
    EXPECT_EQ(desk.lastSheet().size(), 7U);
}

TEST(Placing, ASecondRunUsesTheSameNewWorksheetAndTheCallersOverWrite) {
    MannWhitneyDesk desk;
    EXPECT_EQ(desk.run(), Support::Raised());
    EXPECT_EQ(desk.run(), Support::in("clsNonPara.Results", tbvNPOutputOccupied));
    EXPECT_EQ(desk.run(true), Support::Raised());
    EXPECT_EQ(desk.sheets().size(), 3U);
}

TEST(Placing, OverTheUsersCellsIsRefusedBeforeAnythingIsWritten) {
    MannWhitneyDesk desk;
    desk.put("Out!D9", {{"mine"}});
    desk.request.LetOutputRange("Out!A1");
    const Support::Raised raised = desk.run();
    EXPECT_EQ(raised, Support::in("clsNonPara.Results", tbvNPOutputOccupied));
    EXPECT_EQ(raised.description,
              "Out!D9 holds a value and the report needs Out!A1:D9; clear these cells, choose another place "
              "or allow overwriting.");
    EXPECT_EQ(desk.cells("Out!A1:C9"), Support::SheetText());
    EXPECT_EQ(desk.run(true), Support::Raised());
    EXPECT_EQ(desk.cells("Out!A1:D9").size(), 7U);
}

TEST(Placing, OffTheSheetIsRefused) {
    MannWhitneyDesk desk;
    desk.request.LetOutputRange("Out!A1048570");
    EXPECT_EQ(desk.run(true), Support::in("clsNonPara.Results", tbvNPOutputOffSheet));
}

TEST(Placing, GoesStepByStep) {
    MannWhitneyDesk desk;
    EXPECT_EQ(desk.run(), Support::Raised());
    const auto added = std::ranges::find(desk.calls, "Application.AddWorksheets");
    ASSERT_GT(desk.calls.end() - added, 20);
    EXPECT_EQ(std::vector<std::string>(added, added + 9),
              (std::vector<std::string>{"Application.AddWorksheets", "Worksheet.GetParent",
                                        "Workbook.GetWorksheetsCount", "Worksheet.GetParent",
                                        "Workbook.GetWorksheets", "Worksheet.Move", "Worksheet.GetCells",
                                        "Range.GetColumnsCount", "Range.GetRowsCount"}));
    EXPECT_EQ(std::vector<std::string>(desk.calls.end() - 11, desk.calls.end()),
              (std::vector<std::string>{"Range.GetWorksheet", "Worksheet.GetParent", "Workbook.Activate",
                                        "Range.GetWorksheet", "Worksheet.Activate", "Range.Copy",
                                        "Range.GetCells", "Range.PasteSpecial",
                                        "Application.LetScreenUpdating", "Range.GetCells", "Range.Select"}));
}

TEST(Placing, EndsWithTheReportSelectedOnTheActiveSheet) {
    MannWhitneyDesk desk;
    desk.request.LetOutputRange("Out!C3:D9");
    EXPECT_EQ(desk.run(), Support::Raised());
    const auto application = std::dynamic_pointer_cast<workbook::EmbeddedApplication>(desk.host.shared());
    EXPECT_EQ(application->activeSheet()->GetName(), "Out");
    EXPECT_EQ(Support::plainAddress(application->selection()), "C3");
    EXPECT_TRUE(application->screenUpdating());
}

TEST(Placing, CarriesTheFormats) {
    MannWhitneyDesk desk;
    desk.request.LetOutputRange("Out!A1");
    EXPECT_EQ(desk.run(), Support::Raised());
    const auto sheet =
        std::dynamic_pointer_cast<workbook::Sheet>(desk.host->GetRange("Out!A1")->GetWorksheet().shared());
    EXPECT_TRUE(sheet->format(1, 1).bold);
    EXPECT_EQ(sheet->format(7, 1).numberFormat, "0.0000");
    EXPECT_EQ(sheet->format(7, 2).numberFormat, "0");
    EXPECT_FALSE(sheet->format(7, 1).bold);
}

struct StepFailure {
    std::string operation;
    std::string source;

    friend std::ostream& operator<<(std::ostream& out, const StepFailure& step) {
        return out << step.operation;
    }
};

class FailingStep : public ::testing::TestWithParam<StepFailure> {};

/// The steps behind the report's last one, whose failure leaves the report to be pasted next time.
TEST_P(FailingStep, LeavesTheUsersSheetAndTheNextRunSucceeds) {
    MannWhitneyDesk desk;
    desk.put("Out!A20", {{"mine"}});
    desk.request.LetOutputRange("Out!A1");
    desk.failing = GetParam().operation;
    desk.failures = 1;
    const Support::Raised raised = desk.run();
    EXPECT_EQ(raised.number, 1004);
    EXPECT_EQ(raised.source, GetParam().source);
    EXPECT_EQ(desk.cells("Out!A1:H19"), Support::SheetText());
    EXPECT_EQ(desk.run(), Support::Raised());
    EXPECT_EQ(desk.cells("Out!A1:H19").size(), 7U);
    EXPECT_EQ(desk.cells("Out!A20:H30"), Support::SheetText{"mine"});
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Request, FailingStep, ::testing::ValuesIn(std::vector<StepFailure>{
    {"Range.GetValue",         inResults},
    {"Range.Clear",            "Line 0 in TBVNonPara.clsNonParaOutput.Initialise"},
    {"Range.LetValue",         "Line 0 in TBVNonPara.clsNonParaOutput.OutputHeader"},
    {"Range.LetBorder",        "Line 0 in TBVNonPara.clsNonParaOutput.OutputMWTest"},
    {"Range.GetAddressLocal",  "Line 0 in TBVNonPara.clsNonPara.FormatMannUResults"},
    {"Workbook.Activate",      inResults},
    {"Worksheet.Activate",     inResults},
    {"Range.Copy",             inResults},
    {"Range.PasteSpecial",     inResults},
}), [](const auto& test) {
    std::string name = test.param.operation;
    std::erase(name, '.');
    return name;
});
// clang-format on

TEST(Reuse, EveryRunLoadsItsOwnSecondRange) {
    RequestDesk desk({{1.0, 4.0}, {-1.0, 5.0}, {1.0, -6.0}});
    desk.request.LetMethod(tbvNPSign);
    desk.request.LetYRange("Data!A1:A3");
    desk.request.LetXRange("Data!B1:B3");
    EXPECT_EQ(desk.run(), Support::Raised());
    EXPECT_EQ(desk.lastSheet()[6], "1|0|2");
    desk.request.LetXRange("");
    EXPECT_EQ(desk.run(true), Support::Raised());
    EXPECT_EQ(desk.lastSheet()[5], "2|0|1");
}

TEST(Reuse, OneObjectRunsEveryTestInTurn) {
    RequestDesk desk({{1.0, 4.0}, {-1.0, 5.0}, {1.0, -6.0}, {0.0, 7.5}});
    for (const TBVNPMethod method : {tbvNPMannU, tbvNPWilcoxon, tbvNPSpearman, tbvNPSign, tbvNPMedian,
                                     tbvNPFriedman, tbvNPKWallis, tbvNPWWRuns, tbvNPMannU}) {
        const bool groups = method >= tbvNPMedian && method <= tbvNPKWallis;
        desk.request.LetMethod(method);
        desk.request.LetYRange(groups ? "Data!A1:B4" : "Data!A1:A4");
        desk.request.LetXRange(method <= tbvNPSpearman ? "Data!B1:B4" : "");
        EXPECT_EQ(desk.run(true), Support::Raised()) << method;
    }
}

TEST(Cost, OfADescriptiveReportOfTenThousandRowsIsAFewHundredHostCalls) {
    ValueGrid data(10000, 2);
    for (Long i = 1; i <= 10000; ++i) {
        data(i, 1) = toDouble(i);
        data(i, 2) = toDouble(i) + 0.5;
    }
    RequestDesk desk(data);
    desk.request.LetOutputDescriptives(true);
    desk.request.LetYRange("Data!A1:A10000");
    desk.request.LetXRange("Data!B1:B10000");
    desk.calls.clear();
    EXPECT_EQ(desk.run(), Support::Raised());
    EXPECT_LT(desk.calls.size(), 300U);
}

}  // namespace
}  // namespace TBVNonPara
