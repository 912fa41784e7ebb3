#include <gtest/gtest.h>
#include <random>

#include "tbvnonpara/companion/own/contingency_analysis.hpp"
#include "tests/support/engine_fixture.hpp"
#include "tests/support/told.hpp"

namespace TBVNonPara {
namespace {

using Support::blank;
using Support::Cells;
using Support::column;
using Support::columns;
using Support::engineCompanions;
using Support::told;

/// A client's own array utility, for which nothing may wait.
class SortingAtOnce : public ArrayUtility {
 public:
    void SortRows(Grid<double>& table, Long reserved, Long byColumn) const override {
        ++sorted;
        m_Own->SortRows(table, reserved, byColumn);
    }
    [[nodiscard]] ValueGrid MakeTwoDimensional(const Array<CellValue>& array) const override {
        return m_Own->MakeTwoDimensional(array);
    }
    [[nodiscard]] ValueGrid JoinColumns(const ValueGrid& left, const ValueGrid& right) const override {
        return m_Own->JoinColumns(left, right);
    }

    mutable int sorted = 0;

 private:
    ObjectRef<ArrayUtility> m_Own = createArrayUtility();
};

struct Step {
    TBVNPMethod method;
    bool descriptives;
    ValueGrid ys;
    ValueGrid xs;
    bool read = false;
};

/// What is told after all steps, by an engine with its own utility or with a client's.
std::string toldAfter(const std::vector<Step>& steps, bool atOnce) {
    CompanionLibrary companions = engineCompanions();
    companions.createContingencyAnalysis = [application = companions.application] {
        return createContingencyAnalysis(application);
    };
    if (atOnce) {
        companions.createArrayUtility = [] { return makeObject<SortingAtOnce>(); };
    }
    clsNonParaBO engine(companions);
    std::string text;
    for (const auto& [method, descriptives, ys, xs, read] : steps) {
        engine.LetMethod(method);
        engine.LetDescriptives(descriptives);
        engine.LetYs(ys);
        engine.Letxs(xs);
        text += Support::failureOf([&] { engine.Analyse(); }) + '\n';
        text += read ? told(engine) + '\n' : "";
    }
    return text + told(engine);
}

ValueGrid randomGroups(std::mt19937& random, int groups, int rows, bool blanks) {
    std::vector<Cells> samples(static_cast<std::size_t>(groups));
    for (Cells& sample : samples) {
        const int size = blanks ? std::uniform_int_distribution(1, rows)(random) : rows;
        for (int i = 0; i < size; ++i) {
            sample.emplace_back(std::uniform_int_distribution(-4, 4)(random) / 4.0);
        }
    }
    samples.front().resize(static_cast<std::size_t>(rows), Support::Cell(1));
    return columns(samples);
}

TEST(GroupDescriptives, AreTheSameAskedForLaterOrNotAtAll) {
    std::mt19937 random(1);
    const TBVNPMethod methods[] = {tbvNPMannU,  tbvNPWilcoxon, tbvNPSpearman, tbvNPSign,
                                   tbvNPMedian, tbvNPFriedman, tbvNPKWallis,  tbvNPWWRuns};
    for (int run = 0; run < 300; ++run) {
        std::vector<Step> steps;
        for (int step = 0; step < 4; ++step) {
            const TBVNPMethod method = methods[std::uniform_int_distribution(0, 7)(random)];
            const bool grouped = method == tbvNPMedian || method == tbvNPFriedman || method == tbvNPKWallis;
            const int rows = std::uniform_int_distribution(2, 9)(random);
            steps.push_back({method, random() % 2 == 0,
                             randomGroups(random, grouped ? 3 : 1, rows, method != tbvNPFriedman),
                             randomGroups(random, 1, rows, false), random() % 3 == 0});
        }
        ASSERT_EQ(toldAfter(steps, false), toldAfter(steps, true)) << "run " << run;
    }
}

TEST(GroupDescriptives, RaiseInTheTestWhatTheirSumsRaise) {
    const ValueGrid fine = columns({{1, 2}, {3, 5}});
    const ValueGrid tooLarge = columns({{1e308, 1.5e308}, {3, 5}});
    for (const TBVNPMethod method : {tbvNPKWallis, tbvNPFriedman}) {
        const std::vector<Step> steps{{method, true, fine, column({blank})},
                                      {method, true, tooLarge, column({blank})}};
        const std::string text = toldAfter(steps, false);
        EXPECT_NE(text.find("6 Line 0 in TBVNonPara.clsNonParaBO.Analyse"), std::string::npos) << text;
        EXPECT_EQ(text, toldAfter(steps, true)) << "and leave what they leave";
    }
}

TEST(GroupDescriptives, AreSortedAtOnceByAUtilityOfAClient) {
    CompanionLibrary companions = engineCompanions();
    auto utility = makeObject<SortingAtOnce>();
    companions.createArrayUtility = [utility] { return utility; };
    clsNonParaBO engine(companions);
    engine.LetMethod(tbvNPKWallis);
    engine.LetYs(columns({{3, 1}, {2, 9}}));
    engine.Analyse();
    const int sorted = utility->sorted;
    EXPECT_GE(sorted, 4) << "two groups and their ranks";
    (void)told(engine);
    EXPECT_EQ(utility->sorted, sorted);
}

}  // namespace
}  // namespace TBVNonPara
