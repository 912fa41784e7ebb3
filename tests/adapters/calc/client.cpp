// A client in C++ by the typed interface, in a process of its own. It is given the pipe of a running office
// and the file that is to be tested.
#include <TBVNonPara/AnalysisException.hpp>
#include <TBVNonPara/TBVNPMethod.hpp>
#include <TBVNonPara/XclsNonPara.hpp>
#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <gtest/gtest.h>

namespace {

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::Sequence;
using rtl::OUString;

std::string pipeName;

class Client : public testing::Test {
 protected:
    Client() {
        const auto local = cppu::defaultBootstrap_InitialComponentContext();
        const OUString url = "uno:pipe,name=" + OUString::createFromAscii(pipeName.c_str()) +
                             ";urp;StarOffice.ComponentContext";
        office.set(css::bridge::UnoUrlResolver::create(local)->resolve(url), css::uno::UNO_QUERY_THROW);
        document.set(css::frame::Desktop::create(office)->loadComponentFromURL("private:factory/scalc",
                                                                               "_blank", 0, {}),
                     css::uno::UNO_QUERY_THROW);
        request.set(office->getServiceManager()->createInstanceWithContext("TBVNonPara.clsNonPara", office),
                    css::uno::UNO_QUERY_THROW);
    }

    ~Client() override { Reference<css::util::XCloseable>(document, css::uno::UNO_QUERY_THROW)->close(true); }

    [[nodiscard]] Reference<css::sheet::XCellRangeData> cells(const OUString& address) const {
        const Reference<css::table::XCellRange> sheet(
            document->getSheets()->getByName(document->getSheets()->getElementNames()[0]),
            css::uno::UNO_QUERY_THROW);
        return {sheet->getCellRangeByName(address), css::uno::UNO_QUERY_THROW};
    }

    void write(const OUString& address, const std::vector<std::pair<double, double>>& rows) const {
        Sequence<Sequence<Any>> data(static_cast<sal_Int32>(rows.size()));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const Any pair[] = {Any(rows[i].first), Any(rows[i].second)};
            data.getArray()[i] = Sequence<Any>(pair, 2);
        }
        cells(address)->setDataArray(data);
    }

    Reference<css::uno::XComponentContext> office;
    Reference<css::sheet::XSpreadsheetDocument> document;
    Reference<TBVNonPara::XclsNonPara> request;
};

TEST_F(Client, RunsATestByTheTypedInterface) {
    write("A1:B3", {{1, 4}, {2, 5}, {3, 6}});
    request->setMethod(TBVNonPara::TBVNPMethod::tbvNPMannU);
    request->setYRange("A1:A3");
    request->setXRange("B1:B3");
    request->setOutputRange("D1");
    request->Results(false);

    double P = 0;
    cells("G7")->getDataArray()[0][0] >>= P;
    EXPECT_DOUBLE_EQ(P, 0.1);
}

TEST_F(Client, CatchesNumberAndSource) {
    try {
        request->Results(false);
        FAIL() << "no error";
    } catch (const TBVNonPara::AnalysisException& error) {
        EXPECT_EQ(error.Number, -2147216493);
        EXPECT_EQ(error.Source, OUString("Line 0 in TBVNonPara.clsNonPara.Results"));
        EXPECT_TRUE(error.TargetException.hasValue());
    }
}

TEST_F(Client, RangePropertiesRaiseBareNumbers) {
    try {
        request->setYRange("Nowhere!A1");
        FAIL() << "no error";
    } catch (const TBVNonPara::AnalysisException& error) {
        EXPECT_EQ(error.Number, -2147216495);
        EXPECT_TRUE(error.Source.isEmpty());
    }
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (argc != 2) {
        return 2;
    }
    pipeName = argv[1];
    return RUN_ALL_TESTS();
}
