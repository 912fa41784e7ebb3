#include "cli/json_values.hpp"

#include <cmath>

#include "cli/numbers.hpp"

namespace TBVNonPara::cli {

namespace {

using Json = nlohmann::ordered_json;

std::string ofScalar(const Json& value) {
    if (value.is_number_float()) {
        const auto number = value.get<double>();
        return std::isfinite(number) ? shortest(number) : "null";
    }
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace

Json jsonOf(const CellValue& value) {
    if (isEmpty(value)) {
        return nullptr;
    }
    if (const auto* number = std::get_if<double>(&value)) {
        return *number;
    }
    if (const auto* truth = std::get_if<bool>(&value)) {
        return *truth;
    }
    return toText(value);
}

void appendJson(const Json& value, std::string& text) {
    if (!value.is_structured()) {
        text += ofScalar(value);
        return;
    }
    text += value.is_array() ? '[' : '{';
    bool first = true;
    for (const auto& [name, element] : value.items()) {
        text += first ? "" : ", ";
        first = false;
        if (value.is_object()) {
            text += ofScalar(name) + ": ";
        }
        appendJson(element, text);
    }
    text += value.is_array() ? ']' : '}';
}

}  // namespace TBVNonPara::cli
