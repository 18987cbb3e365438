#include "hosts/terminal/signals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace device {

namespace {

constexpr std::array<std::pair<int, Signals::Kind>, 5> Known{
    {{SIGWINCH, Signals::Kind::Resized}, {SIGINT, Signals::Kind::Interrupted}, {SIGHUP, Signals::Kind::HungUp},
        {SIGTERM, Signals::Kind::Ended}, {SIGTSTP, Signals::Kind::Suspended}}};

std::array<int, 2> ends{-1, -1};
std::array<struct sigaction, Known.size()> former;
volatile std::sig_atomic_t isToldToEnd = 0;

extern "C" void NoteSignal(int number) {
    const int error = errno;
    if (number == SIGTERM || number == SIGHUP)
        isToldToEnd = 1;
    for (const auto& [signal, kind] : Known)
        if (signal == number)
            Signals::Tell(kind);
    errno = error;
}

} // namespace

Signals::Signals() {
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    struct sigaction action { };
    action.sa_handler = NoteSignal;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (std::size_t index = 0; index < Known.size(); ++index)
        sigaction(Known[index].first, &action, &former[index]);
}

Signals::~Signals() {
    if (ends[0] < 0)
        return;
    for (std::size_t index = 0; index < Known.size(); ++index)
        sigaction(Known[index].first, &former[index], nullptr);
    const auto open = std::exchange(ends, {-1, -1});
    close(open[0]);
    close(open[1]);
}

int Signals::Descriptor() const {
    return ends[0];
}

Signals::Kind Signals::Next() {
    char byte = 0;
    return ends[0] >= 0 && read(ends[0], &byte, 1) == 1 ? static_cast<Kind>(byte) : Kind::None;
}

bool Signals::Stop() {
    struct sigaction own { };
    struct sigaction plain { };
    plain.sa_handler = SIG_DFL;
    sigaction(SIGTSTP, &plain, &own);
    kill(0, SIGTSTP);
    // One that goes on in the background is stopped here again, until the terminal is its own.
    if (isToldToEnd == 0)
        tcdrain(STDOUT_FILENO);
    sigaction(SIGTSTP, &own, nullptr);
    return isToldToEnd == 0;
}

void Signals::Tell(Kind kind) {
    const char byte = static_cast<char>(kind);
    // A full pipe has more than enough to tell.
    [[maybe_unused]] const auto written = write(ends[1], &byte, 1);
}

} // namespace device
