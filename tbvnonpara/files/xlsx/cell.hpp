#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/dates.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"
#include "tbvnonpara/files/file_values.hpp"

namespace TBVNonPara::workbook {

enum class XlsxType { Number, SharedText, FormulaText, InlineText, Boolean, Error, Date, Unknown };

/// The type that the attribute of a cell names.
[[nodiscard]] XlsxType typeNamed(std::string_view name);

/// A cell as it is written: its type, whether it has a formula, and its value as text.
struct XlsxCell {
    XlsxType type = XlsxType::Number;
    bool formula = false;
    bool hasValue = false;  ///< also an empty one
    std::string value;
    std::string unknownType;  ///< as it is written
};

/// What the cells of a workbook share.
struct XlsxTexts {
    std::vector<Text> shared;
    DateSystem dates = dates1900;
};

/// What a cell means. An inline text is its value already. Raises the host's error for a value that its type
/// cannot have.
[[nodiscard]] CellValue meaningOf(const XlsxCell& cell, const XlsxTexts& texts);

}  // namespace TBVNonPara::workbook
