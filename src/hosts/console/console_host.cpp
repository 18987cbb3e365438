#include "hosts/console/console_host.h"

#include "hosts/console/control_list.h"
#include "hosts/console/key_names.h"
#include "hosts/console/mouse_words.h"
#include "hosts/console/registry_command.h"
#include "hosts/console/screen_text.h"
#include "hosts/console/text_form.h"
#include "platform/drawing/cairo/cairo_canvas.h"
#include "platform/metrics.h"
#include "platform/system/clock.h"
#include "platform/system/device_paths.h"
#include "platform/system/environment.h"
#include "platform/time.h"
#include "platform/utf8.h"
#include "platform/windowing/desktop.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace device {

namespace {

constexpr int PowerLost = 3;
constexpr long MostPresses = 10'000'000;
constexpr long LargestScreen = 16'384;

std::string TimeText(const SYSTEMTIME& time) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04u-%02u-%02uT%02u:%02u:%02u.%03u", time.wYear, time.wMonth, time.wDay,
        time.wHour, time.wMinute, time.wSecond, time.wMilliseconds);
    return text.data();
}

/// A whole number without a sign that fills the text.
bool ParseCount(const std::string& text, long& count) {
    if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos)
        return false;
    count = std::strtol(text.c_str(), nullptr, 10);
    return true;
}

/// A command that stands alone.
bool IsPlainQuery(const std::string& verb) {
    for (const char* each : {"boot", "screen", "controls", "beeps", "events", "now", "files"})
        if (verb == each)
            return true;
    return false;
}

bool IsInput(const std::string& verb) {
    for (const char* each : {"key", "keydown", "keyup", "type", "paste", "mouse", "post", "resize"})
        if (verb == each)
            return true;
    return false;
}

bool MayComeBeforeBoot(const std::string& verb) {
    return verb == "registry" || verb == "clock" || verb == "now" || verb == "files";
}

} // namespace

ConsoleHost::ConsoleHost(ProgramFacts facts)
    : facts_(std::move(facts))
    , canvas_(DeviceMeasurer()) {
}

void ConsoleHost::Answer(const std::string& line) {
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
}

void ConsoleHost::Refuse(const std::string& reason) {
    Answer("? " + reason);
}

void ConsoleHost::Finish() {
    Answer(".");
    // Whoever hears no answers any more gives no commands either.
    if (std::fflush(stdout) != 0 && errno == EPIPE)
        LosePower();
    open_ = false;
}

void ConsoleHost::LosePower() {
    std::fflush(stdout);
    std::_Exit(PowerLost);
}

bool ConsoleHost::WaitForBoot() {
    std::string line;
    for (;;) {
        const LineReader::Result result = reader_.Next(line);
        if (result == LineReader::Result::End)
            return false;
        if (result == LineReader::Result::Woken || line.empty() || line.front() == '#')
            continue;
        if (line == "boot") {
            booted_ = open_ = true;
            return true;
        }
        Execute(line);
        Finish();
    }
}

bool ConsoleHost::TakeQueued(InputEvent& event) {
    if (!events_.empty()) {
        event = std::move(events_.front());
        events_.pop_front();
        return true;
    }
    if (keys_.times > 0) {
        const bool up = keys_.isDown || !keys_.sendDown;
        event = up ? keys_.up : keys_.down;
        keys_.isDown = !up && keys_.sendUp;
        if (!keys_.isDown)
            --keys_.times;
        return true;
    }
    if (nextTyped_ < typed_.size()) {
        event = {};
        event.kind = InputEvent::Kind::Text;
        event.character = typed_[nextTyped_++];
        return true;
    }
    return false;
}

bool ConsoleHost::NextEvent(InputEvent& event, bool wait) {
    if (TakeQueued(event))
        return true;
    if (!wait)
        return false;
    if (open_)
        Finish();
    std::string line;
    for (;;) {
        const LineReader::Result result = reader_.Next(line);
        if (result == LineReader::Result::End)
            LosePower();
        if (result == LineReader::Result::Woken)
            return false;
        if (line.empty() || line.front() == '#')
            continue;
        open_ = true;
        if (Execute(line))
            return TakeQueued(event);
        Finish();
    }
}

// Commands

bool ConsoleHost::Execute(const std::string& line) {
    const std::size_t space = line.find(' ');
    const std::string verb = line.substr(0, space);
    const std::string rest = space == std::string::npos ? std::string() : line.substr(space + 1);
    if (!booted_ && !MayComeBeforeBoot(verb)) {
        Refuse("not booted");
        return false;
    }
    if (IsInput(verb))
        return ExecuteInput(verb, rest);
    ExecuteQuery(verb, rest);
    return false;
}

bool ConsoleHost::ExecuteInput(const std::string& verb, const std::string& rest) {
    if (verb == "post")
        return ExecutePost(rest);
    if (verb == "resize")
        return ExecuteResize(rest);
    if (verb == "mouse")
        return ExecuteMouse(rest);
    if (verb == "paste")
        return ExecutePaste(rest);
    if (verb != "type")
        return ExecuteKey(verb, rest);
    typed_ = FromUtf8(rest);
    nextTyped_ = 0;
    return !typed_.empty();
}

