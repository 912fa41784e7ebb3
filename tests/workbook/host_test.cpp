#include <cmath>
#include <vector>

#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tests/support/watched_host.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

class Host : public testing::Test {
 protected:
    std::string sheetNames(const Book& book) {
        std::string names;
        for (const auto& sheet : book.sheets()) {
            names += sheet->name() + ' ';
        }
        return names;
    }
    std::string sheetNames() { return sheetNames(*m_Application->activeBook()); }

    ObjectRef<EmbeddedApplication> m_Application = makeApplication();
};

TEST_F(Host, BeginsWithAnEmptyWorkbookAndTheHiddenScratchSheet) {
    ASSERT_EQ(m_Application->books().size(), 1U);
    EXPECT_EQ(m_Application->books()[0]->name(), "Book1");
    EXPECT_EQ(m_Application->activeSheet(), nullptr);
    EXPECT_FALSE(m_Application->selection().isSet());
    EXPECT_TRUE(m_Application->screenUpdating());
    const WorkbookRef scratch = m_Application->GetWorkbooks("TBV2007.XLAM");
    EXPECT_EQ(scratch->GetWorksheetsCount(), Long(1));
    EXPECT_EQ(scratch->GetWorksheets("results")->GetName(), "Results");
    EXPECT_EQ(scratch->GetWorksheets("results")->GetParent(), scratch);
}

TEST_F(Host, TakesColumnsOfNumbersBelowTheirLabels) {
    const std::vector<double> before{1, NAN, INFINITY};
    const std::vector<double> after{4};
    const auto sheet = m_Application->addSheet("Data", {{"before", before}, {"after", after}, {"none", {}}});
    EXPECT_EQ(m_Application->GetRange("Data!A1:C4")->GetValue(),
              (ValueGrid{{"before", "after", "none"},
                         {1.0, 4.0, Empty()},
                         {Empty(), Empty(), Empty()},
                         {CellError::Number, Empty(), Empty()}}));
    EXPECT_EQ(sheet->usedArea()->bottom, 4);
    EXPECT_EQ(m_Application->addSheet("Bare", std::span<const NumberColumn>())->usedArea(), std::nullopt);
    expectRefused([&] { (void)m_Application->addSheet("Data", {{"before", before}}); }, "Data");
}

TEST_F(Host, TheScratchWorkbookNeverBecomesTheActiveOne) {
    expectRefused([&] { m_Application->GetWorkbooks("tbv2007.xlam")->Activate(); }, "is hidden");
    expectRefused([&] { m_Application->book("tbv2007.xlam")->sheet("Results")->Activate(); }, "is hidden");
    EXPECT_EQ(m_Application->activeBook()->name(), "Book1");
}

TEST_F(Host, UnknownWorkbooksAndSheetsAreRefused) {
    m_Application->addSheet("Data");
    const auto book = m_Application->activeBook();
    expectRefused([&] { (void)m_Application->GetWorkbooks("Tabvance.xla"); },
                  "There is no open workbook \"Tabvance.xla\"");
    expectRefused([&] { (void)book->GetWorksheets("Dta"); }, "the sheets are: \"Data\"");
    expectRefused([&] { (void)book->GetWorksheets(Long(0)); }, "There is no sheet number 0");
    expectRefused([&] { (void)book->GetWorksheets(Long(2)); }, "which has 1");
}

TEST_F(Host, TheFirstSheetAddedIsTheActiveOne) {
    m_Application->addSheet("First");
    m_Application->addSheet("Second");
    EXPECT_EQ(sheetNames(), "First Second ");
    EXPECT_EQ(m_Application->activeSheet()->name(), "First");
}

TEST_F(Host, AnAddedWorksheetStandsBeforeTheActiveOneUnderTheNextFreeName) {
    m_Application->addSheet("Data");
    const WorksheetRef sheet = m_Application->AddWorksheets();
    EXPECT_EQ(sheet->GetName(), "Sheet2");
    EXPECT_EQ(sheetNames(), "Sheet2 Data ");
    EXPECT_EQ(m_Application->activeSheet()->name(), "Sheet2");
    m_Application->addSheet("sheet4");
    EXPECT_EQ(m_Application->AddWorksheets()->GetName(), "Sheet5");
}

TEST_F(Host, AWorksheetIsAddedToAWorkbookWithoutSheets) {
    EXPECT_EQ(m_Application->AddWorksheets()->GetName(), "Sheet1");
    EXPECT_EQ(m_Application->activeSheet()->name(), "Sheet1");
}

TEST_F(Host, AMovedSheetStandsBehindTheOther) {
    for (const char* name : {"A", "B", "C", "D"}) {
        m_Application->addSheet(name);
    }
    const auto book = m_Application->activeBook();
    const auto move = [&](const char* sheet, const char* after) {
        book->sheet(sheet)->Move(book->sheet(after));
        return sheetNames();
    };
    EXPECT_EQ(move("A", "D"), "B C D A ");
    EXPECT_EQ(move("A", "B"), "B A C D ");
    EXPECT_EQ(move("D", "A"), "B A D C ");
    EXPECT_EQ(move("D", "D"), "B A D C ");
    EXPECT_EQ(move("D", "A"), "B A D C ");
    expectRefused([&] { book->sheet("A")->Move(m_Application->book("tbv2007.xlam")->sheet("Results")); },
                  "Sheet \"Results\" does not belong to workbook \"Book1\"");
}

