#include "tbvnonpara/details/page.hpp"

#include <algorithm>
#include <gtest/gtest.h>

#include "tbvnonpara/details/json.hpp"
#include "tbvnonpara/details/sampled.hpp"
#include "tbvnonpara/details/text.hpp"
#include "tbvnonpara/details/words.hpp"
#include "tests/support/details_of_tests.hpp"

namespace TBVNonPara {
namespace {

using statistics::FigureBlock;
using statistics::NamedFigure;
using Numbers = std::vector<double>;

struct ShownProbability {
    double value;
    double log10;
    std::string text;
};

TEST(ProbabilityText, NeverEndsAtZero) {
    const ShownProbability cases[] = {
        {0.03785, -1.42, "0.0379"},  {1, 0, "1.0000"},
        {0.0001, -4, "0.0001"},      {5.11e-7, -6.29, "5.11e-07"},
        {1e-250, -250, "1.00e-250"}, {0, -967.466, "3.42e-968"},
        {0, -500, "1.00e-500"},      {0, -400.0001, "1.00e-400"},
    };
    for (const auto& [value, log10, text] : cases) {
        EXPECT_EQ(probabilityText({value, log10}), text);
    }
}

TEST(Counts, HaveThousandsAndEndWhereNobodyReads) {
    EXPECT_EQ(ways(choose(20, 10)), "184,756 ");
    EXPECT_EQ(ways(12), "12 ");
    EXPECT_EQ(ways(choose(200, 100)), "");
}

TEST(DetailsText, IsAsDesigned) {
    const std::string text = detailsText(detailPage(sleepDetails()));
    EXPECT_EQ(text, R"(
Details
═══════
Drug2 tends to be larger than Drug1: in 74 % of all pairs of one value each (equal ones count
  half), 95 % CI 49 to 89 %.
The interval holds 50 %: which of the two is larger in general stays open.
Typical difference Drug1 - Drug2: -1.3500, 95 % CI -3.6000 to 0.1000.
P = 0.0658 is exact for data with these ties: all 184,756 ways to deal the 20 ranks into 10 and 10
  were counted. The report has 0.0630.

Effect
                                      Estimate      Low    High
───────────────────────────────────────────────────────────────
Drug1 larger, share of pairs            0.2550   0.1060  0.5139
Rank-biserial r                        -0.4900  -0.7880  0.0277
Shift Drug1 - Drug2 (Hodges-Lehmann)   -1.3500  -3.6000  0.1000

Probability
                                              z or t  2-tailed P
────────────────────────────────────────────────────────────────
Exact, given the ties                                     0.0658
Normal, tie-corrected                        -1.8541      0.0637
  with continuity correction                 -1.8163      0.0693
Brunner-Munzel t (unequal spreads, 16.9 df)  -2.1447      0.0468

Groups
        N  Median      Low    High  Mean Rank
─────────────────────────────────────────────
Drug1  10  0.3500  -1.2000  3.4000     8.0500
Drug2  10  1.7500   0.1000  4.6000    12.9500

Pairs: 24 with Drug1 larger, 3 equal, 73 with Drug2 larger. Ties: 3 groups with 6 values, the
  largest of 2; factor 0.9977.
The interval of the shift is in fact one of 95.7 %, the nearest level above that can be had.
)");
}

TEST(DetailsText, FoldsSentencesAtTheWidth) {
    const std::string text = detailsText(detailPage(sleepDetails()), 60);
    EXPECT_NE(text.find("Drug2 tends to be larger than Drug1: in 74 % of all pairs\n  of one"),
              std::string::npos)
        << text;
}

TEST(DetailsText, EscapesLabels) {
    Details details = sleepDetails();
    details.labels[0] = "a\x1b[2J";
    const std::string text = detailsText(detailPage(details));
    EXPECT_EQ(text.find('\x1b'), std::string::npos);
}

TEST(DetailsText, SaysWhatTheDirectionIs) {
    const DetailPage page = detailPage(sleepDetails(tbvNPVar1LTVar2));
    EXPECT_EQ(page.tables[1].headings[1], "P (less)");
    EXPECT_EQ(shownDetail(page.tables[1].rows[0][2]), "0.0329");
}

TEST(DetailsText, NeverPrintsALevelThatWasNotReached) {
    Details details = sleepDetails();
    details.result = statistics::mannWhitney(Numbers{1, 2, 9}, Numbers{3, 4});
    const DetailPage page = detailPage(details);
    EXPECT_EQ(page.words[2], "Typical difference Drug1 - Drug2: -1.5000.");
    EXPECT_EQ(page.notes[1],
              "There are too few values for an interval of the shift of 95 %: at most 80.0 % can be had.");
}

TEST(DetailsText, ComparesWithTheControlAlone) {
    Details details = groupDetails(0);
    details.choices.control = "a";
    EXPECT_EQ(detailPage(details).words[1], "1 of 2 groups differs from a at 5 % (P adjusted by Holm).");
}

std::vector<std::string> figureNamesOf(const statistics::Figure& figures, const std::string& path) {
    const statistics::Figure* const block = find(figures, path);
    std::vector<std::string> names;
    for (const NamedFigure& member : std::get<FigureBlock>(block->value)) {
        names.push_back(member.name);
    }
    return names;
}

using FigureNames = std::vector<std::string>;

TEST(DetailsJson, HasItsNames) {
    const statistics::Figure two = detailFigures(sleepDetails());
    EXPECT_EQ(figureNamesOf(two, ""), FigureNames({"schema", "test", "level", "labels", "words", "notes",
                                                   "data", "statistic", "p", "robust", "effect", "groups"}));
    EXPECT_EQ(figureNamesOf(two, "p"), FigureNames({"method", "exact", "normal"}));
    EXPECT_EQ(figureNamesOf(two, "p.exact"), FigureNames({"two", "greater", "less", "point"}));
    EXPECT_EQ(figureNamesOf(two, "effect.shift"), FigureNames({"value", "low", "high", "attained", "best"}));
    const statistics::Figure several = detailFigures(groupDetails());
    EXPECT_EQ(figureNamesOf(several, ""),
              FigureNames({"schema", "test", "level", "adjust", "labels", "words", "notes", "data", "p",
                           "effect", "groups", "comparisons", "letters", "trend"}));
    EXPECT_EQ(figureNamesOf(several, "comparisons.3"),
              FigureNames({"first", "second", "z", "superiority", "p", "adjusted"}));
}

TEST(DetailsJson, IsOneObjectWithALineForEachNestedMember) {
    const statistics::Figure figure = {FigureBlock{
        {"none", {}},
        {"list", {statistics::FigureList{{0.5}, {std::int64_t(2)}}}},
        {"block", {FigureBlock{{"a\"", {std::string("x")}}}}},
    }};
    EXPECT_EQ(figureInJson(figure, 2),
              "{\n    \"none\": null,\n    \"list\": [0.5, 2],\n    \"block\": {\"a\\\"\": \"x\"}\n  }");
}

/// Details whose P is estimated, as if the samples were too large to count.
Details sampledDetails(TBVNPTails tails) {
    const std::vector<double> first = {1, 2, 4, 7};
    const std::vector<double> second = {3, 5, 6, 8, 9};
    statistics::Options options;
    options.exactSteps = 0;
    options.permutations = 99;
    options.seed = 7;
    DetailChoices choices;
    choices.permutations = options.permutations;
    choices.seed = options.seed;
    return {offered(tbvNPMannU),
            tails,
            choices,
            {"a", "b"},
            statistics::mannWhitney(first, second, options),
            0.1};
}

TEST(RandomArrangements, StandInARowOfTheirOwnWithANoteOnTheirNumber) {
    for (const TBVNPTails tails : {tbvNPTwoTailed, tbvNPVar1GTVar2, tbvNPVar1LTVar2}) {
        const Details details = sampledDetails(tails);
        const statistics::SampledTails& sampled = *std::get<statistics::MannWhitney>(details.result).sampled;
        const statistics::SampledP& asked = tails == tbvNPTwoTailed    ? sampled.two
                                            : tails == tbvNPVar1GTVar2 ? sampled.greater
                                                                       : sampled.less;
        const DetailPage page = detailPage(details);
        const auto row = std::ranges::find_if(page.tables[1].rows, [](const std::vector<DetailCell>& cells) {
            return sheetValue(cells.front()) == CellValue(Text("Random arrangements"));
        });
        ASSERT_NE(row, page.tables[1].rows.end());
        EXPECT_EQ(sheetValue(row->back()), CellValue(asked.p.value));
        EXPECT_TRUE(
            page.notes.back().starts_with("99 random arrangements (seed 7): the standard error of P is 0.0"))
            << page.notes.back();
    }
}

TEST(RandomArrangements, AreNotMissedWherePWasCounted) {
    Details details = sleepDetails();
    EXPECT_EQ(statistics::find(detailFigures(details), "p.permutations"), nullptr);
    details.choices.permutations = 99;
    EXPECT_EQ(detailPage(details).notes.back(),
              "P was counted exactly, so no random arrangements were drawn.");
    const statistics::Figure figures = detailFigures(details);
    ASSERT_NE(statistics::find(figures, "p.permutations"), nullptr);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(statistics::find(figures, "p.permutations")->value));
}

/// Fewer runs are the first alternative, and lie below the mean.
TEST(RandomArrangements, OfRunsAreToldAsFewerAndMore) {
    statistics::SampledTails tails;
    tails.less.p.value = 0.25;
    tails.greater.p.value = 0.75;
    const auto told = fewerFirst(statistics::Runs::Sampled{tails});
    EXPECT_EQ(told->greater.p.value, 0.25);
    EXPECT_EQ(told->less.p.value, 0.75);
    EXPECT_FALSE(fewerFirst({}).has_value());
}

}  // namespace
}  // namespace TBVNonPara
