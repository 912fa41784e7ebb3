#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

class Paste : public testing::Test {
 protected:
    Paste() {
        at("A1:B2")->LetValue(ValueGrid{{"rs", 1.0}, {Empty(), 2.0}});
        at("A1")->LetCharactersFontSubscript(2, 1, true);
        at("B1:B2")->LetNumberFormat("0.00");
    }

    RangeRef at(std::string_view address) { return m_Sheet->GetRange(address); }

    ObjectRef<EmbeddedApplication> m_Application = makeApplication();
    std::shared_ptr<Sheet> m_Sheet = m_Application->addSheet("Data");
};

TEST_F(Paste, AllCarriesValuesAndFormats) {
    at("D4:E5")->LetValue(9.0);
    at("D4:E5")->LetFontBold(true);
    at("A1:B2")->Copy();
    at("D4")->PasteSpecial(PasteKind::All);
    EXPECT_EQ(at("D4:E5")->GetValue(), at("A1:B2")->GetValue());
    for (Index row = 1; row <= 2; ++row) {
        for (Index column = 1; column <= 2; ++column) {
            EXPECT_EQ(m_Sheet->format(row + 3, column + 3), m_Sheet->format(row, column));
        }
    }
    EXPECT_EQ(m_Sheet->format(4, 4).subscripts.size(), 1U);
}

TEST_F(Paste, ValuesLeaveTheFormatsAsTheyAre) {
    at("D4:E5")->LetFontBold(true);
    at("A1:B2")->Copy();
    at("D4")->PasteSpecial(PasteKind::Values);
    EXPECT_EQ(at("D4:E5")->GetValue(), at("A1:B2")->GetValue());
    EXPECT_TRUE(m_Sheet->format(4, 5).bold);
    EXPECT_EQ(m_Sheet->format(4, 5).numberFormat, "General");
}

TEST_F(Paste, FormatsLeaveTheValuesAsTheyAre) {
    at("D4:E5")->LetValue("kept");
    at("A1:B2")->Copy();
    at("D4")->PasteSpecial(PasteKind::Formats);
    EXPECT_EQ(at("E5")->GetValue(), (ValueGrid{{"kept"}}));
    EXPECT_EQ(m_Sheet->format(5, 5).numberFormat, "0.00");
}

TEST_F(Paste, BeginsAtTheFirstCellOfTheTarget) {
    at("A1:B2")->Copy();
    at("D4:D100")->PasteSpecial(PasteKind::All);
    EXPECT_EQ(m_Sheet->usedArea(), (Rectangle{1, 1, 5, 5}));
}

TEST_F(Paste, GivesWhatTheCellsHeldWhenTheyWereCopied) {
    at("A1:B2")->Copy();
    at("A1:B2")->Clear();
    at("D4")->PasteSpecial(PasteKind::All);
    EXPECT_EQ(at("D4:E5")->GetValue(), (ValueGrid{{"rs", 1.0}, {Empty(), 2.0}}));
    EXPECT_EQ(m_Sheet->format(4, 5).numberFormat, "0.00");
}

TEST_F(Paste, MayOverlapWhatWasCopied) {
    at("A1:B2")->Copy();
    at("A1")->PasteSpecial(PasteKind::All);
    EXPECT_EQ(at("A1:B2")->GetValue(), (ValueGrid{{"rs", 1.0}, {Empty(), 2.0}}));
    at("B2")->PasteSpecial(PasteKind::All);
    EXPECT_EQ(at("A1:C3")->GetValue(),
              (ValueGrid{{"rs", 1.0, Empty()}, {Empty(), "rs", 1.0}, {Empty(), Empty(), 2.0}}));
}

TEST_F(Paste, CanBeRepeatedAndReachesOtherWorkbooks) {
    const auto scratch = m_Application->book("tbv2007.xlam")->sheet("Results");
    scratch->GetRange("A1")->LetValue("report");
    scratch->GetRange("A1:B1")->Copy();
    at("C1")->PasteSpecial(PasteKind::All);
    at("C2")->PasteSpecial(PasteKind::All);
    EXPECT_EQ(at("C1:C2")->GetValue(), (ValueGrid{{"report"}, {"report"}}));
}

TEST_F(Paste, KeepsManyRowsApart) {
    for (Long row = 1; row <= Long(3000); ++row) {
        m_Sheet->GetCells(row, 5)->LetValue(toDouble(row));
        m_Sheet->GetCells(row, 5)->LetFontBold(row.value() % 3 == 0);
    }
    at("E2:E3000")->Copy();
    at("G1023")->PasteSpecial(PasteKind::All);
    EXPECT_EQ(at("G1022:G1024")->GetValue(), (ValueGrid{{Empty()}, {2.0}, {3.0}}));
    EXPECT_EQ(at("G4021:G4022")->GetValue(), (ValueGrid{{3000.0}, {Empty()}}));
    for (Index row = 2; row <= 3000; ++row) {
        EXPECT_EQ(m_Sheet->format(row + 1021, 7).bold, row % 3 == 0) << row;
    }
}

TEST_F(Paste, OfAWholeSheetCarriesItsFormat) {
    const auto other = m_Application->addSheet("Other");
    m_Sheet->GetCells()->LetInteriorColorIndex(Integer(2));
    m_Sheet->GetCells()->Copy();
    other->GetCells()->PasteSpecial(PasteKind::All);
    EXPECT_EQ(other->format(sheetRows, sheetColumns).interiorColour, 2);
    EXPECT_EQ(other->value(2, 2), CellValue(2.0));
}

TEST_F(Paste, IsRefusedWhereNothingWasCopied) {
    expectRefused([&] { at("A1")->PasteSpecial(PasteKind::All); },
                  "There is nothing to paste at Data!$A$1; copy a range first");
}

TEST_F(Paste, IsRefusedWhereItWouldLeaveTheSheet) {
    at("A1:B2")->Copy();
    expectRefused([&] { at("A1048576")->PasteSpecial(PasteKind::All); }, "do not fit");
    expectRefused([&] { at("XFD1")->PasteSpecial(PasteKind::All); }, "2 x 2 cells that were copied");
    EXPECT_EQ(m_Sheet->usedArea(), (Rectangle{1, 1, 2, 2}));
}

TEST_F(Paste, OfAnUnknownKindIsRefused) {
    at("A1:B2")->Copy();
    expectRefused([&] { at("D4")->PasteSpecial(PasteKind(1)); }, "no kind of paste with the number 1");
    EXPECT_EQ(m_Sheet->usedArea(), (Rectangle{1, 1, 2, 2}));
}

TEST_F(Paste, OfSeveralAreasIsRefusedWhenTheyAreCopied) {
    expectRefused([&] { at("A1,B2")->Copy(); }, "Several areas cannot be copied at once: Data!$A$1,$B$2");
}

}  // namespace
}  // namespace TBVNonPara::workbook
