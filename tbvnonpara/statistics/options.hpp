#pragma once

#include <cstddef>
#include <cstdint>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/distributions/long_count.hpp"

namespace TBVNonPara::statistics {

/// The direction in which a test looks.
enum class Alternative {
    TwoSided,  ///< either
    Greater,   ///< the first tends to be larger
    Less,      ///< the first tends to be smaller
};

/// What becomes of values that are not numbers (NaN): an error that names the first, or they are left out and
/// counted.
enum class Missing {
    Refuse,  ///< std::invalid_argument
    Omit,    ///< left out: the value, the pair or the whole block
};

/// How probabilities of several comparisons are adjusted: Holm (1979), Bonferroni, Benjamini and Hochberg
/// (1995), or not at all.
enum class Adjustment {
    Holm,               ///< step down; holds the familywise error
    Bonferroni,         ///< P times the number of comparisons
    BenjaminiHochberg,  ///< step up; holds the false discovery rate
    None,               ///< P as it is
};

/// How a test is computed: `mannWhitney(first, second, {.confidence = 0.9, .missing = Missing::Omit})`.
struct Options {
    /// For what a caller says about a result; every result has P in all directions.
    Alternative alternative = Alternative::TwoSided;
    double confidence = 0.95;                  ///< level of the intervals, 0.5 to 0.999
    Missing missing = Missing::Refuse;         ///< what becomes of NaN; infinite values are always refused
    Adjustment adjustment = Adjustment::Holm;  ///< of the comparisons of groups
    bool trend = false;       ///< also whether values rise from group to group (Kruskal-Wallis, Friedman)
    double exactSteps = 1e9;  ///< additions that an exact count may take; 0 leaves it out
    /// Random arrangements from which P is estimated where there is no exact count; 0 for none.
    std::size_t permutations = 0;
    std::uint64_t seed = 1;  ///< of these; the same arrangements on every machine
    /// Told how far a long count, or the comparisons of many groups, are; what it throws ends the test.
    CountWatch watch = {};
};

/// @cond
/// Throws std::invalid_argument where the level is none that an interval can have.
TBVNONPARA_API void checkOptions(const Options& options);
/// @endcond

}  // namespace TBVNonPara::statistics
