#include <algorithm>
#include <charconv>

#include "adapters/calc/functions/function_results.hpp"
#include "tbvnonpara/core/words.hpp"

namespace TBVNonPara::calc {

namespace {

using statistics::Figure;
using statistics::FigureBlock;
using statistics::FigureList;

bool sameName(std::string_view a, std::string_view b) {
    const auto lower = [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? letter - 'A' + 'a' : letter;
    };
    return std::ranges::equal(a, b, {}, lower, lower);
}

/// A part of a figure by its name, or by its place counted from 1; null without one.
const Figure* partOf(const Figure& figure, std::string_view name) {
    if (const auto* block = std::get_if<FigureBlock>(&figure.value)) {
        const auto found =
            std::ranges::find_if(*block, [&](const auto& member) { return sameName(member.name, name); });
        return found == block->end() ? nullptr : &found->figure;
    }
    const auto* list = std::get_if<FigureList>(&figure.value);
    std::size_t place = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), place);
    const bool isPlace = error == std::errc() && end == name.data() + name.size();
    return list != nullptr && isPlace && place >= 1 && place <= list->size() ? &(*list)[place - 1] : nullptr;
}

/// The figure of a dotted name. What does not exist has no parts: a name that goes on behind it stands for
/// it.
const Figure* figureAt(const Figure& all, std::string_view name) {
    const Figure* figure = &all;
    while (figure != nullptr && !name.empty() && !std::holds_alternative<std::monostate>(figure->value)) {
        const std::size_t dot = std::min(name.find('.'), name.size());
        figure = partOf(*figure, name.substr(0, dot));
        name.remove_prefix(std::min(dot + 1, name.size()));
    }
    return figure;
}

CellValue valueOf(const Figure& figure) {
    if (const auto* number = std::get_if<double>(&figure.value)) {
        return *number;
    }
    if (const auto* whole = std::get_if<std::int64_t>(&figure.value)) {
        return static_cast<double>(*whole);
    }
    if (const auto* text = std::get_if<std::string>(&figure.value)) {
        return Text(*text);
    }
    if (std::holds_alternative<std::monostate>(figure.value)) {
        throw NotComputable{CellError::NotAvailable};
    }
    const Figure* const value = partOf(figure, "value");
    if (value == nullptr) {
        throw NotComputable{CellError::Value};
    }
    return valueOf(*value);
}

void addRows(const Figure& figure, const std::string& name, std::vector<FigureRow>& rows) {
    const std::string before = name.empty() ? "" : name + '.';
    if (const auto* block = std::get_if<FigureBlock>(&figure.value)) {
        for (const auto& [member, part] : *block) {
            addRows(part, before + member, rows);
        }
    } else if (const auto* list = std::get_if<FigureList>(&figure.value)) {
        for (std::size_t i = 0; i < list->size(); ++i) {
            addRows((*list)[i], before + std::to_string(i + 1), rows);
        }
    } else if (!std::holds_alternative<std::monostate>(figure.value)) {
        rows.push_back({name, valueOf(figure)});
    }
}

}  // namespace

CellValue figureNamed(const TestFigures& figures, std::string_view name) {
    const Figure* figure = name.empty() ? nullptr : figureAt(figures.report, name);
    if (figure == nullptr) {
        figure = name.empty() ? nullptr : figureAt(figures.details, name);
    }
    if (figure == nullptr) {
        throw NotComputable{CellError::Value};
    }
    return valueOf(*figure);
}

std::vector<FigureRow> figureTable(const TestFigures& figures) {
    std::vector<FigureRow> rows;
    addRows(figures.report, "", rows);
    addRows(figures.details, "", rows);
    return rows;
}

}  // namespace TBVNonPara::calc
