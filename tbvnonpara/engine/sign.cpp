#include <cmath>
#include <span>
#include <vector>

#include "tbvnonpara/distributions/factorial_log.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"

namespace TBVNonPara {

namespace {

struct SignCounts {
    Long positive;
    Long negative;

    void count(bool isPositive, bool isNegative) {
        positive += isPositive ? 1 : 0;
        negative += isNegative ? 1 : 0;
    }
};

/// Whether the text of a number begins like that of a sign: it is within 15 digits of 1 or -1.
bool mayReadAsSign(double number) noexcept {
    return std::abs(std::abs(number) - 1) <= 1e-6;
}

/// The signs 1 and -1 of one variable, by the text of the cell: a number within 15 digits of 1 is 1.
SignCounts countCodes(const ValueGrid& codes) {
    SignCounts signs;
    for (Long i = 1; i <= codes.rows(); ++i) {
        const CellValue& code = codes(i, 1);
        const auto* number = std::get_if<double>(&code);
        if (number == nullptr || (std::abs(*number) != 1 && mayReadAsSign(*number))) {
            const std::string text = toText(code);
            signs.count(text == "1", text == "-1");
        } else {
            signs.count(*number == 1, *number == -1);
        }
    }
    return signs;
}

/// The signs of the differences of two variables. Where the second is shorter, its next subscript is out of
/// range.
SignCounts countDifferences(const ValueGrid& first, const ValueGrid& second) {
    if (first.rows() == Long(0)) {
        return {};
    }
    const std::span<const CellValue> firsts = first.column(1);
    const std::span<const CellValue> seconds = second.column(1);
    Index positive = 0;
    Index negative = 0;
    for (std::size_t i = 0; i < firsts.size(); ++i) {
        const double a = toDouble(firsts[i]);
        if (i == seconds.size()) {
            raise(RuntimeError::SubscriptOutOfRange);
        }
        const double b = toDouble(seconds[i]);
        positive += a > b ? 1 : 0;
        negative += a < b ? 1 : 0;
    }
    return {Long(positive), Long(negative)};
}

/// The same of numbers alone.
SignCounts countDifferences(const NumberColumns& first, const EngineData& second) {
    std::vector<double> seconds(static_cast<std::size_t>(first.rows().value()));
    second.read(1, seconds);
    Index positive = 0;
    Index negative = 0;
    auto b = seconds.begin();
    first.visit(1, [&](std::span<const double> firsts) {
        for (const double a : firsts) {
            positive += a > *b ? 1 : 0;
            negative += a < *b ? 1 : 0;
            ++b;
        }
    });
    return {Long(positive), Long(negative)};
}

SignCounts countSigns(const EngineData& first, const EngineData& second) {
    if (second.isBlank()) {
        return countCodes(first.cells());
    }
    if (first.numbers() != nullptr && second.numbers() != nullptr) {
        return countDifferences(*first.numbers(), second);
    }
    return countDifferences(first.cells(), second.cells());
}

/// The probability of at least `first` of N signs, for `first` of at least N / 2.
DoubleDouble upperTail(Long N, Long first) {
    constexpr double negligible = 0x1p-60;
    DoubleDouble power =
        FactorialLog(N) - FactorialLog(first) - FactorialLog(N - first) - logarithm(2) * toDouble(N);
    DoubleDouble sum;
    for (Long k = first; k <= N; ++k) {
        const double term = exponential(power);
        sum += term;
        // The terms descend: all that follow are less than this one.
        if (term * toDouble(N - k) <= sum.high * negligible) {
            break;
        }
        power = power + logarithm(N - k) - logarithm(k + 1);
    }
    return sum;
}

/// S and 1 - S. Neither is computed from the rounded other, which would lose the digits of a small one.
struct BinomialTail {
    double S = 0;
    double complement = 0;
};

/// S is the probability of at least as many positive signs, or, when the negative ones prevail, of at least
/// one more. Both branches are one term apart; the two-tailed value depends on it.
BinomialTail binomialTail(const SignCounts& signs) {
    const Long N = signs.positive + signs.negative;
    const DoubleDouble tail = upperTail(N, std::max(signs.positive, signs.negative));
    const double rest = toDouble(DoubleDouble(1) - tail);
    if (signs.negative <= signs.positive) {
        return {toDouble(tail), rest};
    }
    return {rest, toDouble(tail)};
}

double signProbability(const BinomialTail& tail, TBVNPTails tails) noexcept {
    switch (tails) {
        case tbvNPVar1GTVar2:
            return tail.S;
        case tbvNPVar1LTVar2:
            return tail.complement;
        case tbvNPTwoTailed:
            return tail.S <= 0.5 ? 2 * tail.S : 2 * tail.complement;
    }
    return 0;
}

}  // namespace

void clsNonParaBO::AnalyseSign() try {
    const Long n = m_Ys.rows();
    const SignCounts signs = countSigns(m_Ys, m_Xs);
    const Long neither = n - signs.positive - signs.negative;
    m_Other = Array<Long>{signs.positive, neither, signs.negative};
    m_P = signProbability(binomialTail(signs), m_Tails);
} catch (...) {
    passOn("clsNonParaBO.AnalyseSign");
}

}  // namespace TBVNonPara
