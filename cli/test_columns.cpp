#include "cli/test_columns.hpp"

#include <algorithm>
#include <cstdio>
#include <fmt/format.h>

#include "cli/details.hpp"
#include "cli/messages.hpp"
#include "cli/save.hpp"
#include "cli/telling.hpp"
#include "cli/terminal.hpp"
#include "tbvnonpara/analysis/each_column.hpp"
#include "tbvnonpara/details/text.hpp"
#include "tbvnonpara/rendering/column_table.hpp"
#include "tbvnonpara/rendering/text_report.hpp"

namespace TBVNonPara::cli {

namespace {

using analysis::ColumnTest;
using analysis::EachColumn;
using rendering::Output;
using Tests = std::vector<ColumnTest>;

/// Errors in the program's words, with the option that helps.
void explainErrors(Tests& tests, const Arguments& arguments) {
    for (ColumnTest& test : tests) {
        if (test.error) {
            analysis::ChosenRanges ranges;
            ranges.y = test.address;
            const bool missing = test.remedy == reshaping::Remedy::OmitMissing;
            test.error.emplace(test.error->number(),
                               explain(*test.error, {arguments.test, ranges}) +
                                   (missing ? " Add --missing omit to leave out what is missing." : ""),
                               test.error->source());
        }
    }
}

Tests writeReports(const workbook::EmbeddedApplication& application, const Arguments& arguments,
                   const EachColumn& each, Output& output) {
    const bool shown = arguments.save.empty();
    bool first = true;
    Tests tests = analysis::reportEach(
        application, arguments, each,
        [&](const ColumnTest& test, const analysis::FinishedTest& finished) {
            output.write(first ? "" : "\n");
            first = false;
            rendering::writeText({finished.sheet(), finished.block()}, shown && wantsColour(), output,
                                 shown ? terminalWidth() : 0);
            writeDetailsBelow(test.details, output, shown ? terminalWidth() : 0);
        },
        arguments.details);
    explainErrors(tests, arguments);
    if (arguments.details) {
        output.write(
            detailsText(rendering::columnsPage(tests, *arguments.details), shown ? terminalWidth() : 0));
    }
    return tests;
}

Tests writeTable(const workbook::EmbeddedApplication& application, const Arguments& arguments,
                 const EachColumn& each, Output& output) {
    Tests tests = analysis::testEach(application, arguments, each, arguments.details);
    explainErrors(tests, arguments);
    if (arguments.format == OutputFormat::Json) {
        rendering::writeColumnsAsJson(arguments.test->name, tests, output);
    } else {
        const bool visible = arguments.save.empty() && writesToTerminal();
        rendering::writeColumnsAsCsv(tests, {arguments.safeCsv, visible}, output);
    }
    return tests;
}

/// The columns without results, the first few by name.
void tellFailures(const Tests& tests) {
    constexpr std::size_t most = 5;
    std::size_t failures = 0;
    for (const ColumnTest& test : tests) {
        if (!test.error) {
            continue;
        }
        failures += 1;
        if (failures <= most) {
            tellLines(
                fmt::format("tbvnonpara: {} has no result: {}", test.column, test.error->description()));
        }
    }
    if (failures > most) {
        tell(fmt::format("tbvnonpara: {} of {} columns have no result.\n", failures, tests.size()));
    }
}

/// The columns with results but without the details that were asked for.
void tellMissingDetails(const Tests& tests) {
    const auto lacksThem = [](const ColumnTest& test) { return !test.detailsProblem.empty(); };
    const auto first = std::ranges::find_if(tests, lacksThem);
    if (first == tests.end()) {
        return;
    }
    const auto count = std::ranges::count_if(tests, lacksThem);
    tellLines(fmt::format("tbvnonpara: {} has no details: {}", first->column, first->detailsProblem));
    if (count > 1) {
        tell(fmt::format("tbvnonpara: {} of {} columns have no details.\n", count, tests.size()));
    }
}

}  // namespace

int testColumns(const workbook::EmbeddedApplication& application, const Arguments& arguments,
                Progress& progress) {
    const EachColumn each = analysis::chooseEach(application, arguments);
    tell(
        fmt::format("testing {} {}\n", each.columns.size(), each.columns.size() == 1 ? "column" : "columns"));
    progress.next("Analysing");
    Tests tests;
    const auto write = [&](Output& output) {
        tests = arguments.format == OutputFormat::Text ? writeReports(application, arguments, each, output)
                                                       : writeTable(application, arguments, each, output);
        progress.end();
    };
    if (arguments.save.empty()) {
        Output output(stdout);
        write(output);
        output.finish();
    } else {
        saveText(arguments, write);
        tellLines("saved in " + arguments.save);
    }
    tellFailures(tests);
    tellMissingDetails(tests);
    const auto isDone = [&](const ColumnTest& test) {
        return !test.error && (test.details || !arguments.details);
    };
    return std::ranges::any_of(tests, isDone) ? 0 : failureStatus;
}

}  // namespace TBVNonPara::cli
