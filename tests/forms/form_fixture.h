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
    LONG_PTR Run(CDialogImpl& form, std::vector<Step> steps) {
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
    Step Type(std::wstring text) {
        return [this, text] {
            for (const wchar_t character : text) {
                device::InputEvent event;
                event.kind = device::InputEvent::Kind::Text;
                event.character = character;
                host.events.push_back(event);
            }
        };
    }
    /// Any entry of the right soft key's menu, counted from 1.
    Step Menu(int entry) {
        std::vector<WORD> keys(static_cast<std::size_t>(entry), VK_DOWN);
        keys.front() = VK_TSOFT2; // opens on the first entry
        keys.push_back(VK_RETURN);
        return Press(keys);
    }
    Step Done() { return Press({VK_TSOFT1}); }
    Step Calculate() { return Press({VK_TSOFT2, VK_DOWN, VK_RETURN}); }
    /// "Cancel" stands last in each menu.
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
    /// Also for a text that was wrapped.
    bool IsOnScreen(const std::wstring& text) const {
        std::wstring screen;
        for (const device::PaintedText& each : host.canvas.Texts())
            screen += each.text + L" ";
        return screen.find(text) != std::wstring::npos;
    }
    /// The selected text of the edit that has the focus.
    static std::wstring Selected() {
        DWORD start = 0;
        DWORD end = 0;
        SendMessageW(GetFocus(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(GetFocus())) + 1, L'\0');
        GetWindowTextW(GetFocus(), text.data(), static_cast<int>(text.size()));
        return text.substr(start, end - start);
    }
    static int Beeps() { return device::Desktop::The().beeps; }

    FakeHost host;

private:
    CDialogImpl* running_ = nullptr;
};
