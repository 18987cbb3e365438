#include "hosts/console/console_host.h"

#include "platform/system/environment.h"
#include "platform/window.h"
#include "platform/windowing/desktop.h"
#include "resources/module.h"
#include "shell/common/app_settings.h"
#include "shell/entry_point.h"
#include "shell/program_identity.h"

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int BadEnvironment = 2;
constexpr int PowerLost = 3;

} // namespace

int main() {
    if (const auto& error = device::EnvironmentError()) {
        std::fprintf(stderr, "%s\n", error->c_str());
        std::_Exit(BadEnvironment);
    }
    device::SetModule(OdoledgerModule());
    device::ConsoleHost host(
        {identity::WindowClass, CAppSettings::RegistryKey, identity::ReloadMessage, identity::CloseMessage});
    if (!host.WaitForBoot())
        std::_Exit(PowerLost);
    device::Desktop::The().SwitchOn(host);
    const int result = WinMain(OdoledgerModule(), nullptr, nullptr, SW_SHOW);
    device::Desktop::The().SwitchOff();
    host.TellExit(result);
    return result & 0xFF;
}
