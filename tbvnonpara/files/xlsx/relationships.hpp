#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/files/container.hpp"

namespace TBVNonPara::workbook {

/// One part pointing at another.
struct XlsxRelationship {
    std::string id;
    std::string kind;    ///< the last word of its type: "worksheet", "sharedStrings"
    std::string target;  ///< the part, as the container names it
};

/// What a part points at inside the file; nothing when it has no relationships. The part "" is the package.
[[nodiscard]] std::vector<XlsxRelationship> readRelationships(const Parts& parts, const std::string& part);

/// The part that a target means: "/xl/a.xml" from the package's root, anything else from the folder of the
/// part that points at it.
[[nodiscard]] std::string resolvedTarget(std::string_view from, std::string_view target);

}  // namespace TBVNonPara::workbook
