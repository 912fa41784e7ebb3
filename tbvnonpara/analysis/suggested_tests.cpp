#include "tbvnonpara/analysis/suggested_tests.hpp"

#include <algorithm>
#include <set>
#include <utility>

#include "tbvnonpara/analysis/table_column.hpp"
#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/reshaping/groups.hpp"

namespace TBVNonPara::analysis {

namespace {

using reshaping::Groups;

/// A table and what its columns may be used for.
class Table {
 public:
    Table(const workbook::Sheet& sheet, const TableSummary& summary, const Choices& choices)
        : m_Sheet(sheet), m_Summary(summary), m_Missing(choices.missingWords) {
        for (const ColumnSummary& column : summary.columns) {
            if (isRowNames(column) || column.values == 0) {
                continue;
            }
            if (namesGroups(column)) {
                m_Groups.push_back(&column);
            }
            if (column.kind == ColumnKind::Numbers && column.different > 2) {
                m_Numbers.push_back(&column);
            }
        }
        // Columns of many values come before such as may name groups, texts that name groups before numbers.
        std::ranges::stable_sort(m_Numbers, std::ranges::greater(),
                                 [&](const auto* c) { return !namesGroups(*c); });
        std::ranges::stable_sort(m_Groups, std::ranges::greater(),
                                 [](const auto* c) { return c->kind != ColumnKind::Numbers; });
    }

    [[nodiscard]] std::vector<SuggestedTest> suggested() const {
        std::vector<SuggestedTest> tests;
        addGroups(tests);
        if (m_Numbers.size() > 1) {
            addColumnsOfNumbers(tests);
        }
        if (m_Numbers.size() == 1 && m_Groups.empty()) {
            const ColumnSummary& y = *m_Numbers.front();
            tests.push_back({tbvNPWWRuns, nameOf(y), "", "", "", y.missing > 0, true});
        }
        if (m_Numbers.empty() && m_Groups.size() == 1) {
            tests.push_back({tbvNPWWRuns, nameOf(*m_Groups.front()), "", "", "", false, false});
        }
        return tests;
    }

 private:
    [[nodiscard]] bool isRowNames(const ColumnSummary& column) const {
        return m_Summary.headers && column.header.empty() && &column == m_Summary.columns.data();
    }

    /// Few values, each of which comes again.
    [[nodiscard]] static bool namesGroups(const ColumnSummary& column) {
        constexpr std::size_t mostGroups = 24;
        return column.different > 1 && column.different <= mostGroups &&
               2 * column.different <= column.values && column.kind != ColumnKind::Dates;
    }

    /// The values that groups are compared in: those that name no groups, if there are any.
    [[nodiscard]] const ColumnSummary* valuesBeside(const ColumnSummary& groups) const {
        const auto found =
            std::ranges::find_if(m_Numbers, [&](const auto* column) { return column != &groups; });
        return found == m_Numbers.end() ? nullptr : *found;
    }

    void addGroups(std::vector<SuggestedTest>& tests) const {
        for (const ColumnSummary* groups : m_Groups) {
            const ColumnSummary* const values = valuesBeside(*groups);
            if (values == nullptr) {
                continue;
            }
            const bool two = groups->different == 2;
            const bool missing = values->missing + groups->missing > 0;
            tests.push_back(
                {two ? tbvNPMannU : tbvNPKWallis, nameOf(*values), "", nameOf(*groups), "", missing, false});
            if (const ColumnSummary* const blocks = blocksOf(*groups, *values)) {
                tests.push_back({two ? tbvNPWilcoxon : tbvNPFriedman, nameOf(*values), "", nameOf(*groups),
                                 nameOf(*blocks), missing, false});
            }
            return;
        }
    }

