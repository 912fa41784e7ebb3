// Large memory in large pages: for a report of a million rows, a fifth of the time went into the system's
// handing out of small ones. It is the program's choice, not the library's, whose clients have their own
// memory.
#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__)
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TBVNONPARA_MEMORY_IS_WATCHED
#endif
#endif
#ifndef TBVNONPARA_MEMORY_IS_WATCHED

#include <cstdlib>
#include <malloc.h>
#include <new>
#include <sys/mman.h>

namespace {

constexpr std::size_t largePage = std::size_t(1) << 21U;

void* allocate(std::size_t size) noexcept {
    if (size < largePage) {
        return std::malloc(size == 0 ? 1 : size);
    }
    // What is given back goes back to the system at once, and does not lie between what stays.
    [[maybe_unused]] static const int threshold = mallopt(M_MMAP_THRESHOLD, largePage);
    const std::size_t pages = (size - 1) / largePage + 1;
    if (pages > static_cast<std::size_t>(-1) / largePage) {
        return nullptr;
    }
    void* const memory = std::aligned_alloc(largePage, pages * largePage);
    if (memory != nullptr) {
        madvise(memory, pages * largePage, MADV_HUGEPAGE);  // a wish: without it the pages are small
    }
    return memory;
}

}  // namespace

void* operator new(std::size_t size) {
    void* memory = allocate(size);
    while (memory == nullptr) {
        const std::new_handler handler = std::get_new_handler();
        if (handler == nullptr) {
            throw std::bad_alloc();
        }
        handler();
        memory = allocate(size);
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

#endif
#endif
