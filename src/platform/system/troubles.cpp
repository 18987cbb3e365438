#include "platform/system/troubles.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <mutex>

namespace device {
namespace {

std::map<Trouble, std::string>& Noted() {
    static auto* noted = new std::map<Trouble, std::string>;
    return *noted;
}

// The settings are stored when static objects die. What was registered before any of them was made runs after all of
// them are gone.
[[gnu::constructor(101)]] void RegisterTelling() {
    std::atexit(TellTroubles);
}

} // namespace

void NoteTrouble(Trouble kind, const std::string& line) {
    static auto& guard = *new std::mutex;
    const std::lock_guard lock{guard};
    Noted()[kind] = line;
}

void TellTroubles() {
    for (auto& [kind, line] : Noted()) {
        if (!line.empty())
            std::fprintf(stderr, "odoledger: %s\n", line.c_str());
        line.clear();
    }
}

} // namespace device
