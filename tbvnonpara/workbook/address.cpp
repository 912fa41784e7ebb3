#include "tbvnonpara/workbook/address.hpp"

#include <algorithm>

#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr bool isLetter(char c) noexcept {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

constexpr bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// One corner of an area: a cell, or only its column, or only its row.
struct Corner {
    std::optional<Index> row;
    std::optional<Index> column;
};

/// Reads one address; every complaint names the whole of it.
class AddressReader {
 public:
    explicit AddressReader(std::string_view address) : m_Address(address) {}

    [[nodiscard]] std::vector<AddressArea> areas() const {
        std::vector<AddressArea> areas;
        bool quoted = false;
        std::size_t start = 0;
        for (std::size_t i = 0; i < m_Address.size(); ++i) {
            quoted = quoted != (m_Address[i] == '\'');
            if (m_Address[i] == ',' && !quoted) {
                areas.push_back(area(trimmed(m_Address.substr(start, i - start))));
                start = i + 1;
            }
        }
        if (quoted) {
            complain("a quote is not closed");
        }
        areas.push_back(area(trimmed(m_Address.substr(start))));
        return areas;
    }

 private:
    [[noreturn]] void complain(const std::string& problem) const {
        refuse("The address \"" + std::string(m_Address) + "\" cannot be read: " + problem +
               ". An address looks like A1:A9, Data!$A$1:$B$9, 'My sheet'!A:A or A1:A9,C1:C9.");
    }

    [[nodiscard]] AddressArea area(std::string_view text) const {
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

    /// Takes 'name'! from the front; a doubled quote inside stands for one.
    std::string takeQuotedName(std::string_view& text) const {
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

    void readCells(std::string_view text, AddressArea& area) const {
        if (text.empty()) {
            complain("the cells are missing");
        }
        const std::size_t colon = text.find(':');
        const Corner first = corner(trimmed(text.substr(0, colon)));
        const Corner last = colon == std::string_view::npos ? first : corner(trimmed(text.substr(colon + 1)));
        const bool sameKind = first.row.has_value() == last.row.has_value() &&
                              first.column.has_value() == last.column.has_value();
        const bool oneCell = first.row && first.column;
        if (!sameKind || (colon == std::string_view::npos && !oneCell)) {
            complain("\"" + std::string(text) + "\" names neither cells nor whole columns or rows");
        }
        area.wholeColumns = !first.row;
        area.wholeRows = !first.column;
        area.cells = around(rectangle(first, 1, 1), rectangle(last, sheetRows, sheetColumns));
    }

    static Rectangle rectangle(const Corner& corner, Index rowOtherwise, Index columnOtherwise) {
        const Index row = corner.row.value_or(rowOtherwise);
        const Index column = corner.column.value_or(columnOtherwise);
        return {row, column, row, column};
    }

    [[nodiscard]] Corner corner(std::string_view text) const {
        const std::string_view whole = text;
        Corner corner;
        skipDollar(text);
        if (!text.empty() && isLetter(text.front())) {
            corner.column = takeColumn(text);
            if (!text.empty()) {
                skipDollar(text);
                corner.row = takeRow(text, whole);
            }
        } else {
            corner.row = takeRow(text, whole);
        }
        return corner;
    }

    static void skipDollar(std::string_view& text) {
        if (text.starts_with('$')) {
            text.remove_prefix(1);
        }
    }

    Index takeColumn(std::string_view& text) const {
        Index column = 0;
        std::size_t letters = 0;
        for (; letters < text.size() && isLetter(text[letters]); ++letters) {
            const char c = text[letters];
            column = std::min(column * 26 + (c >= 'a' ? c - 'a' : c - 'A') + 1, sheetColumns + 1);
        }
        if (column > sheetColumns) {
            complain("there is no column " + std::string(text.substr(0, letters)) + ", the last one is XFD");
        }
        text.remove_prefix(letters);
        return column;
    }

    [[nodiscard]] Index takeRow(std::string_view text, std::string_view corner) const {
        Index row = 0;
        for (const char c : text) {
            if (!isDigit(c)) {
                row = 0;
                break;
            }
            row = std::min(row * 10 + (c - '0'), sheetRows + 1);
        }
        if (row > sheetRows) {
            complain("there is no row " + std::string(text) + ", the last one is 1048576");
        }
        if (row == 0) {
            complain("\"" + std::string(corner) + "\" is no cell");
        }
        return row;
    }

    std::string_view m_Address;
};

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

std::vector<AddressArea> parseAddress(std::string_view address) {
    return AddressReader(address).areas();
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

std::string quotedSheetName(std::string_view name) {
    if (!needsQuotes(name)) {
        return std::string(name);
    }
    std::string quoted = "'";
    for (const char c : name) {
        quoted += c;
        if (c == '\'') {
            quoted += c;
        }
    }
    return quoted + '\'';
}

}  // namespace TBVNonPara::workbook
