#pragma once

#include <span>
#include <vector>

namespace TBVNonPara::statistics {

/// Several samples of any containers of doubles, as the tests of groups take them:
/// `kruskalWallis(spansOf(std::vector<std::vector<double>>{{1, 2}, {3, 4}}))`. The samples are not copied and
/// must outlive the spans.
template <typename Samples>
[[nodiscard]] std::vector<std::span<const double>> spansOf(const Samples& samples) {
    return {samples.begin(), samples.end()};
}

}  // namespace TBVNonPara::statistics
