#include "tests/adapters/com/recording.hpp"

#include <vector>

#include "adapters/com/text.hpp"
#include "adapters/com/variant.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tests/adapters/com/peer_object.hpp"

namespace TBVNonPara::Peer {

namespace {

std::ostream* statements = nullptr;

std::string objectName(long number) {
    return "o(" + std::to_string(number) + ")";
}

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char character : text) {
        result += character;
        if (character == '"') {
            result += character;
        }
    }
    return result + '"';
}

std::string literal(const CellValue& value) {
    if (const auto* text = std::get_if<Text>(&value)) {
        return quoted(text->string());
    }
    if (const auto* number = std::get_if<double>(&value)) {
        char digits[32];
        std::snprintf(digits, sizeof digits, "%.17g", *number);
        return digits;
    }
    return isEmpty(value) ? "Empty" : toText(value);
}

/// Fills the macro's array and names it.
std::string filledArray(const ValueGrid& grid) {
    *statements << "ReDim g(1 To " << grid.rows().value() << ", 1 To " << grid.columns().value() << ")\n";
    for (Long row = 1; row <= grid.rows(); ++row) {
        for (Long column = 1; column <= grid.columns(); ++column) {
            *statements << "g(" << row.value() << ", " << column.value()
                        << ") = " << literal(grid(row, column)) << '\n';
        }
    }
    return "g";
}

std::string filledList(SAFEARRAY& array) {
    LONG first = 0;
    LONG last = 0;
    SafeArrayGetLBound(&array, 1, &first);
    SafeArrayGetUBound(&array, 1, &last);
    *statements << "ReDim l(1 To " << last - first + 1 << ")\n";
    for (LONG k = first; k <= last; ++k) {
        com::Variant element;
        SafeArrayGetElement(&array, &k, element.out());
        *statements << "l(" << k - first + 1 << ") = " << literal(com::fromVariant(element.get())) << '\n';
    }
    return "l";
}

std::string argumentText(const VARIANT& value) {
    if (value.vt == VT_DISPATCH) {
        return objectName(serialOf(value.pdispVal));
    }
    if (value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND) {
        return "";
    }
    if ((value.vt & VT_ARRAY) == 0) {
        return literal(com::fromVariant(value));
    }
    return SafeArrayGetDim(value.parray) == 1 ? filledList(*value.parray)
                                              : filledArray(com::gridFromVariant(value));
}

std::string argumentTexts(const DISPPARAMS& parameters) {
    std::string result;
    for (UINT k = parameters.cArgs; k > 0; --k) {
        result += (k == parameters.cArgs ? "" : ", ") + argumentText(parameters.rgvarg[k - 1]);
    }
    return result;
}

/// A statement that reports itself when it fails.
void write(const std::string& statement) {
    *statements << statement << "\nSaid " << quoted(statement) << '\n';
}

void writeRead(const std::string& call, const VARIANT& result) {
    if (result.vt == VT_DISPATCH) {
        write("Set " + objectName(serialOf(result.pdispVal)) + " = " + call);
    } else if ((result.vt & VT_ARRAY) != 0) {
        write("a = " + call);
    } else {
        write("a = " + call);
        *statements << "Wants a, " << literal(com::fromVariant(result)) << ", " << quoted(call) << '\n';
    }
}

}  // namespace

void recordCalls(std::ostream* to) {
    statements = to;
}

void recordCall(long self, const std::wstring& member, bool isPut, const DISPPARAMS& parameters,
                const VARIANT* result) {
    if (statements == nullptr) {
        return;
    }
    const std::string target = objectName(self) + "." + com::toUtf8(member);
    const std::string given = argumentTexts(parameters);
    if (isPut) {
        write(target + " = " + given);
    } else if (result == nullptr || result->vt == VT_EMPTY) {
        write(target + (given.empty() ? "" : " " + given));
    } else {
        writeRead(target + (given.empty() ? "" : "(" + given + ")"), *result);
    }
}

}  // namespace TBVNonPara::Peer
