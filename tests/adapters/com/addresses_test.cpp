#include "adapters/com/addresses.hpp"

#include <gtest/gtest.h>

namespace TBVNonPara::com {

namespace {

struct Completion {
    const char* name;
    const char* address;
    const char* completed;

    friend std::ostream& operator<<(std::ostream& out, const Completion& one) { return out << one.name; }
};

class CompletedAddress : public testing::TestWithParam<Completion> {};

TEST_P(CompletedAddress, HasTheSheetOfTheAreaBefore) {
    EXPECT_EQ(withSheets(GetParam().address), GetParam().completed);
}

// clang-format off
const Completion completions[] = {
    {"TheSecondAreaLiesOnTheFirstOnesSheet", "Data!A1:A4,C1:C4",           "Data!A1:A4,Data!C1:C4"},
    {"AndSoDoesTheThird",                    "Data!A1:A4,C1:C4,E1",        "Data!A1:A4,Data!C1:C4,Data!E1"},
    {"ASheetNamedLaterIsThatOfTheNextAreas", "Data!A1,More!B1,C1",         "Data!A1,More!B1,More!C1"},
    {"TheActiveSheetsAreasStayOnIt",         "A1:A4,C1:C4",                "A1:A4,C1:C4"},
    {"AnAddressWithAllItsSheetsStays",       "Data!A1:A4, Data!C1:C4",     "Data!A1:A4, Data!C1:C4"},
    {"OneAreaStays",                         "Data!$A$1:$A$4",             "Data!$A$1:$A$4"},
    {"WholeColumnsAreCells",                 "Data!A:A,C:C",               "Data!A:A,Data!C:C"},
    {"WholeRowsAreCells",                    "Data!1:3,7:9",               "Data!1:3,Data!7:9"},
    {"DollarsDoNotMatter",                   "Data!$A$1:$A$4,$C$1:$C$4",   "Data!$A$1:$A$4,Data!$C$1:$C$4"},
    {"AWorkbookInFrontGoesWithItsSheet",     "[Book1]Data!$A$1,$C$1",      "[Book1]Data!$A$1,[Book1]Data!$C$1"},
    {"CommasAndMarksInQuotesSeparateNothing", "'a,b!c'!A1,B1",             "'a,b!c'!A1,'a,b!c'!B1"},
    {"QuotesInAQuotedNameStay",              "'It''s'!A1,B1",              "'It''s'!A1,'It''s'!B1"},
    {"BlanksAroundAnAreaDoNotMatter",        "Data!A1 , B1",               "Data!A1,Data!B1"},
    {"ANameOfTheWorkbookStands",             "Data!A1,Rates",              "Data!A1,Rates"},
    {"BehindANameNothingIsKnown",            "Data!A1,Rates,B1",           "Data!A1,Rates,B1"},
    {"ANameLikeACellOutsideTheSheetStands",  "Data!A1,XYZ12,B1",           "Data!A1,XYZ12,B1"},
    {"WhatCannotBeReadStands",               "Data!A1,R1C1:R3C1,??,",      "Data!A1,R1C1:R3C1,??,"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Com, CompletedAddress, testing::ValuesIn(completions),
                         [](const auto& tested) { return tested.param.name; });

TEST(CompletedAddresses, ThatWouldBeLongerThanAnApplicationTakesStayAsTheyAre) {
    std::string address = "Data!A1";
    while (address.size() < 250) {
        address += ",B1";
    }
    EXPECT_EQ(withSheets(address), address);
}

/// An address that an application gives, and where it ends on a sheet that is used to column D and row 57.
class EndedAddress : public testing::TestWithParam<Completion> {};

TEST_P(EndedAddress, EndsWithTheUsedArea) {
    EXPECT_EQ(endingWith(GetParam().address,
                         [] {
                             return UsedArea{57, 4};
                         })
                  .value_or("as it is"),
              GetParam().completed);
}

// clang-format off
const Completion endings[] = {
    {"AWholeColumn",            "$A:$A",                     "A1:A57"},
    {"WholeColumns",            "$B:$AC",                    "B1:AC57"},
    {"SeveralWholeColumns",     "$A:$A,$C:$C",               "A1:A57,C1:C57"},
    {"WholeRows",               "$3:$5",                     "A3:D5"},
    {"AColumnBesideCells",      "$A$1:$A$9,$C:$C",           "$A$1:$A$9,C1:C57"},
    {"AColumnToTheLastRow",     "$A$1:$A$1048576",           "A1:A57"},
    {"AColumnOfAnOlderSheet",   "$A$1:$A$65536",             "A1:A57"},
    {"TheWholeSheet",           "$1:$1048576",               "A1:D57"},
    {"ColumnsInTheOtherOrder",  "$C:$A",                     "A1:C57"},
    {"CellsStay",               "$A$1:$A$9",                 "as it is"},
    {"ACellStays",              "$A$1",                      "as it is"},
    {"CellsToTheLastRowStay",   "$A$2:$A$1048576",           "as it is"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Com, EndedAddress, testing::ValuesIn(endings),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace

}  // namespace TBVNonPara::com
