#include "adapters/calc/arguments.hpp"

#include <optional>

#include "tbvnonpara/core/conversions.hpp"

namespace TBVNonPara::calc {

namespace {

using css::uno::Any;

std::optional<double> numberIn(const Any& value) {
    double number = 0;
    sal_Int64 whole = 0;
    OUString text;
    bool truth = false;
    if (value >>= truth) {
        return truth ? -1 : 0;
    }
    if (value >>= whole) {
        return static_cast<double>(whole);
    }
    if (value >>= number) {
        return number;
    }
    return (value >>= text) ? readAsNumber(toUtf8(text)) : std::nullopt;
}

double toNumber(const Any& value) {
    const std::optional<double> number = numberIn(value);
    if (!number) {
        raise(RuntimeError::TypeMismatch);
    }
    return *number;
}

}  // namespace

std::int32_t toWholeNumber(const Any& value) {
    return roundHalfToEven(toNumber(value)).value();
}

bool toBoolean(const Any& value) {
    OUString text;
    if (value >>= text) {
        if (text.equalsIgnoreAsciiCase("true") || text.equalsIgnoreAsciiCase("false")) {
            return text.equalsIgnoreAsciiCase("true");
        }
    }
    return toNumber(value) != 0;
}

OUString toAddress(const Any& value) {
    OUString text;
    if (!(value >>= text)) {
        raise(RuntimeError::TypeMismatch);
    }
    return text;
}

}  // namespace TBVNonPara::calc
