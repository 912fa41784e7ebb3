#include <gtest/gtest.h>

#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/reshaping/long_table.hpp"
#include "tbvnonpara/reshaping/wide_table.hpp"
#include "tests/reshaping/columns.hpp"

namespace TBVNonPara::reshaping {

namespace {

std::vector<CellValue> texts(const std::string& letters) {
    std::vector<CellValue> cells;
    for (const char letter : letters) {
        cells.push_back(letter == '_' ? CellValue() : Text(std::string(1, letter)));
    }
    return cells;
}

LongTable tableOf(std::vector<CellValue> values, const std::string& groups, const std::string& blocks = "") {
    LongTable table{columnOf("value", std::move(values)), columnOf("group", texts(groups), 3), std::nullopt};
    if (!blocks.empty()) {
        table.blocks = columnOf("block", texts(blocks), 4);
    }
    return table;
}

Wishes wishesFor(Unit unit, bool omit = false) {
    Wishes wishes;
    wishes.unit = unit;
    wishes.mostGroups = 100;
    wishes.omitMissing = omit;
    return wishes;
}

Wishes picking(std::vector<std::string> groups) {
    Wishes wishes = wishesFor(Unit::Value);
    wishes.groups = std::move(groups);
    return wishes;
}

std::string refusal(const LongTable& table, const Wishes& wishes) {
    return refusedBy([&] { static_cast<void>(fromLong(table, wishes)); }).description();
}

TEST(ALongTable, OfUnequalColumnsIsRefused) {
    EXPECT_EQ(refusal(tableOf({1.0, 2.0, 3.0}, "ab"), wishesFor(Unit::Value)),
              "Data!value has 3 rows, Data!group 2; rows belong together, so make them equally long.");
    EXPECT_EQ(refusal(tableOf({1.0, 2.0}, "ab", "x"), wishesFor(Unit::Pair)),
              "Data!value has 2 rows, Data!block 1; rows belong together, so make them equally long.");
}

TEST(ALongTable, IsRefusedWithAReasonAndItsFacts) {
    struct Case {
        LongTable table;
        Unit unit;
        Reason reason;
        std::vector<std::string> facts;
    };
    // clang-format off
    const Case cases[] = {
        {tableOf({1.0, 2.0}, "ab", "xxx"),           Unit::Pair,  Reason::UnequalColumns,   {"Data!value", "2", "Data!block", "3"}},
        {tableOf({1.0, Text("x")}, "ab"),            Unit::Value, Reason::NotANumber,       {"Data!B3"}},
        {tableOf({1.0, Text("NA")}, "ab"),           Unit::Value, Reason::ValuesMissing,    {"Data!value", "1", "2", "Data!B3"}},
        {tableOf({1.0, 2.0, 3.0}, "a_b"),            Unit::Value, Reason::NamesMissing,     {"Data!group", "1", "Data!C3"}},
        {tableOf({1.0, 2.0}, "aa"),                  Unit::Value, Reason::OneGroup,         {"Data!group", "a (2)"}},
        {tableOf({1.0, 2.0, 3.0}, "aba", "xxy"),     Unit::Pair,  Reason::BlocksIncomplete, {"Data!block", "1", "y", "b"}},
        {tableOf({1.0, 2.0, 3.0}, "aba", "xxx"),     Unit::Pair,  Reason::SecondValue,      {"x", "Data!block", "a", "Data!B2", "Data!B4"}},
    };
    // clang-format on
    for (const Case& one : cases) {
        const Refusal refused =
            refusedBy([&] { static_cast<void>(fromLong(one.table, wishesFor(one.unit))); });
        EXPECT_EQ(refused.reason(), one.reason) << refused.description();
        EXPECT_EQ(refused.facts(), one.facts) << refused.description();
    }
}

TEST(ALongTable, IsSplitInTheOrderOfItsGroups) {
    const Reshaped result = fromLong(tableOf({1.0, 2.0, 3.0, 4.0}, "baba"), wishesFor(Unit::Value));
    ASSERT_EQ(result.columns.size(), 2U);
    EXPECT_EQ(result.columns[0].header, "b");
    EXPECT_EQ(cellsOf(result.columns[0]), "1 3");
    EXPECT_EQ(cellsOf(result.columns[1]), "2 4");
    EXPECT_EQ(sizesOf(result.account.groups), "b (2), a (2)");
    EXPECT_EQ(leftOut(result.account), "");
}

TEST(ALongTable, HoldsTheGroupsThatArePickedInTheirOrder) {
    const Reshaped result = fromLong(tableOf({1.0, 2.0, Text("x"), 4.0}, "abca"), picking({"b", "a"}));
    ASSERT_EQ(result.columns.size(), 2U);
    EXPECT_EQ(cellsOf(result.columns[0]), "2");
    EXPECT_EQ(cellsOf(result.columns[1]), "1 4");
    EXPECT_EQ(leftOut(result.account), "left out: 1 of 4 rows of other groups");
}

TEST(ALongTable, TellsNumbersApartByTheirTexts) {
    LongTable table = tableOf({1.0, 2.0, 3.0}, "aaa");
    table.groups.cells = {5.0, Text("5"), 7.0};
    EXPECT_EQ(sizesOf(fromLong(table, wishesFor(Unit::Value)).account.groups), "5 (2), 7 (1)");
}

TEST(ALongTable, NamesTrueAndFalseAsSheetsShowThem) {
    LongTable table = tableOf({1.0, 2.0, 3.0}, "aaa");
    table.groups.cells = {true, false, Text("TRUE")};
    EXPECT_EQ(sizesOf(fromLong(table, picking({"FALSE", "TRUE"})).account.groups), "FALSE (1), TRUE (2)");
}

TEST(ALongTable, RefusesGroupsThatAreNotThere) {
    EXPECT_EQ(refusal(tableOf({1.0, 2.0}, "ab"), picking({"a", "z"})),
              "There is no group \"z\"; the groups of Data!group are a (1), b (1).");
    EXPECT_EQ(refusal(tableOf({1.0, 2.0}, "ab"), picking({"a", "a"})),
              "The group \"a\" is picked twice; the groups of Data!group are a (1), b (1).");
    EXPECT_EQ(refusal(tableOf({1.0, 2.0}, "aa"), wishesFor(Unit::Value)),
              "Data!group has one group, a (2); the test compares two or more.");
}

TEST(ALongTable, WithTooManyGroupsNamesSomeToPick) {
    Wishes wishes = wishesFor(Unit::Value);
    wishes.mostGroups = 2;
    const Refusal tooMany = refusedBy([&] {
        static_cast<void>(fromLong(tableOf({1.0, 2.0, 3.0}, "cab"), wishes));
    });
    EXPECT_EQ(tooMany.description(), "Data!group has 3 groups, c (1), a (1), b (1); the test compares two.");
    EXPECT_EQ(tooMany.remedy(), Remedy::PickGroups);
    EXPECT_EQ(tooMany.groups(), (std::vector<std::string>{"c", "a"}));
}

TEST(ALongTable, LosesMissingValuesAndNamesOnlyWhenAsked) {
    const LongTable table = tableOf({1.0, Text("NA"), 3.0, 4.0, 5.0}, "aab_b");
    EXPECT_EQ(refusal(table, wishesFor(Unit::Value)),
              "Data!group names no group in 1 row; the first is Data!C5.");
    const Reshaped result = fromLong(table, wishesFor(Unit::Value, true));
    EXPECT_EQ(cellsOf(result.columns[0]), "1");
    EXPECT_EQ(cellsOf(result.columns[1]), "3 5");
    EXPECT_EQ(leftOut(result.account),
              "left out: 1 of 5 rows without a group or block, 1 of 4 values that are missing");
    EXPECT_EQ(refusal(tableOf({1.0, Text("NA"), 3.0}, "abb"), wishesFor(Unit::Value)),
              "Data!value lacks 1 value of 3, the first where Data!B3 holds the text \"NA\".");
}

TEST(ALongTable, WhoseGroupsAreNumbersHasNoGroupNA) {
    LongTable table = tableOf({1.0, 2.0, 3.0}, "aaa");
    table.groups.cells = {0.0, Text("NA"), 1.0};
    EXPECT_EQ(refusal(table, wishesFor(Unit::Value)),
              "Data!group names no group in 1 row; the first is Data!C3.");
    const Reshaped result = fromLong(table, wishesFor(Unit::Value, true));
    EXPECT_EQ(sizesOf(result.account.groups), "0 (1), 1 (1)");
    EXPECT_EQ(result.account.unnamed, 1U);
    table.groups.cells.back() = Text("x");
    EXPECT_EQ(sizesOf(fromLong(table, picking({"NA", "0"})).account.groups), "NA (1), 0 (1)");
}

TEST(ALongTable, LosesAGroupWithoutValues) {
    const Reshaped result = fromLong(tableOf({1.0, Text("NA"), 3.0}, "abc"), wishesFor(Unit::Value, true));
    EXPECT_EQ(sizesOf(result.account.groups), "a (1), c (1)");
}

TEST(ALongTable, IsMatchedByItsBlocks) {
    const Reshaped result = fromLong(tableOf({1.0, 2.0, 3.0, 4.0}, "abba", "xxyy"), wishesFor(Unit::Block));
    EXPECT_EQ(cellsOf(result.columns[0]), "1 4");
    EXPECT_EQ(cellsOf(result.columns[1]), "2 3");
    EXPECT_EQ(result.columns[1].rows, (std::vector<std::int32_t>{3, 4}));
}

TEST(ABlock, WithAGapIsRefusedOrLeftOut) {
    const LongTable table = tableOf({1.0, 2.0, 3.0, 5.0, Text("NA")}, "abaab", "xxyzz");
    EXPECT_EQ(refusal(tableOf({1.0, 2.0, 3.0}, "aba", "xxy"), wishesFor(Unit::Block)),
              "1 block of Data!block lacks a value; the first is \"y\", without one of \"b\".");
    const Reshaped result = fromLong(table, wishesFor(Unit::Block, true));
    EXPECT_EQ(cellsOf(result.columns[0]), "1");
    EXPECT_EQ(cellsOf(result.columns[1]), "2");
    EXPECT_EQ(leftOut(result.account), "left out: 2 of 3 blocks with missing values");
}

TEST(Blocks, ThatAllHaveAGapAreRefusedWhateverIsLeftOut) {
    for (const bool omit : {false, true}) {
        const Refusal gaps = refusedBy([&] {
            static_cast<void>(fromLong(tableOf({1.0, 2.0}, "ab", "xy"), wishesFor(Unit::Pair, omit)));
        });
        EXPECT_EQ(
            gaps.description(),
            "No block of Data!block has a value of every group; the first is \"x\", without one of \"b\".");
        EXPECT_EQ(gaps.remedy(), Remedy::CorrectData);
    }
}

TEST(ABlock, WithTwoValuesOfAGroupIsAlwaysRefused) {
    const LongTable table = tableOf({1.0, 2.0, 3.0}, "aba", "xxx");
    for (const bool omit : {false, true}) {
        EXPECT_EQ(refusal(table, wishesFor(Unit::Pair, omit)),
                  "The block \"x\" of Data!block has two values of \"a\": Data!B2 and Data!B4; every block "
                  "takes one of each.");
    }
}

TEST(AWideTable, LosesPairsBlocksOrValues) {
    const std::vector<Column> columns = {columnOf("a", {1.0, Text("NA"), 3.0}),
                                         columnOf("b", {4.0, 5.0, Empty()}, 3)};
    const Reshaped pairs = fromWide(columns, wishesFor(Unit::Pair, true));
    EXPECT_EQ(cellsOf(pairs.columns[0]), "1");
    EXPECT_EQ(cellsOf(pairs.columns[1]), "4");
    EXPECT_EQ(leftOut(pairs.account), "left out: 2 of 3 pairs with missing values");
    const Reshaped values = fromWide(columns, wishesFor(Unit::Value, true));
    EXPECT_EQ(cellsOf(values.columns[0]), "1 3");
    EXPECT_EQ(cellsOf(values.columns[1]), "4 5");
    EXPECT_EQ(leftOut(values.account), "left out: 1 of 5 values that are missing");
}

TEST(AWideTable, MayHoldBlanksWhereTheTestTakesThem) {
    Wishes wishes = wishesFor(Unit::Value);
    wishes.blanksAllowed = true;
    EXPECT_EQ(cellsOf(fromWide({columnOf("a", {1.0, Empty(), 3.0})}, wishes).columns[0]), "1 3");
    const Refusal words = refusedBy([&] {
        static_cast<void>(fromWide({columnOf("a", {1.0, Empty(), Text("NA")})}, wishes));
    });
    EXPECT_EQ(words.remedy(), Remedy::OmitMissing);
}

TEST(AWideTable, OfNumbersAndNamesIsTakenForALongOne) {
    const auto refused = [](const std::vector<Column>& columns) {
        return refusedBy([&] { static_cast<void>(fromWide(columns, wishesFor(Unit::Value))); });
    };
    const Column names = columnOf("feed", {Text("NA"), Text("casein"), Text("corn")}, 3);
    const Refusal splitting = refused({names, columnOf("", {1.0, Text("NA"), 3.0})});
    EXPECT_EQ(splitting.description(),
              "Data!C3 holds the text \"casein\", and Data!feed no number; every value must be one.");
    EXPECT_EQ(splitting.remedy(), Remedy::SplitValues);
    EXPECT_EQ(splitting.groups(), (std::vector<std::string>{"B", "feed"}));
    EXPECT_EQ(refused({names, names}).remedy(), Remedy::CorrectData);
    const Column mixed = columnOf("weight", {1.0, Text("high")});
    EXPECT_EQ(refused({columnOf("x", {1.0, 2.0}), mixed}).remedy(), Remedy::CorrectData);
}

TEST(AWideTable, OfUnequalPairsOrWithoutValuesIsRefused) {
    const auto refused = [](const std::vector<Column>& columns, Unit unit) {
        return refusedBy([&] { static_cast<void>(fromWide(columns, wishesFor(unit, true))); });
    };
    EXPECT_EQ(refused({columnOf("a", {1.0, 2.0}), columnOf("b", {1.0}, 3)}, Unit::Pair).description(),
              "Data!a has 2 rows, Data!b 1; rows belong together, so make them equally long.");
    EXPECT_EQ(refused({columnOf("a", {Text("NA")})}, Unit::Value).description(),
              "No value is left of Data!a.");
}

TEST(TheCells, OfATableTurnedOverAreNamedWhereTheyStand) {
    Column column = columnOf("x", {1.0, Text("z")}, 4);
    column.turned = true;
    EXPECT_EQ(nameOfCell(column, 1), "Data!C4");
    column.header.clear();
    EXPECT_EQ(nameOf(column), "Data!row 4");
}

}  // namespace

}  // namespace TBVNonPara::reshaping
