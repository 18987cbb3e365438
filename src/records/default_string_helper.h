#pragma once

#include "records/string_helper.h"
#include "records/string_helper_factory.h"

#include <vector>

/// UTF-8. What is not a valid code point becomes U+FFFD, in both directions.
class CDefaultStringHelper : public CStringHelper {
public:
    CDefaultStringHelper() = default;
    CDefaultStringHelper(const CDefaultStringHelper&) = delete;
    CDefaultStringHelper& operator=(const CDefaultStringHelper&) = delete;
    ~CDefaultStringHelper() override;

    using CStringHelper::Decode;
    /// Null also when memory ran out.
    const char* Encode(const wchar_t* text) override;
    const wchar_t* Decode(const char* text) override;

private:
    void* Keep(const void* bytes, std::size_t size);

    std::vector<void*> buffers_;
};

class CDefaultStringHelperFactory : public CStringHelperFactory {
public:
    std::unique_ptr<CStringHelper> Create() override;
};
