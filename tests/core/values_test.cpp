#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "tbvnonpara/core/arithmetic.hpp"
#include "tbvnonpara/core/array.hpp"
#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/core/grid.hpp"
#include "tbvnonpara/core/object_ref.hpp"

namespace TBVNonPara {
namespace {

std::int32_t errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(WholeNumbers, RaiseOverflowInsteadOfWrapping) {
    const Long largest = 2147483647;
    const Long smallest = -2147483647 - 1;
    EXPECT_EQ(errorOf([&] { (void)(largest + 1); }), 6);
    EXPECT_EQ(errorOf([&] { (void)(smallest - 1); }), 6);
    EXPECT_EQ(errorOf([&] { (void)(Long(65536) * 32768); }), 6);
    EXPECT_EQ(errorOf([&] { (void)(smallest * -1); }), 6);
    EXPECT_EQ(errorOf([&] { (void)Long(2147483648LL); }), 6);
    EXPECT_EQ((Long(46340) * 46340).value(), 2147395600);
    EXPECT_EQ(errorOf([] {
                  Integer width = 32767;
                  width += 1;
              }),
              6);
}

TEST(Arrays, CountFromOneAndCheckTheirSubscripts) {
    Array<double> array{1.5, 2.5};
    EXPECT_EQ(array(1), 1.5);
    EXPECT_EQ(array(Long(2)), 2.5);
    EXPECT_EQ(array.size(), Long(2));
    for (const int subscript : {0, 3, -2}) {
        EXPECT_EQ(errorOf([&] { (void)array(subscript); }), 9) << subscript;
    }
    EXPECT_EQ(errorOf([] { (void)Array<double>(Long(-1)); }), 9);
}

TEST(Arrays, AnUnallocatedArrayHasNoBoundsAndNoElements) {
    const Array<double> array;
    EXPECT_FALSE(array.allocated());
    EXPECT_EQ(errorOf([&] { (void)array.size(); }), 9);
    EXPECT_EQ(errorOf([&] { (void)array(1); }), 9);
    EXPECT_TRUE(Array<double>(Long(0)).allocated());
    EXPECT_EQ(Array<double>(Long(0)).size(), Long(0));
}

TEST(Grids, AreRowsThenColumnsCountedFromOne) {
    const Grid<double> grid{{1, 2, 3}, {4, 5, 6}};
    EXPECT_EQ(grid.rows(), Long(2));
    EXPECT_EQ(grid.columns(), Long(3));
    EXPECT_EQ(grid(2, 1), 4);
    EXPECT_EQ(grid(1, 3), 3);
    EXPECT_EQ(grid.column(2)[1], 5);
    EXPECT_EQ(errorOf([&] { (void)grid(3, 1); }), 9);
    EXPECT_EQ(errorOf([&] { (void)grid(1, 4); }), 9);
    EXPECT_EQ(errorOf([&] { (void)grid(0, 1); }), 9);
    EXPECT_EQ(errorOf([&] { (void)grid(1, -2); }), 9);
    EXPECT_EQ(errorOf([] { (void)Grid<double>().rows(); }), 9);
    EXPECT_EQ(errorOf([] { (void)Grid<double>()(1, 1); }), 9);
}

TEST(CellValues, AreSixteenBytes) {
    EXPECT_EQ(sizeof(CellValue), 16U);
}

TEST(CellValues, ReadAsNumbers) {
    EXPECT_EQ(toDouble(CellValue(2.5)), 2.5);
    EXPECT_EQ(toDouble(CellValue()), 0);
    EXPECT_EQ(toDouble(CellValue(true)), -1);
    EXPECT_EQ(toDouble(CellValue(false)), 0);
    EXPECT_EQ(toDouble(CellValue(" 1e3 ")), 1000);
    EXPECT_EQ(errorOf([] { (void)toDouble(CellValue("n/a")); }), 13);
    EXPECT_EQ(errorOf([] { (void)toDouble(CellValue("")); }), 13);
    EXPECT_EQ(errorOf([] { (void)toDouble(CellValue(CellError::NotAvailable)); }), 13);
}

TEST(CellValues, ShareTheirTextWhenCopied) {
    const CellValue value = "Before";
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the copy is the point
    const CellValue copy = value;
    EXPECT_EQ(&std::get<Text>(value).string(), &std::get<Text>(copy).string());
    EXPECT_EQ(value, CellValue(std::string("Before")));
    EXPECT_NE(value, CellValue("After"));
    EXPECT_NE(CellValue(""), CellValue());
    EXPECT_NE(CellValue("1"), CellValue(1.0));
}

TEST(CellValues, HaveATextOfTheirOwn) {
    EXPECT_EQ(toText(CellValue(2019.0)), "2019");
    EXPECT_EQ(toText(CellValue("=x")), "=x");
    EXPECT_EQ(toText(CellValue()), "");
    EXPECT_EQ(toText(CellValue(true)), "True");
    EXPECT_EQ(toText(CellValue(CellError::NotAvailable)), "#N/A");
}

TEST(Texts, OnlyPlainDecimalNumbersReadAsNumbers) {
    struct Case {
        const char* text;
        double number;
    };
    const Case numbers[] = {{"5", 5},    {"+5", 5}, {"-5.25", -5.25}, {" 7\t", 7},
                            {".5", 0.5}, {"5.", 5}, {"1E-2", 0.01}};
    for (const Case& expected : numbers) {
        ASSERT_TRUE(readAsNumber(expected.text).has_value()) << expected.text;
        EXPECT_EQ(*readAsNumber(expected.text), expected.number) << expected.text;
    }
    for (const char* text :
         {"", " ", "+", "+-5", "--5", "5 5", "1,000", "0x10", "inf", "nan", "1e999", "5a", "1e"}) {
        EXPECT_FALSE(readAsNumber(text).has_value()) << text;
    }
}

TEST(Numbers, BecomeTextWithAtMostFifteenDigits) {
    struct Case {
        double number;
        const char* text;
    };
    const Case cases[] = {
        {0.1 + 0.2, "0.3"},
        {3, "3"},
        {-0.5, "-0.5"},
        {-0.0, "0"},
        {1e15, "1E+15"},
        {123456789012345, "123456789012345"},
        {1.0 / 3, "0.333333333333333"},
        {1e-5, "1E-05"},
        {0.0001, "0.0001"},
        {-1.5e300, "-1.5E+300"},
    };
    for (const Case& expected : cases) {
        EXPECT_EQ(toText(expected.number), expected.text);
    }
}

TEST(Numbers, RoundHalvesToEven) {
    struct Case {
        double number;
        int rounded;
    };
    for (const Case& expected :
         {Case{0.5, 0}, {1.5, 2}, {2.5, 2}, {-0.5, 0}, {-1.5, -2}, {2.4999, 2}, {7, 7}}) {
        EXPECT_EQ(roundHalfToEven(expected.number), Long(expected.rounded)) << expected.number;
    }
    EXPECT_EQ(errorOf([] { (void)roundHalfToEven(2147483648.0); }), 6);
    EXPECT_EQ(errorOf([] { (void)roundHalfToEven(std::nan("")); }), 6);
}

TEST(Numbers, LoseTheNoiseOfADifferenceInSinglePrecisionText) {
    EXPECT_EQ(throughSinglePrecisionText(5.1 - 5.0), 0.1);
    EXPECT_EQ(throughSinglePrecisionText(-(5.1 - 5.0)), -0.1);
    EXPECT_EQ(throughSinglePrecisionText(0), 0);
    EXPECT_EQ(throughSinglePrecisionText(1234567.8), 1234568);
    EXPECT_EQ(throughSinglePrecisionText(123456789), 123456800);
    EXPECT_EQ(errorOf([] { (void)throughSinglePrecisionText(1e39); }), 6);
}

double throughPrintedText(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.7g", static_cast<double>(static_cast<float>(number)));
    return std::strtod(text, nullptr);
}

TEST(Numbers, OfAllMagnitudesAreThoseOfTheirSevenDigits) {
    std::mt19937_64 random(20260101);
    for (int i = 0; i < 200000; ++i) {
        const double digits = static_cast<double>(random() % 20000001) - 10000000;
        const double number = digits * std::pow(10.0, static_cast<int>(random() % 24) - 14);
        for (const double each : {number, std::nextafter(number, 0), number / 2, number / 3}) {
            ASSERT_EQ(throughSinglePrecisionText(each), throughPrintedText(each)) << each;
        }
    }
}

TEST(Numbers, HalfwayBetweenSevenDigitsGoToTheEvenOne) {
    EXPECT_EQ(throughSinglePrecisionText(1048576.5), 1048576);
    EXPECT_EQ(throughSinglePrecisionText(1048577.5), 1048578);
    EXPECT_EQ(throughSinglePrecisionText(9999999.5), 1e7);
    EXPECT_TRUE(std::signbit(throughSinglePrecisionText(-0.0)));
}

TEST(Arithmetic, FaultsRaise) {
    EXPECT_EQ(divide(6, 4), 1.5);
    EXPECT_EQ(errorOf([] { (void)divide(1, 0); }), 11);
    EXPECT_EQ(errorOf([] { (void)divide(0, 0); }), 6);
    EXPECT_EQ(errorOf([] { (void)divide(1e300, 1e-300); }), 6);
    EXPECT_EQ(squareRoot(9), 3);
    EXPECT_EQ(errorOf([] { (void)squareRoot(-1); }), 5);
    EXPECT_EQ(checked(1.5), 1.5);
    EXPECT_EQ(errorOf([] { (void)checked(infinity); }), 6);
    EXPECT_EQ(errorOf([] { (void)checked(std::nan("")); }), 6);
}

TEST(ObjectReferences, RaiseWhenUsedEmpty) {
    struct Thing {
        int value = 7;
    };
    const ObjectRef<Thing> none;
    EXPECT_EQ(errorOf([&] { (void)none->value; }), 91);
    EXPECT_EQ(makeObject<Thing>()->value, 7);
}

TEST(CellErrors, OfNewerSpreadsheetsBearTheirNames) {
    // clang-format off
    const std::pair<std::int32_t, const char*> cases[] = {
        {2043, "#GETTING_DATA"}, {2045, "#SPILL!"}, {2046, "#CONNECT!"}, {2047, "#BLOCKED!"},
        {2048, "#UNKNOWN!"}, {2049, "#FIELD!"}, {2050, "#CALC!"},
    };
    // clang-format on
    for (const auto& [number, text] : cases) {
        EXPECT_EQ(displayText(static_cast<CellError>(number)), text);
    }
}

TEST(CellErrors, AreKnownByTheTextThatASheetShows) {
    // clang-format off
    const std::pair<const char*, std::int32_t> cases[] = {
        {"#NULL!", 2000}, {"#DIV/0!", 2007}, {"#VALUE!", 2015}, {"#REF!", 2023}, {"#NAME?", 2029},
        {"#NUM!", 2036}, {"#N/A", 2042},
    };
    // clang-format on
    for (const auto& [text, number] : cases) {
        EXPECT_EQ(cellErrorNamed(text), static_cast<CellError>(number)) << text;
        EXPECT_EQ(displayText(static_cast<CellError>(number)), text);
    }
    EXPECT_EQ(displayText(static_cast<CellError>(2999)), "#ERROR!");
    for (const char* other : {"", "#", "#n/a", "#N/A ", "#ERROR!", "N/A"}) {
        EXPECT_EQ(cellErrorNamed(other), std::nullopt) << other;
    }
}

TEST(CellErrors, OfLibreOfficeBecomeTheNearestOfTheSeven) {
    const std::pair<int, CellError> cases[] = {
        {503, CellError::Number},         {519, CellError::Value}, {521, CellError::Null},
        {524, CellError::Reference},      {525, CellError::Name},  {532, CellError::DivisionByZero},
        {32767, CellError::NotAvailable}, {502, CellError::Value}, {0, CellError::Value}};
    for (const auto& [number, error] : cases) {
        EXPECT_EQ(officeError(number), error) << number;
    }
}

#if SIZE_MAX == UINT32_MAX
TEST(GridSize, BeyondTheAddressSpaceIsOutOfMemory) {
    try {
        const Grid<char> grid(65'536, 65'537);
        FAIL() << "a grid of " << grid.rows().value() << " rows";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), static_cast<std::int32_t>(RuntimeError::OutOfMemory));
    }
}
#endif

}  // namespace
}  // namespace TBVNonPara
