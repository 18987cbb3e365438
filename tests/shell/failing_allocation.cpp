#include "failing_allocation.h"

#include <cstdlib>
#include <new>

void* operator new(std::size_t size) {
    void* memory = allocationsLeft >= 0 && allocationsLeft-- == 0 ? nullptr : std::malloc(size);
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
