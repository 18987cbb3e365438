#pragma once

#include "platform/system/host_file.h"

#include <memory>
#include <string>
#include <vector>

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

private:
    std::vector<FileDescriptor> locks_;
};
} // namespace device
