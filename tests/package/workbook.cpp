// A C++ client of the workbook: tests two columns of a table, prints figures of report and details.

#include <iostream>
#include <tbvnonpara/companion/CompanionLibrary.hpp>
#include <tbvnonpara/details/clsNonParaDetails.hpp>
#include <tbvnonpara/files/reading/spreadsheet_file.hpp>
#include <tbvnonpara/request/clsNonPara.hpp>
#include <tbvnonpara/workbook/embedded_application.hpp>

int main() {
    using namespace TBVNonPara;

    const auto application = workbook::makeApplication();
    workbook::openData(*application, "Data", "before,after\n1,4\n2,5\n3,6\n");
    clsNonPara request(ownCompanions(application));
    request.LetHeaders(true);
    request.LetYRange("Data!A1:A4");
    request.LetXRange("Data!B1:B4");
    request.LetOutputRange("Data!D1");
    request.Results();
    std::cout << "U = " << toText(application->GetRange("Data!D7")->GetValue()(1, 1));
    std::cout << ", P = " << toText(application->GetRange("Data!G7")->GetValue()(1, 1)) << '\n';

    clsNonParaDetails details(ownCompanions(application));
    details.LetHeaders(true);
    details.LetYRange("Data!A1:A4");
    details.LetXRange("Data!B1:B4");
    details.Calculate();
    std::cout << "A = " << toText(details.Value("effect.superiority")) << '\n';
}
