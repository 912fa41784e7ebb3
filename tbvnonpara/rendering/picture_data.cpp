#include "tbvnonpara/rendering/picture_data.hpp"

#include <algorithm>
#include <numeric>

#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/workbook/address.hpp"
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
    for (const workbook::Rectangle& area : own.areas()) {
        for (Index column = area.left; column <= area.right; ++column) {
            PictureColumn one;
            one.label = headers ? toText(own.sheet()->value(area.top, column))
                                : "Column " + workbook::columnLetters(column);
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

std::vector<Pair> pairsOf(const PictureColumn& y, const PictureColumn& x) {
    std::vector<Pair> pairs;
    for (std::size_t i = 0; i < std::min(y.cells.size(), x.cells.size()); ++i) {
        const std::optional<double> first = numberOf(y.cells[i]);
        const std::optional<double> second = numberOf(x.cells[i]);
        if (first && second) {
            pairs.push_back({*first, *second});
        }
    }
    return pairs;
}

double quantile(const std::vector<double>& sorted, double part) {
    const double place = part * static_cast<double>(sorted.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const double above = sorted[std::min(below + 1, sorted.size() - 1)];
    const double weight = place - static_cast<double>(below);
    return sorted[below] * (1 - weight) + above * weight;
}

std::vector<double> averageRanks(const std::vector<double>& numbers) {
    std::vector<std::size_t> order(numbers.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::ranges::sort(order, {}, [&](std::size_t i) { return numbers[i]; });
    std::vector<double> ranks(numbers.size());
    for (std::size_t first = 0; first < order.size();) {
        std::size_t end = first + 1;
        while (end < order.size() && numbers[order[end]] == numbers[order[first]]) {
            end += 1;
        }
        for (std::size_t i = first; i < end; ++i) {
            ranks[order[i]] = static_cast<double>(first + 1 + end) / 2;
        }
        first = end;
    }
    return ranks;
}

}  // namespace TBVNonPara::rendering