bool ConsoleHost::ExecuteKey(const std::string& verb, const std::string& rest) {
    const std::size_t space = rest.find(' ', rest.empty() ? 0 : 1);
    const std::string name = rest.substr(0, space);
    const auto down = KeyOfName(name);
    if (!down) {
        Refuse("unknown key");
        return false;
    }
    long times = 1;
    if (space != std::string::npos
        && (verb != "key" || !ParseCount(rest.substr(space + 1), times) || times < 1 || times > MostPresses)) {
        Refuse("wrong number of presses");
        return false;
    }
    keys_ = {};
    keys_.down = *down;
    keys_.up = *down;
    keys_.up.kind = InputEvent::Kind::KeyUp;
    keys_.up.character = 0;
    keys_.sendDown = verb != "keyup";
    keys_.sendUp = verb != "keydown";
    keys_.times = times;
    return times > 0;
}

bool ConsoleHost::ExecutePost(const std::string& rest) {
    const std::wstring* name = rest == "reload" ? &facts_.reloadMessage
        : rest == "close"                       ? &facts_.closeMessage
                                                : nullptr;
    if (!name) {
        Refuse("post reload or post close");
        return false;
    }
    const HWND window = FindWindowW(facts_.windowClass.c_str(), nullptr);
    if (!PostMessageW(window, RegisterWindowMessageW(name->c_str()), 0, 0)) {
        Refuse("the program has no window");
        return false;
    }
    return true;
}

bool ConsoleHost::ExecuteResize(const std::string& rest) {
    const std::size_t cross = std::min(rest.find('x'), rest.size());
    long width = 0;
    long height = 0;
    const bool isSize = ParseCount(rest.substr(0, cross), width)
        && ParseCount(rest.substr(std::min(cross + 1, rest.size())), height) && std::min(width, height) >= 1
        && std::max(width, height) <= LargestScreen;
    if (!isSize) {
        Refuse("a size looks like 320x480");
        return false;
    }
    InputEvent resized;
    resized.kind = InputEvent::Kind::Resize;
    resized.x = static_cast<int>(width);
    resized.y = static_cast<int>(height);
    events_.push_back(resized);
    return true;
}

bool ConsoleHost::ExecuteMouse(const std::string& rest) {
    const std::vector<InputEvent> events = MouseOfWords(rest);
    if (events.empty())
        Refuse("mouse click|double|down|move|up X Y [left|middle|right], mouse wheel X Y LINES");
    events_.insert(events_.end(), events.begin(), events.end());
    return !events.empty();
}

bool ConsoleHost::ExecutePaste(const std::string& rest) {
    InputEvent pasted;
    pasted.kind = InputEvent::Kind::Paste;
    pasted.text = FromUtf8(rest);
    events_.push_back(pasted);
    return true;
}

void ConsoleHost::ExecuteQuery(const std::string& verb, const std::string& rest) {
    Desktop& desktop = Desktop::The();
    if (verb == "registry") {
        for (const std::string& line : RegistryCommand(facts_.registryKey, rest))
            Answer(line);
        return;
    }
    if (verb == "clock") {
        if (const auto time = ParseUtcTime(rest))
            StopClock(*time);
        else
            Refuse("a time looks like 2026-03-01T10:00:00Z");
        return;
    }
    if (verb == "shot") {
        Shot(rest);
        return;
    }
    if (!rest.empty()) {
        Refuse(IsPlainQuery(verb) ? verb + " takes nothing" : "unknown command");
        return;
    }
    if (verb == "screen") {
        for (const std::string& line : ScreenLines(canvas_))
            Answer(line);
    } else if (verb == "controls") {
        for (const std::string& line : ControlLines())
            Answer(line);
    } else if (verb == "beeps") {
        Answer(std::to_string(desktop.beeps - toldBeeps_));
        toldBeeps_ = desktop.beeps;
    } else if (verb == "events") {
        Answer("beep " + std::to_string(desktop.beeps - toldEventBeeps_));
        Answer("front " + std::to_string(desktop.fronts));
        Answer("goback " + std::to_string(desktop.goBacks));
        Answer("waitcursor " + std::to_string(desktop.waitCursors));
        toldEventBeeps_ = desktop.beeps;
        desktop.fronts = desktop.goBacks = desktop.waitCursors = 0;
    } else if (verb == "now") {
        SYSTEMTIME utc;
        SYSTEMTIME local;
        GetSystemTime(&utc);
        GetLocalTime(&local);
        Answer("utc " + TimeText(utc));
        Answer("local " + TimeText(local));
    } else if (verb == "files") {
        for (const DocumentFile& file : ListDocuments())
            Answer(Quoted(FromUtf8(file.name)) + " " + std::to_string(file.size) + (file.readOnly ? " readonly" : ""));
    } else if (verb == "boot") {
        Refuse("already booted");
    } else {
        Refuse("unknown command");
    }
}

void ConsoleHost::Shot(const std::string& file) {
    if (file.empty()) {
        Refuse("shot takes a file");
        return;
    }
    CairoCanvas picture(ScreenSize(), TheEnvironment().zoom.value_or(1.0));
    Desktop::The().PaintAll(picture);
    if (!picture.WritePng(file))
        Refuse("the file cannot be written");
}

} // namespace device
