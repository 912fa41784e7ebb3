#include "cli/messages.hpp"

#include <array>
#include <fmt/format.h>

#include "tbvnonpara/rendering/json_values.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::cli {

namespace {

/// A sentence for a number. {0} stands for the test ("the sign test"), {3} for the same at the beginning of a
/// sentence, {1} and {2} for the ranges.
struct OwnError {
    std::int32_t number;
    std::string_view name;
    std::string_view sentence;
};

constexpr auto ownErrors = std::to_array<OwnError>({
    {tbvNPBadOutputRange, "tbvNPBadOutputRange",
     "The place for the report cannot be found. Give --output a cell of a sheet that there is, for example "
     "Sheet1!H1."},
    {tbvNPBadYRange, "tbvNPBadYRange",
     "The first range {1} cannot be found. Give --y an address such as A1:A9, a column's letters or its "
     "header."},
    {tbvNPBadXRange, "tbvNPBadXRange",
     "The second range {2} cannot be found. Give --x an address such as B1:B9, a column's letters or its "
     "header."},
    {tbvNPNoYRange, "tbvNPNoYRange", "There is no data range. Name one with --y."},
    {tbvNPNoXRange, "tbvNPNoXRange",
     "The second range is missing: {0} compares two columns, and only {1} was given. Name the other with "
     "--x, "
     "for example --x B."},
    {tbvNPUnequalPairs, "tbvNPUnequalPairs",
     "The two ranges differ in their number of rows: {1} and {2}. {3} takes pairs row by row; complete or "
     "remove "
     "the rows without a partner."},
    {tbvNPTooFewGroups, "tbvNPTooFewGroups",
     "{3} compares several groups, and {1} is one column. Name two columns or more, for example --y A:C."},
    {tbvNPTooFewRows, "tbvNPTooFewRows",
     "{1} has fewer than two rows of data. Extend the range, or use --no-headers if its first row is data."},
    {tbvNPYRangeColumns, "tbvNPYRangeColumns",
     "{1} has several columns, and {0} takes one for the first range. Name one column with --y."},
    {tbvNPXRangeColumns, "tbvNPXRangeColumns",
     "{2} has several columns, and {0} takes one for the second range. Name one column with --x."},
    {tbvNPInvalidSignSymbols, "tbvNPInvalidSignSymbols",
     "A cell of {1} is neither 1, -1 nor 0. Correct the codes, or name a second column with --x to compare "
     "two "
     "variables."},
    {tbvNPTextInData, "tbvNPTextInData", "A cell of the data holds a text. Correct it."},
    {tbvNPBooleanInData, "tbvNPBooleanInData", "A cell of the data holds TRUE or FALSE. Correct it."},
    {tbvNPErrorInData, "tbvNPErrorInData", "A cell of the data holds an error. Correct it."},
    {tbvNPBlankInData, "tbvNPBlankInData", "A cell of the data is blank. Fill it or leave the row out."},
    {tbvNPNoData, "tbvNPNoData", "{1} holds no data."},
    {tbvNPOutputOffSheet, "tbvNPOutputOffSheet",
     "The report is larger than a sheet. Leave --descriptives out."},
    {tbvNPOutputOccupied, "tbvNPOutputOccupied", "The report would replace cells. Please report this fault."},
    {tbvNPNoContingencyTable, "tbvNPNoContingencyTable",
     "The counts form no table. Name two groups or more."},
    {workbook::hostErrorNumber, "HostError", "The workbook refused an operation."},
    {5, "InvalidProcedureCall", ""},
    {6, "Overflow", ""},
    {7, "OutOfMemory",
     "There is not enough memory for these data. Name fewer rows, or leave --descriptives out."},
    {9, "SubscriptOutOfRange", ""},
    {11, "DivisionByZero", ""},
    {13, "TypeMismatch", "A cell of the data is no number. Correct it."},
    {51, "InternalError", ""},
    {91, "ObjectNotSet", ""},
});

constexpr std::string_view noDifferenceRanked =
    "All differences between {1} and {2} are zero, so there is nothing to rank. Check the columns.";
constexpr std::string_view noCorrelation =
    "All values of {1} or of {2} are equal, or so many that the correction for ties leaves nothing to take "
    "the "
    "square root of. There is no rank correlation.";
constexpr std::string_view runsAreCertain =
    "The cells of {1} are all equal, or all different, so the number of runs is certain. The test needs "
    "categories "
    "that repeat.";

/// Why a computation has no result, by test and runtime error.
struct Fault {
    TBVNPMethod method;
    std::int32_t number;
    std::string_view sentence;
};

constexpr auto faults = std::to_array<Fault>({
    {tbvNPMannU, 11, "All values of {1} and {2} are equal, so there is nothing to rank. Check the columns."},
    {tbvNPWilcoxon, 5, noDifferenceRanked},
    {tbvNPWilcoxon, 6,
     "Either all differences between {1} and {2} are zero, and none could be ranked, or one is too large: a "
     "difference must lie within single precision (about 3.4e38). Check the columns."},
    {tbvNPWilcoxon, 11, noDifferenceRanked},
    {tbvNPSpearman, 5, noCorrelation},
    {tbvNPSpearman, 6, noCorrelation},
    {tbvNPSpearman, 11, noCorrelation},
    {tbvNPFriedman, 6, "All values are equal within every block of {1}, so the treatments cannot be ranked."},
    {tbvNPFriedman, 11,
     "Every block of {1} ranks the treatments in the same order, so the F statistic has a zero denominator. "
     "The "
     "treatments differ as clearly as they can; a report needs data that disagree somewhere."},
    {tbvNPKWallis, 6,
     "A column of {1} holds no value, or all values are equal, so the groups cannot be ranked."},
    {tbvNPKWallis, 11,
     "There are too few values in {1} for the F statistic: its denominator is zero. Give the groups more "
     "values."},
    {tbvNPWWRuns, 11, runsAreCertain},
    {tbvNPWWRuns, 5, runsAreCertain},
});

const OwnError* find(std::int32_t number) noexcept {
    for (const OwnError& entry : ownErrors) {
        if (entry.number == number) {
            return &entry;
        }
    }
    return nullptr;
}

std::string_view sentenceFor(const Error& error, const analysis::OfferedTest* test) noexcept {
    for (const Fault& fault : faults) {
        if (test != nullptr && fault.method == test->method && fault.number == error.number()) {
            return fault.sentence;
        }
    }
    const OwnError* const entry = find(error.number());
    return entry == nullptr ? "" : entry->sentence;
}

bool isRuntimeError(std::int32_t number) noexcept {
    return number > 0 && number < workbook::hostErrorNumber;
}

std::string titleOf(const analysis::OfferedTest* test) {
    return test == nullptr ? "the test" : "the " + std::string(test->title) + " test";
}

std::string capitalised(std::string title) {
    title.front() = 'T';
    return title;
}

}  // namespace

