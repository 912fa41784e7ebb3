#include "tbvnonpara/companion/own/array_utility.hpp"

#include <gtest/gtest.h>
#include <numeric>
#include <random>

#include "tests/support/kinds_of_values.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara {
namespace {

const ObjectRef<ArrayUtility> utility = createArrayUtility();

TEST(SortRows, MovesWholeRowsAndAscends) {
    Grid<double> table{{7, 1}, {3, 2}, {-9, 3}, {5, 4}};
    utility->SortRows(table, 0, 1);
    EXPECT_EQ(table, (Grid<double>{{-9, 3}, {3, 2}, {5, 4}, {7, 1}}));
    utility->SortRows(table, 0, 2);
    EXPECT_EQ(table, (Grid<double>{{7, 1}, {3, 2}, {-9, 3}, {5, 4}}));
}

TEST(SortRows, KeepsTheOrderOfEqualRows) {
    Grid<double> table{{2, 1}, {1, 2}, {2, 3}, {1, 4}, {2, 5}, {0, 6}, {-0.0, 7}};
    utility->SortRows(table, 0, 1);
    EXPECT_EQ(table, (Grid<double>{{0, 6}, {-0.0, 7}, {1, 2}, {1, 4}, {2, 1}, {2, 3}, {2, 5}}));
}

TEST(SortRows, LeavesTablesOfNoneOrOneRow) {
    Grid<double> none(0, 4);
    Grid<double> one{{5, 6}};
    utility->SortRows(none, 0, 1);
    utility->SortRows(one, 0, 2);
    EXPECT_EQ(none.rows(), Long(0));
    EXPECT_EQ(one, (Grid<double>{{5, 6}}));
}

TEST(SortRows, RefusesAColumnThatTheTableDoesNotHave) {
    Grid<double> table{{2, 1}, {1, 2}};
    for (const Long column : {Long(0), Long(3), Long(-1)}) {
        EXPECT_EQ(Support::raisedBy([&] { utility->SortRows(table, 0, column); }).number, 9);
    }
    Grid<double> unallocated;
    EXPECT_EQ(Support::raisedBy([&] { utility->SortRows(unallocated, 0, 1); }).number, 9);
}

/// Data on which simple sorts take quadratic time, and random data.
Grid<double> pattern(const std::string& name, Long rows) {
    std::mt19937 random(20071);
    Grid<double> table(rows, 2);
    for (Long i = 1; i <= rows; ++i) {
        const double position = toDouble(i);
        table(i, 2) = position;
        if (name == "ascending") {
            table(i, 1) = position;
        } else if (name == "descending") {
            table(i, 1) = -position;
        } else if (name == "organ pipes") {
            table(i, 1) = std::min(position, toDouble(rows) - position);
        } else if (name == "few values") {
            table(i, 1) = static_cast<double>(random() % 3);
        } else {
            table(i, 1) = static_cast<double>(random());
        }
    }
    return table;
}

TEST(SortRows, SortsAMillionRowsOfAnyPattern) {
    for (const char* name : {"ascending", "descending", "organ pipes", "few values", "random"}) {
        Grid<double> table = pattern(name, 1000000);
        utility->SortRows(table, 0, 1);
        for (Long i = 2; i <= table.rows(); ++i) {
            const bool ordered = table(i - 1, 1) < table(i, 1) ||
                                 (table(i - 1, 1) == table(i, 1) && table(i - 1, 2) < table(i, 2));
            ASSERT_TRUE(ordered) << name << " at row " << i.value();
        }
    }
}

TEST(MakeTwoDimensional, PutsTheElementsBelowEachOther) {
    const Array<CellValue> array{1.0, Text("b"), Empty(), true};
    const ValueGrid grid = utility->MakeTwoDimensional(array);
    EXPECT_EQ(grid, (ValueGrid{{1.0}, {Text("b")}, {Empty()}, {true}}));
    EXPECT_EQ(utility->MakeTwoDimensional(Array<CellValue>(Long(0))).rows(), Long(0));
}

TEST(JoinColumns, PadsTheShorterGridWithEmptyCells) {
    const ValueGrid tall{{1.0}, {2.0}, {3.0}};
    const ValueGrid wide{{4.0, Text("x")}};
    EXPECT_EQ(utility->JoinColumns(tall, wide),
              (ValueGrid{{1.0, 4.0, Text("x")}, {2.0, Empty(), Empty()}, {3.0, Empty(), Empty()}}));
    EXPECT_EQ(utility->JoinColumns(wide, tall),
              (ValueGrid{{4.0, Text("x"), 1.0}, {Empty(), Empty(), 2.0}, {Empty(), Empty(), 3.0}}));
}

TEST(JoinColumns, RefusesAnUnallocatedGrid) {
    EXPECT_EQ(Support::raisedBy([] { (void)utility->JoinColumns(ValueGrid(), ValueGrid{{1.0}}); }).number, 9);
}

class AnyValues : public testing::TestWithParam<Support::Kind> {};

TEST_P(AnyValues, StandInTheSameOrderForAUtilityThatOnlySortsRows) {
    const Support::Values values = Support::valuesOf(GetParam(), 5000);
    EXPECT_TRUE(utility->ArrayUtility::OrderOf(values) == utility->OrderOf(values));
}

INSTANTIATE_TEST_SUITE_P(Of, AnyValues, testing::ValuesIn(Support::kindsOfValues),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace TBVNonPara
