#include "tbvnonpara/analysis/ranges.hpp"

#include <algorithm>
#include <utility>

#include "tbvnonpara/analysis/column_address.hpp"
#include "tbvnonpara/analysis/long_ranges.hpp"
#include "tbvnonpara/analysis/refusal.hpp"
#include "tbvnonpara/analysis/user_range.hpp"
#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/core/enumerations.hpp"

namespace TBVNonPara::analysis {

namespace {

using workbook::EmbeddedApplication;
using workbook::Sheet;

constexpr bool endsTogether(DataShape shape) noexcept {
    return shape == DataShape::Groups || shape == DataShape::Blocks || shape == DataShape::CodesOrPairs;
}

/// Both variables, first the columns that they name, then the cells.
struct Choice {
    NamedCells y;
    NamedCells x;
    bool byItself = false;
    std::string rowNames;  ///< the letters of the column that was left out, empty for none
};

bool isEmptyText(const CellValue& value) {
    const auto* const text = std::get_if<Text>(&value);
    return isEmpty(value) || (text != nullptr && text->string().empty());
}

bool isText(const CellValue& value) {
    const auto* const text = std::get_if<Text>(&value);
    return text != nullptr && !text->string().empty() && !readAsNumber(text->string());
}

/// R and others write the names of rows into a first column, which alone has no header.
bool beginsWithRowNames(const Sheet& sheet, const std::vector<Piece>& columns,
                        const std::optional<bool>& headers) {
    const Index top = sheet.usedArea()->top;
    const auto header = [&](const Piece& piece) { return sheet.value(top, piece.cells.left); };
    const auto isHeaded = [&](const Piece& piece) {
        return headers ? *headers && !isEmptyText(header(piece)) : isText(header(piece));
    };
    return columns.size() > 1 && isEmptyText(header(columns.front())) &&
           std::all_of(columns.begin() + 1, columns.end(), isHeaded);
}

Choice columnsInOrder(const EmbeddedApplication& application, DataShape shape,
                      const std::optional<bool>& headers) {
    const std::shared_ptr<Sheet> sheet = application.activeSheet();
    std::vector<Piece> columns = columnsWithData(*sheet);
    if (columns.empty()) {
        refuse(tbvNPNoData, "The sheet \"" + sheet->name() + "\" holds no data.");
    }
    Choice choice{{sheet, {}, false}, {sheet, {}, false}, true, ""};
    if (beginsWithRowNames(*sheet, columns, headers)) {
        choice.rowNames = columnLetters(columns.front().cells.left);
        columns.erase(columns.begin());
    }
    if (takesManyColumns(shape)) {
        choice.y.pieces = std::move(columns);
        return choice;
    }
    choice.y.pieces = {columns.front()};
    if (takesSecondRange(shape) && columns.size() > 1) {
        choice.x.pieces = {columns[1]};
    }
    return choice;
}

Choice columnsNamed(const EmbeddedApplication& application, const Choices& choices) {
    const HeaderLookup lookup = lookupFor(choices.headers);
    Choice choice;
    choice.y = findCells(application, choices.y, lookup, tbvNPBadYRange);
    if (!choices.x.empty()) {
        choice.x = findCells(application, choices.x, lookup, tbvNPBadXRange);
    }
    const auto isWhole = [](const Piece& piece) { return piece.wholeColumns; };
    choice.byItself =
        std::ranges::any_of(choice.y.pieces, isWhole) || std::ranges::any_of(choice.x.pieces, isWhole);
    return choice;
}

Index lastRow(const NamedCells& cells) {
    Index last = 0;
    for (const Piece& piece : cells.pieces) {
        last = std::max(last, piece.wholeColumns
                                  ? cells.sheet->values().lastUsedRow(piece.cells.left, piece.cells.right)
                                  : piece.cells.bottom);
    }
    return last;
}

/// Whole columns get their rows; columns side by side become one block.
Areas areasOf(const NamedCells& cells, Index commonLast) {
    Areas areas;
    bool joinable = false;
    const auto used = cells.sheet == nullptr ? std::nullopt : cells.sheet->usedArea();
    for (const Piece& piece : cells.pieces) {
        Rectangle area = piece.cells;
        if (piece.wholeColumns) {
            const Index own = cells.sheet->values().lastUsedRow(area.left, area.right);
            area.top = used ? used->top : 1;
            area.bottom = std::max(area.top, commonLast > 0 ? commonLast : own);
        }
        if (joinable && piece.wholeColumns && areas.back().right + 1 == area.left) {
            areas.back().right = area.right;
        } else {
            areas.push_back(area);
        }
        joinable = piece.wholeColumns;
    }
    return areas;
}

/// Whether the first cell of a column can be a label; in a sequence a value that comes again is none.
bool isLabel(const Sheet& sheet, Index top, Index bottom, Index column, DataShape shape) {
    const CellValue& first = sheet.value(top, column);
    const auto* text = std::get_if<Text>(&first);
    if (text == nullptr || readAsNumber(text->string())) {
        return false;
    }
    for (Index row = top + 1; shape == DataShape::Sequence && row <= bottom; ++row) {
        if (sheet.value(row, column) == first) {
            return false;
        }
    }
    return true;
}

/// Adds to found whether there is a label; false when a first cell holds anything else.
bool onlyLabels(const Sheet& sheet, const Areas& areas, DataShape shape, bool& found) {
    for (const Rectangle& area : areas) {
        for (Index column = area.left; column <= area.right; ++column) {
            if (isEmpty(sheet.value(area.top, column))) {
                continue;
            }
            if (!isLabel(sheet, area.top, area.bottom, column, shape)) {
                return false;
            }
            found = true;
        }
    }
    return true;
}

std::string addressOf(const Sheet& sheet, const Areas& areas) {
    std::string address = absoluteAddress(areas);
    std::erase(address, '$');
    return quotedSheetName(sheet.name()) + '!' + address;
}

std::string rowsOf(const std::string& address, Index rows) {
    return address + " has " + std::to_string(rows);
}

/// Where rows belong together, ranges of unequal height would be read past their end without a word.
void requireEqualRows(DataShape shape, const ChosenRanges& chosen, const Areas& y, const Areas& x) {
    const auto differs = [&](const Rectangle& area) { return area.rows() != y.front().rows(); };
    if (shape == DataShape::CodesOrPairs && !x.empty() && differs(x.front())) {
        refuse(tbvNPUnequalPairs,
               "The two ranges differ in their number of rows: " + rowsOf(chosen.y, y.front().rows()) + ", " +
                   rowsOf(chosen.x, x.front().rows()) + ". Make them equally long.");
    }
    if (shape == DataShape::Blocks && std::ranges::any_of(y, differs)) {
        refuse(tbvNPUnequalPairs, "The areas of " + chosen.y +
                                      " differ in their number of rows, but every block needs a value of "
                                      "every treatment. Make them equally long.");
    }
}

std::string noteOn(const ChosenRanges& chosen, const std::string& rowNames) {
    const std::string leftOut =
        rowNames.empty() ? "" : "; column " + rowNames + ", which has no header, is taken for row names";
    return "using " + chosen.y + (chosen.x.empty() ? "" : " and " + chosen.x) +
           (chosen.headers ? " (first row is headers" : " (no headers") + leftOut + ')';
}

}  // namespace

ChosenRanges chooseRanges(const EmbeddedApplication& application, const Choices& choices) {
    if (!choices.by.empty()) {
        return chooseLongRanges(application, choices);
    }
    const DataShape shape = choices.test->shape;
    const Choice choice = choices.y.empty() ? columnsInOrder(application, shape, choices.headers)
                                            : columnsNamed(application, choices);
    const Index commonLast = endsTogether(shape) ? std::max(lastRow(choice.y), lastRow(choice.x)) : 0;
    const Areas y = areasOf(choice.y, commonLast);
    const Areas x = areasOf(choice.x, commonLast);

    ChosenRanges chosen;
    chosen.y = addressOf(*choice.y.sheet, y);
    chosen.x = x.empty() ? "" : addressOf(*choice.x.sheet, x);
    bool labels = false;
    const bool detected = onlyLabels(*choice.y.sheet, y, shape, labels) &&
                          (x.empty() || onlyLabels(*choice.x.sheet, x, shape, labels)) && labels;
    chosen.headers = choices.headers.value_or(choice.y.byHeader || choice.x.byHeader || detected);
    requireEqualRows(shape, chosen, y, x);
    if (choice.byItself || !choices.headers) {
        chosen.note = noteOn(asInTheFile(application, chosen), choice.rowNames);
    }
    return chosen;
}

}  // namespace TBVNonPara::analysis
