#include <gtest/gtest.h>

#include "tbvnonpara/files/ods/reader.hpp"
#include "tests/files/text_parts.hpp"
#include "tests/files/workbooks.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

using namespace std::string_literals;

FileContents contentsOf(const std::string& rows, const std::string& settings = "") {
    return readOds(TextParts(odsParts(rows, settings)));
}

std::string odsCellsOf(const std::string& rows, const std::string& settings = "") {
    return shownCells(contentsOf(rows, settings).sheets.at(0).cells);
}

struct OdsCase {
    const char* name;
    const char* attributes;
    const char* inside;
    const char* shown;
};

void PrintTo(const OdsCase& test, std::ostream* stream) {
    *stream << test.attributes << ' ' << test.inside;
}

std::string rowWith(const OdsCase& test) {
    return "<table:table-row><table:table-cell " + std::string(test.attributes) + ">" + test.inside +
           "</table:table-cell></table:table-row>";
}

class OdsCells : public testing::TestWithParam<OdsCase> {};

TEST_P(OdsCells, MeanWhatTheirTypeSays) {
    const std::string shown = GetParam().shown;
    EXPECT_EQ(odsCellsOf(rowWith(GetParam())), shown.empty() ? shown : "A1=" + shown);
}

// clang-format off
const OdsCase odsCellCases[] = {
    {"Number",                 "office:value-type='float' office:value='0.1'", "<text:p>0</text:p>",               "0.1"},
    {"NumberExactlyRounded",   "office:value-type='float' office:value='9007199254740993.00000000000000001'", "", "9007199254740994"},
    {"NumberSubnormal",        "office:value-type='float' office:value='4.9406564584124654E-324'", "",            "5e-324"},
    {"NumberTooLargeIsAnError", "office:value-type='float' office:value='1E400'", "",                             "#NUM!"},
    {"Percentage",             "office:value-type='percentage' office:value='0.12'", "<text:p>12%</text:p>",       "0.12"},
    {"Currency",               "office:value-type='currency' office:value='2.5'", "",                              "2.5"},
    {"Truth",                  "office:value-type='boolean' office:boolean-value='true'", "",                      "TRUE"},
    {"Date",                   "office:value-type='date' office:date-value='2020-03-01'", "",                      "43891"},
    {"DateWithTime",           "office:value-type='date' office:date-value='2020-03-01T12:00:00.000000000'", "",   "43891.5"},
    {"DateOfTheFirstDay",      "office:value-type='date' office:date-value='1899-12-30'", "",                      "0"},
    {"DateBeforeTheFirstDay",  "office:value-type='date' office:date-value='1899-12-29'", "",                      "-1"},
    {"Time",                   "office:value-type='time' office:time-value='PT06H00M00S'", "",                     "0.25"},
    {"TimeBeyondADay",         "office:value-type='time' office:time-value='PT30H00M00S'", "",                     "1.25"},
    {"TimeWithDays",           "office:value-type='time' office:time-value='-P1DT12H'", "",                        "-1.5"},
    {"Text",                   "office:value-type='string'", "<text:p>a</text:p>",                                 "\"a\""},
    {"TextInTheAttribute",     "office:value-type='string' office:string-value='b'", "<text:p>shown</text:p>",     "\"b\""},
    {"TextOfParagraphs",       "office:value-type='string'", "<text:p>a</text:p><text:p/><text:p>b</text:p>",      "\"a\n\nb\""},
    {"TextWithSpansAndLinks",  "office:value-type='string'", "<text:p>a<text:span>b<text:a>c</text:a></text:span>d</text:p>", "\"abcd\""},
    {"TextWithBlanksMeant",    "office:value-type='string'", "<text:p><text:s text:c='3'/>a<text:s/>b<text:tab/>c<text:line-break/>d</text:p>", "\"   a b\tc\nd\""},
    {"TextWithBlanksWritten",  "office:value-type='string'", "<text:p>a  b </text:p>",                             "\"a  b \""},
    {"TextThatWasIndented",    "office:value-type='string'", "<text:p>\n  a\n  b\n</text:p>",                      "\"a b\""},
    {"TextWithoutPhonetic",    "office:value-type='string'", "<text:p><text:ruby><text:ruby-base>a</text:ruby-base><text:ruby-text>b</text:ruby-text></text:ruby></text:p>", "\"a\""},
    {"TextBesideAnAnnotation", "office:value-type='string'", "<office:annotation><text:p>note</text:p></office:annotation><text:p>a</text:p>", "\"a\""},
    {"AnnotationAlone",        "", "<office:annotation><text:p>note</text:p></office:annotation>",                 ""},
    {"FormulaWithResult",      "table:formula='of:=1+1' office:value-type='float' office:value='2'", "",           "2"},
    {"FormulaWithEmptyText",   "table:formula='of:=\"\"'", "<text:p/>",                                            "\"\""},
    {"FormulaWithoutResult",   "table:formula='of:=1+1'", "",                                                      "uncalculated"},
    {"ErrorNamedAsOne",        "table:formula='of:=1/0' office:value-type='string' office:string-value='' calcext:value-type='error'", "<text:p>#DIV/0!</text:p>", "#DIV/0!"},
    {"ErrorByItsNumber",       "table:formula='of:=1' office:value-type='string' calcext:value-type='error'", "<text:p>Err:503</text:p>", "#NUM!"},
    {"ErrorShownByAFormula",   "table:formula='of:=1/0' office:value-type='string' office:string-value='#DIV/0!'", "<text:p>#DIV/0!</text:p>", "#DIV/0!"},
    {"ErrorOfOldPrograms",     "table:formula='of:=NA()' office:value-type='float' office:value='0'", "<text:p>#N/A</text:p>", "#N/A"},
    {"ErrorAsAConstant",       "gnm:error-value='#N/A' office:value-type='string' office:string-value='#N/A'", "<text:p>#N/A</text:p>", "#N/A"},
    {"ErrorOfOldProgramsInGerman", "table:formula='of:=NA()' office:value-type='float' office:value='0'", "<text:p>#NV</text:p>", "#N/A"},
    {"ErrorOfOldProgramsInSpanish", "table:formula='of:=1+a' office:value-type='float' office:value='0'", "<text:p>#¡VALOR!</text:p>", "#VALUE!"},
    {"ErrorOfOldProgramsInRussian", "table:formula='of:=1/0' office:value-type='float' office:value='0'", "<text:p>#ДЕЛ/0!</text:p>", "#VALUE!"},
    {"ErrorOfOldProgramsByNumber", "table:formula='of:=1/0' office:value-type='float' office:value='0'", "<text:p>Fehler:502</text:p>", "#VALUE!"},
    {"ErrorOfOldProgramsAsADate", "table:formula='of:=NA()' office:value-type='date' office:date-value='1899-12-30'", "<text:p>#NV</text:p>", "#N/A"},
    {"ErrorOfOldProgramsAsATruth", "table:formula='of:=NA()' office:value-type='boolean' office:boolean-value='false'", "<text:p>#NV</text:p>", "#N/A"},
    {"ErrorNamedInGerman",     "table:formula='of:=NA()' office:value-type='string' office:string-value='' calcext:value-type='error'", "<text:p>#NV</text:p>", "#N/A"},
    {"ZeroShownWithANumberSign", "table:formula='of:=0' office:value-type='float' office:value='0'", "<text:p>#0</text:p>", "0"},
    {"ZeroShownAsANumberSign", "table:formula='of:=0' office:value-type='float' office:value='0'", "<text:p>#</text:p>", "0"},
    {"ZeroInTooNarrowAColumn", "table:formula='of:=0' office:value-type='float' office:value='0'", "<text:p>###</text:p>", "0"},
    {"ZeroAsATime",            "table:formula='of:=0' office:value-type='time' office:time-value='PT00H00M00S'", "<text:p>00:00</text:p>", "0"},
    {"NumberShownBehindANumberSign", "table:formula='of:=2' office:value-type='float' office:value='2'", "<text:p>#WERT 2</text:p>", "2"},
    {"ZeroThatIsNoFormula",    "office:value-type='float' office:value='0'", "<text:p>#NV</text:p>",            "0"},
    {"TextThatLooksLikeAnError", "office:value-type='string'", "<text:p>#N/A</text:p>",                            "\"#N/A\""},
    {"Nothing",                "", "",                                                                             ""},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(All, OdsCells, testing::ValuesIn(odsCellCases),
                         [](const auto& test) { return std::string(test.param.name); });

class OdsCellsUnreadable : public testing::TestWithParam<OdsCase> {};

TEST_P(OdsCellsUnreadable, WaitUntilTheyAreTouchedAndSayWhy) {
    const FileContents contents = contentsOf(rowWith(GetParam()));
    EXPECT_EQ(shownCells(contents.sheets.at(0).cells), "A1=unreadable");
    ASSERT_EQ(contents.sheets[0].unreadable.size(), 1U);
    EXPECT_THAT(contents.sheets[0].unreadable.at({1, 1}), testing::HasSubstr(GetParam().shown));
}

// clang-format off
const OdsCase odsUnreadableCases[] = {
    {"NumberMissing",   "office:value-type='float'", "",                                  "\"\" is no value of the type float"},
    {"NotANumber",      "office:value-type='float' office:value='NaN'", "",               "\"NaN\" is no value of the type float"},
    {"NoDay",           "office:value-type='date' office:date-value='2021-02-29'", "",    "is no value of the type date"},
    {"NoDuration",      "office:value-type='time' office:time-value='06:00'", "",         "is no value of the type time"},
    {"NoTruth",         "office:value-type='boolean' office:boolean-value='yes'", "",     "is no value of the type boolean"},
    {"NumberEmpty",     "office:value-type='float' office:value=''", "",                  "\"\" is no value of the type float"},
    {"TheDayThatNeverWas", "office:value-type='date' office:date-value='1900-02-29'", "",  "\"1900-02-29\" is no value of the type date"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(All, OdsCellsUnreadable, testing::ValuesIn(odsUnreadableCases),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(OdsCellsRepeated, ThatCannotBeReadAreAllMarked) {
    const FileContents contents = contentsOf(
        "<table:table-row table:number-rows-repeated='2'><table:table-cell office:value-type='float' "
        "office:value='' table:number-columns-repeated='2'/></table:table-row>");
    EXPECT_EQ(shownCells(contents.sheets[0].cells),
              "A1=unreadable B1=unreadable A2=unreadable B2=unreadable");
}

class OdsCellsRefused : public testing::TestWithParam<OdsCase> {};

TEST_P(OdsCellsRefused, AreNamed) {
    expectRefused([] { (void)odsCellsOf(rowWith(GetParam())); }, GetParam().shown);
}

// clang-format off
const OdsCase odsRefusedCases[] = {
    {"TooManyColumns",  "table:number-columns-repeated='16385' office:value-type='float' office:value='1'", "", "filled cells beyond column 16384"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(All, OdsCellsRefused, testing::ValuesIn(odsRefusedCases),
                         [](const auto& test) { return std::string(test.param.name); });

std::string filled(const std::string& value, const std::string& more = "") {
    return "<table:table-cell office:value-type='float' office:value='" + value + "' " + more + "/>";
}

std::string row(const std::string& cells, const std::string& more = "") {
    return "<table:table-row " + more + ">" + cells + "</table:table-row>";
}

TEST(OdsRepeats, StandForThatManyCellsAndRows) {
    EXPECT_EQ(odsCellsOf(row(filled("1", "table:number-columns-repeated='2'") + filled("2"),
                             "table:number-rows-repeated='2'") +
                         row(filled("3"))),
              "A1=1 B1=1 C1=2 A2=1 B2=1 C2=2 A3=3");
}

TEST(OdsRepeats, OfNothingCostNothing) {
    const FileContents contents =
        contentsOf(row("<table:table-cell table:number-columns-repeated='16383'/>" + filled("1"),
                       "table:number-rows-repeated='1'") +
                   row("<table:table-cell table:number-columns-repeated='16384'/>",
                       "table:number-rows-repeated='1048575'"));
    EXPECT_EQ(shownCells(contents.sheets[0].cells), "XFD1=1");
    EXPECT_LT(contents.sheets[0].cells.memory(), 1U << 20U);
}

TEST(OdsRepeats, OfNothingMayReachBeyondTheSheet) {
    EXPECT_EQ(odsCellsOf(row("<table:table-cell table:number-columns-repeated='99999999999999999999'/>",
                             "table:number-rows-repeated='99999999999999999999'")),
              "");
}

TEST(OdsRepeats, OfValuesEndWithTheSheet) {
    EXPECT_EQ(
        odsCellsOf(row("<table:table-cell/>", "table:number-rows-repeated='1048575'") + row(filled("1"))),
        "A1048576=1");
    expectRefused([] { (void)odsCellsOf(row(filled("1"), "table:number-rows-repeated='1048577'")); },
                  "row 1048577 lies outside a sheet");
}

TEST(OdsRepeats, OfValuesWithoutEndAreRefused) {
    expectRefused(
        [] {
            (void)odsCellsOf(row(filled("1", "table:number-columns-repeated='16384'"),
                                 "table:number-rows-repeated='1048576'"));
        },
        "cells that stand for more than 16777216 filled cells");
}

TEST(OdsRows, MayStandInGroups) {
    EXPECT_EQ(odsCellsOf("<table:table-header-rows>" + row(filled("1")) +
                         "</table:table-header-rows><table:table-row-group><table:table-rows>" +
                         row(filled("2")) + "</table:table-rows></table:table-row-group>" + row(filled("3"))),
              "A1=1 A2=2 A3=3");
}

TEST(OdsRows, HoldCoveredCellsToo) {
    EXPECT_EQ(odsCellsOf(row(filled("1") +
                             "<table:covered-table-cell/>"
                             "<table:covered-table-cell office:value-type='float' office:value='2'/>")),
              "A1=1 C1=2");
}

TEST(OdsDates, CountFromTheDayThatTheFileNames) {
    EXPECT_EQ(odsCellsOf(row("<table:table-cell office:value-type='date' office:date-value='1904-01-02'/>"),
                         "<table:calculation-settings><table:null-date table:date-value='1904-01-01'/>"
                         "</table:calculation-settings>"),
              "A1=1");
}

TEST(OdsParts, MayHaveOtherPrefixesForTheirNamespaces) {
    PartTexts parts = odsParts(row(filled("1") + "<table:table-cell office:value-type='string'><text:p>a"
                                                 "</text:p></table:table-cell>"));
    std::string& content = parts["content.xml"];
    for (const auto& [prefix, other] : {std::pair("office", "o"), std::pair("table", "t")}) {
        content = replaced(content, "<"s + prefix + ':', "<"s + other + ':');
        content = replaced(content, "</"s + prefix + ':', "</"s + other + ':');
        content = replaced(content, " "s + prefix + ':', " "s + other + ':');
        content = replaced(content, "xmlns:"s + prefix + '=', "xmlns:"s + other + '=');
    }
    content = replaced(content, "<text:p>", "<p xmlns='urn:oasis:names:tc:opendocument:xmlns:text:1.0'>");
    content = replaced(content, "</text:p>", "</p>");
    EXPECT_EQ(shownCells(readOds(TextParts(parts)).sheets.at(0).cells), "A1=1 B1=\"a\"");
}

TEST(OdsParts, OfOtherNamespacesAreNoCells) {
    EXPECT_EQ(odsCellsOf(row("<table-cell xmlns='urn:other' office:value-type='float' office:value='9'/>" +
                             filled("1"))),
              "A1=1");
}

TEST(OdsParts, MayBeUtf16) {
    for (const bool bigEndian : {false, true}) {
        PartTexts parts =
            odsParts(row("<table:table-cell office:value-type='string'><text:p>x&#228;</text:p>"
                         "</table:table-cell>"));
        parts["content.xml"] =
            utf16("<?xml version='1.0' encoding='UTF-16'?>" + parts["content.xml"], bigEndian);
        EXPECT_EQ(shownCells(readOds(TextParts(parts)).sheets.at(0).cells), "A1=\"x\xC3\xA4\"");
    }
}

TEST(OdsSheets, AreAllReadButCopiesOfOtherFiles) {
    const FileContents contents =
        contentsOf(row(filled("1")) +
                   "</table:table><table:table table:name='2020/21: a name of more than thirty "
                   "characters' table:style-name='gone'>" +
                   row(filled("2")) + "</table:table><table:table table:name=\"'file:///a.ods'#$Sheet1\">" +
                   row(filled("3")));
    ASSERT_EQ(contents.sheets.size(), 2U);
    EXPECT_FALSE(contents.sheets[0].hidden);
    EXPECT_EQ(contents.sheets[1].name, "2020/21: a name of more than thirty characters");
    EXPECT_TRUE(contents.sheets[1].hidden);
    EXPECT_EQ(shownCells(contents.sheets[1].cells), "A1=2");
}

TEST(OdsSheets, WithOldContentsOfTrackedChangesAreReadWithoutThem) {
    EXPECT_EQ(odsCellsOf(row(filled("1")), "<table:tracked-changes><table:table table:name='x'>" +
                                               row(filled("9")) + "</table:table></table:tracked-changes>"),
              "A1=1");
}

TEST(OdsSheets, OnTopIsTheOneThatTheSettingsName) {
    PartTexts parts = odsParts(row(filled("1")) + "</table:table><table:table table:name='Other'>");
    parts["settings.xml"] =
        "<office:document-settings xmlns:office='urn:oasis:names:tc:opendocument:xmlns:office:1.0' "
        "xmlns:config='urn:oasis:names:tc:opendocument:xmlns:config:1.0'><office:settings><config:config-"
        "item-set>"
        "<config:config-item config:name='ActiveTable'>Other</config:config-item>"
        "<config:config-item "
        "config:name='After'>x</config:config-item></config:config-item-set></office:settings>"
        "</office:document-settings>";
    EXPECT_EQ(readOds(TextParts(parts)).active, 1U);
    parts["settings.xml"].replace(parts["settings.xml"].find("Other"), 5, "Gone!");
    EXPECT_EQ(readOds(TextParts(parts)).active, 0U);
}

TEST(OdsFiles, ThatAreEncryptedAreNamedAsThat) {
    PartTexts parts = odsParts(row(filled("1")));
    parts["META-INF/manifest.xml"] = "<!DOCTYPE x><manifest:encryption-data/>";
    expectRefused([&] { (void)readOds(TextParts(parts)); }, "it is encrypted");
}

}  // namespace
}  // namespace TBVNonPara::workbook
