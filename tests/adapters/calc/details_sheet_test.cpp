#include "tbvnonpara/report/details_sheet.hpp"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/table/CellContentType.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>
#include <com/sun/star/util/XProtectable.hpp>
#include <gtest/gtest.h>

#include "adapters/calc/calc_application.hpp"
#include "adapters/calc/writing.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tests/adapters/calc/office_document.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara::Scenarios {

namespace {

using namespace TBVNonPara::calc;
using Support::raisedBy;

/// A document of one sheet in a view, and its sheets as the library names, adds and deletes them.
class Sheets : public testing::Test {
 protected:
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const OUString& name : open.document()->getSheets()->getElementNames()) {
            all.push_back(toUtf8(name));
        }
        return all;
    }
    [[nodiscard]] WorksheetRef first() const { return book()->GetWorksheets(1); }
    [[nodiscard]] WorkbookRef book() const {
        return application->GetRange("A1")->GetWorksheet()->GetParent();
    }

    OpenDocument open;
    std::shared_ptr<Session> session = std::make_shared<Session>(officeContext(), open.document());
    ObjectRef<Application> application = makeObject<CalcApplication>(session);
};

using SheetNames = Sheets;

TEST_F(SheetNames, AreTakenAsTheyAre) {
    for (const char* name : {"Details (2)", "It's, ok", "Übersicht", "1", "a.b!c"}) {
        first()->LetName(name);
        EXPECT_EQ(names(), std::vector<std::string>{name});
    }
}

TEST_F(SheetNames, ThatASheetBearsAreRefusedInWhateverCase) {
    first()->LetName("Details");
    const WorksheetRef added = application->AddWorksheets();
    const std::string before = added->GetName();
    for (const char* name : {"Details", "DETAILS"}) {
        const auto raised = raisedBy([&] { added->LetName(name); });
        EXPECT_EQ(raised.number, 1004);
        EXPECT_EQ(raised.description,
                  std::string("The sheet cannot be named \"") + name +
                      "\": there is such a sheet already, or no sheet may have this name.");
        EXPECT_EQ(added->GetName(), before);
    }
}

TEST_F(SheetNames, ThatNoSheetMayBearAreRefused) {
    const std::string before = first()->GetName();
    for (const char* name : {"", "a/b", "a\\b", "a:b", "a*b", "a?b", "[a]", "'a", "a'"}) {
        EXPECT_EQ(raisedBy([&] { first()->LetName(name); }).number, 1004) << name;
        EXPECT_EQ(names(), std::vector{before}) << name;
    }
}

using DeletedSheet = Sheets;

TEST_F(DeletedSheet, IsGoneWhateverItHeld) {
    const WorksheetRef added = application->AddWorksheets();
    added->GetCells(1, 1)->LetValue(CellValue(1.0));
    added->Delete();
    EXPECT_EQ(names().size(), 1U);
    EXPECT_EQ(raisedBy([&] { added->Delete(); }).number, 1004);
}

TEST_F(DeletedSheet, StaysWhereTheDocumentsStructureIsProtected) {
    const WorksheetRef added = application->AddWorksheets();
    query<css::util::XProtectable>(open.document())->protect(OUString());
    const auto raised = raisedBy([&] { added->Delete(); });
    EXPECT_EQ(raised.number, 1004);
    EXPECT_EQ(raised.description,
              "The document's structure is protected, so its sheets stay; remove the protection.");
    EXPECT_EQ(names().size(), 2U);
}

TEST_F(DeletedSheet, IsNeverTheOnlyOne) {
    first()->LetName("Sheet1");
    const auto raised = raisedBy([&] { first()->Delete(); });
    EXPECT_EQ(raised.number, 1004);
    EXPECT_EQ(raised.description,
              "The sheet \"Sheet1\" is the only one of its document and cannot be deleted.");
    EXPECT_EQ(names().size(), 1U);
}

/// A report of three values each in D1, and the details behind it.
class DetailsInCalc : public Sheets {
 protected:
    void SetUp() override {
        const ValueGrid cells{{1.0, 4.0}, {2.0, 5.0}, {3.0, 6.0}};
        writeCells(open.document(), open.sheet(), {0, 0, 1, 2}, cells);
        first()->LetName("Data");
        manager()->clear();
    }

    [[nodiscard]] Reference<css::document::XUndoManager> manager() const {
        return query<css::document::XUndoManagerSupplier>(open.document())->getUndoManager();
    }

    static DetailPage page() {
        DetailTable table{"Probabilities", {"P", "Larger in", "N"}, {}};
        table.rows = {{{"Exact"},
                       {5e-7, DetailForm::Probability, -6.3},
                       {12.0, DetailForm::Share, 0, 22},
                       {3.0, DetailForm::Whole}}};
        return {{"=1+2 is no formula."}, {table}, {"A note."}};
    }

