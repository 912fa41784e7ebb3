#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <tbvnonpara.h>
#include <thread>
#include <vector>

namespace {

using Result = std::unique_ptr<tbv_result, decltype(&tbv_result_free)>;

/// "Student" (1908), ten patients after two drugs.
constexpr std::array<double, 10> drug1{0.7, -1.6, -0.2, -1.2, -0.1, 3.4, 3.7, 0.8, 0, 2};
constexpr std::array<double, 10> drug2{1.9, 0.8, 1.1, 0.1, -0.1, 4.4, 5.5, 1.6, 4.6, 3.4};

Result sleep(const tbv_options* options = nullptr) {
    tbv_result* result = nullptr;
    EXPECT_EQ(
        tbv_mann_whitney(drug1.data(), drug1.size(), drug2.data(), drug2.size(), options, &result, nullptr),
        TBV_OK);
    return {result, &tbv_result_free};
}

Result threeGroups(const tbv_options* options = nullptr) {
    constexpr std::array<double, 5> values{1, 2, 3, 4, 5};
    constexpr std::array<double, 3> above{11, 12, 13};
    const std::array<const double*, 4> groups{values.data(), nullptr, values.data(), above.data()};
    const std::array<size_t, 4> lengths{5, 0, 5, 3};
    tbv_result* result = nullptr;
    EXPECT_EQ(tbv_kruskal_wallis(groups.data(), lengths.data(), groups.size(), options, &result, nullptr),
              TBV_OK);
    return {result, &tbv_result_free};
}

std::pair<tbv_status, double> numberNamed(const Result& result, const char* name) {
    double number = 0;
    const tbv_status status = tbv_result_number(result.get(), name, &number);
    return {status, number};
}

// 73 pairs with the second larger, 24 with the first, 3 equal: (24 + 3/2) of 100.
TEST(CResult, HasNumbersByTheirNamesInJson) {
    const Result result = sleep();
    EXPECT_EQ(numberNamed(result, "effect.superiority.value"), std::pair(TBV_OK, 0.255));
    EXPECT_EQ(numberNamed(result, "effect.superiority"), std::pair(TBV_OK, 0.255));
    EXPECT_EQ(numberNamed(result, "data.pairs.greater"), std::pair(TBV_OK, 24.0));
    EXPECT_EQ(numberNamed(result, "groups.2.n"), std::pair(TBV_OK, 10.0));
    EXPECT_EQ(numberNamed(result, "statistic.u.2"), std::pair(TBV_OK, 74.5));
}

TEST(CResult, TellsWhatIsAbsentFromWhatIsUnknown) {
    tbv_options options = TBV_OPTIONS_INIT;
    options.exact_steps = 0;
    const Result result = sleep(&options);
    // clang-format off
    const std::pair<const char*, tbv_status> cases[] = {
        {"p.exact",           TBV_ABSENT},       {"p.exact.two",   TBV_ABSENT},
        {"p.exacts",          TBV_UNKNOWN_NAME}, {"groups.3.n",    TBV_UNKNOWN_NAME},
        {"groups.0",          TBV_UNKNOWN_NAME}, {"p.method.two",  TBV_UNKNOWN_NAME},
        {"p.method",          TBV_WRONG_KIND},   {"p",             TBV_WRONG_KIND},
        {"",                  TBV_WRONG_KIND},   {"groups",        TBV_WRONG_KIND},
    };
    // clang-format on
    for (const auto& [name, status] : cases) {
        const auto [given, number] = numberNamed(result, name);
        EXPECT_EQ(given, status) << name;
        EXPECT_TRUE(std::isnan(number)) << name;
    }
    const char* text = "unset";
    EXPECT_EQ(tbv_result_text(result.get(), "level", &text), TBV_WRONG_KIND);
    EXPECT_EQ(text, nullptr);
    size_t count = 7;
    EXPECT_EQ(tbv_result_count(result.get(), "p.method", &count), TBV_WRONG_KIND);
    EXPECT_EQ(count, 0U);
}

TEST(CResult, RefusesNullPointers) {
    const Result result = sleep();
    double number = 0;
    const char* text = nullptr;
    size_t count = 0;
    EXPECT_EQ(tbv_result_number(nullptr, "level", &number), TBV_BAD_ARGUMENT);
    EXPECT_EQ(tbv_result_number(result.get(), nullptr, &number), TBV_BAD_ARGUMENT);
    EXPECT_EQ(tbv_result_number(result.get(), "level", nullptr), TBV_BAD_ARGUMENT);
    EXPECT_EQ(tbv_result_text(nullptr, "test", &text), TBV_BAD_ARGUMENT);
    EXPECT_EQ(tbv_result_count(nullptr, "groups", &count), TBV_BAD_ARGUMENT);
    EXPECT_EQ(tbv_result_json(nullptr), nullptr);
}

TEST(CResult, LabelsGroupsByTheirNumbers) {
    tbv_options options = TBV_OPTIONS_INIT;
    options.control = 4;
    options.adjustment = TBV_ADJUST_BONFERRONI;
    options.trend = 1;
    const Result result = threeGroups(&options);
    const auto json = nlohmann::json::parse(tbv_result_json(result.get()));
    EXPECT_EQ(json["labels"], nlohmann::json({"1", "3", "4"}));
    EXPECT_EQ(json["adjust"], "bonferroni");
    EXPECT_EQ(json["trend"]["test"], "jonckheere-terpstra");
    ASSERT_EQ(json["comparisons"].size(), 2U);
    EXPECT_EQ(json["comparisons"][1]["first"], 2);
    EXPECT_EQ(json["comparisons"][1]["second"], 3);
    const double p = json["comparisons"][0]["p"]["value"];
    EXPECT_DOUBLE_EQ(json["comparisons"][0]["adjusted"]["value"], 2 * p);
}

TEST(CResult, IsTheSameOnEightThreadsAtOnce) {
    constexpr int rounds = 50;
    const Result shared = threeGroups();
    const std::string expected = tbv_result_json(threeGroups().get());
    const std::string expectedSleep = tbv_result_json(sleep().get());
    std::array<int, 8> differing{};
    std::vector<std::thread> threads;
    for (int& count : differing) {
        threads.emplace_back([&] {
            for (int round = 0; round < rounds; ++round) {
                count += tbv_result_json(shared.get()) != expected ? 1 : 0;
                count += tbv_result_json(threeGroups().get()) != expected ? 1 : 0;
                count += tbv_result_json(sleep().get()) != expectedSleep ? 1 : 0;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(differing, (std::array<int, 8>{}));
}

}  // namespace