std::string_view errorName(std::int32_t number) noexcept {
    const OwnError* const entry = find(number);
    return entry == nullptr ? "Error" : entry->name;
}

std::string explain(const Error& error, const Circumstances& circumstances) {
    const std::string_view sentence = sentenceFor(error, circumstances.test);
    const bool describesItself = !error.description().empty() && !isRuntimeError(error.number());
    if (describesItself || sentence.empty()) {
        return error.description().empty() ? "The test failed without a description." : error.description();
    }
    const analysis::ChosenRanges& ranges = circumstances.ranges;
    const std::string title = titleOf(circumstances.test);
    return fmt::format(fmt::runtime(sentence), title, ranges.y, ranges.x, capitalised(title));
}

std::string errorText(const Error& error, const Circumstances& circumstances) {
    const std::string source = error.source().empty() ? "" : ": " + error.source();
    return fmt::format("tbvnonpara: {}\n  error {} ({}){}\n", explain(error, circumstances), error.number(),
                       errorName(error.number()), source);
}

std::string errorInJson(const Error& error, const Circumstances& circumstances) {
    using rendering::textInJson;
    return fmt::format(R"({{"error": {{"number": {}, "name": {}, "source": {}, "description": {}}}}})",
                       error.number(), textInJson(errorName(error.number())), textInJson(error.source()),
                       textInJson(explain(error, circumstances))) +
           '\n';
}

}  // namespace TBVNonPara::cli
