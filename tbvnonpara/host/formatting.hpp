#pragma once

#include <cstdint>

namespace TBVNonPara {

/// Horizontal alignment of cells, by the numbers that automation clients know.
enum HorizontalAlignment : std::int32_t {
    AlignGeneral = 1,
    AlignCentreAcrossSelection = 7,
    AlignCentre = -4108,
    AlignLeft = -4131,
    AlignRight = -4152,
};

/// The sides of a range, seen from outside: the edge runs around the whole range, not each cell.
enum class BorderEdge : std::int32_t { Left = 7, Top = 8, Bottom = 9, Right = 10 };

/// How an edge is drawn. Thin is a continuous line of the thinnest ordinary weight.
enum class BorderLine : std::int32_t { None = 0, Thin = 2 };

/// What a paste carries over.
enum class PasteKind : std::int32_t { All = -4104, Values = -4163, Formats = -4122 };

/// The colour index of cells without a colour of their own.
constexpr std::int16_t noInteriorColour = -4142;

}  // namespace TBVNonPara
