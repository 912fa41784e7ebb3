#include "tbvnonpara/reshaping/dates.hpp"

#include <gtest/gtest.h>

namespace TBVNonPara::reshaping {

namespace {

// 2020-03-01 is day 43891 of a sheet: 120 years of 365 days, 30 leap days from 1904 to 2020 and 61 days from
// 1899-12-30 to 1900-03-01.
constexpr double firstOfMarch = 120 * 365 + 30 + 61;

TEST(ADate, IsReadInItsOrder) {
    EXPECT_EQ(dateIn("2020-03-01", DateOrder::YearFirst), firstOfMarch);
    EXPECT_EQ(dateIn(" 2020-03-01T06:00 ", DateOrder::DayFirst), firstOfMarch + 0.25);
    EXPECT_EQ(dateIn("1/3/2020", DateOrder::DayFirst), firstOfMarch);
    EXPECT_EQ(dateIn("3/1/2020", DateOrder::MonthFirst), firstOfMarch);
    EXPECT_EQ(dateIn("01.03.2020 18:00", DateOrder::DayFirst), firstOfMarch + 0.75);
    EXPECT_EQ(dateIn("12:00:00", DateOrder::YearFirst), 0.5);
}

TEST(ADate, IsNothingElse) {
    for (const char* text : {"", "x", "2020", "2020-02-30", "1/3", "1/3/20", "1/3/2020x", "1/13/2020",
                             "1.3/2020", "-1/3/2020", "25:00", "2020-3", "1/3/2020/4", "1.5"}) {
        EXPECT_FALSE(dateIn(text, DateOrder::DayFirst)) << text;
    }
}

std::optional<DateOrder> orderOf(const std::vector<const char*>& texts) {
    std::vector<CellValue> cells;
    for (const char* text : texts) {
        cells.emplace_back(Text(text));
    }
    return orderOfDates(cells);
}

TEST(TheOrderOfDates, IsTheOnlyOneThatFits) {
    EXPECT_EQ(orderOf({"2020-03-01", "2020-03-13 10:00"}), DateOrder::YearFirst);
    EXPECT_EQ(orderOf({"1/3/2020", "13/3/2020"}), DateOrder::DayFirst);
    EXPECT_EQ(orderOf({"1/3/2020", "1/13/2020"}), DateOrder::MonthFirst);
    EXPECT_EQ(orderOf({"1.3.2020"}), DateOrder::DayFirst);
    EXPECT_EQ(orderOf({"1/3/2020"}), std::nullopt);
    EXPECT_EQ(orderOf({"13/3/2020", "3/13/2020"}), std::nullopt);
    EXPECT_EQ(orderOf({"2020-03-01", "soon"}), std::nullopt);
    EXPECT_EQ(orderOf({}), std::nullopt);
}

}  // namespace

}  // namespace TBVNonPara::reshaping
