#include "cli/details.hpp"

#include <fmt/format.h>
#include <stdexcept>

#include "cli/interruption.hpp"
#include "tbvnonpara/analysis/columns.hpp"
#include "tbvnonpara/details/page.hpp"
#include "tbvnonpara/details/text.hpp"
#include "tbvnonpara/engine/named_results.hpp"
#include "tbvnonpara/rendering/details_csv.hpp"

namespace TBVNonPara::cli {

namespace {

/// What ends a count that the user does not wait for.
struct Interrupted {};

}  // namespace

std::vector<LabelledColumn> columnsInDetail(const workbook::EmbeddedApplication& application,
                                            const Arguments& arguments,
                                            const analysis::ChosenRanges& ranges) {
    return arguments.details ? analysis::columnsOf(application, ranges) : std::vector<LabelledColumn>();
}

std::optional<Details> findDetails(const Arguments& arguments, const std::vector<LabelledColumn>& columns,
                                   const clsNonParaBO& engine, Progress& progress,
                                   std::vector<std::string>& warnings) try {
    if (!arguments.details) {
        return std::nullopt;
    }
    const Interruption interruption;
    return detailsOf(*arguments.test, arguments.tails, *arguments.details, columns, engine,
                     [&](double share) {
                         if (Interruption::noted()) {
                             throw Interrupted();
                         }
                         progress.next(fmt::format("Counting, {:.0f} %", 100 * share));
                     });
} catch (const std::invalid_argument& reason) {
    warnings.push_back(fmt::format("There are no details: {}", reason.what()));
    return std::nullopt;
} catch (const Interrupted&) {
    warnings.emplace_back("There are no details: their count was interrupted.");
    return std::nullopt;
}

void writeDetailsBelow(const std::optional<Details>& details, rendering::Output& output, std::size_t width) {
    if (details) {
        output.write(detailsText(detailPage(*details), width));
    }
}

void writeDetailsBelow(const std::optional<Details>& details, rendering::Output& output,
                       const rendering::CsvFields& fields) {
    if (details) {
        rendering::writeDetailsCsv(*details, output, fields);
    }
}

void placeDetails(const Arguments& arguments, const std::optional<Details>& details,
                  analysis::FinishedTest& finished, std::vector<std::string>& warnings) try {
    if (details && arguments.format == OutputFormat::Xlsx) {
        finished.placeDetails(detailPage(*details));
    }
} catch (const Error& error) {
    warnings.push_back(fmt::format("There are no details: {}", error.description()));
}

std::string lineOnSmallP(const Arguments& arguments, const clsNonParaBO& engine) {
    constexpr double shownAsZero = 0.00005;
    const bool allDigits = arguments.format == OutputFormat::Json || arguments.format == OutputFormat::Csv;
    const double P = reportedP(arguments.test->method, engine);
    const bool hidden = !allDigits && !arguments.details && P > 0 && P < shownAsZero;
    return hidden ? fmt::format("P = {:.1e} (0.0000 at four decimals)\n", P) : "";
}

}  // namespace TBVNonPara::cli
