#include <gtest/gtest.h>
#include <vector>

#include "tests/statistics/tests_by_name.hpp"

namespace TBVNonPara::statistics {
namespace {

/// A test whose exact count takes long enough to be told of.
struct LongTest {
    const char* name;
    std::vector<std::vector<double>> samples;
    bool trend = false;
    std::size_t permutations = 0;
};

void PrintTo(const LongTest& test, std::ostream* out) {
    *out << test.name << (test.trend ? " with trend" : "") << (test.permutations > 0 ? " by chance" : "");
}

/// `count` whole numbers below `kinds`, in an order of no meaning.
std::vector<double> scattered(std::size_t count, std::size_t kinds, std::size_t seed) {
    std::vector<double> values(count);
    std::size_t state = seed;
    for (double& value : values) {
        state = (state * 1103515245 + 12345) % 2147483648;
        value = static_cast<double>(state / 65536 % kinds);
    }
    return values;
}

/// first, first + step, first + 2 step, ...: no ties.
std::vector<double> different(std::size_t count, std::size_t step, std::size_t first = 0) {
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i) {
        values[i] = static_cast<double>(first + i * step);
    }
    return values;
}

class LongCounts : public testing::TestWithParam<LongTest> {
 protected:
    static Figure figures(const CountWatch& watch) {
        Options options;
        options.trend = GetParam().trend;
        options.permutations = GetParam().permutations;
        options.exactSteps = options.permutations > 0 ? 0 : options.exactSteps;
        options.watch = watch;
        return figuresOfTest(GetParam().name, GetParam().samples, options);
    }
};

TEST_P(LongCounts, AreToldOfInOrderAndChangeNothing) {
    std::vector<double> shares;
    const Figure watched = figures([&](double share) { shares.push_back(share); });
    ASSERT_FALSE(shares.empty());
    for (const double share : shares) {
        EXPECT_GT(share, 0);
        EXPECT_LE(share, 1);
    }
    const Figure alone = figures({});
    for (const char* const path :
         {"p.method", "p.exact.two.value", "p.exact.p.value", "trend.exact.two.value"}) {
        const Figure* const a = find(watched, path);
        const Figure* const b = find(alone, path);
        ASSERT_EQ(a == nullptr, b == nullptr) << path;
        if (a != nullptr) {
            EXPECT_TRUE(a->value.index() == b->value.index()) << path;
            const auto* const number = std::get_if<double>(&a->value);
            EXPECT_TRUE(number == nullptr || *number == std::get<double>(b->value)) << path;
        }
    }
}

struct Stopped {};

// 300 groups of 3, of which only the comparisons take long.
TEST(AWatch, IsToldOfManyComparisons) {
    Lists groups;
    for (std::size_t group = 0; group < 300; ++group) {
        groups.push_back(scattered(3, 1000, group));
    }
    const CountWatch stop = [](double share) {
        EXPECT_GT(share, 0);
        EXPECT_LE(share, 1);
        throw Stopped();
    };
    for (const char* const name : {"kruskal-wallis", "friedman", "median"}) {
        EXPECT_THROW((void)figuresOfTest(name, groups, {.exactSteps = 0, .watch = stop}), Stopped) << name;
    }
}

TEST_P(LongCounts, EndWithWhatTheWatchThrows) {
    EXPECT_THROW((void)figures([](double) { throw Stopped(); }), Stopped);
}

TEST(AWatch, IsForgottenWhenItHasEndedATest) {
    const Lists samples = {different(500, 3), different(500, 2)};
    EXPECT_THROW((void)figuresOfTest("wilcoxon", samples, {.watch = [](double) { throw Stopped(); }}),
                 Stopped);
    EXPECT_NO_THROW((void)figuresOfTest("wilcoxon", samples));
}

INSTANTIATE_TEST_SUITE_P(
    Watch, LongCounts,
    testing::Values(
        LongTest{"mann-whitney", {scattered(70, 30, 1), scattered(70, 30, 2)}},
        LongTest{"wilcoxon", {different(500, 3), different(500, 2)}},
        LongTest{"spearman", {different(15, 1), scattered(15, 1000, 5)}},
        LongTest{"runs", {scattered(900, 3, 3)}},
        LongTest{"kruskal-wallis", {different(9, 3), different(9, 3, 1), different(9, 3, 2)}},
        LongTest{"kruskal-wallis",
                 {different(3, 4), different(4, 4, 1), different(5, 4, 2), different(5, 4, 3)}},
        LongTest{"kruskal-wallis", {scattered(24, 8, 4), scattered(24, 8, 5), scattered(24, 8, 6)}, true},
        LongTest{"friedman", {scattered(200, 1000, 7), scattered(200, 1000, 8), scattered(200, 1000, 9)}},
        LongTest{"mann-whitney", {scattered(100, 9, 1), scattered(100, 9, 2)}, false, 150000},
        LongTest{"kruskal-wallis", {scattered(100, 9, 1), scattered(100, 9, 2)}, false, 150000}));

}  // namespace
}  // namespace TBVNonPara::statistics
