#pragma once

#include <span>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/enumerations.hpp"

namespace TBVNonPara {

/// Which columns a test reads when none are named, and what it makes of a second range.
enum class DataShape {
    TwoSamples,    ///< two columns, each as long as its own data
    Pairs,         ///< two columns, row by row
    CodesOrPairs,  ///< one column of codes, or two columns row by row
    Groups,        ///< all columns; blanks are allowed
    Blocks,        ///< all columns, row by row
    Sequence,      ///< one column
};

/// A test as it is offered to a user, and which of the options it takes.
struct OfferedTest {
    TBVNPMethod method;        ///< its number
    std::string_view name;     ///< one word for commands and files, such as "kruskal-wallis"
    std::string_view title;    ///< as in "the Friedman test"
    std::string_view summary;  ///< a line for a list of tests
    DataShape shape;           ///< of its data
    bool descriptives;         ///< whether LetOutputDescriptives does anything
    bool tails;                ///< whether LetTails does
};

/// All eight, in the order of their numbers.
[[nodiscard]] TBVNONPARA_API std::span<const OfferedTest> offeredTests() noexcept;

/// Whether there may be a second variable.
[[nodiscard]] constexpr bool takesSecondRange(DataShape shape) noexcept {
    return shape == DataShape::TwoSamples || shape == DataShape::Pairs || shape == DataShape::CodesOrPairs;
}

/// Whether each column is a group or a treatment.
[[nodiscard]] constexpr bool takesManyColumns(DataShape shape) noexcept {
    return shape == DataShape::Groups || shape == DataShape::Blocks;
}

/// Whether the values of a row belong together.
[[nodiscard]] constexpr bool takesRows(DataShape shape) noexcept {
    return shape == DataShape::Pairs || shape == DataShape::CodesOrPairs || shape == DataShape::Blocks;
}

}  // namespace TBVNonPara
