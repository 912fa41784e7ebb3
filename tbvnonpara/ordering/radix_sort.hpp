#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <vector>

namespace TBVNonPara {

/// Leaves new elements as they come: what is written over is not worth clearing.
template <typename Element>
struct UnsetElements : std::allocator<Element> {
    template <typename Other>
    struct rebind {
        using other = UnsetElements<Other>;
    };
    void construct(Element* element) const noexcept { ::new (static_cast<void*>(element)) Element; }
    void construct(Element* element, Element value) const noexcept {
        ::new (static_cast<void*>(element)) Element(value);
    }
};

/// Words that are sorted as whole numbers.
using Words = std::vector<std::uint64_t, UnsetElements<std::uint64_t>>;

/// The bits of a word from `low` on up to, but not including, `high`.
struct BitRange {
    int low = 0;
    int high = 0;
};

/// Places that cut sorted words into pieces of about the same size, between words that differ from bit
/// `shift` on: the first 0, the last their number.
[[nodiscard]] std::vector<std::size_t> placesToCut(const Words& words, int shift, std::size_t parts);

/// Sorts words that are alike above `bits` and ascend already among words alike in `bits`. Needs as much
/// memory again. The time grows with the number of words, in the worst case as that of std::sort. On several
/// threads the result is the same.
void radixSort(Words& words, BitRange bits, std::size_t threads = 1);

}  // namespace TBVNonPara
