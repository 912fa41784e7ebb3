#include "tests/whole/errors/memory_fuse.hpp"

#include <cstdlib>
#include <new>

namespace {

bool nextFails = false;

}  // namespace

void* operator new(std::size_t size) {
    if (nextFails) {
        nextFails = false;
        throw std::bad_alloc();
    }
    if (void* memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}

/// Who asks like this gets by without memory: nothing that a client sees hangs on it.
void* operator new(std::size_t size, const std::nothrow_t& /*unused*/) noexcept {
    return std::malloc(size == 0 ? 1 : size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace TBVNonPara::Support {

void letTheNextAllocationFail() noexcept {
    nextFails = true;
}

}  // namespace TBVNonPara::Support
