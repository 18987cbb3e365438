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
std::atomic<bool> hasKeyWish{false};
/// All that takes the terminal out of its full-screen mode, made ready: a crash leaves no time for looking up.
std::array<char, 256> leaving;
std::size_t leavingLength = 0;

/// Null when the terminal has no such thing.
const char* Capability(const char* name) {
    const char* text = tigetstr(name);
    return text == reinterpret_cast<const char*>(-1) ? nullptr : text;
}

void Collect(const char* text) {
    if (text == nullptr)
        return;
    // Delays ("$<5>") stand at the end where there are any, and no terminal of today waits.
    const char* delay = std::strstr(text, "$<");
    const std::size_t length = delay == nullptr ? std::strlen(text) : static_cast<std::size_t>(delay - text);
    if (leavingLength + length > leaving.size())
        return;
    std::memcpy(leaving.data() + leavingLength, text, length);
    leavingLength += length;
}

// Pastes; whether it can tell keys without doubt; what its pointer does while a button is down, in numbers.
constexpr char Wishes[] = "\x1b[?2004h\x1b[?u";
constexpr char PointerWishes[] = "\x1b[?1002h\x1b[?1006h";
constexpr char NoMoreWishes[] = "\x1b[?1006l\x1b[?1002l\x1b[?2004l";
constexpr char KeyWish[] = "\x1b[>1u";
constexpr char NoMoreKeyWish[] = "\x1b[<u";

/// A terminal of the usual kind passes over a wish that it does not know; of another kind it would show it.
bool TakesWishes() {
    const char* moveCursor = Capability("cup");
    return moveCursor != nullptr && std::strncmp(moveCursor, "\x1b[", 2) == 0;
}

void Write(const char* text) {
    [[maybe_unused]] const auto written = write(STDOUT_FILENO, text, std::strlen(text));
}

void TakeBackKeyWish() {
    if (hasKeyWish.exchange(false))
        Write(NoMoreKeyWish);
}

extern "C" void RestoreInCrash(int number) {
    if (isArmed.exchange(false)) {
        TakeBackKeyWish();
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

void TerminalRescue::Arm(bool pointer) {
    leavingLength = 0;
    if (TakesWishes())
        Collect(NoMoreWishes);
    for (const char* capability : {"sgr0", "cnorm", "rmkx", "rmcup"})
        Collect(Capability(capability));
    isArmed = true;
    if (TakesWishes())
        Write(Wishes);
    if (TakesWishes() && pointer)
        Write(PointerWishes);
    struct sigaction action { };
    action.sa_handler = RestoreInCrash;
    action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_NODEFER;
    sigemptyset(&action.sa_mask);
    for (const int number : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGQUIT})
        sigaction(number, &action, nullptr);
    [[maybe_unused]] static const int registered = std::atexit(Restore);
}

void TerminalRescue::AskForKeys() {
    if (isArmed && !hasKeyWish.exchange(true))
        Write(KeyWish);
}

void TerminalRescue::Restore() {
    if (!isArmed.exchange(false))
        return;
    TakeBackKeyWish();
    if (TakesWishes())
        Write(NoMoreWishes);
    endwin();
    if (isKnown)
        tcsetattr(STDIN_FILENO, TCSANOW, &before);
}

} // namespace device
