#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/analysis/choices.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/workbook/sheet.hpp"

namespace TBVNonPara::analysis {

/// What the cells of a column hold.
enum class ColumnKind { Numbers, Dates, Texts, Logical, Mixed };

[[nodiscard]] TBVNONPARA_API std::string_view nameOf(ColumnKind kind) noexcept;

/// One column of a table that holds something.
struct ColumnSummary {
    Index number = 1;
    std::string header;  ///< empty for none
    ColumnKind kind = ColumnKind::Texts;
    std::size_t values = 0;     ///< cells that are not missing
    std::size_t missing = 0;    ///< up to the table's last row
    std::size_t different = 0;  ///< values, each counted once
    std::optional<double> least;
    std::optional<double> median;
    std::optional<double> greatest;
};

/// A sheet as a table.
struct TableSummary {
    std::string sheet;
    std::size_t rows = 0;  ///< without the headers
    bool headers = false;  ///< whether the first row holds them
    std::vector<ColumnSummary> columns;
};

/// What a sheet holds, column by column. Without `choices.headers` a first row of texts alone holds headers.
[[nodiscard]] TBVNONPARA_API TableSummary summaryOf(const workbook::Sheet& sheet, const Choices& choices);

/// The headers of a sheet's columns from left to right, as far as they have one.
[[nodiscard]] TBVNONPARA_API std::vector<std::string> headersOf(const workbook::Sheet& sheet,
                                                                const Choices& choices);

}  // namespace TBVNonPara::analysis
