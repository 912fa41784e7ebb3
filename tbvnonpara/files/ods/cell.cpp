#include "tbvnonpara/files/ods/cell.hpp"

#include <algorithm>
#include <array>

#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr std::size_t mostRepetitions = std::size_t(1) << 31U;

template <typename Value>
CellValue required(const std::optional<Value>& value, const OdsCell& cell) {
    if (!value) {
        constexpr std::size_t enough = 40;
        refuse(inQuotes(shortened(cell.value, enough)) + " is no value of the type " + cell.type);
    }
    return *value;
}

/// The text that stands for a formula's error is shown, but not named as one, by some programs.
std::optional<CellError> errorOf(const OdsCell& cell) {
    const std::string& shown = cell.text.text();
    if (cell.error) {
        return errorInFile(shown).value_or(CellError::Value);
    }
    return cell.formula ? errorInFile(shown) : std::nullopt;
}

/// A formula shows an error where its value is 0: the names of errors differ from language to language, and
/// programs that write no type for errors write 0 for them. A number format may show a # as well, but never
/// with a letter behind it in place of a number's digits.
bool showsError(const OdsCell& cell, const CellValue& value) {
    const auto* const number = std::get_if<double>(&value);
    const auto* const truth = std::get_if<bool>(&value);
    const bool nothing = (number != nullptr && *number == 0) || (truth != nullptr && !*truth);
    return cell.formula && nothing && looksLikeError(cell.text.text());
}

CellValue withoutType(const OdsCell& cell, SharedTexts& texts) {
    if (cell.formula && !cell.text.hasParagraph()) {
        return uncalculated;
    }
    // A formula whose result is an empty text has an empty paragraph.
    return cell.formula || !cell.text.text().empty() ? CellValue(texts.share(cell.text.text())) : CellValue();
}

/// What the type of a cell says.
CellValue typedValue(const OdsCell& cell, const DateSystem& dates, SharedTexts& texts) {
    if (cell.type == "float" || cell.type == "percentage" || cell.type == "currency") {
        return required(numberInFile(cell.value), cell);
    }
    if (cell.type == "string") {
        return texts.share(cell.hasString ? cell.value : cell.text.text());
    }
    if (cell.type == "date") {
        return required(serialOfDate(cell.value, dates), cell);
    }
    if (cell.type == "time") {
        return required(serialOfDuration(cell.value), cell);
    }
    if (cell.type == "boolean") {
        return required(truthInFile(cell.value), cell);
    }
    return withoutType(cell, texts);
}

}  // namespace

void OdsCell::read(const XmlAttributes& attributes) {
    type.clear();
    value.clear();
    text.clear();
    hasString = false;
    error = attributes.find(Vocabulary::CalcExtension, "value-type") == "error" ||
            attributes.find(Vocabulary::GnumericExtension, "error-value").has_value();
    formula = attributes.find(Vocabulary::Table, "formula").has_value();
    columns = repetitions(attributes.find(Vocabulary::Table, "number-columns-repeated").value_or("1"));
    if (const auto written = attributes.find(Vocabulary::Office, "value-type")) {
        type = *written;
    }
    for (const char* const attribute :
         {"value", "date-value", "time-value", "boolean-value", "string-value"}) {
        if (const auto written = attributes.find(Vocabulary::Office, attribute)) {
            value = *written;
            hasString = attribute == std::string_view("string-value");
        }
    }
}

CellValue meaningOf(const OdsCell& cell, const DateSystem& dates, SharedTexts& texts) {
    if (const auto error = errorOf(cell)) {
        return *error;
    }
    CellValue value = typedValue(cell, dates, texts);
    return showsError(cell, value) ? errorInFile(cell.text.text()).value_or(CellError::Value) : value;
}

std::size_t repetitions(std::string_view text) noexcept {
    return std::clamp<std::size_t>(countInFile(text).value_or(text.size() < 10 ? 1 : mostRepetitions), 1,
                                   mostRepetitions);
}

}  // namespace TBVNonPara::workbook
