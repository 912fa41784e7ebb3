#include "tbvnonpara/analysis/cut_sequence.hpp"

#include <gtest/gtest.h>

#include "tbvnonpara/core/enumerations.hpp"
#include "tests/analysis/data_sheet.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara::analysis {

namespace {

using Support::raisedBy;

std::string sidesOf(const CutNumbers& cut) {
    std::string sides;
    for (const CellValue& side : cut.sides) {
        sides += toText(side) + ' ';
    }
    return sides;
}

TEST(CutNumbers, AreAboveOrBelowTheMedianAndEqualOnesAreLeftOut) {
    const CutNumbers cut = cutNumbers({3, 1, 2, 9, 2}, {CutAt::Median});
    EXPECT_EQ(cut.at, 2);
    EXPECT_EQ(sidesOf(cut), "above 2 below 2 above 2 ");
    EXPECT_EQ(cut.above, 2U);
    EXPECT_EQ(cut.below, 1U);
    EXPECT_EQ(cut.equal, 2U);
}

TEST(CutNumbers, EqualOnesGoToTheSideThatIsAskedFor) {
    EXPECT_EQ(sidesOf(cutNumbers({1, 2, 3}, {CutAt::Number, 2, CutEqual::Above})),
              "below 2 from 2 on from 2 on ");
    EXPECT_EQ(sidesOf(cutNumbers({1, 2, 3}, {CutAt::Number, 2, CutEqual::Below})),
              "up to 2 up to 2 above 2 ");
}

TEST(CutNumbers, TheMedianOfHugeNumbersIsOne) {
    EXPECT_EQ(cutNumbers({1e308, 1.5e308}, {CutAt::Median}).at, 1.25e308);
    EXPECT_EQ(cutNumbers({-1.5e308, 1.5e308}, {CutAt::Median}).at, 0);
}

TEST(CutNumbers, NothingLeftIsRefused) {
    EXPECT_EQ(raisedBy([] { static_cast<void>(cutNumbers({}, {})); }).number, tbvNPNoData);
    EXPECT_EQ(raisedBy([] { static_cast<void>(cutNumbers({4, 4}, {})); }).number, tbvNPNoData);
}

TEST(CutNumbers, AllOnOneSideAreRefused) {
    EXPECT_EQ(raisedBy([] {
                  static_cast<void>(cutNumbers({1, 2}, {CutAt::Number, 3}));
              }).number,
              tbvNPTooFewGroups);
    const auto above = raisedBy([] { static_cast<void>(cutNumbers({1, 2}, {CutAt::Number, 1})); });
    EXPECT_EQ(above.number, tbvNPTooFewGroups);
    EXPECT_TRUE(above.description.starts_with("No number lies below 1,")) << above.description;
}

TEST(ACutSequence, StandsOnASheetOfItsOwnWhileItLives) {
    const auto application = workbookOf("Level\n5\n7\n1\n");
    const Choices choices = choicesFor("runs");
    const ChosenRanges numbers = chooseRanges(*application, choices);
    {
        const CutSequence cut(application, {CutAt::Number, 4}, numbers);
        EXPECT_EQ(cut.ranges().y, "Sides!A1:A4");
        EXPECT_EQ(toText(application->activeBook()->sheet("Sides")->value(3, 1)), "above 4");
        const FinishedTest test = runTest(application, choices, cut.ranges());
        EXPECT_EQ(toText(test.sheet().value(2, 1)), "Data Range = Data!$A$1:$A$4");
        EXPECT_EQ(toText(test.sheet().value(6, 1)), "above 4");
    }
    EXPECT_EQ(application->activeBook()->sheets().size(), 2U);
    EXPECT_EQ(std::get<double>(application->activeBook()->sheet("Data")->value(2, 1)), 5);
}

TEST(ACutSequence, CountsTextsThatReadAsNumbers) {
    const auto application = workbookOf("5\n7\n1\n");
    application->activeSheet()->values().set(2, 1, Text("7"));
    const CutSequence cut(application, {CutAt::Number, 4}, {"Data!A1:A3", "", false, ""});
    EXPECT_EQ(sidesOf(cut.numbers()), "above 4 above 4 below 4 ");
}

TEST(ACutSequence, TakesAFreeNameWhereASheetIsCalledSides) {
    const auto application = workbookOf("5\n7\n1\n");
    application->addSheet("Sides");
    const CutSequence cut(application, {CutAt::Mean}, chooseRanges(*application, choicesFor("runs")));
    EXPECT_EQ(cut.ranges().y, "'Sides (2)'!A1:A3");
}

}  // namespace

}  // namespace TBVNonPara::analysis
