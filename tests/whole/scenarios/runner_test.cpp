#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

#include "tests/whole/scenarios/cells.hpp"
#include "tests/whole/scenarios/scenario.hpp"
#include "tests/whole/scenarios/scenario_files.hpp"
#include "tests/whole/scenarios/settings.hpp"

namespace TBVNonPara::Scenarios {

namespace {

using testing::ElementsAre;

struct CellCase {
    const char* name;
    const char* written;
    CellValue value;
};

// clang-format off
const CellCase cellCases[] = {
    // name                        written             value
    {"Number",                     "-2.5",             -2.5},
    {"SmallNumber",                "1E-20",            1e-20},
    {"Text",                       "Set 1 Range = x",  "Set 1 Range = x"},
    {"NothingAtAll",               "-",                Empty()},
    {"DashAsText",                 "\"-\"",            "-"},
    {"NumberAsText",               "\"5\"",            "5"},
    {"NoText",                     "\"\"",             ""},
    {"TextWithBlankAtItsEnd",      "\"P = \"",         "P = "},
    {"TextWithTwoBlanks",          "\"after 1.  As\"", "after 1.  As"},
    {"TextWithMarks",              "\"\"\"a\"\" b\"",  "\"a\" b"},
    {"Truth",                      "TRUE",             true},
    {"TruthAsText",                "\"TRUE\"",         "TRUE"},
    {"TruthInSmallLettersIsText",  "True",             "True"},
    {"Error",                      "#N/A",             CellError::NotAvailable},
    {"ErrorAsText",                "\"#N/A\"",         "#N/A"},
};
// clang-format on

class ScenarioCell : public testing::TestWithParam<CellCase> {};

TEST_P(ScenarioCell, IsReadAsItLooks) {
    const auto cells = readCells(std::string("  ") + GetParam().written);
    ASSERT_EQ(cells.size(), 1U);
    EXPECT_EQ(cells[0].value, GetParam().value);
    EXPECT_EQ(cells[0].position, 2U);
}

TEST_P(ScenarioCell, IsWrittenAsItIsRead) {
    EXPECT_EQ(writeCell(GetParam().value), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(Cells, ScenarioCell, testing::ValuesIn(cellCases),
                         [](const auto& cell) { return std::string(cell.param.name); });

TEST(ScenarioCells, AreSeparatedByTabsOrTwoBlanks) {
    EXPECT_EQ(readData({"  a b\tc   d", "  1  -  \"x  y\""}),
              (ValueGrid{{"a b", "c", "d"}, {1.0, Empty(), "x  y"}}));
}

TEST(ScenarioCells, AnOpenQuotationMarkIsAnError) {
    EXPECT_THROW((void)readCells("  \"a"), std::runtime_error);
}

const ValueGrid report = {{"A long title", Empty(), Empty()}, {"U", "DF 1", "-"}, {0.05, Empty(), 3.0}};
const std::vector<std::string> reportLines = {
    "       D       E       F",
    "  9    A long title",
    "  10   U       DF 1    \"-\"",
    "  11   0.05            3",
};

TEST(ScenarioReport, IsWrittenUnderItsColumnLetters) {
    const std::vector<std::string> lines = writeReport(report, 9, 4);
    EXPECT_THAT(lines, ElementsAre("      D       E       F", "  9   A long title",
                                   "  10  U       DF 1    \"-\"", "  11  0.05            3"));
    EXPECT_EQ(readReport(lines), report);
}

TEST(ScenarioReport, EmptyCellsAreFoundByWhereTheOthersStand) {
    EXPECT_EQ(readReport(reportLines), report);
}

TEST(ScenarioReport, ACellBesideItsColumnIsAnError) {
    EXPECT_THROW((void)readReport({"       A       B", "  1    U        P"}), std::runtime_error);
}

TEST(ScenarioSettings, AreSeparatedByCommaAndBlank) {
    EXPECT_THAT(splitList({"  Method Median, YRange A1:A4,C1:C4", "  Headers True"}),
                ElementsAre("Method Median", "YRange A1:A4,C1:C4", "Headers True"));
}

TEST(ScenarioSettings, ASheetNameInQuotesMayHoldCommasAndBlanks) {
    EXPECT_THAT(splitList({"  YRange 'a, b'!A1,'It''s, too'!B1, Headers True"}),
                ElementsAre("YRange 'a, b'!A1,'It''s, too'!B1", "Headers True"));
    EXPECT_THAT(splitList({"  YRange It's!A1, Headers True"}), ElementsAre("YRange It's!A1", "Headers True"));
}

TEST(ScenarioText, MayHaveTheLineEndsOfAnyEditor) {
    const std::string text = "About.\n\nsheet Data\n  1  2\n";
    EXPECT_EQ(writeScenario(readScenario("About.\r\n\r\nsheet Data\r\n  1  2\r\n")), text);
}

TEST(ScenarioFiles, AreTheProjectsUnlessAFolderIsNamed) {
    EXPECT_EQ(scenarioFolder("cases"), "cases");
    EXPECT_EQ(scenarioFolder(""), scenarioFolder(nullptr));
    EXPECT_FALSE(scenariosIn(scenarioFolder(nullptr)).empty());
}

TEST(ScenarioFiles, AreFoundInEveryFolderInOrder) {
    const auto folder = std::filesystem::temp_directory_path() / "tbvnonpara-scenario-files";
    std::filesystem::create_directories(folder / "b");
    for (const char* name : {"b/two.txt", "one.txt", "one.received", "CMakeLists.txt"}) {
        std::ofstream(folder / name) << "About.\n";
    }
    const std::vector<std::string> found = scenariosIn(folder);
    std::filesystem::remove_all(folder);
    EXPECT_THAT(found, ElementsAre("b/two", "one"));
    EXPECT_TRUE(scenariosIn(folder).empty());
}

TEST(ScenarioFiles, NamesThatBecomeAlikeAreNumbered) {
    EXPECT_THAT(testNames({"case 1", "case-1", "case_1"}), ElementsAre("case_1", "case_1_2", "case_1_3"));
}

}  // namespace

}  // namespace TBVNonPara::Scenarios
