#include "tbvnonpara/files/xml_memory.hpp"

#include <cstddef>
#include <cstdlib>

namespace TBVNonPara::workbook {

namespace {

constexpr std::size_t mostBytes = std::size_t(16) << 20U;

/// In front of each piece: its size, padded so that what follows can hold anything.
constexpr std::size_t headerSize = alignof(std::max_align_t);
static_assert(headerSize >= sizeof(std::size_t));

// The parser hands no context to its allocator.
thread_local std::size_t bytesHeld = 0;

std::size_t sizeOf(void* header) noexcept {
    return *static_cast<std::size_t*>(header);
}

void* headerOf(void* piece) noexcept {
    return static_cast<char*>(piece) - headerSize;
}

void* resize(void* piece, std::size_t size) noexcept {
    void* const old = piece == nullptr ? nullptr : headerOf(piece);
    const std::size_t before = old == nullptr ? 0 : sizeOf(old);
    if (size > mostBytes || bytesHeld - before + size > mostBytes) {
        return nullptr;
    }
    void* const header = std::realloc(old, headerSize + size);
    if (header == nullptr) {
        return nullptr;
    }
    *static_cast<std::size_t*>(header) = size;
    bytesHeld += size - before;
    return static_cast<char*>(header) + headerSize;
}

void* allocate(std::size_t size) noexcept {
    return resize(nullptr, size);
}

void release(void* piece) noexcept {
    if (piece != nullptr) {
        void* const header = headerOf(piece);
        bytesHeld -= sizeOf(header);
        std::free(header);
    }
}

}  // namespace

const XML_Memory_Handling_Suite& boundedXmlMemory() noexcept {
    static const XML_Memory_Handling_Suite suite{allocate, resize, release};
    return suite;
}

}  // namespace TBVNonPara::workbook
