#pragma once

#include <string_view>

#include "tbvnonpara/request/tests_offered.hpp"

namespace TBVNonPara::cli {

/// What the command line says about a test in words of its own. An empty word is one that the test does not
/// take.
struct TestWords {
    TBVNPMethod method;
    std::string_view greaterWord;  ///< another word for --tails greater
    std::string_view lessWord;
    std::string_view tailsHelp;
    std::string_view example;
};

[[nodiscard]] const TestWords& wordsOf(const OfferedTest& test);

}  // namespace TBVNonPara::cli
