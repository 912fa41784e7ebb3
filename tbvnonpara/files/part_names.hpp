#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct zip;

namespace TBVNonPara::workbook {

/// The number of a part in an archive: upper and lower case are the same, and so are slashes and the
/// backslashes that some programs write in their place.
[[nodiscard]] std::optional<std::uint64_t> findPart(zip* archive, const std::string& part);

/// Whether an archive has a part whose name begins like this.
[[nodiscard]] bool hasPartFolder(zip* archive, std::string_view folder);

}  // namespace TBVNonPara::workbook
