#include "platform/resources.h"
#include "platform/system/environment.h"
#include "platform/system/fresh_file.h"
#include "platform/system/ipc.h"
#include "platform/system/process_start.h"
#include "platform/system/troubles.h"
#include "resources/module.h"
#include "shell/program_identity.h"
#include "tally/commands.h"

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <sysexits.h>
#include <unistd.h>

namespace {

[[noreturn]] void End(int status) {
    std::cout << std::flush;
    device::TellTroubles();
    // The settings are the program's to store, not ours: their object does so when it goes.
    std::_Exit(status);
}

[[noreturn]] void Refuse(const std::string& reason, int status) {
    std::cerr << "odoledger-tally: " << reason << std::endl;
    End(status);
}

/// A terminal that does more than write.
bool IsTerminal(int descriptor) {
    const char* terminal = std::getenv("TERM");
    return isatty(descriptor) != 0 && terminal && std::strcmp(terminal, "dumb") != 0;
}

bool WantsColours() {
    const char* refused = std::getenv("NO_COLOR");
    return IsTerminal(STDOUT_FILENO) && (!refused || *refused == '\0');
}

void TellProgress(const std::string& words) {
    static bool isTold = false;
    if (IsTerminal(STDERR_FILENO) && (isTold || !words.empty()))
        std::cerr << '\r' << words << "\x1B[K" << std::flush;
    isTold = !words.empty();
}

void TellProgram() {
    if (device::WindowExists(identity::WindowClass))
        device::PostRegistered(identity::WindowClass, identity::ReloadMessage);
}

} // namespace

int main(int count, char** arguments) {
    if (const auto error = device::PrepareProcess())
        Refuse(*error, EX_OSERR);
    if (const auto& error = device::EnvironmentError())
        Refuse(*error, EX_USAGE);
    device::ClearLeftovers();
    device::SetModule(OdoledgerModule());
    // How wide characters are on a terminal; numbers stay as they are.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    tally::Surroundings surroundings{std::cout, std::cerr, WantsColours(), TellProgress, TellProgram};
    End(tally::Run({arguments + 1, arguments + count}, surroundings));
}
