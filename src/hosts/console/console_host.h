#pragma once

#include "hosts/console/device_commands.h"
#include "hosts/console/line_reader.h"
#include "platform/drawing/recording_canvas.h"
#include "platform/windowing/host.h"

#include <string>
#include <vector>

namespace device {

/// A device whose keys come from standard input, one command a line, and whose screen is told on standard output.
class ConsoleHost final : public Host {
public:
    explicit ConsoleHost(ProgramFacts facts);

    /// Answers the commands that may come before the program starts. True after `boot`, false at the end of input.
    bool WaitForBoot();

    bool NextEvent(InputEvent& event, bool wait) override;
    Canvas& Screen() override { return canvas_; }
    void Present(const RECT& /*changed*/) override { }
    void Beep() override { }
    void Wake() override { reader_.Wake(); }

private:
    static void Answer(const std::string& line);
    void Finish();
    void Execute(const std::string& line);
    std::vector<std::string> AnswerTo(const std::string& line);
    [[noreturn]] static void LosePower();

    LineReader reader_;
    RecordingCanvas canvas_;
    DeviceCommands commands_;
    bool booted_ = false;
    bool open_ = false; ///< an answer waits for the program to become idle
};

} // namespace device
