// Whatever is done to a file, reading it ends with its cells or with a message.

#include <random>

#include "tbvnonpara/files/reading/spreadsheet_file.hpp"
#include "tests/files/workbooks.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

/// True when the bytes are refused with a message, false when they are read; anything else is a failure.
bool isRefused(std::string_view bytes) {
    try {
        (void)readSpreadsheetBytes(bytes);
        return false;
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), hostErrorNumber) << error.description();
        EXPECT_FALSE(error.description().empty());
        return true;
    }
}

std::string repeated(const std::string& text, std::size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

std::string withSheet(const std::string& sheet) {
    PartTexts parts = xlsxParts("");
    parts["xl/worksheets/sheet1.xml"] = sheet;
    return zipped(parts);
}

std::string withContent(const std::string& content) {
    PartTexts parts = odsParts("");
    parts["content.xml"] = content;
    return zipped(parts);
}

class Damaged : public testing::TestWithParam<const char*> {};

TEST_P(Damaged, TruncatedAtEachTenthIsRefused) {
    const std::string whole = bytesOf(madeFile(GetParam()));
    for (std::size_t tenth = 0; tenth < 10; ++tenth) {
        EXPECT_TRUE(isRefused(std::string_view(whole).substr(0, whole.size() * tenth / 10))) << tenth;
    }
    EXPECT_FALSE(isRefused(whole));
}

TEST_P(Damaged, WithFlippedBitsIsRefusedOrRead) {
    const std::string whole = bytesOf(madeFile(GetParam()));
    std::mt19937 random(20260101);
    for (int i = 0; i < 400; ++i) {
        std::string flipped = whole;
        for (int flips = 0; flips < 1 + i % 4; ++flips) {
            char& byte = flipped[random() % flipped.size()];
            byte = static_cast<char>(static_cast<unsigned char>(byte) ^ (1U << (random() % 8)));
        }
        (void)isRefused(flipped);
    }
}

TEST_P(Damaged, WithBitsFlippedInsideAPartIsAlwaysRefused) {
    // A local header is 30 bytes long, and the part's name follows it.
    const std::string name =
        std::string(GetParam()).ends_with(".ods") ? "content.xml" : "xl/worksheets/sheet1.xml";
    const std::string whole = bytesOf(madeFile(GetParam()));
    const std::size_t packed = whole.find(name) + name.size() + 100;
    for (std::size_t bit = 0; bit < 8; ++bit) {
        std::string flipped = whole;
        flipped[packed] = static_cast<char>(static_cast<unsigned char>(flipped[packed]) ^ (1U << bit));
        EXPECT_TRUE(isRefused(flipped)) << bit;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Damaged, writersFiles, testNameOf);

TEST(DamagedParts, WithAWrongChecksumAreRefused) {
    std::string bytes = withSheet("<worksheet xmlns='" + spreadsheetNamespace + "'/>");
    // The checksum of each part stands 16 bytes behind its entry in the list at the end.
    const std::size_t name = bytes.rfind("xl/worksheets/sheet1.xml");
    bytes[name - 46 + 16] = static_cast<char>(bytes[name - 46 + 16] + 1);
    expectRefused([&] { (void)readSpreadsheetBytes(bytes); },
                  "part xl/worksheets/sheet1.xml is damaged: its checksum is wrong");
}

TEST(DamagedParts, OfAnotherKindAreRefused) {
    // An empty element ends although its start was refused.
    for (const char* const other : {"<html/>", "<html><body/></html>"}) {
        expectRefused([&] { (void)readSpreadsheetBytes(withSheet(other)); },
                      "this is no worksheet, but <html>");
        expectRefused([&] { (void)readSpreadsheetBytes(withContent(other)); },
                      "this is no content of a document, but <html>");
    }
}

TEST(DamagedParts, OfInvalidUtf8AreRefused) {
    for (const char* const bad : {"\xFF", "\xC0\xAF", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xC3"}) {
        expectRefused(
            [&] {
                (void)readSpreadsheetBytes(
                    zipped(xlsxParts("<row><c t='str'><v>" + std::string(bad) + "</v></c></row>")));
            },
            "not well-formed (invalid token)");
        expectRefused(
            [&] {
                (void)readSpreadsheetBytes(
                    zipped(odsParts("<table:table-row><table:table-cell office:value-type='string'><text:p>" +
                                    std::string(bad) + "</text:p></table:table-cell></table:table-row>")));
            },
            "part content.xml, line 1, column ");
    }
}

TEST(DamagedParts, ThatEndTooEarlyAreRefused) {
    expectRefused(
        [] {
            (void)readSpreadsheetBytes(
                withSheet("<worksheet xmlns='" + spreadsheetNamespace + "'><sheetData>"));
        },
        "part xl/worksheets/sheet1.xml, line 1, column ");
    expectRefused([] { (void)readSpreadsheetBytes(withSheet("")); }, "no element found");
}

TEST(HarmfulParts, ThatUnpackToFarMoreThanTheirSizeAreRefused) {
    const std::string blanks(std::size_t(200) << 20U, ' ');
    expectRefused(
        [&] {
            (void)readSpreadsheetBytes(
                withSheet("<worksheet xmlns='" + spreadsheetNamespace + "'>" + blanks));
        },
        "far more than a file of its size holds");
    expectRefused([&] { (void)readSpreadsheetBytes(withContent(blanks)); },
                  "far more than a file of its size holds");
}

TEST(HarmfulParts, WithADocumentTypeAreRefused) {
    const std::string bomb =
        "<!DOCTYPE x [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b "
        "'&a;&a;&a;&a;&a;&a;&a;&a;'>]><worksheet>&b;</worksheet>";
    expectRefused([&] { (void)readSpreadsheetBytes(withSheet(bomb)); }, "a document type");
    expectRefused([&] { (void)readSpreadsheetBytes(withContent(bomb)); }, "a document type");
    expectRefused(
        [] { (void)readSpreadsheetBytes(withSheet("<!DOCTYPE x SYSTEM 'file:///etc/passwd'><worksheet/>")); },
        "a document type");
}

TEST(HarmfulParts, WithEntitiesThatNobodyDeclaredAreRefused) {
    expectRefused(
        [] { (void)readSpreadsheetBytes(zipped(xlsxParts("<row><c t='str'><v>&x;</v></c></row>"))); },
        "undefined entity");
}

TEST(HarmfulParts, OfTwoHundredThousandLevelsAreRefused) {
    const std::string deep = repeated("<a>", 200'000);
    expectRefused(
        [&] {
            (void)readSpreadsheetBytes(withSheet("<worksheet xmlns='" + spreadsheetNamespace + "'>" + deep));
        },
        "elements nested more than 256 deep");
    expectRefused(
        [&] { (void)readSpreadsheetBytes(zipped(odsParts(repeated("<table:table-row-group>", 200'000)))); },
        "elements nested more than 256 deep");
}

TEST(HarmfulParts, OfNamesWithoutEndAreRefused) {
    std::string names = "<worksheet xmlns='" + spreadsheetNamespace + "'>";
    for (int i = 0; i < 300'000; ++i) {
        names.append("<a").append(std::to_string(i)).append(" b").append(std::to_string(i)).append("='1'/>");
    }
    expectRefused([&] { (void)readSpreadsheetBytes(withSheet(names)); }, "tags or names of many megabytes");
}

TEST(HarmfulParts, OfOneEndlessTagAreRefused) {
    expectRefused(
        [] {
            (void)readSpreadsheetBytes(withSheet("<worksheet a='" + std::string(40U << 20U, 'x') + "'/>"));
        },
        "tags or names of many megabytes");
}

TEST(HarmfulParts, OfNamespacesWithoutEndAreRefused) {
    std::string names = "<worksheet xmlns='" + spreadsheetNamespace + "'";
    for (int i = 0; i < 2000; ++i) {
        names.append(" xmlns:a").append(std::to_string(i)).append("='urn:x'");
    }
    expectRefused([&] { (void)readSpreadsheetBytes(withSheet(names + "/>")); }, "more than 1000 namespaces");
}

TEST(HarmfulParts, OfOneEndlessTextAreRefused) {
    // Half of it must not compress too well.
    std::mt19937 random(7);
    std::string text(std::size_t(20) << 20U, 'x');
    for (char& c : text) {
        c = static_cast<char>('a' + random() % 26);
    }
    expectRefused(
        [&] {
            (void)readSpreadsheetBytes(zipped(xlsxParts("<row><c t='str'><v>" + text + "</v></c></row>")));
        },
        "a text of more than 16 MiB in one cell");
}

TEST(HarmfulParts, OfCellsScatteredOverTheWholeSheetAreRefused) {
    std::string rows;
    for (int row = 1024; row <= 1048576; row += 1024 * 64) {
        rows += "<row r='" + std::to_string(row) + "'>";
        rows += repeated("<c><v>1</v></c>", 16384);
        rows += "</row>";
    }
    expectRefused([&] { (void)readSpreadsheetBytes(zipped(xlsxParts(rows))); }, "cells scattered so widely");
}

TEST(HarmfulParts, ThatAskForTheSameSheetAgainAndAgainAreRefused) {
    PartTexts parts = xlsxParts("");
    std::string& workbook = parts["xl/workbook.xml"];
    std::string sheets;
    for (int i = 0; i < 5000; ++i) {
        sheets.append("<sheet name='s").append(std::to_string(i)).append("' r:id='b'/>");
    }
    workbook.insert(workbook.find("</sheets>"), sheets);
    expectRefused([&] { (void)readSpreadsheetBytes(zipped(parts)); }, "more than 4096 sheets");
}

TEST(HarmfulParts, WithDimensionsThatAreNotTrueAreReadAsTheyAre) {
    PartTexts parts = xlsxParts("<row r='1'><c r='A1'><v>1</v></c></row>", "<si><t>x</t></si>");
    std::string& sheet = parts["xl/worksheets/sheet1.xml"];
    sheet.insert(sheet.find("<sheetData>"), "<dimension ref='A1:ZZZ99999999999'/>");
    std::string& texts = parts["xl/sharedStrings.xml"];
    texts.insert(texts.find('>'), " count='99999999999' uniqueCount='4294967295'");
    EXPECT_EQ(shownCells(readSpreadsheetBytes(zipped(parts)).sheets.at(0).cells), "A1=1");
}

}  // namespace
}  // namespace TBVNonPara::workbook
