#include "adapters/com/addresses.hpp"

#include <algorithm>
#include <charconv>
#include <vector>

#include "tbvnonpara/core/conversions.hpp"

namespace TBVNonPara::com {

namespace {

/// Applications take and give no longer address.
constexpr std::size_t longestAddress = 255;

bool isColumnLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

bool isRowDigit(char character) {
    return character >= '0' && character <= '9';
}

std::string_view withoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

/// Where a character stands outside quoted names, from a position on; the text's length when it does not.
std::size_t findUnquoted(std::string_view text, char wanted, std::size_t from) {
    bool quoted = false;
    for (std::size_t i = from; i < text.size(); ++i) {
        quoted = quoted != (text[i] == '\'');
        if (text[i] == wanted && !quoted) {
            return i;
        }
    }
    return text.size();
}

std::vector<std::string_view> areasOf(std::string_view address) {
    std::vector<std::string_view> areas;
    std::size_t start = 0;
    while (start <= address.size()) {
        const std::size_t end = findUnquoted(address, ',', start);
        areas.push_back(withoutBlanks(address.substr(start, end - start)));
        start = end + 1;
    }
    return areas;
}

/// "Data!", or nothing.
std::string_view sheetOf(std::string_view area) {
    const std::size_t mark = findUnquoted(area, '!', 0);
    return area.substr(0, mark == area.size() ? 0 : mark + 1);
}

/// One corner of an area: $A$1, $A or $1.
struct Corner {
    std::string_view column;
    std::int32_t row = 0;
};

std::optional<Corner> cornerOf(std::string_view text) {
    const auto skipDollar = [&] { text.remove_prefix(text.starts_with('$') ? 1 : 0); };
    Corner corner;
    skipDollar();
    const auto letters =
        static_cast<std::size_t>(std::ranges::find_if_not(text, isColumnLetter) - text.begin());
    corner.column = text.substr(0, letters);
    text.remove_prefix(letters);
    if (text.empty()) {
        return letters >= 1 && letters <= 3 ? std::optional(corner) : std::nullopt;
    }
    skipDollar();
    const auto read = std::from_chars(text.data(), text.data() + text.size(), corner.row);
    const bool isRow = std::ranges::all_of(text, isRowDigit) && read.ec == std::errc() && corner.row > 0;
    return isRow && letters <= 3 ? std::optional(corner) : std::nullopt;
}

struct Corners {
    Corner first;
    Corner last;
};

/// The corners of an area of cells or of whole columns or rows; none for anything else.
std::optional<Corners> cornersOf(std::string_view area) {
    const std::size_t colon = area.find(':');
    const std::optional<Corner> first = cornerOf(withoutBlanks(area.substr(0, colon)));
    if (colon == std::string_view::npos) {
        const bool isCell = first && !first->column.empty() && first->row > 0;
        return isCell ? std::optional(Corners{*first, *first}) : std::nullopt;
    }
    const std::optional<Corner> last = cornerOf(withoutBlanks(area.substr(colon + 1)));
    if (!first || !last || first->column.empty() != last->column.empty() ||
        (first->row == 0) != (last->row == 0)) {
        return std::nullopt;
    }
    return Corners{*first, *last};
}

bool isLastRow(std::int32_t row) {
    return row == 65'536 || row == 1'048'576;
}

std::string lettersOf(std::int32_t column) {
    std::string letters;
    for (; column > 0; column = (column - 1) / 26) {
        letters.insert(letters.begin(), static_cast<char>('A' + (column - 1) % 26));
    }
    return letters;
}

/// The cells of whole columns or rows that lie in the used area; none for an area of another kind.
std::optional<std::string> usedPart(const Corners& area, const std::function<UsedArea()>& used) {
    const bool wholeColumns = area.first.row <= 1 && (area.last.row == 0 || isLastRow(area.last.row));
    const bool wholeRows = area.first.column.empty();
    if (!wholeColumns && !wholeRows) {
        return std::nullopt;
    }
    const auto [lastRow, lastColumn] = used();
    const std::string left = wholeRows ? "A" : std::string(area.first.column);
    const std::string right = wholeRows ? lettersOf(lastColumn) : std::string(area.last.column);
    const std::int32_t top = wholeColumns ? 1 : area.first.row;
    const std::int32_t bottom = wholeColumns ? lastRow : area.last.row;
    return left + std::to_string(top) + ':' + right + std::to_string(bottom);
}

std::int32_t last(const HostObject& area, const wchar_t* first, const wchar_t* count) {
    const double position = area.getNumber(first) + area.object(Kind::Range, count).getNumber(L"Count") - 1;
    return roundHalfToEven(position).value();
}

UsedArea usedAreaOf(const HostObject& sheet) {
    const HostObject used = sheet.object(Kind::Range, L"UsedRange");
    return {last(used, L"Row", L"Rows"), last(used, L"Column", L"Columns")};
}

}  // namespace

std::string withSheets(std::string_view address) {
    std::string completed;
    bool isComplete = true;
    std::string_view sheet;
    for (const std::string_view area : areasOf(address)) {
        const bool namesOne = !sheetOf(area).empty();
        const bool isCells = namesOne || cornersOf(area);
        if (namesOne || !isCells) {
            sheet = sheetOf(area);
        }
        isComplete = isComplete && (namesOne || sheet.empty());
        completed.append(completed.empty() ? "" : ",").append(namesOne ? "" : sheet).append(area);
    }
    const bool isBetter = !isComplete && completed.size() <= longestAddress;
    return isBetter ? completed : std::string(address);
}

std::optional<std::string> endingWith(std::string_view address, const std::function<UsedArea()>& used) {
    std::optional<UsedArea> known;
    const auto usedOnce = [&] { return known ? *known : known.emplace(used()); };
    std::string ending;
    for (const std::string_view area : areasOf(address)) {
        const std::optional<Corners> corners = cornersOf(area);
        const std::optional<std::string> part = corners ? usedPart(*corners, usedOnce) : std::nullopt;
        ending.append(ending.empty() ? "" : ",").append(part ? *part : area);
    }
    return known && ending.size() <= longestAddress ? std::optional(ending) : std::nullopt;
}

HostObject rangeAt(const HostObject& application, std::string_view address) {
    HostObject range = application.object(Kind::Range, L"Range", std::string_view(withSheets(address)));
    const std::string cells = range.getText(L"Address");
    // An address that may have been cut off says nothing about the areas behind its end.
    if (cells.size() + 16 >= longestAddress) {
        return range;
    }
    const auto sheet = [&] { return range.object(Kind::Worksheet, L"Worksheet"); };
    const auto ending = endingWith(cells, [&] { return usedAreaOf(sheet()); });
    return ending ? sheet().object(Kind::Range, L"Range", std::string_view(*ending)) : range;
}

}  // namespace TBVNonPara::com
