#include "hosts/browser/browser_host.h"

#include "hosts/browser/frame_lines.h"
#include "hosts/browser/library.h"
#include "platform/metrics.h"
#include "platform/system/environment.h"
#include "platform/utf8.h"
#include "platform/windowing/closing.h"

#include <cstdlib>
#include <memory>
#include <utility>

namespace device {

namespace {

const char* NameOf(PointerShape shape) {
    return shape == PointerShape::Hand ? "hand" : shape == PointerShape::Text ? "text" : "arrow";
}

const char* NameOf(ShownField::Kind kind) {
    using Kind = ShownField::Kind;
    switch (kind) {
    case Kind::Note:
        return "note";
    case Kind::Lines:
        return "lines";
    case Kind::Whole:
        return "whole";
    case Kind::Decimal:
        return "decimal";
    case Kind::Date:
        return "date";
    case Kind::Text:
        break;
    }
    return "text";
}

std::wstring Taken(char* text) {
    const std::unique_ptr<char, void (*)(void*)> owned(text, std::free);
    return text == nullptr ? std::wstring() : FromUtf8(owned.get());
}

} // namespace

BrowserHost::BrowserHost(ProgramFacts facts)
    : pixels_(ScreenSize(), TheEnvironment().zoom.value_or(1.0))
    , texts_(DeviceMeasurer())
    , canvas_(pixels_, texts_)
    , commands_(std::move(facts), texts_) {
}

std::vector<std::string> BrowserHost::AnswerTo(const std::string& command) {
    return command == "frame" ? FrameLines(texts_) : commands_.AnswerTo(command);
}

bool BrowserHost::TakeToldEvent(InputEvent& event) {
    BrowserEvent told{};
    if (odoledgerHostTakeEvent(&told) == 0)
        return false;
    event = {};
    event.kind = static_cast<InputEvent::Kind>(told.kind);
    event.key = static_cast<WORD>(told.key);
    event.character = static_cast<wchar_t>(told.character);
    event.modifiers = static_cast<unsigned>(told.modifiers);
    event.isRepeat = told.isRepeat != 0;
    event.x = told.x;
    event.y = told.y;
    event.delta = told.delta;
    event.button = static_cast<InputEvent::Button>(told.button);
    event.text = Taken(told.text);
    event.field = reinterpret_cast<HWND>(static_cast<std::intptr_t>(told.field)); // NOLINT
    if (event.kind == InputEvent::Kind::FieldText)
        answers_ = told.delta;
    if (event.kind == InputEvent::Kind::Resize) {
        SetTouchTarget(told.touchTarget);
        pixels_.Resize({event.x, event.y}, told.zoom > 0 ? told.zoom : pixels_.Zoom());
    }
    return true;
}

bool BrowserHost::TakeEvent(InputEvent& event) {
    if (!commands_.TakeEvent(event))
        return TakeToldEvent(event);
    if (event.kind == InputEvent::Kind::Resize)
        pixels_.Resize({event.x, event.y}, pixels_.Zoom());
    return true;
}

bool BrowserHost::NextEvent(InputEvent& event, bool wait) {
    if (TakeEvent(event))
        return true;
    if (!wait)
        return false;
    odoledgerHostWait();
    return TakeEvent(event);
}

void BrowserHost::Present(const RECT& /*changed*/) {
    // What is drawn shows by itself as soon as the program waits.
    if (!std::exchange(isPainted_, true))
        odoledgerHostTell("firstScreen", "");
    Speak();
    const bool isTyped = IsSomethingTyped();
    if (isTyped != std::exchange(isTyped_, isTyped))
        odoledgerHostTell("typed", isTyped ? "typed" : "");
}

void BrowserHost::Speak() {
    const std::wstring spoken = speaker_.News(texts_);
    if (!spoken.empty())
        odoledgerHostTell("spoken", ToUtf8(spoken).c_str());
}

void BrowserHost::FieldsChanged(const std::vector<ShownField>& fields) {
    for (const ShownField& field : fields) {
        const RECT& place = field.place;
        const LONG numbers[] = {static_cast<LONG>(reinterpret_cast<std::intptr_t>(field.window)), place.left, place.top,
            place.right - place.left, place.bottom - place.top, field.isCapital ? 1 : 0, field.isFocused ? 1 : 0,
            static_cast<LONG>(field.limit), static_cast<LONG>(field.start), static_cast<LONG>(field.end)};
        odoledgerHostAddField(numbers, NameOf(field.kind), ToUtf8(field.label).c_str(), ToUtf8(field.text).c_str());
    }
    odoledgerHostTell("fields", std::to_string(answers_).c_str());
}

void BrowserHost::Beep() {
    odoledgerHostTell("beep", "");
}

void BrowserHost::TitleChanged(const std::wstring& title) {
    odoledgerHostTell("title", ToUtf8(title).c_str());
}

void BrowserHost::GoBack() {
    odoledgerHostTell("goBack", "");
}

void BrowserHost::WaitCursor(bool shown) {
    odoledgerHostTell("waitCursor", shown ? "shown" : "");
}

void BrowserHost::Attention() {
    odoledgerHostTell("attention", "");
}

void BrowserHost::Notify(const std::string& line) {
    odoledgerHostTell("notify", line.c_str());
}

void BrowserHost::ShowPointer(PointerShape shape) {
    odoledgerHostTell("pointer", NameOf(shape));
}

void BrowserHost::StoreText(Clipboard where, const std::wstring& text) {
    // A page has no place for what is only selected.
    if (where == Clipboard::Copied)
        odoledgerHostTell("storeText", ToUtf8(text).c_str());
}

} // namespace device
