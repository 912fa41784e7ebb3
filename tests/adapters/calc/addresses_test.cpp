#include "adapters/calc/addresses.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace TBVNonPara::calc {

namespace {

using testing::ElementsAre;

TEST(Addresses, AreSplitOutsideQuotesOnly) {
    EXPECT_THAT(splitAreas("A1:A9"), ElementsAre("A1:A9"));
    EXPECT_THAT(splitAreas("A1:A9, C1:C9"), ElementsAre("A1:A9", "C1:C9"));
    EXPECT_THAT(splitAreas("$Data.$A$1;$Data.$C$1"), ElementsAre("$Data.$A$1", "$Data.$C$1"));
    EXPECT_THAT(splitAreas("'a,b;c'!A1,B1"), ElementsAre("'a,b;c'!A1", "B1"));
    EXPECT_THAT(splitAreas("'It''s, ok'!A1"), ElementsAre("'It''s, ok'!A1"));
    EXPECT_THAT(splitAreas(""), ElementsAre(""));
    EXPECT_THAT(splitAreas("A1,"), ElementsAre("A1", ""));
}

TEST(Addresses, TellTheNotationByTheExclamationMarkOutsideQuotes) {
    EXPECT_TRUE(hasExclamationMark("Data!A1"));
    EXPECT_TRUE(hasExclamationMark("'Data'!A1"));
    EXPECT_FALSE(hasExclamationMark("$Data.$A$1"));
    EXPECT_FALSE(hasExclamationMark("$'What!'.$A$1"));
    EXPECT_FALSE(hasExclamationMark("A1"));
}

TEST(Addresses, NameColumnsByLetters) {
    EXPECT_EQ(columnLetters(0), "A");
    EXPECT_EQ(columnLetters(25), "Z");
    EXPECT_EQ(columnLetters(26), "AA");
    EXPECT_EQ(columnLetters(701), "ZZ");
    EXPECT_EQ(columnLetters(702), "AAA");
    EXPECT_EQ(columnLetters(16383), "XFD");
}

TEST(Addresses, AreWrittenAbsoluteWithAreasInTheirOrder) {
    EXPECT_EQ(absoluteAddress(CellArea{0, 0, 0, 0}), "$A$1");
    EXPECT_EQ(absoluteAddress(CellArea{0, 0, 1, 8}), "$A$1:$B$9");
    EXPECT_EQ(absoluteAddress(std::vector<CellArea>{{2, 0, 2, 8}, {0, 0, 0, 8}}), "$C$1:$C$9,$A$1:$A$9");
}

TEST(Addresses, PutCornersInOrder) {
    EXPECT_EQ(normalised({0, 1, 8, 0, 2}), (CellArea{0, 2, 1, 8}));
}

}  // namespace

}  // namespace TBVNonPara::calc
