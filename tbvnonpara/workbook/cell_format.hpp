#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "tbvnonpara/host/formatting.hpp"

namespace TBVNonPara::workbook {

/// Which sides of a cell bear a thin line.
struct Borders {
    bool left = false;
    bool top = false;
    bool bottom = false;
    bool right = false;

    friend bool operator==(const Borders&, const Borders&) = default;
};

/// Characters of a cell's text, the first counted from 1.
struct CharacterRun {
    std::int32_t start = 1;
    std::int32_t length = 0;

    friend auto operator<=>(const CharacterRun&, const CharacterRun&) = default;
};

/// How one cell looks.
struct CellFormat {
    std::string numberFormat = "General";
    HorizontalAlignment alignment = AlignGeneral;
    bool bold = false;
    Borders borders;
    std::int16_t interiorColour = noInteriorColour;
    std::vector<CharacterRun> subscripts;  ///< in order, neither touching nor overlapping

    friend bool operator==(const CellFormat&, const CellFormat&) = default;
    /// Any order will do: formats are looked up in a table.
    friend bool operator<(const CellFormat& a, const CellFormat& b) {
        const auto fields = [](const CellFormat& format) {
            return std::tie(format.numberFormat, format.alignment, format.bold, format.borders.left,
                            format.borders.top, format.borders.bottom, format.borders.right,
                            format.interiorColour, format.subscripts);
        };
        return fields(a) < fields(b);
    }
};

}  // namespace TBVNonPara::workbook
