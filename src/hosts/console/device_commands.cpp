#include "hosts/console/device_commands.h"

#include "hosts/console/control_list.h"
#include "hosts/console/key_names.h"
#include "hosts/console/mouse_words.h"
#include "hosts/console/registry_command.h"
#include "hosts/console/screen_text.h"
#include "hosts/console/text_form.h"
#include "platform/system/clock.h"
#include "platform/system/device_paths.h"
#include "platform/time.h"
#include "platform/utf8.h"
#include "platform/windowing/desktop.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace device {

namespace {

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

bool IsOneOf(const std::string& verb, std::initializer_list<const char*> verbs) {
    return std::find(verbs.begin(), verbs.end(), verb) != verbs.end();
}

std::vector<std::string> TimeLines() {
    SYSTEMTIME utc;
    SYSTEMTIME local;
    GetSystemTime(&utc);
    GetLocalTime(&local);
    return {"utc " + TimeText(utc), "local " + TimeText(local)};
}

std::vector<std::string> FileLines() {
    std::vector<std::string> lines;
    for (const DocumentFile& file : ListDocuments())
        lines.push_back(
            Quoted(FromUtf8(file.name)) + " " + std::to_string(file.size) + (file.readOnly ? " readonly" : ""));
    return lines;
}

std::vector<std::string> SetClock(const std::string& text) {
    const auto time = ParseUtcTime(text);
    if (!time)
        return Refusal("a time looks like 2026-03-01T10:00:00Z");
    StopClock(*time);
    return {};
}

} // namespace

std::vector<std::string> Refusal(const std::string& reason) {
    return {"? " + reason};
}

DeviceCommands::DeviceCommands(ProgramFacts facts, const RecordingCanvas& canvas)
    : facts_(std::move(facts))
    , canvas_(canvas) {
}

bool DeviceCommands::TakeEvent(InputEvent& event) {
    if (times_ == 0)
        return false;
    event = gesture_[next_];
    next_ = (next_ + 1) % gesture_.size();
    if (next_ == 0)
        --times_;
    return true;
}

std::vector<std::string> DeviceCommands::AnswerTo(const std::string& line) {
    const std::size_t space = line.find(' ');
    const std::string verb = line.substr(0, space);
    const std::string rest = space == std::string::npos ? std::string() : line.substr(space + 1);
    if (IsOneOf(verb, {"key", "keydown", "keyup"}))
        return Key(verb, rest);
    if (verb == "type")
        return Type(rest);
    if (verb == "post")
        return Post(rest);
    if (verb == "resize")
        return Resize(rest);
    if (verb == "mouse")
        return Mouse(rest);
    if (verb == "paste")
        return Paste(rest);
    if (verb == "registry")
        return RegistryCommand(facts_.registryKey, rest);
    if (verb == "clock")
        return SetClock(rest);
    if (!IsOneOf(verb, {"screen", "controls", "beeps", "events", "now", "files"}))
        return Refusal("unknown command");
    return rest.empty() ? Query(verb) : Refusal(verb + " takes nothing");
}

std::vector<std::string> DeviceCommands::Query(const std::string& verb) {
    if (verb == "screen")
        return ScreenLines(canvas_);
    if (verb == "controls")
        return ControlLines();
    if (verb == "now")
        return TimeLines();
    if (verb == "files")
        return FileLines();
    Desktop& desktop = Desktop::The();
    if (verb == "beeps")
        return {std::to_string(desktop.beeps - std::exchange(toldBeeps_, desktop.beeps))};
    return {"beep " + std::to_string(desktop.beeps - std::exchange(toldEventBeeps_, desktop.beeps)),
        "front " + std::to_string(std::exchange(desktop.fronts, 0)),
        "goback " + std::to_string(std::exchange(desktop.goBacks, 0)),
        "waitcursor " + std::to_string(std::exchange(desktop.waitCursors, 0))};
}

void DeviceCommands::GiveOut(std::vector<InputEvent> gesture, long times) {
    gesture_ = std::move(gesture);
    next_ = 0;
    times_ = gesture_.empty() ? 0 : times;
}

std::vector<std::string> DeviceCommands::Key(const std::string& verb, const std::string& rest) {
    const std::size_t space = rest.find(' ', rest.empty() ? 0 : 1);
    const auto down = KeyOfName(rest.substr(0, space));
    if (!down)
        return Refusal("unknown key");
    long times = 1;
    if (space != std::string::npos
        && (verb != "key" || !ParseCount(rest.substr(space + 1), times) || times < 1 || times > MostPresses))
        return Refusal("wrong number of presses");
    InputEvent up = *down;
    up.kind = InputEvent::Kind::KeyUp;
    up.character = 0;
    if (verb == "key")
        GiveOut({*down, up}, times);
    else
        GiveOut({verb == "keydown" ? *down : up});
    return {};
}

std::vector<std::string> DeviceCommands::Type(const std::string& rest) {
    std::vector<InputEvent> gesture;
    for (const wchar_t character : FromUtf8(rest))
        gesture.push_back({.kind = InputEvent::Kind::Text, .character = character});
    GiveOut(std::move(gesture));
    return {};
}

std::vector<std::string> DeviceCommands::Post(const std::string& rest) {
    const std::wstring* name = rest == "reload" ? &facts_.reloadMessage
        : rest == "close"                       ? &facts_.closeMessage
                                                : nullptr;
    if (!name)
        return Refusal("post reload or post close");
    const HWND window = FindWindowW(facts_.windowClass.c_str(), nullptr);
    if (!PostMessageW(window, RegisterWindowMessageW(name->c_str()), 0, 0))
        return Refusal("the program has no window");
    return {};
}

std::vector<std::string> DeviceCommands::Mouse(const std::string& rest) {
    std::vector<InputEvent> gesture = MouseOfWords(rest);
    if (gesture.empty())
        return Refusal("mouse click|double|down|move|up X Y [left|middle|right], mouse wheel X Y LINES");
    GiveOut(std::move(gesture));
    return {};
}

std::vector<std::string> DeviceCommands::Paste(const std::string& rest) {
    GiveOut({{.kind = InputEvent::Kind::Paste, .text = FromUtf8(rest)}});
    return {};
}

std::vector<std::string> DeviceCommands::Resize(const std::string& rest) {
    const std::size_t cross = std::min(rest.find('x'), rest.size());
    long width = 0;
    long height = 0;
    const bool isSize = ParseCount(rest.substr(0, cross), width)
        && ParseCount(rest.substr(std::min(cross + 1, rest.size())), height) && std::min(width, height) >= 1
        && std::max(width, height) <= LargestScreen;
    if (!isSize)
        return Refusal("a size looks like 320x480");
    GiveOut({{.kind = InputEvent::Kind::Resize, .x = static_cast<int>(width), .y = static_cast<int>(height)}});
    return {};
}

} // namespace device
