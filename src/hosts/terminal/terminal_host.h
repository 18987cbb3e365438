#pragma once

#include "platform/windowing/host.h"

#include <memory>
#include <string>

namespace device {

/// The device in a terminal: its screen is as many cells as the terminal has. One a process.
///
/// When the terminal goes away or the process is told to end, the program is closed and whatever form stands open is
/// left without keeping what was typed into it.
class TerminalHost final : public Host {
public:
    /// Null without a terminal, and then `error` says why, in one line.
    static std::unique_ptr<TerminalHost> Open(std::string& error);
    /// The terminal is as it was before.
    ~TerminalHost() override;
    TerminalHost(const TerminalHost&) = delete;
    TerminalHost& operator=(const TerminalHost&) = delete;

    bool NextEvent(InputEvent& event, bool wait) override;
    Canvas& Screen() override;
    void Present(const RECT& changed) override;
    void Beep() override;
    void Wake() override;

private:
    struct Terminal;
    explicit TerminalHost(std::unique_ptr<Terminal> terminal);

    std::unique_ptr<Terminal> terminal_;
};

} // namespace device
