#include "adapters/calc/group_ticks.hpp"

#include <gtest/gtest.h>

namespace TBVNonPara::calc {

namespace {

using Names = std::vector<std::string>;
using reshaping::Group;

const std::vector<Group> threeFeeds{{"casein", 12}, {"linseed", 11}, {"soybean", 14}};
const std::vector<Group> twoFeeds{{"casein", 12}, {"linseed", 11}};

TEST(GroupTicks, AreAllSetUnlessTheTestComparesTwoAndThereAreMore) {
    GroupTicks ticks;
    EXPECT_TRUE(ticks.show(threeFeeds, false));
    EXPECT_EQ(ticks.ticked(), (Names{"casein", "linseed", "soybean"}));
    EXPECT_TRUE(ticks.show(threeFeeds, true));
    EXPECT_EQ(ticks.ticked(), Names());
    EXPECT_TRUE(ticks.show(twoFeeds, true));
    EXPECT_EQ(ticks.ticked(), (Names{"casein", "linseed"}));
}

TEST(GroupTicks, ShowEachGroupWithItsSize) {
    GroupTicks ticks;
    static_cast<void>(ticks.show(twoFeeds, false));
    ticks.toggle(1);
    EXPECT_EQ(ticks.lines(), (Names{"\u2611 casein (12)", "\u2610 linseed (11)"}));
    EXPECT_FALSE(ticks.show(twoFeeds, false));
}

TEST(GroupTicks, StayWhatTheUserMadeThemWhenGroupsComeAndGo) {
    GroupTicks ticks;
    static_cast<void>(ticks.show(twoFeeds, true));
    EXPECT_EQ(ticks.move(1, -1), 0U);
    ticks.toggle(1);
    EXPECT_TRUE(ticks.show(threeFeeds, false));
    EXPECT_EQ(ticks.lines(), (Names{"\u2611 linseed (11)", "\u2610 casein (12)", "\u2610 soybean (14)"}));
}

TEST(GroupTicks, BeginAnewWhereNoneOfTheGroupsIsLeft) {
    GroupTicks ticks;
    static_cast<void>(ticks.show(threeFeeds, true));
    ticks.toggle(0);
    static_cast<void>(ticks.show({{"1", 10}, {"2", 10}}, true));
    EXPECT_EQ(ticks.ticked(), (Names{"1", "2"}));
}

TEST(GroupTicks, BeginWithThoseOfTheLastTime) {
    GroupTicks ticks(Names{"soybean", "casein"});
    static_cast<void>(ticks.show(threeFeeds, true));
    EXPECT_EQ(ticks.ticked(), (Names{"soybean", "casein"}));
}

TEST(GroupTicks, DoNotMoveBeyondTheirEnds) {
    GroupTicks ticks;
    static_cast<void>(ticks.show(twoFeeds, true));
    EXPECT_EQ(ticks.move(0, -1), 0U);
    EXPECT_EQ(ticks.move(1, 1), 1U);
    EXPECT_EQ(ticks.ticked(), (Names{"casein", "linseed"}));
}

}  // namespace

}  // namespace TBVNonPara::calc
