#include "tbvnonpara/statistics/random.hpp"

#include <bit>
#include <limits>

namespace TBVNonPara::statistics {

RandomBits::RandomBits(std::uint64_t seed) noexcept {
    for (std::uint64_t& part : m_State) {
        seed += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = (seed ^ (seed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        part = mixed ^ (mixed >> 31U);
    }
}

std::uint64_t RandomBits::operator()() noexcept {
    const std::uint64_t bits = std::rotl(m_State[1] * 5, 7) * 9;
    const std::uint64_t shifted = m_State[1] << 17U;
    m_State[2] ^= m_State[0];
    m_State[3] ^= m_State[1];
    m_State[1] ^= m_State[2];
    m_State[0] ^= m_State[3];
    m_State[2] ^= shifted;
    m_State[3] = std::rotl(m_State[3], 45);
    return bits;
}

std::uint64_t RandomBits::below(std::uint64_t count) noexcept {
    // Numbers from the last whole multiple of `count` on would favour the small ones.
    const std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    const std::uint64_t last = most - (most % count + 1) % count;
    std::uint64_t drawn = (*this)();
    while (drawn > last) {
        drawn = (*this)();
    }
    return drawn % count;
}

}  // namespace TBVNonPara::statistics
