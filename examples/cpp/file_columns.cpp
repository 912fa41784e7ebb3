// Reads a file (.csv, .xlsx, .ods, ...) and tests each of its columns against the first.

#include <cstdio>
#include <exception>
#include <tbvnonpara/analysis/columns.hpp>
#include <tbvnonpara/files/reading/spreadsheet_file.hpp>
#include <tbvnonpara/statistics.hpp>
#include <tbvnonpara/workbook/embedded_application.hpp>

int main(int count, char** arguments) try {
    using namespace TBVNonPara;
    if (count != 2) {
        std::fprintf(stderr, "usage: file_columns FILE\n");
        return 2;
    }
    const auto application = workbook::makeApplication();
    const auto sheet = workbook::openDataFile(*application, arguments[1]);

    const std::string everything = plainAddress(sheet->usedArea().value());
    const std::vector<LabelledColumn> columns = analysis::columnsAt(*application, everything, true);
    const std::vector<double> control = numbersOf(columns.front());
    for (std::size_t place = 1; place < columns.size(); ++place) {
        const auto test = statistics::mannWhitney(control, numbersOf(columns[place]));
        std::printf("%s and %s: U = %g, superiority %.3f", columns.front().label.c_str(),
                    columns[place].label.c_str(), test.u[0], test.superiority.value);
        if (test.exact) {
            std::printf(", P = %.4f", test.exact->two.value);
        }
        std::printf("\n");
    }
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
