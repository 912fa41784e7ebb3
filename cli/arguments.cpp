#include "cli/arguments.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fmt/format.h>
#include <map>
#include <thread>

#include "cli/installed.hpp"
#include "cli/save_options.hpp"
#include "cli/shell_words.hpp"
#include "cli/test_words.hpp"
#include "cli/version.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/core/display_width.hpp"
#include "tbvnonpara/details/json.hpp"
#include "tbvnonpara/reshaping/list.hpp"

namespace TBVNonPara::cli {

namespace {

const std::map<std::string, OutputFormat> formats = {{"text", OutputFormat::Text},
                                                     {"json", OutputFormat::Json},
                                                     {"csv", OutputFormat::Csv},
                                                     {"html", OutputFormat::Html},
                                                     {"xlsx", OutputFormat::Xlsx}};

/// What CLI11 fills before it becomes Arguments.
struct Words {
    Arguments arguments;
    bool headers = false;
    bool noHeaders = false;
    std::string tails = "two";
    std::string format;
    std::string delimiter;
    std::string decimal;
    std::string thousands;
    std::string encoding;
    std::string cut;
    std::string cutEqual;
    std::string groups;
    std::string missing;
    std::string missingWords;
    bool details = false;
    double confidence = 95;
    std::string adjust;
    std::string control;
    bool trend = false;
    std::size_t permutations = 0;
    std::uint64_t seed = 1;
};

const std::map<std::string, workbook::Encoding> encodings = {
    {"", workbook::Encoding::Utf8},
    {"utf-8", workbook::Encoding::Utf8},
    {"latin1", workbook::Encoding::Latin1},
    {"windows-1252", workbook::Encoding::Windows1252}};

const std::map<std::string, analysis::CutEqual> cutEquals = {{"", analysis::CutEqual::Drop},
                                                             {"drop", analysis::CutEqual::Drop},
                                                             {"above", analysis::CutEqual::Above},
                                                             {"below", analysis::CutEqual::Below}};

/// The character that a word of the command line stands for.
char characterOf(const std::string& word) {
    return word == "tab" ? '\t' : word == "space" ? ' ' : word.front();
}

/// A line below others, or nothing in the project's folder, where the examples lie as they are named.
std::string whereExamplesLie() {
    const auto folder = installedDocuments();
    return folder ? fmt::format("\nThe files of the examples lie below {}", folder->string()) : "";
}

std::string examples() {
    std::string text = "Examples:";
    for (const OfferedTest& test : offeredTests()) {
        text += fmt::format("\n  tbvnonpara {}", wordsOf(test).example);
    }
    return text + whereExamplesLie() + "\n\nEvery test explains its options: tbvnonpara wilcoxon --help";
}

/// An empty address is a forgotten one, not a choice left to the program.
CLI::Validator filled() {
    return {[](const std::string& text) { return std::string(text.empty() ? "must not be empty" : ""); }, ""};
}

/// The sheet, and whether its first row is headers.
void offerSheet(CLI::App& command, Words& words) {
    command.add_option("--sheet", words.arguments.sheet, "the sheet to read")
        ->type_name("NAME")
        ->check(filled());
    command.add_flag("--transpose", words.arguments.transpose, "take the rows of the sheet as columns");
    CLI::Option* const with =
        command.add_flag("--headers", words.headers, "the first row of each range holds labels");
    command.add_flag("--no-headers", words.noHeaders, "the first row of each range is data")->excludes(with);
}

void offerMissingWords(CLI::App& command, Words& words) {
    command.add_option("--na", words.missingWords, "more words for what is missing, joined by commas")
        ->type_name("WORDS")
        ->check(filled());
}

void offerRanges(CLI::App& command, const OfferedTest& test, Words& words) {
    const char* const y = takesManyColumns(test.shape)
                              ? "the groups: an address, column letters or headers, joined by commas"
                              : "the first variable: an address, column letters or a header";
    command.add_option("--y", words.arguments.y, y)->type_name("ADDRESS")->check(filled());
    if (takesSecondRange(test.shape)) {
        command.add_option("--x", words.arguments.x, "the second variable")
            ->type_name("ADDRESS")
            ->check(filled());
    }
    offerSheet(command, words);
}

/// The options that say which rows of a table take part, and how they are split.
void offerTable(CLI::App& command, const OfferedTest& test, Words& words) {
    CLI::Option* const by =
        command.add_option("--by", words.arguments.by, "split --y into groups by this column")
            ->type_name("COLUMN")
            ->check(filled());
    command
        .add_option("--groups", words.groups,
                    "the groups to compare, in this order, joined by commas;\nwithout it, all of them")
        ->type_name("NAMES")
        ->check(filled())
        ->needs(by);
    if (takesSecondRange(test.shape)) {
        by->excludes("--x");
    }
    if (takesRows(test.shape)) {
        command
            .add_option("--block", words.arguments.block, "the column that says which values belong together")
            ->type_name("COLUMN")
            ->check(filled())
            ->needs(by);
    }
    command.add_flag("--each", words.arguments.each,
                     "test each column of --y by itself; without --y, each that holds numbers");
    command
        .add_option("--where", words.arguments.where,
                    "take the rows that fulfil this, such as \"feed = casein\";\nmay be given several times")
        ->type_name("CONDITION")
        ->allow_extra_args(false);
    command.add_flag("--plan", words.arguments.plan, "say what would be tested, and stop");
    command.add_option("--missing", words.missing, "omit: leave out what is blank, NA, NaN, null, . or -")
        ->type_name("WORD")
        ->check(CLI::IsMember({"omit"}).description(""));
    offerMissingWords(command, words);
}

void offerTails(CLI::App& command, const OfferedTest& test, Words& words) {
    const TestWords& own = wordsOf(test);
    std::vector<std::string> choices = {"two", "greater", "less"};
    for (const std::string_view word : {own.greaterWord, own.lessWord}) {
        if (!word.empty()) {
            choices.emplace_back(word);
        }
    }
    command
        .add_option("--tails", words.tails,
                    "the alternative: two, for both directions;\n" + std::string(own.tailsHelp))
        ->type_name("WORD")
        ->check(CLI::IsMember(choices).description(""));
}

/// "median", "mean" or a number.
std::optional<analysis::Cut> cutOf(const std::string& word) {
    if (word == "median") {
        return analysis::Cut{analysis::CutAt::Median};
    }
    if (word == "mean") {
        return analysis::Cut{analysis::CutAt::Mean};
    }
    const std::optional<double> number = readAsNumber(word);
    return number ? std::optional(analysis::Cut{analysis::CutAt::Number, *number}) : std::nullopt;
}

void offerCut(CLI::App& command, Words& words) {
    const auto checkCut = [](const std::string& word) {
        return std::string(cutOf(word) ? "" : "must be median, mean or a number, not \"" + word + '"');
    };
    CLI::Option* const cut =
        command.add_option("--cut", words.cut, "count numbers as above or below: median, mean or a number")
            ->type_name("VALUE")
            ->check(CLI::Validator(checkCut, ""));
    command.add_option("--cut-equal", words.cutEqual, "numbers equal to the cut: drop, above or below")
        ->type_name("WORD")
        ->check(CLI::IsMember({"drop", "above", "below"}).description(""))
        ->needs(cut);
}

void offerFileAndForm(CLI::App& command, Words& words) {
    command
        .add_option("FILE", words.arguments.file,
                    "a .xlsx, .ods, .fods, .csv or .tsv file, or - for standard input")
        ->required()
        ->type_name("");
    command.add_option("--format", words.format, "the form of the report: text, json, csv, html or xlsx")
        ->type_name("WORD")
        ->check(CLI::IsMember({"text", "json", "csv", "html", "xlsx"}).description(""));
    command.add_flag("--safe-csv", words.arguments.safeCsv,
                     "in csv, put a ' before texts that a spreadsheet would take for formulas");
    command.add_option("--delimiter", words.delimiter, "what stands between two fields: , ; | tab or space")
        ->type_name("CHARACTER")
        ->check(CLI::IsMember({",", ";", "|", "tab", "space"}).description(""));
    command.add_option("--decimal", words.decimal, "the decimal mark of numbers: . or ,")
        ->type_name("CHARACTER")
        ->check(CLI::IsMember({".", ","}).description(""));
    command.add_option("--thousands", words.thousands, "what divides thousands: . , ' or space")
        ->type_name("CHARACTER")
        ->check(CLI::IsMember({".", ",", "'", "space"}).description(""));
    command
        .add_option("--encoding", words.encoding,
                    "the encoding of a text file: utf-8, latin1 or windows-1252")
        ->type_name("WORD")
        ->check(CLI::IsMember({"utf-8", "latin1", "windows-1252"}).description(""));
    command
        .add_option("--comment", words.arguments.comment, "leave out lines that begin with this, such as #")
        ->type_name("TEXT")
        ->check(filled());
    constexpr std::size_t most = 256;
    words.arguments.threads = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, most);
    command
        .add_option("--threads", words.arguments.threads,
                    "how many read a text file and sort at most, 1 to 256; without\n"
                    "it as many as there are processors")
        ->type_name("NUMBER")
        ->check(CLI::Range(std::size_t(1), most).description(""));
}

/// The options that say where a report goes.
void offerSaving(CLI::App& command, Arguments& arguments) {
    CLI::Option* const save =
        command.add_option("--save", arguments.save, "save the report: .xlsx, .csv, .json, .html or .txt")
            ->type_name("FILE");
    command
        .add_option("--output", arguments.output,
                    "where the report goes: a cell such as \"Sheet1!H1\";\nwithout it, a new sheet")
        ->type_name("ADDRESS");
    command.add_flag("--overwrite", arguments.overwrite,
                     "replace a file that exists, and cells that are not empty");
    command.add_flag("--with-data", arguments.withData, "put the data beside the report in a workbook")
        ->needs(save);
}

/// Random arrangements, which the sign test never needs.
void offerPermutations(CLI::App& command, Words& words, CLI::Option* details) {
    CLI::Option* const permutations =
        command
            .add_option("--permutations", words.permutations,
                        "estimate P from so many random arrangements where nothing can be\n"
                        "counted exactly, 1 to 1000000000")
            ->type_name("NUMBER")
            ->check(CLI::Range(std::size_t(1), std::size_t(1000000000)).description(""))
            ->needs(details);
    command.add_option("--seed", words.seed, "which ones: the same seed draws the same; without it 1")
        ->type_name("NUMBER")
        ->check(CLI::Range(std::uint64_t(0), std::uint64_t(9007199254740992)).description(""))
        ->needs(permutations);
}

/// The options that say what stands below the report.
void offerDetails(CLI::App& command, const OfferedTest& test, Words& words) {
    CLI::Option* const details =
        command.add_flag("--details", words.details,
                         "add effects with intervals, exact probabilities, groups and\n"
                         "comparisons");
    command
        .add_option("--confidence", words.confidence, "the level of the intervals in per cent, 50 to 99.9")
        ->type_name("PERCENT")
        ->check(CLI::Range(50.0, 99.9).description(""))
        ->needs(details);
    const bool compares = takesManyColumns(test.shape);
    const std::string of =
        compares ? "of comparisons, and of columns with --each" : "of the columns with --each";
    command
        .add_option("--adjust", words.adjust, "how P is adjusted, " + of + ":\nholm, bonferroni, bh or none")
        ->type_name("WORD")
        ->check(CLI::IsMember({"holm", "bonferroni", "bh", "none"}).description(""))
        ->needs(details);
    if (test.method != tbvNPSign) {
        offerPermutations(command, words, details);
    }
    if (!compares) {
        return;
    }
    command.add_option("--control", words.control, "compare with this group alone")
        ->type_name("NAME")
        ->check(filled())
        ->needs(details);
    if (test.method == tbvNPKWallis || test.method == tbvNPFriedman) {
        command.add_flag("--trend", words.trend, "also test whether values rise from group to group")
            ->needs(details);
    }
}

void offer(CLI::App& program, const OfferedTest& test, Words& words) {
    CLI::App& command = *program.add_subcommand(std::string(test.name), std::string(test.summary));
    command.group("Tests");
    offerFileAndForm(command, words);
    offerRanges(command, test, words);
    offerTable(command, test, words);
    offerSaving(command, words.arguments);
    if (test.descriptives) {
        command.add_flag("--descriptives", words.arguments.descriptives,
                         "show the data, ranks, medians and sums");
    }
    if (test.method == tbvNPWilcoxon) {
        command.add_flag("--ignore-ties", words.arguments.ignoreTies,
                         "leave differences of zero out of the ranking");
    }
    if (test.shape == DataShape::Sequence) {
        offerCut(command, words);
    }
    if (test.tails) {
        offerTails(command, test, words);
    }
    offerDetails(command, test, words);
    command.footer(fmt::format("Example: tbvnonpara {}{}", wordsOf(test).example, whereExamplesLie()));
    command.callback([&words, &test] { words.arguments.test = &test; });
}

void offerDescribe(CLI::App& program, Words& words) {
    CLI::App& command = *program.add_subcommand("describe", "what a file holds, and the tests that suit it");
    command.group("Data");
    offerFileAndForm(command, words);
    offerSheet(command, words);
    offerMissingWords(command, words);
    command
        .add_option("--names", words.arguments.names,
                    "only the names of columns or sheets, a line each:\ncolumns or sheets")
        ->type_name("WORD")
        ->check(CLI::IsMember({"columns", "sheets"}).description(""));
    command.footer(fmt::format("Example: tbvnonpara describe examples/feeds.csv{}", whereExamplesLie()));
    command.callback([&words] { words.arguments.describe = true; });
}

TBVNPTails tailsOf(const OfferedTest& test, const std::string& word) {
    if (word == "greater" || (!word.empty() && word == wordsOf(test).greaterWord)) {
        return tbvNPVar1GTVar2;
    }
    return word == "two" ? tbvNPTwoTailed : tbvNPVar1LTVar2;
}

bool isCommandOrOption(std::string_view word) {
    return word.starts_with('-') || word == "describe" ||
           std::ranges::any_of(offeredTests(), [=](const OfferedTest& test) { return test.name == word; });
}

std::string noSuchTest(std::string_view word) {
    std::string text =
        word.empty() ? "tbvnonpara: Name a test:"
                     : fmt::format("tbvnonpara: There is no test \"{}\"; the tests are:", escaped(word));
    for (const OfferedTest& test : offeredTests()) {
        text += fmt::format(" {}", test.name);
    }
    return text + "\nTry: tbvnonpara --help\n";
}

/// What is wrong, and where to read more: in the test's own help when a test was named.
std::string usageText(std::string_view wrong, std::string_view first) {
    const bool named = isCommandOrOption(first) && !first.starts_with('-');
    const std::string test = named ? fmt::format("{} ", first) : "";
    return fmt::format("tbvnonpara: {}\nTry: tbvnonpara {}--help\n", escaped(wrong), test);
}

/// A report beside data that were turned over would stand in the wrong place.
std::optional<std::string> notForTurned(const Arguments& arguments) {
    return arguments.transpose && (!arguments.output.empty() || arguments.withData)
               ? std::optional("--transpose leaves the data as they are: leave --output and --with-data out")
               : std::nullopt;
}

/// What has no meaning for one table of many columns.
std::optional<std::string> notForEach(const Arguments& arguments) {
    if (!arguments.each) {
        return std::nullopt;
    }
    if (arguments.format == OutputFormat::Html || arguments.format == OutputFormat::Xlsx) {
        return "--each gives text, csv or json";
    }
    if (arguments.plan) {
        return "--plan is of one column: name it with --y, without --each";
    }
    return arguments.output.empty() ? std::nullopt
                                    : std::optional("--each places no reports: leave --output out");
}

/// A single test of two samples has one P.
std::optional<std::string> notForOneP(const Arguments& arguments, bool adjusts) {
    const bool hasMany =
        arguments.test == nullptr || takesManyColumns(arguments.test->shape) || arguments.each;
    return adjusts && !hasMany
               ? std::optional("--adjust is for the columns of --each: add that, or leave it out")
               : std::nullopt;
}

Arguments finish(Words words) {
    Arguments& arguments = words.arguments;
    if (arguments.test != nullptr) {
        arguments.tails = tailsOf(*arguments.test, words.tails);
    }
    arguments.account = arguments.plan;
    arguments.format = formats.at(words.format.empty() ? "text" : words.format);
    if (words.headers || words.noHeaders) {
        arguments.headers = words.headers;
    }
    if (!words.delimiter.empty()) {
        arguments.delimiter = characterOf(words.delimiter);
    }
    if (!words.thousands.empty()) {
        arguments.thousands = characterOf(words.thousands);
    }
    arguments.encoding = encodings.at(words.encoding);
    if (!words.cut.empty()) {
        arguments.cut = cutOf(words.cut);
        arguments.cut->equal = cutEquals.at(words.cutEqual);
    }
    arguments.omitMissing = !words.missing.empty();
    if (!words.groups.empty()) {
        arguments.groups = reshaping::listed(words.groups);
    }
    if (!words.missingWords.empty()) {
        arguments.missingWords = reshaping::listed(words.missingWords);
    }
    if (!words.decimal.empty()) {
        arguments.decimal = words.decimal.front();
    }
    if (words.details) {
        // 99.9 / 100 lies above 0.999, the highest level that there is.
        arguments.details =
            DetailChoices{.confidence = std::min(words.confidence / 100, 0.999),
                          .adjustment = adjustmentNamed(words.adjust).value_or(statistics::Adjustment::Holm),
                          .trend = words.trend,
                          .control = words.control,
                          .permutations = words.permutations,
                          .seed = words.seed};
    }
    return std::move(arguments);
}

}  // namespace

