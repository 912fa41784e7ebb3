#include "cli/warnings.hpp"

#include <fmt/format.h>
#include <unordered_set>

#include "cli/save.hpp"
#include "cli/shell_words.hpp"
#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/files/xlsx/drawings.hpp"
#include "tbvnonpara/reshaping/missing.hpp"

namespace TBVNonPara::cli {

namespace {

/// Whether there are more different numbers than a third of the rows.
bool holdsManyNumbers(const ValueGrid& cells, Index firstRow) {
    std::unordered_set<double> different;
    const Index rows = toIndex(cells.rows());
    for (Index row = firstRow; row <= rows; ++row) {
        if (const double* number = std::get_if<double>(&cells(row, 1))) {
            different.insert(*number);
        }
        if (3 * static_cast<Index>(different.size()) > rows - firstRow + 1) {
            return true;
        }
    }
    return false;
}

Index blanksIn(const ValueGrid& cells, Index firstRow) {
    Index blanks = 0;
    for (Index row = firstRow; row <= toIndex(cells.rows()); ++row) {
        blanks += isEmpty(cells(row, 1)) ? 1 : 0;
    }
    return blanks;
}

}  // namespace

std::vector<std::string> warningsOnData(const workbook::EmbeddedApplication& application,
                                        const Arguments& arguments, const analysis::ChosenRanges& ranges) {
    std::vector<std::string> warnings;
    if (arguments.test->method != tbvNPWWRuns || arguments.cut) {
        return warnings;
    }
    const ValueGrid cells = application.GetRange(ranges.y)->GetValue();
    const Index firstRow = ranges.headers ? 2 : 1;
    if (holdsManyNumbers(cells, firstRow)) {
        warnings.push_back(
            fmt::format("The numbers in {} are so varied that there are more than a third as many categories "
                        "as rows: each "
                        "number counts as one. For runs above and below a value, add --cut median, or mean, "
                        "or the value.",
                        ranges.y));
    }
    if (const Index blanks = blanksIn(cells, firstRow); blanks > 0 && !arguments.omitMissing) {
        warnings.push_back(fmt::format(
            "{} of the cells in {} {} blank and count as a category; leave them out with --missing omit.",
            blanks, ranges.y, blanks == 1 ? "is" : "are"));
    }
    return warnings;
}

std::vector<std::string> warningsOnGroups(const reshaping::Account& account, const Arguments& arguments) {
    std::vector<std::string> warnings;
    if (arguments.by.empty()) {
        return warnings;
    }
    for (const reshaping::Group& group : account.groups) {
        if (reshaping::soundsMissing(group.name)) {
            warnings.push_back(
                fmt::format("One of the groups is called {}. If that stands for a missing name, add --na {} "
                            "--missing omit.",
                            inQuotes(group.name), shellWord(group.name)));
        }
    }
    return warnings;
}

std::vector<std::string> warningsOnPlace(const analysis::FinishedTest& finished,
                                         const Arguments& arguments) try {
    const bool placed = arguments.format == OutputFormat::Xlsx || arguments.format == OutputFormat::Json;
    if (!placed || arguments.output.empty() || !readsWorkbook(arguments)) {
        return {};
    }
    std::vector<std::string> warnings;
    const workbook::Container parts{std::filesystem::path(arguments.file)};
    for (const auto& drawing : workbook::xlsxDrawingsOver(parts, finished.sheet().name(), finished.block())) {
        warnings.push_back(
            fmt::format("The report at {} lies under {}, which covers {}; move it, or choose "
                        "another place with --output.",
                        finished.address(), drawing.words, plainAddress(drawing.cells)));
    }
    return warnings;
} catch (const Error& error) {
    return {fmt::format("Whether a chart or a picture covers the report could not be found out: {}",
                        error.description())};
}

}  // namespace TBVNonPara::cli