    void analyse() {
        clsNonPara request(ownCompanions(application));
        request.LetYRange("A1:A3");
        request.LetXRange("B1:B3");
        request.LetOutputRange("D1");
        request.Results();
    }

    RangeRef addDetails() {
        return writeDetailsSheet(ownCompanions(application), application->GetRange("Data!D1:G7"), page());
    }

    [[nodiscard]] std::string formulaAt(const char* sheet, std::int32_t column, std::int32_t row) const {
        const SheetRef found = sheetNamed(open.document(), OUString::createFromAscii(sheet));
        return toUtf8(found->getCellByPosition(column, row)->getFormula());
    }

    [[nodiscard]] std::string formatAt(std::int32_t column, std::int32_t row) const {
        sal_Int32 key = 0;
        property(sheetNamed(open.document(), "Details")->getCellByPosition(column, row), "NumberFormat") >>=
            key;
        const auto formats = query<css::util::XNumberFormatsSupplier>(open.document())->getNumberFormats();
        OUString format;
        property(formats->getByKey(key), "FormatString") >>= format;
        return toUtf8(format);
    }
};

TEST_F(DetailsInCalc, StandOnASheetOfTheirOwnBehindTheReports) {
    open.document()->getSheets()->insertNewByName("Last", 1);
    analyse();
    EXPECT_EQ(addDetails()->GetAddress(), "$A$1:$D$12");
    EXPECT_EQ(names(), (std::vector<std::string>{"Data", "Details", "Last"}));
    EXPECT_EQ(formulaAt("Details", 0, 1), "Report = Data!$D$1:$G$7");
    EXPECT_EQ(toUtf8(nameOf(activeSheet(open.document()))), "Data");
    static_cast<void>(addDetails());
    EXPECT_EQ(names(), (std::vector<std::string>{"Data", "Details (2)", "Details", "Last"}));
}

TEST_F(DetailsInCalc, AreNumbersUnderTheirFormatsAndTextsAsTheyAre) {
    static_cast<void>(addDetails());
    const SheetRef sheet = sheetNamed(open.document(), "Details");
    EXPECT_EQ(sheet->getCellByPosition(0, 2)->getType(), css::table::CellContentType_TEXT);
    EXPECT_EQ(formulaAt("Details", 0, 2), "=1+2 is no formula.");
    EXPECT_EQ(sheet->getCellByPosition(1, 9)->getValue(), 5e-7);
    EXPECT_EQ(sheet->getCellByPosition(2, 9)->getValue(), 12);
    EXPECT_EQ(formatAt(1, 9), "[<0.0001]0.00E+00;0.0000");
    EXPECT_EQ(formatAt(2, 9), "0\" of 22\"");
    EXPECT_EQ(formatAt(3, 9), "0");
    EXPECT_EQ(formulaAt("Details", 0, 11), "A note.");
}

TEST_F(DetailsInCalc, GoWithTheirReportInOneUndo) {
    {
        const calc::Run run(*session);
        analyse();
        static_cast<void>(addDetails());
    }
    ASSERT_EQ(names().size(), 2U);
    ASSERT_EQ(manager()->getAllUndoActionTitles().getLength(), 1);
    manager()->undo();
    EXPECT_EQ(names(), std::vector<std::string>{"Data"});
    EXPECT_EQ(formulaAt("Data", 3, 0), "");
    EXPECT_EQ(formulaAt("Data", 0, 0), "1");
    manager()->redo();
    EXPECT_EQ(names(), (std::vector<std::string>{"Data", "Details"}));
    EXPECT_EQ(formulaAt("Data", 3, 0), "Mann-Whitney Test Results for:");
}

TEST_F(DetailsInCalc, ThatAreRefusedLeaveTheReportAlone) {
    analyse();
    query<css::util::XProtectable>(open.document())->protect(OUString());
    EXPECT_EQ(raisedBy([&] { static_cast<void>(addDetails()); }).number, 1004);
    EXPECT_EQ(names(), std::vector<std::string>{"Data"});
    EXPECT_EQ(formulaAt("Data", 3, 0), "Mann-Whitney Test Results for:");
}

TEST_F(DetailsInCalc, ThatAreBrokenOffAnywhereTakeTheirSheetAlong) {
    int lastStep = 1;
    for (bool finished = false; !finished; lastStep += 1) {
        int step = 0;
        bool broken = false;
        session->onStep([&] {
            step += 1;
            if (step == lastStep) {
                broken = true;
                throw Error(7, "broken off");
            }
        });
        finished = raisedBy([&] { static_cast<void>(addDetails()); }).number == 0;
        EXPECT_EQ(names().size(), broken ? 1U : 2U) << "after step " << lastStep;
    }
    EXPECT_GT(lastStep, 10);
}

}  // namespace

}  // namespace TBVNonPara::Scenarios
