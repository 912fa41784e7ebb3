#include <cmath>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/script/vba/XVBACompatibility.hpp>
#include <com/sun/star/text/XText.hpp>
#include <gtest/gtest.h>
#include <limits>

#include "adapters/calc/calc_application.hpp"
#include "adapters/calc/reading.hpp"
#include "adapters/calc/writing.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tests/adapters/calc/lost_formats.hpp"
#include "tests/adapters/calc/office_document.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara::Scenarios {

namespace {

using namespace TBVNonPara::calc;
using Support::raisedBy;

/// A document in a view, and the add-in's host on it.
class Host : public testing::Test {
 protected:
    void write(const ValueGrid& cells) { writeCells(open.document(), open.sheet(), areaOf(cells), cells); }
    [[nodiscard]] ValueGrid read(const ValueGrid& like) const {
        return readCells(open.document(), open.sheet(), areaOf(like));
    }
    static CellArea areaOf(const ValueGrid& cells) {
        return {0, 0, cells.columns().value() - 1, cells.rows().value() - 1};
    }
    [[nodiscard]] bool held() const {
        return query<css::frame::XModel>(open.document())->hasControllersLocked() != sal_False;
    }

    OpenDocument open;
    std::shared_ptr<Session> session = std::make_shared<Session>(officeContext(), open.document());
    ObjectRef<Application> application = makeObject<CalcApplication>(session);
    const WorksheetFunction& functions = application->GetWorksheetFunction();
};

TEST_F(Host, FunctionsGiveTheTailsOfTheDistributions) {
    EXPECT_DOUBLE_EQ(functions.NORMSDIST(0), 0.5);
    EXPECT_NEAR(functions.NORMSDIST(-1), std::erfc(std::sqrt(0.5)) / 2, 1e-15);
    // With two degrees of freedom the tails are exp(-x / 2) and (1 + 2 x / n)^(-n / 2).
    EXPECT_NEAR(functions.ChiDist(3, 2), std::exp(-1.5), 1e-15);
    EXPECT_NEAR(functions.FDist(13, 2, 6), std::pow(1 + 26.0 / 6, -3), 1e-15);
}

TEST_F(Host, FunctionsRefuseWhereATailHasNoMeaning) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::function<void()> calls[] = {
        [&] { (void)functions.ChiDist(-1, 2); },  [&] { (void)functions.ChiDist(1, 0); },
        [&] { (void)functions.ChiDist(nan, 1); }, [&] { (void)functions.FDist(-1, 1, 1); },
        [&] { (void)functions.FDist(1, 0, 1); },  [&] { (void)functions.FDist(1, 1, 0); },
        [&] { (void)functions.NORMSDIST(nan); },
    };
    for (const auto& call : calls) {
        EXPECT_EQ(raisedBy(call).number, 1004);
    }
}

TEST_F(Host, CountIfTakesSeveralAreasAndNoBooleanForANumber) {
    write({{1.0, Text("a"), Text("1")}, {true, Text("A"), 1.0}, {2.0, Empty(), false}});
    const RangeRef cells = application->GetRange("A1:B3,C1:C3");
    EXPECT_EQ(functions.CountIf(cells, "1"), 3);
    EXPECT_EQ(functions.CountIf(cells, "a"), 2);
    EXPECT_EQ(functions.CountIf(cells, "TRUE"), 1);
}

TEST_F(Host, TellsEveryKindOfCellApart) {
    const ValueGrid cells{
        {1.5, Text("text"), true}, {0.0, Text(" "), false}, {1.0, Empty(), CellError::NotAvailable}};
    write(cells);
    EXPECT_EQ(read(cells), cells);
}

TEST_F(Host, AnEmptyTextIsNoEmptyCell) {
    open.sheet()->getCellByPosition(0, 0)->setFormula("=\"\"");
    EXPECT_EQ(read(ValueGrid(1, 2)), (ValueGrid{{Text(), Empty()}}));
}

TEST_F(Host, NamesTheErrorOfAFailedFormula) {
    const std::pair<const char*, CellError> formulas[] = {
        {"=#NULL!", CellError::Null},
        {"=1/0", CellError::DivisionByZero},
        {"=1+\"x\"", CellError::Value},
        {"=#REF!", CellError::Reference},
        {"=nothingOfThatName", CellError::Name},
        {"=10^308*10", CellError::Number},
        {"=NA()", CellError::NotAvailable},
    };
    for (const auto& [formula, error] : formulas) {
        open.sheet()->getCellByPosition(0, 2)->setFormula(OUString::createFromAscii(formula));
        const ValueGrid cell = readCells(open.document(), open.sheet(), {0, 2, 0, 2});
        EXPECT_EQ(toText(cell(1, 1)), displayText(error)) << formula;
    }
}

TEST_F(Host, WritesAnErrorAsAFormulaThatFailsInThatWay) {
    for (const CellError error :
         {CellError::Null, CellError::DivisionByZero, CellError::Value, CellError::Reference, CellError::Name,
          CellError::Number, CellError::NotAvailable}) {
        writeCell(open.document(), open.sheet(), 0, 0, error);
        EXPECT_EQ(toText(read(ValueGrid(1, 1))(1, 1)), displayText(error));
    }
}

