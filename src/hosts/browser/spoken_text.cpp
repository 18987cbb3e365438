#include "hosts/browser/spoken_text.h"

#include "platform/windowing/desktop.h"
#include "platform/windowing/shown_fields.h"

#include <functional>

namespace device {

namespace {

using IsTold = std::function<bool(const PaintMarks&)>;

/// The painted texts that are to be told, one after the other.
std::wstring Joined(const RecordingCanvas& canvas, const IsTold& isTold) {
    std::wstring joined;
    bool isGreyed = false;
    for (const PaintedText& text : canvas.Texts()) {
        if (text.text.empty() || !isTold(text.marks))
            continue;
        joined.append(joined.empty() ? L"" : L" ").append(text.text);
        isGreyed = isGreyed || text.marks.greyed;
    }
    return isGreyed ? joined + L", not available" : joined;
}

/// A list says its row that is chosen, another control all of its text.
std::wstring FocusedText(const RecordingCanvas& canvas, const Window& focused) {
    const auto isOfFocused = [&](const PaintMarks& marks) { return marks.control == focused.handle; };
    const std::wstring chosen
        = Joined(canvas, [&](const PaintMarks& marks) { return isOfFocused(marks) && marks.selected; });
    if (!chosen.empty())
        return chosen + L", selected";
    const bool isField = focused.control && (focused.control->TakesText() || !focused.control->Value().empty());
    return isField ? TextOf(focused.handle) : Joined(canvas, isOfFocused);
}

} // namespace

std::wstring SpokenText(const RecordingCanvas& canvas, HWND* former) {
    const Desktop& desktop = Desktop::The();
    if (desktop.Menu())
        return Joined(
            canvas, [](const PaintMarks& marks) { return marks.role == PaintMarks::Role::Menu && marks.selected; });
    const Window* front = desktop.Front();
    if (!front)
        return {};
    std::wstring spoken;
    const auto say = [&](const std::wstring& text) {
        if (!text.empty())
            spoken.append(spoken.empty() ? L"" : L". ").append(text);
    };
    if (*former != front->handle) {
        say(front->text);
        if (front->isMessageBox)
            say(Joined(canvas, [&](const PaintMarks& marks) {
                return marks.topLevel == front->handle && marks.role == PaintMarks::Role::Content;
            }));
    }
    *former = front->handle;
    if (const Window* focused = FindWindowRecord(desktop.Focus()); focused && focused->parent) {
        say(LabelOf(*focused));
        say(FocusedText(canvas, *focused));
    }
    return spoken;
}

} // namespace device
