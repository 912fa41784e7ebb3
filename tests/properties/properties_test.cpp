#include <functional>
#include <gtest/gtest.h>

#include "companion/contingency_analysis.hpp"
#include "engine/clsNonParaBO.hpp"
#include "tests/properties/random_samples.hpp"
#include "tests/support/engine_fixture.hpp"

namespace TBVNonPara {
namespace {

constexpr int repetitions = 2000;

// Sums of up to forty ranks and their squares in another order differ by a few units in the last place.
constexpr double tolerance = 1e-11;

/// What a run gave. A run that failed is compared by its error number.
struct Outcome {
    double statistic = 0;
    double p = 0;
    std::int32_t error = 0;
};

struct Request {
    TBVNPMethod method = tbvNPMannU;
    TBVNPTails tails = tbvNPTwoTailed;
    bool ignoreTies = false;
};

CompanionLibrary companions() {
    const auto application = std::make_shared<Support::FakeApplication>();
    CompanionLibrary library = Support::engineCompanions(application);
    library.createContingencyAnalysis = [application] { return createContingencyAnalysis(application); };
    return library;
}

Outcome analyse(const Request& request, const ValueGrid& ys, const EngineInput& xs) {
    clsNonParaBO engine(companions());
    engine.LetMethod(request.method);
    engine.LetTails(request.tails);
    engine.LetIgnoreTies(request.ignoreTies);
    engine.LetYs(ys);
    engine.Letxs(xs);
    Outcome outcome;
    try {
        engine.Analyse();
        outcome.p = engine.GetP();
    } catch (const Error& error) {
        outcome.error = error.number();
    }
    outcome.statistic = engine.GetU();
    return outcome;
}

Outcome analyse(const Request& request, const Sample& ys, const Sample& xs) {
    return analyse(request, gridOf({ys}), EngineInput(gridOf({xs})));
}

Outcome analyse(const Request& request, const Samples& groups) {
    return analyse(request, gridOf(groups), EngineInput(CellValue()));
}

void expectSame(const Outcome& expected, const Outcome& actual) {
    EXPECT_EQ(expected.error, actual.error);
    if (expected.error == 0) {
        EXPECT_NEAR(expected.statistic, actual.statistic, tolerance * (1 + std::abs(expected.statistic)));
        EXPECT_NEAR(expected.p, actual.p, tolerance);
    }
}

TBVNPTails opposite(TBVNPTails tails) {
    switch (tails) {
        case tbvNPVar1GTVar2:
            return tbvNPVar1LTVar2;
        case tbvNPVar1LTVar2:
            return tbvNPVar1GTVar2;
        default:
            return tails;
    }
}

class Properties : public ::testing::Test {
 protected:
    void repeat(const std::function<void()>& property) {
        for (int repetition = 0; repetition < repetitions && !HasFailure(); repetition += 1) {
            SCOPED_TRACE(repetition);
            property();
        }
    }

    [[nodiscard]] TBVNPTails anyTails() { return static_cast<TBVNPTails>(random.between(0, 2)); }

