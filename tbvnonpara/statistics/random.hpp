#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <utility>

namespace TBVNonPara::statistics {

/// Random bits by xoshiro256** (Blackman and Vigna 2021), whose state comes from the seed by SplitMix64
/// (Steele, Lea and Flood 2014): the same ones on every machine.
class RandomBits {
 public:
    explicit RandomBits(std::uint64_t seed) noexcept;
    explicit RandomBits(const std::array<std::uint64_t, 4>& state) noexcept : m_State(state) {}

    std::uint64_t operator()() noexcept;
    /// A number from 0 to `count` - 1, each as likely as another; `count` is not 0.
    std::uint64_t below(std::uint64_t count) noexcept;

 private:
    std::array<std::uint64_t, 4> m_State{};
};

/// Puts the values into a random order (Durstenfeld 1964).
template <typename Value>
void shuffle(std::span<Value> values, RandomBits& random) noexcept {
    for (std::size_t left = values.size(); left > 1; --left) {
        std::swap(values[left - 1], values[static_cast<std::size_t>(random.below(left))]);
    }
}

}  // namespace TBVNonPara::statistics
