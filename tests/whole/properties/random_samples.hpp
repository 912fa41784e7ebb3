#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara {

using Sample = std::vector<double>;
using Samples = std::vector<Sample>;

/// Random samples of small numbers. The seed is printed; TBVNONPARA_SEED repeats a run.
class RandomSamples {
 public:
    RandomSamples() : m_Engine(seed()) {}

    [[nodiscard]] int between(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(m_Engine);
    }

    /// Quarters between -range and range: exact in single precision, with ties when the range is small.
    [[nodiscard]] Sample sample(int size, int range) {
        Sample values(static_cast<std::size_t>(size));
        std::ranges::generate(values, [&] { return between(-4 * range, 4 * range) / 4.0; });
        return values;
    }

    /// Different whole numbers in random order.
    [[nodiscard]] Sample untied(int size) {
        Sample values(static_cast<std::size_t>(size));
        double next = between(-50, 50);
        for (double& value : values) {
            value = next;
            next += between(1, 5);
        }
        std::ranges::shuffle(values, m_Engine);
        return values;
    }

    [[nodiscard]] std::vector<std::size_t> order(std::size_t size) {
        std::vector<std::size_t> positions(size);
        for (std::size_t position = 0; position < size; position += 1) {
            positions[position] = position;
        }
        std::ranges::shuffle(positions, m_Engine);
        return positions;
    }

 private:
    static std::uint32_t seed() {
        const char* given =
            std::getenv("TBVNONPARA_SEED");  // NOLINT(concurrency-mt-unsafe): read once, at start
        const std::uint32_t seed =
            given == nullptr ? std::random_device()() : static_cast<std::uint32_t>(std::stoul(given));
        std::cout << "TBVNONPARA_SEED=" << seed << '\n';
        return seed;
    }

    std::mt19937 m_Engine;
};

[[nodiscard]] inline Sample mapped(Sample values, double scale, double shift) {
    for (double& value : values) {
        value = value * scale + shift;
    }
    return values;
}

[[nodiscard]] inline Sample reordered(const Sample& values, const std::vector<std::size_t>& order) {
    Sample result;
    for (const std::size_t position : order) {
        result.push_back(values[position]);
    }
    return result;
}

/// One column per sample, the shorter ones ending in empty cells.
[[nodiscard]] inline ValueGrid gridOf(const Samples& samples) {
    std::size_t rows = 0;
    for (const Sample& sample : samples) {
        rows = std::max(rows, sample.size());
    }
    ValueGrid grid{Long(rows), Long(samples.size())};
    for (std::size_t column = 0; column < samples.size(); column += 1) {
        for (std::size_t row = 0; row < samples[column].size(); row += 1) {
            grid(row + 1, column + 1) = samples[column][row];
        }
    }
    return grid;
}

}  // namespace TBVNonPara
