#include "hosts/terminal/terminal_host.h"

#include "hosts/terminal/signals.h"
#include "hosts/terminal/terminal_canvas.h"
#include "hosts/terminal/terminal_keys.h"
#include "hosts/terminal/terminal_screen.h"
#include "platform/metrics.h"
#include "platform/window.h"
#include "platform/windowing/desktop.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <deque>
#include <optional>
#include <poll.h>
#include <string_view>
#include <unistd.h>

namespace device {

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto HintTime = std::chrono::minutes(1);
constexpr auto DoubleClickTime = std::chrono::milliseconds(400);
constexpr wchar_t ControlZ = 26;

/// The focus is where a bracket is text.
bool IsTyping() {
    return Desktop::The().Menu() == nullptr && TakesText(Desktop::The().Focus());
}

/// The sooner of two times to wait; below 0: for ever.
int Sooner(int one, int other) {
    return one < 0 ? other : other < 0 ? one : std::min(one, other);
}

} // namespace

struct TerminalHost::Terminal {
    // The screen is given back before the signals are let go.
    Signals signals;
    TerminalScreen screen;
    std::optional<TerminalCanvas> canvas;
    std::deque<InputEvent> events;
    bool isWoken = false;
    bool isStale = true; ///< something happened since the last frame
    /// The keys that stand for the soft keys everywhere are shown until then.
    Clock::time_point hintsEnd = Clock::now() + HintTime;
    InputEvent lastPress;
    Clock::time_point lastPressTime;

    void Collect();
    void CollectKey(const TerminalKey& key);
    void AddPointer(InputEvent event);
    void Suspend();
    void CollectSignal(Signals::Kind kind);
    void Wait();
    void ApplySize();
};

void TerminalHost::Terminal::ApplySize() {
    screen.Measure();
    canvas->Resize(screen.Columns(), screen.Rows());
    const SIZE size = canvas->ScreenSize();
    events.push_back({.kind = InputEvent::Kind::Resize, .x = size.cx, .y = size.cy});
}

void TerminalHost::Terminal::CollectSignal(Signals::Kind kind) {
    switch (kind) {
    case Signals::Kind::Wake:
        isWoken = true;
        break;
    case Signals::Kind::Resized:
        ApplySize();
        break;
    case Signals::Kind::Interrupted:
        events.push_back({.kind = InputEvent::Kind::Close});
        break;
    case Signals::Kind::HungUp:
        screen.GiveUp();
        [[fallthrough]];
    case Signals::Kind::Ended:
        events.push_back({.kind = InputEvent::Kind::End});
        break;
    case Signals::Kind::Suspended:
        Suspend();
        break;
    case Signals::Kind::None:
        break;
    }
}

void TerminalHost::Terminal::Collect() {
    for (auto kind = signals.Next(); kind != Signals::Kind::None; kind = signals.Next())
        CollectSignal(kind);
    // One at a time: what a key means depends on where the one before it led. One that means nothing is passed over,
    // since those behind it may have been read already.
    while (events.empty()) {
        const auto key = screen.NextKey();
        if (!key)
            return;
        CollectKey(*key);
    }
}

void TerminalHost::Terminal::CollectKey(const TerminalKey& key) {
    if (key.kind == TerminalKey::Kind::Character && key.character == ControlZ)
        Suspend();
    else if (key.kind == TerminalKey::Kind::Event && key.event.kind != InputEvent::Kind::Paste)
        AddPointer(key.event);
    else
        TerminalKeys::Translate(key, IsTyping(), events);
}

void TerminalHost::Terminal::AddPointer(InputEvent event) {
    if (!canvas->Grid().Has(event.x, event.y))
        return;
    if (event.kind == InputEvent::Kind::MouseDown) {
        const auto now = Clock::now();
        const bool again = lastPress.kind == InputEvent::Kind::MouseDown && now - lastPressTime <= DoubleClickTime
            && event.button == lastPress.button && event.x == lastPress.x && event.y == lastPress.y;
        if (again)
            event.kind = InputEvent::Kind::DoubleClick;
        lastPress = event;
        lastPressTime = now;
    }
    const POINT point = canvas->PointOf(event.x, event.y);
    event.x = point.x;
    event.y = point.y;
    events.push_back(event);
}

void TerminalHost::Terminal::Suspend() {
    screen.GiveBack();
    if (!Signals::Stop()) {
        screen.GiveUp();
        return;
    }
    screen.TakeBack();
    ApplySize();
}

void TerminalHost::Terminal::Wait() {
    std::array<pollfd, 2> sources{{{STDIN_FILENO, POLLIN, 0}, {signals.Descriptor(), POLLIN, 0}}};
    const int patience = screen.KeyPatience();
    const auto hints = std::chrono::ceil<std::chrono::milliseconds>(hintsEnd - Clock::now()).count();
    const int time = Sooner(patience, canvas->HasHints() ? std::max(0, static_cast<int>(hints)) : -1);
    const int ready = poll(sources.data(), sources.size(), time);
    if (ready == 0 && time == patience)
        screen.EndKey();
    if (ready <= 0)
        return;
    // A terminal that is gone may come without a signal, to a process that is not of its session.
    constexpr short Gone = POLLHUP | POLLERR | POLLNVAL;
    if ((sources[0].revents & Gone) != 0)
        CollectSignal(Signals::Kind::HungUp);
}

TerminalHost::TerminalHost(std::unique_ptr<Terminal> terminal)
    : terminal_(std::move(terminal)) {
}

TerminalHost::~TerminalHost() = default;

std::unique_ptr<TerminalHost> TerminalHost::Open(std::string& error) {
    auto terminal = std::make_unique<Terminal>();
    if (terminal->signals.Descriptor() < 0) {
        error = "no pipe is to be had";
        return nullptr;
    }
    if (!terminal->screen.Open(error))
        return nullptr;
    terminal->canvas.emplace(
        terminal->screen.Columns(), terminal->screen.Rows(), terminal->screen.IsUnicode(), terminal->screen.HasGrey());
    SetScreenSize(terminal->canvas->ScreenSize());
    return std::unique_ptr<TerminalHost>(new TerminalHost(std::move(terminal)));
}

bool TerminalHost::NextEvent(InputEvent& event, bool wait) {
    Terminal& terminal = *terminal_;
    terminal.isWoken = false;
    terminal.canvas->ShowHints(Clock::now() < terminal.hintsEnd);
    terminal.Collect();
    if (terminal.events.empty() && wait && !terminal.isWoken) {
        terminal.Wait();
        terminal.Collect();
    }
    if (terminal.events.empty()) {
        // A frame is always the whole screen: cells and pixels have no edges in common.
        if (!wait && terminal.isStale)
            Desktop::The().InvalidateAll();
        terminal.isStale = wait;
        return false;
    }
    terminal.isStale = true;
    event = terminal.events.front();
    terminal.events.pop_front();
    return true;
}

Canvas& TerminalHost::Screen() {
    return *terminal_->canvas;
}

void TerminalHost::Present(const RECT& /*changed*/) {
    terminal_->screen.Show(terminal_->canvas->Grid());
}

void TerminalHost::Beep() {
    terminal_->screen.Beep();
}

void TerminalHost::Wake() {
    Signals::Tell(Signals::Kind::Wake);
}

} // namespace device
