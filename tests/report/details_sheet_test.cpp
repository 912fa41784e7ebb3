#include "tbvnonpara/report/details_sheet.hpp"

#include <gtest/gtest.h>

#include "tbvnonpara/core/enumerations.hpp"
#include "tests/support/raised.hpp"
#include "tests/support/recording_formatter.hpp"
#include "tests/support/sheet_text.hpp"
#include "tests/support/test_host.hpp"

namespace TBVNonPara {
namespace {

DetailPage comparedGroups(std::size_t comparisons = 2) {
    DetailPage page;
    page.words = {"The first sentence.", "=1+2 is no formula."};
    DetailTable effect{"Effect", {"Estimate", "Low", "High"}, {}};
    effect.rows = {{{"Epsilon squared"}, {0.25}, {0.125}, {}}};
    DetailTable pairs{"Comparisons", {"First larger", "Larger in", "P"}, {}};
    for (std::size_t i = 0; i < comparisons; ++i) {
        pairs.rows.push_back({{"a - b"},
                              {0.68, DetailForm::Percent},
                              {12.0, DetailForm::Share, 0, 22},
                              {5e-7, DetailForm::Probability, -6.3}});
    }
    page.tables = {effect, {"Nothing", {"P"}, {}}, pairs};
    page.notes = {"A note."};
    return page;
}

/// A placed report, and what is called and formatted on record.
struct PlacedReport {
    PlacedReport() { (void)report->GetCells(1, 1)->LetValue(CellValue(Text("The report"))); }

    ObjectRef<workbook::EmbeddedApplication> host = workbook::makeApplication();
    std::shared_ptr<workbook::Sheet> sheet = host->addSheet("Out");
    std::shared_ptr<workbook::Sheet> last = host->addSheet("Last");
    std::shared_ptr<Support::FormattingRecord> record = std::make_shared<Support::FormattingRecord>();
    CompanionLibrary companions = Support::recordFormatting(ownCompanions(host), record);
    RangeRef report = companions.application->GetRange("Out!B2:E9");

    [[nodiscard]] std::string sheetNames() const {
        std::string names;
        for (const auto& each : host->activeBook()->sheets()) {
            names += each->name() + ' ';
        }
        return names;
    }
};

TEST(DetailsSheet, HasTheSentencesFromA3AndTheTablesFromRow8) {
    const PlacedReport placed;
    const RangeRef details = writeDetailsSheet(placed.companions, placed.report, comparedGroups());
    EXPECT_EQ(Support::plainAddress(details), "A1:D17");
    EXPECT_EQ(Support::sheetText(details), Support::SheetText({
                                               "Details",
                                               "Report = 'Out'!$B$2:$E$9",
                                               "The first sentence.",
                                               "=1+2 is no formula.",
                                               "",
                                               "",
                                               "",
                                               "Effect",
                                               "|Estimate|Low|High",
                                               "Epsilon squared|0.25|0.125",
                                               "",
                                               "Comparisons",
                                               "|First larger|Larger in|P",
                                               "a - b|0.68|12|5e-07",
                                               "a - b|0.68|12|5e-07",
                                               "",
                                               "A note.",
                                           }));
}

TEST(DetailsSheet, StandsBehindTheReportWhichStaysInFront) {
    const PlacedReport placed;
    (void)writeDetailsSheet(placed.companions, placed.report, comparedGroups());
    EXPECT_EQ(placed.sheetNames(), "Out Details Last ");
    EXPECT_EQ(placed.host->activeSheet()->name(), "Out");
}

TEST(DetailsSheet, TakesTheNextFreeName) {
    const PlacedReport placed;
    placed.host->addSheet("DETAILS");
    (void)writeDetailsSheet(placed.companions, placed.report, comparedGroups());
    (void)writeDetailsSheet(placed.companions, placed.report, comparedGroups());
    EXPECT_EQ(placed.sheetNames(), "Out Details (3) Details (2) Last DETAILS ");
}

TEST(DetailsSheet, LooksAsReportsDo) {
    const PlacedReport placed;
    (void)writeDetailsSheet(placed.companions, placed.report, comparedGroups());
    const std::string right = std::to_string(AlignRight);
    EXPECT_EQ(placed.record->calls, std::vector<std::string>({
                                        "FormatTitle A1:A2 True",
                                        "FormatTitle A8 False",
                                        "FormatTable A9:D9 False",
                                        "FormatTable A9:D10 True",
                                        "FormatBody B10:D10 False",
                                        "HorizontalAlignment B9:D10 " + right,
                                        "FormatTitle A12 False",
                                        "FormatTable A13:D13 False",
                                        "FormatTable A13:D15 True",
                                        "FormatBody B14:D15 False",
                                        "HorizontalAlignment B13:D15 " + right,
                                        "NumberFormat B14:B15 \"0%\"",
                                        "NumberFormat C14:C15 \"0\" of 22\"\"",
                                        "NumberFormat D14:D15 \"[<0.0001]0.00E+00;0.0000\"",
                                    }));
}

TEST(DetailsSheet, APThatNoNumberHoldsIsItsText) {
    const DetailCell held{3e-300, DetailForm::Probability, -299.5};
    const DetailCell lost{0.0, DetailForm::Probability, -967.466};
    EXPECT_EQ(sheetValue(held), CellValue(3e-300));
    EXPECT_EQ(sheetValue(lost), CellValue(Text("3.42e-968")));
}

TEST(DetailsSheet, MoreSentencesMoveTheTablesDown) {
    const PlacedReport placed;
    DetailPage page = comparedGroups();
    page.words.assign(6, "A sentence.");
    const RangeRef details = writeDetailsSheet(placed.companions, placed.report, page);
    EXPECT_EQ(Support::sheetText(details)[9], "Effect");
}

std::size_t hostCallsFor(std::size_t comparisons) {
    const auto host = workbook::makeApplication();
    host->addSheet("Out");
    std::size_t calls = 0;
    CompanionLibrary companions = ownCompanions(host);
    companions.application = Support::watchHost(host, [&](const Support::HostCall&) { calls += 1; });
    (void)writeDetailsSheet(companions, companions.application->GetRange("Out!A1:B2"),
                            comparedGroups(comparisons));
    return calls;
}

TEST(DetailsSheet, OfManyRowsTakesNoMoreCallsThanOfFew) {
    EXPECT_EQ(hostCallsFor(50'000), hostCallsFor(1));
}

TEST(DetailsSheet, ThatDoesNotFitIsRefusedBeforeAnythingHappens) {
    const PlacedReport placed;
    DetailPage page;
    page.notes.assign(1'048'576, "");
    const auto raised =
        Support::raisedBy([&] { (void)writeDetailsSheet(placed.companions, placed.report, page); });
    EXPECT_EQ(raised.number, tbvNPOutputOffSheet);
    EXPECT_EQ(
        raised.description,
        "The details need 1048583 rows, and a sheet has 1048576; compare with one control group alone.");
    EXPECT_EQ(placed.sheetNames(), "Out Last ");
}

}  // namespace
}  // namespace TBVNonPara
