#include "cli/messages.hpp"

#include <algorithm>
#include <array>
#include <fmt/format.h>

#include "cli/shell_words.hpp"
#include "tbvnonpara/core/display_width.hpp"
#include "tbvnonpara/json/values.hpp"
#include "tbvnonpara/request/error_causes.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::cli {

namespace {

/// What to do about a cause on the command line, where it takes an option.
struct OptionAdvice {
    Cause cause;
    std::string_view sentence;
};

// clang-format off
constexpr auto optionAdvice = std::to_array<OptionAdvice>({
    {Cause::BadOutputRange, "Give --output a cell of a sheet that there is, for example Sheet1!H1."},
    {Cause::BadYRange, "Give --y an address such as A1:A9, a column's letters or its header."},
    {Cause::BadXRange, "Give --x an address such as B1:B9, a column's letters or its header."},
    {Cause::NoYRange, "Name one with --y."},
    {Cause::NoXRange, "Name the other with --x, for example --x B."},
    {Cause::TooFewGroups, "Name two columns or more, for example --y A:C."},
    {Cause::TooFewRows, "Extend the range, or use --no-headers if its first row is data."},
    {Cause::SeveralYColumns, "Name one column with --y."},
    {Cause::SeveralXColumns, "Name one column with --x."},
    {Cause::NoSignCodes, "Correct the codes, or name a second column with --x to compare two variables."},
    {Cause::OutputOffSheet, "Leave --descriptives out, or give --output a cell further up or to the left."},
    {Cause::OutputOccupied, "Give --output another cell, or add --overwrite."},
    {Cause::OutOfMemory, "Name fewer rows, or leave --descriptives out."},
});
// clang-format on

std::string_view adviceFor(Cause cause) noexcept {
    const auto* const own = std::ranges::find(optionAdvice, cause, &OptionAdvice::cause);
    return own == optionAdvice.end() ? adviceOn(cause) : own->sentence;
}

std::string_view nameOf(std::int32_t number) noexcept {
    const std::string_view name = number == workbook::hostErrorNumber ? "HostError" : errorName(number);
    return name.empty() ? "Error" : name;
}

RequestNames namesIn(const Circumstances& circumstances) {
    RequestNames names;
    if (circumstances.test != nullptr) {
        names.test = fmt::format("the {} test", circumstances.test->title);
    }
    names.y = circumstances.ranges.y;
    names.x = circumstances.ranges.x;
    return names;
}

Cause causeIn(const Error& error, const Circumstances& circumstances) noexcept {
    const auto* const test = circumstances.test;
    return causeOf(error.number(), test == nullptr ? std::nullopt : std::optional(test->method));
}

Error withSentence(const Error& error, std::string_view sentence) {
    return Error(error.number(), fmt::format("{} {}", error.description(), sentence), error.source());
}

}  // namespace

std::string explain(const Error& error, const Circumstances& circumstances) {
    const Cause cause = causeIn(error, circumstances);
    if (describesItself(error) || cause == Cause::Unknown) {
        return error.description().empty() ? "The test failed without a description." : error.description();
    }
    const std::string explanation = explanationOf(cause, namesIn(circumstances));
    const std::string_view advice = adviceFor(cause);
    return advice.empty() ? explanation : fmt::format("{} {}", explanation, advice);
}

std::string errorText(const Error& error, const Circumstances& circumstances) {
    const std::string source = error.source().empty() ? "" : ": " + escaped(error.source());
    return fmt::format("tbvnonpara: {}\n  error {} ({}){}\n", escaped(explain(error, circumstances)),
                       error.number(), nameOf(error.number()), source);
}

Error withRemedy(const reshaping::Refusal& refusal, std::string_view command) {
    std::string names;
    for (const std::string& group : refusal.groups()) {
        names +=
            (names.empty() ? "" : ",") + (group.find(',') == std::string::npos ? group : '"' + group + '"');
    }
    switch (refusal.remedy()) {
        case reshaping::Remedy::CorrectData:
            break;
        case reshaping::Remedy::OmitMissing:
            return withSentence(refusal, "Add --missing omit to leave out what is missing.");
        case reshaping::Remedy::PickGroups:
            return withSentence(
                refusal, fmt::format("Pick two, for example: {} --groups {}", command, shellWord(names)));
        case reshaping::Remedy::SayHeaders:
            return withSentence(refusal, "Add --headers if the first row holds headers.");
        case reshaping::Remedy::NameBlocks:
            return withSentence(refusal, "Name the column that says which with --block.");
        case reshaping::Remedy::SplitValues:
            return withSentence(refusal,
                                fmt::format("Where it names groups, write --y {} --by {}.",
                                            shellWord(refusal.groups()[0]), shellWord(refusal.groups()[1])));
    }
    return Error(refusal.number(), refusal.description(), refusal.source());
}

std::string errorInJson(const Error& error, const Circumstances& circumstances) {
    return fmt::format(
        "{{\"error\": {{\"number\": {}, \"name\": {}, \"source\": {}, \"description\": {}}}}}\n",
        error.number(), textInJson(nameOf(error.number())), textInJson(error.source()),
        textInJson(explain(error, circumstances)));
}

}  // namespace TBVNonPara::cli
