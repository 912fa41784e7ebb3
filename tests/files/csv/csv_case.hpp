#pragma once

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "tbvnonpara/files/csv/reader.hpp"

namespace TBVNonPara::workbook {

/// The cells as text, columns divided by bars and rows by slashes; the kind stands before all but numbers:
/// t for text, b for Boolean, e for error.
inline std::string shown(const CellStore& cells) {
    const auto used = cells.usedArea();
    std::string text;
    for (Index row = 1; used && row <= used->bottom; ++row) {
        text += row == 1 ? "" : "/";
        for (Index column = 1; column <= used->right; ++column) {
            const CellValue& value = cells.at(row, column);
            text += column == 1 ? "" : "|";
            text += std::holds_alternative<Text>(value)        ? "t"
                    : std::holds_alternative<bool>(value)      ? "b"
                    : std::holds_alternative<CellError>(value) ? "e"
                                                               : "";
            text += toText(value);
        }
    }
    return text;
}

/// A text and what becomes of it: its cells, or how it is refused.
struct CsvCase {
    const char* name;
    std::string_view text;
    const char* expected;
};

inline std::string nameOf(const testing::TestParamInfo<CsvCase>& info) {
    return info.param.name;
}

}  // namespace TBVNonPara::workbook
