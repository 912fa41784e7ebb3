#include "python/engine/tested.hpp"

#include <algorithm>
#include <bit>
#include <limits>
#include <stdexcept>

#include "tbvnonpara/details/probability.hpp"
#include "tbvnonpara/json/figures.hpp"

namespace TBVNonPara::python {

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

TestInFull compute(TBVNPMethod method, const Samples& samples, const Choices& choices) {
    const auto at = [&](std::size_t place) { return samples.at(place); };
    switch (method) {
        case tbvNPMannU:
            return statistics::mannWhitney(at(0), at(1), choices.options);
        case tbvNPWilcoxon:
            return statistics::wilcoxon(at(0), at(1), choices.options);
        case tbvNPSpearman:
            return statistics::spearman(at(0), at(1), choices.options);
        case tbvNPSign:
            return samples.size() == 1 ? statistics::sign(at(0), choices.options)
                                       : statistics::sign(at(0), at(1), choices.options);
        case tbvNPWWRuns:
            return statistics::runs(at(0), choices.options);
        case tbvNPMedian:
            return statistics::median(samples, choices.options, choices.control);
        case tbvNPFriedman:
            return statistics::friedman(samples, choices.options, choices.control);
        default:
            return statistics::kruskalWallis(samples, choices.options, choices.control);
    }
}

/// What SciPy's functions give first.
class Statistic {
 public:
    explicit Statistic(TBVNPTails tails) : m_Tails(tails) {}

    double operator()(const statistics::MannWhitney& test) const { return test.u[0]; }
    double operator()(const statistics::Wilcoxon& test) const {
        const auto& sums = test.zerosLeftOut;
        return m_Tails == tbvNPTwoTailed ? std::min(sums.plus, sums.minus) : sums.plus;
    }
    double operator()(const statistics::Spearman& test) const { return test.rho ? test.rho->value : none; }
    double operator()(const statistics::Sign& test) const { return static_cast<double>(test.positive); }
    double operator()(const statistics::Runs& test) const { return static_cast<double>(test.runs); }
    /// Of several groups.
    double operator()(const auto& test) const { return test.chiSquare ? test.chiSquare->value : none; }

 private:
    TBVNPTails m_Tails;
};

}  // namespace

const OfferedTest& testNamed(std::string_view name) {
    const auto tests = offeredTests();
    const auto found = std::ranges::find(tests, name, &OfferedTest::name);
    if (found == tests.end()) {
        throw std::invalid_argument("There is no test \"" + std::string(name) + "\".");
    }
    return *found;
}

double Tested::statistic() const {
    return std::visit(Statistic(tails), result);
}

double Tested::pvalue() const {
    const auto p = probabilityOf(result, tails);
    return p ? p->value : none;
}

double Tested::log10p() const {
    const auto p = probabilityOf(result, tails);
    return p ? p->log10 : none;
}

std::string Tested::json() const {
    return std::visit([](const auto& full) { return figureInJson(statistics::figureOf(full)); }, result);
}

std::uint64_t fingerprintOf(const Samples& samples) {
    // FNV-1a by words: not against malice, against a change that was forgotten.
    constexpr std::uint64_t prime = 0x100000001B3U;
    std::uint64_t print = 0xCBF29CE484222325U;
    for (const auto sample : samples) {
        print = (print ^ sample.size()) * prime;
        for (const double value : sample) {
            print = (print ^ std::bit_cast<std::uint64_t>(value)) * prime;
        }
    }
    return print;
}

Tested runTest(const OfferedTest& test, const Samples& samples, const Choices& choices) {
    return {&test, choices.tails, compute(test.method, samples, choices), fingerprintOf(samples)};
}

}  // namespace TBVNonPara::python
