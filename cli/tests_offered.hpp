#pragma once

#include <span>
#include <string_view>

#include "tbvnonpara/core/enumerations.hpp"

namespace TBVNonPara::cli {

/// Which columns a test reads when the command line names none, and what it makes of a second range.
enum class DataShape {
    TwoSamples,    ///< two columns, each as long as its own data
    Pairs,         ///< two columns, row by row
    CodesOrPairs,  ///< one column of codes, or two columns row by row
    Groups,        ///< all columns; blanks are allowed
    Blocks,        ///< all columns, row by row
    Sequence,      ///< one column
};

/// A test as the command line offers it. An empty word is one that the test does not take.
struct OfferedTest {
    TBVNPMethod method;
    std::string_view name;
    std::string_view title;  ///< as in "the Friedman test"
    std::string_view summary;
    DataShape shape;
    bool descriptives;
    bool tails;
    std::string_view greaterWord;  ///< another word for --tails greater
    std::string_view lessWord;
    std::string_view tailsHelp;
    std::string_view example;
};

[[nodiscard]] std::span<const OfferedTest> offeredTests() noexcept;

[[nodiscard]] constexpr bool takesSecondRange(DataShape shape) noexcept {
    return shape == DataShape::TwoSamples || shape == DataShape::Pairs || shape == DataShape::CodesOrPairs;
}

[[nodiscard]] constexpr bool takesManyColumns(DataShape shape) noexcept {
    return shape == DataShape::Groups || shape == DataShape::Blocks;
}

}  // namespace TBVNonPara::cli
