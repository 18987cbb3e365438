#include "hosts/console/screen_text.h"

#include "hosts/console/text_form.h"
#include "platform/controls/list_box.h"
#include "platform/controls/list_view.h"
#include "platform/controls/up_down.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/open_menu.h"

#include <algorithm>
#include <cstdlib>

namespace device {

namespace {

constexpr std::size_t LeastGap = 2;

bool IsList(HWND control) {
    const Control* inside = ControlOf(control);
    return dynamic_cast<const ListView*>(inside)
        || (dynamic_cast<const ListBox*>(inside) && !UpDown::PartnerOf(control, UDS_HORZ));
}

LONG DoubledMiddle(const PaintedText& text) {
    return text.place.top + text.place.bottom;
}

/// Runs of one control that touch are one text.
std::vector<PaintedText> Joined(std::vector<PaintedText> line) {
    std::stable_sort(line.begin(), line.end(),
        [](const PaintedText& first, const PaintedText& second) { return first.place.left < second.place.left; });
    std::vector<PaintedText> joined;
    for (PaintedText& text : line) {
        const bool touches = !joined.empty() && text.marks.control && joined.back().marks.control == text.marks.control
            && std::abs(text.place.left - joined.back().place.right) <= 1;
        if (touches) {
            joined.back().text += text.text;
            joined.back().place.right = text.place.right;
        } else {
            joined.push_back(std::move(text));
        }
    }
    return joined;
}

/// `cell` is the width of a column of text in device pixels.
std::string LineOf(std::vector<PaintedText> texts, LONG cell) {
    const std::vector<PaintedText> line = Joined(std::move(texts));
    bool chosen = false;
    bool greyed = false;
    std::wstring content;
    for (const PaintedText& text : line) {
        chosen = chosen || text.marks.selected || (text.marks.focused && !IsList(text.marks.control));
        greyed = greyed || text.marks.greyed;
        if (!content.empty()) {
            const auto column = static_cast<std::size_t>(std::max<LONG>(0, text.place.left / std::max<LONG>(1, cell)));
            content.append(std::max(LeastGap, column > content.size() ? column - content.size() : 0), L' ');
        }
        content += text.text;
    }
    std::string told = chosen ? ">" : " ";
    told += greyed ? "~" : " ";
    told += OneLine(content);
    return told;
}

std::vector<std::string> ContentLines(const RecordingCanvas& canvas, HWND topLevel) {
    std::vector<PaintedText> texts;
    for (const PaintedText& text : canvas.Texts())
        if (text.marks.role == PaintMarks::Role::Content && text.marks.topLevel == topLevel && !text.text.empty())
            texts.push_back(text);
    std::stable_sort(texts.begin(), texts.end(), [](const PaintedText& first, const PaintedText& second) {
        return DoubledMiddle(first) < DoubledMiddle(second);
    });
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < texts.size();) {
        std::size_t end = start;
        std::vector<PaintedText> line;
        const LONG height = texts[start].place.bottom - texts[start].place.top;
        while (end < texts.size() && DoubledMiddle(texts[end]) - DoubledMiddle(texts[start]) <= height)
            line.push_back(texts[end++]);
        lines.push_back(LineOf(std::move(line), std::max<LONG>(1, height * 11 / 20)));
        start = end;
    }
    return lines;
}

void AddMenuLines(std::vector<std::string>& lines, const OpenMenu& menu) {
    lines.emplace_back("(menu)");
    const auto& items = menu.Popup().Items();
    const int end = std::min(menu.FirstShown() + menu.CountShown(), static_cast<int>(items.size()));
    for (int index = menu.FirstShown(); index < end; ++index) {
        const MenuItem& item = items[static_cast<std::size_t>(index)];
        if (item.separator) {
            lines.emplace_back("  --");
            continue;
        }
        std::string line = index == menu.Focused() ? ">" : " ";
        line += item.grayed ? "~" : " ";
        lines.push_back(line + OneLine(menu.PaintedText(index)));
    }
}

std::string RoleText(const RecordingCanvas& canvas, PaintMarks::Role role) {
    for (const PaintedText& text : canvas.Texts())
        if (text.marks.role == role)
            return OneLine(text.text);
    return {};
}

} // namespace

std::vector<std::string> ScreenLines(const RecordingCanvas& canvas) {
    const Desktop& desktop = Desktop::The();
    const Window* front = desktop.Front();
    std::vector<std::string> lines;
    lines.push_back("[" + RoleText(canvas, PaintMarks::Role::Title) + "]");
    if (front)
        for (std::string& line : ContentLines(canvas, front->handle))
            lines.push_back(std::move(line));
    if (const OpenMenu* menu = desktop.Menu())
        AddMenuLines(lines, *menu);
    lines.push_back("{" + RoleText(canvas, PaintMarks::Role::LeftSoftKey) + "|"
        + RoleText(canvas, PaintMarks::Role::RightSoftKey) + "}");
    return lines;
}

} // namespace device
