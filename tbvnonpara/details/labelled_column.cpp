#include "tbvnonpara/details/labelled_column.hpp"

#include "tbvnonpara/core/conversions.hpp"

namespace TBVNonPara {

std::optional<double> numberIn(const CellValue& cell) {
    if (const auto* number = std::get_if<double>(&cell)) {
        return *number;
    }
    const auto* text = std::get_if<Text>(&cell);
    return text == nullptr ? std::nullopt : readAsNumber(text->string());
}

std::vector<double> numbersOf(const LabelledColumn& column) {
    std::vector<double> numbers;
    for (const CellValue& cell : column.cells) {
        if (const std::optional<double> number = numberIn(cell)) {
            numbers.push_back(*number);
        }
    }
    return numbers;
}

}  // namespace TBVNonPara
