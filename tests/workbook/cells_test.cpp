#include <cmath>

#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

class Cells : public testing::Test {
 protected:
    RangeRef at(std::string_view address) { return m_Sheet->GetRange(address); }
    CellValue value(Index row, Index column) { return m_Sheet->value(row, column); }

    ObjectRef<EmbeddedApplication> m_Application = makeApplication();
    std::shared_ptr<Sheet> m_Sheet = m_Application->addSheet("Data");
};

TEST_F(Cells, KeepEveryKindOfValue) {
    const CellValue values[] = {Empty(), 1.5, "text", "", true, false, CellError::DivisionByZero};
    for (const CellValue& value : values) {
        at("C3")->LetValue(value);
        EXPECT_EQ(at("C3")->GetValue(), (ValueGrid{{value}}));
    }
}

TEST_F(Cells, KeepATextThatLooksLikeSomethingElse) {
    for (const char* text : {"2019", "1.50", "1/2/2003", "=A1", "TRUE", "#N/A", "'quoted", "+", " 7 "}) {
        at("A1")->LetValue(text);
        EXPECT_EQ(value(1, 1), CellValue(text));
    }
}

TEST_F(Cells, ShowWhatIsNoNumberAsAnError) {
    at("A1")->LetValue(std::nan(""));
    EXPECT_EQ(value(1, 1), CellValue(CellError::Number));
    at("A1:B1")->LetValue(ValueGrid{{INFINITY, 2.0}});
    EXPECT_EQ(at("A1:B1")->GetValue(), (ValueGrid{{CellError::Number, 2.0}}));
    const CellValue list[] = {1.0, -INFINITY};
    at("A1:B1")->LetValue(std::span(list));
    EXPECT_EQ(at("A1:B1")->GetValue(), (ValueGrid{{1.0, CellError::Number}}));
}

TEST_F(Cells, TakeOneValueIntoEveryCellOfEveryArea) {
    at("A1:B2,D4")->LetValue(7.0);
    EXPECT_EQ(at("A1:D4")->GetValue(), (ValueGrid{{7.0, 7.0, Empty(), Empty()},
                                                  {7.0, 7.0, Empty(), Empty()},
                                                  {Empty(), Empty(), Empty(), Empty()},
                                                  {Empty(), Empty(), Empty(), 7.0}}));
    at("A1:D4")->LetValue(Empty());
    EXPECT_EQ(m_Sheet->usedArea(), std::nullopt);
}

TEST_F(Cells, TakeAListAcrossARow) {
    const CellValue list[] = {"U", 1.0, Empty()};
    at("B2:D2")->LetValue(8.0);
    at("B2:D2")->LetValue(std::span(list));
    EXPECT_EQ(at("B2:D2")->GetValue(), (ValueGrid{{"U", 1.0, Empty()}}));
}

TEST_F(Cells, RefuseAListOrGridOfAnotherSize) {
    const CellValue list[] = {1.0, 2.0};
    expectRefused([&] { at("A1:C1")->LetValue(std::span(list)); },
                  "A list of 2 values cannot be written to Data!$A$1:$C$1");
    expectRefused([&] { at("A1:B2")->LetValue(std::span(list)); }, "one row of as many cells");
    expectRefused(
        [&] {
            at("A1:B2")->LetValue(ValueGrid{{1.0, 2.0}});
        },
        "A grid of 1 x 2 values cannot be written to Data!$A$1:$B$2, which has 2 x 2 cells");
    EXPECT_EQ(m_Sheet->usedArea(), std::nullopt);
}

TEST_F(Cells, AreReadFromTheFirstAreaOfSeveral) {
    at("A1")->LetValue(1.0);
    at("C1:D1")->LetValue(2.0);
    const RangeRef range = at("C1:D1,A1");
    EXPECT_EQ(range->GetValue(), (ValueGrid{{2.0, 2.0}}));
    EXPECT_EQ(range->GetRowsCount(), Long(1));
    EXPECT_EQ(range->GetColumnsCount(), Long(2));
    EXPECT_EQ(range->GetAreasCount(), Long(2));
    EXPECT_EQ(range->GetAreas(2)->GetValue(), (ValueGrid{{1.0}}));
    EXPECT_EQ(range->GetCells(1, 1)->GetAddress(), "$C$1");
    expectRefused([&] { (void)range->GetAreas(0); }, "There is no area 0");
    expectRefused([&] { (void)range->GetAreas(3); }, "There is no area 3 in Data!$C$1:$D$1,$A$1");
}

