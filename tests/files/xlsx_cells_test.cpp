#include <gtest/gtest.h>

#include "tbvnonpara/files/xlsx/reader.hpp"
#include "tbvnonpara/files/xlsx/text.hpp"
#include "tests/files/text_parts.hpp"
#include "tests/files/workbooks.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

std::string xlsxCellsOf(const std::string& rows, const std::string& shared = "") {
    return shownCells(readXlsx(TextParts(xlsxParts(rows, shared))).sheets.at(0).cells);
}

struct XlsxCase {
    const char* name;
    const char* cell;
    const char* shown;
};

void PrintTo(const XlsxCase& test, std::ostream* stream) {
    *stream << test.cell;
}

class XlsxCells : public testing::TestWithParam<XlsxCase> {};

TEST_P(XlsxCells, MeanWhatTheirTypeSays) {
    const std::string shown = GetParam().shown;
    const std::string row = "<row r='1'>" + std::string(GetParam().cell) + "</row>";
    for (const std::string& quoted : {row, replaced(row, "'", "\"")}) {
        EXPECT_EQ(
            xlsxCellsOf(quoted,
                        "<si><t>zero</t></si><si><t/></si><si><r><t>ri</t></r><r><rPr><b/></rPr><t>ch</t></r>"
                        "<rPh sb='0' eb='2'><t>phonetic</t></rPh><phoneticPr fontId='1'/></si>"
                        "<si><t>_x0041__x000D_&#10;_x005F_x0041_</t></si>"),
            shown.empty() ? shown : "A1=" + shown);
    }
}

