#include "tbvnonpara/reshaping/conditions.hpp"

#include <algorithm>
#include <array>
#include <compare>
#include <unordered_set>
#include <utility>

#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/reshaping/dates.hpp"
#include "tbvnonpara/reshaping/list.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::reshaping {

namespace {

struct Sign {
    std::string_view text;
    Comparison comparison;
};

/// Longer ones first, so that none is taken for the beginning of another.
constexpr std::array<Sign, 8> signs = {{{" in ", Comparison::In},
                                        {"!=", Comparison::NotEqual},
                                        {"<>", Comparison::NotEqual},
                                        {"<=", Comparison::LessOrEqual},
                                        {">=", Comparison::GreaterOrEqual},
                                        {"<", Comparison::Less},
                                        {">", Comparison::Greater},
                                        {"=", Comparison::Equal}}};

const Sign* signAt(std::string_view text) noexcept {
    const auto* const found =
        std::ranges::find_if(signs, [&](const Sign& sign) { return text.starts_with(sign.text); });
    return found == signs.end() ? nullptr : found;
}

std::optional<double> dateOf(std::string_view text) noexcept {
    return dateIn(text, DateOrder::YearFirst);
}

/// A value of a condition, read once.
struct Operand {
    explicit Operand(std::string written)
        : text(std::move(written)), number(readAsNumber(text)), date(number ? std::nullopt : dateOf(text)) {}

    [[nodiscard]] bool hasOrder() const noexcept { return number || date; }

    std::string text;
    std::optional<double> number;
    std::optional<double> date;
};

std::partial_ordering ordering(double cell, const std::optional<double>& value) noexcept {
    return value ? cell <=> *value : std::partial_ordering::unordered;
}

/// A cell against a value; unordered where they are of two kinds.
std::partial_ordering compare(const CellValue& cell, const Operand& value) {
    if (const auto* number = std::get_if<double>(&cell)) {
        return ordering(*number, value.number ? value.number : value.date);
    }
    const auto* const text = std::get_if<Text>(&cell);
    if (text == nullptr) {
        return equalIgnoringCase(toText(cell), value.text) ? std::partial_ordering::equivalent
                                                           : std::partial_ordering::unordered;
    }
    const std::string_view word = trimmed(text->string());
    if (word == value.text) {
        return std::partial_ordering::equivalent;
    }
    if (value.number) {
        const auto number = readAsNumber(word);
        return number ? ordering(*number, value.number) : std::partial_ordering::unordered;
    }
    const auto date = value.date ? dateOf(word) : std::nullopt;
    return date ? ordering(*date, value.date) : std::partial_ordering::unordered;
}

bool asks(Comparison comparison, std::partial_ordering order) noexcept {
    switch (comparison) {
        case Comparison::Less:
            return order < 0;
        case Comparison::LessOrEqual:
            return order <= 0;
        case Comparison::Greater:
            return order > 0;
        case Comparison::GreaterOrEqual:
            return order >= 0;
        case Comparison::Equal:
        case Comparison::NotEqual:
        case Comparison::In:
            break;
    }
    return order == 0;
}

constexpr bool isOrder(Comparison comparison) noexcept {
    return comparison != Comparison::Equal && comparison != Comparison::NotEqual &&
           comparison != Comparison::In;
}

[[noreturn]] void refuseCondition(const std::string& description) {
    throw Refusal(tbvNPTextInData, description);
}

bool hasDecimalComma(std::string_view text) {
    std::string pointed(text);
    std::ranges::replace(pointed, ',', '.');
    return pointed != text && readAsNumber(pointed).has_value();
}

void requireOrder(const WrittenCondition& condition, const Column& column, std::size_t cell) {
    const auto* const text = std::get_if<Text>(&column.cells[cell]);
    if (text != nullptr && !readAsNumber(text->string()) && !dateOf(text->string())) {
        refuseCondition("The condition " + inQuotes(condition.text) + " asks for an order, but " +
                        nameOfCell(column, cell) + " holds " + contentsOf(column.cells[cell]) +
                        "; compare texts with = or !=, or leave such rows out first.");
    }
}

bool holds(const WrittenCondition& condition, const std::vector<Operand>& values, const CellValue& cell) {
    const bool met = std::ranges::any_of(
        values, [&](const Operand& v) { return asks(condition.comparison, compare(cell, v)); });
    return condition.comparison == Comparison::NotEqual ? !met : met;
}

}  // namespace

WrittenCondition readCondition(std::string_view text, const KnownColumns& columns) {
    bool compares = false;
    for (std::size_t i = 1; i < text.size(); ++i) {
        const Sign* const sign = signAt(text.substr(i));
        if (sign == nullptr) {
            continue;
        }
        compares = true;
        const std::string column = withoutQuotes(text.substr(0, i));
        if (columns.has(column)) {
            const std::string_view values = text.substr(i + sign->text.size());
            return {std::string(text), column, sign->comparison,
                    sign->comparison == Comparison::In ? listed(values)
                                                       : std::vector<std::string>{withoutQuotes(values)}};
        }
    }
    refuseCondition("The condition " + inQuotes(text) +
                    (compares ? " begins with no column of the table. " + columns.list()
                              : " compares nothing; write a column, one of = != < <= > >= or in, and a "
                                "value, for example feed = casein."));
}

std::vector<bool> fulfilling(const WrittenCondition& condition, const Column& column,
                             const Missing& missing) {
    const std::vector<Operand> values(condition.values.begin(), condition.values.end());
    const bool ordered = isOrder(condition.comparison);
    if (ordered && !values.front().hasOrder()) {
        refuseCondition("The condition " + inQuotes(condition.text) + " asks for an order, but " +
                        inQuotes(values.front().text) +
                        " is neither a number nor a date such as 2020-03-01; " +
                        (hasDecimalComma(values.front().text) ? "write decimals with a point."
                                                              : "compare texts with = or !=."));
    }
    const bool numbers = holdsNumbers(column, missing);
    const bool blanksWanted = condition.comparison != Comparison::NotEqual &&
                              std::ranges::any_of(values, [](const Operand& v) { return v.text.empty(); });
    std::vector<bool> fulfilled;
    fulfilled.reserve(column.cells.size());
    for (std::size_t cell = 0; cell < column.cells.size(); ++cell) {
        const CellValue& value = column.cells[cell];
        if (numbers ? missing.amongNumbers(value) : missing.amongNames(value)) {
            fulfilled.push_back(blanksWanted);
            continue;
        }
        if (ordered) {
            requireOrder(condition, column, cell);
        }
        fulfilled.push_back(holds(condition, values, value));
    }
    return fulfilled;
}

std::string valuesOf(const Column& column) {
    constexpr std::size_t most = 12;
    std::unordered_set<std::string> seen;
    std::string list;
    for (const CellValue& cell : column.cells) {
        const std::string value = isEmpty(cell) ? "blanks" : toText(cell);
        if (seen.contains(value)) {
            continue;
        }
        if (seen.size() == most) {
            return list + ", ...";
        }
        list += (list.empty() ? "" : ", ") + shortened(value, 40);
        seen.insert(value);
    }
    return list;
}

}  // namespace TBVNonPara::reshaping
