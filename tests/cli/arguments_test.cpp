#include "cli/arguments.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

#include "cli/test_words.hpp"

namespace TBVNonPara::cli {

namespace {

using testing::HasSubstr;

std::variant<Arguments, Answer> parsed(std::vector<const char*> words) {
    words.insert(words.begin(), "tbvnonpara");
    return parseArguments(static_cast<int>(words.size()), words.data());
}

Arguments accepted(const std::vector<const char*>& words) {
    const auto result = parsed(words);
    const auto* const answer = std::get_if<Answer>(&result);
    EXPECT_EQ(answer, nullptr) << answer->text;
    return answer == nullptr ? std::get<Arguments>(result) : Arguments{};
}

Answer answered(const std::vector<const char*>& words) {
    const auto result = parsed(words);
    const auto* const answer = std::get_if<Answer>(&result);
    EXPECT_NE(answer, nullptr);
    return answer == nullptr ? Answer{} : *answer;
}

TEST(Arguments, OfAPlainCallLeaveEverythingOpen) {
    const Arguments arguments = accepted({"friedman", "data.csv"});
    EXPECT_EQ(arguments.test->method, tbvNPFriedman);
    EXPECT_EQ(arguments.file, "data.csv");
    EXPECT_EQ(arguments.y + arguments.x + arguments.sheet, "");
    EXPECT_EQ(arguments.headers, std::nullopt);
    EXPECT_FALSE(arguments.descriptives || arguments.ignoreTies);
    EXPECT_EQ(arguments.format, OutputFormat::Text);
    EXPECT_EQ(arguments.delimiter, std::nullopt);
    EXPECT_EQ(arguments.decimal, std::nullopt);
}

TEST(Arguments, OfDetailsHaveADefault) {
    EXPECT_FALSE(accepted({"friedman", "data.csv"}).details);
    const auto details = accepted({"friedman", "data.csv", "--details"}).details;
    ASSERT_TRUE(details);
    EXPECT_EQ(details->confidence, 0.95);
    EXPECT_EQ(details->adjustment, statistics::Adjustment::Holm);
    EXPECT_EQ(details->control, "");
}

TEST(Arguments, OfDetailsSayLevelAdjustmentAndControl) {
    const auto details = accepted({"median", "data.csv", "--details", "--confidence", "90", "--adjust", "bh",
                                   "--control", "placebo"})
                             .details;
    ASSERT_TRUE(details);
    EXPECT_EQ(details->confidence, 0.9);
    EXPECT_EQ(details->adjustment, statistics::Adjustment::BenjaminiHochberg);
    EXPECT_EQ(details->control, "placebo");
}

TEST(Arguments, TheHighestLevelIsOneThatThereIs) {
    const auto details = accepted({"sign", "data.csv", "--details", "--confidence", "99.9"}).details;
    ASSERT_TRUE(details);
    EXPECT_EQ(details->confidence, 0.999);
}

TEST(Arguments, OfDetailsAreRefusedWhereTheyMeanNothing) {
    const std::vector<std::vector<const char*>> cases = {
        {"sign", "data.csv", "--confidence", "90"},
        {"sign", "data.csv", "--details", "--confidence", "49"},
        {"sign", "data.csv", "--details", "--confidence", "100"},
        {"sign", "data.csv", "--details", "--adjust", "holm"},
        {"median", "data.csv", "--adjust", "holm"},
        {"median", "data.csv", "--details", "--adjust", "tukey"},
        {"median", "data.csv", "--control", "a"},
    };
    for (const std::vector<const char*>& words : cases) {
        EXPECT_EQ(answered(words).status, usageStatus) << words[2] << words.back();
    }
}

TEST(Arguments, TakeEveryOption) {
    const Arguments arguments = accepted({"wilcoxon", "--y", "A", "--x", "B", "--sheet", "S", "--headers",
                                          "--descriptives", "--ignore-ties", "--tails", "less", "--format",
                                          "json", "--delimiter", "tab", "--decimal", ",", "-"});
    EXPECT_EQ(arguments.file, "-");
    EXPECT_EQ(arguments.y, "A");
    EXPECT_EQ(arguments.x, "B");
    EXPECT_EQ(arguments.sheet, "S");
    EXPECT_EQ(arguments.headers, std::optional(true));
    EXPECT_TRUE(arguments.descriptives && arguments.ignoreTies);
    EXPECT_EQ(arguments.tails, tbvNPVar1LTVar2);
    EXPECT_EQ(arguments.format, OutputFormat::Json);
    EXPECT_EQ(arguments.delimiter, std::optional('\t'));
    EXPECT_EQ(arguments.decimal, std::optional(','));
}

TEST(Arguments, TakeTheFormOfATextFile) {
    const Arguments arguments = accepted({"runs", "d.txt", "--delimiter", "space", "--thousands", "space",
                                          "--encoding", "latin1", "--comment", "//"});
    EXPECT_EQ(arguments.delimiter, ' ');
    EXPECT_EQ(arguments.thousands, ' ');
    EXPECT_EQ(arguments.encoding, workbook::Encoding::Latin1);
    EXPECT_EQ(arguments.comment, "//");
    EXPECT_EQ(accepted({"runs", "d.txt", "--encoding", "windows-1252"}).encoding,
              workbook::Encoding::Windows1252);
}

TEST(Arguments, ThreadsAreAsManyAsProcessorsOrAsNamed) {
    EXPECT_EQ(accepted({"runs", "d.csv", "--threads", "3"}).threads, 3U);
    EXPECT_GE(accepted({"runs", "d.csv"}).threads, 1U);
}

TEST(Arguments, NoHeadersIsNotTheSameAsSilence) {
    EXPECT_EQ(accepted({"runs", "d.csv", "--no-headers"}).headers, std::optional(false));
}

TEST(Arguments, TailsHaveTheWordsOfTheTest) {
    EXPECT_EQ(accepted({"mann-whitney", "d.csv", "--tails", "greater"}).tails, tbvNPVar1GTVar2);
    EXPECT_EQ(accepted({"mann-whitney", "d.csv", "--tails", "two"}).tails, tbvNPTwoTailed);
    EXPECT_EQ(accepted({"spearman", "d.csv", "--tails", "positive"}).tails, tbvNPVar1GTVar2);
    EXPECT_EQ(accepted({"spearman", "d.csv", "--tails", "negative"}).tails, tbvNPVar1LTVar2);
    EXPECT_EQ(accepted({"runs", "d.csv", "--tails", "fewer"}).tails, tbvNPVar1GTVar2);
    EXPECT_EQ(accepted({"runs", "d.csv", "--tails", "more"}).tails, tbvNPVar1LTVar2);
}

struct UsageError {
    const char* name;
    std::vector<const char*> words;
    const char* says;
};

class UsageErrors : public testing::TestWithParam<UsageError> {};

TEST_P(UsageErrors, HaveStatusTwoAndSayWhatIsWrong) {
    const Answer answer = answered(GetParam().words);
    EXPECT_EQ(answer.status, 2);
    EXPECT_THAT(answer.text, HasSubstr(GetParam().says));
}

const UsageError usageErrors[] = {
    {"NoTest", {}, "Name a test: mann-whitney wilcoxon"},
    {"UnknownTest", {"anova", "d.csv"}, "There is no test \"anova\"; the tests are: mann-whitney"},
    {"NoFile", {"runs"}, "FILE"},
    {"TwoFiles", {"runs", "a.csv", "b.csv"}, "b.csv"},
    {"UnknownOption", {"runs", "d.csv", "--fast"}, "--fast"},
    {"NoSecondRangeInRuns", {"runs", "d.csv", "--y", "A", "--x", "B"}, "--x"},
    {"NoDescriptivesInSign", {"sign", "d.csv", "--descriptives"}, "--descriptives"},
    {"NoIgnoreTiesButInWilcoxon", {"mann-whitney", "d.csv", "--ignore-ties"}, "--ignore-ties"},
    {"NoTailsInFriedman", {"friedman", "d.csv", "--tails", "less"}, "--tails"},
    {"UnknownTails", {"sign", "d.csv", "--tails", "up"}, "up"},
    {"TailsOfAnotherTest", {"sign", "d.csv", "--tails", "fewer"}, "fewer"},
    {"UnknownFormat", {"sign", "d.csv", "--format", "xml"}, "xml"},
    {"UnknownDelimiter", {"sign", "d.csv", "--delimiter", "x"}, "x"},
    {"UnknownDecimal", {"sign", "d.csv", "--decimal", ";"}, ";"},
    {"CommaForBoth", {"sign", "d.csv", "--decimal", ",", "--delimiter", ","}, "both be a comma"},
    {"UnknownThousands", {"sign", "d.csv", "--thousands", "x"}, "x"},
    {"UnknownEncoding", {"sign", "d.csv", "--encoding", "ebcdic"}, "ebcdic"},
    {"NoThread", {"sign", "d.csv", "--threads", "0"}, "--threads"},
    {"TooManyThreads", {"sign", "d.csv", "--threads", "257"}, "--threads"},
    {"EmptyComment", {"sign", "d.csv", "--comment", ""}, "--comment"},
    {"PointForBoth", {"sign", "d.csv", "--decimal", ".", "--thousands", "."}, "--thousands and --decimal"},
    {"SecondRangeAlone", {"sign", "d.csv", "--x", "B"}, "--y"},
    {"HeadersAndNoHeaders", {"sign", "d.csv", "--headers", "--no-headers"}, "--no-headers"},
    {"EmptyFirstRange", {"sign", "d.csv", "--y", ""}, "--y"},
    {"EmptySecondRange", {"sign", "d.csv", "--y", "A", "--x", ""}, "--x"},
    {"EmptySheet", {"sign", "d.csv", "--sheet="}, "--sheet"},
    {"OptionWithoutValue", {"sign", "d.csv", "--y"}, "--y"},
};

INSTANTIATE_TEST_SUITE_P(Cases, UsageErrors, testing::ValuesIn(usageErrors),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(Arguments, HelpShowsAnExampleForEachTest) {
    const Answer answer = answered({"--help"});
    EXPECT_EQ(answer.status, 0);
    for (const OfferedTest& test : offeredTests()) {
        EXPECT_THAT(answer.text, HasSubstr("  tbvnonpara " + std::string(wordsOf(test).example) + '\n'));
        EXPECT_EQ(wordsOf(test).example.substr(0, test.name.size()), test.name);
    }
}

TEST(Arguments, EveryTestHasAHelpOfItsOwn) {
    for (const OfferedTest& test : offeredTests()) {
        const Answer answer = answered({std::string(test.name).c_str(), "--help"});
        EXPECT_EQ(answer.status, 0);
        EXPECT_THAT(answer.text, HasSubstr(std::string(test.summary)));
        EXPECT_THAT(answer.text, HasSubstr("Example: tbvnonpara " + std::string(wordsOf(test).example)));
    }
}

TEST(Arguments, VersionIsNamed) {
    const Answer answer = answered({"--version"});
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.text, "tbvnonpara 0.1.0\n");
}

}  // namespace

}  // namespace TBVNonPara::cli
