#include "tbvnonpara/details/details.hpp"

#include <algorithm>
#include <limits>
#include <span>
#include <unordered_map>

#include "tbvnonpara/engine/categories.hpp"
#include "tbvnonpara/engine/named_results.hpp"

namespace TBVNonPara {

namespace {

using Lists = std::vector<std::vector<double>>;

/// Row by row: what is no number is NaN, which is left out with its whole row.
std::vector<double> rowsOf(const LabelledColumn& column) {
    std::vector<double> values(column.cells.size());
    std::ranges::transform(column.cells, values.begin(), [](const CellValue& cell) {
        return numberIn(cell).value_or(std::numeric_limits<double>::quiet_NaN());
    });
    return values;
}

Lists listsOf(const std::vector<LabelledColumn>& columns,
              std::vector<double> (*read)(const LabelledColumn&)) {
    Lists lists(columns.size());
    std::ranges::transform(columns, lists.begin(), read);
    return lists;
}

std::vector<std::string> labelsOf(const std::vector<LabelledColumn>& columns) {
    std::vector<std::string> labels(columns.size());
    std::ranges::transform(columns, labels.begin(), &LabelledColumn::label);
    return labels;
}

std::optional<std::size_t> controlAmong(const std::vector<std::string>& labels, const std::string& control) {
    if (control.empty()) {
        return std::nullopt;
    }
    const auto found = std::ranges::find(labels, control);
    if (found != labels.end()) {
        return static_cast<std::size_t>(found - labels.begin());
    }
    std::string names;
    for (const std::string& label : labels) {
        names += (names.empty() ? "" : ", ") + label;
    }
    throw Error(tbvNPBadYRange, "There is no group \"" + control + "\"; the groups are " + names + '.');
}

/// Finds the number of a cell's category, counted from 0. Numbers and texts are looked up, for there may be
/// as many categories as cells.
class CategoryNumbers {
 public:
    explicit CategoryNumbers(std::span<const CellValue> categories) : m_Categories(categories) {
        for (std::size_t number = 0; number < categories.size(); ++number) {
            const CellValue category = withTruthAsNumber(categories[number]);
            if (const auto* value = std::get_if<double>(&category)) {
                m_Numbers.try_emplace(*value, number);
            } else if (const auto* text = std::get_if<Text>(&category)) {
                m_Texts.try_emplace(text->string(), number);
            }
        }
    }

    [[nodiscard]] std::size_t of(const CellValue& cell) const {
        const CellValue compared = withTruthAsNumber(cell);
        if (const auto* value = std::get_if<double>(&compared)) {
            return m_Numbers.at(*value);
        }
        if (const auto* text = std::get_if<Text>(&compared)) {
            return m_Texts.at(text->string());
        }
        const auto same = [&](const CellValue& category) { return sameCategory(category, cell); };
        return static_cast<std::size_t>(std::ranges::find_if(m_Categories, same) - m_Categories.begin());
    }

 private:
    std::span<const CellValue> m_Categories;
    std::unordered_map<double, std::size_t> m_Numbers;
    std::unordered_map<std::string, std::size_t> m_Texts;
};

/// Each cell's category by its number, in order of first appearance.
std::vector<std::size_t> categoriesOf(const LabelledColumn& column, std::vector<std::string>& names) {
    const Categories found = findCategories(column.cells);
    for (const CellValue& value : found.values.elements()) {
        names.push_back(toText(value));
    }
    const CategoryNumbers numbers(found.values.elements());
    std::vector<std::size_t> categories(column.cells.size());
    std::ranges::transform(column.cells, categories.begin(),
                           [&](const CellValue& cell) { return numbers.of(cell); });
    return categories;
}

/// Computes what the shape of the data asks for.
class InFull {
 public:
    InFull(const std::vector<LabelledColumn>& columns, const DetailChoices& chosen, CountWatch watch)
        : m_Columns(columns),
          m_Options{.confidence = chosen.confidence,
                    .missing = statistics::Missing::Omit,
                    .adjustment = chosen.adjustment,
                    .trend = chosen.trend,
                    .permutations = chosen.permutations,
                    .seed = chosen.seed,
                    .watch = std::move(watch)},
          m_Labels(labelsOf(columns)),
          m_Control(controlAmong(m_Labels, chosen.control)) {}

    TestInFull compute(TBVNPMethod method) {
        switch (method) {
            case tbvNPMannU:
                return mannWhitney();
            case tbvNPWilcoxon:
                return statistics::wilcoxon(paired(0), paired(1), m_Options);
            case tbvNPSpearman:
                return statistics::spearman(paired(0), paired(1), m_Options);
            case tbvNPSign:
                return m_Columns.size() == 1 ? statistics::sign(paired(0), m_Options)
                                             : statistics::sign(paired(0), paired(1), m_Options);
            case tbvNPFriedman:
                return friedman();
            case tbvNPWWRuns:
                return runs();
            case tbvNPMedian:
                return ofGroups(statistics::median);
            default:
                return ofGroups(statistics::kruskalWallis);
        }
    }

    [[nodiscard]] std::vector<std::string> labels() && { return std::move(m_Labels); }

 private:
    using Spans = std::vector<std::span<const double>>;

    [[nodiscard]] std::vector<double> paired(std::size_t column) const {
        return rowsOf(m_Columns.at(column));
    }

    TestInFull mannWhitney() {
        return statistics::mannWhitney(numbersOf(m_Columns.at(0)), numbersOf(m_Columns.at(1)), m_Options);
    }

    TestInFull friedman() {
        const Lists lists = listsOf(m_Columns, rowsOf);
        return statistics::friedman(Spans(lists.begin(), lists.end()), m_Options, m_Control);
    }

    TestInFull runs() {
        m_Labels.clear();
        return statistics::runs(categoriesOf(m_Columns.at(0), m_Labels), m_Options);
    }

    template <typename Result>
    TestInFull ofGroups(Result (*test)(statistics::SampleSpans, const statistics::Options&,
                                       std::optional<std::size_t>)) {
        const Lists lists = listsOf(m_Columns, numbersOf);
        Result result = test(Spans(lists.begin(), lists.end()), m_Options, m_Control);
        std::vector<std::string> labels;
        for (const auto& group : result.groups) {
            labels.push_back(m_Labels[group.original]);
        }
        m_Labels = std::move(labels);
        return result;
    }

    const std::vector<LabelledColumn>& m_Columns;
    statistics::Options m_Options;
    std::vector<std::string> m_Labels;
    std::optional<std::size_t> m_Control;
};

}  // namespace

Details detailsOf(const OfferedTest& test, TBVNPTails tails, const DetailChoices& chosen,
                  const std::vector<LabelledColumn>& columns, const clsNonParaBO& engine, CountWatch watch) {
    InFull full(columns, chosen, std::move(watch));
    TestInFull result = full.compute(test.method);
    return {
        &test, tails, chosen, std::move(full).labels(), std::move(result), reportedP(test.method, engine)};
}

}  // namespace TBVNonPara
