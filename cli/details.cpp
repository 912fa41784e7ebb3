#include "cli/details.hpp"

#include <fmt/format.h>
#include <stdexcept>

#include "tbvnonpara/analysis/results.hpp"
#include "tbvnonpara/rendering/details_csv.hpp"
#include "tbvnonpara/rendering/details_page.hpp"
#include "tbvnonpara/rendering/details_text.hpp"

namespace TBVNonPara::cli {

std::vector<analysis::LabelledColumn> columnsInDetail(const workbook::EmbeddedApplication& application,
                                                      const Arguments& arguments,
                                                      const analysis::ChosenRanges& ranges) {
    return arguments.details ? analysis::columnsOf(application, ranges)
                             : std::vector<analysis::LabelledColumn>();
}

std::optional<analysis::Details> findDetails(const Arguments& arguments,
                                             const std::vector<analysis::LabelledColumn>& columns,
                                             const clsNonParaBO& engine,
                                             std::vector<std::string>& warnings) try {
    return arguments.details
               ? std::optional(analysis::detailsOf(arguments, *arguments.details, columns, engine))
               : std::nullopt;
} catch (const std::invalid_argument& reason) {
    warnings.push_back(fmt::format("There are no details: {}", reason.what()));
    return std::nullopt;
}

void writeDetailsBelow(const std::optional<analysis::Details>& details, rendering::Output& output,
                       std::size_t width) {
    if (details) {
        rendering::writeDetails(rendering::detailPage(*details), output, width);
    }
}

void writeDetailsBelow(const std::optional<analysis::Details>& details, rendering::Output& output,
                       const rendering::CsvFields& fields) {
    if (details) {
        rendering::writeDetailsCsv(*details, output, fields);
    }
}

void placeDetails(const Arguments& arguments, const std::optional<analysis::Details>& details,
                  analysis::FinishedTest& finished, std::vector<std::string>& warnings) try {
    if (details && arguments.format == OutputFormat::Xlsx) {
        finished.placeDetails(rendering::detailPage(*details));
    }
} catch (const Error& error) {
    warnings.push_back(fmt::format("There are no details: {}", error.description()));
}

std::string lineOnSmallP(const Arguments& arguments, const clsNonParaBO& engine) {
    constexpr double shownAsZero = 0.00005;
    const bool allDigits = arguments.format == OutputFormat::Json || arguments.format == OutputFormat::Csv;
    const double P = analysis::reportedP(arguments.test->method, engine);
    const bool hidden = !allDigits && !arguments.details && P > 0 && P < shownAsZero;
    return hidden ? fmt::format("P = {:.1e} (0.0000 at four decimals)\n", P) : "";
}

}  // namespace TBVNonPara::cli
