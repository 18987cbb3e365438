#pragma once

#include "../lists/list_device.h"
#include "platform/input.h"
#include "resources/ids.h"

/// Runs a dialog with a person's steps.
class PrefsTest : public ListDevice {
protected:
    using Step = std::function<void()>;

    /// The last step must end the dialog, and none before it.
    LONG_PTR RunDialog(CDialogImpl& dialog, const std::vector<Step>& steps) {
        return Run([&dialog] { return dialog.DoModal(); }, steps);
    }
    LONG_PTR Run(const std::function<LONG_PTR()>& command, const std::vector<Step>& steps) {
        std::size_t taken = 0;
        for (const Step& step : steps) {
            Host.Then([&taken, step] {
                ++taken;
                step();
            });
        }
        const LONG_PTR result = command();
        EXPECT_EQ(taken, steps.size());
        return result;
    }
    Step Press(std::vector<WORD> keys) {
        return [this, keys] {
            for (const WORD key : keys)
                Host.Press(key);
        };
    }
    /// Any entry of the right soft key's menu, counted from 1; separators do not count.
    Step Menu(int entry) {
        std::vector<WORD> keys(static_cast<std::size_t>(entry), VK_DOWN);
        keys.front() = VK_TSOFT2; // opens on the first entry
        keys.push_back(VK_RETURN);
        return Press(keys);
    }

    // In the dialog on top.
    static HWND Item(UINT id) { return GetDlgItem(GetActiveWindow(), static_cast<int>(id)); }
    static std::wstring TextOf(HWND window) {
        std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
        return text;
    }
    static std::wstring TextOf(UINT id) { return TextOf(Item(id)); }
    static void Put(UINT id, const std::wstring& text) { SetWindowTextW(Item(id), text.c_str()); }
    /// What the message box on top says.
    static std::wstring Message() { return TextOf(GetWindow(GetActiveWindow(), GW_CHILD)); }
    static UINT FocusedId() { return static_cast<UINT>(GetDlgCtrlID(GetFocus())); }
};
