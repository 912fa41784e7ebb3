#include <array>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <tbvnonpara.h>
#include <vector>

namespace {

constexpr std::array<double, 3> firstSample{1, 2, 3};
constexpr std::array<double, 3> secondSample{4, 5, 6};

tbv_status compare(const tbv_options* options, tbv_result** result, tbv_error* error = nullptr) {
    return tbv_mann_whitney(firstSample.data(), firstSample.size(), secondSample.data(), secondSample.size(),
                            options, result, error);
}

/// The structure as it was before it had a seed: programs that were compiled with it go on.
struct EarlierOptions {
    size_t size;
    double confidence;
    double exactSteps;
    size_t control;
    std::array<int, 4> choices;
};

TEST(COptions, OfAnEarlierVersionAreReadAndWrittenAsFarAsTheyGo) {
    struct {
        EarlierOptions known;
        std::array<unsigned char, 64> behind;
    } place{};
    std::memset(&place, 0xAB, sizeof place);
    auto* const options = reinterpret_cast<tbv_options*>(&place.known);
    tbv_options_init(options, sizeof(EarlierOptions));
    EXPECT_EQ(place.known.size, sizeof(EarlierOptions));
    EXPECT_EQ(place.known.confidence, 0.95);
    for (const unsigned char byte : place.behind) {
        ASSERT_EQ(byte, 0xAB);
    }
    // Read as arrangements or a watch, what lies behind would be refused or called.
    place.known.confidence = 0.8;
    place.known.exactSteps = 0;
    tbv_result* result = nullptr;
    tbv_error error;
    ASSERT_EQ(compare(options, &result, &error), TBV_OK) << error.text;
    double number = 0;
    EXPECT_EQ(tbv_result_number(result, "level", &number), TBV_OK);
    EXPECT_EQ(number, 0.8);
    EXPECT_EQ(tbv_result_number(result, "p.permutations.seed", &number), TBV_ABSENT);
    tbv_result_free(result);
}

double drawn(const char* name, std::uint64_t seed) {
    tbv_options options = TBV_OPTIONS_INIT;
    options.exact_steps = 0;
    options.permutations = 9999;
    options.seed = seed;
    tbv_result* result = nullptr;
    double number = 0;
    EXPECT_EQ(compare(&options, &result), TBV_OK);
    EXPECT_EQ(tbv_result_number(result, name, &number), TBV_OK);
    tbv_result_free(result);
    return number;
}

// 2 of the 20 arrangements are as far out: an estimate from 10,000 has a standard error of 0.003.
TEST(CPermutations, EstimatePFromAsManyArrangementsAsAreAskedFor) {
    EXPECT_EQ(drawn("p.permutations.arrangements", 7), 9999);
    EXPECT_EQ(drawn("p.permutations.seed", 7), 7);
    EXPECT_NEAR(drawn("p.permutations.two.value", 7), 2.0 / 20, 4 * 0.003);
}

TEST(CPermutations, AreThoseOfTheSeedAndOfOneWithout) {
    const char* const p = "p.permutations.two.value";
    EXPECT_EQ(drawn(p, 7), drawn(p, 7));
    EXPECT_NE(drawn(p, 7), drawn(p, 8));
    EXPECT_EQ(drawn(p, 0), drawn(p, 1));
    EXPECT_EQ(drawn("p.permutations.seed", 0), 1);
}

TEST(CPermutations, AreNotDrawnWherePIsCounted) {
    tbv_options options = TBV_OPTIONS_INIT;
    options.permutations = 99;
    tbv_result* result = nullptr;
    double number = 0;
    ASSERT_EQ(compare(&options, &result), TBV_OK);
    EXPECT_EQ(tbv_result_number(result, "p.permutations.two", &number), TBV_ABSENT);
    tbv_result_free(result);
}

struct Told {
    std::vector<double> shares;
    size_t enough = 0;
};

/// Ends the test when it was told often enough.
int tell(double share, void* data) {
    auto* const told = static_cast<Told*>(data);
    told->shares.push_back(share);
    return told->shares.size() >= told->enough ? -1 : 0;
}

int fail(double, void*) {
    throw std::runtime_error("from the watch");
}

int failForMemory(double, void*) {
    throw std::bad_alloc();
}

tbv_options watchedBy(tbv_watch watch, void* data = nullptr) {
    tbv_options options = TBV_OPTIONS_INIT;
    options.watch = watch;
    options.watch_data = data;
    return options;
}

/// Two samples with ties, whose exact count takes many seconds.
tbv_status countForLong(tbv_options options, tbv_result** result, tbv_error* error) {
    std::vector<double> values(300);
    for (size_t i = 0; i < values.size(); ++i) {
        values[i] = static_cast<double>((i * i) % 97);
    }
    options.exact_steps = 1e15;
    return tbv_mann_whitney(values.data(), 150, values.data() + 150, 150, &options, result, error);
}

TEST(CWatch, IsToldHowFarACountIsAndEndsIt) {
    Told told{.shares = {}, .enough = 3};
    int place = 0;
    auto* result = reinterpret_cast<tbv_result*>(&place);
    tbv_error error;
    EXPECT_EQ(countForLong(watchedBy(&tell, &told), &result, &error), TBV_INTERRUPTED);
    EXPECT_STREQ(error.text, "options.watch ended the test.");
    EXPECT_EQ(result, nullptr);
    ASSERT_EQ(told.shares.size(), 3U);
    EXPECT_GT(told.shares[0], 0);
    EXPECT_GT(told.shares[1], told.shares[0]);
    EXPECT_LT(told.shares[2], 1);
}

TEST(CWatch, EndsRandomArrangements) {
    Told told{.shares = {}, .enough = 1};
    tbv_options options = watchedBy(&tell, &told);
    options.exact_steps = 0;
    options.permutations = 1000000000;
    tbv_result* result = nullptr;
    EXPECT_EQ(compare(&options, &result), TBV_INTERRUPTED);
    EXPECT_EQ(result, nullptr);
}

TEST(CWatch, IsNotAskedByShortTests) {
    Told told{.shares = {}, .enough = 1};
    const tbv_options options = watchedBy(&tell, &told);
    tbv_result* result = nullptr;
    EXPECT_EQ(compare(&options, &result), TBV_OK);
    EXPECT_TRUE(told.shares.empty());
    tbv_result_free(result);
}

TEST(CWatch, LetsNothingBeThrownAcross) {
    tbv_result* result = nullptr;
    tbv_error error;
    EXPECT_EQ(countForLong(watchedBy(&fail), &result, &error), TBV_INTERNAL);
    EXPECT_STREQ(error.text, "from the watch");
    EXPECT_EQ(countForLong(watchedBy(&failForMemory), &result, &error), TBV_OUT_OF_MEMORY);
    EXPECT_EQ(result, nullptr);
}

}  // namespace
