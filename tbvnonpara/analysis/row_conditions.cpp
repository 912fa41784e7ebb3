#include "tbvnonpara/analysis/row_conditions.hpp"

#include <algorithm>

#include "tbvnonpara/analysis/column_address.hpp"
#include "tbvnonpara/analysis/table_column.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/reshaping/conditions.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::analysis {

RowConditions::RowConditions(const workbook::EmbeddedApplication& application, const Choices& choices,
                             const workbook::Sheet& sheet, bool headers) {
    const HeaderLookup lookup = headers ? lookupFor(choices.headers) : HeaderLookup::None;
    const reshaping::Missing missing(choices.missingWords);
    const Rectangle used = sheet.usedArea().value_or(Rectangle());
    for (const std::string& text : choices.where) {
        const auto condition = reshaping::readCondition(
            text, {[&](std::string_view name) { return findColumn(application, name, lookup).has_value(); },
                   [&] { return columnsInWords(application, lookup); }});
        const Index number = findColumn(application, condition.column, lookup).value();
        const reshaping::Column column = tableColumn(sheet, {used.top, number, used.bottom, number}, headers);
        m_Keep.resize(static_cast<std::size_t>(used.bottom) + 1, true);
        const std::vector<bool> fulfilled = reshaping::fulfilling(condition, column, missing);
        for (std::size_t cell = 0; cell < fulfilled.size(); ++cell) {
            const auto row = static_cast<std::size_t>(column.rows[cell]);
            m_Keep[row] = m_Keep[row] && fulfilled[cell];
        }
        m_Explanation += (m_Explanation.empty() ? "" : ", ") + inQuotes(text) + " (" +
                         reshaping::nameOf(column) + " holds " + reshaping::valuesOf(column) + ')';
    }
}

std::size_t RowConditions::apply(reshaping::Column& column) const {
    if (m_Keep.empty()) {
        return 0;
    }
    std::vector<bool> keep;
    keep.reserve(column.rows.size());
    for (const std::int32_t row : column.rows) {
        const auto place = static_cast<std::size_t>(row);
        keep.push_back(place < m_Keep.size() && m_Keep[place]);
    }
    reshaping::keepCells(column, keep);
    if (column.cells.empty()) {
        throw reshaping::Refusal(tbvNPNoData, "No row of " + reshaping::nameOf(column) +
                                                  " fulfils the conditions: " + m_Explanation + '.');
    }
    return static_cast<std::size_t>(std::ranges::count(keep, false));
}

}  // namespace TBVNonPara::analysis
