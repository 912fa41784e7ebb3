#include "cli/program.hpp"

#include <algorithm>
#include <cstdio>
#include <fmt/format.h>
#include <iterator>
#include <system_error>

#include "cli/arguments.hpp"
#include "cli/describe.hpp"
#include "cli/details.hpp"
#include "cli/interruption.hpp"
#include "cli/messages.hpp"
#include "cli/plan.hpp"
#include "cli/progress.hpp"
#include "cli/save.hpp"
#include "cli/standard_input.hpp"
#include "cli/telling.hpp"
#include "cli/terminal.hpp"
#include "cli/test_columns.hpp"
#include "cli/warnings.hpp"
#include "tbvnonpara/analysis/each_column.hpp"
#include "tbvnonpara/analysis/refusal.hpp"
#include "tbvnonpara/analysis/run_test.hpp"
#include "tbvnonpara/analysis/test_data.hpp"
#include "tbvnonpara/analysis/user_range.hpp"
#include "tbvnonpara/core/display_width.hpp"
#include "tbvnonpara/engine/named_results.hpp"
#include "tbvnonpara/rendering/csv_report.hpp"
#include "tbvnonpara/rendering/data_picture.hpp"
#include "tbvnonpara/rendering/details_html.hpp"
#include "tbvnonpara/rendering/html_report.hpp"
#include "tbvnonpara/rendering/json_report.hpp"
#include "tbvnonpara/rendering/text_report.hpp"

