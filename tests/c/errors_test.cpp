#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <string>
#include <tbvnonpara.h>

namespace {

constexpr double missing = std::numeric_limits<double>::quiet_NaN();
constexpr std::array<double, 3> low{1, 2, 3};
constexpr std::array<double, 3> high{4, 5, 6};
constexpr std::array<double, 3> holes{1, missing, 3};
constexpr std::array<const double*, 3> pointers{low.data(), high.data(), holes.data()};
constexpr std::array<size_t, 3> sizes{3, 3, 3};
constexpr std::array<size_t, 3> oneEmpty{3, 0, 0};

tbv_options with(auto change) {
    tbv_options options = TBV_OPTIONS_INIT;
    change(options);
    return options;
}

struct Refused {
    std::string name;
    tbv_status status;
    std::string text;
    std::function<tbv_status(const tbv_options*, tbv_result**, tbv_error*)> call;
    tbv_options options = TBV_OPTIONS_INIT;
};

tbv_status fine(const tbv_options* options, tbv_result** result, tbv_error* error) {
    return tbv_kruskal_wallis(pointers.data(), sizes.data(), 2, options, result, error);
}

// clang-format off
const Refused refusals[] = {
    {"a value",          TBV_BAD_DATA,     "Value 2 of the second variable is not a number.", [](auto o, auto r, auto e) { return tbv_spearman(low.data(), holes.data(), 3, o, r, e); }},
    {"a group's value",  TBV_BAD_DATA,     "Value 2 of group 3 is not a number.",             [](auto o, auto r, auto e) { return tbv_kruskal_wallis(pointers.data(), sizes.data(), 3, o, r, e); }},
    {"a block's value",  TBV_BAD_DATA,     "Value 3 of block 2 is not a number.",             [](auto o, auto r, auto e) { return tbv_friedman(pointers.data(), 3, 3, o, r, e); }},
    {"no values",        TBV_BAD_DATA,     "The first sample has no values.",                 [](auto o, auto r, auto e) { return tbv_mann_whitney(nullptr, 0, low.data(), 3, o, r, e); }},
    {"no sequence",      TBV_BAD_DATA,     "The sequence is empty.",                          [](auto o, auto r, auto e) { return tbv_runs(nullptr, 0, o, r, e); }},
    {"one group",        TBV_BAD_DATA,     "The test compares groups, and fewer than two have values.", [](auto o, auto r, auto e) { return tbv_median(pointers.data(), oneEmpty.data(), 3, o, r, e); }},
    {"no groups",        TBV_BAD_DATA,     "The test compares groups, and fewer than two have values.", [](auto o, auto r, auto e) { return tbv_median(nullptr, nullptr, 0, o, r, e); }},
    {"empty control",    TBV_BAD_DATA,     "", [](auto o, auto r, auto e) { return tbv_kruskal_wallis(pointers.data(), std::array<size_t, 3>{3, 3, 0}.data(), 3, o, r, e); }, with([](auto& o) { o.control = 3; })},
    {"null values",      TBV_BAD_ARGUMENT, "second is a null pointer.",    [](auto o, auto r, auto e) { return tbv_sign(low.data(), nullptr, 3, o, r, e); }},
    {"null codes",       TBV_BAD_ARGUMENT, "codes is a null pointer.",     [](auto o, auto r, auto e) { return tbv_runs(nullptr, 3, o, r, e); }},
    {"null groups",      TBV_BAD_ARGUMENT, "groups is a null pointer.",    [](auto o, auto r, auto e) { return tbv_median(nullptr, sizes.data(), 2, o, r, e); }},
    {"null sizes",       TBV_BAD_ARGUMENT, "sizes is a null pointer.",     [](auto o, auto r, auto e) { return tbv_median(pointers.data(), nullptr, 2, o, r, e); }},
    {"null group",       TBV_BAD_ARGUMENT, "treatments[1] is a null pointer.", [](auto o, auto r, auto e) { return tbv_friedman(std::array<const double*, 2>{low.data(), nullptr}.data(), 2, 3, o, r, e); }},
    {"null result",      TBV_BAD_ARGUMENT, "result is a null pointer.",    [](auto o, auto, auto e) { return fine(o, nullptr, e); }},
    {"negative size",    TBV_BAD_ARGUMENT, "first has more values than memory: is its size negative?", [](auto o, auto r, auto e) { return tbv_mann_whitney(low.data(), static_cast<size_t>(-3), low.data(), 3, o, r, e); }},
    {"level",            TBV_BAD_ARGUMENT, "The level of the intervals must lie between 0.5 and 0.999.", fine, with([](auto& o) { o.confidence = 95; })},
    {"no level",         TBV_BAD_ARGUMENT, "The level of the intervals must lie between 0.5 and 0.999.", fine, with([](auto& o) { o.confidence = missing; })},
    {"steps",            TBV_BAD_ARGUMENT, "options.exact_steps must be 0 or more.", fine, with([](auto& o) { o.exact_steps = -1; })},
    {"missing",          TBV_BAD_ARGUMENT, "options.missing is 2, which is none of its choices.", fine, with([](auto& o) { o.missing = 2; })},
    {"adjustment",       TBV_BAD_ARGUMENT, "options.adjustment is -1, which is none of its choices.", fine, with([](auto& o) { o.adjustment = -1; })},
    {"control",          TBV_BAD_ARGUMENT, "options.control is 3, and there are 2 groups.", fine, with([](auto& o) { o.control = 3; })},
    {"size",             TBV_BAD_ARGUMENT, "options.size is 0, not sizeof(tbv_options): begin with TBV_OPTIONS_INIT or tbv_options_init.", fine, with([](auto& o) { o.size = 0; })},
    {"half a member",    TBV_BAD_ARGUMENT, "", fine, with([](auto& o) { o.size = sizeof o - 1; })},
    {"permutations",     TBV_BAD_ARGUMENT, "options.permutations is 1000000001, which is more than 1000000000.", fine, with([](auto& o) { o.permutations = 1000000001; })},
    {"reserved",         TBV_BAD_ARGUMENT, "", fine, with([](auto& o) { o.reserved = 1; })},
};
// clang-format on

TEST(CErrors, SayWhatIsWrongAndLeaveNoResult) {
    for (const auto& [name, status, text, call, options] : refusals) {
        tbv_error error{"unset"};
        int place = 0;
        auto* result = reinterpret_cast<tbv_result*>(&place);
        EXPECT_EQ(call(&options, &result, &error), status) << name;
        if (!text.empty()) {
            EXPECT_EQ(error.text, text) << name;
        }
        EXPECT_STRNE(error.text, "unset") << name;
        EXPECT_STRNE(error.text, "") << name;
        EXPECT_EQ(result, name == "null result" ? reinterpret_cast<tbv_result*>(&place) : nullptr) << name;
        EXPECT_EQ(call(&options, &result, nullptr), status) << name << ", without a place for the text";
    }
}

TEST(CErrors, TextIsEmptyAfterSuccess) {
    tbv_error error{"unset"};
    tbv_result* result = nullptr;
    EXPECT_EQ(fine(nullptr, &result, &error), TBV_OK);
    EXPECT_STREQ(error.text, "");
    tbv_result_free(result);
}

/// What a client compiled with a later header passes.
struct LaterOptions {
    tbv_options known;
    double more;
};

TEST(COptions, OfALaterVersionAreTakenWhereTheyAskForNothingNew) {
    LaterOptions options{.known = {}, .more = 7};
    tbv_options_init(&options.known, sizeof options);
    EXPECT_EQ(options.known.size, sizeof options);
    EXPECT_EQ(options.known.confidence, 0.95);
    EXPECT_EQ(options.more, 0);
    tbv_result* result = nullptr;
    EXPECT_EQ(fine(&options.known, &result, nullptr), TBV_OK);
    tbv_result_free(result);

    options.more = 1;
    tbv_error error;
    EXPECT_EQ(fine(&options.known, &result, &error), TBV_BAD_ARGUMENT);
    EXPECT_NE(std::string(error.text).find("does not know"), std::string::npos) << error.text;
}

TEST(CErrors, EveryStatusHasAText) {
    std::set<std::string> texts;
    for (int status = TBV_OK; status <= TBV_INTERRUPTED; ++status) {
        texts.insert(tbv_status_text(static_cast<tbv_status>(status)));
    }
    EXPECT_EQ(texts.size(), TBV_INTERRUPTED + 1U);
}

}  // namespace
