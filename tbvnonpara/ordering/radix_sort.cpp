#include "tbvnonpara/ordering/radix_sort.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace TBVNonPara {

namespace {

constexpr int digitBits = 10;
constexpr std::size_t digitValues = std::size_t(1) << digitBits;

using Counts = std::array<std::uint32_t, digitValues>;

std::size_t digitOf(std::uint64_t word, int shift) noexcept {
    return (word >> shift) & (digitValues - 1);
}

/// The digits by which words are distributed, the lowest first. They cover the leading bits of the range, so
/// many that few words remain alike in them when their values are spread out.
struct LeadingDigits {
    int shift = 0;
    int number = 0;
};

LeadingDigits leadingDigits(BitRange bits, std::size_t words) noexcept {
    constexpr int bitsToTellNeighbours = 10;
    const int wanted = static_cast<int>(std::bit_width(words)) + bitsToTellNeighbours;
    const int number = (std::min(wanted, bits.high - bits.low) + digitBits - 1) / digitBits;
    return {std::max(bits.high - number * digitBits, bits.low), number};
}

std::vector<Counts> countDigits(const Words& words, LeadingDigits digits) {
    std::vector<Counts> counts(static_cast<std::size_t>(digits.number));
    for (const std::uint64_t word : words) {
        int shift = digits.shift;
        for (Counts& ofDigit : counts) {
            ofDigit[digitOf(word, shift)] += 1;
            shift += digitBits;
        }
    }
    return counts;
}

/// Moves each word to its place by one digit; words with the same digit keep their order.
void distribute(const Words& from, Words& to, int shift, Counts& counts) {
    std::uint32_t before = 0;
    for (std::uint32_t& count : counts) {
        before += std::exchange(count, before);
    }
    for (const std::uint64_t word : from) {
        to[counts[digitOf(word, shift)]++] = word;
    }
}

/// Sorts the words that the distribution left side by side because they are alike from bit `shift` on.
void sortAlike(Words& words, int shift) {
    const auto end = words.end();
    for (auto first = words.begin(); first != end;) {
        auto last = first + 1;
        while (last != end && (*last >> shift) == (*first >> shift)) {
            ++last;
        }
        if (!std::is_sorted(first, last)) {
            std::sort(first, last);
        }
        first = last;
    }
}

}  // namespace

void radixSort(Words& words, BitRange bits) {
    constexpr std::size_t worthCounting = 1000;
    if (words.size() < worthCounting) {
        std::ranges::sort(words);
        return;
    }
    const LeadingDigits digits = leadingDigits(bits, words.size());
    Words moved(words.size());
    int shift = digits.shift;
    for (Counts& counts : countDigits(words, digits)) {
        distribute(words, moved, shift, counts);
        words.swap(moved);
        shift += digitBits;
    }
    if (digits.shift > bits.low) {
        sortAlike(words, digits.shift);
    }
}

}  // namespace TBVNonPara
