#include "cli/installed.hpp"

#include <system_error>

namespace TBVNonPara::cli {

std::optional<std::filesystem::path> installedDocuments() {
    std::error_code error;
    // Found from the program itself, since a package may be unpacked anywhere.
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    const std::filesystem::path folder = program.parent_path().parent_path() / "share/doc/tbvnonpara";
    if (error || !std::filesystem::is_directory(folder / "examples", error)) {
        return std::nullopt;
    }
    return folder;
}

}  // namespace TBVNonPara::cli
