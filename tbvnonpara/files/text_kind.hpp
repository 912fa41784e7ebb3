#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace TBVNonPara::workbook {

/// What a text is that holds data in a form other than lines of fields: markup, other exchange formats,
/// documents. The beginning tells; the words are those of foreignKind. None for what may be lines of fields.
[[nodiscard]] std::optional<std::string> foreignTextKind(std::string_view beginning);

}  // namespace TBVNonPara::workbook
