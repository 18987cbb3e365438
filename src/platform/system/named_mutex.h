#pragma once

#include "platform/types.h"

#include <memory>
#include <string>

namespace device {
/// One process's share in a named mutex. Whichever way the process ends, its share ends with it.
class NamedMutex {
public:
    struct Opened {
        std::unique_ptr<NamedMutex> mutex; ///< null on an error
        bool existed = false; ///< some process, this one too, had it open before
        LONG error = 0;
    };

    static Opened Open(const std::wstring& name);
    NamedMutex(const NamedMutex&) = delete;
    NamedMutex& operator=(const NamedMutex&) = delete;
    ~NamedMutex();

private:
    struct Shares;
    NamedMutex();

    std::unique_ptr<Shares> shares_;
};
} // namespace device
