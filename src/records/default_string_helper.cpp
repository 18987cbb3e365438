#include "records/default_string_helper.h"

#include "platform/utf8.h"

#include <exception>

const char* CDefaultStringHelper::Encode(const wchar_t* text) try {
    return text ? encoded_.emplace_back(device::ToUtf8(text)).c_str() : nullptr;
} catch (const std::exception&) {
    return nullptr;
}

const wchar_t* CDefaultStringHelper::Decode(const char* text) try {
    return text ? decoded_.emplace_back(device::FromUtf8(text)).c_str() : nullptr;
} catch (const std::exception&) {
    return nullptr;
}

std::unique_ptr<CStringHelper> CDefaultStringHelperFactory::Create() {
    return std::make_unique<CDefaultStringHelper>();
}
