#include <gtest/gtest.h>
#include <optional>

#include "tests/whole/faults/analysis.hpp"

namespace TBVNonPara::Faults {

namespace {

using Support::HostCall;
using Support::Raised;

/// Counts the calls on a host and fails one of them.
struct Saboteur {
    std::size_t victim = 0;  ///< the call that fails, counted from 1; none when 0
    std::vector<std::string> calls;
    std::size_t lastMeasured = 0;  ///< the last time that a range of the scratch sheet was measured
    std::size_t paste = 0;

    void operator()(const HostCall& call) {
        calls.emplace_back(call.operation);
        if (call.operation == "Range.GetColumnsCount" && call.range->GetWorksheet()->GetName() == "Results") {
            lastMeasured = calls.size();
        } else if (call.operation == "Range.PasteSpecial") {
            paste = calls.size();
        }
        if (calls.size() == victim) {
            throw Error(1004, "The host has refused this call.", "Host");
        }
    }
};

struct FaultCase {
    Analysis analysis;
    bool descriptives;
    /// The procedures that clients see, in the order in which the calls of the run lie in them.
    std::vector<std::string> procedures;

    friend std::ostream& operator<<(std::ostream& out, const FaultCase& faultCase) {
        return out << faultCase.analysis.name;
    }
};

std::vector<std::string> assembly(const std::string& analyse, const std::string& format,
                                  const std::vector<std::string>& sections, bool namesFirst) {
    std::vector<std::string> procedures = {"clsNonPara.Results", "clsNonPara.GetResults"};
    if (!analyse.empty()) {
        procedures.push_back("clsNonParaBO." + analyse);
    }
    const std::string own = "clsNonPara." + format;
    const std::string creation = "clsNonParaOutput.Initialise";
    for (const std::string& step : namesFirst ? std::vector{own, creation} : std::vector{creation, own}) {
        procedures.push_back(step);
    }
    procedures.emplace_back("clsNonParaOutput.OutputHeader");
    for (const std::string& section : sections) {
        procedures.push_back("clsNonParaOutput." + section);
    }
    procedures.emplace_back("clsNonParaOutput.GetResults");
    procedures.emplace_back("clsNonPara.Results");
    return procedures;
}

std::vector<std::string> withDescriptives(const std::string& table, std::vector<std::string> sections) {
    sections.insert(sections.begin(), table);
    return sections;
}

std::vector<FaultCase> faultCases() {
    struct Test {
        const char* analyse;  // only where the engine asks the host for a function
        const char* format;
        const char* descriptives;
        std::vector<std::string> sections;
        bool namesFirst;
    };
    // clang-format off
    const Test tests[] = {
        {"",                "FormatMannUResults",    "OutputMWDescriptives",       {"OutputMWTest"}, false},
        {"",                "FormatWilcoxonResults", "OutputWilcoxonDescriptives", {"OutputWilcoxonRanks", "OutputWilcoxonTest"}, false},
        {"AnalyseSpearman", "FormatSpearmanResults", "OutputMWDescriptives",       {"OutputTest"}, false},
        {"",                "FormatSignResults",     "",                           {"OutputSignTest"}, false},
        {"AnalyseMedian",   "FormatMedainResults",   "OutputMWDescriptives",       {"OutputComment", "OutputMedianCounts", "OutputComment", "OutputContingency"}, true},
        {"AnalyseFriedman", "FormatKWallisResults",  "OutputMWDescriptives",       {"OutputKWallis"}, true},
        {"AnalyseKWallis",  "FormatKWallisResults",  "OutputMWDescriptives",       {"OutputKWallis"}, true},
        {"AnalyseWWRuns",   "FormatWWRunsResults",   "",                           {"OutputMWTest"}, false},
    };
    // clang-format on
    std::vector<FaultCase> cases;
    for (const Analysis& analysis : analyses) {
        const Test& test = tests[analysis.method];
        for (const bool descriptives : {false, true}) {
            const bool table = descriptives && *test.descriptives != '\0';
            cases.push_back(
                {analysis, descriptives,
                 assembly(test.analyse, test.format,
                          table ? withDescriptives(test.descriptives, test.sections) : test.sections,
                          test.namesFirst)});
        }
    }
    return cases;
}

class FaultInjection : public testing::TestWithParam<FaultCase> {
 protected:
    /// A client's whole run with its k-th call on the host failing, and the same object used again.
    struct Run {
        std::shared_ptr<Saboteur> saboteur = std::make_shared<Saboteur>();
        Desk desk{[saboteur = saboteur](const HostCall& call) { (*saboteur)(call); }};
        clsNonPara request{desk.companions()};
    };

    static Raised settingsOf(Run& run) {
        return Support::raisedBy(
            [&] { putSettings(run.request, GetParam().analysis, GetParam().descriptives); });
    }

    static Raised resultsOf(Run& run, bool overWrite = false) {
        return Support::raisedBy([&] { run.request.Results(overWrite); });
    }

