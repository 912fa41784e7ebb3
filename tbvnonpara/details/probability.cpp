#include "tbvnonpara/details/probability.hpp"

namespace TBVNonPara {

namespace {

/// Takes the first probability that exists, in the order in which they count.
class Counting {
 public:
    explicit Counting(TBVNPTails tails) : m_Tails(tails) {}

    template <typename Tails>
    Counting& of(const std::optional<Tails>& way) {
        return way ? take(inDirection(way->two, way->greater, way->less, m_Tails)) : *this;
    }
    Counting& of(const std::optional<statistics::NormalApproximation>& way) {
        return way ? of(std::optional(way->plain)) : *this;
    }
    Counting& of(const std::optional<statistics::Runs::Exact>& way) {
        return way ? take(inDirection(way->two, way->fewer, way->more, m_Tails)) : *this;
    }
    /// Fewer runs lie below the mean, and are the first alternative.
    Counting& of(const std::optional<statistics::Runs::Normal>& way) {
        return way ? take(inDirection(way->approximation.plain.two, way->approximation.plain.less,
                                      way->approximation.plain.greater, m_Tails))
                   : *this;
    }
    Counting& of(const std::optional<statistics::ExactUpper>& way) { return way ? take(way->p) : *this; }
    Counting& of(const std::optional<statistics::ChiSquare>& way) { return way ? take(way->p) : *this; }

    [[nodiscard]] std::optional<statistics::Probability> found() const { return m_Found; }

 private:
    Counting& take(const statistics::Probability& p) {
        m_Found = m_Found ? m_Found : p;
        return *this;
    }

    TBVNPTails m_Tails;
    std::optional<statistics::Probability> m_Found;
};

std::optional<statistics::Probability> counting(const statistics::MannWhitney& test, TBVNPTails tails) {
    return Counting(tails).of(test.exact).of(test.normal).found();
}
std::optional<statistics::Probability> counting(const statistics::Wilcoxon& test, TBVNPTails tails) {
    return Counting(tails).of(test.zerosLeftOut.exact).of(test.zerosLeftOut.normal).found();
}
std::optional<statistics::Probability> counting(const statistics::Spearman& test, TBVNPTails tails) {
    return Counting(tails).of(test.exact).of(test.series).of(test.t).found();
}
std::optional<statistics::Probability> counting(const statistics::Sign& test, TBVNPTails tails) {
    return Counting(tails).of(test.exact).found();
}
std::optional<statistics::Probability> counting(const statistics::Runs& test, TBVNPTails tails) {
    return Counting(tails).of(test.exact).of(test.normal).found();
}
/// Of several groups, which have no direction.
std::optional<statistics::Probability> counting(const auto& test, TBVNPTails tails) {
    return Counting(tails).of(test.exact).of(test.chiSquare).found();
}

}  // namespace

const statistics::Probability& inDirection(const statistics::Probability& two,
                                           const statistics::Probability& first,
                                           const statistics::Probability& second, TBVNPTails tails) {
    return tails == tbvNPTwoTailed ? two : tails == tbvNPVar1GTVar2 ? first : second;
}

std::optional<statistics::Probability> probabilityOf(const Details& details) {
    return probabilityOf(details.result, details.tails);
}

std::optional<statistics::Probability> probabilityOf(const TestInFull& result, TBVNPTails tails) {
    return std::visit([&](const auto& test) { return counting(test, tails); }, result);
}

}  // namespace TBVNonPara
