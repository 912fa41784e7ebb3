#include "tbvnonpara/request/error_causes.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "tbvnonpara/core/words.hpp"

namespace TBVNonPara {

namespace {

constexpr std::int32_t numberOf(RuntimeError error) noexcept {
    return static_cast<std::int32_t>(error);
}

/// A number, its name and what it means whatever the test.
struct NamedNumber {
    std::int32_t number;
    std::string_view name;
    Cause cause;
};

// clang-format off
constexpr auto namedNumbers = std::to_array<NamedNumber>({
    {tbvNPBadOutputRange,                           "tbvNPBadOutputRange",     Cause::BadOutputRange},
    {tbvNPBadYRange,                                "tbvNPBadYRange",          Cause::BadYRange},
    {tbvNPBadXRange,                                "tbvNPBadXRange",          Cause::BadXRange},
    {tbvNPNoYRange,                                 "tbvNPNoYRange",           Cause::NoYRange},
    {tbvNPNoXRange,                                 "tbvNPNoXRange",           Cause::NoXRange},
    {tbvNPUnequalPairs,                             "tbvNPUnequalPairs",       Cause::UnequalPairs},
    {tbvNPTooFewGroups,                             "tbvNPTooFewGroups",       Cause::TooFewGroups},
    {tbvNPTooFewRows,                               "tbvNPTooFewRows",         Cause::TooFewRows},
    {tbvNPYRangeColumns,                            "tbvNPYRangeColumns",      Cause::SeveralYColumns},
    {tbvNPXRangeColumns,                            "tbvNPXRangeColumns",      Cause::SeveralXColumns},
    {tbvNPInvalidSignSymbols,                       "tbvNPInvalidSignSymbols", Cause::NoSignCodes},
    {tbvNPTextInData,                               "tbvNPTextInData",         Cause::TextInData},
    {tbvNPBooleanInData,                            "tbvNPBooleanInData",      Cause::BooleanInData},
    {tbvNPErrorInData,                              "tbvNPErrorInData",        Cause::ErrorInData},
    {tbvNPBlankInData,                              "tbvNPBlankInData",        Cause::BlankInData},
    {tbvNPNoData,                                   "tbvNPNoData",             Cause::NoData},
    {tbvNPOutputOffSheet,                           "tbvNPOutputOffSheet",     Cause::OutputOffSheet},
    {tbvNPOutputOccupied,                           "tbvNPOutputOccupied",     Cause::OutputOccupied},
    {tbvNPNoContingencyTable,                       "tbvNPNoContingencyTable", Cause::NoContingencyTable},
    {tbvNPRunInProgress,                            "tbvNPRunInProgress",      Cause::RunInProgress},
    {numberOf(RuntimeError::InvalidProcedureCall),  "InvalidProcedureCall",    Cause::Unknown},
    {numberOf(RuntimeError::Overflow),              "Overflow",                Cause::Unknown},
    {numberOf(RuntimeError::OutOfMemory),           "OutOfMemory",             Cause::OutOfMemory},
    {numberOf(RuntimeError::SubscriptOutOfRange),   "SubscriptOutOfRange",     Cause::Unknown},
    {numberOf(RuntimeError::DivisionByZero),        "DivisionByZero",          Cause::Unknown},
    {numberOf(RuntimeError::TypeMismatch),          "TypeMismatch",            Cause::NoNumber},
    {numberOf(RuntimeError::UserInterrupt),         "UserInterrupt",           Cause::Unknown},
    {numberOf(RuntimeError::InternalError),         "InternalError",           Cause::Unknown},
    {numberOf(RuntimeError::ObjectNotSet),          "ObjectNotSet",            Cause::Unknown},
});

/// Why a computation has no result, by test and runtime error.
struct Fault {
    TBVNPMethod method;
    RuntimeError error;
    Cause cause;
};

constexpr auto faults = std::to_array<Fault>({
    {tbvNPMannU,    RuntimeError::DivisionByZero,       Cause::AllValuesEqual},
    {tbvNPWilcoxon, RuntimeError::InvalidProcedureCall, Cause::NoDifference},
    {tbvNPWilcoxon, RuntimeError::Overflow,             Cause::NoDifferenceOrTooLarge},
    {tbvNPWilcoxon, RuntimeError::DivisionByZero,       Cause::NoDifference},
    {tbvNPSpearman, RuntimeError::InvalidProcedureCall, Cause::NoCorrelation},
    {tbvNPSpearman, RuntimeError::Overflow,             Cause::NoCorrelation},
    {tbvNPSpearman, RuntimeError::DivisionByZero,       Cause::NoCorrelation},
    {tbvNPFriedman, RuntimeError::Overflow,             Cause::BlocksAllTied},
    {tbvNPFriedman, RuntimeError::DivisionByZero,       Cause::BlocksAgreeWholly},
    {tbvNPKWallis,  RuntimeError::Overflow,             Cause::GroupEmptyOrAllEqual},
    {tbvNPKWallis,  RuntimeError::DivisionByZero,       Cause::TooFewValuesForF},
    {tbvNPWWRuns,   RuntimeError::DivisionByZero,       Cause::RunsAreCertain},
    {tbvNPWWRuns,   RuntimeError::InvalidProcedureCall, Cause::RunsAreCertain},
});

/// A cause in words. {test} and {Test} stand for the test, {Test} where a sentence begins; {y} and {x} for the
/// ranges.
struct CauseWords {
    Cause cause;
    std::string_view explanation;
    std::string_view advice;
};

constexpr auto causeWords = std::to_array<CauseWords>({
    {Cause::BadOutputRange, "The place for the report cannot be found.", "Name a cell of a sheet that there is."},
    {Cause::BadYRange, "The first range {y} cannot be found.", "Correct its address."},
    {Cause::BadXRange, "The second range {x} cannot be found.", "Correct its address."},
    {Cause::NoYRange, "There is no data range.", "Name the range that holds the data."},
    {Cause::NoXRange, "The second range is missing: {test} compares two columns, and only {y} was given.", "Name the other."},
    {Cause::UnequalPairs, "The two ranges differ in their number of rows: {y} and {x}. {Test} takes pairs row by row; complete or remove the rows without a partner.", ""},
    {Cause::TooFewGroups, "{Test} compares several groups, and {y} is one column.", "Name two columns or more."},
    {Cause::TooFewRows, "{y} has fewer than two rows of data.", "Extend the range."},
    {Cause::SeveralYColumns, "{y} has several columns, and {test} takes one for the first range.", "Name one column."},
    {Cause::SeveralXColumns, "{x} has several columns, and {test} takes one for the second range.", "Name one column."},
    {Cause::NoSignCodes, "A cell of {y} is neither 1, -1 nor 0.", "Correct the codes, or name a second range to compare two variables."},
    {Cause::TextInData, "A cell of the data holds a text.", "Correct it."},
    {Cause::BooleanInData, "A cell of the data holds TRUE or FALSE.", "Correct it."},
    {Cause::ErrorInData, "A cell of the data holds an error.", "Correct it."},
    {Cause::BlankInData, "A cell of the data is blank.", "Fill it or leave the row out."},
    {Cause::NoData, "{y} holds no data.", ""},
    {Cause::OutputOffSheet, "The report does not fit on the sheet there.", "Choose a cell further up or to the left."},
    {Cause::OutputOccupied, "The report would replace cells.", "Choose another place, or let them be replaced."},
    {Cause::NoContingencyTable, "The counts around the median form no table with degrees of freedom: there are fewer than two groups, or no group holds a value.", "Name two groups or more that hold values."},
    {Cause::RunInProgress, "A test is being run already, and this run would build its report on the same sheet.", "Run it again when the other has ended."},
    {Cause::OutOfMemory, "There is not enough memory for these data.", "Name fewer rows, or leave the descriptive tables out."},
    {Cause::NoNumber, "A cell of the data is no number.", "Correct it."},
    {Cause::AllValuesEqual, "All values of {y} and {x} are equal, so there is nothing to rank.", "Check the columns."},
    {Cause::NoDifference, "All differences between {y} and {x} are zero, so there is nothing to rank.", "Check the columns."},
    {Cause::NoDifferenceOrTooLarge, "Either all differences between {y} and {x} are zero, and none could be ranked, or one is too large: a difference must lie within single precision (about 3.4e38).", "Check the columns."},
    {Cause::NoCorrelation, "All values of {y} or of {x} are equal, or so many that the correction for ties leaves nothing to take the square root of. There is no rank correlation.", ""},
    {Cause::BlocksAllTied, "All values are equal within every block of {y}, so the treatments cannot be ranked.", ""},
    {Cause::BlocksAgreeWholly, "Every block of {y} ranks the treatments in the same order, so the F statistic has a zero denominator. The treatments differ as clearly as they can; a report needs data that disagree somewhere.", ""},
    {Cause::GroupEmptyOrAllEqual, "A column of {y} holds no value, or all values are equal, so the groups cannot be ranked.", ""},
    {Cause::TooFewValuesForF, "There are too few values in {y} for the F statistic: its denominator is zero.", "Give the groups more values."},
    {Cause::RunsAreCertain, "The cells of {y} are all equal, or all different, so the number of runs is certain. The test needs categories that repeat.", ""},
});
// clang-format on

const NamedNumber* entryOf(std::int32_t number) noexcept {
    const auto* const found = std::ranges::find(namedNumbers, number, &NamedNumber::number);
    return found == namedNumbers.end() ? nullptr : found;
}

const CauseWords* wordsFor(Cause cause) noexcept {
    const auto* const found = std::ranges::find(causeWords, cause, &CauseWords::cause);
    return found == causeWords.end() ? nullptr : found;
}

/// The text with its marks replaced, once each: braces of a sheet's name are none.
std::string filledIn(std::string_view text, const RequestNames& names) {
    using Mark = std::pair<std::string_view, std::string>;
    const std::array<Mark, 4> marks = {Mark("{test}", names.test), Mark("{Test}", capitalised(names.test)),
                                       Mark("{y}", names.y), Mark("{x}", names.x)};
    std::string filled;
    while (!text.empty()) {
        const auto* const mark = std::ranges::find_if(
            marks, [&](const auto& candidate) { return text.starts_with(candidate.first); });
        const bool found = mark != std::ranges::end(marks);
        filled += found ? std::string_view(mark->second) : text.substr(0, 1);
        text.remove_prefix(found ? mark->first.size() : 1);
    }
    return filled;
}

}  // namespace

std::string_view errorName(std::int32_t number) noexcept {
    const NamedNumber* const entry = entryOf(number);
    return entry == nullptr ? std::string_view() : entry->name;
}

Cause causeOf(std::int32_t number, std::optional<TBVNPMethod> method) noexcept {
    for (const Fault& fault : faults) {
        if (method == fault.method && number == numberOf(fault.error)) {
            return fault.cause;
        }
    }
    const NamedNumber* const entry = entryOf(number);
    return entry == nullptr ? Cause::Unknown : entry->cause;
}

bool describesItself(const Error& error) noexcept {
    // Runtime errors have the numbers below; a host's own begin above, at 1004.
    constexpr std::int32_t firstBeyond = 1000;
    const bool isRuntimeError = error.number() > 0 && error.number() < firstBeyond;
    return !error.description().empty() && !isRuntimeError;
}

std::string explanationOf(Cause cause, const RequestNames& names) {
    const CauseWords* const words = wordsFor(cause);
    return words == nullptr ? std::string() : filledIn(words->explanation, names);
}

std::string_view adviceOn(Cause cause) noexcept {
    const CauseWords* const words = wordsFor(cause);
    return words == nullptr ? std::string_view() : words->advice;
}

}  // namespace TBVNonPara
