#pragma once

#include <span>
#include <string_view>
#include <utility>

#include "adapters/com/com_ptr.hpp"
#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::com {

/// A value on its way to or from automation; owns what it holds.
class Variant {
 public:
    Variant() noexcept { VariantInit(&m_Value); }
    explicit Variant(double number) noexcept : Variant() { set(VT_R8).dblVal = number; }
    explicit Variant(std::int32_t number) noexcept : Variant() { set(VT_I4).lVal = number; }
    explicit Variant(bool truth) noexcept : Variant() {
        set(VT_BOOL).boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit Variant(std::string_view text);
    explicit Variant(ComPtr<IDispatch> object) noexcept : Variant() {
        set(VT_DISPATCH).pdispVal = object.release();
    }

    Variant(Variant&& other) noexcept : Variant() { std::swap(m_Value, other.m_Value); }
    Variant& operator=(Variant&& other) noexcept {
        std::swap(m_Value, other.m_Value);
        return *this;
    }
    ~Variant() { VariantClear(&m_Value); }

    [[nodiscard]] static Variant error(SCODE code) noexcept {
        Variant value;
        value.set(VT_ERROR).scode = code;
        return value;
    }
    /// The value of an argument that is left out.
    [[nodiscard]] static Variant missing() noexcept { return error(DISP_E_PARAMNOTFOUND); }

    [[nodiscard]] const VARIANT& get() const noexcept { return m_Value; }
    /// Gives the value away.
    [[nodiscard]] VARIANT release() noexcept { return std::exchange(m_Value, VARIANT{}); }
    /// Where a function puts a value; what was held is freed first.
    [[nodiscard]] VARIANT* out() noexcept {
        VariantClear(&m_Value);
        return &m_Value;
    }

 private:
    VARIANT& set(VARTYPE type) noexcept {
        m_Value.vt = type;
        return m_Value;
    }

    VARIANT m_Value{};
};

/// The text as it must be entered for a cell to hold it: with a leading apostrophe unless it is plainly
/// words.
[[nodiscard]] std::string asEntered(const std::string& text);

/// Whether texts travel as cells hold them or as they must be entered.
enum class Texts { AsHeld, AsEntered };

/// One cell.
[[nodiscard]] Variant toVariant(const CellValue& value, Texts texts);
/// A list counted from 1.
[[nodiscard]] Variant toVariant(std::span<const CellValue> values, Texts texts);
/// A two-dimensional array counted from 1, rows then columns.
[[nodiscard]] Variant toVariant(const ValueGrid& values, Texts texts);

/// Whether a value, or an element of an array, is an amount of money: automation carries those with four
/// decimals.
[[nodiscard]] bool holdsAmount(const VARIANT& value);

/// One cell as it was read: dates and amounts are numbers, a text is a text even when it is empty. Raises
/// TypeMismatch for what no cell holds.
[[nodiscard]] CellValue fromVariant(const VARIANT& value);
/// A range's values as they were read: a two-dimensional array, or the value of a single cell.
[[nodiscard]] ValueGrid gridFromVariant(const VARIANT& value);

}  // namespace TBVNonPara::com
