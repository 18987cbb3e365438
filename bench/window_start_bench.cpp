// From the start of a process to the first frame that its window shows, beside the least that any program with a
// window has to do. Needs an X display without a window manager; bench/report brings one.

#include "bench_log.h"
#include "records/data_layer.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <benchmark/benchmark.h>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>

extern char** environ; // NOLINT(readability-redundant-declaration): not in every <unistd.h>

namespace {

constexpr int ScreenLog = 1000; ///< entries of the log that is the program's first screen
constexpr auto PollEvery = std::chrono::milliseconds(1); ///< each question takes time of the display server
constexpr auto GiveUpAfter = std::chrono::seconds(10);
constexpr unsigned long AllColors = 0xFFFFFF;

/// The display as the one who looks at it sees it.
class Watcher {
public:
    Watcher()
        : display_(XOpenDisplay(nullptr)) { }
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;
    ~Watcher() {
        if (display_)
            XCloseDisplay(display_);
    }

    bool IsThere() const { return display_ != nullptr; }
    /// In the middle of the display, where windows come up, something other than the empty, black background shows.
    bool SeesWindow() const {
        const int screen = DefaultScreen(display_);
        XImage* pixel = XGetImage(display_, RootWindow(display_, screen), DisplayWidth(display_, screen) / 2,
            DisplayHeight(display_, screen) / 2, 1, 1, AllPlanes, ZPixmap);
        if (!pixel)
            return false;
        const bool isPainted = (XGetPixel(pixel, 0, 0) & AllColors) != 0;
        XDestroyImage(pixel);
        return isPainted;
    }
    bool WaitFor(bool seen) const {
        const auto start = std::chrono::steady_clock::now();
        while (SeesWindow() != seen) {
            if (std::chrono::steady_clock::now() - start > GiveUpAfter)
                return false;
            std::this_thread::sleep_for(PollEvery);
        }
        return true;
    }

private:
    Display* display_;
};

void WindowStart(benchmark::State& state, const Watcher* watcher, const std::string& program) {
    for ([[maybe_unused]] auto _ : state) {
        pid_t process = 0;
        char* arguments[] = {const_cast<char*>(program.c_str()), nullptr}; // NOLINT: posix_spawn only reads it
        const auto start = std::chrono::steady_clock::now();
        if (posix_spawn(&process, program.c_str(), nullptr, nullptr, arguments, environ) != 0) {
            state.SkipWithError("does not start");
            return;
        }
        const bool seen = watcher->WaitFor(true);
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
        if (!seen || !watcher->WaitFor(false)) {
            state.SkipWithError("no window, or one that stays");
            return;
        }
    }
}

/// The log of a vehicle is what the program opens on.
bool Prepare(const BenchStorage& storage, const std::string& console) {
    MakeLog(ScreenLog);
    theDataLayer.Disconnect();
    setenv("HANDSET_STORAGE", storage.Folder(), 1);
    setenv("HANDSET_HOST", "window", 1);
    FILE* input = popen((console + " > /dev/null").c_str(), "w");
    if (!input)
        return false;
    std::fputs("registry set LastActiveVehicle dword 1001\nregistry set UnitSetupMsgShown dword 1\n", input);
    pclose(input);
    return true;
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const BenchStorage storage;
    const Watcher watcher;
    const std::string folder = std::string(argv[0]).substr(0, std::string(argv[0]).rfind('/') + 1);
    if (!watcher.IsThere() || !Prepare(storage, folder + "odoledger-console")) {
        std::fputs("No X display answers: run it with xvfb-run.\n", stderr);
        return 1;
    }
    for (const auto& [name, program] : {std::pair("BareWindowStart", "bare_window"), {"WindowStart", "odoledger"}}) {
        benchmark::RegisterBenchmark(name, WindowStart, &watcher, folder + program)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime();
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
