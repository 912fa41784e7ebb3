#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

class Formats : public testing::Test {
 protected:
    RangeRef at(std::string_view address) { return m_Sheet->GetRange(address); }
    const CellFormat& format(Index row, Index column) { return m_Sheet->format(row, column); }
    std::size_t entries() { return m_Sheet->formats().entries(); }

    /// Subscript characters of A1: "2-3 5-5".
    std::string subscripts() {
        std::string text;
        for (const CharacterRun& run : format(1, 1).subscripts) {
            text.append(text.empty() ? "" : " ").append(std::to_string(run.start)).append("-");
            text.append(std::to_string(run.start + run.length - 1));
        }
        return text;
    }

    ObjectRef<EmbeddedApplication> m_Application = makeApplication();
    std::shared_ptr<Sheet> m_Sheet = m_Application->addSheet("Data");
};

TEST_F(Formats, BeginPlain) {
    EXPECT_EQ(format(1, 1), CellFormat());
    EXPECT_EQ(format(1, 1).numberFormat, "General");
    EXPECT_EQ(format(1, 1).alignment, AlignGeneral);
    EXPECT_EQ(format(1, 1).interiorColour, noInteriorColour);
}

TEST_F(Formats, ChangeInTheCellsNamedAndNoOthers) {
    at("B2:C3,E5")->LetNumberFormat("0.0000");
    at("B2:C3")->LetHorizontalAlignment(AlignCentre);
    at("C3:D4")->LetFontBold(true);
    at("A1:E5")->LetInteriorColorIndex(Integer(15));
    for (Index row = 1; row <= 6; ++row) {
        for (Index column = 1; column <= 6; ++column) {
            const bool inBlock = row >= 2 && row <= 3 && column >= 2 && column <= 3;
            const bool isE5 = row == 5 && column == 5;
            const bool bold = row >= 3 && row <= 4 && column >= 3 && column <= 4;
            EXPECT_EQ(format(row, column).numberFormat, inBlock || isE5 ? "0.0000" : "General");
            EXPECT_EQ(format(row, column).alignment, inBlock ? AlignCentre : AlignGeneral);
            EXPECT_EQ(format(row, column).bold, bold);
            EXPECT_EQ(format(row, column).interiorColour, row < 6 && column < 6 ? 15 : noInteriorColour);
        }
    }
}

TEST_F(Formats, OfTheWholeSheetCostOneEntry) {
    m_Sheet->GetCells()->LetInteriorColorIndex(Integer(2));
    EXPECT_EQ(entries(), 1U);
    EXPECT_EQ(format(sheetRows, sheetColumns).interiorColour, 2);
}

TEST_F(Formats, OfTheWholeSheetReachCellsWithFormatsOfTheirOwn) {
    at("B2")->LetFontBold(true);
    m_Sheet->GetCells()->LetInteriorColorIndex(Integer(2));
    EXPECT_TRUE(format(2, 2).bold);
    EXPECT_EQ(format(2, 2).interiorColour, 2);
    EXPECT_EQ(format(3, 2).interiorColour, 2);
    at("B2:B3")->Clear();
    EXPECT_EQ(format(3, 2), CellFormat());
    EXPECT_EQ(format(4, 2).interiorColour, 2);
}

TEST_F(Formats, OfTallBlocksCostAnEntryAColumn) {
    at("A1:H1000000")->LetNumberFormat("0.0000");
    EXPECT_LE(entries(), 1U + 2 * 8);
    for (Long row = 1; row <= Long(2000); ++row) {
        m_Sheet->GetRange(m_Sheet->GetCells(row, 10), m_Sheet->GetCells(row, 11))->LetNumberFormat("0");
    }
    EXPECT_LE(entries(), 1U + 2 * 10);
    EXPECT_EQ(format(2000, 11).numberFormat, "0");
    EXPECT_EQ(format(2001, 11).numberFormat, "General");
}

TEST_F(Formats, ChangedBackCostNothingMore) {
    at("A5:A9")->LetFontBold(true);
    at("A5:A9")->LetFontBold(false);
    EXPECT_LE(entries(), 2U);
    EXPECT_EQ(format(7, 1), CellFormat());
}

