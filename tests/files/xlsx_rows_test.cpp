#include <gtest/gtest.h>
#include <random>

#include "tbvnonpara/files/xlsx/plain_rows.hpp"
#include "tbvnonpara/files/xlsx/reader.hpp"
#include "tests/files/text_parts.hpp"
#include "tests/files/workbooks.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara::workbook {
namespace {

const std::string sharedTexts = "<si><t>zero</t></si><si><t>one</t></si>";

/// All cells of a sheet with these rows, or why it is refused. A blank in the tag before the rows leaves them
/// all to the parser.
std::string readAs(const std::string& tag, const std::string& rows) {
    PartTexts parts = xlsxParts("\n" + rows, sharedTexts);
    for (auto& [name, text] : parts) {
        if (const std::size_t found = text.find("<sheetData>"); found != std::string::npos) {
            text.replace(found, std::string_view("<sheetData>").size(), tag);
        }
    }
    std::string read;
    const Support::Raised raised =
        Support::raisedBy([&] { read = shownCells(readXlsx(TextParts(parts)).sheets.at(0).cells); });
    return raised.number == 0 ? read : std::to_string(raised.number) + ": " + raised.description;
}

void expectSame(const std::string& rows) {
    EXPECT_EQ(readAs("<sheetData>", rows), readAs("<sheetData >", rows)) << rows;
}

struct TakenCase {
    const char* name;
    std::string row;
    bool isTaken;
    friend void PrintTo(const TakenCase& each, std::ostream* out) { *out << each.row; }
};

class PlainRowsOf : public testing::TestWithParam<TakenCase> {};

TEST_P(PlainRowsOf, AreThoseOfTheUsualKind) {
    PlainRows rows;
    EXPECT_EQ(rows.take(GetParam().row + "<row r=\"9\">"), GetParam().isTaken ? GetParam().row.size() : 0U);
    expectSame(GetParam().row);
}

// clang-format off
const TakenCase takenCases[] = {
    {"Numbers",              R"(<row r="1"><c r="A1"><v>1</v></c><c r="B1"><v>-2.5</v></c></row>)",                       true},
    {"LongNumbers",          R"(<row r="1"><c r="A1"><v>0.30000000000000004</v></c><c r="B1"><v>1.5E-7</v></c></row>)",   true},
    {"OfSpreadsheets",       R"(<row r="1" spans="1:2" x14ac:dyDescent="0.25"><c r="A1" s="2"><v>1</v></c></row>)",       true},
    {"OfAnOffice",           R"(<row r="1" customFormat="false" ht="12.8" hidden="false" customHeight="false" outlineLevel="0" collapsed="false"><c r="A1" s="0" t="n"><v>1</v></c></row>)", true},
    {"SharedTexts",          R"(<row r="1"><c r="A1" t="s"><v>0</v></c><c r="B1" s="1" t="s"><v>1</v></c></row>)",        true},
    {"WithoutReferences",    R"(<row><c><v>1</v></c><c r="D1"><v>2</v></c><c><v>3</v></c></row>)",                        true},
    {"EmptyCells",           R"(<row r="3"><c r="A3" s="1"/><c r="B3"><v></v></c></row>)",                                true},
    {"EmptyRow",             R"(<row r="3" spans="1:2"/>)",                                                               true},
    {"RowWithoutCells",      R"(<row r="3"></row>)",                                                                      true},
    {"BlankAroundANumber",   R"(<row r="1"><c r="A1"><v> 7 </v></c></row>)",                                              true},
    {"NoNumber",             R"(<row r="1"><c r="A1"><v>x</v></c></row>)",                                                true},
    {"NoSharedText",         R"(<row r="1"><c r="A1" t="s"><v>2</v></c></row>)",                                          true},
    {"NoRow",                R"(<row r="x"><c r="A1"><v>1</v></c></row>)",                                                true},
    {"BelowTheSheet",        R"(<row r="1048577"><c><v>1</v></c></row>)",                                                 true},
    {"BesideTheSheet",       R"(<row r="1"><c r="XFE1"><v>1</v></c></row>)",                                              true},
    {"ReferenceInSmallLetters", R"(<row r="1"><c r="a1"><v>1</v></c></row>)",                                             false},
    {"NoReference",          R"(<row r="1"><c r="1A"><v>1</v></c></row>)",                                                false},
    {"Formula",              R"(<row r="1"><c r="A1"><f>1+1</f><v>2</v></c></row>)",                                      false},
    {"InlineText",           R"(<row r="1"><c r="A1" t="inlineStr"><is><t>a</t></is></c></row>)",                         false},
    {"Truth",                R"(<row r="1"><c r="A1" t="b"><v>1</v></c></row>)",                                          false},
    {"UnknownType",          R"(<row r="1"><c r="A1" t="z"><v>1</v></c></row>)",                                          false},
    {"SingleQuotes",         R"(<row r='1'><c r='A1'><v>1</v></c></row>)",                                                false},
    {"BlanksBetweenTags",    R"(<row r="1"> <c r="A1"><v>1</v></c></row>)",                                               false},
    {"BlankInATag",          R"(<row r="1" ><c r="A1"><v>1</v></c></row>)",                                               false},
    {"Reference",            R"(<row r="1"><c r="A1"><v>&#49;</v></c></row>)",                                            false},
    {"ReferenceInAttribute", R"(<row r="1"><c r="A&#49;"><v>1</v></c></row>)",                                            false},
    {"AttributeTwice",       R"(<row r="1" r="2"><c r="A1"><v>1</v></c></row>)",                                          false},
    {"AttributeOfCellTwice", R"(<row r="1"><c r="A1" r="B1"><v>1</v></c></row>)",                                         false},
    {"AnotherVocabulary",    R"(<row r="1" xmlns="urn:x"><c r="A1"><v>1</v></c></row>)",                                  false},
    {"CellOfAnotherVocabulary", R"(<row r="1"><c r="A1" xmlns="urn:x"><v>1</v></c></row>)",                               false},
    {"Comment",              R"(<row r="1"><!-- <c r="A1"><v>1</v></c> --><c r="B1"><v>2</v></c></row>)",                 false},
    {"CommentedRow",         R"(<!-- <row r="1"><c r="A1"><v>1</v></c></row> --><row r="2"><c r="B2"><v>2</v></c></row>)",  false},
    {"Characters",           R"(<row r="1"><c r="A1"><v><![CDATA[5]]></v></c></row>)",                                    false},
    {"EndOfCharacters",      R"(<row r="1"><c r="A1"><v>1]]></v></c></row>)",                                             false},
    {"WrongEnd",             R"(<row r="1"><c r="A1"><v>1</c></v></row>)",                                                false},
    {"NoEnd",                R"(<row r="1"><c r="A1"><v>1</v></c>)",                                                      false},
    {"OtherLetters",         "<row r=\"1\" note=\"\xC3\xA4\"><c r=\"A1\"><v>1</v></c></row>",                             false},
    {"DamagedLetters",       "<row r=\"1\" note=\"\xC3\"><c r=\"A1\"><v>1</v></c></row>",                                 false},
    {"Nul",                  std::string("<row r=\"1\"><c r=\"A1\"><v>1\0</v></c></row>", 38),                            false},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Rows, PlainRowsOf, testing::ValuesIn(takenCases),
                         [](const auto& test) { return std::string(test.param.name); });

// Rows of all kinds, whole and damaged: what stands in the sheet and what is refused is what the parser says.
TEST(PlainRowsAndOthers, AreWhatTheParserReads) {
    std::mt19937 random(17);
    const auto pick = [&](std::size_t below) { return random() % below; };
    const char* const damages[] = {"<",    ">",   "&",    "\"",           "</row>",      "<row r=\"5\">",
                                   "<!--", "-->", "]]>",  "</sheetData>", "<sheetData>", " ",
                                   "\n",   "<c>", "</c>", "/>",           "<v>",         "x"};
    for (int sheet = 0; sheet < 3000; ++sheet) {
        std::string rows;
        for (std::size_t row = 1 + pick(6); row > 0; --row) {
            const TakenCase& each = takenCases[pick(std::size(takenCases))];
            rows += pick(3) == 0 || !each.isTaken ? each.row : takenCases[pick(9)].row;
            rows += pick(12) == 0 ? "\n" : "";
        }
        if (pick(2) == 0) {
            rows.insert(pick(rows.size() + 1), damages[pick(std::size(damages))]);
        }
        if (pick(4) == 0) {
            rows.erase(pick(rows.size()), 1 + pick(5));
        }
        expectSame(rows);
        if (testing::Test::HasFailure()) {
            return;
        }
    }
}

// Pieces of the part end anywhere, also within rows and within the tag before them.
TEST(PlainRowsAndOthers, MayBeManyAndLong) {
    std::string rows;
    for (int row = 1; row <= 30'000; ++row) {
        const std::string number = std::to_string(row);
        rows += "<row r=\"" + number + "\"><c r=\"A" + number + "\"><v>" + number + ".5</v></c>" +
                (row % 100 == 0 ? "<c r=\"B" + number + "\"><f>A1</f><v>7</v></c>" : "") + "</row>";
    }
    EXPECT_GT(readAs("<sheetData>", rows).size(), 300'000U);
    expectSame(rows);
    expectSame(rows + "<row r=\"30001\"><c r=\"A30001\"><v>wrong</v></c></row>");
    expectSame("<!--" + std::string((1 << 16) - 1300, ' ') + "-->" + rows.substr(0, 2000) + "</row>");
    for (int before = 0; before < 40; ++before) {
        expectSame("<!--" + std::string(static_cast<std::size_t>(65'000 + before), ' ') + "-->" +
                   rows.substr(0, rows.find("<row r=\"2000\">")));
    }
}

TEST(PlainRowsAndOthers, OfAnotherVocabularyAreNoRows) {
    const auto cellsWith = [](const std::string& tag) {
        PartTexts parts = xlsxParts(R"(<row r="1"><c r="A1"><v>1</v></c></row>)");
        for (auto& [name, text] : parts) {
            text = replaced(text, "<sheetData>", tag);
        }
        return shownCells(readXlsx(TextParts(parts)).sheets.at(0).cells);
    };
    EXPECT_EQ(cellsWith("<sheetData>"), "A1=1");
    EXPECT_EQ(cellsWith("<sheetData xmlns=\"urn:x\">"), "");
    EXPECT_EQ(cellsWith("<x:y xmlns:x=\"urn:x\"><sheetData></sheetData></x:y><sheetData>"), "A1=1");
}

}  // namespace
}  // namespace TBVNonPara::workbook