    /// Columns side by side: samples where they differ in length, else rows that may belong together.
    void addColumnsOfNumbers(std::vector<SuggestedTest>& tests) const {
        const ColumnSummary& y = *m_Numbers[0];
        const ColumnSummary& x = *m_Numbers[1];
        const bool missing = y.missing + x.missing > 0;
        const bool samples = m_Groups.empty() && missing && m_Numbers.size() == m_Summary.columns.size();
        if (samples && m_Numbers.size() == 2) {
            tests.push_back({tbvNPMannU, nameOf(y), nameOf(x), "", "", false, false});
        } else if (samples) {
            tests.push_back({tbvNPKWallis, "", "", "", "", false, false});
        } else {
            tests.push_back({tbvNPSpearman, nameOf(y), nameOf(x), "", "", missing, false});
        }
        if (m_Groups.empty() && !missing && m_Numbers.size() == 2) {
            tests.push_back({tbvNPWilcoxon, nameOf(y), nameOf(x), "", "", false, false});
        }
        if (m_Groups.empty() && m_Numbers.size() > 2 && !samples) {
            addBlocks(tests);
        }
    }

    /// Three columns or more, row by row, beside nothing but the rows' names.
    void addBlocks(std::vector<SuggestedTest>& tests) const {
        const bool all = std::ranges::all_of(m_Summary.columns, [&](const ColumnSummary& column) {
            return isRowNames(column) || std::ranges::find(m_Numbers, &column) != m_Numbers.end();
        });
        const bool missing =
            std::ranges::any_of(m_Numbers, [](const ColumnSummary* column) { return column->missing > 0; });
        if (all) {
            tests.push_back({tbvNPFriedman, "", "", "", "", missing, false});
        }
    }

    /// A column whose every value comes once with every group.
    [[nodiscard]] const ColumnSummary* blocksOf(const ColumnSummary& groups,
                                                const ColumnSummary& values) const {
        const Groups treatments = groupsAt(groups);
        for (const ColumnSummary& column : m_Summary.columns) {
            const bool fits = column.different * groups.different == m_Summary.rows && column.different > 1;
            if (fits && &column != &groups && &column != &values && meetOnce(treatments, groupsAt(column))) {
                return &column;
            }
        }
        return nullptr;
    }

    [[nodiscard]] Groups groupsAt(const ColumnSummary& column) const {
        const Rectangle used = m_Sheet.usedArea().value_or(Rectangle());
        return reshaping::groupsIn(wholeColumn(m_Sheet, used, column.number, m_Summary.headers), m_Missing);
    }

    static bool meetOnce(const Groups& first, const Groups& second) {
        std::set<std::pair<std::int32_t, std::int32_t>> met;
        for (std::size_t row = 0; row < first.ofCell.size(); ++row) {
            met.emplace(first.ofCell[row], second.ofCell[row]);
        }
        return met.size() == first.ofCell.size();
    }

    /// The header, or the letters where another column has the same header or bears the header as letters.
    [[nodiscard]] std::string nameOf(const ColumnSummary& column) const {
        std::string_view rest = column.header;
        const Index lettered = takeColumn(rest);
        const bool isLetters = rest.empty() && !column.header.empty();
        const auto clashes = [&](const ColumnSummary& other) {
            return &other != &column &&
                   (other.header == column.header || (isLetters && other.number == lettered));
        };
        const std::string letters = columnLetters(column.number);
        const bool clear = !column.header.empty() && std::ranges::none_of(m_Summary.columns, clashes);
        return clear ? column.header : letters + ':' + letters;
    }

    const workbook::Sheet& m_Sheet;
    const TableSummary& m_Summary;
    reshaping::Missing m_Missing;
    std::vector<const ColumnSummary*> m_Groups;
    std::vector<const ColumnSummary*> m_Numbers;
};

}  // namespace

std::vector<SuggestedTest> suggestedTests(const workbook::Sheet& sheet, const TableSummary& table,
                                          const Choices& choices) {
    return Table(sheet, table, choices).suggested();
}

}  // namespace TBVNonPara::analysis
