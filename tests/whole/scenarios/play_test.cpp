#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

#include "tests/whole/scenarios/comparison.hpp"
#include "tests/whole/scenarios/scenario.hpp"
#include "tests/whole/scenarios/settings.hpp"
#include "tests/whole/scenarios/watched_sheets.hpp"

namespace TBVNonPara::Scenarios {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A host whose every request raises what it is told, or is content.
class StubHost : public ScenarioHost {
 public:
    void addSheet(std::string_view, const ValueGrid&) override {}
    std::unique_ptr<Request> createRequest() override { return std::make_unique<StubRequest>(); }
    [[nodiscard]] const Application& application() const override {
        throw std::logic_error("no sheets here");
    }
    [[nodiscard]] std::string reportAddress() const override { return {}; }
    [[nodiscard]] std::vector<std::string> formatting() const override {
        return {"FormatTitle A1 True", "FormatBody B2 False"};
    }

 private:
    class StubRequest : public Request {
        void LetMethod(TBVNPMethod) override {}
        void LetHeaders(bool) override {}
        void LetOutputDescriptives(bool) override {}
        void LetIgnoreTies(bool) override {}
        void LetTails(TBVNPTails) override {}
        void LetYRange(std::string_view) override {}
        void LetXRange(std::string_view) override {}
        void LetOutputRange(std::string_view) override {}
        void Results(bool) override {}
    };
};

TEST(ScenarioPlay, FormattingThatDiffersIsWrittenAsReceived) {
    StubHost host;
    const Scenario scenario = readScenario("About.\n\nformatting\n  FormatTitle A1 True\n");
    EXPECT_EQ(writeScenario(play(scenario, host).received),
              "About.\n\nformatting\n  FormatTitle A1 True, FormatBody B2 False\n");
}

TEST(ScenarioPlay, FormattingThatAgreesStaysAsItIsWritten) {
    StubHost host;
    const std::string text = "About.\n\nformatting\n  FormatTitle A1 True\n  FormatBody B2 False\n";
    EXPECT_EQ(writeScenario(play(readScenario(text), host).received), text);
}

TEST(ScenarioPlay, AnUnknownBlockOrSettingIsAnError) {
    StubHost host;
    EXPECT_THROW((void)play(readScenario("About.\n\nrepport A1:B2\n"), host), std::runtime_error);
    const std::unique_ptr<Request> request = host.createRequest();
    EXPECT_THROW(carryOut(*request, {"  Tales TwoTailed"}), std::runtime_error);
    EXPECT_THROW(carryOut(*request, {"  Headers Yes"}), std::runtime_error);
}

TEST(ScenarioCompared, NumbersAgreeToTwelveDigits) {
    EXPECT_TRUE(agree(0.05, 0.05 * (1 + 9e-13)));
    EXPECT_FALSE(agree(0.05, 0.05 * (1 + 2e-12)));
    EXPECT_FALSE(agree(0.0, 1e-300));
    EXPECT_FALSE(agree(5.0, "5"));
    EXPECT_FALSE(agree(Empty(), ""));
    EXPECT_FALSE(agree("", Empty()));
}

constexpr Rectangle fromC7{7, 3, 8, 4};

TEST(ScenarioCompared, CellsThatDifferAreNamedAndOthersStayAsTheyAreWritten) {
    const ComparedReport compared = compareReports(
        {{"P", 0.05}, {1.0, Empty()}}, {{"P", 0.05 * (1 + 9e-13)}, {2.0, "x"}}, fromC7, EmptyTexts::Kept);
    EXPECT_THAT(compared.differences, ElementsAre("  C8 holds 2; expected 1", "  D8 holds x; expected -"));
    EXPECT_EQ(compared.asWritten, (ValueGrid{{"P", 0.05}, {2.0, "x"}}));
}

TEST(ScenarioCompared, AReportOfAnotherSizeDiffers) {
    const ComparedReport compared =
        compareReports({{1.0}}, {{1.0, 3.0}, {Empty(), Empty()}}, fromC7, EmptyTexts::Kept);
    EXPECT_THAT(compared.differences, ElementsAre("  2 rows and 2 columns; expected 1 rows and 1 columns",
                                                  "  D7 holds 3; expected -"));
}

TEST(ScenarioCompared, AnEmptyTextMayBeBlankAndNumbersStillAgreeToTwelveDigits) {
    const ValueGrid expected{{"", 0.05}};
    const ComparedReport compared =
        compareReports(expected, {{Empty(), 0.05 * (1 + 9e-13)}}, fromC7, EmptyTexts::Blank);
    EXPECT_THAT(compared.differences, IsEmpty());
    EXPECT_EQ(compared.asWritten, expected);
    EXPECT_FALSE(agree("", Empty(), EmptyTexts::Kept));
    EXPECT_FALSE(agree("x", Empty(), EmptyTexts::Blank));
}

TEST(ScenarioCompared, ManyDifferencesAreToldInAFewLines) {
    const ValueGrid expected(Long(20'000), Long(4), 1.0);
    const ValueGrid received(Long(20'000), Long(4), 2.0);
    const ComparedReport compared = compareReports(expected, received, fromC7, EmptyTexts::Kept);
    EXPECT_EQ(compared.differences.size(), 21U);
    EXPECT_EQ(compared.differences.back(), "  and 79980 more");
}

TEST(ScenarioCompared, BlocksAreShownFromWhereTheyDiffer) {
    EXPECT_THAT(blockDifferences({"error", "5 \"a\"", {"  same", "  one"}}, {"changed", "", {"  same"}}),
                ElementsAre("expected: error 5 \"a\"", "    one", "received: changed "));
}

const std::string oneTest = R"(The second of two samples in a sheet whose name needs quotes.

sheet It's (2)
  Before  After
  1       4
  2       5
  3       6
request
  Method MannWhitney, Tails Var1LTVar2, Headers True
  YRange 'It''s (2)'!A1:A4, XRange 'It''s (2)'!B1:B4, OutputRange 'It''s (2)'!D1
report 'It''s (2)'!D1:G9
      D       E       F       G
  1   Mann-Whitney Test Results for:
  2   Set 1 Range = It's (2)!$A$1:$A$4
  3   Set 2 Range = It's (2)!$B$1:$B$4
  4
  5   1-tailed Test (Before < After)
  6   U       DF 1    DF 2    P
  7   9       3       3       0.06
  8
  9
)";

TEST(ScenarioPlayed, ACellThatDiffersIsNamed) {
    const std::unique_ptr<ScenarioHost> host = createScenarioHost();
    EXPECT_THAT(play(readScenario(oneTest), *host).differences,
                ElementsAre("report 'It''s (2)'!D1:G9", "  G7 holds 0.05; expected 0.06"));
}

TEST(ScenarioPlayed, AnErrorInsteadOfAReportIsShown) {
    const std::unique_ptr<ScenarioHost> host = createScenarioHost();
    std::string text = oneTest;
    text.replace(text.find("MannWhitney,"), 12, "9,");
    EXPECT_THAT(play(readScenario(text), *host).differences,
                testing::Contains(testing::StartsWith("received: error ")));
}

TEST(ScenarioPlayed, ALargeSheetIsWatchedToItsLastRow) {
    const std::unique_ptr<ScenarioHost> host = createScenarioHost();
    const Scenario scenario{{}, {{"sheet", "Data", std::vector<std::string>(5000, "  1  2")}}};
    (void)play(scenario, *host);
    WatchedSheets sheets(*host, scenario);
    sheets.remember();
    host->application().GetRange("Data!B5000")->LetValue(CellValue(7.0));
    EXPECT_THAT(sheets.changes(std::nullopt), ElementsAre("  changed Data row 5000 column 2 to 7"));
    EXPECT_THAT(sheets.changes(areaOf("Data!A4990:B5000")), IsEmpty());
}

}  // namespace

}  // namespace TBVNonPara::Scenarios
