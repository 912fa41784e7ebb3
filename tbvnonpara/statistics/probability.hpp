#pragma once

#include <optional>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/distributions/exact_tails.hpp"

namespace TBVNonPara::statistics {

/// A probability and its common logarithm, which goes on where a double ends: 1e-968 has the value 0 and the
/// logarithm -968.
struct Probability {
    double value = 1;  ///< 0 to 1
    double log10 = 0;  ///< 0 or below
};

/// A probability in the three directions; `point` is what exactly the observed value has.
struct Tails {
    Probability two;              ///< as far from the mean or farther
    Probability greater;          ///< as large or larger
    Probability less;             ///< as small or smaller
    std::optional<double> point;  ///< as large; none where only tails are known
};

/// A standard normal value with the probabilities of one as extreme.
struct NormalTails {
    double z = 0;         ///< standard deviations from the mean
    Probability two;      ///< as far from the mean or farther
    Probability greater;  ///< as large or larger
    Probability less;     ///< as small or smaller
};

/// z without and with a continuity correction: half a step of the statistic towards what it would have to
/// exceed.
struct NormalApproximation {
    NormalTails plain;      ///< without
    NormalTails corrected;  ///< with
};

/// Student's t with its degrees of freedom.
struct StudentTails {
    double t = 0;         ///< the statistic
    double df = 0;        ///< degrees of freedom, not always whole
    Probability two;      ///< as far from the mean or farther
    Probability greater;  ///< as large or larger
    Probability less;     ///< as small or smaller
};

/// @cond
[[nodiscard]] TBVNONPARA_API Probability probability(double value);
[[nodiscard]] TBVNONPARA_API Tails tails(const ExactTails& exact);

/// The upper tail of the standard normal distribution.
[[nodiscard]] TBVNONPARA_API Probability normalTail(double z);
/// Both tails of it from z and -z on.
[[nodiscard]] TBVNONPARA_API Probability normalTwoTailed(double z);
/// The upper tail of Student's t.
[[nodiscard]] TBVNONPARA_API Probability studentTail(double t, double df);
/// The upper tail of chi-square.
[[nodiscard]] TBVNONPARA_API Probability chiSquareTail(double value, double df);
/// The upper tail of F.
[[nodiscard]] TBVNONPARA_API Probability fTail(double value, double df1, double df2);

/// At least k of n fair coins.
[[nodiscard]] TBVNONPARA_API Probability fairCoinsAtLeast(double k, double n);

/// `distance` from the mean of a statistic with this standard deviation. With the correction each direction
/// moves half a `step` towards what it would have to exceed; the two-tailed z ends at 0. None where there is
/// no spread.
[[nodiscard]] TBVNONPARA_API std::optional<NormalApproximation> normalApproximation(double distance,
                                                                                    double deviation,
                                                                                    double step);

[[nodiscard]] TBVNONPARA_API StudentTails studentTails(double t, double df);

/// The standard normal value that a level leaves half of the rest above: 1.96 for 0.95.
[[nodiscard]] TBVNONPARA_API double normalQuantile(double confidence);

// The names of all members, which every surface takes from here: visit(value, member) calls member(name,
// figure) for each of them; a figure may be a function that calls member again, for a block of figures below
// one name.

template <typename Member>
void visit(const Probability& p, Member& member) {
    member("value", p.value);
    member("log10", p.log10);
}

template <typename Member>
void visit(const Tails& tails, Member& member) {
    member("two", tails.two);
    member("greater", tails.greater);
    member("less", tails.less);
    member("point", tails.point);
}

template <typename Member>
void visit(const NormalTails& normal, Member& member) {
    member("z", normal.z);
    member("two", normal.two);
    member("greater", normal.greater);
    member("less", normal.less);
}

template <typename Member>
void visit(const NormalApproximation& normal, Member& member) {
    visit(normal.plain, member);
    member("corrected", normal.corrected);
}

template <typename Member>
void visit(const StudentTails& student, Member& member) {
    member("t", student.t);
    member("df", student.df);
    member("two", student.two);
    member("greater", student.greater);
    member("less", student.less);
}
/// @endcond

}  // namespace TBVNonPara::statistics
