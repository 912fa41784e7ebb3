#include <gtest/gtest.h>

#include "tbvnonpara/files/reading/spreadsheet_file.hpp"
#include "tbvnonpara/files/xlsx/reader.hpp"
#include "tbvnonpara/files/xlsx/relationships.hpp"
#include "tbvnonpara/files/xlsx/workbook.hpp"
#include "tests/files/text_parts.hpp"
#include "tests/files/workbooks.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

const std::string one = "<row r='1'><c r='A1'><v>1</v></c></row>";

std::string firstSheet(const PartTexts& parts) {
    return shownCells(readXlsx(TextParts(parts)).sheets.at(0).cells);
}

TEST(XlsxTargets, AreRelativeToThePartOrToThePackage) {
    EXPECT_EQ(resolvedTarget("xl/workbook.xml", "worksheets/sheet1.xml"), "xl/worksheets/sheet1.xml");
    EXPECT_EQ(resolvedTarget("xl/workbook.xml", "/xl/worksheets/sheet1.xml"), "xl/worksheets/sheet1.xml");
    EXPECT_EQ(resolvedTarget("xl/workbook.xml", "./a/../sheet1.xml#x"), "xl/sheet1.xml");
    EXPECT_EQ(resolvedTarget("xl/workbook.xml", "../other\\sheet1.xml"), "other/sheet1.xml");
    EXPECT_EQ(resolvedTarget("xl/workbook.xml", "../../../etc/passwd"), "etc/passwd");
    EXPECT_EQ(resolvedTarget("", "xl/workbook.xml"), "xl/workbook.xml");
}

TEST(XlsxTargets, FindTheSheet) {
    for (const char* const target :
         {"/xl/worksheets/sheet1.xml", "./worksheets/sheet1.xml", "worksheets\\sheet1.xml"}) {
        PartTexts parts = xlsxParts(one);
        std::string& text = parts["xl/_rels/workbook.xml.rels"];
        text = replaced(text, "worksheets/sheet1.xml", target);
        EXPECT_EQ(firstSheet(parts), "A1=1") << target;
    }
}

TEST(XlsxTargets, MayBeEscapedLikeAddresses) {
    PartTexts parts = xlsxParts(one);
    std::string& text = parts["xl/_rels/workbook.xml.rels"];
    text = replaced(text, "sheet1.xml", "my%20sheet.xml");
    parts["xl/worksheets/my sheet.xml"] = parts["xl/worksheets/sheet1.xml"];
    EXPECT_EQ(firstSheet(parts), "A1=1");
}

TEST(XlsxTargets, OutsideTheFileAreNotFollowed) {
    PartTexts parts = xlsxParts(one);
    std::string& text = parts["xl/_rels/workbook.xml.rels"];
    text = replaced(text, "Target='worksheets", "TargetMode='External' Target='worksheets");
    EXPECT_TRUE(readXlsx(TextParts(parts)).sheets.empty());
}

TEST(XlsxTargets, MayLeadToAWorkbookOfAnotherName) {
    PartTexts parts = xlsxParts(one);
    parts["_rels/.rels"] = replaced(parts["_rels/.rels"], "xl/workbook.xml", "/xl/book2.xml");
    parts["xl/book2.xml"] = parts.extract("xl/workbook.xml").mapped();
    parts["xl/_rels/book2.xml.rels"] = parts.extract("xl/_rels/workbook.xml.rels").mapped();
    EXPECT_TRUE(isXlsx(TextParts(parts)));
    EXPECT_EQ(firstSheet(parts), "A1=1");
}

TEST(XlsxParts, MayHavePrefixesForTheirNamespaces) {
    PartTexts parts = xlsxParts(one);
    std::string& sheet = parts["xl/worksheets/sheet1.xml"];
    sheet = replaced(replaced(replaced(sheet, "</", "<!"), "<", "<x:"), "<x:!", "</x:");
    sheet = replaced(sheet, "xmlns=", "xmlns:x=");
    EXPECT_EQ(firstSheet(parts), "A1=1");
}

TEST(XlsxParts, OfOtherNamespacesAreNoCells) {
    EXPECT_EQ(firstSheet(xlsxParts(
                  "<row r='1'><c xmlns='urn:other' r='A1'><v>1</v></c><c r='B1'><v>2</v></c></row>")),
              "B1=2");
    PartTexts parts = xlsxParts(one);
    std::string& sheet = parts["xl/worksheets/sheet1.xml"];
    sheet = replaced(sheet, spreadsheetNamespace, "urn:other");
    expectRefused([&] { (void)firstSheet(parts); }, "this is no worksheet, but <worksheet>");
}

TEST(XlsxParts, MayBeStrict) {
    PartTexts parts = xlsxParts("<row r='1'><c r='A1' t='d'><v>2020-03-01</v></c></row>");
    for (auto& [name, text] : parts) {
        text = replaced(text, spreadsheetNamespace, "http://purl.oclc.org/ooxml/spreadsheetml/main");
        text = replaced(text, "http://schemas.openxmlformats.org/officeDocument/2006/relationships",
                        "http://purl.oclc.org/ooxml/officeDocument/relationships");
    }
    EXPECT_EQ(firstSheet(parts), "A1=43891");
}

