#include "hosts/command_line.h"
#include "hosts/console/console_host.h"

#include "platform/system/environment.h"
#include "platform/system/fresh_file.h"
#include "platform/system/process_start.h"
#include "platform/system/troubles.h"
#include "platform/window.h"
#include "platform/windowing/desktop.h"
#include "resources/module.h"
#include "settings/app_settings.h"
#include "shell/entry_point.h"
#include "shell/program_identity.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr int CannotStart = 2;
constexpr int PowerLost = 3;

// The program's settings are stored when its static objects die. Who is told of the end may read them at once, so the
// telling comes last of all: what was registered before any static object was made runs after all of them are gone.
int exitResult = 0;
bool hasEnded = false;

void TellExit() {
    if (!hasEnded)
        return;
    device::TellTroubles();
    std::printf("exit %d\n.\n", exitResult);
    std::fflush(stdout);
}

[[gnu::constructor(101)]] void RegisterTellExit() {
    std::atexit(TellExit);
}

[[noreturn]] void Refuse(const std::string& reason) {
    std::fprintf(stderr, "%s\n", reason.c_str());
    std::_Exit(CannotStart);
}

} // namespace

int main(int count, char** arguments) {
    if (const auto error = device::PrepareProcess())
        Refuse(*error);
    device::ObeyCommandLine(count, arguments, device::ConsoleHelp, *OdoledgerModule()->version);
    if (const auto& error = device::EnvironmentError())
        Refuse(*error);
    device::ClearLeftovers();
    device::SetModule(OdoledgerModule());
    device::ConsoleHost host(
        {identity::WindowClass, CAppSettings::RegistryKey, identity::ReloadMessage, identity::CloseMessage});
    if (!host.WaitForBoot())
        std::_Exit(PowerLost);
    device::Desktop::The().SwitchOn(host);
    const int result = WinMain(OdoledgerModule(), nullptr, nullptr, SW_SHOW);
    device::Desktop::The().SwitchOff();
    exitResult = result;
    hasEnded = true;
    return result & 0xFF;
}
