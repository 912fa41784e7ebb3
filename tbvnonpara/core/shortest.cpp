#include "tbvnonpara/core/shortest.hpp"

#include <array>
#include <charconv>

namespace TBVNonPara {

std::string shortest(double number) {
    std::array<char, 32> digits{};
    auto* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return {digits.data(), end};
}

}  // namespace TBVNonPara
