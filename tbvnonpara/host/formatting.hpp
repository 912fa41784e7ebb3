#pragma once

#include <cstdint>

namespace TBVNonPara {

/// Horizontal alignment of cells, by the numbers that automation clients know.
enum HorizontalAlignment : std::int32_t {
    AlignGeneral = 1,                ///< texts to the left, numbers to the right
    AlignCentreAcrossSelection = 7,  ///< centred over the cells to the right that are empty
    AlignCentre = -4108,             ///< centred in its cell
    AlignLeft = -4131,               ///< to the left
    AlignRight = -4152,              ///< to the right
};

/// The sides of a range, seen from outside: the edge runs around the whole range, not each cell.
enum class BorderEdge : std::int32_t {
    Left = 7,    ///< left of the first column
    Top = 8,     ///< above the first row
    Bottom = 9,  ///< below the last row
    Right = 10,  ///< right of the last column
};

/// How an edge is drawn. Thin is a continuous line of the thinnest ordinary weight.
enum class BorderLine : std::int32_t {
    None = 0,  ///< no line
    Thin = 2,  ///< the thinnest ordinary line
};

/// What a paste carries over.
enum class PasteKind : std::int32_t {
    All = -4104,      ///< values and formats
    Values = -4163,   ///< values alone
    Formats = -4122,  ///< formats alone
};

/// The colour index of cells without a colour of their own.
constexpr std::int16_t noInteriorColour = -4142;

}  // namespace TBVNonPara
