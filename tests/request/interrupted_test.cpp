#include <functional>
#include <optional>

#include "tests/request/request_desk.hpp"

namespace TBVNonPara {
namespace {

/// A Mann-Whitney request for Out!A1 whose host calls its client back, once, at an operation of the run.
struct InterruptedDesk {
    ObjectRef<Application> host = Support::testHost();
    std::string interrupted;
    std::function<void()> client;
    CompanionLibrary companions = ownCompanions(Support::watchHost(host, [this](const auto& call) {
        if (call.operation == interrupted && client) {
            std::exchange(client, nullptr)();
        }
    }));
    clsNonPara request{companions};

    InterruptedDesk() {
        host->GetRange("Data!A1:B3")->LetValue(threeAndThree);
        request.LetYRange("Data!A1:A3");
        request.LetXRange("Data!B1:B3");
        request.LetOutputRange("Out!A1");
    }

    [[nodiscard]] Support::SheetText report() const {
        return Support::sheetText(host->GetRange("Out!A1:L60"));
    }
    [[nodiscard]] Support::SheetText reportBeside() const {
        return Support::sheetText(host->GetRange("Out!N1:X60"));
    }

    void setEverythingElse() {
        request.LetMethod(tbvNPKWallis);
        request.LetTails(tbvNPVar1LTVar2);
        request.LetOutputDescriptives(true);
        request.LetYRange("Data!A1:B3");
        request.LetXRange("");
        request.LetOutputRange("Out!N1");
    }
};

Support::SheetText undisturbedReport() {
    InterruptedDesk desk;
    desk.request.Results();
    return desk.report();
}

/// The operations of a run at which a host may call its client back, from the first to the last.
const std::vector<std::string> operations = {
    "Range.GetValue",    "Range.GetColumnsCount", "Range.GetAddress", "Worksheet.GetName",
    "Range.Clear",       "Range.LetValue",        "Range.LetBorder",  "Range.GetWorksheet",
    "Workbook.Activate", "Worksheet.Activate",    "Range.Copy",       "Range.PasteSpecial",
    "Range.Select",
};

class Interrupted : public ::testing::TestWithParam<std::string> {
 protected:
    Interrupted() { m_Desk.interrupted = GetParam(); }

    InterruptedDesk m_Desk;
};

TEST_P(Interrupted, TheReportIsThatOfTheSettingsAtTheCall) {
    m_Desk.client = [this] { m_Desk.setEverythingElse(); };
    m_Desk.request.Results();
    ASSERT_FALSE(m_Desk.client) << "the run makes no such call";
    EXPECT_EQ(m_Desk.report(), undisturbedReport());
    EXPECT_EQ(m_Desk.reportBeside(), Support::SheetText());
}

TEST_P(Interrupted, TheNextRunTakesTheNewSettings) {
    m_Desk.client = [this] { m_Desk.setEverythingElse(); };
    m_Desk.request.Results();
    m_Desk.request.Results();
    EXPECT_EQ(m_Desk.reportBeside().at(0), "Kruskal-Wallis Test Results for:");
    EXPECT_EQ(m_Desk.report(), undisturbedReport());
}

TEST_P(Interrupted, ARunOfTheSameObjectInsideIsRefused) {
    std::optional<Support::Raised> refusal;
    m_Desk.client = [&] { refusal = Support::raisedBy([this] { m_Desk.request.Results(true); }); };
    m_Desk.request.Results();
    EXPECT_EQ(refusal, Support::in("clsNonPara.Results", tbvNPRunInProgress));
    EXPECT_EQ(m_Desk.report(), undisturbedReport());
}

TEST_P(Interrupted, ARunOfAnotherObjectInsideIsRefused) {
    std::optional<Support::Raised> refusal;
    m_Desk.client = [&] {
        clsNonPara other(m_Desk.companions);
        other.LetMethod(tbvNPKWallis);
        other.LetYRange("Data!A1:B3");
        other.LetOutputRange("Out!N1");
        refusal = Support::raisedBy([&] { other.Results(true); });
    };
    m_Desk.request.Results();
    EXPECT_EQ(refusal, Support::in("clsNonPara.Results", tbvNPRunInProgress));
    EXPECT_NE(refusal->description.find("Call Results again when it has ended"), std::string::npos);
    EXPECT_EQ(m_Desk.report(), undisturbedReport());
    EXPECT_EQ(m_Desk.reportBeside(), Support::SheetText());
}

INSTANTIATE_TEST_SUITE_P(Request, Interrupted, ::testing::ValuesIn(operations), [](const auto& test) {
    std::string name = test.param;
    std::erase(name, '.');
    return name;
});

TEST(InterruptedRun, ThatFailsIsNotGoingOnAnyMore) {
    InterruptedDesk desk;
    desk.interrupted = "Range.LetBorder";
    desk.client = [] { throw Error(1004, "the host refuses"); };
    EXPECT_EQ(Support::raisedBy([&] { desk.request.Results(); }).number, 1004);
    desk.request.Results();
    EXPECT_EQ(desk.report(), undisturbedReport());
}

TEST(InterruptedRun, LeavesNoReportOfTheOldSettingsToTheNextRun) {
    InterruptedDesk desk;
    desk.host->GetRange("Out!A1")->LetValue("mine");
    desk.interrupted = "Range.LetBorder";
    desk.client = [&] { desk.request.LetTails(tbvNPVar1LTVar2); };
    EXPECT_EQ(Support::raisedBy([&] { desk.request.Results(); }).number, tbvNPOutputOccupied);
    desk.request.Results(true);
    EXPECT_EQ(desk.report().at(4), "1-tailed Test (Column A < Column B)");
}

TEST(InterruptedRun, OnANewWorksheetKeepsThePlaceThatWasSetMeanwhile) {
    InterruptedDesk desk;
    desk.request.LetOutputRange("");
    desk.interrupted = "Application.AddWorksheets";
    desk.client = [&] { desk.request.LetOutputRange("Out!N1"); };
    desk.request.Results();
    EXPECT_EQ(desk.reportBeside(), Support::SheetText());
    desk.request.Results();
    EXPECT_EQ(desk.reportBeside(), undisturbedReport());
}

TEST(InterruptedSetting, KeepsTheRangeThatWasSetLastAndItsText) {
    InterruptedDesk desk;
    desk.host->GetRange("Data!C1:C3")->LetValue(ValueGrid{{0.5}, {2.5}, {2.75}});
    desk.interrupted = "Range.GetColumnsCount";
    desk.client = [&] { desk.request.LetXRange("Data!C1:C3"); };
    desk.request.LetXRange("Data!A1:A3");
    // The text that is kept must be that of Data!C1:C3: the same range once more changes nothing, another
    // does.
    desk.request.LetXRange("Data!A1:A3");
    desk.request.Results();
    EXPECT_EQ(desk.report().at(2), "Set 2 Range = Data!$A$1:$A$3");
}

}  // namespace
}  // namespace TBVNonPara