std::variant<Arguments, Answer> parseArguments(int count, const char* const* words) {
    CLI::App program("Nonparametric tests on the columns of a file, reported as on a spreadsheet.",
                     "tbvnonpara");
    program.set_version_flag("--version", fmt::format("tbvnonpara {}", version));
    program.require_subcommand(1);
    program.get_formatter()->label("SUBCOMMAND", "TEST");
    program.footer(examples());
    Words found;
    for (const OfferedTest& test : offeredTests()) {
        offer(program, test, found);
    }
    offerDescribe(program, found);
    if (count < 2 || !isCommandOrOption(words[1])) {
        return Answer{noSuchTest(count < 2 ? "" : words[1]), usageStatus};
    }
    try {
        program.parse(count, words);
    } catch (const CLI::CallForHelp&) {
        return Answer{program.help(), 0};
    } catch (const CLI::CallForVersion&) {
        return Answer{fmt::format("tbvnonpara {}\n", version), 0};
    } catch (const CLI::ParseError& error) {
        return Answer{usageText(error.what(), words[1]), usageStatus};
    }
    if (found.delimiter == "," && found.decimal == ",") {
        return Answer{usageText("--delimiter and --decimal cannot both be a comma", words[1]), usageStatus};
    }
    if (!found.thousands.empty() && found.thousands == found.decimal) {
        return Answer{usageText("--thousands and --decimal cannot both be the same", words[1]), usageStatus};
    }
    const bool formatGiven = !found.format.empty();
    const bool adjusts = !found.adjust.empty();
    Arguments arguments = finish(std::move(found));
    arguments.command = asTyped({words + 1, words + count});
    if (const std::optional<std::string> wrong = settleSaving(arguments, formatGiven)) {
        return Answer{usageText(*wrong, words[1]), usageStatus};
    }
    if (!arguments.x.empty() && arguments.y.empty() && !arguments.each) {
        return Answer{usageText("--x requires --y", words[1]), usageStatus};
    }
    if (arguments.describe &&
        (arguments.format == OutputFormat::Html || arguments.format == OutputFormat::Xlsx)) {
        return Answer{usageText("describe gives text, csv or json", words[1]), usageStatus};
    }
    if (const std::optional<std::string> wrong = notForTurned(arguments)) {
        return Answer{usageText(*wrong, words[1]), usageStatus};
    }
    if (const std::optional<std::string> wrong = notForOneP(arguments, adjusts)) {
        return Answer{usageText(*wrong, words[1]), usageStatus};
    }
    if (const std::optional<std::string> wrong = notForEach(arguments)) {
        return Answer{usageText(*wrong, words[1]), usageStatus};
    }
    return arguments;
}

}  // namespace TBVNonPara::cli
