#include "records/default_string_helper.h"

#include "platform/utf8.h"

#include <cstdlib>
#include <cstring>
#include <exception>

CDefaultStringHelper::~CDefaultStringHelper() {
    for (void* buffer : buffers_)
        std::free(buffer);
}

void* CDefaultStringHelper::Keep(const void* bytes, std::size_t size) {
    buffers_.reserve(buffers_.size() + 1);
    void* buffer = std::malloc(size);
    if (!buffer)
        return nullptr;
    std::memcpy(buffer, bytes, size);
    buffers_.push_back(buffer);
    return buffer;
}

const char* CDefaultStringHelper::Encode(const wchar_t* text) try {
    if (!text)
        return nullptr;
    const std::string encoded = device::ToUtf8(text);
    return static_cast<const char*>(Keep(encoded.c_str(), encoded.size() + 1));
} catch (const std::exception&) {
    return nullptr;
}

const wchar_t* CDefaultStringHelper::Decode(const char* text) try {
    if (!text)
        return nullptr;
    const std::wstring decoded = device::FromUtf8(text);
    return static_cast<const wchar_t*>(Keep(decoded.c_str(), (decoded.size() + 1) * sizeof(wchar_t)));
} catch (const std::exception&) {
    return nullptr;
}

std::unique_ptr<CStringHelper> CDefaultStringHelperFactory::Create() {
    return std::make_unique<CDefaultStringHelper>();
}
