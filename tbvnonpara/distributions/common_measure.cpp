#include "tbvnonpara/distributions/common_measure.hpp"

#include <numeric>

namespace TBVNonPara {

std::optional<std::int64_t> commonMeasure(std::span<const std::size_t> sizes, double largest) {
    constexpr double representable = 0x1p62;
    const auto N = static_cast<double>(std::accumulate(sizes.begin(), sizes.end(), std::size_t(0)));
    std::int64_t measure = 1;
    for (const std::size_t size : sizes) {
        const auto n = static_cast<std::int64_t>(size);
        const std::int64_t factor = n / std::gcd(measure, n);
        // (n m)^2 / n summed over the groups is N m^2 at most.
        if (static_cast<double>(measure) * static_cast<double>(factor) * N * largest * largest >
            representable) {
            return std::nullopt;
        }
        measure *= factor;
    }
    return measure;
}

}  // namespace TBVNonPara
