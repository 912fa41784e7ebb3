#include "tests/whole/properties/properties.hpp"

namespace TBVNonPara {
namespace {

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
            balance += ys[pair] > xs[pair] ? 1 : ys[pair] < xs[pair] ? -1 : 0;
        }
        if (balance != 0) {
            expectSame(analyse(request, ys, xs), analyse(turned, xs, ys));
        }
    });
}

}  // namespace
}  // namespace TBVNonPara
