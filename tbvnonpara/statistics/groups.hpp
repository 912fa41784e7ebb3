#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/statistics/options.hpp"
#include "tbvnonpara/statistics/probability.hpp"

namespace TBVNonPara::statistics {

/// Several samples: a span of spans.
using SampleSpans = std::span<const std::span<const double>>;

/// @cond
/// Several samples in ascending order, those without values left out.
struct TBVNONPARA_API Groups {
    std::vector<std::vector<double>> values;
    std::vector<std::size_t> original;  ///< which of the given samples each one is, from 0
    std::size_t missing = 0;
    std::size_t total = 0;

    [[nodiscard]] std::vector<double> pooled() const;
    [[nodiscard]] std::vector<std::size_t> sizes() const;
};

/// Throws std::invalid_argument that names group and position of a value that cannot count, and where fewer
/// than two groups have values.
[[nodiscard]] TBVNONPARA_API Groups groupsOf(SampleSpans samples, const Options& options);

/// Which of the groups the given sample is, from 0; nothing for nothing. Throws std::invalid_argument where
/// it is none.
[[nodiscard]] TBVNONPARA_API std::optional<std::size_t> groupOfControl(const Groups& groups,
                                                                       std::optional<std::size_t> control);

/// @endcond

/// A chi-square statistic with its upper tail.
struct ChiSquare {
    double value = 0;  ///< the statistic
    double df = 0;     ///< degrees of freedom
    Probability p;     ///< of a value as large or larger
};
/// An F statistic with its upper tail.
struct FRatio {
    double value = 0;  ///< the statistic
    double df1 = 0;    ///< degrees of freedom of the numerator
    double df2 = 0;    ///< and of the denominator
    Probability p;     ///< of a value as large or larger
};
/// The exact probability of a statistic with one direction.
struct ExactUpper {
    Probability p;     ///< of the observed value or a larger one
    double point = 0;  ///< of exactly the observed value
};

/// @cond
template <typename Member>
void visit(const ChiSquare& chiSquare, Member& member) {
    member("value", chiSquare.value);
    member("df", chiSquare.df);
    member("p", chiSquare.p);
}

template <typename Member>
void visit(const FRatio& f, Member& member) {
    member("value", f.value);
    member("df", std::array{f.df1, f.df2});
    member("p", f.p);
}

template <typename Member>
void visit(const ExactUpper& exact, Member& member) {
    member("p", exact.p);
    member("point", exact.point);
}
/// @endcond

}  // namespace TBVNonPara::statistics