TEST_F(Formats, BordersRunAroundTheWholeRange) {
    const BorderEdge edges[] = {BorderEdge::Left, BorderEdge::Top, BorderEdge::Bottom, BorderEdge::Right};
    for (const BorderEdge edge : edges) {
        at("B2:D4")->LetBorder(edge, BorderLine::Thin);
    }
    EXPECT_EQ(format(2, 2).borders, (Borders{.left = true, .top = true}));
    EXPECT_EQ(format(2, 3).borders, (Borders{.top = true}));
    EXPECT_EQ(format(3, 3).borders, Borders());
    EXPECT_EQ(format(4, 4).borders, (Borders{.bottom = true, .right = true}));
    EXPECT_EQ(format(5, 3).borders, Borders());
}

TEST_F(Formats, ABorderTakenAwayIsGoneFromBothSidesOfTheEdge) {
    at("B2")->LetBorder(BorderEdge::Bottom, BorderLine::Thin);
    at("B3")->LetBorder(BorderEdge::Top, BorderLine::None);
    EXPECT_EQ(format(2, 2).borders, Borders());
    at("B2")->LetBorder(BorderEdge::Right, BorderLine::Thin);
    at("C2")->LetBorder(BorderEdge::Left, BorderLine::None);
    EXPECT_EQ(format(2, 2).borders, Borders());
    at("A1")->LetBorder(BorderEdge::Left, BorderLine::None);
    at("A1")->LetBorder(BorderEdge::Top, BorderLine::None);
    at("XFD1048576")->LetBorder(BorderEdge::Right, BorderLine::None);
    at("XFD1048576")->LetBorder(BorderEdge::Bottom, BorderLine::None);
}

TEST_F(Formats, UnknownEdgesAndLinesAreRefused) {
    expectRefused([&] { at("A1")->LetBorder(BorderEdge(11), BorderLine::Thin); },
                  "no edge with the number 11");
    expectRefused([&] { at("A1")->LetBorder(BorderEdge::Top, BorderLine(4)); },
                  "no border line with the number 4");
}

TEST_F(Formats, SubscriptRunsJoinSplitAndEndWithTheText) {
    at("A1")->LetValue("größte");
    struct Step {
        int start, length;
        bool subscript;
        const char* expected;
    };
    const Step steps[] = {
        {2, 1, true, "2-2"},      {3, 2, true, "2-4"},        {6, 99, true, "2-4 6-6"}, {5, 1, true, "2-6"},
        {4, 1, false, "2-3 5-6"}, {1, 2, false, "3-3 5-6"},   {7, 1, true, "3-3 5-6"},  {1, 6, true, "1-6"},
        {1, 0, true, "1-6"},      {1, 2147483647, false, ""},
    };
    for (const Step& step : steps) {
        at("A1")->LetCharactersFontSubscript(step.start, step.length, step.subscript);
        EXPECT_EQ(subscripts(), step.expected) << step.start << ' ' << step.length;
    }
}

TEST_F(Formats, SubscriptsBelongToATextInOneCell) {
    expectRefused([&] { at("A1")->LetCharactersFontSubscript(1, 1, true); }, "not in Data!$A$1");
    at("A1:A2")->LetValue(12.0);
    expectRefused([&] { at("A1")->LetCharactersFontSubscript(1, 1, true); }, "one cell that holds a text");
    at("A1:A2")->LetValue("rs");
    expectRefused([&] { at("A1:A2")->LetCharactersFontSubscript(2, 1, true); }, "one cell");
    expectRefused([&] { at("A1")->LetCharactersFontSubscript(0, 1, true); }, "count from 1");
    expectRefused([&] { at("A1")->LetCharactersFontSubscript(1, -1, true); }, "not negative");
    EXPECT_EQ(subscripts(), "");
}

TEST_F(Formats, SubscriptsGoWithTheTextThatIsReplaced) {
    at("A1")->LetValue("rs");
    at("A1")->LetFontBold(true);
    at("A1")->LetCharactersFontSubscript(2, 1, true);
    EXPECT_EQ(subscripts(), "2-2");
    at("A1")->LetValue("other");
    EXPECT_EQ(subscripts(), "");
    EXPECT_TRUE(format(1, 1).bold);
}

}  // namespace
}  // namespace TBVNonPara::workbook
