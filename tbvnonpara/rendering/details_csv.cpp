#include "tbvnonpara/rendering/details_csv.hpp"

#include <array>
#include <cmath>

#include "tbvnonpara/details/json.hpp"
#include "tbvnonpara/statistics/figures.hpp"

namespace TBVNonPara::rendering {

namespace {

using statistics::Figure;
using statistics::FigureBlock;
using statistics::FigureList;

/// The columns of the table, in order.
enum TidyColumn : std::size_t {
    Block,
    Name,
    First,
    Second,
    N,
    Value,
    Low,
    High,
    Df,
    P,
    Adjusted,
    Log10,
    Note,
    Count
};

constexpr std::array<std::string_view, Count> tidyHeadings = {"block",      "name",    "first", "second", "n",
                                                              "value",      "low",     "high",  "df",     "p",
                                                              "p_adjusted", "log10_p", "note"};

using TidyRow = std::array<CellValue, Count>;

CellValue cellOf(const Figure* figure) {
    if (figure == nullptr) {
        return {};
    }
    if (const auto* whole = std::get_if<std::int64_t>(&figure->value)) {
        return static_cast<double>(*whole);
    }
    if (const auto* number = std::get_if<double>(&figure->value)) {
        return *number;
    }
    const auto* text = std::get_if<std::string>(&figure->value);
    return text == nullptr ? CellValue() : CellValue(Text(*text));
}

/// Makes rows of the figures' blocks.
class TidyTable {
 public:
    explicit TidyTable(const Details& details)
        : m_Figures(detailFigures(details)), m_Labels(details.labels), m_Direction(directionOf(details)) {
        addEffects();
        addProbabilities(*find(m_Figures, "p"), "");
        addRobust();
        addGroups();
        addComparisons();
        addTrend();
    }

    [[nodiscard]] const std::vector<TidyRow>& rows() const { return m_Rows; }

 private:
    static std::string_view directionOf(const Details& details) {
        const bool runs = details.test->method == tbvNPWWRuns;
        if (details.tails == tbvNPTwoTailed || !details.test->tails) {
            return "two";
        }
        return details.tails == tbvNPVar1GTVar2 ? (runs ? "fewer" : "greater") : (runs ? "more" : "less");
    }

    [[nodiscard]] CellValue at(const Figure& figure, std::string_view path) const {
        return cellOf(find(figure, path));
    }

    TidyRow& add(std::string_view block, std::string_view name) {
        TidyRow& row = m_Rows.emplace_back();
        row[Block] = Text(std::string(block));
        row[Name] = Text(std::string(name));
        return row;
    }

    void fillEstimate(TidyRow& row, const Figure& estimate) const {
        row[Value] = at(estimate, "value");
        row[Low] = at(estimate, "low");
        row[High] = at(estimate, "high");
        if (const CellValue attained = at(estimate, "attained"); !isEmpty(attained)) {
            row[Note] = Text("level " + toText(attained));
        }
    }

    void fillProbability(TidyRow& row, const Figure* p) const {
        if (p != nullptr) {
            row[P] = at(*p, "value");
            row[Log10] = at(*p, "log10");
        }
    }

    void addEffects() {
        for (const auto& [name, estimate] : std::get<FigureBlock>(find(m_Figures, "effect")->value)) {
            if (std::holds_alternative<FigureBlock>(estimate.value)) {
                fillEstimate(add("effect", name), estimate);
            }
        }
    }

    /// Every block below "p" that has the probability asked for; others are looked into.
    void addProbabilities(const Figure& figure, const std::string& within) {
        for (const auto& [name, way] : std::get<FigureBlock>(figure.value)) {
            if (!std::holds_alternative<FigureBlock>(way.value)) {
                continue;
            }
            std::string whole = within;
            whole += (within.empty() ? "" : ".") + name;
            const Figure* p = find(way, m_Direction);
            p = p == nullptr ? find(way, "p") : p;
            if (p != nullptr) {
                addWay(whole, way, p);
            }
            if (p == nullptr || find(way, "corrected") != nullptr) {
                addProbabilities(onlyBlocksOf(way, p), whole);
            }
        }
    }

