#pragma once

#include "list_device.h"
#include "resources/ids.h"

/// Runs dialogs of the program with a person's steps. What is put and asked concerns the dialog on top.
class DialogDevice : public ListDevice {
protected:
    using Step = ScriptedHost::Step;

    LONG_PTR Run(CDialogImpl& dialog, const std::vector<Step>& steps) {
        return Run([&dialog] { return dialog.DoModal(); }, steps);
    }
    /// The last step must end the command, and none before it.
    LONG_PTR Run(const std::function<LONG_PTR()>& command, const std::vector<Step>& steps) {
        for (const Step& step : steps)
            Host.Then(step);
        const LONG_PTR result = command();
        EXPECT_TRUE(Host.steps.empty()) << Host.steps.size() << " steps left";
        return result;
    }

    Step Press(std::vector<WORD> keys) {
        return [this, keys] {
            for (const WORD key : keys)
                Host.Press(key);
        };
    }
    Step Type(std::wstring text) {
        return [this, text] { Host.Type(text); };
    }
    /// Any entry of the right soft key's menu, counted from 1; separators do not count.
    Step Menu(int entry) {
        std::vector<WORD> keys(static_cast<std::size_t>(entry), VK_DOWN);
        keys.front() = VK_TSOFT2; // opens on the first entry
        keys.push_back(VK_RETURN);
        return Press(keys);
    }
    Step Done() { return Press({VK_TSOFT1}); }
    /// "Cancel" stands last in each menu.
    Step CancelByMenu() { return Press({VK_TSOFT2, VK_UP, VK_RETURN}); }
    static Step Put(UINT id, std::wstring text) {
        return [id, text] { SetWindowTextW(Item(id), text.c_str()); };
    }
    static Step Focus(UINT id) {
        return [id] { SetFocus(Item(id)); };
    }

    static HWND Item(UINT id) { return GetDlgItem(GetActiveWindow(), static_cast<int>(id)); }
    static std::wstring TextOf(UINT id) { return ::TextOf(Item(id)); }
    static UINT FocusedId() { return static_cast<UINT>(GetDlgCtrlID(GetFocus())); }
    /// What the message box on top says.
    static std::wstring Message() { return ::TextOf(GetWindow(GetActiveWindow(), GW_CHILD)); }
    static int Beeps() { return device::Desktop::The().beeps; }
};
