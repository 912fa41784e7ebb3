#include "tbvnonpara/ordering/sort_keys.hpp"

#include <algorithm>
#include <functional>
#include <numeric>
#include <vector>

#include "tbvnonpara/core/parallel.hpp"

namespace TBVNonPara {

KeySpan::KeySpan(std::span<const double> values, std::size_t threads) : smallest(~std::uint64_t(0)) {
    threads = partsWorthwhile(threads, values.size());
    std::vector<std::uint64_t> ofParts(threads, smallest);
    const auto inParts = [&](const auto& take) {
        inParallel(threads, [&](std::size_t part) {
            const std::size_t begin = beginOfPart(part, threads, values.size());
            std::uint64_t own = ofParts[part];
            for (const double value :
                 values.subspan(begin, beginOfPart(part + 1, threads, values.size()) - begin)) {
                own = take(own, value);
            }
            ofParts[part] = own;
        });
    };
    inParts([](std::uint64_t least, double value) { return std::min(least, keyOf(value)); });
    smallest = std::ranges::min(ofParts);
    std::ranges::fill(ofParts, 0);
    inParts([this](std::uint64_t bitsSoFar, double value) { return bitsSoFar | excess(value); });
    const std::uint64_t differing =
        std::accumulate(ofParts.begin(), ofParts.end(), std::uint64_t(0), std::bit_or<>());
    bits.low = differing == 0 ? 0 : std::countr_zero(differing);
    bits.high = static_cast<int>(std::bit_width(differing));
}

}  // namespace TBVNonPara
