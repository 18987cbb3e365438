#include "failing_allocation.h"

#include <cstdlib>
#include <new>

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return allocationsLeft >= 0 && allocationsLeft-- == 0 ? nullptr : std::malloc(size);
}

void* operator new(std::size_t size) {
    void* memory = operator new(size, std::nothrow);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
