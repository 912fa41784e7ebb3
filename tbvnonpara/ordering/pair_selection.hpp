#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace TBVNonPara {

/// The values at `places`, counted from 0, among the first.size() * second.size() differences first - second
/// when they ascend. Both samples ascend and are not empty. The differences are never written down: memory
/// O(n1 + n2), time O(n1 + n2) for each of a few passes a place (counted as by Johnson and Mizoguchi 1978, at
/// values that a table of every 32nd value gives; fewer than 300 passes whatever the data are).
[[nodiscard]] std::vector<double> differencesAtPlaces(std::span<const double> first,
                                                      std::span<const double> second,
                                                      std::span<const std::uint64_t> places);

/// The values at `places`, counted from 0, among the n (n + 1) / 2 Walsh averages (a + b) / 2 of a value with
/// itself and every later one, when they ascend. The values ascend and are not empty.
[[nodiscard]] std::vector<double> walshAveragesAtPlaces(std::span<const double> values,
                                                        std::span<const std::uint64_t> places);

}  // namespace TBVNonPara
