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

/// A device in a folder of its own, which lies in memory.
struct FuzzDevice {
    FuzzDevice() { device::ReplaceEnvironment({{"HANDSET_STORAGE", Folder}, {"XDG_RUNTIME_DIR", Folder}}); }
    FuzzDevice(const FuzzDevice&) = delete;
    FuzzDevice& operator=(const FuzzDevice&) = delete;
    ~FuzzDevice() { std::filesystem::remove_all(Folder); }

    char Pattern[32] = "/dev/shm/odoledger-fuzz-XXXXXX";
    const std::string Folder = mkdtemp(Pattern);
};
