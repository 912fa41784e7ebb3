#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace TBVNonPara::workbook {

/// What is wrong with a zip archive whose parts are to be copied byte for byte; none when it is sound. The
/// list at its end counts: each part must lie where the list says, under the same name and packed alike, and
/// no two parts may overlap. The heads of the parts may bear another time, and sizes and checksums of zero,
/// which many programs write, because none of these is copied.
[[nodiscard]] std::optional<std::string> problemOfArchive(std::string_view bytes);

}  // namespace TBVNonPara::workbook
