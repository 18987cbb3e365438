#pragma once

#include <string>

namespace device {

/// What the console has to know of the program that runs on its device.
struct ProgramFacts {
    std::wstring windowClass;
    std::wstring registryKey;
    std::wstring reloadMessage;
    std::wstring closeMessage;
};

} // namespace device
