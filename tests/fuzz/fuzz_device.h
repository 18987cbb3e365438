#pragma once

#include "platform/system/environment.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Ends the run on the input that breaks a property.
inline void Require(bool holds, const char* property) {
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", property);
    std::abort();
}

/// A device in a folder of its own, in memory where the host has such a place.
class FuzzDevice {
public:
    FuzzDevice() {
        const bool hasMemory = std::filesystem::is_directory("/dev/shm");
        std::string pattern = hasMemory ? "/dev/shm/odoledger-fuzz-XXXXXX" : "/tmp/odoledger-fuzz-XXXXXX";
        folder_ = mkdtemp(pattern.data());
        device::ReplaceEnvironment({{"HANDSET_STORAGE", folder_}, {"XDG_RUNTIME_DIR", folder_}});
    }
    FuzzDevice(const FuzzDevice&) = delete;
    FuzzDevice& operator=(const FuzzDevice&) = delete;
    ~FuzzDevice() { std::filesystem::remove_all(folder_); }

    const std::string& Folder() const { return folder_; }

private:
    std::string folder_;
};
