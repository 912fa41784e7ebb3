#include "tbvnonpara/engine/engine_data.hpp"

#include <gtest/gtest.h>
#include <random>

#include "tests/support/engine_fixture.hpp"
#include "tests/support/told.hpp"

namespace TBVNonPara {
namespace {

using Support::column;
using Support::raisedBy;
using Support::told;

/// The same columns in pieces of other lengths.
NumberColumns inPieces(const Grid<double>& columns) {
    NumberColumns pieces(columns.columns());
    for (Long c = 1; c <= columns.columns(); ++c) {
        std::span<const double> rest = columns.column(c);
        for (std::size_t size = 3 + static_cast<std::size_t>(c.value()); !rest.empty(); size += 2) {
            const auto piece = rest.first(std::min(size, rest.size()));
            pieces.append(c, std::vector<double>(piece.begin(), piece.end()));
            rest = rest.subspan(piece.size());
        }
    }
    return pieces;
}

ValueGrid asCells(const Grid<double>& columns) {
    ValueGrid cells(columns.rows(), columns.columns());
    for (Long c = 1; c <= columns.columns(); ++c) {
        std::ranges::copy(columns.column(c), cells.column(c).begin());
    }
    return cells;
}

/// All that a test leaves, with every digit.
std::string resultsOf(TBVNPMethod method, EngineInput ys, EngineInput xs) {
    clsNonParaBO engine(ownCompanions(nullptr));
    engine.LetMethod(method);
    engine.LetDescriptives(true);
    engine.LetYs(std::move(ys));
    engine.Letxs(std::move(xs));
    engine.Analyse();
    std::string text = told(engine);
    for (const double value :
         {engine.GetU(), engine.GetP(), engine.GetAlternateStat(), engine.GetAlternateP(),
          engine.GetGrandMedian(), engine.ExpectedRuns(), toDouble(engine.GetNumRuns())}) {
        text += std::to_string(std::bit_cast<std::uint64_t>(value)) + ' ';
    }
    return text;
}

TEST(NumbersAlone, GiveWhatTheSameCellsGive) {
    std::mt19937 random(3);
    for (const TBVNPMethod method : {tbvNPMannU, tbvNPWilcoxon, tbvNPSpearman, tbvNPSign, tbvNPMedian,
                                     tbvNPFriedman, tbvNPKWallis, tbvNPWWRuns}) {
        const bool groups = method == tbvNPMedian || method == tbvNPFriedman || method == tbvNPKWallis;
        for (int rows = 4; rows <= 70; rows += 11) {
            Grid<double> ys(rows, groups ? 3 : 1);
            Grid<double> xs(rows, 1);
            for (Long c = 1; c <= ys.columns(); ++c) {
                std::ranges::generate(ys.column(c), [&] { return static_cast<double>(random() % 9) / 4; });
            }
            std::ranges::generate(xs.column(1), [&] { return static_cast<double>(random() % 9) / 5; });
            const std::string expected = resultsOf(method, asCells(ys), asCells(xs));
            EXPECT_EQ(resultsOf(method, inPieces(ys), inPieces(xs)), expected) << method << ' ' << rows;
            EXPECT_EQ(resultsOf(method, asCells(ys), inPieces(xs)), expected) << method << ' ' << rows;
            EXPECT_EQ(resultsOf(method, inPieces(ys), asCells(xs)), expected) << method << ' ' << rows;
        }
    }
}

TEST(NumbersAlone, AreSignsWhereThereIsNoSecondVariable) {
    const Grid<double> codes{{1}, {1}, {-1}, {0}, {0.9999999999999999}, {1.5}};
    clsNonParaBO engine(ownCompanions(nullptr));
    engine.LetMethod(tbvNPSign);
    engine.LetYs(inPieces(codes));
    engine.Letxs(CellValue());
    engine.Analyse();
    EXPECT_EQ(Support::numbers(std::get<Array<Long>>(engine.GetOther())), (std::vector<double>{3, 2, 1}));
}

// As with cells: the next subscript of the shorter variable is out of range.
TEST(NumbersAlone, OfUnequalLengthAreNoPairs) {
    const Grid<double> longer{{1}, {2}, {3}};
    const Grid<double> shorter{{2}, {1}};
    for (const TBVNPMethod method : {tbvNPWilcoxon, tbvNPSpearman, tbvNPSign}) {
        const auto numbers = raisedBy([&] { resultsOf(method, inPieces(longer), inPieces(shorter)); });
        const auto cells = raisedBy([&] { resultsOf(method, asCells(longer), asCells(shorter)); });
        EXPECT_EQ(numbers.number, 9) << method;
        EXPECT_EQ(numbers.source, cells.source) << method;
    }
}

TEST(NumbersAlone, AreSharedUntilCellsAreAskedFor) {
    const auto owner = std::make_shared<const std::vector<double>>(std::vector<double>{1, 2, 3});
    NumberColumns numbers(1);
    numbers.append(1, owner, *owner);
    const EngineData data(std::move(numbers));
    EXPECT_EQ(owner.use_count(), 2);
    EXPECT_EQ(data.rows(), Long(3));
    EXPECT_FALSE(data.isBlank());
    EXPECT_EQ(data.cells(), column({1, 2, 3}));
    std::vector<double> tooMany(4);
    EXPECT_EQ(raisedBy([&] { data.read(1, tooMany); }).number, 9);
}

}  // namespace
}  // namespace TBVNonPara
