#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <sstream>

#include "tests/support/raised.hpp"
#include "tests/whole/errors/provocations.hpp"

namespace TBVNonPara {
namespace {

/// A procedure, the number of an error that arises in it, and how it comes to that. The source that the
/// client sees is "Line 0 in TBVNonPara." and the procedure, or nothing for a bare number.
struct Procedure {
    std::string name;
    std::int32_t number;
    std::function<void()> provoke;
    bool bare = false;

    friend std::ostream& operator<<(std::ostream& out, const Procedure& procedure) {
        return out << procedure.name;
    }
};

// clang-format off
const Procedure requestProcedures[] = {
    {"clsNonPara.Class_Initialize",       outOfMemory,         failInClassInitialize},
    {"clsNonPara.LetYRange",              tbvNPNoYRange,       setting(&clsNonPara::LetYRange, ""), true},
    {"clsNonPara.LetYRange",              tbvNPBadYRange,      setting(&clsNonPara::LetYRange, "?"), true},
    {"clsNonPara.LetYRange",              tbvNPYRangeColumns,  setting(&clsNonPara::LetYRange, "A1:B2"), true},
    {"clsNonPara.LetXRange",              tbvNPBadXRange,      setting(&clsNonPara::LetXRange, "?"), true},
    {"clsNonPara.LetXRange",              tbvNPXRangeColumns,  setting(&clsNonPara::LetXRange, "A1:B2"), true},
    {"clsNonPara.LetOutputRange",         tbvNPBadOutputRange, setting(&clsNonPara::LetOutputRange, "?"), true},
    {"clsNonPara.Results",                tbvNPNoYRange,       [] { clsNonPara(refusing("")).Results(); }},
    {"clsNonPara.GetResults",             refusedByTheHost,    failInGetResults},
    {"clsNonPara.FormatMannUResults",     refusedByTheHost,    report(tbvNPMannU)},
    {"clsNonPara.FormatWilcoxonResults",  refusedByTheHost,    report(tbvNPWilcoxon)},
    {"clsNonPara.FormatSpearmanResults",  refusedByTheHost,    report(tbvNPSpearman)},
    {"clsNonPara.FormatSignResults",      refusedByTheHost,    report(tbvNPSign)},
    {"clsNonPara.FormatMedainResults",    refusedByTheHost,    report(tbvNPMedian)},
    {"clsNonPara.FormatKWallisResults",   refusedByTheHost,    report(tbvNPFriedman)},
    {"clsNonPara.FormatKWallisResults",   refusedByTheHost,    report(tbvNPKWallis)},
    {"clsNonPara.FormatWWRunsResults",    refusedByTheHost,    report(tbvNPWWRuns)},
};
// clang-format on

const CellValue blank = Empty();

// clang-format off
const Procedure engineProcedures[] = {
    {"clsNonParaBO.Initialise",         refusedByTheHost, failInEngineInitialise},
    {"clsNonParaBO.LetYs",              refusedByTheHost, [] { helplessEngine().LetYs(CellValue(1.0)); }},
    {"clsNonParaBO.Letxs",              refusedByTheHost, [] { helplessEngine().Letxs(CellValue(1.0)); }},
    {"clsNonParaBO.AnalyseMannWhitney", 13, analysing(tbvNPMannU, {{"x"}}, {{1.0}})},
    {"clsNonParaBO.AnalyseWilcoxon",     9, analysing(tbvNPWilcoxon, {{1.0}, {2.0}}, {{3.0}, {blank}})},
    {"clsNonParaBO.AnalyseSpearman",     5, analysing(tbvNPSpearman, {{1.0}, {1.0}}, {{3.0}, {4.0}})},
    {"clsNonParaBO.AnalyseSign",         9, analysing(tbvNPSign, {{1.0}})},
    {"clsNonParaBO.AnalyseMedian",      13, analysing(tbvNPMedian, {{"x", 1.0}})},
    {"clsNonParaBO.AnalyseFriedman",    13, analysing(tbvNPFriedman, {{"x", 1.0}})},
    {"clsNonParaBO.AnalyseKWallis",     13, analysing(tbvNPKWallis, {{"x", 1.0}})},
    {"clsNonParaBO.AnalyseWWRuns",      11, analysing(tbvNPWWRuns, {{"x"}, {"x"}, {"x"}})},
    {"clsNonParaBO.GetRanks",           outOfMemory, reading(&clsNonParaBO::GetRanks)},
    {"clsNonParaBO.GetData",            outOfMemory, reading(&clsNonParaBO::GetData)},
    {"clsNonParaBO.GetMediansRaw",      outOfMemory, reading(&clsNonParaBO::GetMediansRaw)},
    {"clsNonParaBO.GetMediansRank",     outOfMemory, reading(&clsNonParaBO::GetMediansRank)},
    {"clsNonParaBO.GetNsRaw",           outOfMemory, reading(&clsNonParaBO::GetNsRaw)},
    {"clsNonParaBO.GetNsRank",          outOfMemory, reading(&clsNonParaBO::GetNsRank)},
    {"clsNonParaBO.GetSumsRaw",         outOfMemory, reading(&clsNonParaBO::GetSumsRaw)},
    {"clsNonParaBO.GetSumsRank",        outOfMemory, reading(&clsNonParaBO::GetSumsRank)},
    {"clsNonParaBO.GetDF",              outOfMemory, reading(&clsNonParaBO::GetDF)},
    {"clsNonParaBO.GetAlternateDF",     outOfMemory, reading(&clsNonParaBO::GetAlternateDF)},
    {"clsNonParaBO.GetOther",           outOfMemory, reading(&clsNonParaBO::GetOther)},
};
// clang-format on

using Writer = clsNonParaOutput;
Labels none = {"", ""};

// clang-format off
const Procedure outputProcedures[] = {
    {"clsNonParaOutput.Initialise", 91, [] { const Writer writer(refusing("Application.GetWorkbooks")); }},
    {"clsNonParaOutput.Initialise", refusedByTheHost, [] { const Writer writer(refusing("Range.Clear")); }},
    {"clsNonParaOutput.GetResults", refusedByTheHost, failInGetReportRange},
    {"clsNonParaOutput.OutputHeader", refusedByTheHost, section([](Writer& w) { w.OutputHeader("", "", tbvNPMannU); })},
    {"clsNonParaOutput.OutputComment", refusedByTheHost, section([](Writer& w) { w.OutputComment("", 0, false); })},
    {"clsNonParaOutput.InsertBlankLines", 6, section(goBelowTheLastRow)},
    {"clsNonParaOutput.OutputMWDescriptives", refusedByTheHost,
     section([](Writer& w) { w.OutputMWDescriptives(none, Grid<double>(1, 2), {}, {}, {}, {}, {}, {}, {}, tbvNPMannU); })},
    {"clsNonParaOutput.OutputMWTest", refusedByTheHost,
     section([](Writer& w) { w.OutputMWTest(none, 1, {}, 1, tbvNPTwoTailed); })},
    // The runs section goes by the name of the two-sample section.
    {"clsNonParaOutput.OutputMWTest", refusedByTheHost,
     section([](Writer& w) { w.OutputWWRuns(none, {1.0}, {1}, 1, 1, 1, 1, tbvNPTwoTailed); })},
    {"clsNonParaOutput.OutputMedianCounts", refusedByTheHost,
     section([](Writer& w) { w.OutputMedianCounts(none, {}); })},
    {"clsNonParaOutput.OutputContingency", refusedByTheHost,
     section([](Writer& w) { w.OutputContingency(1, 1, 1, 1, 1, 1, {}, 1, {}, 1, {}); })},
    {"clsNonParaOutput.OutputKWallis", refusedByTheHost,
     section([](Writer& w) { w.OutputKWallis(1, {}, 1, 1, {}, 1); })},
    {"clsNonParaOutput.OutputSignTest", refusedByTheHost,
     section([](Writer& w) { w.OutputSignTest(none, {}, 1, tbvNPTwoTailed); })},
    {"clsNonParaOutput.OutputWilcoxonDescriptives", refusedByTheHost,
     section([](Writer& w) { w.OutputWilcoxonDescriptives(none, Grid<double>(1, 2), {}, {}, {}, {}); })},
    {"clsNonParaOutput.OutputWilcoxonRanks", refusedByTheHost,
     section([](Writer& w) { w.OutputWilcoxonRanks({}, {}, {}, none); })},
    {"clsNonParaOutput.OutputWilcoxonTest", refusedByTheHost,
     section([](Writer& w) { w.OutputWilcoxonTest(none, 1, {}, 1, tbvNPTwoTailed, true); })},
    {"clsNonParaOutput.OutputTest", refusedByTheHost,
     section([](Writer& w) { w.OutputTest(none, 1, {}, 1, tbvNPTwoTailed, tbvNPSpearman, ""); })},
};
// clang-format on

/// Procedures with a handler in which nothing can go wrong: they store or copy a plain value, or compute
/// without a step that raises. No client can see these names.
const std::set<std::string> neverSeen = {
    "clsNonPara.LetMethod",
    "clsNonPara.LetHeaders",
    "clsNonPara.LetOutputDescriptives",
    "clsNonPara.LetIgnoreTies",
    "clsNonPara.LetTails",
    "clsNonParaBO.LetDescriptives",
    "clsNonParaBO.LetIgnoreTies",
    "clsNonParaBO.LetTails",
    "clsNonParaBO.LetMethod",
    "clsNonParaBO.GetNumRuns",
    "clsNonParaBO.ExpectedRuns",
    "clsNonParaBO.GetU",
    "clsNonParaBO.GetWilcoxonT",
    "clsNonParaBO.GetZ",
    "clsNonParaBO.GetChiSq",
    "clsNonParaBO.GetAlternateStat",
    "clsNonParaBO.GetP",
    "clsNonParaBO.GetAlternateP",
    "clsNonParaBO.GetGrandMedian",
    "clsNonParaBO.GetContingencyResults",
    "clsNonParaBO.GetUseApprox",
    "clsNonParaBO.FactorialLog",
};

class ProcedureName : public ::testing::TestWithParam<Procedure> {};

TEST_P(ProcedureName, IsWhatTheClientSees) {
    const Support::Raised raised = Support::raisedBy(GetParam().provoke);
    EXPECT_EQ(raised.number, GetParam().number) << raised;
    EXPECT_EQ(raised.source, GetParam().bare ? "" : "Line 0 in TBVNonPara." + GetParam().name);
}

std::string caseName(const ::testing::TestParamInfo<Procedure>& test) {
    std::string name = test.param.name + '_' + std::to_string(test.index);
    std::ranges::replace(name, '.', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Request, ProcedureName, ::testing::ValuesIn(requestProcedures), caseName);
INSTANTIATE_TEST_SUITE_P(Engine, ProcedureName, ::testing::ValuesIn(engineProcedures), caseName);
INSTANTIATE_TEST_SUITE_P(Report, ProcedureName, ::testing::ValuesIn(outputProcedures), caseName);

/// The names that the sources of a folder report errors under.
void addNames(const std::filesystem::path& folder, std::set<std::string>& names) {
    const std::regex name("\"(clsNonPara[A-Za-z]*\\.[A-Za-z_]+)\"");
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        std::ifstream stream(file.path());
        std::stringstream text;
        text << stream.rdbuf();
        const std::string source = text.str();
        for (std::sregex_iterator match(source.begin(), source.end(), name), end; match != end; ++match) {
            names.insert((*match)[1]);
        }
    }
}

TEST(ProcedureNames, AreAllInTheTable) {
    const std::filesystem::path sources =
        std::filesystem::path(TBVNONPARA_TESTS).parent_path() / "tbvnonpara";
    std::set<std::string> inSources;
    for (const char* folder : {"distributions", "engine", "report", "request"}) {
        addNames(sources / folder, inSources);
    }
    std::set<std::string> inTable = neverSeen;
    const auto add = [&](const auto& procedures) {
        for (const Procedure& procedure : procedures) {
            if (!procedure.bare) {
                EXPECT_FALSE(neverSeen.contains(procedure.name)) << procedure.name;
                inTable.insert(procedure.name);
            }
        }
    };
    add(requestProcedures);
    add(engineProcedures);
    add(outputProcedures);
    EXPECT_EQ(inSources, inTable);
}

TEST(ErrorDescriptions, OfTheDataChecksReachTheClient) {
    clsNonPara request(refusing(""));
    request.LetYRange("Data!A1:A5");
    const Support::Raised raised = Support::raisedBy([&] { request.Results(); });
    EXPECT_EQ(raised, Support::in("clsNonPara.Results", tbvNPBlankInData));
    EXPECT_EQ(raised.description, "Data!A5 is blank; every cell of the range must be a number.");
}

}  // namespace
}  // namespace TBVNonPara
