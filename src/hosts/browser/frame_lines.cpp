#include "hosts/browser/frame_lines.h"

#include "hosts/console/text_form.h"

namespace device {

namespace {

const char* NameOf(PaintMarks::Role role) {
    switch (role) {
    case PaintMarks::Role::Title:
        return "title";
    case PaintMarks::Role::InputMode:
        return "mode";
    case PaintMarks::Role::LeftSoftKey:
        return "softkey-left";
    case PaintMarks::Role::RightSoftKey:
        return "softkey-right";
    case PaintMarks::Role::Menu:
        return "menu";
    case PaintMarks::Role::Content:
        break;
    }
    return "content";
}

} // namespace

std::vector<std::string> FrameLines(const RecordingCanvas& canvas) {
    std::vector<std::string> lines;
    for (const PaintedText& text : canvas.Texts()) {
        const RECT& place = text.place;
        std::string line = std::to_string(place.left) + ',' + std::to_string(place.top);
        line += ',' + std::to_string(place.right - place.left) + ',' + std::to_string(place.bottom - place.top);
        line += ' ';
        line += NameOf(text.marks.role);
        line += text.marks.selected ? " selected" : "";
        line += text.marks.focused ? " focused" : "";
        line += text.marks.greyed ? " greyed" : "";
        lines.push_back(line + ' ' + Quoted(text.text));
    }
    return lines;
}

} // namespace device
