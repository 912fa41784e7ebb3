#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/grid.hpp"
#include "tbvnonpara/core/text.hpp"

namespace TBVNonPara {

/// A cell that holds nothing.
struct Empty {
    /// Always True.
    friend constexpr bool operator==(Empty, Empty) noexcept = default;
};

/// A cell whose formula failed, by the numbers that automation clients know.
enum class CellError : std::int32_t {
    Null = 2000,            ///< \#NULL!
    DivisionByZero = 2007,  ///< \#DIV/0!
    Value = 2015,           ///< \#VALUE!
    Reference = 2023,       ///< \#REF!
    Name = 2029,            ///< \#NAME?
    Number = 2036,          ///< \#NUM!
    NotAvailable = 2042,    ///< \#N/A
};

/// The text a sheet shows for an error, for example "#N/A".
[[nodiscard]] TBVNONPARA_API std::string_view displayText(CellError error) noexcept;

/// The error that a sheet shows by this text.
[[nodiscard]] TBVNONPARA_API std::optional<CellError> cellErrorNamed(std::string_view text) noexcept;

/// LibreOffice's own number of a failed formula (503, shown as "Err:503") as the nearest of the seven.
[[nodiscard]] TBVNONPARA_API CellError officeError(std::int32_t number) noexcept;

/// What one cell holds. Sixteen bytes, so that a full column of a sheet is read in one piece.
using CellValue = std::variant<Empty, double, Text, bool, CellError>;
static_assert(sizeof(CellValue) <= 16);

/// The values of a range: rows, then columns.
using ValueGrid = Grid<CellValue>;

/// Whether the cell holds nothing; an empty text is something.
[[nodiscard]] inline bool isEmpty(const CellValue& value) noexcept {
    return std::holds_alternative<Empty>(value);
}

/// What a cell that holds no number reads as: see toDouble.
[[nodiscard]] TBVNONPARA_API double readAsDouble(const CellValue& value);

/// The cell read as a number: a number as it is, a text that reads as one, an empty cell as 0, True as -1.
/// Raises TypeMismatch for any other text and for an error value.
[[nodiscard]] inline double toDouble(const CellValue& value) {
    const auto* number = std::get_if<double>(&value);
    return number != nullptr ? *number : readAsDouble(value);
}

/// The cell as text: a number with at most 15 significant digits, "True" and "False", "#N/A".
[[nodiscard]] TBVNONPARA_API std::string toText(const CellValue& value);

}  // namespace TBVNonPara
