#include "tbvnonpara/files/part_names.hpp"

#include <algorithm>
#include <zip.h>

namespace TBVNonPara::workbook {

std::optional<std::uint64_t> findPart(zip* archive, const std::string& part) {
    std::string withBackslashes = part;
    std::ranges::replace(withBackslashes, '/', '\\');
    zip_int64_t index = zip_name_locate(archive, part.c_str(), ZIP_FL_ENC_RAW);
    if (index < 0) {
        index = zip_name_locate(archive, part.c_str(), ZIP_FL_NOCASE);
    }
    if (index < 0) {
        index = zip_name_locate(archive, withBackslashes.c_str(), ZIP_FL_NOCASE);
    }
    zip_error_clear(archive);
    return index < 0 ? std::nullopt : std::optional(static_cast<std::uint64_t>(index));
}

bool hasPartFolder(zip* archive, std::string_view folder) {
    const zip_int64_t count = zip_get_num_entries(archive, 0);
    for (zip_int64_t i = 0; i < count; ++i) {
        const char* const written = zip_get_name(archive, static_cast<zip_uint64_t>(i), ZIP_FL_ENC_RAW);
        std::string name = written == nullptr ? "" : written;
        std::ranges::replace(name, '\\', '/');
        if (name.starts_with(folder)) {
            return true;
        }
    }
    return false;
}

}  // namespace TBVNonPara::workbook
