#include "tbvnonpara/ordering/ascending_order.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <iterator>
#include <numeric>
#include <utility>

#include "tbvnonpara/core/parallel.hpp"
#include "tbvnonpara/ordering/radix_sort.hpp"
#include "tbvnonpara/ordering/sort_keys.hpp"

namespace TBVNonPara {

namespace {

/// Words that sort as the values: the leading bits of the key, below them the position.
struct PositionedKeys {
    Words words;
    int positionBits = 0;
    /// Whether the key fits in with all its bits.
    bool whole = false;
};

/// The ties that find(part) gives for each part, in their order.
std::vector<Tie> joined(std::size_t parts, const auto& find) {
    std::vector<std::vector<Tie>> ofParts(parts);
    inParallel(parts, [&](std::size_t part) { ofParts[part] = find(part); });
    std::vector<Tie> ties = std::move(ofParts.front());
    for (std::size_t part = 1; part < parts; ++part) {
        ties.insert(ties.end(), ofParts[part].begin(), ofParts[part].end());
    }
    return ties;
}

PositionedKeys sortedKeys(std::span<const double> values, const KeySpan& keys, std::size_t threads) {
    PositionedKeys sorted;
    sorted.positionBits = static_cast<int>(std::bit_width(values.size()));
    const int kept = std::min(keys.width(), 64 - sorted.positionBits);
    sorted.whole = kept == keys.width();
    const int dropped = keys.bits.high - kept;
    sorted.words.resize(values.size());
    inParallel(threads, [&](std::size_t part) {
        const std::size_t end = beginOfPart(part + 1, threads, values.size());
        for (std::size_t i = beginOfPart(part, threads, values.size()); i < end; ++i) {
            sorted.words[i] = (keys.excess(values[i]) >> dropped) << sorted.positionBits | i;
        }
    });
    radixSort(sorted.words, {sorted.positionBits, sorted.positionBits + kept}, threads);
    return sorted;
}

/// The positions in sorted keys, and the places where the keys are alike: the ties, where the words hold
/// whole keys.
AscendingOrder orderOf(const PositionedKeys& keys, std::size_t threads) {
    const std::uint64_t position = (std::uint64_t(1) << keys.positionBits) - 1;
    const std::vector<std::size_t> cuts = placesToCut(keys.words, keys.positionBits, threads);
    AscendingOrder order;
    order.positions.resize(keys.words.size());
    order.ties = joined(threads, [&](std::size_t part) {
        std::vector<Tie> ties;
        for (std::size_t first = cuts[part]; first < cuts[part + 1];) {
            const std::uint64_t key = keys.words[first] >> keys.positionBits;
            std::size_t last = first;
            for (; last < cuts[part + 1] && keys.words[last] >> keys.positionBits == key; ++last) {
                order.positions[last] = static_cast<std::uint32_t>(keys.words[last] & position);
            }
            if (last - first > 1) {
                ties.push_back({static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(last - first)});
            }
            first = last;
        }
        return ties;
    });
    return order;
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
void orderAlike(AscendingOrder& order, std::span<const double> values, const std::vector<Tie>& runs,
                std::size_t threads) {
    const auto ascends = [values](std::uint32_t a, std::uint32_t b) {
        return values[a] < values[b] || (values[a] == values[b] && a < b);
    };
    order.ties = joined(threads, [&](std::size_t part) {
        std::vector<Tie> ties;
        const std::size_t begin = beginOfPart(part, threads, runs.size());
        const std::size_t end = beginOfPart(part + 1, threads, runs.size());
        for (const Tie& run : std::span(runs).subspan(begin, end - begin)) {
            const std::span<std::uint32_t> positions(order.positions.data() + run.first, run.size);
            if (!std::ranges::is_sorted(positions, ascends)) {
                std::ranges::sort(positions, ascends);
            }
            appendTies(ties, values, order.positions, run.first, run.size);
        }
        return ties;
    });
}

AscendingOrder orderOfEntry(std::span<const double> values) {
    AscendingOrder order;
    order.positions.resize(values.size());
    std::iota(order.positions.begin(), order.positions.end(), std::uint32_t(0));
    order.ties = tiesOf(values, order.positions);
    return order;
}

/// Whether the values have so few keys that each can be counted.
bool hasFewKeys(const KeySpan& keys, std::size_t values) noexcept {
    constexpr int widest = 16;
    return keys.width() <= widest && std::size_t(1) << keys.width() <= values;
}

/// How often each key occurs.
std::vector<std::uint32_t> countKeys(std::span<const double> values, const KeySpan& keys) {
    std::vector<std::uint32_t> counts(std::size_t(1) << keys.width());
    for (const double value : values) {
        counts[keys.place(value)] += 1;
    }
    return counts;
}

AscendingOrder orderByCounting(std::span<const double> values, const KeySpan& keys) {
    std::vector<std::uint32_t> places = countKeys(values, keys);
    AscendingOrder order;
    std::uint32_t before = 0;
    for (std::uint32_t& place : places) {
        const std::uint32_t count = std::exchange(place, before);
        if (count > 1) {
            order.ties.push_back({before, count});
        }
        before += count;
    }
    order.positions.resize(values.size());
    std::uint32_t position = 0;
    for (const double value : values) {
        order.positions[places[keys.place(value)]++] = position++;
    }
    return order;
}

void sortByCounting(std::span<double> values, const KeySpan& keys) {
    std::uint64_t key = 0;
    auto next = values.begin();
    for (const std::uint32_t count : countKeys(values, keys)) {
        next = std::fill_n(next, count, valueOf((key++ << keys.bits.low) + keys.smallest));
    }
}

void sortByInsertion(std::span<double> values) {
    for (auto next = values.begin(); next != values.end(); ++next) {
        std::rotate(std::upper_bound(values.begin(), next, *next), next, next + 1);
    }
}

void sortByKeys(std::span<double> values) {
    const KeySpan keys(values);
    if (hasFewKeys(keys, values.size())) {
        return sortByCounting(values, keys);
    }
    Words words;
    words.reserve(values.size());
    std::ranges::transform(values, std::back_inserter(words),
                           [&](double value) { return keys.excess(value); });
    radixSort(words, keys.bits);
    std::ranges::transform(words, values.begin(),
                           [&](std::uint64_t word) { return valueOf(word + keys.smallest); });
}

/// The zeros of both signs in their order; none where all are positive.
std::vector<double> mixedZeros(std::span<const double> values) {
    const auto isNegativeZero = [](double value) { return value == 0 && std::signbit(value); };
    std::vector<double> zeros;
    if (std::ranges::any_of(values, isNegativeZero)) {
        std::ranges::copy_if(values, std::back_inserter(zeros), [](double value) { return value == 0; });
    }
    return zeros;
}

}  // namespace

AscendingOrder ascendingOrder(std::span<const double> values, std::size_t threads) {
    if (std::ranges::is_sorted(values)) {
        return orderOfEntry(values);
    }
    threads = partsWorthwhile(threads, values.size());
    const KeySpan span(values, threads);
    if (hasFewKeys(span, values.size())) {
        return orderByCounting(values, span);
    }
    AscendingOrder order;
    bool whole = false;
    {
        const PositionedKeys keys = sortedKeys(values, span, threads);
        whole = keys.whole;
        order = orderOf(keys, threads);
    }
    if (!whole) {
        orderAlike(order, values, std::exchange(order.ties, {}), threads);
    }
    return order;
}

std::vector<Tie> tiesOf(std::span<const double> values, std::span<const std::uint32_t> positions) {
    std::vector<Tie> ties;
    appendTies(ties, values, positions, 0, positions.size());
    return ties;
}

void sortAscending(std::span<double> values) {
    constexpr std::size_t worthKeys = 64;
    if (values.size() < worthKeys) {
        return sortByInsertion(values);
    }
    // -0 and 0 have one key, from which the sign cannot be restored.
    const std::vector<double> zeros = mixedZeros(values);
    sortByKeys(values);
    std::ranges::copy(zeros, std::ranges::lower_bound(values, 0.0));
}

}  // namespace TBVNonPara
