#include "tbvnonpara/ordering/selection.hpp"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace TBVNonPara {

namespace {

std::array<double, 2> selectFrom(std::vector<double> values, std::size_t first, std::size_t second) {
    const auto at = [&values](std::size_t place) {
        const auto found = values.begin() + static_cast<std::ptrdiff_t>(place);
        std::ranges::nth_element(values, found);
        return *found;
    };
    const double atFirst = at(first);
    return {atFirst, first == second ? atFirst : at(second)};
}

/// Two values between which that at a place is found, unless the sample that they are taken from misleads.
std::array<double, 2> boundsOf(std::span<const double> values, std::size_t place) {
    constexpr std::size_t size = 4096;
    constexpr std::size_t margin = 128;  // four standard deviations of the place in a random sample
    const std::size_t step = values.size() / size;
    std::vector<double> sample(size);
    std::ranges::generate(sample, [at = values.begin(), step]() mutable {
        return *std::exchange(at, at + static_cast<std::ptrdiff_t>(step));
    });
    std::ranges::sort(sample);
    const std::size_t middle = std::min(place / step, size - 1);
    return {sample[std::max(middle, margin) - margin], sample[std::min(middle + margin, size - 1)]};
}

/// Selects among those values alone that stand near the two places (after Floyd and Rivest).
std::array<double, 2> selected(std::span<const double> values, std::size_t first, std::size_t second) {
    constexpr std::size_t worthSampling = 20000;
    if (values.size() < worthSampling) {
        return selectFrom({values.begin(), values.end()}, first, second);
    }
    const auto [low, high] = boundsOf(values, first);
    std::size_t below = 0;
    std::vector<double> between;
    for (const double value : values) {
        below += value < low ? 1 : 0;
        if (value >= low && value <= high) {
            between.push_back(value);
        }
    }
    if (first < below || second >= below + between.size()) {
        return selectFrom({values.begin(), values.end()}, first, second);
    }
    return selectFrom(std::move(between), first - below, second - below);
}

/// The zero at a place, 0 and -0 in their order: selection alone would give one or the other.
double zeroAt(std::span<const double> values, std::size_t place) {
    auto before = static_cast<std::ptrdiff_t>(place) -
                  std::ranges::count_if(values, [](double value) { return value < 0; });
    return *std::ranges::find_if(values, [&](double value) { return value == 0 && before-- == 0; });
}

}  // namespace

std::array<double, 2> valuesAtPlaces(std::span<const double> values, std::size_t first, std::size_t second) {
    const auto [a, b] = selected(values, first, second);
    return {a == 0 ? zeroAt(values, first) : a, b == 0 ? zeroAt(values, second) : b};
}

double medianOf(std::span<const double> values) {
    const auto [low, high] = valuesAtPlaces(values, (values.size() - 1) / 2, values.size() / 2);
    return std::midpoint(low, high);
}

}  // namespace TBVNonPara
