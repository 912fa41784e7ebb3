#include "tbvnonpara/reshaping/conditions.hpp"

#include <gtest/gtest.h>

#include "tests/reshaping/columns.hpp"

namespace TBVNonPara::reshaping {

namespace {

/// The condition on a table of one column.
WrittenCondition on(const std::string& name, std::string_view text) {
    return readCondition(text, {[&](std::string_view column) { return column == name; },
                                [&] { return "The column is " + name + '.'; }});
}

/// "110" for two cells that fulfil it and one that does not.
std::string met(std::string_view condition, const std::vector<CellValue>& cells) {
    std::string answers;
    for (const bool answer : fulfilling(on("c", condition), columnOf("c", cells), Missing())) {
        answers += answer ? '1' : '0';
    }
    return answers;
}

TEST(ACondition, IsTakenApartAtItsComparison) {
    const WrittenCondition condition = on("feed", "feed=casein");
    EXPECT_EQ(condition.column, "feed");
    EXPECT_EQ(condition.comparison, Comparison::Equal);
    EXPECT_EQ(condition.values, std::vector<std::string>{"casein"});
    EXPECT_EQ(on("weight", " weight >= 200").comparison, Comparison::GreaterOrEqual);
    EXPECT_EQ(on("weight", "weight<>200").comparison, Comparison::NotEqual);
    EXPECT_EQ(on("my col", "'my col' != \" a \"").values, std::vector<std::string>{" a "});
    EXPECT_EQ(on("f", "f in a, \"b,c\" ,d").values, (std::vector<std::string>{"a", "b,c", "d"}));
}

TEST(ACondition, MayNameAColumnThatLooksLikeOne) {
    EXPECT_EQ(on("weight in kg", "weight in kg > 5").comparison, Comparison::Greater);
    EXPECT_EQ(on("a=b", "a=b=c").column, "a=b");
}

TEST(ACondition, ThatSaysNothingIsRefused) {
    EXPECT_EQ(refusedBy([] { static_cast<void>(on("feed", "fed = casein")); }).description(),
              "The condition \"fed = casein\" begins with no column of the table. The column is feed.");
    EXPECT_NE(refusedBy([] { static_cast<void>(on("feed", "feed")); }).description().find("compares nothing"),
              std::string::npos);
}

TEST(Numbers, CompareAsNumbers) {
    const std::vector<CellValue> cells = {2.0, 10.0, Text("10.0"), Text("x"), Empty()};
    EXPECT_EQ(met("c = 10", cells), "01100");
    EXPECT_EQ(met("c != 10", cells), "10010");
    EXPECT_EQ(met("c in 2, 10", cells), "11100");
    const std::vector<CellValue> numbers = {2.0, 10.0, Text("10.0"), Text("NA"), Empty()};
    EXPECT_EQ(met("c > 2", numbers), "01100");
    EXPECT_EQ(met("c <= 10", numbers), "11100");
    EXPECT_EQ(met("c < 10", numbers), "10000");
    EXPECT_EQ(met("c >= 2", numbers), "11100");
}

TEST(Texts, CompareAsTexts) {
    EXPECT_EQ(met("c = a", {Text("a"), Text(" a"), Text("A"), Text("ab"), Empty()}), "11000");
    EXPECT_EQ(met("c != a", {Text("a"), Text("b"), Empty()}), "010");
    EXPECT_EQ(met("c in a,b", {Text("a"), Text("b"), Text("c")}), "110");
    EXPECT_EQ(met("c = true", {true, false, Text("true")}), "101");
}

TEST(Dates, CompareAsDatesWithTextsAndDaysOfASheet) {
    const std::vector<CellValue> cells = {Text("2020-02-29"), Text("2020-03-01"), 43892.0};
    EXPECT_EQ(met("c >= 2020-03-01", cells), "011");
    EXPECT_EQ(met("c < 2020-03-01", cells), "100");
    EXPECT_EQ(met("c = 2020-03-02", cells), "001");
}

TEST(WhatIsMissing, IsEqualToNothingButNothing) {
    EXPECT_EQ(met("c = ", {Text("a"), Empty(), Text(" ")}), "011");
    EXPECT_EQ(met("c != 1", {2.0, Empty(), Text("NA")}), "100");
    EXPECT_EQ(met("c != low", {2.0, Empty(), Text("NA")}), "100");
}

TEST(WhatIsMissing, IsNoWordAmongNames) {
    EXPECT_EQ(met("c != 1", {Text("a"), Empty(), Text("NA"), Text("-"), 1.0}), "10110");
}

TEST(AnOrder, AmongTextsIsRefused) {
    const Refusal value = refusedBy([] { static_cast<void>(met("c < a", {1.0})); });
    EXPECT_NE(value.description().find("\"a\" is neither a number nor a date"), std::string::npos);
    const Refusal comma = refusedBy([] { static_cast<void>(met("c < 1,5", {1.0})); });
    EXPECT_NE(comma.description().find("write decimals with a point."), std::string::npos);
    const Refusal cell = refusedBy([] { static_cast<void>(met("c < 5", {1.0, Text("many")})); });
    EXPECT_EQ(cell.description(),
              "The condition \"c < 5\" asks for an order, but Data!B3 holds the text \"many\"; compare texts "
              "with = or !=, or leave such rows out first.");
}

TEST(TheValuesOfAColumn, AreListedOnceAndADozenAtMost) {
    EXPECT_EQ(valuesOf(columnOf("c", {Text("a"), 1.0, Text("a"), Empty()})), "a, 1, blanks");
    std::vector<CellValue> many;
    for (int i = 0; i < 13; ++i) {
        many.emplace_back(static_cast<double>(i));
    }
    EXPECT_EQ(valuesOf(columnOf("c", many)), "0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, ...");
}

}  // namespace

}  // namespace TBVNonPara::reshaping
