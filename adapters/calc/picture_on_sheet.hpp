#pragma once

#include "adapters/calc/addresses.hpp"
#include "tbvnonpara/rendering/pictures/svg.hpp"

namespace TBVNonPara::calc {

/// Puts a drawing onto a sheet, its upper left corner at that of the one cell of `place`, on white paper and
/// in the letters of the document. Its name and what it shows go with it for those who cannot see it. It
/// moves with its cell and keeps its size. Raises the host's error where the office makes no image of it.
void putPicture(const Context& context, const SheetAreas& place, const rendering::Drawing& drawing);

/// How high a drawing becomes on a sheet, in hundredths of a millimetre.
[[nodiscard]] std::int32_t heightOnSheet(const rendering::Drawing& drawing);

}  // namespace TBVNonPara::calc
