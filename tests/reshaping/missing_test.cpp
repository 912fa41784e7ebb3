#include "tbvnonpara/reshaping/missing.hpp"

#include <gtest/gtest.h>

#include "tbvnonpara/core/enumerations.hpp"
#include "tests/reshaping/columns.hpp"

namespace TBVNonPara::reshaping {

namespace {

TEST(Missing, AreTheUsualWordsInAnyCaseBlanksAndNotAvailable) {
    const Missing missing;
    for (const char* word : {"NA", "n/a", "NaN", "NULL", "null", ".", "-", "#N/A", "", "  ", " NA "}) {
        EXPECT_TRUE(missing.amongNumbers(Text(word))) << word;
    }
    EXPECT_TRUE(missing.amongNumbers(Empty()));
    EXPECT_TRUE(missing.amongNumbers(CellError::NotAvailable));
    for (const char* word : {"none", "x", "--", "N", "0", "?"}) {
        EXPECT_FALSE(missing.amongNumbers(Text(word))) << word;
    }
    EXPECT_FALSE(missing.amongNumbers(CellError::Value));
    EXPECT_FALSE(missing.amongNumbers(0.0));
    EXPECT_FALSE(missing.amongNumbers(false));
}

TEST(Missing, AreTheWordsGivenNumbersAmongThem) {
    const Missing missing({"none", " -999 ", "?"});
    EXPECT_TRUE(missing.amongNumbers(Text("None")));
    EXPECT_TRUE(missing.amongNumbers(-999.0));
    EXPECT_TRUE(missing.amongNames(Text("?")));
    EXPECT_FALSE(missing.amongNumbers(999.0));
}

TEST(Missing, LeaveNamesAndSignsOfTextsAlone) {
    const Missing missing;
    EXPECT_FALSE(missing.amongNames(Text("NA")));
    EXPECT_TRUE(missing.amongNames(Empty()));
    EXPECT_FALSE(missing.amongTexts(Text("-")));
    EXPECT_FALSE(missing.amongTexts(Text(".")));
    EXPECT_TRUE(missing.amongTexts(Text("NA")));
    EXPECT_FALSE(missing.amongTexts(1.0));
}

TEST(Numbers, AreMadeOfTextsAndWhatIsMissingIsCounted) {
    Column column = columnOf("Ozone", {41.0, Text("NA"), Text(" 12.5"), Empty(), Text(".")});
    const MissingCells missing = makeNumbers(column, Missing());
    EXPECT_EQ(cellsOf(column), "41 _ 12.5 _ _");
    EXPECT_EQ(missing.count, 3U);
    EXPECT_EQ(missing.words, 2U);
    EXPECT_EQ(missing.first, 1U);
    EXPECT_EQ(toText(missing.firstHeld), "NA");
}

TEST(Numbers, AreMadeOfDatesInTheColumnsOrder) {
    Column iso = columnOf("Day", {Text("2020-03-01"), Text("NA"), Text("2020-03-02 12:00")});
    EXPECT_EQ(makeNumbers(iso, Missing()).count, 1U);
    EXPECT_EQ(cellsOf(iso), "43891 _ 43892.5");
    Column slashes = columnOf("Day", {Text("1/3/2020"), Text("13/3/2020")});
    static_cast<void>(makeNumbers(slashes, Missing()));
    EXPECT_EQ(cellsOf(slashes), "43891 43903");
}

TEST(Numbers, RefuseTheFirstCellThatIsNone) {
    const auto refusalOf = [](const CellValue& value) {
        Column column = columnOf("Ozone", {41.0, value});
        return refusedBy([&] { static_cast<void>(makeNumbers(column, Missing())); });
    };
    const Refusal text = refusalOf(Text("high"));
    EXPECT_EQ(text.number(), tbvNPTextInData);
    EXPECT_EQ(text.description(),
              "Data!B3 holds the text \"high\"; every value of Data!Ozone must be a number.");
    EXPECT_EQ(refusalOf(true).number(), tbvNPBooleanInData);
    EXPECT_EQ(refusalOf(CellError::DivisionByZero).number(), tbvNPErrorInData);
    const Refusal date = refusalOf(Text("3/4/2020"));
    EXPECT_NE(date.description().find("a date whose day and month cannot be told apart"), std::string::npos)
        << date.description();
}

TEST(MissingNumbers, AreRefusedWithTheirNumberAndTheFirst) {
    Column column = columnOf("", {41.0, Text("NA"), Empty()});
    const MissingCells missing = makeNumbers(column, Missing());
    const Refusal refusal = refusedBy([&] { refuseMissing(column, missing); });
    EXPECT_EQ(refusal.description(),
              "Data!B lacks 2 values of 3, the first where Data!B3 holds the text \"NA\".");
    EXPECT_EQ(refusal.remedy(), Remedy::OmitMissing);
}

TEST(ASequence, KeepsHyphensAmongTextsAndLosesThemAmongNumbers) {
    Column signs = columnOf("Sign", {Text("+"), Text("-"), Text("NA"), Empty()});
    EXPECT_EQ(emptyMissing(signs, Missing()).count, 2U);
    EXPECT_EQ(cellsOf(signs), "+ - _ _");
    Column numbers = columnOf("Level", {1.0, Text("-"), 2.0});
    EXPECT_EQ(emptyMissing(numbers, Missing()).count, 1U);
    EXPECT_EQ(cellsOf(numbers), "1 _ 2");
}

TEST(AColumnOfCodes, LosesNAWhileOneOfNamesKeepsIt) {
    Column numbers = columnOf("Arm", {Text("NA"), 0.0, Text("1"), Text("-")});
    emptyMissingCodes(numbers, Missing());
    EXPECT_EQ(cellsOf(numbers), "_ 0 1 _");
    Column truths = columnOf("Arm", {true, Text("NA"), false});
    emptyMissingCodes(truths, Missing());
    EXPECT_EQ(cellsOf(truths), "True _ False");
    for (Column names : {columnOf("Arm", {Text("NA"), 0.0, Text("a")}), columnOf("Arm", {Text("NA")})}) {
        const std::string before = cellsOf(names);
        emptyMissingCodes(names, Missing());
        EXPECT_EQ(cellsOf(names), before);
    }
}

TEST(AColumnOfMissingCells, HoldsNoNumbers) {
    EXPECT_FALSE(holdsNumbers(columnOf("x", {Text("NA"), Empty()}), Missing()));
    EXPECT_TRUE(holdsNumbers(columnOf("x", {Text("NA"), Text("1e3")}), Missing()));
    EXPECT_FALSE(holdsNumbers(columnOf("x", {1.0, Text("one")}), Missing()));
}

}  // namespace

}  // namespace TBVNonPara::reshaping
