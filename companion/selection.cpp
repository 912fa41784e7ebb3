#include "companion/selection.hpp"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "companion/sort_keys.hpp"

namespace TBVNonPara {

namespace {

/// The values counted by the leading bits of their keys.
struct KeyCounts {
    static constexpr int leadingBits = 12;

    KeySpan keys;
    int shift = std::max(keys.bits.high - leadingBits, 0);
    std::vector<std::uint32_t> counts = std::vector<std::uint32_t>(std::size_t(1) << leadingBits);

    explicit KeyCounts(std::span<const double> values) : keys(values) {
        for (const double value : values) {
            counts[bucketOf(value)] += 1;
        }
    }

    [[nodiscard]] std::size_t bucketOf(double value) const noexcept { return keys.excess(value) >> shift; }

    /// The bucket of the value at a place; `place` becomes its place in the bucket.
    [[nodiscard]] std::size_t bucketAt(std::size_t& place) const noexcept {
        std::size_t bucket = 0;
        while (place >= counts[bucket]) {
            place -= counts[bucket];
            bucket += 1;
        }
        return bucket;
    }
};

std::array<double, 2> selectFrom(std::vector<double> values, std::size_t first, std::size_t second) {
    const auto at = [&values](std::size_t place) {
        const auto found = values.begin() + static_cast<std::ptrdiff_t>(place);
        std::ranges::nth_element(values, found);
        return *found;
    };
    const double atFirst = at(first);
    return {atFirst, first == second ? atFirst : at(second)};
}

/// Selects among those values alone that may stand at the two places.
std::array<double, 2> selected(std::span<const double> values, std::size_t first, std::size_t second) {
    constexpr std::size_t worthCounting = 1000;
    if (values.size() < worthCounting) {
        return selectFrom({values.begin(), values.end()}, first, second);
    }
    const KeyCounts counted(values);
    std::size_t place = first;
    const std::size_t firstBucket = counted.bucketAt(place);
    std::size_t placeOfSecond = second;
    const std::size_t lastBucket = counted.bucketAt(placeOfSecond);
    std::vector<double> between;
    std::ranges::copy_if(values, std::back_inserter(between), [&](double value) {
        const std::size_t bucket = counted.bucketOf(value);
        return bucket >= firstBucket && bucket <= lastBucket;
    });
    return selectFrom(std::move(between), place, place + second - first);
}

/// The zero at a place, 0 and -0 in their order: selection alone would give one or the other.
double zeroAt(std::span<const double> values, std::size_t place) {
    auto before = static_cast<std::ptrdiff_t>(place) -
                  std::ranges::count_if(values, [](double value) { return value < 0; });
    return *std::ranges::find_if(values, [&](double value) { return value == 0 && before-- == 0; });
}

}  // namespace

std::array<double, 2> valuesAtPlaces(std::span<const double> values, std::size_t first, std::size_t second) {
    const auto [a, b] = selected(values, first, second);
    return {a == 0 ? zeroAt(values, first) : a, b == 0 ? zeroAt(values, second) : b};
}

}  // namespace TBVNonPara