TEST(XlsxParts, MayBeUtf16) {
    for (const bool bigEndian : {false, true}) {
        PartTexts parts = xlsxParts("<row r='1'><c r='A1' t='s'><v>0</v></c></row>", "<si><t>x</t></si>");
        for (auto& [name, text] : parts) {
            text = utf16(std::string("<?xml version='1.0' encoding='UTF-16'?>").append(text), bigEndian);
        }
        EXPECT_EQ(firstSheet(parts), "A1=\"x\"");
    }
}

/// A workbook with the sheets "Data", hidden as said, and "Other", and a view.
FileContents twoSheets(const std::string& state, const std::string& view,
                       const std::string& kind = "worksheet") {
    PartTexts parts = xlsxParts(one);
    std::string& workbook = parts["xl/workbook.xml"];
    workbook = replaced(workbook, "<sheets>", "<bookViews>" + view + "</bookViews><sheets>");
    workbook =
        replaced(workbook, "r:id='b'/>", state + " r:id='b'/><sheet name='Other' sheetId='9' r:id='d'/>");
    std::string& text = parts["xl/_rels/workbook.xml.rels"];
    text = replaced(
        text, "</Relationships>",
        "<Relationship Id='d' Type='urn:x/" + kind + "' Target='worksheets/sheet2.xml'/></Relationships>");
    parts["xl/worksheets/sheet2.xml"] = replaced(parts["xl/worksheets/sheet1.xml"], "<v>1<", "<v>2<");
    return readXlsx(TextParts(parts));
}

TEST(XlsxSheets, AreAllReadHiddenOnesAsWell) {
    const FileContents contents = twoSheets("state='veryHidden'", "");
    ASSERT_EQ(contents.sheets.size(), 2U);
    EXPECT_TRUE(contents.sheets[0].hidden);
    EXPECT_EQ(shownCells(contents.sheets[0].cells), "A1=1");
    EXPECT_EQ(shownCells(contents.sheets[1].cells), "A1=2");
}

TEST(XlsxSheets, OnTopIsTheOneOfTheFirstViewThatCanBeSeen) {
    EXPECT_EQ(twoSheets("", "").active, 0U);
    EXPECT_EQ(twoSheets("", "<workbookView activeTab='1'/><workbookView activeTab='0'/>").active, 1U);
    EXPECT_EQ(twoSheets("state='hidden'", "<workbookView activeTab='0'/>").active, 1U);
    EXPECT_EQ(twoSheets("", "<workbookView activeTab='7'/>").active, 0U);
    EXPECT_EQ(twoSheets("", "<workbookView activeTab='1'/>", "chartsheet").active, 0U);
}

TEST(XlsxSheets, HaveNamesOfAnyKind) {
    PartTexts parts = xlsxParts(one);
    std::string& workbook = parts["xl/workbook.xml"];
    workbook = replaced(workbook, "'Data'", "'&lt;a&gt; &amp; &quot;b&quot; 2020_x002F_21 &#228;'");
    EXPECT_EQ(readXlsx(TextParts(parts)).sheets.at(0).name, "<a> & \"b\" 2020/21 \xC3\xA4");
}

TEST(XlsxSheets, CountDaysFrom1904WhereTheWorkbookSaysSo) {
    PartTexts parts = xlsxParts("<row r='1'><c r='A1' t='d'><v>1904-01-02</v></c></row>");
    std::string& workbook = parts["xl/workbook.xml"];
    workbook = replaced(workbook, "<sheets>", "<workbookPr date1904='true'/><sheets>");
    EXPECT_EQ(firstSheet(parts), "A1=1");
}

TEST(XlsxSheets, WithoutSharedTextsNeedNoPartForThem) {
    PartTexts parts = xlsxParts(one);
    parts.erase("xl/sharedStrings.xml");
    EXPECT_EQ(firstSheet(parts), "A1=1");
}

TEST(XlsxSheets, WithoutAPartAreLeftOut) {
    PartTexts parts = xlsxParts(one);
    std::string& workbook = parts["xl/workbook.xml"];
    workbook = replaced(workbook, "<sheets>",
                        "<sheets><sheet name='None' sheetId='7'/><sheet name='Gone' sheetId='8' r:id='zz'/>");
    EXPECT_EQ(readXlsx(TextParts(parts)).sheets.size(), 1U);
    EXPECT_EQ(firstSheet(parts), "A1=1");
    parts.erase("xl/worksheets/sheet1.xml");
    EXPECT_TRUE(readXlsx(TextParts(parts)).sheets.empty());
}

TEST(XlsxParts, MayHaveBackslashesInTheirNames) {
    PartTexts parts;
    for (const auto& [name, text] : xlsxParts(one)) {
        parts[replaced(name, "/", "\\")] = text;
    }
    EXPECT_EQ(shownCells(readSpreadsheetBytes(zipped(parts)).sheets.at(0).cells), "A1=1");
}

}  // namespace
}  // namespace TBVNonPara::workbook
