#include "tests/whole/properties/properties.hpp"

namespace TBVNonPara {
namespace {

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
