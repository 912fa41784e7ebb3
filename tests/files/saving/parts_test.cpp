#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/files/saving/cell_text.hpp"
#include "tbvnonpara/files/saving/column_widths.hpp"
#include "tbvnonpara/files/saving/sheet_part.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::workbook {

namespace {

using testing::HasSubstr;

std::string errorOf(const auto& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.description();
    }
    return "";
}

std::string numberText(double number) {
    std::string text;
    appendNumber(number, text);
    return text;
}

TEST(SavedNumbers, AreTheShortestThatReadBack) {
    EXPECT_EQ(numberText(0.1), "0.1");
    EXPECT_EQ(numberText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(numberText(1e300), "1e+300");
    EXPECT_EQ(numberText(5e-324), "5e-324");
    EXPECT_EQ(numberText(-0.0), "-0.0");
}

TEST(SavedTexts, AreEscaped) {
    std::string text;
    appendEscaped("<a&b>\"\r _x0041_ _x00_", text);
    EXPECT_EQ(text, "&lt;a&amp;b&gt;&quot;&#13; _x005F_x0041_ _x00_");
}

TEST(SavedTexts, ThatNoWorkbookHoldsAreRefused) {
    const auto refusal = [](std::string_view text) {
        return errorOf([&] { requireStorable(text, "My sheet", 3, 2); });
    };
    EXPECT_EQ(refusal("tab\tline\r\nend"), "");
    EXPECT_EQ(refusal(std::string(32767, 'a')), "");
    EXPECT_THAT(refusal(std::string("a\0b", 3)), HasSubstr("'My sheet'!B3"));
    EXPECT_THAT(refusal("ä\x1F"), HasSubstr("character 2 is a control character"));
    EXPECT_THAT(refusal("\xEF\xBF\xBF"), HasSubstr("control character"));
    EXPECT_THAT(refusal("a\xFF"), HasSubstr("UTF-8"));
    EXPECT_THAT(refusal(std::string(32768, 'a')), HasSubstr("32767"));
}

TEST(Edits, OfOnePlaceStayInOrderAndInFrontOfWhatIsReplaced) {
    EXPECT_EQ(edited("abcdef", {{2, 4, "X"}, {2, 2, "1"}, {2, 2, "2"}, {6, 6, "!"}}), "ab12Xef!");
}

TEST(XmlAttributes, AreFoundWithTheirBlank) {
    const std::string_view tag = "<row  r='1' spans = \"1:3\" ht=\"9\"/>";
    const Stretch spans = attributeStretch(tag, "spans");
    EXPECT_EQ(tag.substr(spans.begin, spans.end - spans.begin), " spans = \"1:3\"");
    const Stretch none = attributeStretch(tag, "span");
    EXPECT_EQ(none.begin, none.end);
}

TEST(XmlParts, ThatCannotBeChangedAreRefused) {
    const auto refusal = [](std::string_view text) { return errorOf([&] { walkXml(text, "p.xml", {}); }); };
    EXPECT_EQ(refusal("<a/>"), "");
    EXPECT_EQ(refusal("<?xml version='1.0' encoding='utf-8'?><a/>"), "");
    EXPECT_THAT(refusal("<a>"), HasSubstr("\"p.xml\" of the workbook is damaged"));
    EXPECT_THAT(refusal("\xFF\xFE<"), HasSubstr("UTF-16"));
    EXPECT_THAT(refusal("<?xml version='1.0' encoding='iso-8859-1'?><a/>"), HasSubstr("not stored in UTF-8"));
}

TEST(XmlParts, WithADocumentTypeAreRefused) {
    EXPECT_EQ(errorOf([] { walkXml("<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>", "p.xml", {}); }),
              "The part \"p.xml\" of the workbook is damaged: a document type, which no workbook needs and "
              "which could pull in other files.");
}

TEST(XmlParts, NestedBeyondReasonAreRefused) {
    const auto nested = [](std::size_t depth) {
        std::string text;
        for (std::size_t i = 0; i < depth; ++i) {
            text += "<a>";
        }
        for (std::size_t i = 0; i < depth; ++i) {
            text += "</a>";
        }
        return text;
    };
    EXPECT_EQ(errorOf([&] { walkXml(nested(256), "p.xml", {}); }), "");
    EXPECT_THAT(errorOf([&] { walkXml(nested(257), "p.xml", {}); }), HasSubstr("nested more than 256 deep"));
}

TEST(XmlParts, WithATagOfManyMegabytesAreRefused) {
    const std::string text = "<a b='" + std::string(std::size_t(20) << 20U, 'c') + "'/>";
    EXPECT_THAT(errorOf([&] { walkXml(text, "p.xml", {}); }), HasSubstr("tags or names of many megabytes"));
}

TEST(XmlWalks, EndWithTheVisitorsFirstError) {
    // The parser still tells the end of an empty element at whose start it was stopped.
    int calls = 0;
    XmlVisitor visitor;
    visitor.begin = [&](const XmlTag& tag, int) {
        calls += 1;
        throw Error(1, "begin of " + std::string(tag.name()));
    };
    visitor.end = [&](std::string_view name, int, std::size_t, std::size_t) {
        calls += 1;
        throw Error(2, "end of " + std::string(name));
    };
    EXPECT_EQ(errorOf([&] { walkXml("<a/>", "p.xml", visitor); }), "begin of a");
    EXPECT_EQ(calls, 1);
}

TEST(XmlWalks, TellWhereEachElementStands) {
    const std::string text = "<?xml version='1.0'?>\n<x:a é='ü'><b/>c</x:a>";
    std::string told;
    const auto tell = [&](std::string_view name, int depth, std::size_t from, std::size_t to) {
        told += std::string(name) + std::to_string(depth) + '[' + text.substr(from, to - from) + "] ";
    };
    XmlVisitor visitor;
    visitor.begin = [&](const XmlTag& tag, int depth) { tell(tag.name(), depth, tag.begin(), tag.end()); };
    visitor.end = tell;
    visitor.characters = [&](std::string_view piece, int depth) {
        told += std::string(piece) + std::to_string(depth) + ' ';
    };
    walkXml(text, "p.xml", visitor);
    EXPECT_EQ(told, "a1[<x:a é='ü'>] b2[<b/>] b2[] c1 a1[</x:a>] ");
}

constexpr std::string_view styles =
    "<styleSheet><fonts count='1'><font><sz val='10'/><name val='Arial'/></font></fonts>"
    "<borders count='1'><border/></borders><cellXfs count='1'><xf/></cellXfs></styleSheet>";

/// Two by two cells: a number and a text, an error and nothing; put into a sheet's part at C2.
class SheetParts : public testing::Test {
 protected:
    SheetParts() {
        sheet->values().set(2, 3, 1.5);
        sheet->values().set(2, 4, Text("a<b"));
        sheet->values().set(3, 3, CellError::NotAvailable);
    }

    std::string after(const std::string& before) {
        const SheetPart part(before, "sheet.xml", area);
        StylePart style(std::string(styles), "styles.xml");
        SheetRows rows(*sheet, area, style, part.prefix());
        return part.finish(rows);
    }

    ObjectRef<EmbeddedApplication> application = makeApplication();
    std::shared_ptr<Sheet> sheet = application->addSheet("Data");
    Rectangle area{2, 3, 3, 4};
};

const std::string first = R"(<c r="C2"><v>1.5</v></c><c r="D2" t="inlineStr"><is><t>a&lt;b</t></is></c>)";
const std::string second = R"(<c r="C3" t="e"><v>#N/A</v></c>)";

TEST_F(SheetParts, TakeNewRowsInOrder) {
    EXPECT_EQ(after("<worksheet><sheetData/></worksheet>"), "<worksheet><sheetData><row r=\"2\">" + first +
                                                                "</row><row r=\"3\">" + second +
                                                                "</row></sheetData></worksheet>");
    EXPECT_EQ(after("<worksheet><sheetData><row r='1'/><row r='4'/></sheetData></worksheet>"),
              "<worksheet><sheetData><row r='1'/><row r=\"2\">" + first + "</row><row r=\"3\">" + second +
                  "</row><row r='4'/></sheetData></worksheet>");
}

TEST_F(SheetParts, KeepTheCellsBesideTheBlock) {
    EXPECT_EQ(after("<worksheet><dimension ref='A1:B2'/><sheetData><row r='2' spans='1:5' ht='20'><c r='A2'/>"
                    "<c r='C2' s='1'/><c r='E2'><v>7</v></c></row><row r='3'/></sheetData></worksheet>"),
              "<worksheet><dimension ref=\"A1:D3\"/><sheetData><row r='2' ht='20'><c r='A2'/>" + first +
                  "<c r='E2'><v>7</v></c></row><row r='3'>" + second + "</row></sheetData></worksheet>");
}

TEST_F(SheetParts, ReadReferencesOfEitherCase) {
    EXPECT_EQ(after("<worksheet><sheetData><row r='2'><c r='c2'><v>9</v></c><c r='e2'><v>7</v></c></row>"
                    "<row r='3'/></sheetData></worksheet>"),
              "<worksheet><sheetData><row r='2'>" + first + "<c r='e2'><v>7</v></c></row><row r='3'>" +
                  second + "</row></sheetData></worksheet>");
}

TEST_F(SheetParts, GiveCellsAndRowsWithoutReferencesTheirOwn) {
    EXPECT_EQ(
        after("<x:worksheet xmlns:x='u'><x:sheetData><x:row/><x:row><x:c/><x:c/><x:c/><x:c/><x:c/></x:row>"
              "<x:row r='9'/></x:sheetData></x:worksheet>"),
        "<x:worksheet xmlns:x='u'><x:sheetData><x:row r=\"1\"/><x:row r=\"2\"><x:c r=\"A2\"/><x:c r=\"B2\"/>"
        "<x:c r=\"C2\"><x:v>1.5</x:v></x:c><x:c r=\"D2\" t=\"inlineStr\"><x:is><x:t>a&lt;b</x:t></x:is></x:c>"
        "<x:c r=\"E2\"/></x:row><x:row r=\"3\"><x:c r=\"C3\" t=\"e\"><x:v>#N/A</x:v></x:c></x:row>"
        "<x:row r='9'/></x:sheetData></x:worksheet>");
}

TEST_F(SheetParts, NameWhatIsInTheWay) {
    const auto obstacles = [&](const std::string& rows, const std::string& below = "") {
        return SheetPart("<worksheet><sheetData>" + rows + "</sheetData>" + below + "</worksheet>", "s.xml",
                         area)
            .obstacles();
    };
    EXPECT_TRUE(obstacles("<row r='1'><c r='A1'><f t='array' ref='A1:B2'>1</f></c></row>").empty());
    EXPECT_THAT(obstacles("<row r='1'><c r='A1'><f t='array' ref='A1:C2'>1</f></c></row>").at(0),
                HasSubstr("array formula of A1:C2"));
    EXPECT_THAT(obstacles("<row r='2'><c r='C2'><f t='shared' ref='C2:C9' si='0'>1</f></c></row>").at(0),
                HasSubstr("C2:C9 share"));
    EXPECT_THAT(
        obstacles("", "<mergeCells><mergeCell ref='A1:Z1'/><mergeCell ref='D3:E4'/></mergeCells>").at(0),
        HasSubstr("merged cells D3:E4"));
}

TEST_F(SheetParts, KnowWhatTheBlockHolds) {
    const SheetPart part(
        "<worksheet><sheetData><row r='2'><c r='B2'><v>1</v></c><c r='C2' s='1'/><c "
        "r='D2'><f>1+1</f></c></row></sheetData></worksheet>",
        "s.xml", area);
    EXPECT_EQ(part.firstOccupied(), "D2");
    EXPECT_EQ(part.formulas(), std::vector<std::string>{"D2"});
}

TEST_F(SheetParts, OutOfOrderAreRefused) {
    EXPECT_THAT(
        errorOf([&] { after("<worksheet><sheetData><row r='5'/><row r='4'/></sheetData></worksheet>"); }),
        HasSubstr("not in order"));
    EXPECT_THAT(errorOf([&] { after("<chartsheet/>"); }), HasSubstr("is no worksheet"));
}

TEST(StyleParts, GainFormatsAndKeepWhatTheyHave) {
    StylePart part(std::string(styles), "styles.xml");
    CellFormat bold;
    bold.bold = true;
    bold.numberFormat = "0.0000";
    bold.alignment = AlignCentreAcrossSelection;
    bold.borders.bottom = true;
    EXPECT_EQ(part.styleOf(CellFormat{}), 0U);
    EXPECT_FALSE(part.changed());
    EXPECT_EQ(part.styleOf(bold), 1U);
    EXPECT_EQ(part.styleOf(bold), 1U);
    EXPECT_EQ(
        part.finish(),
        "<styleSheet><numFmts count=\"1\"><numFmt numFmtId=\"164\" formatCode=\"0.0000\"/></numFmts>"
        "<fonts count=\"2\"><font><sz val='10'/><name val='Arial'/></font><font><b/><sz val='10'/><name "
        "val='Arial'/></font></fonts><borders count=\"2\"><border/><border><left/><right/><top/><bottom "
        "style=\"thin\"><color auto=\"1\"/></bottom><diagonal/></border></borders><cellXfs "
        "count=\"2\"><xf/><xf "
        "numFmtId=\"164\" fontId=\"1\" fillId=\"0\" borderId=\"1\" xfId=\"0\" applyNumberFormat=\"1\" "
        "applyFont=\"1\" applyBorder=\"1\" applyAlignment=\"1\"><alignment "
        "horizontal=\"centerContinuous\"/></xf>"
        "</cellXfs></styleSheet>");
    EXPECT_EQ(part.runProperties(true, true, "x:"),
              "<x:rPr><x:b/><x:sz val='10'/><x:rFont val='Arial'/><x:vertAlign val=\"subscript\"/></x:rPr>");
}

TEST(StyleParts, WithoutFormatsAreRefused) {
    EXPECT_THAT(errorOf([] { const StylePart part("<styleSheet/>", "styles.xml"); }),
                HasSubstr("styles.xml"));
}

TEST(ColumnWidths, FitNumbersAndHeadingsButNotTitles) {
    const auto application = makeApplication();
    const auto sheet = application->addSheet("Data");
    sheet->values().set(1, 1, Text("A title that runs on over the cells beside it"));
    sheet->values().set(2, 1, Text("A heading of width 22"));
    sheet->values().set(2, 2, 123456.0);
    sheet->formats().change({2, 2, 2, 2}, [](CellFormat& format) { format.numberFormat = "0.0000"; });
    const std::vector<double> widths = columnWidths(*sheet, {1, 1, 2, 3});
    EXPECT_THAT(widths, testing::ElementsAre(23, 13, 9));  // 21 and 11 characters and a margin, rounded up
}

}  // namespace

}  // namespace TBVNonPara::workbook
