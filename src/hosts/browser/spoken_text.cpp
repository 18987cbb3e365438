#include "hosts/browser/spoken_text.h"

#include "platform/windowing/desktop.h"
#include "platform/windowing/shown_fields.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

namespace device {

namespace {

using IsTold = std::function<bool(const PaintMarks&)>;

/// The painted texts that are to be told, as one reads them.
std::wstring Joined(const RecordingCanvas& canvas, const IsTold& isTold) {
    std::vector<PaintedText> told;
    std::copy_if(canvas.Texts().begin(), canvas.Texts().end(), std::back_inserter(told),
        [&](const PaintedText& text) { return !text.text.empty() && isTold(text.marks); });
    std::stable_sort(told.begin(), told.end(), [](const PaintedText& first, const PaintedText& second) {
        return std::pair(first.place.top, first.place.left) < std::pair(second.place.top, second.place.left);
    });
    std::wstring joined;
    for (const PaintedText& text : told)
        joined.append(joined.empty() ? L"" : L" ").append(text.text);
    const bool isGreyed
        = std::any_of(told.begin(), told.end(), [](const PaintedText& text) { return text.marks.greyed; });
    return isGreyed ? joined + L", not available" : joined;
}

std::wstring Sentences(std::initializer_list<std::wstring> each) {
    std::wstring sentences;
    for (const std::wstring& text : each)
        if (!text.empty())
            sentences.append(sentences.empty() ? L"" : L". ").append(text);
    return sentences;
}

bool IsField(const Window& control) {
    return control.control && (control.control->TakesText() || !control.control->Value().empty());
}

/// A list says its row that is chosen, another control all of its text.
std::wstring FocusedText(const RecordingCanvas& canvas, const Window& focused) {
    const auto isOfFocused = [&](const PaintMarks& marks) { return marks.control == focused.handle; };
    const std::wstring chosen
        = Joined(canvas, [&](const PaintMarks& marks) { return isOfFocused(marks) && marks.selected; });
    if (!chosen.empty())
        return chosen + L", selected";
    return IsField(focused) ? TextOf(focused.handle) : Joined(canvas, isOfFocused);
}

std::wstring FrontText(const RecordingCanvas& canvas, const Window& front) {
    if (!front.isMessageBox)
        return front.text;
    return Sentences({front.text, Joined(canvas, [&](const PaintMarks& marks) {
                          return marks.topLevel == front.handle && marks.role == PaintMarks::Role::Content;
                      })});
}

} // namespace

Speaker::Told Speaker::Look(const RecordingCanvas& canvas) const {
    const Desktop& desktop = Desktop::The();
    Told now;
    now.front = told_.front;
    if (desktop.Menu()) {
        now.text = Joined(
            canvas, [](const PaintMarks& marks) { return marks.role == PaintMarks::Role::Menu && marks.selected; });
        return now;
    }
    const Window* front = desktop.Front();
    now.front = front ? front->handle : nullptr;
    const Window* focused = FindWindowRecord(desktop.Focus());
    if (!front || !focused || !focused->parent)
        return now;
    now.focus = focused->handle;
    now.text = Sentences({LabelOf(*focused), FocusedText(canvas, *focused)});
    now.part = focused->control ? focused->control->FocusedPart() : L"";
    now.isField = IsField(*focused);
    return now;
}

std::wstring Speaker::News(const RecordingCanvas& canvas) {
    const Told now = Look(canvas);
    const Told former = std::exchange(told_, now);
    if (now == former)
        return {};
    if (now.isField && now.focus == former.focus && now.part != former.part)
        return now.part;
    const Window* front = now.front == former.front ? nullptr : FindWindowRecord(now.front);
    return Sentences({front ? FrontText(canvas, *front) : L"", now.text, now.part});
}

} // namespace device