    /// The blocks that are ways of their own, not probabilities of this one.
    static Figure onlyBlocksOf(const Figure& way, const Figure* counted) {
        FigureBlock blocks;
        for (const statistics::NamedFigure& member : std::get<FigureBlock>(way.value)) {
            if (counted == nullptr || member.name == "corrected") {
                blocks.push_back(member);
            }
        }
        return {std::move(blocks)};
    }

    void addWay(const std::string& name, const Figure& way, const Figure* p) {
        TidyRow& row = add("probability", name);
        for (const std::string_view statistic : {"value", "z", "t"}) {
            if (const CellValue value = at(way, statistic); !isEmpty(value)) {
                row[Value] = value;
            }
        }
        row[Df] = at(way, "df");
        if (const CellValue first = at(way, "df.1"); !isEmpty(first)) {
            row[Df] = Text(toText(first) + ' ' + toText(at(way, "df.2")));
        }
        fillProbability(row, p);
    }

    void addRobust() {
        const Figure* const robust = find(m_Figures, "robust");
        if (robust != nullptr && std::holds_alternative<FigureBlock>(robust->value)) {
            addWay("robust", *robust, find(*robust, m_Direction));
        }
    }

    void addGroups() {
        const Figure* const groups = find(m_Figures, "groups");
        if (groups == nullptr) {
            return;
        }
        const auto& list = std::get<FigureList>(groups->value);
        for (std::size_t g = 0; g < list.size(); ++g) {
            for (const std::string_view estimate : {"median", "meanRank", "share"}) {
                addGroup(list[g], g, estimate);
            }
        }
    }

    void addGroup(const Figure& group, std::size_t number, std::string_view what) {
        const Figure* const figure = find(group, what);
        if (figure == nullptr) {
            return;
        }
        TidyRow& row = add("group", what);
        row[First] = Text(m_Labels[number]);
        row[N] = at(group, "n");
        row[Value] = cellOf(figure);
        if (std::holds_alternative<FigureBlock>(figure->value)) {
            fillEstimate(row, *figure);
        } else if (const CellValue letters = at(m_Figures, "letters." + std::to_string(number + 1));
                   !isEmpty(letters)) {
            row[Note] = Text("alike " + toText(letters));
        }
    }

    void addComparisons() {
        const Figure* const comparisons = find(m_Figures, "comparisons");
        if (comparisons == nullptr) {
            return;
        }
        for (const Figure& comparison : std::get<FigureList>(comparisons->value)) {
            TidyRow& row = add("comparison", at(comparison, "z") == CellValue() ? "exact" : "z");
            row[First] = labelAt(comparison, "first");
            row[Second] = labelAt(comparison, "second");
            row[Value] = at(comparison, "z");
            row[Adjusted] = at(comparison, "adjusted.value");
            fillProbability(row, find(comparison, "p"));
        }
    }

    /// Its statistic, its effect, and its probabilities beside the test's own.
    void addTrend() {
        const Figure* const trend = find(m_Figures, "trend");
        if (trend == nullptr || !std::holds_alternative<FigureBlock>(trend->value)) {
            return;
        }
        TidyRow& statistic = add("trend", "statistic");
        statistic[Value] = at(*trend, "statistic");
        statistic[Note] = at(*trend, "test");
        add("trend", "correlation")[Value] = at(*trend, "correlation");
        addProbabilities(*trend, "trend");
    }

    [[nodiscard]] CellValue labelAt(const Figure& comparison, std::string_view which) const {
        const auto number = std::get<std::int64_t>(find(comparison, which)->value);
        return Text(m_Labels[static_cast<std::size_t>(number) - 1]);
    }

    Figure m_Figures;
    const std::vector<std::string>& m_Labels;
    std::string_view m_Direction;
    std::vector<TidyRow> m_Rows;
};

}  // namespace

void writeDetailsCsv(const Details& details, Output& output, const CsvFields& fields) {
    output.write("\r\n");
    for (std::size_t column = 0; column < Count; ++column) {
        output.write(column == 0 ? "" : ",");
        output.write(tidyHeadings[column]);
    }
    output.write("\r\n");
    const TidyTable table(details);
    for (const TidyRow& row : table.rows()) {
        for (std::size_t column = 0; column < Count; ++column) {
            output.write(column == 0 ? "" : ",");
            output.write(csvField(row[column], fields));
        }
        output.write("\r\n");
    }
}

}  // namespace TBVNonPara::rendering
