#include "tests/report/section_case.hpp"
#include "tests/support/release_order.hpp"

namespace TBVNonPara {
namespace {

struct HeaderCase {
    std::string name;
    TBVNPMethod method;
    std::string text2;
    Support::SheetText lines;
    std::string titleBlock;
    std::string block;
};

// clang-format off
const HeaderCase headerCases[] = {
    {"MannWhitney", tbvNPMannU, "D!$B$1", {"Mann-Whitney Test Results for:", "Set 1 Range = D!$A$1", "Set 2 Range = D!$B$1"}, "A1:A3", "A1:F4"},
    {"Wilcoxon", tbvNPWilcoxon, "D!$B$1", {"Wilcoxon Paired-Sample Test Results for:", "Set 1 Range = D!$A$1", "Set 2 Range = D!$B$1"}, "A1:A3", "A1:F4"},
    {"Spearman", tbvNPSpearman, "D!$B$1", {"Spearman Rank Correlation Results for:", "Set 1 Range = D!$A$1", "Set 2 Range = D!$B$1"}, "A1:A3", "A1:F4"},
    {"Sign", tbvNPSign, "D!$B$1", {"Sign Test Results for:", "Set 1 Range = D!$A$1", "Set 2 Range = D!$B$1"}, "A1:A3", "A1:F4"},
    {"Sign_WithoutSecondRange_HasTwoRows", tbvNPSign, "", {"Sign Test Results for:", "Set 1 Range = D!$A$1"}, "A1:A2", "A1:F3"},
    {"Median", tbvNPMedian, "", {"Mood Median Test Results for:", "Data Range = D!$A$1"}, "A1:A2", "A1:F3"},
    {"Friedman", tbvNPFriedman, "", {"Friedman Test Results for:", "Data Range = D!$A$1"}, "A1:A2", "A1:F3"},
    {"KruskalWallis", tbvNPKWallis, "", {"Kruskal-Wallis Test Results for:", "Data Range = D!$A$1"}, "A1:A2", "A1:F3"},
    {"Runs_HasTwoRows", tbvNPWWRuns, "", {"Wald-Wolfowitz Runs Test Results for:", "Data Range = D!$A$1"}, "A1:A2", "A1:F3"},
    {"OneRangeTests_LeaveOutASecondText", tbvNPWWRuns, "D!$B$1", {"Wald-Wolfowitz Runs Test Results for:", "Data Range = D!$A$1"}, "A1:A2", "A1:F3"},
    {"AnyOtherMethod_HasNoTitle", TBVNPMethod(8), "D!$B$1", {"", "Set 1 Range = D!$A$1", "Set 2 Range = D!$B$1"}, "A1:A3", "A1:F4"},
};
// clang-format on

class Header : public ::testing::TestWithParam<HeaderCase> {};

TEST_P(Header, NamesTheTestAndItsRanges) {
    ReportDesk desk;
    desk.writer.OutputHeader("D!$A$1", GetParam().text2, GetParam().method);
    EXPECT_EQ(desk.cells("A1:J9"), GetParam().lines);
    EXPECT_EQ(desk.record->calls,
              (std::vector<std::string>{"FormatTitle " + GetParam().titleBlock + " True"}));
    EXPECT_EQ(Support::plainAddress(desk.writer.GetResults()), GetParam().block);
}

INSTANTIATE_TEST_SUITE_P(Report, Header, ::testing::ValuesIn(headerCases),
                         caseName<::testing::TestParamInfo<HeaderCase>>);

// clang-format off
const SectionCase writerCases[] = {
    {"ACommentWithTwoBlankLinesAtRow10_LeavesRow13",
     [](clsNonParaOutput& writer) { writer.OutputComment("x", 2, false); },
     {"x"}, {"FormatTitle A10 False"}, "A1:F13", 10},
    {"AnEmphasisedCommentPassesItsFlagOn",
     [](clsNonParaOutput& writer) { writer.OutputComment("x", 0, true); },
     {"x"}, {"FormatTitle A5 True"}, "A1:F6"},
    {"BlankLinesWriteNothing",
     [](clsNonParaOutput& writer) { writer.InsertBlankLines(3); },
     {}, {}, "A1:F8"},
};
// clang-format on

class Cursor : public ::testing::TestWithParam<SectionCase> {};

TEST_P(Cursor, StandsBelowWhatWasWritten) {
    expectSection(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Report, Cursor, ::testing::ValuesIn(writerCases),
                         caseName<::testing::TestParamInfo<SectionCase>>);

TEST(ReportBlock, EndsWithTheRowUnderTheCursorAndEmphasisesIt) {
    ReportDesk desk;
    desk.writer.OutputMWTest({}, 1, {1, 1}, 1, tbvNPTwoTailed);
    desk.record->calls.clear();
    EXPECT_EQ(Support::plainAddress(desk.writer.GetResults()), "A1:D4");
    EXPECT_EQ(desk.record->calls, (std::vector<std::string>{"FormatTitle A4 True"}));
}

TEST(ReportBlock, OfOneColumnIsSixColumnsWide) {
    ReportDesk desk;
    EXPECT_EQ(Support::plainAddress(desk.writer.GetResults()), "A1:F1");
}

TEST(ReportSheet, IsWipedWhenAWriterIsCreated) {
    ReportDesk desk;
    desk.sheet("C9")->LetValue(CellValue("left over"));
    const clsNonParaOutput next(desk.companions);
    EXPECT_EQ(desk.cells("A1:J20"), Support::SheetText());
}

TEST(ReportSheet, IsClearedBeforeItIsColoured) {
    ReportDesk desk;
    std::vector<std::string> calls;
    desk.companions.application = Support::watchHost(desk.host, [&](const Support::HostCall& call) {
        if (call.range.isSet()) {
            calls.push_back(std::string(call.operation) + ' ' + call.details);
        }
    });
    const clsNonParaOutput writer(desk.companions);
    EXPECT_EQ(calls, (std::vector<std::string>{"Range.Clear ", "Range.LetInteriorColorIndex -4142"}));
}

/// A host whose add-in workbook goes by the older name.
class OlderAddIn : public Application {
 public:
    OlderAddIn(ObjectRef<Application> host, std::vector<std::string>& asked)
        : m_Host(std::move(host)), m_Asked(asked) {}

    [[nodiscard]] WorkbookRef GetWorkbooks(std::string_view name) const override {
        m_Asked.emplace_back(name);
        if (name != "Tabvance.xla") {
            raise(RuntimeError::SubscriptOutOfRange);
        }
        return m_Host->GetWorkbooks("tbv2007.xlam");
    }
    [[nodiscard]] RangeRef GetRange(std::string_view) const override { return {}; }
    [[nodiscard]] RangeRef GetRange(const RangeRef&, const RangeRef&) const override { return {}; }
    [[nodiscard]] WorksheetRef AddWorksheets() override { return {}; }
    void LetScreenUpdating(bool) override {}
    [[nodiscard]] const WorksheetFunction& GetWorksheetFunction() const override {
        return m_Host->GetWorksheetFunction();
    }

 private:
    ObjectRef<Application> m_Host;
    std::vector<std::string>& m_Asked;
};

TEST(ReportSheet, IsLookedForInTheSecondWorkbookWhenTheFirstIsNotOpen) {
    ReportDesk desk;
    std::vector<std::string> asked;
    desk.companions.application = makeObject<OlderAddIn>(desk.host, asked);
    clsNonParaOutput writer(desk.companions);
    writer.OutputComment("x", 0, false);
    EXPECT_EQ(asked, (std::vector<std::string>{"tbv2007.xlam", "Tabvance.xla"}));
    EXPECT_EQ(desk.cells("A1:B2"), Support::SheetText{"x"});
}

TEST(ReportSheet, ThatIsInNeitherWorkbookIsAnUnsetObject) {
    ReportDesk desk;
    desk.companions.application = Support::watchHost(desk.host, [](const Support::HostCall& call) {
        if (call.operation == "Application.GetWorkbooks") {
            raise(RuntimeError::SubscriptOutOfRange);
        }
    });
    EXPECT_EQ(Support::raisedBy([&] { const clsNonParaOutput writer(desk.companions); }),
              Support::in("clsNonParaOutput.Initialise", 91));
}

TEST(CursorErrors, RowsBeyond32BitsOverflow) {
    ReportDesk desk;
    const auto down = [&] {
        for (Long i = 1; i <= 70000; ++i) {
            desk.writer.InsertBlankLines(32767);
        }
    };
    EXPECT_EQ(Support::raisedBy(down), Support::in("clsNonParaOutput.InsertBlankLines", 6));
}

TEST(CursorErrors, BlankLinesBeyond16BitsOverflow) {
    EXPECT_EQ(Support::raisedBy([] { (void)Integer(32768); }).number, 6);
}

TEST(CursorErrors, AHostThatRefusesARowIsReportedByTheProcedure) {
    ReportDesk desk;
    for (Long i = 1; i <= 33; ++i) {
        desk.writer.InsertBlankLines(32767);
    }
    EXPECT_EQ(Support::raisedBy([&] { desk.writer.OutputComment("x", 0, false); }).source,
              "Line 0 in TBVNonPara.clsNonParaOutput.OutputComment");
    EXPECT_EQ(Support::raisedBy([&] { (void)desk.writer.GetResults(); }).source,
              "Line 0 in TBVNonPara.clsNonParaOutput.GetResults");
    EXPECT_EQ(Support::raisedBy([&] { desk.writer.OutputHeader("a", "b", tbvNPMannU); }).source,
              "Line 0 in TBVNonPara.clsNonParaOutput.OutputHeader");
}

TEST(Writer, ReleasesItsStyleBeforeItsFormatter) {
    std::vector<std::string> released;
    CompanionLibrary companions = ownCompanions(Support::testHost());
    companions.createReportStyle = [&, create = companions.createReportStyle] {
        return Support::noticed(create(), "style", released);
    };
    companions.createReportFormatter = [&, create = companions.createReportFormatter] {
        return Support::noticed(create(), "formatter", released);
    };
    { const clsNonParaOutput writer(companions); }
    EXPECT_EQ(released, (std::vector<std::string>{"style", "formatter"}));
}

}  // namespace
}  // namespace TBVNonPara
