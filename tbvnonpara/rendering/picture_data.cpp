#include "tbvnonpara/rendering/picture_data.hpp"

#include <algorithm>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/workbook/sheet_range.hpp"

namespace TBVNonPara::rendering {

namespace {

std::optional<double> numberOf(const CellValue& value) {
    if (const auto* number = std::get_if<double>(&value)) {
        return *number;
    }
    const auto* text = std::get_if<Text>(&value);
    return text == nullptr ? std::nullopt : readAsNumber(text->string());
}

}  // namespace

std::vector<PictureColumn> columnsAt(const workbook::EmbeddedApplication& application,
                                     std::string_view address, bool headers) {
    const RangeRef range = application.GetRange(address);
    const workbook::SheetRange& own = workbook::ownRange(range);
    std::vector<PictureColumn> columns;
    for (const Rectangle& area : own.areas()) {
        for (Index column = area.left; column <= area.right; ++column) {
            PictureColumn one;
            one.label =
                headers ? toText(own.sheet()->value(area.top, column)) : "Column " + columnLetters(column);
            const Index first = area.top + (headers ? 1 : 0);
            one.cells.resize(static_cast<std::size_t>(std::max<Index>(area.bottom - first + 1, 0)));
            if (!one.cells.empty()) {
                own.sheet()->values().read(first, column, one.cells);
            }
            columns.push_back(std::move(one));
        }
    }
    return columns;
}

std::vector<double> numbersOf(const PictureColumn& column) {
    std::vector<double> numbers;
    for (const CellValue& cell : column.cells) {
        if (const std::optional<double> number = numberOf(cell)) {
            numbers.push_back(*number);
        }
    }
    return numbers;
}

double quantile(const std::vector<double>& sorted, double part) {
    const double place = part * static_cast<double>(sorted.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const double above = sorted[std::min(below + 1, sorted.size() - 1)];
    const double weight = place - static_cast<double>(below);
    return sorted[below] * (1 - weight) + above * weight;
}

}  // namespace TBVNonPara::rendering