TEST_F(Host, ATextStaysATextWhateverItLooksLike) {
    const ValueGrid texts{{Text("2019"), Text("=1+1"), Text("TRUE")},
                          {Text("1/2"), Text("'x"), Text("#N/A")}};
    write(texts);
    EXPECT_EQ(read(texts), texts);
    writeCell(open.document(), open.sheet(), 0, 0, Text("=2+2"));
    EXPECT_EQ(read(ValueGrid(1, 1))(1, 1), CellValue(Text("=2+2")));
}

/// A request on two columns of the document.
class Reports : public Host {
 protected:
    void SetUp() override { write({{1.0, 4.0}, {2.0, 5.0}, {3.0, 6.0}}); }

    void analyse() {
        clsNonPara request(ownCompanions(application));
        request.LetYRange("A1:A3");
        request.LetXRange("B1:B3");
        request.LetOutputRange("D1");
        const calc::Run running(*session);
        request.Results();
    }
};

TEST_F(Reports, HoldTheViewsStillUntilTheyAreBuilt) {
    int steps = 0;
    int stepsHeld = 0;
    session->onStep([&] {
        steps += 1;
        stepsHeld += held() ? 1 : 0;
    });
    analyse();
    EXPECT_GT(stepsHeld, 20);
    // The place is looked at and filled once more after updating was switched on again.
    EXPECT_GT(2 * stepsHeld, steps);
    EXPECT_FALSE(held());
}

TEST_F(Reports, FreeTheViewsWhereverTheyAreBrokenOff) {
    int lastStep = 1;
    for (bool finished = false; !finished; lastStep += 7) {
        int step = 0;
        session->onStep([&] {
            step += 1;
            if (step == lastStep) {
                throw std::runtime_error("broken off");
            }
        });
        finished = raisedBy([&] { analyse(); }).number == 0;
        EXPECT_FALSE(held()) << "after step " << lastStep;
    }
    EXPECT_GT(lastStep, 20);
}

/// A sheet that is added for a report and taken away again as when the report does not arrive.
class AddedSheet : public Host {
 protected:
    void addAndRemove() {
        static_cast<void>(application->AddWorksheets());
        session->removeAddedSheet();
    }

    [[nodiscard]] std::int32_t sheets() const {
        return query<css::container::XIndexAccess>(open.document()->getSheets())->getCount();
    }
};

TEST_F(AddedSheet, GoesFromADocumentWithoutUndoSteps) {
    setProperty(open.document(), "IsUndoEnabled", false);
    addAndRemove();
    EXPECT_EQ(sheets(), 1);
}

TEST_F(AddedSheet, GoesWithItsModuleWhereMacrosAreInTheVbaMode) {
    giveModule(open.document(), open.sheet());
    Reference<css::script::vba::XVBACompatibility> libraries;
    property(open.document(), "BasicLibraries") >>= libraries;
    libraries->setVBACompatibilityMode(true);
    const Reference<css::container::XNameAccess> modules(
        query<css::container::XNameAccess>(libraries)->getByName("Standard"), css::uno::UNO_QUERY_THROW);
    for (int time = 0; time < 2; ++time) {
        addAndRemove();
        EXPECT_EQ(sheets(), 1);
        EXPECT_EQ(modules->getElementNames().getLength(), 1);
    }
}

/// A report in D1:G7, its formats compared with those of the scratch workbook.
class PlacedFormats : public Reports {
 protected:
    void SetUp() override {
        Reports::SetUp();
        analyse();
        scratch = documentNamed(officeContext(), scratchWorkbookName);
    }

    [[nodiscard]] std::vector<std::string> lost(const char* block = "D1:G7") const {
        return lostFormats(scratch, resolve(open.document(), open.sheet(), block));
    }

    DocumentRef scratch;
};

TEST_F(PlacedFormats, AFormatThatDidNotArriveIsNoticed) {
    EXPECT_TRUE(lost().empty());
    setProperty(open.sheet()->getCellByPosition(3, 0), "CharWeight", 100.0F);
    ASSERT_EQ(lost().size(), 1U);
    EXPECT_TRUE(lost().front().starts_with("$A$1 has weight 100")) << lost().front();
}

TEST_F(PlacedFormats, OneThatIsLostInManyCellsIsToldInALineForEachColumnAtMost) {
    // Below the report both sheets are empty.
    setProperty(open.sheet()->getCellRangeByPosition(3, 99, 6, 19'998), "CellBackColor", sal_Int32(0xFF0000));
    const std::vector<std::string> formats = lost("D1:G20000");
    EXPECT_GE(formats.size(), 1U);
    EXPECT_LE(formats.size(), 4U);
    for (const std::string& format : formats) {
        EXPECT_NE(format.find("$19999 has "), std::string::npos) << format;
    }
}

TEST_F(PlacedFormats, CharactersThatAreNotLoweredAreNoticed) {
    const auto text = query<css::text::XText>(sheetAt(scratch, 0)->getCellByPosition(0, 0));
    const auto cursor = text->createTextCursor();
    cursor->gotoStart(false);
    cursor->goRight(1, true);
    setProperty(cursor, "CharEscapement", sal_Int16(-33));
    EXPECT_EQ(lost(), std::vector<std::string>{"$A$1 wants lowered M-33"});
}

}  // namespace

}  // namespace TBVNonPara::Scenarios
