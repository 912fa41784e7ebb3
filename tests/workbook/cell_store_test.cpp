#include "tbvnonpara/workbook/cell_store.hpp"

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <random>

#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::workbook {
namespace {

std::vector<double> columnOf(const NumberColumns& columns, Long column) {
    std::vector<double> numbers(static_cast<std::size_t>(columns.rows().value()));
    columns.copy(column, numbers);
    return numbers;
}

CellStore counting(Index rows) {
    CellStore cells;
    for (Index row = 1; row <= rows; ++row) {
        cells.set(row, 1, static_cast<double>(row));
    }
    return cells;
}

TEST(Store, OfAMillionNumbersTakesEightBytesEach) {
    CellStore cells;
    for (Index row = 1; row <= 500'000; ++row) {
        cells.set(row, 1, static_cast<double>(row));
        cells.set(row, 2, static_cast<double>(-row));
    }
    // The heads of the pieces come on top: some 80 bytes for 1024 cells, and what the last piece has spare.
    EXPECT_LE(static_cast<double>(cells.memory()), 8.2 * 1e6);
}

TEST(Store, OfTextsTakesSixteenBytesEach) {
    CellStore cells;
    cells.fill({1, 1, 500'000, 2}, Text("same"));
    EXPECT_LE(static_cast<double>(cells.memory()), 16.2 * 1e6);
}

TEST(Store, HoldsNumbersWhereNothingElseIs) {
    CellStore cells = counting(5000);
    EXPECT_TRUE(cells.holdsNumbers({1, 1, 5000, 1}));
    EXPECT_FALSE(cells.holdsNumbers({1, 1, 5001, 1}));
    EXPECT_FALSE(cells.holdsNumbers({1, 1, 5000, 2}));
    cells.set(1, 1, Text("label"));
    EXPECT_FALSE(cells.holdsNumbers({1, 1, 5000, 1}));
    EXPECT_TRUE(cells.holdsNumbers({2, 1, 5000, 1}));
    for (const CellValue& other :
         {CellValue(true), CellValue(CellError::Number), CellValue(Text("1")), CellValue()}) {
        CellStore changed = counting(5000);
        changed.set(3000, 1, other);
        EXPECT_FALSE(changed.holdsNumbers({1, 1, 5000, 1}));
        EXPECT_TRUE(changed.holdsNumbers({1, 1, 2999, 1}));
        EXPECT_TRUE(changed.holdsNumbers({3001, 1, 5000, 1}));
        EXPECT_EQ(changed.at(3000, 1), other);
        EXPECT_EQ(changed.at(3001, 1), CellValue(3001.0));
    }
}

TEST(Store, GivesTheNumbersOfAnArea) {
    CellStore cells = counting(5000);
    cells.set(1, 1, Text("label"));
    for (Index row = 2; row <= 3000; ++row) {
        cells.set(row, 2, static_cast<double>(-row));
    }
    const NumberColumns numbers = cells.numbers({2, 1, 3000, 2});
    EXPECT_EQ(numbers.rows(), Long(2999));
    EXPECT_EQ(numbers.columns(), Long(2));
    const std::vector<double> first = columnOf(numbers, 1);
    const std::vector<double> second = columnOf(numbers, 2);
    for (std::size_t i = 0; i < first.size(); ++i) {
        ASSERT_EQ(first[i], static_cast<double>(i + 2));
        ASSERT_EQ(second[i], -static_cast<double>(i + 2));
    }
}

// Who has read numbers keeps them, whatever becomes of the cells.
TEST(Store, LeavesNumbersThatWereReadAsTheyWere) {
    const auto changes = {
        std::function<void(CellStore&)>([](CellStore& cells) { cells.set(1500, 1, -1.0); }),
        std::function<void(CellStore&)>([](CellStore& cells) { cells.set(1500, 1, Text("x")); }),
        std::function<void(CellStore&)>([](CellStore& cells) {
            cells.clear({1, 1, 1500, 1});
        }),
        std::function<void(CellStore&)>([](CellStore& cells) {
            cells.clear({1500, 1, 2000, 1});
        }),
        std::function<void(CellStore&)>([](CellStore& cells) { cells.set(2001, 1, 7.0); }),
        std::function<void(CellStore&)>([](CellStore& cells) {
            cells.fill({1, 1, 3000, 1}, 0.5);
        }),
        std::function<void(CellStore&)>([](CellStore& cells) { cells = CellStore(); })};
    for (const auto& change : changes) {
        CellStore cells = counting(2000);
        const NumberColumns numbers = cells.numbers({1, 1, 2000, 1});
        const CellStore copy = cells;
        change(cells);
        const std::vector<double> kept = columnOf(numbers, 1);
        ASSERT_EQ(kept.size(), 2000U);
        for (std::size_t i = 0; i < kept.size(); ++i) {
            ASSERT_EQ(kept[i], static_cast<double>(i + 1));
            ASSERT_EQ(copy.at(static_cast<Index>(i) + 1, 1), CellValue(static_cast<double>(i + 1)));
        }
    }
}

TEST(Store, PassesOverNumbersThatStandAlone) {
    CellStore cells = counting(5000);
    cells.set(2000, 1, Text("x"));
    Index seen = 0;
    bool text = false;
    const Index passed = cells.visitMixed({1, 1, 5000, 1}, [&](Index row, Index, const CellValue& value) {
        seen += 1;
        text = text || (row == 2000 && value == CellValue("x"));
    });
    EXPECT_TRUE(text);
    EXPECT_EQ(passed + seen, 5000);
    EXPECT_EQ(seen, 1024);
}

/// The cells of a store as a map that knows nothing of blocks.
using Model = std::map<std::pair<Index, Index>, CellValue>;

void expectSame(const CellStore& cells, const Model& model, const Rectangle& all) {
    Model seen;
    cells.visit(all, [&](Index row, Index column, const CellValue& value) { seen[{row, column}] = value; });
    ASSERT_EQ(seen, model);
    for (Index column = all.left; column <= all.right; ++column) {
        std::vector<CellValue> read(static_cast<std::size_t>(all.rows()));
        cells.read(all.top, column, read);
        Index last = 0;
        for (Index row = all.top; row <= all.bottom; ++row) {
            const auto known = model.find({row, column});
            const CellValue& value = read[static_cast<std::size_t>(row - all.top)];
            ASSERT_EQ(value, known == model.end() ? CellValue() : known->second);
            last = known == model.end() ? last : row;
        }
        ASSERT_EQ(cells.lastUsedRow(column, column), last);
    }
}

TEST(Store, IsWhatAMapOfItsCellsIs) {
    std::mt19937 random(7);
    const auto below = [&](Index end) {
        return static_cast<Index>(random() % static_cast<unsigned>(end)) + 1;
    };
    const Rectangle all{1, 1, 3200, 2};
    for (int sheet = 0; sheet < 12; ++sheet) {
        CellStore cells;
        Model model;
        for (int step = 0; step < 60; ++step) {
            const Index row = below(3000);
            const Index column = below(2);
            const Index rows = below(sheet % 2 == 0 ? 200 : 2200);
            const Rectangle area{row, column, std::min(row + rows, all.bottom), column};
            const bool mixed = random() % 4 == 0;
            switch (random() % 5) {
                case 0:
                    cells.clear(area);
                    std::erase_if(model, [&](const auto& cell) {
                        return cell.first.second == column && cell.first.first >= area.top &&
                               cell.first.first <= area.bottom;
                    });
                    break;
                case 1:
                    for (Index each = area.top; each <= area.bottom; ++each) {
                        const auto number = static_cast<double>(step);
                        cells.set(each, column, number);
                        model[{each, column}] = number;
                    }
                    break;
                case 2:
                    cells.fill(area, mixed ? CellValue(Text("t")) : CellValue(2.5));
                    for (Index each = area.top; each <= area.bottom; ++each) {
                        model[{each, column}] = mixed ? CellValue(Text("t")) : CellValue(2.5);
                    }
                    break;
                case 3: {
                    std::vector<CellValue> values;
                    for (Index each = area.top; each <= area.bottom; ++each) {
                        values.push_back(mixed && each % 50 == 0 ? CellValue()
                                                                 : CellValue(static_cast<double>(each)));
                        if (isEmpty(values.back())) {
                            model.erase({each, column});
                        } else {
                            model[{each, column}] = values.back();
                        }
                    }
                    cells.write(area.top, column, values);
                    break;
                }
                default: {
                    const CellStore before = cells;
                    cells.copy(before, area, 1, 3 - column);
                    for (Index each = area.top; each <= area.bottom; ++each) {
                        const auto from = model.find({each, column});
                        const std::pair to(each - area.top + 1, 3 - column);
                        if (from == model.end()) {
                            model.erase(to);
                        } else {
                            model[to] = from->second;
                        }
                    }
                }
            }
        }
        expectSame(cells, model, all);
    }
}

TEST(Store, OfALonelyCellAtTheEndIsSmall) {
    CellStore cells;
    cells.set(sheetRows, 1, 1.0);
    EXPECT_LE(cells.memory(), 64U * 1024U);
    CellStore wide;
    for (Index column = 1; column <= sheetColumns; ++column) {
        wide.set(1, column, 1.0);
    }
    EXPECT_LE(wide.memory(), 100U * static_cast<std::size_t>(sheetColumns));
}

TEST(Store, IsReadInOnePiece) {
    CellStore cells;
    cells.fill({1, 1, 1'000'000, 1}, 1.5);
    std::vector<CellValue> values(1'000'000);
    cells.read(1, 1, values);
    EXPECT_EQ(values.back(), CellValue(1.5));
}

TEST(Store, TellsARangeWhetherItHoldsNumbers) {
    const ObjectRef<EmbeddedApplication> application = makeApplication();
    const std::shared_ptr<Sheet> sheet = application->addSheet("Data");
    sheet->values() = counting(100);
    sheet->values().set(1, 1, Text("label"));
    const RangeRef range = sheet->GetRange("A1:A100");
    EXPECT_FALSE(range->HoldsNumbers(1));
    EXPECT_TRUE(range->HoldsNumbers(2));
    EXPECT_FALSE(range->HoldsNumbers(101));
    EXPECT_FALSE(sheet->GetRange("A1")->HoldsNumbers(2));
    EXPECT_FALSE(sheet->GetRange("A2:A101")->HoldsNumbers(1));
    EXPECT_EQ(columnOf(sheet->GetRange("A2:A4")->GetNumbers(), 1), (std::vector<double>{2, 3, 4}));
}

}  // namespace
}  // namespace TBVNonPara::workbook
