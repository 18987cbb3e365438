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
    /// A key, or its halves, still to be given out.
    struct Keys {
        InputEvent down;
        InputEvent up;
        bool sendDown = false;
        bool sendUp = false;
        long times = 0;
        bool isDown = false; ///< the next half is the one that comes up
    };

    bool TakeQueued(InputEvent& event);
    void Answer(const std::string& line);
    /// Runs a command. True when the program has something to do now, so that the answer is finished later.
    bool Execute(const std::string& line);
    bool ExecuteInput(const std::string& verb, const std::string& rest);
    bool ExecuteKey(const std::string& verb, const std::string& rest);
    bool ExecutePost(const std::string& rest);
    bool ExecuteResize(const std::string& rest);
    void ExecuteQuery(const std::string& verb, const std::string& rest);
    void Shot(const std::string& file);
    void Refuse(const std::string& reason);
    void Finish();
    [[noreturn]] void LosePower();

    ProgramFacts facts_;
    LineReader reader_;
    RecordingCanvas canvas_;
    Keys keys_;
    InputEvent resized_; ///< a new size of the screen still to be given out
    std::wstring typed_;
    std::size_t nextTyped_ = 0;
    bool booted_ = false;
    bool open_ = false; ///< an answer waits for the program to become idle
    int toldBeeps_ = 0;
    int toldEventBeeps_ = 0;
};

} // namespace device
