#include "tbvnonpara/core/cell_value.hpp"

#include "tbvnonpara/core/conversions.hpp"

namespace TBVNonPara {

std::string_view displayText(CellError error) noexcept {
    switch (error) {
        case CellError::Null:
            return "#NULL!";
        case CellError::DivisionByZero:
            return "#DIV/0!";
        case CellError::Value:
            return "#VALUE!";
        case CellError::Reference:
            return "#REF!";
        case CellError::Name:
            return "#NAME?";
        case CellError::Number:
            return "#NUM!";
        case CellError::NotAvailable:
            return "#N/A";
    }
    return "#ERROR!";
}

double readAsDouble(const CellValue& value) {
    if (isEmpty(value)) {
        return 0;
    }
    if (const auto* truth = std::get_if<bool>(&value)) {
        return *truth ? -1 : 0;
    }
    if (const auto* text = std::get_if<Text>(&value)) {
        if (const auto number = readAsNumber(text->string())) {
            return *number;
        }
    }
    raise(RuntimeError::TypeMismatch);
}

std::string toText(const CellValue& value) {
    if (const auto* number = std::get_if<double>(&value)) {
        return toText(*number);
    }
    if (const auto* text = std::get_if<Text>(&value)) {
        return text->string();
    }
    if (const auto* truth = std::get_if<bool>(&value)) {
        return *truth ? "True" : "False";
    }
    if (const auto* error = std::get_if<CellError>(&value)) {
        return std::string(displayText(*error));
    }
    return {};
}

}  // namespace TBVNonPara
