#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/rectangle.hpp"

namespace TBVNonPara {

/// Far outside every sheet, and far from overflowing with 32 bits, too: what is left of a longer number.
constexpr Index farOutside = Index(1) << 26U;

/// Takes a column's letters, in either case, from the front of a text; 0 where there are none.
[[nodiscard]] constexpr Index takeColumn(std::string_view& text) noexcept {
    Index column = 0;
    std::size_t letters = 0;
    for (; letters < text.size(); ++letters) {
        const char small = static_cast<char>(text[letters] | 0x20);
        if (small < 'a' || small > 'z') {
            break;
        }
        column = std::min(column * 26 + (small - 'a' + 1), farOutside);
    }
    text.remove_prefix(letters);
    return column;
}

/// Takes a row's digits from the front of a text; 0 where there are none.
[[nodiscard]] constexpr Index takeRow(std::string_view& text) noexcept {
    Index row = 0;
    std::size_t digits = 0;
    for (; digits < text.size() && text[digits] >= '0' && text[digits] <= '9'; ++digits) {
        row = std::min(row * 10 + (text[digits] - '0'), farOutside);
    }
    text.remove_prefix(digits);
    return row;
}

struct CellPlace {
    Index row = 0;
    Index column = 0;
};

/// The place of "AB12", which may lie outside a sheet; none for anything but letters and digits.
[[nodiscard]] constexpr std::optional<CellPlace> placeOf(std::string_view reference) noexcept {
    CellPlace place;
    std::string_view rest = reference;
    place.column = takeColumn(rest);
    if (rest.size() == reference.size() || rest.empty()) {
        return std::nullopt;
    }
    place.row = takeRow(rest);
    return rest.empty() ? std::optional(place) : std::nullopt;
}

/// One area of an address as it is written. A whole column or row spans the sheet until it is trimmed.
struct AddressArea {
    std::optional<std::string> sheet;  ///< as written in front of this area, without quotes
    Rectangle cells;                   ///< corners in order
    bool wholeColumns = false;
    bool wholeRows = false;
};

/// What an address says, or which part of it cannot be read.
struct WrittenAddress {
    std::vector<AddressArea> areas;  ///< in the order in which they were named
    std::string problem;             ///< empty for an address that can be read
};

/// Reads "A1", "$A$1:$B$9", "Data!A1:A9,C1:C9", "'It''s'!A:C", "2:5". Letters of either case, corners in any
/// order.
[[nodiscard]] TBVNONPARA_API WrittenAddress readAddress(std::string_view address);

/// The parts between commas, or between any of the separators; those in the quotes of a sheet's name do not
/// count.
[[nodiscard]] TBVNONPARA_API std::vector<std::string_view> splitUnquoted(std::string_view address,
                                                                         std::string_view separators = ",");

/// "A", "XFD".
[[nodiscard]] TBVNONPARA_API std::string columnLetters(Index column);

/// "$A$1" or "$A$1:$B$9"; several areas are joined by commas.
[[nodiscard]] TBVNONPARA_API std::string absoluteAddress(const Rectangle& area);
[[nodiscard]] TBVNONPARA_API std::string absoluteAddress(const Areas& areas);

/// "A1" or "A1:B9".
[[nodiscard]] TBVNONPARA_API std::string plainAddress(const Rectangle& area);
[[nodiscard]] TBVNONPARA_API std::string plainAddress(Index row, Index column);
/// The same of an address as a host gives it: "$A$1".
[[nodiscard]] TBVNONPARA_API std::string withoutDollars(std::string address);

/// The name as it stands in front of an address: in quotes where it needs them.
[[nodiscard]] TBVNONPARA_API std::string quotedSheetName(std::string_view name);

}  // namespace TBVNonPara
