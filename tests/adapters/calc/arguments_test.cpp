#include "adapters/calc/arguments.hpp"

#include <gtest/gtest.h>
#include <optional>

namespace TBVNonPara::calc {

namespace {

using css::uno::Any;

struct WholeNumber {
    const char* name;
    Any passed;
    std::optional<std::int32_t> number;  ///< nothing: type mismatch
};

// clang-format off
const WholeNumber wholeNumbers[] = {
    {"Byte",             Any(sal_Int8(3)),          3},
    {"Short",            Any(sal_Int16(-1)),        -1},
    {"Long",             Any(sal_Int32(7)),         7},
    {"Hyper",            Any(sal_Int64(2)),         2},
    {"Float",            Any(2.0F),                 2},
    {"Double",           Any(4.0),                  4},
    {"HalfToTheEvenOne", Any(2.5),                  2},
    {"True_IsMinusOne",  Any(true),                 -1},
    {"TextOfANumber",    Any(OUString("3")),        3},
    {"Text",             Any(OUString("abc")),      {}},
    {"Nothing",          Any(),                     {}},
    {"List",             Any(css::uno::Sequence<sal_Int32>(1)), {}},
};
// clang-format on

class WholeNumberArgument : public testing::TestWithParam<WholeNumber> {};

TEST_P(WholeNumberArgument, IsTakenInEveryWidth) {
    try {
        EXPECT_EQ(toWholeNumber(GetParam().passed), GetParam().number);
        EXPECT_TRUE(GetParam().number.has_value());
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 13);
        EXPECT_FALSE(GetParam().number.has_value());
    }
}

INSTANTIATE_TEST_SUITE_P(Arguments, WholeNumberArgument, testing::ValuesIn(wholeNumbers),
                         [](const auto& param) { return param.param.name; });

TEST(Arguments, OverflowOutsideThirtyTwoBits) {
    for (const Any& value : {Any(sal_Int64(1) << 40), Any(1e10)}) {
        try {
            (void)toWholeNumber(value);
            ADD_FAILURE() << "no error";
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), 6);
        }
    }
}

TEST(Arguments, AnyNumberButZeroIsTrue) {
    EXPECT_TRUE(toBoolean(Any(true)));
    EXPECT_FALSE(toBoolean(Any(false)));
    EXPECT_TRUE(toBoolean(Any(sal_Int16(-1))));
    EXPECT_TRUE(toBoolean(Any(0.5)));
    EXPECT_FALSE(toBoolean(Any(sal_Int32(0))));
    EXPECT_TRUE(toBoolean(Any(OUString("True"))));
    EXPECT_FALSE(toBoolean(Any(OUString("false"))));
    EXPECT_THROW((void)toBoolean(Any(OUString("yes"))), Error);
}

TEST(Arguments, AnAddressIsAText) {
    EXPECT_EQ(toAddress(Any(OUString("A1"))), OUString("A1"));
    EXPECT_THROW((void)toAddress(Any(sal_Int32(1))), Error);
}

}  // namespace

}  // namespace TBVNonPara::calc
