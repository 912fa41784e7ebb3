#include "companion/ascending_order.hpp"

#include <algorithm>
#include <bit>
#include <numeric>

#include "companion/radix_sort.hpp"

namespace TBVNonPara {

namespace {

using Words = std::vector<std::uint64_t>;

constexpr std::uint64_t signBit = std::uint64_t(1) << 63;

/// A whole number that compares with others as the values do, 0 and -0 alike.
std::uint64_t keyOf(double value) noexcept {
    const auto bits = std::bit_cast<std::uint64_t>(value + 0.0);  // -0 + 0 is 0
    return (bits & signBit) != 0 ? ~bits : bits | signBit;
}

double valueOf(std::uint64_t key) noexcept {
    return std::bit_cast<double>((key & signBit) != 0 ? key & ~signBit : ~key);
}

/// The keys of values as what they exceed the smallest by, of which the bits from `low` on up to `high`
/// differ.
struct KeySpan {
    std::uint64_t smallest = 0;
    BitRange bits;

    explicit KeySpan(std::span<const double> values) {
        std::uint64_t largest = 0;
        smallest = ~largest;
        for (const double value : values) {
            smallest = std::min(smallest, keyOf(value));
            largest = std::max(largest, keyOf(value));
        }
        std::uint64_t differing = 0;
        for (const double value : values) {
            differing |= excess(value);
        }
        bits.low = differing == 0 ? 0 : std::countr_zero(differing);
        bits.high = static_cast<int>(std::bit_width(differing));
    }

    [[nodiscard]] std::uint64_t excess(double value) const noexcept { return keyOf(value) - smallest; }
    [[nodiscard]] int width() const noexcept { return bits.high - bits.low; }
};

/// Words that sort as the values: the leading bits of the key, below them the position.
struct PositionedKeys {
    Words words;
    int positionBits = 0;
    /// Whether the key fits in with all its bits.
    bool whole = false;
};

PositionedKeys sortedKeys(std::span<const double> values) {
    const KeySpan keys(values);
    PositionedKeys sorted;
    sorted.positionBits = static_cast<int>(std::bit_width(values.size()));
    const int kept = std::min(keys.width(), 64 - sorted.positionBits);
    sorted.whole = kept == keys.width();
    const int dropped = keys.bits.high - kept;
    sorted.words.reserve(values.size());
    for (const double value : values) {
        sorted.words.push_back((keys.excess(value) >> dropped) << sorted.positionBits | sorted.words.size());
    }
    radixSort(sorted.words, {sorted.positionBits, sorted.positionBits + kept});
    return sorted;
}

std::vector<std::uint32_t> positionsIn(const PositionedKeys& keys) {
    const std::uint64_t position = (std::uint64_t(1) << keys.positionBits) - 1;
    std::vector<std::uint32_t> positions;
    positions.reserve(keys.words.size());
    for (const std::uint64_t word : keys.words) {
        positions.push_back(static_cast<std::uint32_t>(word & position));
    }
    return positions;
}

/// The places where sorted keys are alike: the ties, where the words hold whole keys.
std::vector<Tie> alike(const PositionedKeys& keys) {
    const Words& words = keys.words;
    std::vector<Tie> runs;
    for (std::size_t first = 0; first < words.size();) {
        const std::uint64_t key = words[first] >> keys.positionBits;
        std::size_t last = first + 1;
        while (last < words.size() && words[last] >> keys.positionBits == key) {
            ++last;
        }
        if (last - first > 1) {
            runs.push_back({static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(last - first)});
        }
        first = last;
    }
    return runs;
}

/// Adds the ties among `size` positions from place `first` on, whose values ascend.
void appendTies(std::vector<Tie>& ties, std::span<const double> values,
                std::span<const std::uint32_t> positions, std::size_t first, std::size_t size) {
    const std::size_t end = first + size;
    for (std::size_t i = first; i < end;) {
        std::size_t next = i + 1;
        while (next < end && values[positions[next]] == values[positions[i]]) {
            ++next;
        }
        if (next - i > 1) {
            ties.push_back({static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(next - i)});
        }
        i = next;
    }
}

/// Finishes the order of values whose words are alike but hold no whole keys.
void orderAlike(AscendingOrder& order, std::span<const double> values, const std::vector<Tie>& runs) {
    const auto ascends = [values](std::uint32_t a, std::uint32_t b) {
        return values[a] < values[b] || (values[a] == values[b] && a < b);
    };
    for (const Tie& run : runs) {
        const std::span<std::uint32_t> positions(order.positions.data() + run.first, run.size);
        if (!std::ranges::is_sorted(positions, ascends)) {
            std::ranges::sort(positions, ascends);
        }
        appendTies(order.ties, values, order.positions, run.first, run.size);
    }
}

AscendingOrder orderOfEntry(std::span<const double> values) {
    AscendingOrder order;
    order.positions.resize(values.size());
    std::iota(order.positions.begin(), order.positions.end(), std::uint32_t(0));
    order.ties = tiesOf(values, order.positions);
    return order;
}

/// The values counted by the leading bits of their keys.
struct KeyCounts {
    static constexpr int leadingBits = 12;

    KeySpan keys;
    int shift = std::max(keys.bits.high - leadingBits, 0);
    std::vector<std::size_t> counts = std::vector<std::size_t>(std::size_t(1) << leadingBits);

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

bool isNegativeZero(double value) noexcept {
    return std::bit_cast<std::uint64_t>(value) == signBit;
}

}  // namespace

AscendingOrder ascendingOrder(std::span<const double> values) {
    if (std::ranges::is_sorted(values)) {
        return orderOfEntry(values);
    }
    AscendingOrder order;
    std::vector<Tie> runs;
    bool whole = false;
    {
        const PositionedKeys keys = sortedKeys(values);
        whole = keys.whole;
        runs = alike(keys);
        order.positions = positionsIn(keys);
    }
    if (whole) {
        order.ties = std::move(runs);
    } else {
        orderAlike(order, values, runs);
    }
    return order;
}

std::vector<Tie> tiesOf(std::span<const double> values, std::span<const std::uint32_t> positions) {
    std::vector<Tie> ties;
    appendTies(ties, values, positions, 0, positions.size());
    return ties;
}

std::array<double, 2> valuesAtPlaces(std::span<const double> values, std::size_t first, std::size_t second) {
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

void sortAscending(std::span<double> values) {
    constexpr std::size_t worthKeys = 64;
    // -0 and 0 have one key, from which the sign could not be restored.
    if (values.size() < worthKeys || std::ranges::any_of(values, isNegativeZero)) {
        std::ranges::stable_sort(values);
        return;
    }
    const KeySpan keys(values);
    Words words;
    words.reserve(values.size());
    std::ranges::transform(values, std::back_inserter(words),
                           [&](double value) { return keys.excess(value); });
    radixSort(words, keys.bits);
    std::ranges::transform(words, values.begin(),
                           [&](std::uint64_t word) { return valueOf(word + keys.smallest); });
}

}  // namespace TBVNonPara
