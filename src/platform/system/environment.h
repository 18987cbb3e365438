#pragma once

#include "platform/system/clock.h"
#include "platform/types.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace device {
/// The device's surroundings, as the process's environment tells them. Host paths are absolute.
struct Environment {
    std::string registryFile;
    std::string documentsFolder; ///< what `\My Documents` is
    std::string documentsNote; ///< the file that names the document which keeps its folder; empty where that is given
    std::string copiesFolder; ///< of the daily copies
    std::string storagePlace; ///< devices with the same place are one device
    std::string runtimeFolder; ///< the session's own folder for sockets, empty if there is none
    std::string temporaryFolder;
    SIZE screen{320, 480};
    int dpi = 96;
    std::optional<double> zoom;
    bool mouse = true; ///< a terminal is asked to tell what its pointer does
    std::string numberLocale = "en_US"; ///< of numbers, money and collation
    std::string dateLocale = "en_US";
    std::optional<UtcTime> clock; ///< where the clock stands, unless it is the host's
    std::vector<std::wstring> presetMutexes; ///< names that count as held by another process
};

/// Variables by name. An empty one counts as not set.
using Variables = std::map<std::string, std::string>;

struct ParsedEnvironment {
    Environment environment;
    std::optional<std::string> error; ///< one line on the first malformed variable; its field has the default
};

ParsedEnvironment ParseEnvironment(const Variables& variables);

/// Read from the process's environment at first use, which may be before main.
const Environment& TheEnvironment();
/// A host prints this line and ends with status 2 before the program starts.
const std::optional<std::string>& EnvironmentError();

/// Puts the device into other surroundings; TZ alone is still the process's. For tests.
void ReplaceEnvironment(const Variables& variables);
/// Counts the calls of ReplaceEnvironment.
unsigned EnvironmentGeneration();

/// An object of the device that is made when it is first asked for, and made anew in new surroundings. It is never
/// destroyed at the process's end: the program's own statics may still ask for it there.
template <typename Made> Made& MadeForEnvironment() {
    static auto* made = new std::unique_ptr<Made>;
    static unsigned generation = 0;
    if (!*made || generation != EnvironmentGeneration()) {
        *made = std::make_unique<Made>();
        generation = EnvironmentGeneration();
    }
    return **made;
}
} // namespace device
