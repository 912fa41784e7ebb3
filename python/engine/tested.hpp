#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/details/details.hpp"

namespace TBVNonPara::python {

/// How a test is to be computed.
struct Choices {
    statistics::Options options;
    TBVNPTails tails = tbvNPTwoTailed;
    std::optional<std::size_t> control;  ///< the group that the others are compared with, from 0
};

using Samples = std::vector<std::span<const double>>;

/// The test of this name ("kruskal-wallis"). Throws std::invalid_argument where there is none.
[[nodiscard]] const OfferedTest& testNamed(std::string_view name);

/// A test in full, with what tells later whether its data are still the same.
struct Tested {
    const OfferedTest* test = nullptr;
    TBVNPTails tails = tbvNPTwoTailed;
    TestInFull result;
    std::uint64_t fingerprint = 0;

    /// The figure that SciPy's function for the test calls so; NaN where the data have none.
    [[nodiscard]] double statistic() const;
    /// The probability that counts, in the direction that was asked for; NaN where there is none.
    [[nodiscard]] double pvalue() const;
    /// Its common logarithm, which goes on where a double ends.
    [[nodiscard]] double log10p() const;
    /// All figures as JSON.
    [[nodiscard]] std::string json() const;
};

/// Throws what the functions of statistics/ throw.
[[nodiscard]] Tested runTest(const OfferedTest& test, const Samples& samples, const Choices& choices);

/// A number of the values, their order and their places: another one tells that they have changed.
[[nodiscard]] std::uint64_t fingerprintOf(const Samples& samples);

}  // namespace TBVNonPara::python
