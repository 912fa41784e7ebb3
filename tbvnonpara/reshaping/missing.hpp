#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/reshaping/column.hpp"

namespace TBVNonPara::reshaping {

/// What stands in a cell for a value that is not there. A blank and #N/A always do.
class TBVNONPARA_API Missing {
 public:
    /// With words beside the usual ones, upper and lower case the same.
    explicit Missing(const std::vector<std::string>& words = {});

    /// In a column of numbers: NA, N/A, NaN, null, a dot, a hyphen, the text #N/A and the words given.
    [[nodiscard]] bool amongNumbers(const CellValue& value) const;
    /// In a sequence of texts, of which dots and hyphens may be part: the same without these two.
    [[nodiscard]] bool amongTexts(const CellValue& value) const;
    /// In a column of names, of which "NA" may be one: the words given.
    [[nodiscard]] bool amongNames(const CellValue& value) const;

 private:
    [[nodiscard]] bool given(std::string_view text) const;

    std::unordered_set<std::string> m_Given;
};

/// Whether a text is one of the usual words for a missing value: "NA", "N/A", "NaN", "null", "#N/A".
[[nodiscard]] TBVNONPARA_API bool soundsMissing(std::string_view text);

/// What is missing in a column.
struct MissingCells {
    std::size_t count = 0;
    std::size_t words = 0;  ///< among them texts and errors
    std::size_t first = 0;  ///< of the column's cells, from 0
    CellValue firstHeld;    ///< what stood there
};

/// Makes numbers of a column's cells: texts that read as numbers, dates and times in the column's one order.
/// What is missing becomes empty and is counted. Raises a Refusal that names the first cell that is neither.
TBVNONPARA_API MissingCells makeNumbers(Column& column, const Missing& missing);

/// Whether all cells are numbers, dates or missing, and one is not missing.
[[nodiscard]] TBVNONPARA_API bool holdsNumbers(const Column& column, const Missing& missing);

/// Empties what is missing in a sequence, of numbers or of texts, and counts it.
TBVNONPARA_API MissingCells emptyMissing(Column& column, const Missing& missing);

/// Empties what is missing among numbers, TRUE and FALSE; a column that holds any other name stays as it is.
TBVNONPARA_API void emptyMissingCodes(Column& column, const Missing& missing);

/// Refuses missing values that nobody asked to leave out: how many, and where the first is.
[[noreturn]] TBVNONPARA_API void refuseMissing(const Column& column, const MissingCells& missing);

}  // namespace TBVNonPara::reshaping
