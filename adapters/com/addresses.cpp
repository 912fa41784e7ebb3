#include "adapters/com/addresses.hpp"

#include <vector>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/core/words.hpp"

namespace TBVNonPara::com {

namespace {

/// Applications take and give no longer address.
constexpr std::size_t longestAddress = 255;

std::vector<std::string_view> areasOf(std::string_view address) {
    std::vector<std::string_view> areas = splitUnquoted(address);
    for (std::string_view& area : areas) {
        area = trimmed(area);
    }
    return areas;
}

/// "Data!", or nothing.
std::string_view sheetOf(std::string_view area) {
    const std::size_t name = splitUnquoted(area, "!").front().size();
    return name == area.size() ? std::string_view() : area.substr(0, name + 1);
}

/// The area, when it names cells, whole columns or whole rows of no particular sheet.
std::optional<AddressArea> cellsOf(std::string_view area) {
    const WrittenAddress written = readAddress(area);
    const bool isCells = written.problem.empty() && !written.areas.front().sheet;
    return isCells ? std::optional(written.areas.front()) : std::nullopt;
}

/// Of a sheet of today, or of one in an older format.
bool isLastRow(Index row) {
    return row == 65'536 || row == sheetRows;
}

/// The cells of whole columns or rows that lie in the used area; none for an area of another kind.
std::optional<Rectangle> usedPart(const AddressArea& area, const std::function<UsedArea()>& used) {
    Rectangle part = area.cells;
    const bool allRows = part.top == 1 && isLastRow(part.bottom);
    if (!allRows && !area.wholeRows) {
        return std::nullopt;
    }
    const auto [lastRow, lastColumn] = used();
    part.bottom = allRows ? lastRow : part.bottom;
    part.right = area.wholeRows ? lastColumn : part.right;
    return part;
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
        const bool isCells = namesOne || cellsOf(area);
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
        const std::optional<AddressArea> cells = cellsOf(area);
        const std::optional<Rectangle> part = cells ? usedPart(*cells, usedOnce) : std::nullopt;
        ending.append(ending.empty() ? "" : ",").append(part ? plainAddress(*part) : area);
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
