#pragma once

#include <vector>

#include "tbvnonpara/analysis/choices.hpp"
#include "tbvnonpara/analysis/ranges.hpp"
#include "tbvnonpara/analysis/scratch_sheet.hpp"
#include "tbvnonpara/reshaping/account.hpp"
#include "tbvnonpara/reshaping/column.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::analysis {

/// Whether the data must be brought into form before a test takes them: because the user asks for it, or
/// because texts stand where the test takes numbers (dates, or words for missing values).
[[nodiscard]] bool needsReshaping(const workbook::EmbeddedApplication& application, const Choices& choices,
                                  const ChosenRanges& chosen);

/// The data of a test brought into form, on a sheet of their own while it lives: groups out of one column,
/// the rows that fulfil the conditions, numbers without what is missing.
class ReshapedRanges {
 public:
    /// Raises a `reshaping::Refusal` that names the user's cells.
    ReshapedRanges(const workbook::EmbeddedApplication& application, const Choices& choices,
                   const ChosenRanges& chosen);

    /// Of the sheet; a report names the user's.
    [[nodiscard]] const ChosenRanges& ranges() const noexcept { return m_Ranges; }
    [[nodiscard]] const reshaping::Account& account() const noexcept { return m_Account; }

 private:
    /// The cells of the columns from left to right on the sheet.
    [[nodiscard]] Rectangle cellsOf(const std::vector<reshaping::Column>& columns, Index left,
                                    Index right) const;

    ScratchSheet m_Sheet;
    ChosenRanges m_Ranges;
    reshaping::Account m_Account;
};

}  // namespace TBVNonPara::analysis
