#pragma once

#include <memory>

class CStringHelper;

/// Makes the helpers that CDataLayer turns its texts with.
class CStringHelperFactory {
public:
    /// A new helper, the caller's own.
    virtual std::unique_ptr<CStringHelper> Create() = 0;

    virtual ~CStringHelperFactory() = default;
};
