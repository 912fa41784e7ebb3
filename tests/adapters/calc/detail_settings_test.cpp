#include "adapters/calc/detail_settings.hpp"

#include <gtest/gtest.h>

namespace TBVNonPara::calc {

namespace {

TEST(ConfidenceLevel, IsReadAsPeopleWriteIt) {
    for (const char* text : {"95", " 95 ", "95.0", "95,0", "95%", "95 %"}) {
        EXPECT_EQ(levelIn(text), 0.95) << text;
    }
    EXPECT_EQ(levelIn("97,5"), 0.975);
    EXPECT_EQ(levelIn("50"), 0.5);
}

TEST(ConfidenceLevel, ReachesTheHighestThatIntervalsHave) {
    ASSERT_TRUE(levelIn("99.9"));
    EXPECT_EQ(*levelIn("99.9"), 0.999);
}

TEST(ConfidenceLevel, OfNoSuchNumberIsNone) {
    for (const char* text : {"", "%", "0.95", "49.9", "99.95", "100", "-95", "much", "95x", "9e1", "9 5",
                             "95 96", "nan", "1,95.0"}) {
        EXPECT_EQ(levelIn(text), std::nullopt) << text;
    }
}

}  // namespace

}  // namespace TBVNonPara::calc
