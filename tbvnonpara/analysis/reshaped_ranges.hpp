#pragma once

#include <string>

#include "tbvnonpara/analysis/ranges.hpp"
#include "tbvnonpara/analysis/scratch_sheet.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/reshaping/reshaped.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::analysis {

/// The addresses that a report shows for both variables: the user's.
struct ShownVariables {
    std::string y;
    std::string x;
};

/// Those of the ranges that the user chose. The groups of a long table share one column.
[[nodiscard]] TBVNONPARA_API ShownVariables shownVariables(const workbook::EmbeddedApplication& application,
                                                           const ChosenRanges& chosen);

/// Data brought into form, on a sheet of their own while it lives.
class TBVNONPARA_API ReshapedRanges {
 public:
    /// The last `secondColumns` of the columns are those of the second variable.
    ReshapedRanges(const workbook::EmbeddedApplication& application, bool headed, std::size_t secondColumns,
                   const reshaping::Reshaped& reshaped, const ShownVariables& shown);

    /// Of the sheet; a report names the user's.
    [[nodiscard]] const ChosenRanges& ranges() const noexcept { return m_Ranges; }

 private:
    ScratchSheet m_Sheet;
    ChosenRanges m_Ranges;
};

}  // namespace TBVNonPara::analysis