namespace TBVNonPara::cli {

namespace {

using rendering::Output;

void warn(const std::vector<std::string>& warnings) {
    for (const std::string& warning : warnings) {
        tell(fmt::format("tbvnonpara: warning: {}\n", escaped(warning)));
    }
}

int answer(const Answer& answer) {
    if (answer.status != 0) {
        tell(answer.text);
        return answer.status;
    }
    Output output(stdout);
    output.write(answer.text);
    output.finish();
    return 0;
}

/// A finished test, and what its data were.
struct Tested {
    analysis::FinishedTest finished;
    rendering::PictureData picture;
    std::optional<reshaping::Account> account;
    std::optional<analysis::CutNumbers> cut;
    std::vector<LabelledColumn> columns;  ///< of the details
    std::optional<Details> details = {};
};

/// The results of the test, and where its numbers were cut.
std::vector<NamedResult> resultsOf(const Tested& tested, const Arguments& arguments) {
    std::vector<NamedResult> results = namedResults(arguments.test->method, tested.finished.engine());
    if (tested.cut) {
        results.push_back({"cut.at", tested.cut->at});
        results.push_back({"cut.above", Long(tested.cut->above)});
        results.push_back({"cut.below", Long(tested.cut->below)});
        results.push_back({"cut.equal", Long(tested.cut->equal)});
    }
    return results;
}

void write(const Tested& tested, const Arguments& arguments, const std::vector<std::string>& warnings,
           Output& output) {
    const analysis::FinishedTest& finished = tested.finished;
    const rendering::ReportBlock report(finished.sheet(), finished.block());
    const bool shown = arguments.save.empty();
    const std::size_t width = shown ? terminalWidth() : 0;
    const Details* const details = tested.details ? &*tested.details : nullptr;
    const rendering::CsvFields fields{arguments.safeCsv, shown && writesToTerminal()};
    switch (arguments.format) {
        case OutputFormat::Text:
            rendering::writeText(report, shown && wantsColour(), output, width);
            writeDetailsBelow(tested.details, output, width);
            break;
        case OutputFormat::Json:
            rendering::writeJson(arguments.test->name, finished.address(), report,
                                 resultsOf(tested, arguments), output,
                                 {tested.account ? &*tested.account : nullptr, details, warnings});
            break;
        case OutputFormat::Csv:
            rendering::writeCsv(report, output, fields);
            writeDetailsBelow(tested.details, output, fields);
            break;
        case OutputFormat::Html:
            rendering::writeHtml(
                report, arguments.test->title,
                rendering::dataPicture(arguments.test->method, tested.picture, finished.engine(), details),
                output, details == nullptr ? "" : rendering::detailsInHtml(*details));
            break;
        case OutputFormat::Xlsx:
            break;  // only ever saved
    }
}

ObjectRef<workbook::EmbeddedApplication> open(const Arguments& arguments, std::string* remark) try {
    return arguments.file == "-" ? analysis::openContents("stdin", readStandardInput(), arguments, remark)
                                 : analysis::openFile(arguments, remark);
} catch (const workbook::NotUtf8& error) {
    analysis::refuse(
        error.number(),
        error.description() + " Or name its encoding: --encoding windows-1252 or --encoding latin1.");
}

/// What a page draws; nothing for other forms.
rendering::PictureData dataToDraw(const workbook::EmbeddedApplication& application,
                                  const Arguments& arguments, const analysis::ChosenRanges& ranges) {
    if (arguments.format != OutputFormat::Html) {
        return {};
    }
    return rendering::pictureData(application, ranges.y, ranges.x, ranges.headers);
}

template <typename Value>
std::optional<Value> copyOf(const Value* value) {
    return value == nullptr ? std::nullopt : std::optional(*value);
}

/// Brings the data into form and runs the test on them.
Tested runOn(const ObjectRef<workbook::EmbeddedApplication>& application, const Arguments& arguments,
             const analysis::ChosenRanges& chosen) {
    const analysis::TestData data(application, arguments, chosen);
    for (const std::string& note : data.notes()) {
        tellLines(note);
    }
    // The picture and the details show the data as they are before a report is put over them.
    rendering::PictureData picture = dataToDraw(*application, arguments, data.ranges());
    std::vector<LabelledColumn> columns = columnsInDetail(*application, arguments, data.ranges());
    return {analysis::runTest(application, arguments, data.ranges()), std::move(picture),
            copyOf(data.account()), copyOf(data.cut()), std::move(columns)};
}

int analyse(const Arguments& arguments, Circumstances& circumstances) {
    checkSaving(arguments);
    Progress progress("Reading " + escaped(arguments.file));
    std::string remark;
    const ObjectRef<workbook::EmbeddedApplication> application = open(arguments, &remark);
    if (!remark.empty()) {
        tell(escaped(remark) + '\n');
    }
    if (arguments.describe) {
        progress.end();
        describe(*application, arguments);
        return 0;
    }
    if (analysis::testsEachColumn(*application, arguments)) {
        if (arguments.plan) {
            analysis::refuse(tbvNPYRangeColumns, "A plan is of one column; name one with --y.");
        }
        return testColumns(*application, arguments, progress);
    }
    const analysis::ChosenRanges chosen = analysis::chooseRanges(*application, arguments);
    circumstances.ranges = analysis::asInTheFile(*application, chosen);
    if (arguments.plan) {
        progress.end();
        printPlan(arguments, circumstances.ranges, {application, arguments, chosen});
        return 0;
    }
    if (!circumstances.ranges.note.empty()) {
        tellLines(circumstances.ranges.note);
    }
    progress.next("Analysing");
    std::vector<std::string> warnings = warningsOnData(*application, arguments, chosen);
    Tested tested = runOn(application, arguments, chosen);
    tested.details = findDetails(arguments, tested.columns, tested.finished.engine(), progress, warnings);
    // Of a program that Ctrl+C has ended, though the report is there.
    const int status = Interruption::noted() ? 130 : 0;
    placeDetails(arguments, tested.details, tested.finished, warnings);
    if (tested.account) {
        std::ranges::move(warningsOnGroups(*tested.account, arguments), std::back_inserter(warnings));
    }
    std::ranges::move(warningsOnPlace(tested.finished, arguments), std::back_inserter(warnings));
    const auto writeTo = [&](Output& output) { write(tested, arguments, warnings, output); };
    if (!arguments.save.empty()) {
        progress.next("Saving " + escaped(arguments.save));
        const std::string saved = saveReport(tested.finished, arguments, writeTo);
        progress.end();
        warn(warnings);
        tell(lineOnSmallP(arguments, tested.finished.engine()));
        tell(escaped(saved) + '\n');
        return status;
    }
    progress.end();
    warn(warnings);
    tell(lineOnSmallP(arguments, tested.finished.engine()));
    Output output(stdout);
    writeTo(output);
    output.finish();
    return status;
}

int report(const Error& error, const Circumstances& circumstances, OutputFormat format) {
    if (format != OutputFormat::Json) {
        tell(errorText(error, circumstances));
        return failureStatus;
    }
    Output output(stdout);
    output.write(errorInJson(error, circumstances));
    output.finish();
    return failureStatus;
}

int run(const Arguments& arguments) {
    Circumstances circumstances{arguments.test, {}};
    try {
        return analyse(arguments, circumstances);
    } catch (const std::system_error&) {
        throw;
    } catch (const reshaping::Refusal& refusal) {
        return report(withRemedy(refusal, arguments.command), circumstances,
                      arguments.save.empty() ? arguments.format : OutputFormat::Text);
    } catch (...) {
        return report(currentError(), circumstances,
                      arguments.save.empty() ? arguments.format : OutputFormat::Text);
    }
}

}  // namespace

int runProgram(int count, const char* const* words) try {
    const auto asked = parseArguments(count, words);
    const auto* const answered = std::get_if<Answer>(&asked);
    return answered != nullptr ? answer(*answered) : run(std::get<Arguments>(asked));
} catch (const std::system_error& failure) {
    tell(fmt::format("tbvnonpara: The output could not be written to its end: {}.\n",
                     failure.code().message()));
    return failureStatus;
} catch (const std::exception& failure) {
    tell(fmt::format("tbvnonpara: {}\n", escaped(failure.what())));
    return failureStatus;
}

}  // namespace TBVNonPara::cli
