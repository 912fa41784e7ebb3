#pragma once

#include <functional>
#include <gtest/gtest.h>

#include "tbvnonpara/companion/own/contingency_analysis.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tests/support/engine_fixture.hpp"
#include "tests/whole/properties/random_samples.hpp"

namespace TBVNonPara {

inline constexpr int repetitions = 2000;

// Sums of up to forty ranks and their squares in another order differ by a few units in the last place.
inline constexpr double tolerance = 1e-11;

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

inline CompanionLibrary companions() {
    const auto application = std::make_shared<Support::FakeApplication>();
    CompanionLibrary library = Support::engineCompanions(application);
    library.createContingencyAnalysis = [application] { return createContingencyAnalysis(application); };
    return library;
}

inline Outcome analyse(const Request& request, const ValueGrid& ys, const EngineInput& xs) {
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

inline Outcome analyse(const Request& request, const Sample& ys, const Sample& xs) {
    return analyse(request, gridOf({ys}), EngineInput(gridOf({xs})));
}

inline Outcome analyse(const Request& request, const Samples& groups) {
    return analyse(request, gridOf(groups), EngineInput(CellValue()));
}

inline void expectSame(const Outcome& expected, const Outcome& actual) {
    EXPECT_EQ(expected.error, actual.error);
    if (expected.error == 0) {
        EXPECT_NEAR(expected.statistic, actual.statistic, tolerance * (1 + std::abs(expected.statistic)));
        EXPECT_NEAR(expected.p, actual.p, tolerance);
    }
}

inline TBVNPTails opposite(TBVNPTails tails) {
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

}  // namespace TBVNonPara