// clang-format off
const XlsxCase xlsxCellCases[] = {
    {"Number",                        "<c r='A1'><v>1.5</v></c>",                                  "1.5"},
    {"NumberByName",                  "<c r='A1' t='n'><v>-2</v></c>",                             "-2"},
    {"NumberWithBlanksAround",        "<c r='A1'><v>\n 7 </v></c>",                                "7"},
    {"NumberWithSignAndExponent",     "<c r='A1'><v>+1.5E+3</v></c>",                              "1500"},
    {"NumberWithLeadingZeros",        "<c r='A1'><v>000000000000000000007</v></c>",                "7"},
    {"NumberOfFifteenDigits",         "<c r='A1'><v>999999999999999</v></c>",                      "999999999999999"},
    {"NumberOfSixteenDigits",         "<c r='A1'><v>9999999999999999</v></c>",                     "1e+16"},
    {"NumberExactlyRounded",          "<c r='A1'><v>0.119999999999999999998</v></c>",              "0.12"},
    {"NumberHalfwayRoundsToEven",     "<c r='A1'><v>9007199254740993</v></c>",                     "9007199254740992"},
    {"NumberJustAboveHalfway",        "<c r='A1'><v>9007199254740993.00000000000000001</v></c>",   "9007199254740994"},
    {"NumberSubnormal",               "<c r='A1'><v>4.9406564584124654E-324</v></c>",              "5e-324"},
    {"NumberTooSmallIsZero",          "<c r='A1'><v>1E-400</v></c>",                               "0"},
    {"NumberTooLargeIsAnError",       "<c r='A1'><v>1E400</v></c>",                                "#NUM!"},
    {"SharedText",                    "<c r='A1' t='s'><v>0</v></c>",                              "\"zero\""},
    {"SharedEmptyText",               "<c r='A1' t='s'><v>1</v></c>",                              "\"\""},
    {"SharedRichTextWithoutPhonetic", "<c r='A1' t='s'><v>2</v></c>",                              "\"rich\""},
    {"SharedTextWithEscapes",         "<c r='A1' t='s'><v>3</v></c>",                              "\"A\r\n_x0041_\""},
    {"InlineText",                    "<c r='A1' t='inlineStr'><is><t> a </t></is></c>",           "\" a \""},
    {"InlineRichText",                "<c r='A1' t='inlineStr'><is><r><t>a</t></r><r><t>b</t></r><rPh sb='0' eb='1'><t>c</t></rPh></is></c>", "\"ab\""},
    {"InlineEmptyText",               "<c r='A1' t='inlineStr'><is><t/></is></c>",                 "\"\""},
    {"InlineTextWithEscapes",         "<c r='A1' t='inlineStr'><is><t>_x0041_</t></is></c>",       "\"A\""},
    {"TextInPieces",                  "<c r='A1' t='str'><v>a&amp;<![CDATA[<b>]]><!--c-->d</v></c>", "\"a&<b>d\""},
    {"FormulaWithNumber",             "<c r='A1'><f>1+1</f><v>2</v></c>",                          "2"},
    {"FormulaWithText",               "<c r='A1' t='str'><f>\"a\"</f><v>a</v></c>",                "\"a\""},
    {"FormulaWithEmptyText",          "<c r='A1' t='str'><f>\"\"</f><v></v></c>",                  "\"\""},
    {"FormulaWithTruth",              "<c r='A1' t='b'><f>TRUE()</f><v>1</v></c>",                 "TRUE"},
    {"FormulaWithError",              "<c r='A1' t='e'><f>1/0</f><v>#DIV/0!</v></c>",              "#DIV/0!"},
    {"FormulaSharedWithResult",       "<c r='A1'><f t='shared' si='0'/><v>3</v></c>",              "3"},
    {"FormulaWithoutValue",           "<c r='A1'><f>1+1</f></c>",                                  "uncalculated"},
    {"FormulaWithEmptyValue",         "<c r='A1'><f>1+1</f><v></v></c>",                           "uncalculated"},
    {"FormulaOfTextWithoutValue",     "<c r='A1' t='str'><f>A2</f></c>",                           "uncalculated"},
    {"FormulaSharedWithoutValue",     "<c r='A1'><f t='shared' si='0'/></c>",                      "uncalculated"},
    {"TruthInDigits",                 "<c r='A1' t='b'><v>0</v></c>",                              "FALSE"},
    {"TruthInWords",                  "<c r='A1' t='b'><v>true</v></c>",                           "TRUE"},
    {"ErrorKnown",                    "<c r='A1' t='e'><v>#N/A</v></c>",                           "#N/A"},
    {"ErrorYoungerThanTheSeven",      "<c r='A1' t='e'><v>#SPILL!</v></c>",                        "#VALUE!"},
    {"DateInWords",                   "<c r='A1' t='d'><v>2020-03-01T12:00:00Z</v></c>",           "43891.5"},
    {"DateBeforeTheDayThatNeverWas",  "<c r='A1' t='d'><v>1900-02-28</v></c>",                     "59"},
    {"DateBehindTheDayThatNeverWas",  "<c r='A1' t='d'><v>1900-03-01</v></c>",                     "61"},
    {"TimeInWords",                   "<c r='A1' t='d'><v>06:00:00</v></c>",                       "0.25"},
    {"CellWithNothing",               "<c r='A1' s='3'/>",                                         ""},
    {"CellWithEmptyValue",            "<c r='A1'><v/></c>",                                        ""},
    {"ExtensionsBesideTheValue",      "<c r='A1'><v>1</v><extLst><ext><x xmlns='urn:x'><v>9</v></x></ext></extLst></c>", "1"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(All, XlsxCells, testing::ValuesIn(xlsxCellCases),
                         [](const auto& test) { return std::string(test.param.name); });

class XlsxCellsUnreadable : public testing::TestWithParam<XlsxCase> {};

TEST_P(XlsxCellsUnreadable, WaitUntilTheyAreTouchedAndSayWhy) {
    const std::string row = "<row r='7'>" + std::string(GetParam().cell) + "<c r='D7'><v>1</v></c></row>";
    const FileContents contents = readXlsx(TextParts(xlsxParts(row, "<si/>")));
    const FileSheet& sheet = contents.sheets.at(0);
    EXPECT_EQ(shownCells(sheet.cells), "B7=unreadable D7=1");
    ASSERT_EQ(sheet.unreadable.size(), 1U);
    EXPECT_EQ(sheet.unreadable.begin()->first, std::pair(Index(7), Index(2)));
    EXPECT_THAT(sheet.unreadable.begin()->second, testing::HasSubstr(GetParam().shown));
}

// clang-format off
const XlsxCase xlsxUnreadableCases[] = {
    {"TextForANumber",      "<c r='B7'><v>abc</v></c>",              "\"abc\" is no number"},
    {"NotANumber",          "<c r='B7'><v>NaN</v></c>",              "\"NaN\" is no number"},
    {"Infinity",            "<c r='B7'><v>-inf</v></c>",             "is no number"},
    {"TwoSigns",            "<c r='B7'><v>+-1</v></c>",              "is no number"},
    {"TwoNumbers",          "<c r='B7'><v>1 2</v></c>",              "is no number"},
    {"Hexadecimal",         "<c r='B7'><v>0x10</v></c>",             "is no number"},
    {"UnknownSharedText",   "<c r='B7' t='s'><v>1</v></c>",          "there is no shared text number \"1\" among 1"},
    {"NegativeSharedText",  "<c r='B7' t='s'><v>-1</v></c>",         "there is no shared text number \"-1\""},
    {"UnknownTruth",        "<c r='B7' t='b'><v>2</v></c>",          "is no Boolean"},
    {"UnknownDate",         "<c r='B7' t='d'><v>2020-02-30</v></c>", "is no date"},
    {"UnknownType",         "<c r='B7' t='x'><v>1</v></c>",          "there is no type of cells \"x\""},
    {"TheDayThatNeverWas",  "<c r='B7' t='d'><v>1900-02-29</v></c>", "\"1900-02-29\" is no date"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(All, XlsxCellsUnreadable, testing::ValuesIn(xlsxUnreadableCases),
                         [](const auto& test) { return std::string(test.param.name); });

class XlsxCellsRefused : public testing::TestWithParam<XlsxCase> {};

TEST_P(XlsxCellsRefused, AreNamed) {
    expectRefused([] { (void)xlsxCellsOf("<row r='1'>" + std::string(GetParam().cell) + "</row>", "<si/>"); },
                  GetParam().shown);
}

// clang-format off
const XlsxCase xlsxRefusedCases[] = {
    {"NoReference",         "<c r='1A'><v>1</v></c>",                "\"1A\" is no cell"},
    {"BehindTheLastColumn", "<c r='XFE1'><v>1</v></c>",              "column 16385 lies outside a sheet"},
    {"BehindTheLastRow",    "<c r='A1048577'><v>1</v></c>",          "row 1048577 lies outside a sheet"},
    {"AbsurdlyFar",         "<c r='ZZZZZZZZZZZZ99999999999999999999'><v>1</v></c>", "lies outside a sheet"},
    {"RowZero",             "<c r='A0'><v>1</v></c>",                "row 0 lies outside a sheet"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(All, XlsxCellsRefused, testing::ValuesIn(xlsxRefusedCases),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(XlsxPlaces, FollowTheOneBeforeWhenTheyAreNotWritten) {
    EXPECT_EQ(xlsxCellsOf("<row><c><v>1</v></c><c><v>2</v></c></row><row><c><v>3</v></c></row>"),
              "A1=1 B1=2 A2=3");
    EXPECT_EQ(xlsxCellsOf("<row r='3'><c r='B3'><v>1</v></c><c><v>2</v></c></row><row><c><v>3</v></c></row>"),
              "B3=1 C3=2 A4=3");
}

TEST(XlsxPlaces, MayComeInAnyOrder) {
    EXPECT_EQ(xlsxCellsOf("<row r='2'><c r='B2'><v>1</v></c><c r='A2'><v>2</v></c></row>"
                          "<row r='1'><c r='A1'><v>3</v></c></row>"),
              "A1=3 A2=2 B2=1");
}

TEST(XlsxPlaces, ReachToTheEndOfASheet) {
    EXPECT_EQ(xlsxCellsOf("<row r='1048576'><c r='XFD1048576'><v>1</v></c></row>"), "XFD1048576=1");
}

TEST(XlsxPlaces, OfARowThatIsNoRowAreRefused) {
    expectRefused([] { (void)xlsxCellsOf("<row r='x'/>"); }, "row \"x\" is no row");
    expectRefused([] { (void)xlsxCellsOf("<row r='99999999999'><c><v>1</v></c></row>"); },
                  "row 1048577 lies outside a sheet");
}

TEST(XlsxMessages, NameThePartAndTheLine) {
    expectRefused([] { (void)xlsxCellsOf("<row>\n<c r='x'/></row>"); },
                  "part xl/worksheets/sheet1.xml, line 2, column ");
}

TEST(XlsxTexts, KeepWhatOnlyLooksLikeAnEscape) {
    EXPECT_EQ(unescapedXlsx("_x41_ _x00zz_ _X0041_ _x0041"), "_x41_ _x00zz_ _X0041_ _x0041");
    EXPECT_EQ(unescapedXlsx("_xD83D_ _xDE00_"), "_xD83D_ _xDE00_");
    EXPECT_EQ(unescapedXlsx("a_x005f_x0041_"), "a_x0041_");
}

TEST(XlsxTexts, JoinPairsOfSurrogates) {
    EXPECT_EQ(unescapedXlsx("_xD83D__xDE00_!"), "\xF0\x9F\x98\x80!");
    EXPECT_EQ(unescapedXlsx("_x00E4__x20AC_"), "\xC3\xA4\xE2\x82\xAC");
}

}  // namespace
}  // namespace TBVNonPara::workbook
