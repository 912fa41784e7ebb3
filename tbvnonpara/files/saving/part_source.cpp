#include "tbvnonpara/files/saving/part_source.hpp"

#include <algorithm>
#include <zip.h>

#include "tbvnonpara/files/saving/memory_source.hpp"

namespace TBVNonPara::workbook {

/// What the archive library asks of a source that is only read. No error may pass through the library.
struct PartSourceCalls {
    static zip_int64_t read(PartSource& source, char* data, std::size_t length) try {
        std::size_t filled = 0;
        while (filled < length && !source.m_Ended) {
            if (source.m_Position == source.m_Piece.size()) {
                source.m_Maker->next(source.m_Piece);
                source.m_Position = 0;
                source.m_Ended = source.m_Piece.empty();
            }
            const std::size_t count = std::min(length - filled, source.m_Piece.size() - source.m_Position);
            source.m_Piece.copy(data + filled, count, source.m_Position);
            source.m_Position += count;
            filled += count;
        }
        return static_cast<zip_int64_t>(filled);
    } catch (...) {
        source.m_Error = std::current_exception();
        return -1;
    }

    /// An archive with a part of unknown size takes a form that some spreadsheet programs call damaged.
    static zip_int64_t facts(const PartSource& source, void* data) {
        auto* const stat = static_cast<zip_stat_t*>(data);
        zip_stat_init(stat);
        stat->size = source.m_Maker->size();
        stat->valid = ZIP_STAT_SIZE;
        return sizeof(*stat);
    }

    static zip_int64_t call(void* user, void* data, zip_uint64_t length, zip_source_cmd_t command) {
        PartSource& source = *static_cast<PartSource*>(user);
        switch (command) {
            case ZIP_SOURCE_READ:
                return read(source, static_cast<char*>(data), length);
            case ZIP_SOURCE_STAT:
                return facts(source, data);
            case ZIP_SOURCE_ERROR:
                return memoryFailure(data, length);
            case ZIP_SOURCE_OPEN:
                source.m_Ended = false;
                return 0;
            case ZIP_SOURCE_CLOSE:
            case ZIP_SOURCE_FREE:
                return 0;
            case ZIP_SOURCE_SUPPORTS:
                return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE,
                                                      ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
            default:
                return -1;
        }
    }
};

zip_source* PartSource::open() {
    return zip_source_function_create(PartSourceCalls::call, this, nullptr);
}

void PartSource::rethrow() const {
    if (m_Error) {
        std::rethrow_exception(m_Error);
    }
}

}  // namespace TBVNonPara::workbook
