#include "tbvnonpara/ordering/radix_sort.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <utility>

#include "tbvnonpara/core/parallel.hpp"

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

/// The same by several threads, each for a piece of the words: a thread's words with a digit go behind those
/// of the threads before it.
void distributeInParallel(const Words& from, Words& to, int shift, std::size_t threads) {
    std::vector<Counts> counts(threads);
    const auto visitPiece = [&](std::size_t part, const auto& visit) {
        const std::size_t end = beginOfPart(part + 1, threads, from.size());
        for (std::size_t i = beginOfPart(part, threads, from.size()); i < end; ++i) {
            visit(from[i]);
        }
    };
    inParallel(threads, [&](std::size_t part) {
        Counts own{};
        visitPiece(part, [&](std::uint64_t word) { own[digitOf(word, shift)] += 1; });
        counts[part] = own;
    });
    std::uint32_t before = 0;
    for (std::size_t digit = 0; digit < digitValues; ++digit) {
        for (Counts& ofPart : counts) {
            before += std::exchange(ofPart[digit], before);
        }
    }
    inParallel(threads, [&](std::size_t part) {
        Counts places = counts[part];
        visitPiece(part, [&](std::uint64_t word) { to[places[digitOf(word, shift)]++] = word; });
    });
}

/// Sorts the words from one place up to another that the distribution left side by side because they are
/// alike from bit `shift` on.
void sortAlike(Words& words, std::size_t from, std::size_t until, int shift) {
    const auto end = words.begin() + static_cast<std::ptrdiff_t>(until);
    for (auto first = words.begin() + static_cast<std::ptrdiff_t>(from); first != end;) {
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

std::vector<std::size_t> placesToCut(const Words& words, int shift, std::size_t parts) {
    std::vector<std::size_t> places;
    for (std::size_t part = 0; part <= parts; ++part) {
        std::size_t place = beginOfPart(part, parts, words.size());
        while (place > 0 && place < words.size() && words[place] >> shift == words[place - 1] >> shift) {
            ++place;
        }
        places.push_back(place);
    }
    return places;
}

void radixSort(Words& words, BitRange bits, std::size_t threads) {
    constexpr std::size_t worthCounting = 1000;
    if (words.size() < worthCounting) {
        std::ranges::sort(words);
        return;
    }
    const LeadingDigits digits = leadingDigits(bits, words.size());
    Words moved(words.size());
    int shift = digits.shift;
    threads = partsWorthwhile(threads, words.size());
    std::vector<Counts> counts = threads > 1 ? std::vector<Counts>() : countDigits(words, digits);
    for (std::size_t digit = 0; digit < static_cast<std::size_t>(digits.number); ++digit) {
        if (threads > 1) {
            distributeInParallel(words, moved, shift, threads);
        } else {
            distribute(words, moved, shift, counts[digit]);
        }
        words.swap(moved);
        shift += digitBits;
    }
    if (digits.shift > bits.low) {
        const std::vector<std::size_t> cuts = placesToCut(words, digits.shift, threads);
        inParallel(threads,
                   [&](std::size_t part) { sortAlike(words, cuts[part], cuts[part + 1], digits.shift); });
    }
}

}  // namespace TBVNonPara
