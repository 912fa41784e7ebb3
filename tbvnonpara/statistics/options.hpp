#pragma once

#include <cstddef>
#include <cstdint>

#include "tbvnonpara/distributions/long_count.hpp"

namespace TBVNonPara::statistics {

enum class Alternative { TwoSided, Greater, Less };

/// What becomes of values that are not numbers (NaN): an error that names the first, or they are left out and
/// counted.
enum class Missing { Refuse, Omit };

/// How probabilities of several comparisons are adjusted: Holm (1979), Bonferroni, Benjamini and Hochberg
/// (1995), not.
enum class Adjustment { Holm, Bonferroni, BenjaminiHochberg, None };

struct Options {
    Alternative alternative = Alternative::TwoSided;
    double confidence = 0.95;  ///< level of the intervals, 0.5 to 0.999
    Missing missing = Missing::Refuse;
    Adjustment adjustment = Adjustment::Holm;
    bool trend = false;       ///< also whether values rise from group to group (Kruskal-Wallis, Friedman)
    double exactSteps = 1e9;  ///< additions that an exact count may take; 0 leaves it out
    /// Random arrangements from which P is estimated where there is no exact count; 0 for none.
    std::size_t permutations = 0;
    std::uint64_t seed = 1;  ///< of these
    CountWatch watch = {};   ///< told how far a long count is; what it throws ends the test
};

/// Throws std::invalid_argument where the level is none that an interval can have.
void checkOptions(const Options& options);

}  // namespace TBVNonPara::statistics
