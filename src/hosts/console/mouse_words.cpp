#include "hosts/console/mouse_words.h"

#include <sstream>

namespace device {

namespace {

using Kind = InputEvent::Kind;

constexpr int Farthest = 16'384; // what a message of the mouse can carry

/// What each word does, in order.
std::vector<Kind> KindsOf(const std::string& word) {
    if (word == "down")
        return {Kind::MouseDown};
    if (word == "move")
        return {Kind::MouseMove};
    if (word == "up")
        return {Kind::MouseUp};
    if (word == "wheel")
        return {Kind::Wheel};
    if (word == "click")
        return {Kind::MouseDown, Kind::MouseUp};
    if (word == "double")
        return {Kind::MouseDown, Kind::MouseUp, Kind::DoubleClick, Kind::MouseUp};
    return {};
}

bool TakeButton(const std::string& word, InputEvent& event) {
    event.button = word == "right" ? InputEvent::Button::Right
        : word == "middle"         ? InputEvent::Button::Middle
                                   : InputEvent::Button::Left;
    return word.empty() || word == "left" || word == "middle" || word == "right";
}

} // namespace

std::vector<InputEvent> MouseOfWords(const std::string& words) {
    std::istringstream stream(words);
    std::string word;
    std::string button;
    std::string more;
    InputEvent event;
    stream >> word >> event.x >> event.y;
    const bool isWheel = word == "wheel";
    if (isWheel)
        stream >> event.delta;
    const auto isFar = [](int way) { return way < -Farthest || way > Farthest; };
    const bool isPlace = !stream.fail() && !isFar(event.x) && !isFar(event.y) && !isFar(event.delta);
    stream >> button >> more;
    if (!isPlace || !more.empty() || (isWheel ? !button.empty() : !TakeButton(button, event)))
        return {};
    std::vector<InputEvent> events;
    for (const Kind kind : KindsOf(word)) {
        event.kind = kind;
        events.push_back(event);
    }
    return events;
}

} // namespace device
