#include "tbvnonpara/core/a1.hpp"

#include <utility>

#include "tbvnonpara/core/words.hpp"

namespace TBVNonPara {

namespace {

constexpr bool isLetter(char c) noexcept {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

constexpr bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

/// Ends the reading of an address.
struct Unreadable {
    std::string problem;
};

[[noreturn]] void complain(std::string problem) {
    throw Unreadable{std::move(problem)};
}

/// One corner of an area: a cell, or only its column, or only its row.
struct Corner {
    std::optional<Index> row;
    std::optional<Index> column;
};

void skipDollar(std::string_view& text) {
    if (text.starts_with('$')) {
        text.remove_prefix(1);
    }
}

Index columnAtFront(std::string_view& text) {
    const std::string_view before = text;
    const Index column = takeColumn(text);
    if (column > sheetColumns) {
        complain("there is no column " + std::string(before.substr(0, before.size() - text.size())) +
                 ", the last one is XFD");
    }
    return column;
}

Index rowAtEnd(std::string_view text, std::string_view corner) {
    std::string_view rest = text;
    const Index row = takeRow(rest);
    if (row == 0 || !rest.empty()) {
        complain(inQuotes(corner) + " is no cell");
    }
    if (row > sheetRows) {
        complain("there is no row " + std::string(text) + ", the last one is 1048576");
    }
    return row;
}

Corner readCorner(std::string_view text) {
    const std::string_view whole = text;
    Corner corner;
    skipDollar(text);
    if (text.empty() || !isLetter(text.front())) {
        corner.row = rowAtEnd(text, whole);
        return corner;
    }
    corner.column = columnAtFront(text);
    if (!text.empty()) {
        skipDollar(text);
        corner.row = rowAtEnd(text, whole);
    }
    return corner;
}

Rectangle cellAt(const Corner& corner, Index rowOtherwise, Index columnOtherwise) {
    const Index row = corner.row.value_or(rowOtherwise);
    const Index column = corner.column.value_or(columnOtherwise);
    return {row, column, row, column};
}

void readCells(std::string_view text, AddressArea& area) {
    if (text.empty()) {
        complain("the cells are missing");
    }
    const std::size_t colon = text.find(':');
    const Corner first = readCorner(trimmed(text.substr(0, colon)));
    const Corner last = colon == std::string_view::npos ? first : readCorner(trimmed(text.substr(colon + 1)));
    const bool sameKind =
        first.row.has_value() == last.row.has_value() && first.column.has_value() == last.column.has_value();
    const bool oneCell = first.row && first.column;
    if (!sameKind || (colon == std::string_view::npos && !oneCell)) {
        complain(inQuotes(text) + " names neither cells nor whole columns or rows");
    }
    area.wholeColumns = !first.row;
    area.wholeRows = !first.column;
    area.cells = around(cellAt(first, 1, 1), cellAt(last, sheetRows, sheetColumns));
}

/// Takes 'name'! from the front; a doubled quote inside stands for one.
std::string takeQuotedName(std::string_view& text) {
    std::string name;
    std::size_t i = 1;
    for (; i < text.size(); ++i) {
        if (text[i] == '\'') {
            i += 1;
            if (i >= text.size() || text[i] != '\'') {
                break;
            }
        }
        name += text[i];
    }
    if (i >= text.size() || text[i] != '!') {
        complain("after a quoted sheet name there must be an exclamation mark and the cells");
    }
    text.remove_prefix(i + 1);
    return name;
}

AddressArea readArea(std::string_view text) {
    AddressArea area;
    if (text.starts_with('\'')) {
        area.sheet = takeQuotedName(text);
    } else if (const std::size_t mark = text.find('!'); mark != std::string_view::npos) {
        area.sheet = std::string(trimmed(text.substr(0, mark)));
        text.remove_prefix(mark + 1);
    }
    if (area.sheet && area.sheet->empty()) {
        complain("the name of the sheet is missing before the exclamation mark");
    }
    readCells(trimmed(text), area);
    return area;
}

std::vector<AddressArea> readAreas(std::string_view address) {
    std::vector<AddressArea> areas;
    const std::vector<std::string_view> parts = splitUnquoted(address);
    const bool quoteIsOpen = std::ranges::count(address, '\'') % 2 != 0;
    for (const std::string_view part : parts) {
        // The part behind an open quote is the last one.
        if (quoteIsOpen && areas.size() + 1 == parts.size()) {
            complain("a quote is not closed");
        }
        areas.push_back(readArea(trimmed(part)));
    }
    return areas;
}

/// A name that would read as a cell, as a number or as something else must stand in quotes.
bool needsQuotes(std::string_view name) {
    if (name.empty() || isDigit(name.front())) {
        return true;
    }
    const bool plain = std::ranges::all_of(name, [](char c) {
        return isLetter(c) || isDigit(c) || c == '_' || static_cast<unsigned char>(c) >= 0x80U;
    });
    const auto letters = static_cast<std::size_t>(std::ranges::find_if_not(name, isLetter) - name.begin());
    const bool likeCell = letters <= 3 && std::ranges::all_of(name.substr(letters), isDigit);
    return !plain || likeCell;
}

}  // namespace

WrittenAddress readAddress(std::string_view address) try {
    return {readAreas(address), {}};
} catch (Unreadable& unreadable) {
    return {{}, std::move(unreadable.problem)};
}

std::vector<std::string_view> splitUnquoted(std::string_view address, std::string_view separators) {
    std::vector<std::string_view> parts;
    bool quoteIsOpen = false;
    std::size_t start = 0;
    for (std::size_t i = 0; i < address.size(); ++i) {
        quoteIsOpen = quoteIsOpen != (address[i] == '\'');
        if (!quoteIsOpen && separators.find(address[i]) != std::string_view::npos) {
            parts.push_back(address.substr(start, i - start));
            start = i + 1;
        }
    }
    parts.push_back(address.substr(start));
    return parts;
}

std::string columnLetters(Index column) {
    std::string letters;
    for (; column > 0; column = (column - 1) / 26) {
        letters.insert(letters.begin(), static_cast<char>('A' + (column - 1) % 26));
    }
    return letters;
}

std::string absoluteAddress(const Rectangle& area) {
    const auto cell = [](Index row, Index column) {
        std::string text = "$";
        return text.append(columnLetters(column)).append("$").append(std::to_string(row));
    };
    const std::string first = cell(area.top, area.left);
    return area.cells() == 1 ? first : first + ':' + cell(area.bottom, area.right);
}

std::string absoluteAddress(const Areas& areas) {
    std::string address;
    for (const Rectangle& area : areas) {
        address.append(address.empty() ? "" : ",").append(absoluteAddress(area));
    }
    return address;
}

std::string plainAddress(const Rectangle& area) {
    return withoutDollars(absoluteAddress(area));
}

std::string plainAddress(Index row, Index column) {
    return columnLetters(column) + std::to_string(row);
}

std::string withoutDollars(std::string address) {
    std::erase(address, '$');
    return address;
}

std::string quotedSheetName(std::string_view name) {
    if (!needsQuotes(name)) {
        return std::string(name);
    }
    std::string result = "'";
    for (const char c : name) {
        result.append(c == '\'' ? 2 : 1, c);
    }
    return result + '\'';
}

}  // namespace TBVNonPara
