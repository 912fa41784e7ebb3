#pragma once

#include <map>
#include <string>

#include "tbvnonpara/core/whole_numbers.hpp"
#include "tbvnonpara/files/container.hpp"

namespace TBVNonPara::workbook {

/// Lengths on a sheet are counted in these: 914,400 an inch, 9,525 a pixel, 12,700 a point.
using EnglishMetricUnits = double;

/// Rows or columns of a sheet and how long each of them is.
class CellSizes {
 public:
    explicit CellSizes(EnglishMetricUnits size) : m_Otherwise(size) {}

    void setOtherwise(EnglishMetricUnits size) { m_Otherwise = size; }
    void set(Index first, Index last, EnglishMetricUnits size) { m_Sizes[last] = {first, size}; }

    /// The row or column, counted from 1 and `most` at the end, in which a length from the beginning of
    /// `first` ends.
    [[nodiscard]] Index at(Index first, EnglishMetricUnits length, Index most) const;

 private:
    struct Run {
        Index first;
        EnglishMetricUnits size;
    };

    [[nodiscard]] EnglishMetricUnits of(Index position) const;

    EnglishMetricUnits m_Otherwise;
    std::map<Index, Run> m_Sizes;  ///< by the last of each run
};

struct SheetSizes {
    CellSizes rows;
    CellSizes columns;
};

/// The heights and widths that a sheet's part states.
[[nodiscard]] SheetSizes readXlsxSizes(const Parts& parts, const std::string& sheet);

}  // namespace TBVNonPara::workbook
