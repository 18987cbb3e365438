#include "hosts/terminal/terminal_rescue.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <curses.h>
#include <term.h>
#include <termios.h>
#include <unistd.h>

namespace device {

namespace {

termios before;
bool isKnown = false;
std::atomic<bool> isArmed{false};
/// All that takes the terminal out of its full-screen mode, made ready: a crash leaves no time for looking up.
std::array<char, 256> leaving;
std::size_t leavingLength = 0;

void Collect(const char* capability) {
    const char* text = tigetstr(capability);
    // Null and -1: the terminal has no such thing.
    if (text == nullptr || text == reinterpret_cast<const char*>(-1)) // NOLINT(performance-no-int-to-ptr)
        return;
    // Delays ("$<5>") stand at the end where there are any, and no terminal of today waits.
    const char* delay = std::strstr(text, "$<");
    const std::size_t length = delay == nullptr ? std::strlen(text) : static_cast<std::size_t>(delay - text);
    if (leavingLength + length > leaving.size())
        return;
    std::memcpy(leaving.data() + leavingLength, text, length);
    leavingLength += length;
}

extern "C" void RestoreInCrash(int number) {
    if (isArmed.exchange(false)) {
        [[maybe_unused]] const auto written = write(STDOUT_FILENO, leaving.data(), leavingLength);
        if (isKnown)
            tcsetattr(STDIN_FILENO, TCSANOW, &before);
    }
    std::raise(number); // its handler is gone: the process ends as it would have
}

} // namespace

void TerminalRescue::Prepare() {
    isKnown = tcgetattr(STDIN_FILENO, &before) == 0;
}

void TerminalRescue::Arm() {
    leavingLength = 0;
    for (const char* capability : {"sgr0", "cnorm", "rmkx", "rmcup"})
        Collect(capability);
    isArmed = true;
    struct sigaction action { };
    action.sa_handler = RestoreInCrash;
    action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_NODEFER;
    sigemptyset(&action.sa_mask);
    for (const int number : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGQUIT})
        sigaction(number, &action, nullptr);
    std::atexit(Restore);
}

void TerminalRescue::Restore() {
    if (!isArmed.exchange(false))
        return;
    endwin();
    if (isKnown)
        tcsetattr(STDIN_FILENO, TCSANOW, &before);
}

} // namespace device
