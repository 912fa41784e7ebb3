#include <gmock/gmock.h>

#include "tests/support/engine_fixture.hpp"
#include "tests/support/raised.hpp"
#include "tests/support/reference_rows.hpp"
#include "tests/support/tails_outside_the_list.hpp"

namespace TBVNonPara {
namespace {

using Support::blank;
using Support::Cell;
using Support::Cells;
using Support::column;
using Support::LoadedEngine;
using Support::numbers;
using Support::raisedBy;
using Support::tailsOutsideTheList;

constexpr TBVNPTails two = tbvNPTwoTailed;
constexpr TBVNPTails greater = tbvNPVar1GTVar2;
constexpr TBVNPTails less = tbvNPVar1LTVar2;

struct SignCase {
    std::string name;
    Cells ys;
    Cells xs;
    std::vector<double> counts;  // positive, neither, negative
    TBVNPTails tails;
    double P;
};

class Sign : public testing::TestWithParam<SignCase> {};

TEST_P(Sign, CountsSignsAndReportsTheirProbability) {
    const auto& [name, ys, xs, counts, tails, P] = GetParam();
    LoadedEngine loaded(tbvNPSign, tails, column(ys), column(xs));
    loaded.engine.Analyse();
    EXPECT_EQ(numbers(std::get<Array<Long>>(loaded.engine.GetOther())), counts);
    EXPECT_DOUBLE_EQ(loaded.engine.GetP(), P);
}

const Cells none{blank};
const Cells codes{1, 1, 1, -1, 0};
const Cells mostlyNegative{-1, -1, 1, -1};

// clang-format off
const SignCase signCases[] = {
    // name                                  ys                            xs            counts     tails    P
    {"Codes_FirstGreater",                   codes,                        none,         {3, 1, 1}, greater, 5.0 / 16},
    {"Codes_TwoTailed",                      codes,                        none,         {3, 1, 1}, two,     10.0 / 16},
    {"Codes_FirstSmaller",                   codes,                        none,         {3, 1, 1}, less,    11.0 / 16},
    {"Codes_TailsOutsideTheList_AreZero",    codes,                        none,         {3, 1, 1}, tailsOutsideTheList, 0},
    {"TwoVariables_TwoTailed",               {5, 6, 7},                    {1, 2, 9},    {2, 0, 1}, two,     1},
    {"TwoVariables_FirstGreater",            {5, 6, 7},                    {1, 2, 9},    {2, 0, 1}, greater, 4.0 / 8},
    {"TwoVariables_EqualsCountAsNeither",    {5, 6, 7, 4},                 {5, 6, 1, 4}, {1, 3, 0}, greater, 1.0 / 2},
    {"Negative_FirstGreaterLacksOneTerm",    mostlyNegative,               none,         {1, 0, 3}, greater, 11.0 / 16},
    {"Negative_FirstSmaller",                mostlyNegative,               none,         {1, 0, 3}, less,    5.0 / 16},
    {"Negative_TwoTailed",                   mostlyNegative,               none,         {1, 0, 3}, two,     10.0 / 16},
    {"AsManyOfBoth_FirstGreater",            {1, -1},                      none,         {1, 0, 1}, greater, 3.0 / 4},
    {"AsManyOfBoth_TwoTailed",               {1, -1},                      none,         {1, 0, 1}, two,     2.0 / 4},
    {"NoSigns_FirstGreater",                 {0, 0},                       none,         {0, 2, 0}, greater, 1},
    {"NoSigns_TwoTailed",                    {0, 0},                       none,         {0, 2, 0}, two,     0},
    {"AllTied_TwoTailed",                    {3, 4},                       {3, 4},       {0, 2, 0}, two,     0},
    {"AllPositive",                          {1, 1, 1},                    none,         {3, 0, 0}, two,     2.0 / 8},
    {"TextsCountAsTheirCodes",               {"1", "-1", "1"},             none,         {2, 0, 1}, greater, 4.0 / 8},
    {"OtherTextsAndNumbersAreNeither",       {1, "+", " 1", "1.0", 2, 11, blank, true}, none, {1, 7, 0}, greater, 1.0 / 2},
    {"FifteenDigitsDecide",                  {1 - 1e-16, 1 + 4e-15, 1 + 6e-15, -1 - 1e-16}, none, {2, 1, 1}, greater, 4.0 / 8},
    {"ErrorsAreNeither",                     {1, Cell(CellValue(CellError::NotAvailable))}, none, {1, 1, 0}, greater, 1.0 / 2},
    {"TheFirstCellDecidesTheMode",           {1, 1},                       {blank, 7},   {2, 0, 0}, greater, 1.0 / 4},
    {"LaterBlanksAreZero",                   {1, 1},                       {7, blank},   {1, 0, 1}, greater, 3.0 / 4},
    {"TextsThatAreNumbersAreCompared",       {"10", 9},                    {"9", "10"},  {1, 0, 1}, greater, 3.0 / 4},
    {"MoreRowsOfTheSecondAreNotRead",        {5},                          {4, 9, 9},    {1, 0, 0}, greater, 1.0 / 2},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, Sign, testing::ValuesIn(signCases),
                         [](const auto& test) { return test.param.name; });

TEST(SignReference, AgreesWithAnotherPackage) {
    int compared = 0;
    for (const auto& row : Support::referenceRows("two_sample.csv")) {
        if (row.at(0) != "sign") {
            continue;
        }
        const TBVNPTails tails = row.at(1) == "two" ? two : row.at(1) == "greater" ? greater : less;
        LoadedEngine loaded(tbvNPSign, tails, Support::asColumns(Support::numberLists(row.at(2))),
                            Support::asColumns(Support::numberLists(row.at(3))));
        loaded.engine.Analyse();
        const double P = std::stod(row.at(5));
        EXPECT_NEAR(loaded.engine.GetP(), P, 1e-12 * P) << row.at(2);
        EXPECT_EQ(std::get<Array<Long>>(loaded.engine.GetOther())(1), Long(std::stoi(row.at(4))));
        ++compared;
    }
    EXPECT_EQ(compared, 8);
}

/// N codes, `prevailing` of one sign first.
ValueGrid manyCodes(Long N, Long prevailing, double sign) {
    ValueGrid grid(N, 1);
    for (Long i = 1; i <= N; ++i) {
        grid(i, 1) = i <= prevailing ? sign : -sign;
    }
    return grid;
}

TEST(SignSizes, KeepTwelveDigitsUpToAMillionRows) {
    for (const auto& row : Support::referenceRows("sign_tail.csv")) {
        const Long N = std::stoi(row.at(0));
        const Long prevailing = std::stoi(row.at(1));
        const double P = std::stod(row.at(2));
        LoadedEngine loaded(tbvNPSign, greater, manyCodes(N, prevailing, 1), column({blank}));
        loaded.engine.Analyse();
        EXPECT_NEAR(loaded.engine.GetP(), P, 1e-12 * P) << row.at(0) << ' ' << row.at(1);
        // The small probability of the other direction is not what is left of 1 - P.
        loaded.load(tbvNPSign, less, manyCodes(N, prevailing, -1), column({blank}));
        loaded.engine.Analyse();
        if (prevailing > N - prevailing) {
            EXPECT_NEAR(loaded.engine.GetP(), P, 1e-12 * P) << row.at(0) << ' ' << row.at(1);
        }
    }
}

TEST(SignState, OtherResultsStayAsTheyAre) {
    LoadedEngine loaded(tbvNPMannU, two, column({1, 2, 3}), column({4, 5, 6}));
    loaded.engine.LetDescriptives(true);
    loaded.engine.Analyse();
    loaded.load(tbvNPSign, two, column(codes), column(none));
    loaded.engine.Analyse();
    EXPECT_EQ(loaded.engine.GetU(), 9);
    EXPECT_EQ(numbers(loaded.engine.GetDF()), (std::vector<double>{3, 3}));
    EXPECT_TRUE(loaded.engine.GetRanks().allocated());
    EXPECT_EQ(loaded.engine.GetP(), 0.625);
}

struct SignFailure {
    std::string name;
    ValueGrid ys;
    ValueGrid xs;
    std::int32_t number;
};

TEST(SignFailure, NamesTheProcedureAndStoresNothing) {
    const SignFailure failures[] = {
        {"a shorter second variable", column({1, 2}), column({1}), 9},
        {"a text in two variables", column({"a"}), column({1}), 13},
        {"an error in two variables", column({1}), {{CellError::Value}}, 13},
        {"a second variable without rows", column({1}), ValueGrid(0, 1), 9},
    };
    for (const auto& [name, ys, xs, number] : failures) {
        LoadedEngine loaded(tbvNPSign, two, ys, xs);
        EXPECT_EQ(raisedBy([&] { loaded.engine.Analyse(); }), Support::in("clsNonParaBO.AnalyseSign", number))
            << name;
        EXPECT_TRUE(std::holds_alternative<Empty>(loaded.engine.GetOther())) << name;
    }
}

}  // namespace
}  // namespace TBVNonPara
