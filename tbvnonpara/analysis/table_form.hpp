#pragma once

#include <optional>
#include <vector>

#include "tbvnonpara/analysis/choices.hpp"
#include "tbvnonpara/analysis/ranges.hpp"
#include "tbvnonpara/analysis/row_conditions.hpp"
#include "tbvnonpara/reshaping/reshaped.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::analysis {

/// Whether the data must be brought into form before a test takes them: because the user asks for it, or
/// because texts stand where the test takes numbers (dates, or words for missing values).
[[nodiscard]] bool needsReshaping(const workbook::EmbeddedApplication& application, const Choices& choices,
                                  const ChosenRanges& chosen);

/// What brings columns of values into the form of a test: groups, blocks, conditions, what becomes of missing
/// values. Made once for a table, it serves any number of its columns.
class TableForm {
 public:
    /// Raises a `reshaping::Refusal` for a condition that cannot be decided.
    TableForm(const workbook::EmbeddedApplication& application, const Choices& choices,
              const ChosenRanges& chosen);

    /// The columns that the test takes instead of these. Raises a `reshaping::Refusal` that names the user's
    /// cells.
    [[nodiscard]] reshaping::Reshaped bring(std::vector<reshaping::Column> values) const&;
    /// The same for the last time.
    [[nodiscard]] reshaping::Reshaped bring(std::vector<reshaping::Column> values) &&;

    /// Whether the columns have labels.
    [[nodiscard]] bool headed() const noexcept { return m_Headed; }
    /// How many of the columns are the second variable's; they are the last ones.
    [[nodiscard]] std::size_t secondColumns() const noexcept { return m_SecondColumns; }

 private:
    /// Leaves out the rows that fulfil no condition; returns how many.
    [[nodiscard]] std::size_t settleConditions(std::vector<reshaping::Column>& values) const;

    bool m_Headed;
    reshaping::Wishes m_Wishes;
    RowConditions m_Conditions;
    std::optional<reshaping::Column> m_Groups;
    std::optional<reshaping::Column> m_Blocks;
    std::vector<reshaping::Column> m_Second;
    std::size_t m_SecondColumns;
};

/// The columns at an address, none at an empty one.
[[nodiscard]] std::vector<reshaping::Column> columnsAt(const workbook::EmbeddedApplication& application,
                                                       const std::string& address, bool headers);

}  // namespace TBVNonPara::analysis
