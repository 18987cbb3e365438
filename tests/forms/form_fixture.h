#pragma once

#include "../platform/controls/fake_host.h"

#include "forms/form_frame.h"
#include "lists/app_fonts.h"
#include "resources/ids.h"
#include "resources/module.h"

/// Runs a form of the program with a script of keys.
class FormTest : public DeviceTest {
protected:
    FormTest() {
        device::SetModule(OdoledgerModule());
        device::Desktop::The().SwitchOn(host);
        CreateAppFonts();
    }
    ~FormTest() override {
        DeleteAppFonts();
        device::Desktop::The().SwitchOff();
        device::SetModule(nullptr);
    }

    using Step = FakeHost::Step;

    /// The script must end the form, no sooner and no later than with its last step.
    LONG_PTR Run(CFormFrame& form, std::vector<Step> steps) {
        host.steps.assign(steps.begin(), steps.end());
        running_ = &form;
        const LONG_PTR result = form.DoModal();
        EXPECT_TRUE(host.steps.empty()) << host.steps.size() << " steps left when the form ended";
        return result;
    }

    Step Press(std::vector<WORD> keys) {
        return [this, keys] {
            for (const WORD key : keys) {
                Half(device::InputEvent::Kind::KeyDown, key);
                Half(device::InputEvent::Kind::KeyUp, key);
            }
        };
    }
    void Half(device::InputEvent::Kind kind, WORD key) {
        device::InputEvent event;
        event.kind = kind;
        event.key = key;
        host.events.push_back(event);
    }
    Step Done() { return Press({VK_TSOFT1}); }
    Step Calculate() { return Press({VK_TSOFT2, VK_DOWN, VK_RETURN}); }
    /// "Cancel" stands last in the fuel form's menu.
    Step CancelByMenu() { return Press({VK_TSOFT2, VK_UP, VK_RETURN}); }
    Step Put(UINT id, std::wstring text) {
        return [this, id, text] { SetDlgItemTextW(Form(), static_cast<int>(id), text.c_str()); };
    }
    Step Focus(UINT id) {
        return [this, id] { SetFocus(Item(id)); };
    }

    HWND Form() const { return running_->GetHandle(); }
    HWND Item(UINT id) const { return GetDlgItem(Form(), static_cast<int>(id)); }
    UINT FocusedId() const { return static_cast<UINT>(GetDlgCtrlID(GetFocus())); }
    std::wstring TextOf(UINT id) const {
        std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(Item(id))), L'\0');
        GetWindowTextW(Item(id), text.data(), static_cast<int>(text.size()) + 1);
        return text;
    }
    bool IsOnScreen(const std::wstring& text) const {
        for (const device::PaintedText& each : host.canvas.Texts()) {
            if (each.text == text)
                return true;
        }
        return false;
    }
    static int Beeps() { return device::Desktop::The().beeps; }

    FakeHost host;

private:
    CFormFrame* running_ = nullptr;
};
