#pragma once

#include <cstdint>
#include <span>

namespace TBVNonPara {

/// The value at `place`, counted from 0, among the first.size() * second.size() differences first - second
/// when they ascend. Both samples ascend and are not empty. The differences are never written down: memory
/// O(n1), time O((n1 + n2) log) (bounds as of Johnson and Mizoguchi 1978, pivots drawn as by Monahan 1984,
/// from a fixed seed; the result does not depend on the draws).
[[nodiscard]] double differenceAtPlace(std::span<const double> first, std::span<const double> second,
                                       std::uint64_t place);

/// The value at `place`, counted from 0, among the n (n + 1) / 2 Walsh averages (a + b) / 2 of a value with
/// itself and every later one, when they ascend. The values ascend and are not empty.
[[nodiscard]] double walshAverageAtPlace(std::span<const double> values, std::uint64_t place);

}  // namespace TBVNonPara
