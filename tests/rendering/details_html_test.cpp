#include "tbvnonpara/rendering/details_html.hpp"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tbvnonpara/rendering/details_quote.hpp"
#include "tbvnonpara/rendering/forest_plot.hpp"
#include "tbvnonpara/rendering/pictures/median_intervals.hpp"

namespace TBVNonPara::rendering {
namespace {
using testing::HasSubstr;
using testing::Not;
using Samples = std::vector<std::vector<double>>;

const OfferedTest* testOffered(TBVNPMethod method) {
    return &*std::ranges::find(offeredTests(), method, &OfferedTest::method);
}

std::vector<std::span<const double>> spansOf(const Samples& samples) {
    return {samples.begin(), samples.end()};
}

std::size_t occurrences(std::string_view text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1)) {
        count += 1;
    }
    return count;
}

/// 1, 2, 3 against 4, 5, 6: the smallest U of three and three.
Details separated() {
    return {testOffered(tbvNPMannU),
            tbvNPTwoTailed,
            {},
            {"low", "high"},
            statistics::mannWhitney(std::vector<double>{1, 2, 3}, std::vector<double>{4, 5, 6}),
            0.1};
}

/// The values of group g are 10 g + 1 to 10 g + 6, so that each lies above those before.
Details steps(std::size_t groups, const statistics::Options& options = {}) {
    Samples samples;
    std::vector<std::string> labels;
    for (std::size_t g = 0; g < groups; ++g) {
        std::vector<double> values(6);
        for (std::size_t i = 0; i < values.size(); ++i) {
            values[i] = static_cast<double>(10 * g + i + 1);
        }
        samples.push_back(values);
        labels.push_back("g" + std::to_string(g + 1));
    }
    return {testOffered(tbvNPKWallis),
            tbvNPTwoTailed,
            {},
            labels,
            statistics::kruskalWallis(spansOf(samples), options),
            0.001};
}

TEST(QuotableSentence, NamesSizesStatisticPAndEffects) {
    EXPECT_EQ(quotableSentence(separated()),
              "Mann-Whitney test of low (n = 3) and high (n = 3): U = 0 (9 for high), P = 0.1000 (exact, "
              "two-tailed); "
              "share of pairs with low larger = 0.0000, 95 % CI 0.0000 to 0.4990; Hodges-Lehmann shift low - "
              "high = -3.0000.");
}

TEST(QuotableSentence, SaysInWhichDirection) {
    Details details = separated();
    details.tails = tbvNPVar1LTVar2;
    EXPECT_THAT(quotableSentence(details), HasSubstr("P = 0.0500 (exact, one-tailed)"));
}

TEST(QuotableSentence, IsNoneWhereThereIsNothingToTest) {
    Details details = steps(2);
    details.result = statistics::kruskalWallis(spansOf({{1, 1}, {1, 1, 1}}));
    EXPECT_EQ(quotableSentence(details), "");
    EXPECT_THAT(detailsInHtml(details), Not(HasSubstr("blockquote")));
}

TEST(DetailsPage, EscapesLabelsAndKeepsNumbersExact) {
    Details details = separated();
    details.labels[0] = "<b>&\"";
    const std::string page = detailsInHtml(details);
    EXPECT_THAT(page, Not(HasSubstr("<b>&")));
    EXPECT_THAT(page, HasSubstr("&lt;b&gt;&amp;&quot; larger, share of pairs"));
    EXPECT_THAT(page, HasSubstr("<data value=\"-3\">-3.0000</data>"));
}

TEST(DetailsPage, APThatNoNumberHoldsIsAText) {
    Details details = separated();
    auto test = std::get<statistics::MannWhitney>(details.result);
    test.exact->two = {0, -967.466};
    details.result = test;
    const std::string page = detailsInHtml(details);
    EXPECT_THAT(page, HasSubstr("<td class=\"r\">3.42e-968</td>"));
}

TEST(ForestPlot, HasALineForEachComparisonAndAnotherColourForThoseThatDiffer) {
    const Details details = steps(4);
    const std::string plot = forestPlot(details);
    EXPECT_EQ(occurrences(plot, "class=\"span"), 6U);
    const auto& comparisons = std::get<statistics::KruskalWallis>(details.result).comparisons;
    const auto differ = static_cast<std::size_t>(std::ranges::count_if(
        comparisons, [](const auto& comparison) { return comparison.adjusted.value <= 0.05; }));
    EXPECT_EQ(differ, 3U);  // g1 - g3, g1 - g4, g2 - g4
    EXPECT_EQ(occurrences(plot, "class=\"span differs\""), differ);
    EXPECT_THAT(plot, HasSubstr(">g1 - g2</text>"));
    EXPECT_THAT(plot, HasSubstr("role=\"img\" aria-labelledby=\"forest-name forest-description\""));
    EXPECT_THAT(plot, HasSubstr("3 of 6 pairs of groups differ at 5 % (P adjusted by Holm)."));
}

TEST(ForestPlot, OfManyComparisonsDrawsThoseWithTheSmallestP) {
    const std::string plot = forestPlot(steps(12));
    EXPECT_EQ(occurrences(plot, "<rect"), 40U);
    EXPECT_THAT(plot, HasSubstr("The 40 of 66 with the smallest P are drawn."));
    EXPECT_THAT(plot, HasSubstr(">g1 - g12</text>"));
    EXPECT_THAT(plot, Not(HasSubstr(">g1 - g2</text>")));
}

TEST(ForestPlot, OfTwoSamplesIsNone) {
    EXPECT_EQ(forestPlot(separated()), "");
}

TEST(ForestPlot, BlocksThatAreAllEqualHaveNoShare) {
    Details details = steps(3);
    details.test = testOffered(tbvNPFriedman);
    details.result = statistics::friedman(spansOf({{1, 2, 3, 4}, {1, 2, 3, 4}, {5, 6, 7, 8}}));
    const std::string plot = forestPlot(details);
    EXPECT_EQ(occurrences(plot, "<rect"), 2U);
    EXPECT_EQ(occurrences(plot, "class=\"span"), 2U);
}

TEST(MedianIntervals, BelongToTheColumnsThatTheyAreOf) {
    Details details = steps(2);
    const std::vector<double> six = {1, 2, 3, 4, 5, 6};
    details.result = statistics::kruskalWallis(spansOf({{}, six, {7}}));
    const MedianIntervals intervals = medianIntervals(details, 3);
    EXPECT_FALSE(intervals.of(0));
    ASSERT_TRUE(intervals.of(1));
    EXPECT_EQ(intervals.of(1)->low, 1);  // six values: the whole range, 1 - 2 / 64
    EXPECT_EQ(intervals.of(1)->high, 6);
    EXPECT_FALSE(intervals.of(2));
    EXPECT_FALSE(intervals.of(3));
}

}  // namespace
}  // namespace TBVNonPara::rendering
