#pragma once

#include "hosts/console/program_facts.h"
#include "platform/drawing/recording_canvas.h"
#include "platform/windowing/host.h"

#include <string>
#include <vector>

namespace device {

/// What a script says to the device, one line a command: gestures, which are given out as input events, and questions
/// on what the program shows and keeps.
class DeviceCommands {
public:
    /// The canvas, which is borrowed, holds what stands on the screen.
    DeviceCommands(ProgramFacts facts, const RecordingCanvas& canvas);

    /// The lines that answer a command; the events of the one before are given up.
    std::vector<std::string> AnswerTo(const std::string& line);
    /// The next event of the last command; false when there is none left.
    bool TakeEvent(InputEvent& event);

private:
    void GiveOut(std::vector<InputEvent> gesture, long times = 1);
    std::vector<std::string> Query(const std::string& verb);
    std::vector<std::string> Key(const std::string& verb, const std::string& rest);
    std::vector<std::string> Type(const std::string& rest);
    std::vector<std::string> Post(const std::string& rest);
    std::vector<std::string> Resize(const std::string& rest);
    std::vector<std::string> Mouse(const std::string& rest);
    std::vector<std::string> Paste(const std::string& rest);

    ProgramFacts facts_;
    const RecordingCanvas& canvas_;
    std::vector<InputEvent> gesture_;
    std::size_t next_ = 0; ///< of the gesture
    long times_ = 0; ///< that the gesture is still to be given out
    int toldBeeps_ = 0;
    int toldEventBeeps_ = 0;
};

/// The answer to a command that cannot be obeyed.
std::vector<std::string> Refusal(const std::string& reason);

} // namespace device
