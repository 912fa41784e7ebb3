#pragma once

#include <charconv>
#include <string>
#include <vector>

#include "tbvnonpara/host/Range.hpp"

namespace TBVNonPara::Support {

/// A sheet's cells as text, one line a row: "U|DF 1|DF 2|P". Empty cells at a line's end and empty lines at
/// the end are left out; an empty text shows as "".
using SheetText = std::vector<std::string>;

/// Numbers with 12 significant digits: enough to tell a wrong figure, too few to see the last places.
inline std::string cellText(const CellValue& value) {
    if (const auto* number = std::get_if<double>(&value)) {
        char text[32];
        const auto end = std::to_chars(text, text + sizeof text, *number, std::chars_format::general, 12);
        return {text, end.ptr};
    }
    const std::string text = toText(value);
    return !isEmpty(value) && text.empty() ? "\"\"" : text;
}

inline SheetText sheetText(const RangeRef& range) {
    const ValueGrid values = range->GetValue();
    SheetText lines;
    for (Long row = 1; row <= values.rows(); ++row) {
        std::string line;
        for (Long column = 1; column <= values.columns(); ++column) {
            line += (column > 1 ? "|" : "") + cellText(values(row, column));
        }
        line.erase(line.find_last_not_of('|') + 1);
        lines.push_back(line);
    }
    while (!lines.empty() && lines.back().empty()) {
        lines.pop_back();
    }
    return lines;
}

/// A range's address without the signs of absolute references.
inline std::string plainAddress(const RangeRef& range) {
    std::string address = range->GetAddress();
    std::erase(address, '$');
    return address;
}

}  // namespace TBVNonPara::Support