    RandomSamples random;
};

TEST_F(Properties, MannWhitneyDependsOnTheOrderOfTheValuesAlone) {
    repeat([&] {
        const Request request{.method = tbvNPMannU, .tails = anyTails()};
        const Sample ys = random.sample(random.between(2, 20), random.between(1, 30));
        const Sample xs = random.sample(random.between(2, 20), random.between(1, 30));
        const Outcome outcome = analyse(request, ys, xs);
        const int shift = random.between(-100, 100);
        expectSame(outcome, analyse(request, mapped(ys, 4, shift), mapped(xs, 4, shift)));
        expectSame(outcome, analyse(request, reordered(ys, random.order(ys.size())),
                                    reordered(xs, random.order(xs.size()))));
    });
}

TEST_F(Properties, MannWhitneySwapsItsDirectionWithTheSamplesOrTheSign) {
    repeat([&] {
        const Request request{.method = tbvNPMannU, .tails = anyTails()};
        const Request turned{.method = tbvNPMannU, .tails = opposite(request.tails)};
        const Sample ys = random.sample(random.between(2, 20), random.between(1, 30));
        const Sample xs = random.sample(random.between(2, 20), random.between(1, 30));
        const Outcome outcome = analyse(request, ys, xs);
        expectSame(outcome, analyse(turned, xs, ys));
        expectSame(outcome, analyse(turned, mapped(ys, -1, 0), mapped(xs, -1, 0)));
    });
}

TEST_F(Properties, MannWhitneyOneTailedExactProbabilitiesOverlapInTheObservedU) {
    // P(U >= u) + P(U <= u) exceeds 1 by the probability of u itself, so by no less than nothing.
    repeat([&] {
        const Sample ys = random.sample(random.between(2, 12), 20);
        const Sample xs = random.sample(random.between(2, 12), 20);
        const double greater = analyse({.tails = tbvNPVar1GTVar2}, ys, xs).p;
        const double less = analyse({.tails = tbvNPVar1LTVar2}, ys, xs).p;
        const double both = analyse({}, ys, xs).p;
        EXPECT_GE(greater + less, 1 - tolerance);
        EXPECT_NEAR(both, std::min(1.0, 2 * std::min(greater, less)), tolerance);
    });
}

TEST_F(Properties, WilcoxonDependsOnTheDifferencesAlone) {
    repeat([&] {
        const int pairs = random.between(2, 60);
        const Request request{
            .method = tbvNPWilcoxon, .tails = anyTails(), .ignoreTies = random.between(0, 1) == 1};
        const Sample ys = random.sample(pairs, random.between(1, 30));
        const Sample xs = random.sample(pairs, random.between(1, 30));
        const Outcome outcome = analyse(request, ys, xs);
        const auto order = random.order(ys.size());
        const int shift = random.between(-100, 100);
        expectSame(outcome, analyse(request, mapped(ys, 2, shift), mapped(xs, 2, shift)));
        expectSame(outcome, analyse(request, reordered(ys, order), reordered(xs, order)));
    });
}

TEST_F(Properties, WilcoxonSwapsItsDirectionWithTheVariablesOrTheSign) {
    repeat([&] {
        const int pairs = random.between(2, 60);
        const Request request{
            .method = tbvNPWilcoxon, .tails = anyTails(), .ignoreTies = random.between(0, 1) == 1};
        const Request turned{
            .method = tbvNPWilcoxon, .tails = opposite(request.tails), .ignoreTies = request.ignoreTies};
        const Sample ys = random.sample(pairs, random.between(1, 30));
        const Sample xs = random.sample(pairs, random.between(1, 30));
        const Outcome outcome = analyse(request, ys, xs);
        expectSame(outcome, analyse(turned, xs, ys));
        expectSame(outcome, analyse(turned, mapped(ys, -1, 0), mapped(xs, -1, 0)));
    });
}

TEST_F(Properties, SpearmanDependsOnTheRanksOfThePairsAlone) {
    repeat([&] {
        const int pairs = random.between(3, 30);
        const Request request{.method = tbvNPSpearman, .tails = anyTails()};
        const Sample ys = random.sample(pairs, random.between(1, 30));
        const Sample xs = random.sample(pairs, random.between(1, 30));
        const Outcome outcome = analyse(request, ys, xs);
        const auto order = random.order(ys.size());
        expectSame(outcome, analyse(request, mapped(ys, 4, 17), mapped(xs, 2, -3)));
        expectSame(outcome, analyse(request, reordered(ys, order), reordered(xs, order)));
        expectSame(outcome, analyse(request, xs, ys));
    });
}

TEST_F(Properties, SpearmanWithoutTiesTurnsItsSignWithOneVariable) {
    repeat([&] {
        const int pairs = random.between(3, 30);
        const Request request{.method = tbvNPSpearman, .tails = anyTails()};
        const Request turned{.method = tbvNPSpearman, .tails = opposite(request.tails)};
        const Sample ys = random.untied(pairs);
        const Sample xs = random.untied(pairs);
        Outcome outcome = analyse(request, ys, xs);
        outcome.statistic = -outcome.statistic;
        expectSame(outcome, analyse(turned, mapped(ys, -1, 0), xs));
    });
}

TEST_F(Properties, SignDependsOnTheSignsAlone) {
    repeat([&] {
        const int pairs = random.between(2, 40);
        const Request request{.method = tbvNPSign, .tails = anyTails()};
        const Sample ys = random.sample(pairs, random.between(1, 3));
        const Sample xs = random.sample(pairs, random.between(1, 3));
        const Outcome outcome = analyse(request, ys, xs);
        const auto order = random.order(ys.size());
        expectSame(outcome, analyse(request, mapped(ys, 4, 9), mapped(xs, 4, 9)));
        expectSame(outcome, analyse(request, reordered(ys, order), reordered(xs, order)));
    });
}

TEST_F(Properties, SignSwapsItsDirectionWithTheVariablesUnlessTheSignsBalance) {
    repeat([&] {
        const int pairs = random.between(2, 40);
        const Request request{.method = tbvNPSign, .tails = anyTails()};
        const Request turned{.method = tbvNPSign, .tails = opposite(request.tails)};
        const Sample ys = random.sample(pairs, random.between(1, 3));
        const Sample xs = random.sample(pairs, random.between(1, 3));
        int balance = 0;
        for (std::size_t pair = 0; pair < ys.size(); pair += 1) {
            balance += (ys[pair] > xs[pair]) - (ys[pair] < xs[pair]);
        }
        if (balance != 0) {
            expectSame(analyse(request, ys, xs), analyse(turned, xs, ys));
        }
    });
}

Samples anyGroups(RandomSamples& random, int size) {
    Samples groups;
    const int number = random.between(2, 5);
    const int range = random.between(1, 30);
    for (int group = 0; group < number; group += 1) {
        groups.push_back(random.sample(size == 0 ? random.between(2, 12) : size, range));
    }
    return groups;
}

Samples changed(const Samples& groups, const std::function<Sample(const Sample&)>& change) {
    Samples result;
    for (const Sample& group : groups) {
        result.push_back(change(group));
    }
    return result;
}

Samples regrouped(const Samples& groups, RandomSamples& random) {
    Samples result;
    for (const std::size_t group : random.order(groups.size())) {
        result.push_back(groups[group]);
    }
    return result;
}

TEST_F(Properties, KruskalWallisDependsOnTheRanksOfItsGroupsAlone) {
    repeat([&] {
        const Request request{.method = tbvNPKWallis};
        const Samples groups = anyGroups(random, 0);
        const Outcome outcome = analyse(request, groups);
        expectSame(
            outcome,
            analyse(request, changed(groups, [](const Sample& group) { return mapped(group, 2, 5); })));
        expectSame(
            outcome,
            analyse(request, changed(groups, [](const Sample& group) { return mapped(group, -1, 0); })));
        expectSame(outcome, analyse(request, regrouped(groups, random)));
        expectSame(outcome, analyse(request, changed(groups, [&](const Sample& group) {
                                        return reordered(group, random.order(group.size()));
                                    })));
    });
}

TEST_F(Properties, MedianDependsOnTheSidesOfTheGrandMedianAlone) {
    repeat([&] {
        const auto chiSquare = [](const Samples& groups) {
            clsNonParaBO engine(companions());
            engine.LetMethod(tbvNPMedian);
            engine.LetYs(gridOf(groups));
            engine.Analyse();
            return engine.GetContingencyResults()->GetChiSquare().value;
        };
        const Samples groups = anyGroups(random, 0);
        const double expected = chiSquare(groups);
        const auto same = [&](const Samples& others) {
            EXPECT_NEAR(expected, chiSquare(others), tolerance * (1 + expected));
        };
        same(changed(groups, [](const Sample& group) { return mapped(group, 2, 5); }));
        same(regrouped(groups, random));
        same(changed(groups,
                     [&](const Sample& group) { return reordered(group, random.order(group.size())); }));
    });
}

TEST_F(Properties, FriedmanDependsOnTheRanksWithinBlocksAlone) {
    repeat([&] {
        const Request request{.method = tbvNPFriedman};
        const int blocks = random.between(2, 15);
        const Samples treatments = anyGroups(random, blocks);
        const Outcome outcome = analyse(request, treatments);
        const Sample blockShifts = random.sample(blocks, 50);
        const auto order = random.order(static_cast<std::size_t>(blocks));
        expectSame(outcome, analyse(request, changed(treatments, [](const Sample& values) {
                                        return mapped(values, -2, 1);
                                    })));
        expectSame(outcome, analyse(request, regrouped(treatments, random)));
        expectSame(outcome, analyse(request, changed(treatments, [&](const Sample& values) {
                                        return reordered(values, order);
                                    })));
        expectSame(outcome, analyse(request, changed(treatments, [&](Sample values) {
                                        for (std::size_t block = 0; block < values.size(); block += 1) {
                                            values[block] += blockShifts[block];
                                        }
                                        return values;
                                    })));
    });
}

TEST_F(Properties, RunsDependOnNeitherTheNamesOfTheCategoriesNorTheDirection) {
    repeat([&] {
        const Request request{.method = tbvNPWWRuns, .tails = anyTails()};
        const Sample codes = random.sample(random.between(3, 40), 1);
        const Outcome outcome = analyse(request, Samples{codes});
        Sample backwards = codes;
        std::ranges::reverse(backwards);
        expectSame(outcome, analyse(request, Samples{mapped(codes, -3, 11)}));
        expectSame(outcome, analyse(request, Samples{backwards}));
    });
}

}  // namespace
}  // namespace TBVNonPara
