#include "tbvnonpara/core/cell_value.hpp"

#include <algorithm>
#include <array>

#include "tbvnonpara/core/conversions.hpp"

namespace TBVNonPara {

namespace {

struct ErrorText {
    CellError error;
    std::string_view text;
};

constexpr auto errorTexts = std::to_array<ErrorText>({
    {CellError::Null, "#NULL!"},
    {CellError::DivisionByZero, "#DIV/0!"},
    {CellError::Value, "#VALUE!"},
    {CellError::Reference, "#REF!"},
    {CellError::Name, "#NAME?"},
    {CellError::Number, "#NUM!"},
    {CellError::NotAvailable, "#N/A"},
});

/// Those of newer spreadsheets, which nothing here comes to: they only pass through.
constexpr auto newerErrorTexts = std::to_array<ErrorText>({
    {CellError{2043}, "#GETTING_DATA"},
    {CellError{2045}, "#SPILL!"},
    {CellError{2046}, "#CONNECT!"},
    {CellError{2047}, "#BLOCKED!"},
    {CellError{2048}, "#UNKNOWN!"},
    {CellError{2049}, "#FIELD!"},
    {CellError{2050}, "#CALC!"},
});

}  // namespace

std::string_view displayText(CellError error) noexcept {
    const auto* const found = std::ranges::find(errorTexts, error, &ErrorText::error);
    if (found != errorTexts.end()) {
        return found->text;
    }
    const auto* const newer = std::ranges::find(newerErrorTexts, error, &ErrorText::error);
    return newer == newerErrorTexts.end() ? "#ERROR!" : newer->text;
}

std::optional<CellError> cellErrorNamed(std::string_view text) noexcept {
    const auto* const found = std::ranges::find(errorTexts, text, &ErrorText::text);
    return found == errorTexts.end() ? std::nullopt : std::optional(found->error);
}

CellError officeError(std::int32_t number) noexcept {
    switch (number) {
        case 503:
            return CellError::Number;
        case 521:
            return CellError::Null;
        case 524:
            return CellError::Reference;
        case 525:
            return CellError::Name;
        case 532:
            return CellError::DivisionByZero;
        case 32767:
            return CellError::NotAvailable;
        default:
            return CellError::Value;
    }
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
