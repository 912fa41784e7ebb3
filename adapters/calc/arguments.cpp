#include "adapters/calc/arguments.hpp"

#include <algorithm>
#include <com/sun/star/bridge/oleautomation/NamedArgument.hpp>
#include <com/sun/star/sheet/XCellAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
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

bool isRange(const Any& value) {
    const Reference<css::uno::XInterface> object(value, css::uno::UNO_QUERY);
    return queryIfAny<css::sheet::XCellRangeAddressable>(object).is() ||
           queryIfAny<css::sheet::XCellAddressable>(object).is() ||
           queryIfAny<css::sheet::XSheetCellRanges>(object).is();
}

}  // namespace

double toNumber(const Any& value) {
    const std::optional<double> number = numberIn(value);
    if (!number) {
        raise(RuntimeError::TypeMismatch);
    }
    return *number;
}

OUString toOfficeText(const Any& value) {
    OUString text;
    if (!(value >>= text)) {
        raise(RuntimeError::TypeMismatch);
    }
    return text;
}

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

Any argument(const css::uno::Sequence<Any>& arguments, std::size_t place,
             std::span<const char* const> names) {
    Any found;
    for (sal_Int32 position = 0; position < arguments.getLength(); ++position) {
        css::bridge::oleautomation::NamedArgument byName;
        if (!(arguments[position] >>= byName)) {
            found = position == static_cast<sal_Int32>(place) ? arguments[position] : found;
            continue;
        }
        const auto isIt = [&](const char* name) { return byName.Name.equalsIgnoreAsciiCaseAscii(name); };
        if (std::ranges::none_of(names, isIt)) {
            raise(RuntimeError::InvalidProcedureCall);
        }
        found = isIt(names[place]) ? byName.Value : found;
    }
    return found;
}

OUString toAddress(const Any& value) {
    OUString text;
    if (value >>= text) {
        return text;
    }
    if (isRange(value)) {
        throw Error(static_cast<std::int32_t>(RuntimeError::TypeMismatch),
                    "A range was given where its address is expected; pass its AbsoluteName, for example "
                    "request.YRange = range.AbsoluteName.");
    }
    raise(RuntimeError::TypeMismatch);
}

}  // namespace TBVNonPara::calc
