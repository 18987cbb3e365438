#pragma once

#include "hosts/console/line_reader.h"
#include "hosts/console/program_facts.h"
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
    bool TakeQueued(InputEvent& event);
    /// The events of one command, given out before the next one is read.
    void GiveOut(std::vector<InputEvent> gesture, long times = 1);
    static void Answer(const std::string& line);
    void Finish();
    void Execute(const std::string& line);
    // The lines that answer a command.
    std::vector<std::string> AnswerTo(const std::string& verb, const std::string& rest);
    std::vector<std::string> Query(const std::string& verb);
    std::vector<std::string> Key(const std::string& verb, const std::string& rest);
    std::vector<std::string> Type(const std::string& rest);
    std::vector<std::string> Post(const std::string& rest);
    std::vector<std::string> Resize(const std::string& rest);
    std::vector<std::string> Mouse(const std::string& rest);
    std::vector<std::string> Paste(const std::string& rest);
    [[noreturn]] static void LosePower();

    ProgramFacts facts_;
    LineReader reader_;
    RecordingCanvas canvas_;
    std::vector<InputEvent> gesture_;
    std::size_t next_ = 0; ///< of the gesture
    long times_ = 0; ///< that the gesture is still to be given out
    bool booted_ = false;
    bool open_ = false; ///< an answer waits for the program to become idle
    int toldBeeps_ = 0;
    int toldEventBeeps_ = 0;
};

} // namespace device
