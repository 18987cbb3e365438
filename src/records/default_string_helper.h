#pragma once

#include "records/string_helper.h"
#include "records/string_helper_factory.h"

#include <list>
#include <string>

/// UTF-8. What is not a valid code point becomes U+FFFD, in both directions.
class CDefaultStringHelper : public CStringHelper {
public:
    using CStringHelper::Decode;
    /// Null also when memory ran out.
    const char* Encode(const wchar_t* text) override;
    const wchar_t* Decode(const char* text) override;

private:
    std::list<std::string> encoded_;
    std::list<std::wstring> decoded_;
};

class CDefaultStringHelperFactory : public CStringHelperFactory {
public:
    std::unique_ptr<CStringHelper> Create() override;
};
