#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::rendering {

/// A column of a range: its label and the cells below.
struct PictureColumn {
    std::string label;
    std::vector<CellValue> cells;
};

/// The columns of an address, area by area.
[[nodiscard]] std::vector<PictureColumn> columnsAt(const workbook::EmbeddedApplication& application,
                                                   std::string_view address, bool headers);

/// The numbers of a column in its order; what is no number is left out.
[[nodiscard]] std::vector<double> numbersOf(const PictureColumn& column);

/// The value below which a part of sorted numbers lies, between two of them where need be.
[[nodiscard]] double quantile(const std::vector<double>& sorted, double part);

}  // namespace TBVNonPara::rendering
