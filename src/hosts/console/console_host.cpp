#include "hosts/console/console_host.h"

#include "platform/drawing/cairo/cairo_canvas.h"
#include "platform/metrics.h"
#include "platform/system/environment.h"
#include "platform/windowing/desktop.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace device {

namespace {

constexpr int PowerLost = 3;
/// What a device can tell that is not switched on.
constexpr std::array<std::string_view, 4> CommandsBeforeBoot{"registry", "clock", "now", "files"};

std::vector<std::string> Shot(const std::string& file) {
    if (file.empty())
        return Refusal("shot takes a file");
    CairoCanvas picture(ScreenSize(), TheEnvironment().zoom.value_or(1.0));
    Desktop::The().PaintAll(picture);
    return picture.WritePng(file) ? std::vector<std::string>() : Refusal("the file cannot be written");
}

} // namespace

ConsoleHost::ConsoleHost(ProgramFacts facts)
    : canvas_(DeviceMeasurer())
    , commands_(std::move(facts), canvas_) {
}

void ConsoleHost::Answer(const std::string& line) {
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
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

bool ConsoleHost::NextEvent(InputEvent& event, bool wait) {
    if (commands_.TakeEvent(event))
        return true;
    if (!wait)
        return false;
    // The program has done whatever the last command gave it to do.
    if (open_)
        Finish();
    std::string line;
    const LineReader::Result result = reader_.Next(line);
    if (result == LineReader::Result::End)
        LosePower();
    if (result == LineReader::Result::Woken || line.empty() || line.front() == '#')
        return false;
    open_ = true;
    Execute(line);
    return commands_.TakeEvent(event);
}

void ConsoleHost::Execute(const std::string& line) {
    for (const std::string& each : AnswerTo(line))
        Answer(each);
}

std::vector<std::string> ConsoleHost::AnswerTo(const std::string& line) {
    const std::size_t space = line.find(' ');
    const std::string verb = line.substr(0, space);
    const std::string rest = space == std::string::npos ? std::string() : line.substr(space + 1);
    const bool isEarly
        = std::find(CommandsBeforeBoot.begin(), CommandsBeforeBoot.end(), verb) != CommandsBeforeBoot.end();
    if (!booted_ && !isEarly)
        return Refusal("not booted");
    if (verb == "shot")
        return Shot(rest);
    if (verb == "boot")
        return Refusal(rest.empty() ? "already booted" : "boot takes nothing");
    return commands_.AnswerTo(line);
}

} // namespace device
