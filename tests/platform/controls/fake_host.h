#pragma once

#include "../system/device_fixture.h"

#include "platform/dialog.h"
#include "platform/drawing/cairo_canvas.h"
#include "platform/drawing/recording_canvas.h"
#include "platform/host.h"
#include "platform/input.h"
#include "platform/windowing/desktop.h"

#include <deque>
#include <functional>
#include <vector>

/// A device whose keys come from a script: each step runs when the program waits for input, in whatever loop.
class FakeHost final : public device::Host {
public:
    using Step = std::function<void()>;

    std::deque<Step> steps;
    std::deque<device::InputEvent> events;
    device::RecordingCanvas canvas{device::PangoMeasurer()};

    bool NextEvent(device::InputEvent& event, bool wait) override {
        if (events.empty() && wait) {
            if (steps.empty()) {
                ADD_FAILURE() << "the script ran dry inside a loop";
                PostQuitMessage(-1);
                return false;
            }
            const Step step = std::move(steps.front());
            steps.pop_front();
            step();
        }
        if (events.empty())
            return false;
        event = events.front();
        events.pop_front();
        return true;
    }
    device::Canvas& Screen() override { return canvas; }
    void Present(const RECT& /*changed*/) override { }
    void Beep() override { }
    void Wake() override { }
};

/// A dialog of the test's own controls, run with a script.
class ControlTest : public DeviceTest {
protected:
    ~ControlTest() override { device::Desktop::The().SwitchOff(); }

    /// Runs a dialog of `items`; `steps` are what happens in it, and it is closed behind the last one.
    void Run(std::vector<DialogItemTemplate> items, std::vector<FakeHost::Step> steps) {
        device::Desktop::The().SwitchOn(host);
        host.steps.assign(steps.begin(), steps.end());
        host.steps.emplace_back([this] {
            EndDialog(dialog, 0);
            PostMessageW(dialog, WM_NULL, 0, 0); // the loop looks up when a message comes
        });
        const DLGTEMPLATE form{WS_POPUP | WS_VSCROLL, 100, 100, L"Form", L"", 8, items};
        DialogBoxIndirectParamW(nullptr, &form, nullptr, Procedure, reinterpret_cast<LPARAM>(this));
        EXPECT_TRUE(host.steps.empty()) << "the dialog ended before its script";
    }

    void Key(WORD key, unsigned modifiers = 0, wchar_t character = 0) {
        for (const auto kind : {device::InputEvent::Kind::KeyDown, device::InputEvent::Kind::KeyUp}) {
            device::InputEvent event;
            event.kind = kind;
            event.key = key;
            event.character = kind == device::InputEvent::Kind::KeyDown ? character : L'\0';
            event.modifiers = modifiers;
            host.events.push_back(event);
        }
    }
    void Type(const std::wstring& text) {
        for (const wchar_t character : text) {
            device::InputEvent event;
            event.kind = device::InputEvent::Kind::Text;
            event.character = character;
            host.events.push_back(event);
        }
    }
    FakeHost::Step Keys(std::vector<WORD> keys) {
        return [this, keys] {
            for (const WORD key : keys)
                Key(key);
        };
    }
    FakeHost::Step Typing(const std::wstring& text) {
        return [this, text] { Type(text); };
    }

    HWND Item(int id) const { return GetDlgItem(dialog, id); }
    std::wstring TextOf(HWND window) const {
        std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
        return text;
    }
    std::wstring TextOf(int id) const { return TextOf(Item(id)); }
    /// The texts that stand on the screen for a control, from left to right as painted, joined.
    std::wstring Painted(HWND control) const {
        std::wstring joined;
        for (const device::PaintedText& text : host.canvas.Texts()) {
            if (text.marks.control == control)
                joined += (joined.empty() ? L"" : L"|") + text.text;
        }
        return joined;
    }

    FakeHost host;
    HWND dialog = nullptr;
    std::vector<std::pair<int, UINT>> notifications; ///< control and code
    std::function<void()> onInit;

private:
    static LPARAM Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        static ControlTest* test = nullptr;
        if (message == WM_INITDIALOG) {
            test = reinterpret_cast<ControlTest*>(lParam); // NOLINT(performance-no-int-to-ptr)
            test->dialog = window;
            if (test->onInit)
                test->onInit();
            return 1;
        }
        if (message == WM_COMMAND && test)
            test->notifications.emplace_back(LOWORD(wParam), HIWORD(wParam));
        return 0;
    }
};
