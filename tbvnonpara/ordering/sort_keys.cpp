#include "tbvnonpara/ordering/sort_keys.hpp"

#include <algorithm>

namespace TBVNonPara {

KeySpan::KeySpan(std::span<const double> values) noexcept : smallest(~std::uint64_t(0)) {
    for (const double value : values) {
        smallest = std::min(smallest, keyOf(value));
    }
    std::uint64_t differing = 0;
    for (const double value : values) {
        differing |= excess(value);
    }
    bits.low = differing == 0 ? 0 : std::countr_zero(differing);
    bits.high = static_cast<int>(std::bit_width(differing));
}

}  // namespace TBVNonPara
