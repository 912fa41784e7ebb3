#include <gtest/gtest.h>

#include "tbvnonpara/statistics.hpp"

namespace TBVNonPara::statistics {
namespace {

using Numbers = std::vector<double>;

// All probabilities are counts of arrangements that a reader can list.
TEST(OneHeader, HasTheTestsOfTwoSamples) {
    EXPECT_DOUBLE_EQ(mannWhitney(Numbers{1, 2, 3}, Numbers{4, 5, 6}).exact->two.value, 2.0 / 20);
    EXPECT_DOUBLE_EQ(wilcoxon(Numbers{1, 2, 3}, Numbers{2, 4, 6}).zerosLeftOut.exact->two.value, 2.0 / 8);
    EXPECT_DOUBLE_EQ(spearman(Numbers{1, 2, 3}, Numbers{2, 4, 9}).exact->two.value, 2.0 / 6);
    EXPECT_DOUBLE_EQ(sign(Numbers{1, 2, 3}, Numbers{2, 4, 6}).exact->two.value, 2.0 / 8);
    EXPECT_DOUBLE_EQ(runs(Numbers{1, 1, 2, 2}).exact->fewer.value, 2.0 / 6);
}

TEST(OneHeader, HasTheTestsOfGroups) {
    const std::vector<Numbers> groups{{1, 2}, {3, 4}, {5, 6}};
    EXPECT_DOUBLE_EQ(kruskalWallis(spansOf(groups)).chiSquare->value, 32.0 / 7);
    EXPECT_DOUBLE_EQ(kruskalWallis(spansOf(groups)).exact->p.value, 6.0 / 90);
    EXPECT_DOUBLE_EQ(friedman(spansOf(groups)).exact->p.value, 6.0 / 36);
    EXPECT_DOUBLE_EQ(median(spansOf(std::array{Numbers{1, 2, 3}, Numbers{4, 5, 6}})).exact->p.value,
                     2.0 / 20);
}

TEST(OneHeader, HasTheFiguresByName) {
    const Figure figures = figureOf(mannWhitney(Numbers{4, 5, 6}, Numbers{1, 2, 3}));
    EXPECT_EQ(std::get<double>(find(figures, "effect.superiority.value")->value), 1);
    EXPECT_EQ(find(figures, "effect.superiority.middle"), nullptr);
}

}  // namespace
}  // namespace TBVNonPara::statistics
