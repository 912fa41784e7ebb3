#include "tbvnonpara/reshaping/missing.hpp"

#include <algorithm>
#include <array>
#include <optional>

#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/reshaping/dates.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::reshaping {

namespace {

constexpr std::array<std::string_view, 5> usualWords = {"na", "n/a", "nan", "null", "#n/a"};

bool isMark(std::string_view text) noexcept {
    return text == "." || text == "-";
}

/// The text of a cell; for one that holds no text nothing, or "" where it holds no value.
std::optional<std::string_view> wordIn(const CellValue& value) {
    if (const auto* text = std::get_if<Text>(&value)) {
        return trimmed(text->string(), " \t");
    }
    const auto* error = std::get_if<CellError>(&value);
    const bool none = isEmpty(value) || (error != nullptr && *error == CellError::NotAvailable);
    return none ? std::optional(std::string_view()) : std::nullopt;
}

/// A cell as a number where it is one.
std::optional<double> numberIn(const CellValue& value, const std::optional<DateOrder>& dates) {
    if (const auto* number = std::get_if<double>(&value)) {
        return *number;
    }
    const auto* text = std::get_if<Text>(&value);
    if (text == nullptr) {
        return std::nullopt;
    }
    const auto number = readAsNumber(text->string());
    return number || !dates ? number : dateIn(text->string(), *dates);
}

/// The order of the dates of a column, as far as its cells are neither numbers nor missing.
std::optional<DateOrder> datesIn(const Column& column, const Missing& missing) {
    std::vector<CellValue> others;
    for (const CellValue& cell : column.cells) {
        if (!std::holds_alternative<double>(cell) && !numberIn(cell, {}) && !missing.amongNumbers(cell)) {
            if (!std::holds_alternative<Text>(cell)) {
                return std::nullopt;
            }
            others.push_back(cell);
        }
    }
    return orderOfDates(others);
}

DataCheckErrors faultOf(const CellValue& value) noexcept {
    if (std::holds_alternative<CellError>(value)) {
        return tbvNPErrorInData;
    }
    if (std::holds_alternative<bool>(value)) {
        return tbvNPBooleanInData;
    }
    return isEmpty(value) ? tbvNPBlankInData : tbvNPTextInData;
}

[[noreturn]] void refuseCell(const Column& column, std::size_t cell) {
    const CellValue& value = column.cells[cell];
    const auto* const text = std::get_if<Text>(&value);
    const bool date = text != nullptr && (dateIn(text->string(), DateOrder::DayFirst) ||
                                          dateIn(text->string(), DateOrder::MonthFirst));
    throw Refusal(faultOf(value), nameOfCell(column, cell) + " holds " + contentsOf(value) +
                                      (date ? ", a date whose day and month cannot be told apart, or that "
                                              "is written in another order than those above; write dates as "
                                              "2020-03-01."
                                            : "; every value of " + nameOf(column) + " must be a number."))
        .about(Reason::NotANumber, {nameOfCell(column, cell)});
}

/// Empties a cell that is missing, and counts it.
void takeOut(Column& column, std::size_t cell, MissingCells& missing) {
    CellValue& value = column.cells[cell];
    if (missing.count == 0) {
        missing.first = cell;
        missing.firstHeld = value;
    }
    missing.count += 1;
    missing.words += isEmpty(value) ? 0 : 1;
    value = Empty();
}

}  // namespace

bool soundsMissing(std::string_view text) {
    constexpr std::size_t longest = 4;
    return text.size() <= longest && std::ranges::find(usualWords, foldCase(text)) != usualWords.end();
}

Missing::Missing(const std::vector<std::string>& words) {
    for (const std::string& word : words) {
        m_Given.insert(foldCase(trimmed(word, " \t")));
    }
}

bool Missing::given(std::string_view text) const {
    return !m_Given.empty() && m_Given.contains(foldCase(text));
}

bool Missing::amongNumbers(const CellValue& value) const {
    if (const auto* number = std::get_if<double>(&value)) {
        return !m_Given.empty() && m_Given.contains(toText(*number));
    }
    const auto word = wordIn(value);
    return word && (word->empty() || soundsMissing(*word) || isMark(*word) || given(*word));
}

bool Missing::amongTexts(const CellValue& value) const {
    return amongNames(value) || soundsMissing(wordIn(value).value_or("x"));
}

bool Missing::amongNames(const CellValue& value) const {
    if (std::holds_alternative<double>(value)) {
        return amongNumbers(value);
    }
    const auto word = wordIn(value);
    return word && (word->empty() || given(*word));
}

MissingCells makeNumbers(Column& column, const Missing& missing) {
    const std::optional<DateOrder> dates = datesIn(column, missing);
    MissingCells found;
    for (std::size_t cell = 0; cell < column.cells.size(); ++cell) {
        CellValue& value = column.cells[cell];
        if (missing.amongNumbers(value)) {
            takeOut(column, cell, found);
        } else if (!std::holds_alternative<double>(value)) {
            const auto number = numberIn(value, dates);
            if (!number) {
                refuseCell(column, cell);
            }
            value = *number;
        }
    }
    return found;
}

bool holdsNumbers(const Column& column, const Missing& missing) {
    const std::optional<DateOrder> dates = datesIn(column, missing);
    bool any = false;
    for (const CellValue& cell : column.cells) {
        if (!missing.amongNumbers(cell)) {
            any = true;
            if (!numberIn(cell, dates)) {
                return false;
            }
        }
    }
    return any;
}

MissingCells emptyMissing(Column& column, const Missing& missing) {
    const bool numbers = holdsNumbers(column, missing);
    MissingCells found;
    for (std::size_t cell = 0; cell < column.cells.size(); ++cell) {
        CellValue& value = column.cells[cell];
        if (numbers ? missing.amongNumbers(value) : missing.amongTexts(value)) {
            takeOut(column, cell, found);
        }
    }
    return found;
}

void emptyMissingCodes(Column& column, const Missing& missing) {
    bool codes = false;
    bool gaps = false;
    for (const CellValue& cell : column.cells) {
        if (std::holds_alternative<bool>(cell) || numberIn(cell, {})) {
            codes = true;
        } else if (missing.amongNumbers(cell)) {
            gaps = true;
        } else {
            return;
        }
    }
    if (codes && gaps) {
        const auto isGap = [&](const CellValue& cell) { return missing.amongNumbers(cell); };
        std::ranges::replace_if(column.cells, isGap, CellValue());
    }
}

void refuseMissing(const Column& column, const MissingCells& missing) {
    const CellValue& held = missing.firstHeld;
    throw Refusal(faultOf(held),
                  nameOf(column) + " lacks " + counted(missing.count, "value", "values") + " of " +
                      std::to_string(column.cells.size()) + ", the first where " +
                      nameOfCell(column, missing.first) +
                      (isEmpty(held) ? " is blank." : " holds " + contentsOf(held) + '.'),
                  Remedy::OmitMissing)
        .about(Reason::ValuesMissing,
               {nameOf(column), std::to_string(missing.count), std::to_string(column.cells.size()),
                nameOfCell(column, missing.first)});
}

}  // namespace TBVNonPara::reshaping
