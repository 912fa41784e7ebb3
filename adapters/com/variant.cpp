#include "adapters/com/variant.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <string>

#include "adapters/com/errors.hpp"
#include "adapters/com/text.hpp"

namespace TBVNonPara::com {

namespace {

constexpr std::int32_t cellErrors = static_cast<std::int32_t>(0x800A0000);

/// The elements of an array, locked while they are used.
class LockedElements {
 public:
    explicit LockedElements(SAFEARRAY* array) : m_Array(array) {
        check(SafeArrayAccessData(array, reinterpret_cast<void**>(&m_Elements)));
    }
    LockedElements(const LockedElements&) = delete;
    LockedElements& operator=(const LockedElements&) = delete;
    ~LockedElements() { SafeArrayUnaccessData(m_Array); }

    [[nodiscard]] VARIANT& operator[](std::size_t position) const { return m_Elements[position]; }

 private:
    SAFEARRAY* m_Array;
    VARIANT* m_Elements = nullptr;
};

Variant newArray(std::span<SAFEARRAYBOUND> bounds) {
    SAFEARRAY* array = SafeArrayCreate(VT_VARIANT, static_cast<UINT>(bounds.size()), bounds.data());
    if (array == nullptr) {
        raise(RuntimeError::OutOfMemory);
    }
    Variant value;
    VARIANT& raw = *value.out();
    raw.vt = VT_ARRAY | VT_VARIANT;
    raw.parray = array;
    return value;
}

ULONG count(Long number) {
    return static_cast<ULONG>(number.value());
}

bool isLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

bool isPlainWords(const std::string& text) {
    const auto staysAsItIs = [](char character) {
        return isLetter(character) || character == ' ' || character == ':' || character == '.';
    };
    return !text.empty() && isLetter(text.front()) && std::ranges::all_of(text, staysAsItIs);
}

bool isTruthWord(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](char character) { return static_cast<char>(character & ~0x20); });
    return text == "TRUE" || text == "FALSE";
}

CellValue fromError(SCODE code) {
    // An omitted value is an empty cell.
    if (code == DISP_E_PARAMNOTFOUND) {
        return Empty{};
    }
    return static_cast<CellError>(code - cellErrors);
}

double convertedToNumber(const VARIANT& value) {
    Variant number;
    VARIANT source = value;
    check(VariantChangeType(number.out(), &source, 0, VT_R8));
    return number.get().dblVal;
}

std::size_t extent(SAFEARRAY* array, UINT dimension) {
    LONG first = 0;
    LONG last = 0;
    check(SafeArrayGetLBound(array, dimension, &first));
    check(SafeArrayGetUBound(array, dimension, &last));
    return static_cast<std::size_t>(std::int64_t{last} - first + 1);
}

void requireTable(SAFEARRAY* array) {
    VARTYPE type = VT_EMPTY;
    check(SafeArrayGetVartype(array, &type));
    if (type != VT_VARIANT || SafeArrayGetDim(array) != 2) {
        raise(RuntimeError::TypeMismatch);
    }
}

bool tableHoldsAmount(SAFEARRAY* array) {
    requireTable(array);
    const std::size_t cells = extent(array, 1) * extent(array, 2);
    const LockedElements elements(array);
    for (std::size_t position = 0; position < cells; ++position) {
        if (elements[position].vt == VT_CY) {
            return true;
        }
    }
    return false;
}

ValueGrid fromArray(SAFEARRAY* array) {
    requireTable(array);
    const Long rows(extent(array, 1));
    const Long columns(extent(array, 2));
    ValueGrid grid(rows, columns);
    const LockedElements elements(array);
    std::size_t position = 0;
    // Both keep a column together.
    for (Long column = 1; column <= columns; ++column) {
        for (CellValue& cell : grid.column(column)) {
            cell = fromVariant(elements[position]);
            position += 1;
        }
    }
    return grid;
}

}  // namespace

Variant::Variant(std::string_view text) : Variant() {
    m_Value.bstrVal = toBstr(text);
    m_Value.vt = VT_BSTR;
}

std::string asEntered(const std::string& text) {
    return isPlainWords(text) && !isTruthWord(text) ? text : "'" + text;
}

Variant toVariant(const CellValue& value, Texts texts) {
    struct Conversion {
        Texts texts;

        Variant operator()(Empty) const { return Variant(); }
        Variant operator()(double number) const { return Variant(number); }
        Variant operator()(const Text& text) const {
            return Variant(texts == Texts::AsHeld ? text.string() : asEntered(text.string()));
        }
        Variant operator()(bool truth) const { return Variant(truth); }
        Variant operator()(CellError error) const {
            return Variant::error(cellErrors + static_cast<std::int32_t>(error));
        }
    };
    return std::visit(Conversion{texts}, value);
}

Variant toVariant(std::span<const CellValue> values, Texts texts) {
    std::array<SAFEARRAYBOUND, 1> bounds{{{count(Long(values.size())), 1}}};
    Variant result = newArray(bounds);
    const LockedElements elements(result.get().parray);
    for (std::size_t k = 0; k < values.size(); ++k) {
        elements[k] = toVariant(values[k], texts).release();
    }
    return result;
}

Variant toVariant(const ValueGrid& values, Texts texts) {
    std::array<SAFEARRAYBOUND, 2> bounds{{{count(values.rows()), 1}, {count(values.columns()), 1}}};
    Variant result = newArray(bounds);
    const LockedElements elements(result.get().parray);
    std::size_t position = 0;
    for (Long column = 1; column <= values.columns(); ++column) {
        for (const CellValue& cell : values.column(column)) {
            elements[position] = toVariant(cell, texts).release();
            position += 1;
        }
    }
    return result;
}

CellValue fromVariant(const VARIANT& value) {
    switch (value.vt) {
        case VT_EMPTY:
        case VT_NULL:
            return Empty{};
        case VT_R8:
            return value.dblVal;
        case VT_BSTR:
            return Text(toUtf8(value.bstrVal));
        case VT_BOOL:
            return value.boolVal != VARIANT_FALSE;
        case VT_ERROR:
            return fromError(value.scode);
        case VT_BYREF | VT_VARIANT:
            return fromVariant(*value.pvarVal);
        case VT_DISPATCH:
        case VT_UNKNOWN:
            raise(RuntimeError::TypeMismatch);
        default:
            return convertedToNumber(value);
    }
}

bool holdsAmount(const VARIANT& value) {
    switch (value.vt) {
        case VT_ARRAY | VT_VARIANT:
            return tableHoldsAmount(value.parray);
        case VT_ARRAY | VT_VARIANT | VT_BYREF:
            return tableHoldsAmount(*value.pparray);
        case VT_BYREF | VT_VARIANT:
            return holdsAmount(*value.pvarVal);
        default:
            return value.vt == VT_CY;
    }
}

ValueGrid gridFromVariant(const VARIANT& value) {
    switch (value.vt) {
        case VT_ARRAY | VT_VARIANT:
            return fromArray(value.parray);
        case VT_ARRAY | VT_VARIANT | VT_BYREF:
            return fromArray(*value.pparray);
        case VT_BYREF | VT_VARIANT:
            return gridFromVariant(*value.pvarVal);
        default:
            return ValueGrid(1, 1, fromVariant(value));
    }
}

}  // namespace TBVNonPara::com
