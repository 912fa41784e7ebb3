#include "tbvnonpara/core/a1.hpp"

#include <gtest/gtest.h>

namespace TBVNonPara {
namespace {

using Parts = std::vector<std::string_view>;

TEST(Addresses, AreReadAreaByArea) {
    const WrittenAddress written = readAddress("'It''s'!C9:$A$1, b:b ,3:2");
    ASSERT_EQ(written.problem, "");
    ASSERT_EQ(written.areas.size(), 3U);
    EXPECT_EQ(written.areas[0].sheet, "It's");
    EXPECT_EQ(written.areas[0].cells, (Rectangle{1, 1, 9, 3}));
    EXPECT_EQ(written.areas[1].sheet, std::nullopt);
    EXPECT_TRUE(written.areas[1].wholeColumns);
    EXPECT_EQ(written.areas[1].cells, (Rectangle{1, 2, 1'048'576, 2}));
    EXPECT_TRUE(written.areas[2].wholeRows);
    EXPECT_EQ(written.areas[2].cells, (Rectangle{2, 1, 3, 16'384}));
}

TEST(Addresses, ThatCannotBeReadSayWhichPartIsWrong) {
    // clang-format off
    const std::pair<const char*, const char*> cases[] = {
        {"",               "the cells are missing"},
        {"A1:B2:C3",       "\"B2:C3\" is no cell"},
        {"A0",             "\"A0\" is no cell"},
        {"XFE1",           "there is no column XFE, the last one is XFD"},
        {"A1,'Data!A1",    "a quote is not closed"},
        {"Nothing,'Data",  "there is no column Nothing, the last one is XFD"},
    };
    // clang-format on
    for (const auto& [address, problem] : cases) {
        EXPECT_EQ(readAddress(address).problem, problem) << address;
        EXPECT_TRUE(readAddress(address).areas.empty()) << address;
    }
}

TEST(Addresses, AreSplitAtSeparatorsOutsideTheQuotesOfASheetsName) {
    EXPECT_EQ(splitUnquoted("A1"), (Parts{"A1"}));
    EXPECT_EQ(splitUnquoted("A1,,B1,"), (Parts{"A1", "", "B1", ""}));
    EXPECT_EQ(splitUnquoted("'a,b'!A1,'it''s,'!B1"), (Parts{"'a,b'!A1", "'it''s,'!B1"}));
    EXPECT_EQ(splitUnquoted("A1;'a;b'!B1,C1", ",;"), (Parts{"A1", "'a;b'!B1", "C1"}));
}

TEST(Addresses, AreWrittenWithAndWithoutDollars) {
    EXPECT_EQ(absoluteAddress(Rectangle{1, 1, 1, 1}), "$A$1");
    EXPECT_EQ(absoluteAddress(Areas{{1, 3, 9, 3}, {1, 1, 9, 2}}), "$C$1:$C$9,$A$1:$B$9");
    EXPECT_EQ(plainAddress(Rectangle{1, 1, 9, 2}), "A1:B9");
    EXPECT_EQ(plainAddress(1'048'576, 16'384), "XFD1048576");
    EXPECT_EQ(withoutDollars("$A$1:$B$9"), "A1:B9");
}

TEST(CellPlaces, AreLettersOfEitherCaseAndDigits) {
    const auto placed = [](std::string_view reference) {
        const auto place = placeOf(reference);
        return place ? std::to_string(place->row) + '|' + std::to_string(place->column) : "none";
    };
    EXPECT_EQ(placed("A1"), "1|1");
    EXPECT_EQ(placed("xFd1048576"), "1048576|16384");
    EXPECT_EQ(placed("ZZZZZZZZZZZZ9999999999999999999"), "67108864|67108864");
    for (const char* other : {"", "A", "1", "1A", "$A$1", "A1 ", "A-1", "@1", "[1", "`1", "{1", "\xC1\x31"}) {
        EXPECT_EQ(placed(other), "none") << other;
    }
}

TEST(ColumnLetters, RunFromAToXFD) {
    const std::pair<Index, const char*> cases[] = {{1, "A"},    {26, "Z"},    {27, "AA"},    {52, "AZ"},
                                                   {702, "ZZ"}, {703, "AAA"}, {16384, "XFD"}};
    for (const auto& [column, letters] : cases) {
        EXPECT_EQ(columnLetters(column), letters);
        std::string_view text = letters;
        EXPECT_EQ(takeColumn(text), column);
        EXPECT_EQ(text, "");
    }
}

TEST(WholeSheet, HasMoreCellsThan32BitsCount) {
    EXPECT_EQ(wholeSheet.cells(), 17'179'869'184);
}

TEST(SheetNames, StandInQuotesWhereTheyNeedThem) {
    // clang-format off
    const std::pair<const char*, const char*> cases[] = {
        {"Data", "Data"}, {"Sheet_1", "Sheet_1"}, {"Größe", "Größe"}, {"My sheet", "'My sheet'"},
        {"It's", "'It''s'"}, {"a!b", "'a!b'"}, {"2019", "'2019'"}, {"A1", "'A1'"}, {"ABC", "'ABC'"},
        {"ABCD1", "ABCD1"}, {"a,b", "'a,b'"},
    };
    // clang-format on
    for (const auto& [name, quoted] : cases) {
        EXPECT_EQ(quotedSheetName(name), quoted);
        EXPECT_EQ(readAddress(quotedSheetName(name) + "!A1").areas.at(0).sheet, name);
    }
}

}  // namespace
}  // namespace TBVNonPara
