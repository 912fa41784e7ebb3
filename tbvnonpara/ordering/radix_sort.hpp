#pragma once

#include <cstdint>
#include <vector>

namespace TBVNonPara {

/// Words that are sorted as whole numbers.
using Words = std::vector<std::uint64_t>;

/// The bits of a word from `low` on up to, but not including, `high`.
struct BitRange {
    int low = 0;
    int high = 0;
};

/// Sorts words that are alike above `bits` and ascend already among words alike in `bits`. Needs as much
/// memory again. The time grows with the number of words, in the worst case as that of std::sort.
void radixSort(Words& words, BitRange bits);

}  // namespace TBVNonPara
