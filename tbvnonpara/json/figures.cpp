#include "tbvnonpara/json/figures.hpp"

#include <algorithm>

#include "tbvnonpara/json/values.hpp"

namespace TBVNonPara {

namespace {

using statistics::Figure;
using statistics::FigureBlock;
using statistics::FigureList;
using statistics::NamedFigure;

bool isNested(const Figure& figure) {
    return std::holds_alternative<FigureBlock>(figure.value) ||
           std::holds_alternative<FigureList>(figure.value);
}

/// Writes each kind of figure; those within it go on their own lines where `lines` says so.
class FigureInJson {
 public:
    explicit FigureInJson(std::size_t indent) : m_Indent(indent) {}

    std::string operator()(std::monostate) const { return "null"; }
    std::string operator()(double number) const { return numberInJson(number); }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(const std::string& text) const { return textInJson(text); }

    std::string operator()(const FigureList& list) const {
        const bool lines = std::ranges::any_of(list, isNested);
        std::string text;
        for (const Figure& figure : list) {
            text += separator(lines, text.empty()) + figureInJson(figure, m_Indent + 2);
        }
        return '[' + text + end(lines) + ']';
    }

    std::string operator()(const FigureBlock& block) const {
        const bool lines =
            std::ranges::any_of(block, [](const NamedFigure& member) { return isNested(member.figure); });
        std::string text;
        for (const auto& [name, figure] : block) {
            text +=
                separator(lines, text.empty()) + textInJson(name) + ": " + figureInJson(figure, m_Indent + 2);
        }
        return '{' + text + end(lines) + '}';
    }

 private:
    [[nodiscard]] std::string separator(bool lines, bool isFirst) const {
        const std::string comma = isFirst ? "" : ",";
        return lines ? comma + '\n' + std::string(m_Indent + 2, ' ') : isFirst ? "" : ", ";
    }
    [[nodiscard]] std::string end(bool lines) const { return lines ? '\n' + std::string(m_Indent, ' ') : ""; }

    std::size_t m_Indent;
};

}  // namespace

std::string_view adjustmentWord(statistics::Adjustment adjustment) {
    switch (adjustment) {
        case statistics::Adjustment::Holm:
            return "holm";
        case statistics::Adjustment::Bonferroni:
            return "bonferroni";
        case statistics::Adjustment::BenjaminiHochberg:
            return "bh";
        case statistics::Adjustment::None:
            break;
    }
    return "none";
}

std::optional<statistics::Adjustment> adjustmentNamed(std::string_view word) {
    using statistics::Adjustment;
    for (const Adjustment adjustment :
         {Adjustment::Holm, Adjustment::Bonferroni, Adjustment::BenjaminiHochberg, Adjustment::None}) {
        if (adjustmentWord(adjustment) == word) {
            return adjustment;
        }
    }
    return std::nullopt;
}

std::string figureInJson(const Figure& figure, std::size_t indent) {
    return std::visit(FigureInJson(indent), figure.value);
}

}  // namespace TBVNonPara
