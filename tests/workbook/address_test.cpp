#include "tbvnonpara/workbook/address.hpp"

#include <gtest/gtest.h>

#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

/// Three sheets; on "Data" column A has five values, column B three, column D one; rows 1 to 5.
ObjectRef<EmbeddedApplication> withSheets() {
    auto application = makeApplication();
    application->addSheet("Data", ValueGrid{{"a", "b", Empty(), "d"},
                                            {1.0, 1.0, Empty(), Empty()},
                                            {2.0, 2.0, Empty(), Empty()},
                                            {3.0, Empty(), Empty(), Empty()},
                                            {4.0, Empty(), Empty(), Empty()}});
    application->addSheet("My 'odd' sheet");
    application->addSheet("a,b!c");
    return application;
}

struct AddressCase {
    const char* name;
    const char* address;
    const char* expected;
};

std::string nameOf(const testing::TestParamInfo<AddressCase>& info) {
    return info.param.name;
}

class Resolve : public testing::TestWithParam<AddressCase> {};

TEST_P(Resolve, GivesTheCellsThatAreMeant) {
    const auto application = withSheets();
    const RangeRef range = application->GetRange(GetParam().address);
    EXPECT_EQ(range->GetWorksheet()->GetName() + '|' + range->GetAddress(), GetParam().expected);
    EXPECT_EQ(range->GetAddressLocal(), range->GetAddress());
}

// clang-format off
const AddressCase resolved[] = {
    {"OneCell",                            "A1",                         "Data|$A$1"},
    {"OneCellAsAnArea",                    "C7:C7",                      "Data|$C$7"},
    {"AbsoluteArea",                       "Data!$A$1:$B$9",             "Data|$A$1:$B$9"},
    {"MixedDollars",                       "Data!A$1:$B9",               "Data|$A$1:$B$9"},
    {"LettersAndNamesInAnyCase",           "dATA!xfd1048576",            "Data|$XFD$1048576"},
    {"CornersInAnyOrder",                  "B9:A1",                      "Data|$A$1:$B$9"},
    {"OtherDiagonal",                      "A9:B1",                      "Data|$A$1:$B$9"},
    {"BlanksAroundTheParts",               " Data!A1 : A9 , C1 ",        "Data|$A$1:$A$9,$C$1"},
    {"QuotedPlainName",                    "'Data'!A1",                  "Data|$A$1"},
    {"DoubledQuotes",                      "'My ''odd'' sheet'!A1",      "My 'odd' sheet|$A$1"},
    {"CommaAndExclamationMarkInQuotes",    "'a,b!c'!A1:A2,'A,B!C'!B1",   "a,b!c|$A$1:$A$2,$B$1"},
    {"SeveralAreasInTheOrderNamed",        "C1:C9,A1:A9",                "Data|$C$1:$C$9,$A$1:$A$9"},
    {"TouchingAreasAreNotMerged",          "A1:A9,B1:B9",                "Data|$A$1:$A$9,$B$1:$B$9"},
    {"OverlappingAreasStayTwo",            "A1:A9,A1:A9",                "Data|$A$1:$A$9,$A$1:$A$9"},
    {"FirstNameHoldsForAll",               "'a,b!c'!A1,B2",              "a,b!c|$A$1,$B$2"},
    {"NameBeforeEachArea",                 "Data!A1,data!B2",            "Data|$A$1,$B$2"},
    {"LaterNameOfTheActiveSheet",          "A1,Data!B2",                 "Data|$A$1,$B$2"},
    {"WholeColumnEndsWithItsLastValue",    "A:A",                        "Data|$A$1:$A$5"},
    {"ShorterColumnEndsEarlier",           "B:B",                        "Data|$B$1:$B$3"},
    {"ColumnsEndWithTheLongest",           "D:$B",                       "Data|$B$1:$D$3"},
    {"EmptyColumnIsOneCell",               "C:C",                        "Data|$C$1"},
    {"WholeRow",                           "1:1",                        "Data|$A$1:$D$1"},
    {"RowsEndWithTheLastValue",            "$3:2",                       "Data|$A$2:$B$3"},
    {"ColumnOfAnEmptySheet",               "'a,b!c'!A:C",                "a,b!c|$A$1:$C$1"},
    {"EveryColumn",                        "A:XFD",                      "Data|$A$1:$XFD$5"},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Address, Resolve, testing::ValuesIn(resolved), nameOf);

class Unresolved : public testing::TestWithParam<AddressCase> {};

