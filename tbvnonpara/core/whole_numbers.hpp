#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara {

/// A subscript as it is written: counted from 1, may be out of bounds until it is checked.
using Index = std::ptrdiff_t;

/// A signed whole number of a fixed width that raises Overflow instead of wrapping.
/// It never turns into another number by itself: see toDouble and toIndex.
template <std::signed_integral Width>
class Whole {
 public:
    /// 0.
    constexpr Whole() noexcept = default;

    /// A number of another type; raises Overflow where this one cannot hold it. A truth is no number, also
    /// where an alternative of several types is looked for.
    template <std::integral Other>
    requires(!std::same_as<Other, bool>) constexpr Whole(Other value) : m_Value(narrow(value)) {}

    /// The number as a plain one.
    [[nodiscard]] constexpr Width value() const noexcept { return m_Value; }

    /// Raises Overflow.
    constexpr Whole& operator+=(Whole other) { return *this = *this + other; }
    /// Raises Overflow.
    constexpr Whole& operator-=(Whole other) { return *this = *this - other; }
    /// Raises Overflow.
    constexpr Whole& operator*=(Whole other) { return *this = *this * other; }
    /// Raises Overflow.
    constexpr Whole& operator++() { return *this += Whole(1); }

    /// The sum; raises Overflow.
    friend constexpr Whole operator+(Whole a, Whole b) { return Whole(wide(a) + wide(b)); }
    /// The difference; raises Overflow.
    friend constexpr Whole operator-(Whole a, Whole b) { return Whole(wide(a) - wide(b)); }
    /// The product; raises Overflow.
    friend constexpr Whole operator*(Whole a, Whole b) { return Whole(wide(a) * wide(b)); }
    /// By value.
    friend constexpr auto operator<=>(Whole a, Whole b) noexcept = default;

 private:
    template <std::integral Other>
    static constexpr Width narrow(Other value) {
        if (!std::in_range<Width>(value)) {
            raise(RuntimeError::Overflow);
        }
        return static_cast<Width>(value);
    }

    static constexpr std::int64_t wide(Whole number) noexcept { return number.m_Value; }

    Width m_Value = 0;
};

/// Counts and rows: 32 bits.
using Long = Whole<std::int32_t>;

/// Widths of a report: 16 bits.
using Integer = Whole<std::int16_t>;

/// The number as a double, which is exact.
template <std::signed_integral Width>
[[nodiscard]] constexpr double toDouble(Whole<Width> number) noexcept {
    return static_cast<double>(number.value());
}

/// The number as a subscript.
template <std::signed_integral Width>
[[nodiscard]] constexpr Index toIndex(Whole<Width> number) noexcept {
    return number.value();
}

/// A plain number or an enumerator as a subscript.
template <typename Subscript>
requires std::integral<Subscript> || std::is_enum_v<Subscript>
[[nodiscard]] constexpr Index toIndex(Subscript subscript) noexcept {
    return static_cast<Index>(subscript);
}

}  // namespace TBVNonPara
