#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct zip_source;

namespace TBVNonPara::workbook {

/// The bytes of an archive in memory, read from and, when the archive is closed, written anew. (The library's
/// own source in memory loses track of its memory when only the end of an archive changes.)
class MemorySource {
 public:
    explicit MemorySource(std::string bytes) : m_Bytes(std::move(bytes)) {}
    MemorySource(const MemorySource&) = delete;
    MemorySource& operator=(const MemorySource&) = delete;

    /// A source on these bytes, which must outlive it; none when there is no memory for it.
    [[nodiscard]] zip_source* open();
    /// What is there until the archive is closed.
    [[nodiscard]] std::string_view bytes() const noexcept { return m_Bytes; }
    /// What was written last, or else what was there.
    [[nodiscard]] std::string take() { return std::move(m_Bytes); }

 private:
    friend struct MemorySourceCalls;

    std::string m_Bytes;
    std::string m_Written;
    std::size_t m_ReadPosition = 0;
    std::size_t m_WritePosition = 0;
};

/// A source's answer to what went wrong with it, where only memory can.
std::int64_t memoryFailure(void* data, std::uint64_t length);

}  // namespace TBVNonPara::workbook
