#pragma once

#include "platform/dialog.h"
#include "platform/drawing/cairo/cairo_canvas.h"
#include "platform/drawing/recording_canvas.h"
#include "platform/input.h"
#include "platform/window.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/host.h"

#include <deque>
#include <functional>
#include <gtest/gtest.h>

/// A host whose person is a list of steps: the next one runs whenever the device is idle, whichever loop waits. A
/// script that runs dry while a loop still waits fails the test and ends the loop.
class ScriptedHost final : public device::Host {
public:
    using Event = device::InputEvent;
    using Step = std::function<void()>;

    ScriptedHost() { device::Desktop::The().SwitchOn(*this); }
    ~ScriptedHost() override { device::Desktop::The().SwitchOff(); }

    ScriptedHost& Then(Step step) {
        steps.push_back(std::move(step));
        return *this;
    }
    /// Both halves at once, from inside a step.
    void Press(WORD key, unsigned modifiers = 0, wchar_t character = 0) {
        events.push_back({Event::Kind::KeyDown, key, character, modifiers});
        events.push_back({Event::Kind::KeyUp, key, 0, modifiers});
    }
    void Type(const std::wstring& text) {
        for (const wchar_t character : text)
            events.push_back({Event::Kind::Text, 0, character});
    }
    void Mouse(Event::Kind kind, POINT at, Event::Button button = Event::Button::Left, unsigned modifiers = 0) {
        events.push_back({.kind = kind, .modifiers = modifiers, .x = at.x, .y = at.y, .button = button});
    }
    void Click(POINT at, Event::Button button = Event::Button::Left, unsigned modifiers = 0) {
        Mouse(Event::Kind::MouseDown, at, button, modifiers);
        Mouse(Event::Kind::MouseUp, at, button, modifiers);
    }
    void DoubleClick(POINT at) {
        Click(at);
        Mouse(Event::Kind::DoubleClick, at);
        Mouse(Event::Kind::MouseUp, at);
    }
    void Drag(POINT from, POINT to) {
        Mouse(Event::Kind::MouseDown, from);
        Mouse(Event::Kind::MouseMove, to);
        Mouse(Event::Kind::MouseUp, to);
    }
    void Resize(int width, int height) { events.push_back({.kind = Event::Kind::Resize, .x = width, .y = height}); }
    /// Presses of a key that is held; its repeats are key-downs too.
    void Hold(WORD key, int times, wchar_t character = 0) {
        for (int time = 0; time < times; ++time)
            events.push_back({Event::Kind::KeyDown, key, character});
    }
    /// Runs messages until all steps are over.
    void Pump() {
        Then([] { PostQuitMessage(0); });
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }

    bool NextEvent(Event& event, bool wait) override {
        if (events.empty() && wait) {
            if (steps.empty()) {
                ADD_FAILURE() << "the script ran dry";
                if (const device::Window* front = device::Desktop::The().Front())
                    ::EndDialog(front->handle, -1);
                PostQuitMessage(-1);
                return false;
            }
            const Step step = std::move(steps.front());
            steps.pop_front();
            step();
        }
        if (events.empty())
            return false; // a step may have posted something
        event = events.front();
        events.pop_front();
        return true;
    }
    device::Canvas& Screen() override { return canvas; }
    void Present(const RECT& /*changed*/) override { }
    void Beep() override { }
    void Wake() override { }
    void GoBack() override { ++goBacks; }
    void FieldsChanged(const std::vector<device::ShownField>& shown) override { fields = shown; }
    void ShowPointer(device::PointerShape shape) override { shapes.push_back(shape); }

    std::deque<Step> steps;
    std::deque<Event> events;
    device::RecordingCanvas canvas{device::DeviceMeasurer()};
    int goBacks = 0;
    std::vector<device::ShownField> fields;
    std::vector<device::PointerShape> shapes;
};

using device::TextOf;

/// Ends a dialog from inside a step: its loop looks up when a message comes.
inline void Close(HWND dialog, LONG_PTR result) {
    EndDialog(dialog, result);
    PostMessageW(dialog, WM_NULL, 0, 0);
}
