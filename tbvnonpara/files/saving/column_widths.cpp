#include "tbvnonpara/files/saving/column_widths.hpp"

#include <algorithm>
#include <cmath>

#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/workbook/number_format.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr Index rowsMeasured = 1000;
constexpr double ordinaryWidth = 9;
constexpr double widest = 60;

/// Characters, those of East Asian scripts counted twice; bold ones are a tenth wider.
double widthOf(const CellValue& value, const CellFormat& format) {
    const std::string text = displayText(value, format.numberFormat);
    const auto wide =
        std::ranges::count_if(text, [](char c) { return static_cast<unsigned char>(c) >= 0xE1U; });
    const auto characters = static_cast<double>(countCharacters(text)) + static_cast<double>(wide);
    return characters * (format.bold ? 1.1 : 1.0) + 1.5;
}

Index countCells(const Sheet& sheet, Index row, const Rectangle& area) {
    Index count = 0;
    for (Index column = area.left; column <= area.right; ++column) {
        count += isEmpty(sheet.value(row, column)) ? 0 : 1;
    }
    return count;
}

bool isCentredAcross(const Sheet& sheet, Index row, Index column) {
    return sheet.format(row, column).alignment == AlignCentreAcrossSelection;
}

/// The columns that a centred heading has for itself.
Index span(const Sheet& sheet, const Rectangle& area, Index row, Index column) {
    Index last = column;
    while (isCentredAcross(sheet, row, column) && last < area.right &&
           isCentredAcross(sheet, row, last + 1) && isEmpty(sheet.value(row, last + 1))) {
        last += 1;
    }
    return last - column + 1;
}

}  // namespace

std::vector<double> columnWidths(const Sheet& sheet, const Rectangle& area) {
    std::vector<double> widths(static_cast<std::size_t>(area.columns()), ordinaryWidth);
    const Index last = std::min(area.bottom, area.top + rowsMeasured - 1);
    for (Index row = area.top; row <= last; ++row) {
        const bool isAlone = countCells(sheet, row, area) == 1;
        for (Index column = area.left; column <= area.right; ++column) {
            const CellValue& value = sheet.value(row, column);
            const bool runsOn =
                isAlone && std::holds_alternative<Text>(value) && !isCentredAcross(sheet, row, column);
            if (isEmpty(value) || (runsOn && area.columns() > 1)) {
                continue;
            }
            const Index columns = span(sheet, area, row, column);
            const double share = widthOf(value, sheet.format(row, column)) / static_cast<double>(columns);
            for (Index i = column; i < column + columns; ++i) {
                double& width = widths[static_cast<std::size_t>(i - area.left)];
                width = std::clamp(std::ceil(share), width, std::max(width, widest));
            }
        }
    }
    return widths;
}

}  // namespace TBVNonPara::workbook
