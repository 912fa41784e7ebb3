#include <gtest/gtest.h>

#include "tbvnonpara/report/details_sheet.hpp"
#include "tests/whole/faults/analysis.hpp"

namespace TBVNonPara::Faults {

namespace {

/// A page with every kind of cell.
DetailPage everyKind() {
    DetailPage page;
    page.words = {"One sentence.", "Another one."};
    page.tables = {{"Effect", {"Estimate", "Low"}, {{{"r"}, {0.5}, {}}, {{"V"}, {0.25}, {0.125}}}},
                   {"Comparisons",
                    {"Share", "N", "P"},
                    {{{"a - b"},
                      {0.5, DetailForm::Percent},
                      {3.0, DetailForm::Whole},
                      {1e-9, DetailForm::Probability}}}}};
    page.notes = {"A note."};
    return page;
}

/// A document with a finished report, and the call on its host that fails; the calls from then on too, where
/// the host is gone.
struct ReportDesk {
    std::size_t victim = 0;
    bool isGone = false;
    std::vector<std::string> calls;
    Desk desk{[this](const Support::HostCall& call) {
        calls.emplace_back(call.operation);
        if (victim > 0 && (calls.size() == victim || (isGone && calls.size() > victim))) {
            throw Error(1004, "The host has refused call " + std::to_string(victim) + '.', "Host");
        }
    }};
    RangeRef report;

    ReportDesk() {
        clsNonPara request(desk.companions());
        putSettings(request, analyses[tbvNPMannU], false);
        request.Results();
        report = desk.companions().application->GetRange("Report!B2:E10");
        calls.clear();
    }
    ReportDesk(const ReportDesk&) = delete;
    ReportDesk& operator=(const ReportDesk&) = delete;

    [[nodiscard]] Support::Raised write() {
        return Support::raisedBy([this] { (void)writeDetailsSheet(desk.companions(), report, everyKind()); });
    }
    [[nodiscard]] std::string sheetNames() const {
        std::string names;
        for (const auto& sheet : desk.application().activeBook()->sheets()) {
            names += sheet->name() + ' ';
        }
        return names;
    }
};

std::vector<std::string> undisturbedCalls() {
    ReportDesk desk;
    EXPECT_EQ(desk.write().number, 0);
    EXPECT_EQ(desk.sheetNames(), "Data Report Details ");
    return desk.calls;
}

TEST(DetailsFaults, WhereverTheHostRefusesTheReportStaysAndNoSheetIsLeft) {
    const ValueGrid report = freshReport(analyses[tbvNPMannU], false);
    const std::vector<std::string> calls = undisturbedCalls();
    ASSERT_GT(calls.size(), 50U);
    for (std::size_t k = 1; k <= calls.size(); ++k) {
        SCOPED_TRACE("call " + std::to_string(k) + ": " + calls[k - 1]);
        ReportDesk desk;
        desk.victim = k;
        const Support::Raised raised = desk.write();
        EXPECT_EQ(raised.number, 1004);
        EXPECT_EQ(raised.description, "The host has refused call " + std::to_string(k) + '.');
        EXPECT_EQ(desk.sheetNames(), "Data Report ");
        EXPECT_EQ(desk.desk.application().activeSheet()->name(), "Report");
        EXPECT_EQ(desk.desk.cells(outputBlock), report);
        desk.victim = 0;
        EXPECT_EQ(desk.write().number, 0);
        EXPECT_EQ(desk.sheetNames(), "Data Report Details ");
    }
}

TEST(DetailsFaults, AHostThatIsGoneIsToldOfByItsFirstError) {
    const ValueGrid report = freshReport(analyses[tbvNPMannU], false);
    const std::size_t calls = undisturbedCalls().size();
    for (std::size_t k = 1; k <= calls; ++k) {
        ReportDesk desk;
        desk.victim = k;
        desk.isGone = true;
        EXPECT_EQ(desk.write().description, "The host has refused call " + std::to_string(k) + '.');
        EXPECT_EQ(desk.desk.cells(outputBlock), report);
        // The name is given last but one.
        EXPECT_EQ(desk.sheetNames().find("Details") == std::string::npos, k < calls);
    }
}

}  // namespace

}  // namespace TBVNonPara::Faults
