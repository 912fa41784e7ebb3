#pragma once

#include <filesystem>
#include <optional>

namespace TBVNonPara::cli {

/// The folder with the guides and the examples that was installed with the program; none where it runs from
/// elsewhere, a build for instance.
[[nodiscard]] std::optional<std::filesystem::path> installedDocuments();

}  // namespace TBVNonPara::cli
