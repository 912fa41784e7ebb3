#include "tbvnonpara/core/file_name.hpp"

#include "tbvnonpara/core/utf8.hpp"

namespace TBVNonPara {

std::string shown(const std::filesystem::path& path) {
    // On Windows, string() would give the letters of the machine's code page.
    const std::u8string text = path.u8string();
    std::string bytes(text.begin(), text.end());
    while (const auto invalid = firstInvalidUtf8(bytes)) {
        bytes[*invalid] = '_';
    }
    return bytes;
}

}  // namespace TBVNonPara
