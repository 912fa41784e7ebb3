#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tbvnonpara/analysis/choices.hpp"
#include "tbvnonpara/analysis/ranges.hpp"
#include "tbvnonpara/analysis/scratch_sheet.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::analysis {

/// The sides of a value on which the numbers of a sequence lie: "above 880.5" and "below 880.5".
struct CutNumbers {
    std::vector<CellValue> sides;  ///< in the order of the numbers
    double at = 0;
    std::size_t above = 0;
    std::size_t below = 0;
    std::size_t equal = 0;  ///< among those above or below, or left out
};

/// Cuts numbers at their median (of an even number the mean of the two in the middle), their mean (their sum
/// divided by their number) or a value. With `CutEqual::Above` the sides are "from 880.5 on" and "below
/// 880.5", with `CutEqual::Below` "above 880.5" and "up to 880.5". Raises NoData when no number is left,
/// TooFewGroups when all lie on one side.
[[nodiscard]] TBVNONPARA_API CutNumbers cutNumbers(const std::vector<double>& numbers, const Cut& cut);

/// A sequence of numbers as one of their sides, on a sheet of its own while it lives.
class TBVNONPARA_API CutSequence {
 public:
    /// Raises an error that names the first cell that holds no number, or a range of more than one column.
    CutSequence(const ObjectRef<workbook::EmbeddedApplication>& application, const Cut& cut,
                const ChosenRanges& numbers);

    /// Of the sides; a report names the numbers.
    [[nodiscard]] const ChosenRanges& ranges() const noexcept { return m_Ranges; }
    [[nodiscard]] const CutNumbers& numbers() const noexcept { return m_Cut; }
    /// "cut at the median 579: 49 above, 48 below, 1 equal left out".
    [[nodiscard]] const std::string& note() const noexcept { return m_Note; }

 private:
    ChosenRanges m_Ranges;
    CutNumbers m_Cut;
    std::string m_Note;
    ScratchSheet m_Sheet;
};

}  // namespace TBVNonPara::analysis
