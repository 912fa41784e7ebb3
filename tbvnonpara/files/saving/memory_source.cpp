#include "tbvnonpara/files/saving/memory_source.hpp"

#include <algorithm>
#include <cstring>
#include <new>
#include <zip.h>

namespace TBVNonPara::workbook {

/// What the archive library asks of a source. Nothing is thrown: a shortage of memory is answered with -1.
struct MemorySourceCalls {
    static zip_int64_t read(MemorySource& source, void* data, zip_uint64_t length) {
        const std::size_t count =
            std::min<std::size_t>(length, source.m_Bytes.size() - source.m_ReadPosition);
        std::memcpy(data, source.m_Bytes.data() + source.m_ReadPosition, count);
        source.m_ReadPosition += count;
        return static_cast<zip_int64_t>(count);
    }

    static zip_int64_t write(MemorySource& source, const void* data, zip_uint64_t length) try {
        const std::size_t end = source.m_WritePosition + length;
        source.m_Written.resize(std::max(source.m_Written.size(), end));
        std::memcpy(source.m_Written.data() + source.m_WritePosition, data, length);
        source.m_WritePosition = end;
        return static_cast<zip_int64_t>(length);
    } catch (const std::bad_alloc&) {
        return -1;
    }

    static zip_int64_t seek(std::size_t& position, std::size_t size, void* data, zip_uint64_t length) {
        zip_error_t error;
        zip_error_init(&error);
        const zip_int64_t target = zip_source_seek_compute_offset(position, size, data, length, &error);
        zip_error_fini(&error);
        position = target < 0 ? position : static_cast<std::size_t>(target);
        return target < 0 ? -1 : 0;
    }

    static zip_int64_t facts(const MemorySource& source, void* data) {
        auto* const stat = static_cast<zip_stat_t*>(data);
        zip_stat_init(stat);
        stat->size = source.m_Bytes.size();
        stat->valid = ZIP_STAT_SIZE;
        return sizeof(*stat);
    }

    static zip_int64_t beginWriting(MemorySource& source) {
        source.m_Written = std::string();
        source.m_WritePosition = 0;
        return 0;
    }

    static zip_int64_t call(void* user, void* data, zip_uint64_t length, zip_source_cmd_t command) {
        MemorySource& source = *static_cast<MemorySource*>(user);
        switch (command) {
            case ZIP_SOURCE_OPEN:
                source.m_ReadPosition = 0;
                return 0;
            case ZIP_SOURCE_READ:
                return read(source, data, length);
            case ZIP_SOURCE_SEEK:
                return seek(source.m_ReadPosition, source.m_Bytes.size(), data, length);
            case ZIP_SOURCE_TELL:
                return static_cast<zip_int64_t>(source.m_ReadPosition);
            case ZIP_SOURCE_STAT:
                return facts(source, data);
            case ZIP_SOURCE_BEGIN_WRITE:
            case ZIP_SOURCE_ROLLBACK_WRITE:
                return beginWriting(source);
            case ZIP_SOURCE_WRITE:
                return write(source, data, length);
            case ZIP_SOURCE_SEEK_WRITE:
                return seek(source.m_WritePosition, source.m_Written.size(), data, length);
            case ZIP_SOURCE_TELL_WRITE:
                return static_cast<zip_int64_t>(source.m_WritePosition);
            case ZIP_SOURCE_COMMIT_WRITE:
                source.m_Bytes.swap(source.m_Written);
                return beginWriting(source);
            case ZIP_SOURCE_REMOVE:
                source.m_Bytes.clear();
                return 0;
            case ZIP_SOURCE_CLOSE:
            case ZIP_SOURCE_FREE:
                return 0;
            case ZIP_SOURCE_ERROR:
                return memoryFailure(data, length);
            case ZIP_SOURCE_SUPPORTS:
                return zip_source_make_command_bitmap(
                    ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR,
                    ZIP_SOURCE_FREE, ZIP_SOURCE_SEEK, ZIP_SOURCE_TELL, ZIP_SOURCE_BEGIN_WRITE,
                    ZIP_SOURCE_COMMIT_WRITE, ZIP_SOURCE_ROLLBACK_WRITE, ZIP_SOURCE_WRITE,
                    ZIP_SOURCE_SEEK_WRITE, ZIP_SOURCE_TELL_WRITE, ZIP_SOURCE_REMOVE, ZIP_SOURCE_SUPPORTS, -1);
            default:
                return -1;
        }
    }
};

std::int64_t memoryFailure(void* data, std::uint64_t length) {
    zip_error_t error;
    zip_error_init_with_code(&error, ZIP_ER_MEMORY);
    const zip_int64_t size = zip_error_to_data(&error, data, length);
    zip_error_fini(&error);
    return size;
}

zip_source* MemorySource::open() {
    return zip_source_function_create(MemorySourceCalls::call, this, nullptr);
}

}  // namespace TBVNonPara::workbook
