#include "records/base_object.h"

#include <cstdlib>

CBaseObject::~CBaseObject() = default;

void* CBaseObject::operator new(std::size_t size) noexcept {
    return std::malloc(size);
}

void CBaseObject::operator delete(void* object) noexcept {
    std::free(object);
}
