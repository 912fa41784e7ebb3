#include "tbvnonpara/details/clsNonParaDetails.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "tests/request/request_desk.hpp"

namespace TBVNonPara {
namespace {

constexpr auto invalidArgument = static_cast<std::int32_t>(RuntimeError::InvalidProcedureCall);

/// A request for details on a sheet "Data".
struct DetailsDesk : RequestDesk {
    clsNonParaDetails details{companions};

    explicit DetailsDesk(const ValueGrid& data = {}) : RequestDesk(data) {}

    void choose(TBVNPMethod method, std::string_view y, std::string_view x = {}) {
        details.LetMethod(method);
        details.LetHeaders(true);
        details.LetYRange(y);
        details.LetXRange(x);
    }
    [[nodiscard]] double number(std::string_view name) const { return std::get<double>(details.Value(name)); }
    [[nodiscard]] Support::Raised calculate() {
        return Support::raisedBy([this] { details.Calculate(); });
    }
    [[nodiscard]] Support::Raised valueOf(std::string_view name) const {
        return Support::raisedBy([&] { (void)details.Value(name); });
    }
};

/// "Student" (1908), ten patients after two drugs.
const ValueGrid sleep = {{CellValue(Text("Drug1")), CellValue(Text("Drug2"))},
                         {0.7, 1.9},
                         {-1.6, 0.8},
                         {-0.2, 1.1},
                         {-1.2, 0.1},
                         {-0.1, -0.1},
                         {3.4, 4.4},
                         {3.7, 5.5},
                         {0.8, 1.6},
                         {0.0, 4.6},
                         {2.0, 3.4}};

struct SleepDesk : DetailsDesk {
    SleepDesk() : DetailsDesk(sleep) { choose(tbvNPMannU, "Data!A1:A11", "Data!B1:B11"); }
};

/// Three groups: the first two overlap, the third stands apart.
const ValueGrid threeGroups = {{CellValue(Text("a")), CellValue(Text("b")), CellValue(Text("c"))},
                               {1.0, 2.0, 11.0},
                               {2.0, 3.0, 12.0},
                               {3.0, 4.0, 13.0},
                               {4.0, 5.0, 14.0},
                               {5.0, 6.0, 15.0}};

struct GroupsDesk : DetailsDesk {
    GroupsDesk() : DetailsDesk(threeGroups) { choose(tbvNPKWallis, "Data!A1:C6"); }
};

// 25.5 of 100 pairs; the exact P is that of the permutation distribution, 12160 of 184756.
TEST(Details, HaveTheirFiguresByName) {
    SleepDesk desk;
    desk.details.Calculate();
    EXPECT_DOUBLE_EQ(desk.number("effect.superiority.value"), 0.255);
    EXPECT_DOUBLE_EQ(desk.number("effect.superiority"), 0.255);
    EXPECT_NEAR(desk.number("effect.superiority.low"), 0.1060, 5e-5);
    EXPECT_NEAR(desk.number("effect.superiority.high"), 0.5139, 5e-5);
    EXPECT_NEAR(desk.number("p.exact.two"), 12160.0 / 184756, 1e-14);
    EXPECT_NEAR(desk.number("p.exact.two.log10"), std::log10(desk.number("p.exact.two")), 1e-12);
    EXPECT_EQ(desk.number("data.pairs.greater"), 24);
    EXPECT_EQ(desk.number("groups.2.n"), 10);
    EXPECT_EQ(desk.details.Value("labels.2"), CellValue(Text("Drug2")));
    EXPECT_EQ(desk.details.Value("p.method"), CellValue(Text("exact")));
}

TEST(Details, AFigureThatDoesNotExistIsEmpty) {
    DetailsDesk desk({{CellValue(Text("a")), CellValue(Text("b"))}, {1.0, 3.0}, {2.0, 4.0}});
    desk.choose(tbvNPMannU, "Data!A1:A3", "Data!B1:B3");
    desk.details.Calculate();
    EXPECT_EQ(desk.details.Value("robust"), CellValue(Empty())) << "the samples are separated";
    EXPECT_EQ(desk.details.Value("robust.t"), CellValue(Empty()));
}

TEST(Details, ANameThatLeadsNowhereIsRefusedWithThoseThereAre) {
    SleepDesk desk;
    desk.details.Calculate();
    const Support::Raised raised = desk.valueOf("effect.shft.low");
    EXPECT_EQ(raised.number, invalidArgument);
    EXPECT_EQ(raised.source, "Line 0 in TBVNonPara.clsNonParaDetails.GetValue");
    EXPECT_EQ(raised.description,
              "There is no figure \"effect.shft.low\"; \"effect\" has superiority, rankBiserial, shift.");
    EXPECT_EQ(desk.valueOf("groups.3.n").description,
              "There is no figure \"groups.3.n\"; \"groups\" has 1 to 2.");
    EXPECT_EQ(desk.valueOf("data.n.1.low").description,
              "There is no figure \"data.n.1.low\"; \"data.n.1\" has none below it.");
    EXPECT_EQ(desk.valueOf("effect").description,
              "\"effect\" is several figures: superiority, rankBiserial, shift.");
    EXPECT_EQ(desk.valueOf("").number, invalidArgument);
}

TEST(Details, BeforeCalculateThereIsNothingToRead) {
    SleepDesk desk;
    const Support::Raised raised = desk.valueOf("effect.shift");
    EXPECT_EQ(raised.number, static_cast<std::int32_t>(RuntimeError::ObjectNotSet));
    EXPECT_EQ(raised.description, "Nothing has been calculated yet: call Calculate first.");
    EXPECT_NE(Support::raisedBy([&] { (void)desk.details.Text(); }).number, 0);
    EXPECT_NE(Support::raisedBy([&] { (void)desk.details.Json(); }).number, 0);
    EXPECT_NE(Support::raisedBy([&] { (void)desk.details.WriteTo("Data!H1"); }).number, 0);
    EXPECT_EQ(desk.cells("Data!H1"), Support::SheetText());
}

TEST(Details, AreToldInTextAndJson) {
    SleepDesk desk;
    desk.details.Calculate();
    const std::string text = desk.details.Text();
    EXPECT_EQ(text.substr(0, text.find(':')), "Details\n═══════\nDrug2 tends to be larger than Drug1");
    const std::string json = desk.details.Json();
    EXPECT_NE(json.find("\"test\": \"mann-whitney\""), std::string::npos);
    EXPECT_NE(json.find("\"labels\": [\"Drug1\", \"Drug2\"]"), std::string::npos);
}

// The sign test with 13 of 15: Clopper and Pearson at 95 and at 90 per cent (R's binom.test).
TEST(Details, TakeTheirLevelInPerCent) {
    DetailsDesk desk;
    ValueGrid codes(16, 1);
    codes(1, 1) = CellValue(Text("sign"));
    for (Long row = 2; row <= Long(16); row = row + 1) {
        codes(row, 1) = row <= Long(14) ? 1.0 : -1.0;
    }
    desk.put("Data!A1", codes);
    desk.choose(tbvNPSign, "Data!A1:A16");
    desk.details.Calculate();
    EXPECT_NEAR(desk.number("effect.positiveShare.low"), 0.5953973, 5e-8);
    EXPECT_NEAR(desk.number("effect.positiveShare.high"), 0.9834241, 5e-8);
    desk.details.LetConfidence(90);
    desk.details.Calculate();
    EXPECT_NEAR(desk.number("effect.positiveShare.low"), 0.6365582, 5e-8);
    EXPECT_NEAR(desk.number("effect.positiveShare.high"), 0.9757743, 5e-8);
}

TEST(Details, TakeTheHighestLevel) {
    SleepDesk desk;
    desk.details.LetConfidence(99.9);
    desk.details.Calculate();
    EXPECT_LE(desk.number("effect.superiority.low"), 0.1060);
}

TEST(Details, RefuseALevelThatIsNone) {
    DetailsDesk desk;
    for (const double percent : {0.95, 49.9, 99.95, -95.0, std::numeric_limits<double>::quiet_NaN()}) {
        const auto raised = Support::raisedBy([&] { desk.details.LetConfidence(percent); });
        EXPECT_EQ(raised.number, invalidArgument) << percent;
        EXPECT_EQ(raised.source, "Line 0 in TBVNonPara.clsNonParaDetails.LetConfidence");
        EXPECT_EQ(raised.description,
                  "Confidence is the level of the intervals in per cent, 50 to 99.9: 95, not 0.95.");
    }
}

TEST(Details, AdjustByTheWordsOfTheProgram) {
    GroupsDesk desk;
    const auto adjusted = [&](std::string_view word) {
        desk.details.LetAdjust(word);
        desk.details.Calculate();
        return desk.number("comparisons.2.adjusted") / desk.number("comparisons.2.p");
    };
    EXPECT_NEAR(adjusted("none"), 1, 1e-12);
    EXPECT_NEAR(adjusted("bonferroni"), 3, 1e-12);
    EXPECT_NEAR(adjusted("holm"), 3, 1e-12) << "the smallest of three";
    EXPECT_NEAR(adjusted("bh"), 3, 1e-12);
    const auto raised = Support::raisedBy([&] { desk.details.LetAdjust("sidak"); });
    EXPECT_EQ(raised.description, "Adjust is holm, bonferroni, bh or none, not \"sidak\".");
}

TEST(Details, CompareWithAControlOfTheGroups) {
    GroupsDesk desk;
    desk.details.LetControl("b");
    desk.details.Calculate();
    EXPECT_EQ(desk.details.Value("comparisons.2.p").index(), CellValue(1.0).index());
    EXPECT_EQ(desk.valueOf("comparisons.3.p").number, invalidArgument) << "two comparisons";
    desk.details.LetControl("d");
    const Support::Raised raised = desk.calculate();
    EXPECT_EQ(raised.number, tbvNPBadYRange);
    EXPECT_EQ(raised.source, "Line 0 in TBVNonPara.clsNonParaDetails.Calculate");
    EXPECT_EQ(raised.description, "There is no group \"d\"; the groups are a, b, c.");
}

TEST(Details, ATestOfTwoSamplesHasNoControl) {
    SleepDesk desk;
    desk.details.LetControl("Drug1");
    EXPECT_EQ(desk.calculate().description, "Control is for the tests of several groups; leave it empty.");
}

TEST(Details, TellATrendWhenAsked) {
    GroupsDesk desk;
    desk.details.Calculate();
    EXPECT_EQ(desk.details.Value("trend"), CellValue(Empty()));
    desk.details.LetTrend(true);
    desk.details.Calculate();
    EXPECT_EQ(desk.number("trend.statistic"), 67) << "of 75 pairs 65 in order and 4 equal";
}

TEST(Details, RefuseWhatAReportRefuses) {
    DetailsDesk desk(sleep);
    Support::Raised raised = desk.calculate();
    EXPECT_EQ(raised.number, tbvNPNoYRange);
    EXPECT_EQ(raised.source, "Line 0 in TBVNonPara.clsNonParaDetails.Calculate");
    desk.choose(tbvNPWilcoxon, "Data!A1:A11", "Data!B1:B10");
    EXPECT_EQ(desk.calculate().number, tbvNPUnequalPairs);
    desk.put("Data!A3", {{CellValue(Text("x"))}});
    desk.choose(tbvNPMannU, "Data!A1:A11", "Data!B1:B11");
    EXPECT_EQ(desk.calculate().number, tbvNPTextInData);
}

TEST(Details, AreGoneAfterAnError) {
    SleepDesk desk;
    desk.details.Calculate();
    desk.put("Data!A3", {{CellValue(Text("x"))}});
    EXPECT_EQ(desk.calculate().number, tbvNPTextInData);
    EXPECT_EQ(desk.valueOf("effect.shift").number, static_cast<std::int32_t>(RuntimeError::ObjectNotSet));
}

/// Two columns of 500 pairs below labels, whose exact P takes long to count.
ValueGrid countedPairs() {
    ValueGrid pairs(501, 2);
    pairs(1, 1) = CellValue(Text("a"));
    pairs(1, 2) = CellValue(Text("b"));
    for (Index row = 2; row <= 501; ++row) {
        pairs(row, 1) = static_cast<double>(row);
        pairs(row, 2) = static_cast<double>(3 * row % 1000);
    }
    return pairs;
}

TEST(Details, ALongCountIsToldToTheWatchWhichMayEndIt) {
    DetailsDesk desk;
    desk.put("Data!A1", countedPairs());
    desk.choose(tbvNPWilcoxon, "Data!A1:A501", "Data!B1:B501");
    int told = 0;
    desk.details.LetWatch([&](double) { told += 1; });
    desk.details.Calculate();
    EXPECT_GT(told, 0);
    desk.details.LetWatch([](double) { throw Error(18, "The user has stopped it."); });
    const Support::Raised raised = desk.calculate();
    EXPECT_EQ(raised.number, 18);
    EXPECT_EQ(raised.description, "The user has stopped it.");
    EXPECT_NE(desk.valueOf("effect").number, 0) << "what was calculated before is gone";
}

TEST(Details, AreNotCalculatedInsideACalculation) {
    DetailsDesk desk;
    desk.put("Data!A1", countedPairs());
    desk.choose(tbvNPWilcoxon, "Data!A1:A501", "Data!B1:B501");
    std::optional<Support::Raised> inside;
    desk.details.LetWatch([&](double) {
        if (!inside) {
            desk.details.LetAdjust("none");
            desk.details.LetWatch({});
            inside = desk.calculate();
        }
    });
    desk.details.Calculate();
    ASSERT_TRUE(inside);
    EXPECT_EQ(inside->number, tbvNPRunInProgress);
    EXPECT_EQ(inside->source, "Line 0 in TBVNonPara.clsNonParaDetails.Calculate");
    EXPECT_NE(inside->description.find("Call Calculate again when"), std::string::npos)
        << inside->description;
    EXPECT_EQ(desk.valueOf("effect").number, 5) << "several figures: the outer one has ended well";
}

TEST(Details, AreWrittenWhereTheyAreWanted) {
    SleepDesk desk;
    desk.details.Calculate();
    const RangeRef block = desk.details.WriteTo("Data!D2");
    EXPECT_EQ(desk.cells("Data!D2:D3"),
              Support::SheetText({"Details", "Data = Data!$A$1:$A$11, Data!$B$1:$B$11"}));
    EXPECT_EQ(Support::plainAddress(block).substr(0, 3), "D2:");
    EXPECT_EQ(desk.cells("Data!D9:G11"),
              Support::SheetText({"Effect", "|Estimate|Low|High", desk.cells("Data!D11:G11").front()}));
    EXPECT_EQ(desk.sheets(), std::vector<std::string>({"Data", "Out"}));
}

TEST(Details, ReplaceCellsOnlyWhenTold) {
    SleepDesk desk;
    desk.details.Calculate();
    desk.put("Data!F20", {{7.0}});
    const auto raised = Support::raisedBy([&] { (void)desk.details.WriteTo("Data!D2"); });
    EXPECT_EQ(raised.number, tbvNPOutputOccupied);
    EXPECT_EQ(desk.cells("Data!D2:F20").back(), "||7");
    EXPECT_EQ(desk.cells("Data!D2"), Support::SheetText());
    (void)desk.details.WriteTo("Data!D2", true);
    EXPECT_EQ(desk.cells("Data!D2"), Support::SheetText({"Details"}));
}

TEST(Details, WithoutAnAddressGoToTheOutputRangeOrToASheetOfTheirOwn) {
    SleepDesk desk;
    desk.details.Calculate();
    (void)desk.details.WriteTo();
    EXPECT_EQ(desk.sheets(), std::vector<std::string>({"Data", "Details", "Out"}));
    desk.details.LetOutputRange("Out!B2");
    (void)desk.details.WriteTo();
    EXPECT_EQ(desk.cells("Out!B2"), Support::SheetText({"Details"}));
}

TEST(Details, ThatDoNotFitAreRefused) {
    SleepDesk desk;
    desk.details.Calculate();
    const auto raised = Support::raisedBy([&] { (void)desk.details.WriteTo("Data!A1048570"); });
    EXPECT_EQ(raised.number, tbvNPOutputOffSheet);
    EXPECT_EQ(desk.sheets(), std::vector<std::string>({"Data", "Out"}));
}

TEST(Details, WhereverTheHostRefusesNothingIsWritten) {
    const std::size_t calls = [] {
        SleepDesk desk;
        desk.details.Calculate();
        desk.calls.clear();
        (void)desk.details.WriteTo("Data!D2");
        return desk.calls.size();
    }();
    ASSERT_GT(calls, 50U);
    for (std::size_t k = 0; k < calls; ++k) {
        SleepDesk desk;
        desk.details.Calculate();
        desk.calls.clear();
        desk.failingCall = k + 1;
        const auto raised = Support::raisedBy([&] { (void)desk.details.WriteTo("Data!D2"); });
        desk.failingCall = 0;
        const bool written = desk.cells("Data!D2") == Support::SheetText({"Details"});
        EXPECT_EQ(raised.number == 0, written) << k;
        EXPECT_EQ(desk.cells("Data!A1:B11"), Support::sheetText(SleepDesk().host->GetRange("Data!A1:B11")));
        if (!written) {
            EXPECT_EQ(desk.sheets(), std::vector<std::string>({"Data", "Out"})) << k;
        }
    }
}

}  // namespace
}  // namespace TBVNonPara