TEST_F(Cells, CountFromTheRangesCornerAlsoOutsideIt) {
    const RangeRef range = at("C3:D4");
    EXPECT_EQ(range->GetCells(1, 1)->GetAddress(), "$C$3");
    EXPECT_EQ(range->GetCells(9, 3)->GetAddress(), "$E$11");
    EXPECT_EQ(range->GetCells(0, -1)->GetAddress(), "$A$2");
    expectRefused([&] { (void)range->GetCells(-2, 1); }, "Row -2, column 1 counted from Data!$C$3:$D$4");
    expectRefused([&] { (void)m_Sheet->GetCells(1, 16385); }, "Row 1, column 16385 lies outside sheet");
    expectRefused([&] { (void)m_Sheet->GetCells(1048577, 1); }, "lies outside sheet");
    expectRefused([&] { (void)at("A2")->GetCells(2147483647, 2147483647); }, "lies outside the sheet");
}

TEST_F(Cells, BetweenTwoCornersFormARectangleInAnyOrder) {
    EXPECT_EQ(m_Application->GetRange(at("C5"), at("A7"))->GetAddress(), "$A$5:$C$7");
    EXPECT_EQ(m_Sheet->GetRange(at("A1:B2"), at("C3"))->GetAddress(), "$A$1:$C$3");
    const auto other = m_Application->addSheet("Other");
    expectRefused([&] { (void)m_Application->GetRange(at("A1"), other->GetCells(1, 1)); },
                  "from sheet \"Data\" to sheet \"Other\"");
    expectRefused([&] { (void)other->GetRange(at("A1"), at("A2")); }, "do not lie on sheet \"Other\"");
}

TEST_F(Cells, BetweenNoCellsAreAnUnsetObject) {
    try {
        (void)m_Application->GetRange(RangeRef(), at("A1"));
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), static_cast<int>(RuntimeError::ObjectNotSet));
    }
}

TEST_F(Cells, AtTheEdgesOfPiecesAreKeptApart) {
    for (const Long row : {1, 2, 1023, 1024, 1025, 2048, 2049, 1048575, 1048576}) {
        m_Sheet->GetCells(row, 1)->LetValue(toDouble(row));
    }
    EXPECT_EQ(at("A1023:A1026")->GetValue(), (ValueGrid{{1023.0}, {1024.0}, {1025.0}, {Empty()}}));
    EXPECT_EQ(at("A2047:A2050")->GetValue(), (ValueGrid{{Empty()}, {2048.0}, {2049.0}, {Empty()}}));
    EXPECT_EQ(at("A1048575:A1048576")->GetValue(), (ValueGrid{{1048575.0}, {1048576.0}}));
    EXPECT_EQ(m_Sheet->usedArea(), (Rectangle{1, 1, 1048576, 1}));
}

TEST_F(Cells, ClearEmptiesThemAndTheirFormatsAndNoOthers) {
    at("A1:C3000")->LetValue(1.0);
    at("A1:C3000")->LetFontBold(true);
    at("B2:B2500,C1")->Clear();
    EXPECT_EQ(at("A1:C3")->GetValue(),
              (ValueGrid{{1.0, 1.0, Empty()}, {1.0, Empty(), 1.0}, {1.0, Empty(), 1.0}}));
    EXPECT_EQ(at("B2500:B2501")->GetValue(), (ValueGrid{{Empty()}, {1.0}}));
    EXPECT_FALSE(m_Sheet->format(2500, 2).bold);
    EXPECT_TRUE(m_Sheet->format(2501, 2).bold);
    EXPECT_TRUE(m_Sheet->format(2500, 1).bold);
    m_Sheet->GetCells()->Clear();
    EXPECT_EQ(m_Sheet->usedArea(), std::nullopt);
    EXPECT_EQ(m_Sheet->format(2501, 2), CellFormat());
}

TEST_F(Cells, UsedAreaShrinksWithTheValues) {
    at("B2")->LetValue("");
    at("D1030")->LetValue(1.0);
    EXPECT_EQ(m_Sheet->usedArea(), (Rectangle{2, 2, 1030, 4}));
    at("D1030")->LetValue(Empty());
    EXPECT_EQ(m_Sheet->usedArea(), (Rectangle{2, 2, 2, 2}));
}

TEST_F(Cells, OfAWholeSheetAreTooManyToReadOrFill) {
    for (const auto& action : {std::function<void()>([&] { (void)m_Sheet->GetCells()->GetValue(); }),
                               std::function<void()>([&] { m_Sheet->GetCells()->LetValue(1.0); })}) {
        try {
            action();
            ADD_FAILURE();
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), static_cast<int>(RuntimeError::OutOfMemory));
        }
    }
    EXPECT_EQ(m_Sheet->GetCells()->GetRowsCount(), Long(1048576));
    EXPECT_EQ(m_Sheet->GetCells()->GetColumnsCount(), Long(16384));
}

}  // namespace
}  // namespace TBVNonPara::workbook
