#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace TBVNonPara {

/// Probabilities of a number of runs and their common logarithms, which go on below the range of doubles.
struct RunsTails {
    double two = 0;
    double fewer = 0;  ///< as few runs or fewer
    double more = 0;
    double point = 0;
    double log10Two = 0;
    double log10Fewer = 0;
    double log10More = 0;
};

/// All orders of cells in categories of these sizes, none empty. Two categories: Stevens (1939), in
/// logarithms, O(n) at any n. More: category after category is dealt into the blocks between and inside the
/// runs that stand already; none where the steps, the sum of m n_j^2, exceed `steps`.
[[nodiscard]] std::optional<RunsTails> runsTails(std::span<const std::size_t> counts, std::size_t runs,
                                                 double steps);

}  // namespace TBVNonPara
