#pragma once

#include "platform/dialog.h"
#include "platform/drawing/cairo_canvas.h"
#include "platform/drawing/recording_canvas.h"
#include "platform/host.h"
#include "platform/window.h"
#include "platform/windowing/desktop.h"

#include <deque>
#include <functional>
#include <gtest/gtest.h>

/// A host whose person is a list of steps: the next one runs whenever the device is idle, whichever loop waits. A
/// script that runs dry while a loop still waits fails the test and ends the loop.
class ScriptedHost final : public device::Host {
public:
    using Event = device::InputEvent;

    ScriptedHost() { device::Desktop::The().SwitchOn(*this); }
    ~ScriptedHost() override { device::Desktop::The().SwitchOff(); }

    ScriptedHost& Then(std::function<void()> step) {
        steps_.push_back(std::move(step));
        return *this;
    }
    ScriptedHost& Key(WORD key, unsigned modifiers = 0) {
        return Then([this, key, modifiers] { Press(key, modifiers); });
    }
    /// Both halves at once, from inside a step.
    void Press(WORD key, unsigned modifiers = 0) {
        events.push_back({Event::Kind::KeyDown, key, 0, modifiers});
        events.push_back({Event::Kind::KeyUp, key, 0, modifiers});
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
    std::vector<std::wstring> Texts() const {
        std::vector<std::wstring> texts;
        for (const device::PaintedText& text : canvas_.Texts())
            texts.push_back(text.text);
        return texts;
    }

    bool NextEvent(Event& event, bool wait) override {
        for (;;) {
            if (!events.empty()) {
                event = events.front();
                events.pop_front();
                return true;
            }
            if (!wait)
                return false;
            if (steps_.empty()) {
                ADD_FAILURE() << "the script ran dry";
                if (const device::Window* front = device::Desktop::The().Front())
                    ::EndDialog(front->handle, -1);
                PostQuitMessage(-1);
                return false;
            }
            const auto step = std::move(steps_.front());
            steps_.pop_front();
            step();
            if (events.empty())
                return false; // the step may have posted something
        }
    }
    device::Canvas& Screen() override { return canvas_; }
    void Present(const RECT& /*changed*/) override { ++frames; }
    void Beep() override { }
    void Wake() override { }
    void GoBack() override { ++goBacks; }

    std::deque<Event> events;
    int frames = 0;
    int goBacks = 0;

private:
    device::RecordingCanvas canvas_{device::PangoMeasurer()};
    std::deque<std::function<void()>> steps_;
};
