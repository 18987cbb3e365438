#include "hosts/window/window_host.h"

#include "platform/system/environment.h"
#include "platform/window.h"
#include "platform/windowing/desktop.h"
#include "resources/module.h"
#include "shell/entry_point.h"

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int CannotStart = 2;

}

int main() {
    if (const auto& error = device::EnvironmentError()) {
        std::fprintf(stderr, "odoledger: %s\n", error->c_str());
        std::_Exit(CannotStart);
    }
    std::string error;
    const std::unique_ptr<device::WindowHost> host = device::WindowHost::Open(error);
    if (!host) {
        std::fprintf(stderr, "odoledger: %s\n", error.c_str());
        std::_Exit(CannotStart);
    }
    device::SetModule(OdoledgerModule());
    device::Desktop::The().SwitchOn(*host);
    const int result = WinMain(OdoledgerModule(), nullptr, nullptr, SW_SHOW);
    device::Desktop::The().SwitchOff();
    return result & 0xFF;
}