TEST_P(Unresolved, IsRefusedInPlainWords) {
    const auto application = withSheets();
    expectRefused([&] { (void)application->GetRange(GetParam().address); }, GetParam().expected);
}

// clang-format off
const AddressCase unresolved[] = {
    {"Nothing",                    "",                 "the cells are missing"},
    {"NoCells",                    "Data!",            "the cells are missing"},
    {"NothingAfterAComma",         "A1,",              "the cells are missing"},
    {"NoName",                     "!A1",              "the name of the sheet is missing"},
    {"EmptyQuotes",                "''!A1",            "the name of the sheet is missing"},
    {"NoAddress",                  "hello",            "there is no column hello, the last one is XFD"},
    {"ColumnBeyondTheLast",        "XFE1",             "there is no column XFE, the last one is XFD"},
    {"RowBeyondTheLast",           "A1048577",         "there is no row 1048577, the last one is 1048576"},
    {"HugeRow",                    "A99999999999999999999999", "the last one is 1048576"},
    {"RowZero",                    "A0",               "\"A0\" is no cell"},
    {"NegativeRow",                "A-1",              "\"A-1\" is no cell"},
    {"RowAndColumnSwapped",        "1A",               "\"1A\" is no cell"},
    {"DollarAlone",                "$",                "\"$\" is no cell"},
    {"TwoDollars",                 "$$A1",             "\"$$A1\" is no cell"},
    {"ThreeCorners",               "A1:B2:C3",         "\"B2:C3\" is no cell"},
    {"ColumnAlone",                "A",                "\"A\" names neither cells nor whole columns"},
    {"RowAlone",                   "7",                "\"7\" names neither cells nor whole columns"},
    {"CellToColumn",               "A1:B",             "names neither cells nor whole columns"},
    {"ColumnToRow",                "A:5",              "names neither cells nor whole columns"},
    {"OpenQuote",                  "'Data!A1",         "a quote is not closed"},
    {"NothingAfterTheQuotes",      "'Data'",           "there must be an exclamation mark"},
    {"UnknownSheetListsThoseThere","Nowhere!A1",       "the sheets are: \"Data\", \"My 'odd' sheet\", \"a,b!c\""},
    {"ScratchSheetIsNotTheUsers",  "Results!A1",       "There is no sheet \"Results\" in workbook \"Book1\""},
    {"AreasOnDifferentSheets",     "Data!A1,'a,b!c'!A1", "lie on different sheets (\"Data\" and \"a,b!c\")"},
    {"ActiveSheetAndAnother",      "A1,'a,b!c'!A1",    "lie on different sheets"},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Address, Unresolved, testing::ValuesIn(unresolved), nameOf);

TEST(Address, OfAnApplicationWithoutASheetSaysSo) {
    const auto application = makeApplication();
    expectRefused([&] { (void)application->GetRange("A1"); }, "there is no active one");
}

TEST(Address, WithoutANameLiesOnTheActiveSheet) {
    const auto application = withSheets();
    application->activeBook()->sheet("a,b!c")->Activate();
    EXPECT_EQ(application->GetRange("B2")->GetWorksheet()->GetName(), "a,b!c");
}

TEST(Address, OfAWorksheetIsOnThatSheetWhicheverIsActive) {
    const auto application = withSheets();
    const auto sheet = application->book("tbv2007.xlam")->sheet("Results");
    EXPECT_EQ(sheet->GetRange("A1:A2")->GetWorksheet()->GetName(), "Results");
    EXPECT_EQ(sheet->GetRange("results!A1:A2")->GetAddress(), "$A$1:$A$2");
    expectRefused([&] { (void)sheet->GetRange("Data!A1"); },
                  "names sheet \"Data\", but a range of sheet \"Results\" was asked for");
}

TEST(Address, OfAWholeColumnBeginsWithTheSheetsDataAlsoWithoutALabel) {
    const auto application = makeApplication();
    const auto sheet = application->addSheet("Data");
    sheet->GetRange("B3")->LetValue("label");
    sheet->GetRange("A5:A7")->LetValue(1.0);
    EXPECT_EQ(application->GetRange("A:A")->GetAddress(), "$A$3:$A$7");
    EXPECT_EQ(application->GetRange("6:6")->GetAddress(), "$A$6");
}

TEST(Address, OfAWholeColumnIgnoresFormatsBelowTheData) {
    const auto application = withSheets();
    application->GetRange("A50")->LetFontBold(true);
    EXPECT_EQ(application->GetRange("A:A")->GetAddress(), "$A$1:$A$5");
}

}  // namespace
}  // namespace TBVNonPara::workbook