    const ValueGrid report = freshReport(GetParam().analysis, GetParam().descriptives);
};

/// The undisturbed run, to know its calls by.
struct Course {
    std::size_t settings = 0;
    std::size_t reportBuilt = 0;
    std::size_t paste = 0;
    std::vector<std::string> calls;
};

Course courseOf(const FaultCase& faultCase) {
    const auto saboteur = std::make_shared<Saboteur>();
    const Desk desk([saboteur](const HostCall& call) { (*saboteur)(call); });
    clsNonPara request(desk.companions());
    putSettings(request, faultCase.analysis, faultCase.descriptives);
    const std::size_t settings = saboteur->calls.size();
    request.Results();
    return {settings, saboteur->lastMeasured, saboteur->paste, saboteur->calls};
}

/// What a setter makes of a refused call, by the order in which the ranges are set.
bool isBadRange(const Raised& raised) {
    return raised.source.empty() && (raised.number == tbvNPBadYRange || raised.number == tbvNPBadXRange ||
                                     raised.number == tbvNPBadOutputRange);
}

TEST_P(FaultInjection, EveryCallLeavesTheRightErrorAndAnUntouchedSheet) {
    const Course course = courseOf(GetParam());
    std::vector<std::string> procedures;
    for (std::size_t k = 1; k <= course.calls.size(); ++k) {
        SCOPED_TRACE("call " + std::to_string(k) + ": " + course.calls[k - 1]);
        Run run;
        const ValueGrid data = run.desk.cells("Data!A1:D8");
        run.saboteur->victim = k;
        if (k <= course.settings) {
            EXPECT_TRUE(isBadRange(settingsOf(run)));
            continue;
        }
        ASSERT_EQ(settingsOf(run).number, 0);
        const Raised raised = resultsOf(run);
        // Looking for the scratch sheet is tried without an error; using what was not found is one.
        const bool lookup = course.calls[k - 1] == "Application.GetWorkbooks" ||
                            (course.calls[k - 2] == "Application.GetWorkbooks");
        EXPECT_EQ(raised.number, lookup ? 91 : 1004);
        const std::string prefix = "Line 0 in TBVNonPara.";
        ASSERT_TRUE(raised.source.starts_with(prefix)) << raised;
        const std::string procedure = raised.source.substr(prefix.size());
        if (procedures.empty() || procedures.back() != procedure) {
            procedures.push_back(procedure);
        }
        EXPECT_EQ(run.desk.cells("Data!A1:D8"), data);
        EXPECT_EQ(run.desk.cells(outputBlock) == report, k > course.paste);
        if (k <= course.paste) {
            EXPECT_EQ(run.desk.cells(outputBlock), ValueGrid(60, 26));
        }
    }
    EXPECT_EQ(procedures, GetParam().procedures);
}

TEST_P(FaultInjection, TheSameObjectGivesTheReportTheNextTime) {
    const Course course = courseOf(GetParam());
    for (std::size_t k = course.settings + 1; k <= course.calls.size(); ++k) {
        SCOPED_TRACE("call " + std::to_string(k) + ": " + course.calls[k - 1]);
        Run run;
        run.saboteur->victim = k;
        ASSERT_EQ(settingsOf(run).number, 0);
        ASSERT_NE(resultsOf(run).number, 0);
        *run.saboteur = {};
        EXPECT_EQ(resultsOf(run, true).number, 0);
        EXPECT_EQ(run.desk.cells(outputBlock), report);
        // A report that was finished is kept and copied again; otherwise it is computed anew.
        const bool computed =
            std::ranges::find(run.saboteur->calls, "Application.GetWorkbooks") != run.saboteur->calls.end();
        EXPECT_EQ(computed, k < course.reportBuilt);
    }
}

TEST_P(FaultInjection, ASettingThatChangesDropsTheFinishedReport) {
    const Course course = courseOf(GetParam());
    Run run;
    run.saboteur->victim = course.paste;
    ASSERT_EQ(settingsOf(run).number, 0);
    ASSERT_EQ(resultsOf(run).number, 1004);
    *run.saboteur = {};
    run.request.LetIgnoreTies(true);
    EXPECT_EQ(resultsOf(run).number, 0);
    EXPECT_NE(std::ranges::find(run.saboteur->calls, "Application.GetWorkbooks"), run.saboteur->calls.end());
}

TEST_P(FaultInjection, AddingTheSheetForTheReportMayFailToo) {
    Run counted;
    putSettings(counted.request, GetParam().analysis, GetParam().descriptives);
    counted.request.LetOutputRange("");
    counted.request.Results();
    const std::vector<std::string> calls = counted.saboteur->calls;
    const auto added = std::ranges::find(calls, "Application.AddWorksheets");
    ASSERT_NE(added, calls.end());
    const auto first = static_cast<std::size_t>(added - calls.begin()) + 1;
    for (std::size_t k = first; k <= calls.size(); ++k) {
        SCOPED_TRACE("call " + std::to_string(k) + ": " + calls[k - 1]);
        Run run;
        run.saboteur->victim = k;
        putSettings(run.request, GetParam().analysis, GetParam().descriptives);
        run.request.LetOutputRange("");
        EXPECT_EQ(resultsOf(run), (Raised{1004, "Line 0 in TBVNonPara.clsNonPara.Results", {}}));
        EXPECT_EQ(run.desk.cells(outputBlock), ValueGrid(60, 26));
        // Nothing is undone: a sheet that was added stays.
        EXPECT_EQ(run.desk.application().activeBook()->GetWorksheetsCount(), k == first ? 2 : 3);
    }
}

INSTANTIATE_TEST_SUITE_P(Hosts, FaultInjection, testing::ValuesIn(faultCases()), [](const auto& test) {
    return test.param.analysis.name + (test.param.descriptives ? "_WithDescriptives" : "");
});

}  // namespace

}  // namespace TBVNonPara::Faults
