#include <com/sun/star/frame/XLoadable.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/text/XText.hpp>
#include <gtest/gtest.h>

#include "adapters/calc/calc_application.hpp"
#include "adapters/calc/writing.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tests/adapters/calc/office_document.hpp"

namespace TBVNonPara::Scenarios {

namespace {

using namespace TBVNonPara::calc;

/// A document that is loaded but shown nowhere, as a converter or a server has it.
class UnseenDocument {
 public:
    UnseenDocument()
        : m_Document(officeContext()->getServiceManager()->createInstanceWithContext(
                         "com.sun.star.sheet.SpreadsheetDocument", officeContext()),
                     css::uno::UNO_QUERY_THROW) {
        query<css::frame::XLoadable>(m_Document)->initNew();
    }
    ~UnseenDocument() { query<css::util::XCloseable>(m_Document)->close(true); }
    UnseenDocument(const UnseenDocument&) = delete;
    UnseenDocument& operator=(const UnseenDocument&) = delete;

    [[nodiscard]] const DocumentRef& document() const { return m_Document; }

 private:
    DocumentRef m_Document;
};

class WithoutViews : public testing::Test {
 protected:
    void SetUp() override {
        writeCells(unseen.document(), sheet(), {0, 0, 1, 3},
                   ValueGrid{{"x", "y"}, {1.0, 2.0}, {2.0, 1.0}, {3.0, 3.0}});
    }

    [[nodiscard]] SheetRef sheet() const { return sheetAt(unseen.document(), 0); }

    void analyse(TBVNPMethod method, bool overWrite) {
        const auto session = std::make_shared<Session>(officeContext(), unseen.document());
        clsNonPara request(ownCompanions(makeObject<CalcApplication>(session)));
        request.LetMethod(method);
        request.LetHeaders(true);
        request.LetYRange("A1:A4");
        request.LetXRange("B1:B4");
        request.LetOutputRange("D1");
        const calc::Run running(*session);
        request.Results(overWrite);
    }

    [[nodiscard]] std::string text(sal_Int32 column, sal_Int32 row) const {
        return toUtf8(Reference<css::text::XTextRange>(sheet()->getCellByPosition(column, row),
                                                       css::uno::UNO_QUERY_THROW)
                          ->getString());
    }

    UnseenDocument unseen;
};

TEST_F(WithoutViews, AReportIsPlacedWithItsFormatsAndNoSheetIsLeftBehind) {
    analyse(tbvNPSpearman, false);
    EXPECT_EQ(text(3, 0), "Spearman Rank Correlation Results for:");
    float weight = 0;
    property(sheet()->getCellByPosition(3, 0), "CharWeight") >>= weight;
    EXPECT_EQ(weight, 150);
    EXPECT_EQ(unseen.document()->getSheets()->getElementNames().getLength(), 1);
}

TEST_F(WithoutViews, AnotherReportReplacesTheFirstWhenItMay) {
    analyse(tbvNPSpearman, false);
    EXPECT_THROW(analyse(tbvNPMannU, false), Error);
    analyse(tbvNPMannU, true);
    EXPECT_EQ(text(3, 0), "Mann-Whitney Test Results for:");
}

}  // namespace

}  // namespace TBVNonPara::Scenarios
