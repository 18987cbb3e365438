#include "hosts/command_line.h"
#include "hosts/terminal/terminal_host.h"
#include "hosts/window/window_host.h"

#include "platform/system/environment.h"
#include "platform/system/fresh_file.h"
#include "platform/system/process_start.h"
#include "platform/window.h"
#include "platform/windowing/desktop.h"
#include "resources/module.h"
#include "shell/entry_point.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

constexpr int CannotStart = 2;

[[noreturn]] void Refuse(const std::string& reason) {
    std::fprintf(stderr, "odoledger: %s\n", reason.c_str());
    std::_Exit(CannotStart); // nothing of the program has begun, so nothing of its end runs
}

/// The host that HANDSET_HOST names; else a window where a display answers, else the terminal that it was started in.
std::unique_ptr<device::Host> OpenHost(std::string& error) {
    const char* variable = std::getenv("HANDSET_HOST");
    const std::string_view wanted = variable ? variable : "";
    if (wanted == "window")
        return device::WindowHost::Open(error);
    if (wanted == "terminal")
        return device::TerminalHost::Open(error);
    if (!wanted.empty()) {
        error = "HANDSET_HOST: \"" + std::string(wanted) + "\" is neither window nor terminal";
        return nullptr;
    }
    if (auto window = device::WindowHost::Open(error))
        return window;
    if (isatty(STDIN_FILENO) == 0 || isatty(STDOUT_FILENO) == 0)
        return nullptr;
    return device::TerminalHost::Open(error);
}

} // namespace

int main(int count, char** arguments) {
    if (const auto error = device::PrepareProcess())
        Refuse(*error);
    device::ObeyCommandLine(count, arguments, device::OdoledgerHelp, *OdoledgerModule()->version);
    if (const auto& error = device::EnvironmentError())
        Refuse(*error);
    device::ClearLeftovers();
    // The program's module is known first: a window takes its icon from there.
    device::SetModule(OdoledgerModule());
    std::string error;
    std::unique_ptr<device::Host> host = OpenHost(error);
    if (!host)
        Refuse(error);
    device::Desktop::The().SwitchOn(*host);
    const int result = WinMain(OdoledgerModule(), nullptr, nullptr, SW_SHOW);
    device::Desktop::The().SwitchOff();
    host.reset();
    return result & 0xFF;
}
