// A report on a workbook in memory, saved as a file that spreadsheets open.

#include <iostream>
#include <tbvnonpara/companion/CompanionLibrary.hpp>
#include <tbvnonpara/files/saving/saved_file.hpp>
#include <tbvnonpara/files/saving/xlsx_writer.hpp>
#include <tbvnonpara/request/clsNonPara.hpp>
#include <tbvnonpara/workbook/embedded_application.hpp>
#include <vector>

using namespace TBVNonPara;

int main() {
    const auto application = workbook::makeApplication();
    const std::vector<double> before{14.1, 12.8, 15.0, 13.3};
    const std::vector<double> after{16.2, 15.4, 13.9, 17.0};
    const auto data = application->addSheet("Data", {{"before", before}, {"after", after}});

    clsNonPara request(ownCompanions(application));
    request.LetMethod(tbvNPWilcoxon);
    request.LetHeaders(true);
    request.LetYRange("Data!A1:A5");
    request.LetXRange("Data!B1:B5");
    request.Results();  // on a new worksheet, which is the active one now

    const auto report = application->activeSheet();
    const Rectangle area = report->usedArea().value();
    for (Index row = area.top; row <= area.bottom; ++row) {
        for (Index column = area.left; column <= area.right; ++column) {
            std::cout << toText(report->value(row, column)) << (column < area.right ? "  " : "\n");
        }
    }

    workbook::SavedFile file("/tmp/tbvnonpara_report.xlsx", workbook::ExistingFile::Replace);
    file.write(workbook::newWorkbook({{data.get(), data->usedArea().value()}, {report.get(), area}}));
    file.keep();
}
