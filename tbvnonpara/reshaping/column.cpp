#include "tbvnonpara/reshaping/column.hpp"

#include "tbvnonpara/core/words.hpp"

namespace TBVNonPara::reshaping {

namespace {

constexpr std::size_t longestText = 60;

std::string onSheet(const Column& column, const std::string& place) {
    return quotedSheetName(column.sheet) + '!' + place;
}

}  // namespace

std::string nameOf(const Column& column) {
    if (!column.header.empty()) {
        return onSheet(column, shortened(column.header, longestText));
    }
    const std::string place =
        column.turned ? "row " + std::to_string(column.place) : columnLetters(column.place);
    return onSheet(column, place);
}

std::string nameOfCell(const Column& column, std::size_t cell) {
    const Index row = column.rows[cell];
    return onSheet(column, column.turned ? plainAddress(column.place, row) : plainAddress(row, column.place));
}

std::string contentsOf(const CellValue& value) {
    if (const auto* text = std::get_if<Text>(&value)) {
        return "the text " + inQuotes(shortened(text->string(), longestText));
    }
    return (std::holds_alternative<CellError>(value) ? "the error " : "") + toText(value);
}

void keepCells(Column& column, const std::vector<bool>& keep) {
    std::size_t kept = 0;
    for (std::size_t cell = 0; cell < column.cells.size(); ++cell) {
        if (keep[cell]) {
            column.rows[kept] = column.rows[cell];
            column.cells[kept] = std::move(column.cells[cell]);
            kept += 1;
        }
    }
    column.rows.resize(kept);
    column.cells.resize(kept);
}

std::string counted(std::size_t number, std::string_view one, std::string_view several) {
    return std::to_string(number) + ' ' + std::string(number == 1 ? one : several);
}

}  // namespace TBVNonPara::reshaping
