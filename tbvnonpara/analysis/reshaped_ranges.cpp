#include "tbvnonpara/analysis/reshaped_ranges.hpp"

#include <algorithm>
#include <optional>

#include "tbvnonpara/analysis/user_range.hpp"

namespace TBVNonPara::analysis {

namespace {

using reshaping::Column;

/// The cells of some of the columns, counted from 0, on the sheet.
Rectangle cellsOf(const std::vector<Column>& columns, std::size_t first, std::size_t last, bool headed) {
    std::size_t rows = 0;
    for (std::size_t column = first; column < last; ++column) {
        rows = std::max(rows, columns[column].cells.size());
    }
    return {1, static_cast<Index>(first) + 1, static_cast<Index>(rows) + (headed ? 1 : 0),
            static_cast<Index>(last)};
}

std::string shownAddress(const workbook::EmbeddedApplication& application, const std::string& address) {
    const UserRange range(application, address);
    return shownInReports(*range->sheet(), range->areas());
}

}  // namespace

ShownVariables shownVariables(const workbook::EmbeddedApplication& application, const ChosenRanges& chosen) {
    const std::string y = shownAddress(application, chosen.y);
    return {y, chosen.x.empty() ? y : shownAddress(application, chosen.x)};
}

ReshapedRanges::ReshapedRanges(const workbook::EmbeddedApplication& application, bool headed,
                               std::size_t secondColumns, const reshaping::Reshaped& reshaped,
                               const ShownVariables& shown)
    : m_Sheet(application, "Reshaped") {
    m_Ranges.headers = headed;
    const std::vector<Column>& columns = reshaped.columns;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::string& header = columns[i].header;
        const auto label =
            m_Ranges.headers ? std::optional(header.empty() ? CellValue() : Text(header)) : std::nullopt;
        m_Sheet.put(static_cast<Index>(i) + 1, label, columns[i].cells);
    }
    const std::size_t first = columns.size() - secondColumns;
    const Rectangle y = cellsOf(columns, 0, first, m_Ranges.headers);
    m_Ranges.y = m_Sheet.address(y);
    m_Ranges.shown.push_back(m_Sheet.shownAs(y, shown.y));
    if (first < columns.size()) {
        const Rectangle x = cellsOf(columns, first, columns.size(), m_Ranges.headers);
        m_Ranges.x = m_Sheet.address(x);
        m_Ranges.shown.push_back(m_Sheet.shownAs(x, shown.x));
    }
}

}  // namespace TBVNonPara::analysis
