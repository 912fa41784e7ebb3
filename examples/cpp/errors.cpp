// What is thrown: std::invalid_argument by the tests on vectors, TBVNonPara::Error by everything with a
// sheet.

#include <cmath>
#include <iostream>
#include <stdexcept>
#include <tbvnonpara/companion/CompanionLibrary.hpp>
#include <tbvnonpara/files/reading/spreadsheet_file.hpp>
#include <tbvnonpara/request/clsNonPara.hpp>
#include <tbvnonpara/statistics.hpp>
#include <tbvnonpara/workbook/embedded_application.hpp>

using namespace TBVNonPara;

namespace {

/// Tells what an action throws.
void attempt(const char* what, const auto& action) {
    std::cout << what << '\n';
    try {
        action();
    } catch (const Error& error) {
        std::cout << "  number " << error.number() << "\n  text   " << error.description() << "\n  source "
                  << error.source() << '\n';
    } catch (const std::invalid_argument& error) {
        std::cout << "  text   " << error.what() << '\n';
    }
}

}  // namespace

int main() {
    const std::vector<double> numbers{1, 2, 3};

    attempt("a vector that holds NaN", [&] {
        (void)statistics::mannWhitney(numbers, std::vector<double>{4, NAN});
    });
    attempt("a level of 95", [&] { (void)statistics::mannWhitney(numbers, numbers, {.confidence = 95}); });

    const auto application = workbook::makeApplication();
    application->addSheet("Data", ValueGrid{{1.0, 4.0}, {2.0, "n/a"}, {3.0, 6.0}});
    clsNonPara request(ownCompanions(application));
    attempt("an address that is none", [&] { request.LetYRange("Data!7A"); });
    attempt("no second range", [&] {
        request.LetYRange("Data!A1:A3");
        request.Results();
    });
    attempt("a text among the data", [&] {
        request.LetXRange("Data!B1:B3");
        request.Results();
    });
    attempt("no such file", [&] { (void)workbook::openDataFile(*application, "nowhere.csv"); });
}