TEST_F(Host, NamesOfSheetsAreChecked) {
    m_Application->addSheet("Data");
    expectRefused([&] { m_Application->addSheet("DATA"); }, "There is a sheet \"DATA\"");
    for (const char* name :
         {"", "a/b", "a:b", "[a]", "what?", "'a", "a'", "a\tb", "12345678901234567890123456789012"}) {
        expectRefused([&] { m_Application->addSheet(name); }, "A sheet cannot be named");
    }
    m_Application->addSheet("1234567890123456789012345678901");
    m_Application->addSheet("ÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄ");
    expectRefused([&] { m_Application->addSheet("äöüäöüäöüäöüäöüäöüäöüäöüäöüäöüä"); }, "There is a sheet");
}

TEST_F(Host, ASheetTakesAnotherName) {
    const auto sheet = m_Application->addSheet("Data");
    m_Application->addSheet("Other");
    const RangeRef cell = sheet->GetCells(1, 1);
    sheet->LetName("Details");
    EXPECT_EQ(sheetNames(), "Details Other ");
    EXPECT_EQ(cell->GetWorksheet()->GetName(), "Details");
    sheet->LetName("DETAILS");
    EXPECT_EQ(sheetNames(), "DETAILS Other ");
    expectRefused([&] { sheet->LetName("other"); }, "There is a sheet \"other\"");
    expectRefused([&] { sheet->LetName("a/b"); }, "A sheet cannot be named");
    EXPECT_EQ(sheetNames(), "DETAILS Other ");
}

TEST_F(Host, ADeletedSheetIsGone) {
    m_Application->addSheet("Data");
    const WorksheetRef added = m_Application->AddWorksheets();
    added->Delete();
    EXPECT_EQ(sheetNames(), "Data ");
    EXPECT_EQ(m_Application->activeSheet()->name(), "Data");
}

TEST_F(Host, FreeNamesOfSheetsAreSanitisedAndNumbered) {
    const auto book = m_Application->activeBook();
    EXPECT_EQ(book->freeSheetName("Data"), "Data");
    m_Application->addSheet("Data");
    EXPECT_EQ(book->freeSheetName("data"), "data (2)");
    m_Application->addSheet("Data (2)");
    EXPECT_EQ(book->freeSheetName("Data"), "Data (3)");
    EXPECT_EQ(book->freeSheetName("a/b:c"), "a_b_c");
    EXPECT_EQ(book->freeSheetName("'''"), "Sheet1");
    m_Application->addSheet("1234567890123456789012345678901");
    EXPECT_EQ(book->freeSheetName("1234567890123456789012345678901"), "123456789012345678901234567 (2)");
}

TEST_F(Host, ActivatingASheetBringsItsWorkbookToTheFront) {
    const auto data = m_Application->addSheet("Data");
    m_Application->addBook("Other")->addSheet("Sheet1");
    EXPECT_EQ(m_Application->activeSheet()->name(), "Sheet1");
    data->Activate();
    EXPECT_EQ(m_Application->activeBook()->name(), "Book1");
    EXPECT_EQ(m_Application->activeSheet(), data);
    m_Application->GetWorkbooks("other")->Activate();
    EXPECT_EQ(m_Application->activeSheet()->name(), "Sheet1");
    expectRefused([&] { m_Application->addBook("OTHER"); }, "is open already");
}

TEST_F(Host, OnlyCellsOfTheActiveSheetCanBeSelected) {
    const auto first = m_Application->addSheet("First");
    const auto second = m_Application->addSheet("Second");
    first->GetRange("B2:C3")->Select();
    EXPECT_EQ(m_Application->selection()->GetAddress(), "$B$2:$C$3");
    expectRefused([&] { second->GetRange("A1")->Select(); }, "activate the sheet first");
    EXPECT_EQ(m_Application->selection()->GetWorksheet()->GetName(), "First");
    second->Activate();
    second->GetRange("A1")->Select();
    EXPECT_EQ(m_Application->selection()->GetWorksheet()->GetName(), "Second");
}

TEST_F(Host, ScreenUpdatingIsKept) {
    m_Application->LetScreenUpdating(false);
    EXPECT_FALSE(m_Application->screenUpdating());
    m_Application->LetScreenUpdating(true);
    EXPECT_TRUE(m_Application->screenUpdating());
}

TEST_F(Host, AClosedWorkbookIsGoneForItsSheetsAndRanges) {
    const auto sheet = m_Application->addSheet("Data");
    const RangeRef range = sheet->GetRange("A1");
    range->Select();
    m_Application->closeBook("book1");
    EXPECT_FALSE(m_Application->selection().isSet());
    expectRefused([&] { sheet->Activate(); }, "is closed");
    expectRefused([&] { range->Copy(); }, "is closed");
    expectRefused([&] { range->Select(); }, "is closed");
    expectRefused([&] { (void)m_Application->GetRange("A1"); }, "No workbook is open");
    expectRefused([&] { (void)m_Application->AddWorksheets(); }, "No workbook is open");
}

TEST_F(Host, ASheetThatOutlivesTheApplicationSaysSo) {
    const auto sheet = m_Application->addSheet("Data");
    const RangeRef range = sheet->GetRange("A1");
    range->Select();
    m_Application.release();
    expectRefused([&] { range->Copy(); }, "is closed");
    expectRefused([&] { (void)sheet->GetParent(); }, "is closed");
}

TEST_F(Host, RangesOfAnotherApplicationAreRefused) {
    m_Application->addSheet("Data");
    const auto watched = Support::watchHost(m_Application, [](const Support::HostCall&) {});
    const RangeRef foreign = watched->GetRange("A1");
    expectRefused([&] { (void)m_Application->GetRange(foreign, foreign); }, "another application");
    expectRefused([&] { (void)m_Application->GetWorksheetFunction().CountIf(foreign, "1"); },
                  "another application");
}

}  // namespace
}  // namespace TBVNonPara::workbook
