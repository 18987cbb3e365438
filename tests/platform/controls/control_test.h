#pragma once

#include "../system/device_fixture.h"
#include "../windowing/scripted_host.h"

#include "platform/controls/edit.h"
#include "platform/list_view.h"

#include <climits>

constexpr DWORD Field = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr UINT List = 10;

/// A dialog of the test's own controls, run with a script.
class ControlTest : public DeviceTest {
protected:
    using Step = ScriptedHost::Step;
    using Kind = ScriptedHost::Event::Kind;

    /// Runs a dialog of `items`; `steps` are what happens in it, and it is closed behind the last one.
    void Run(const std::vector<DialogItemTemplate>& items, const std::vector<Step>& steps) {
        host.steps.assign(steps.begin(), steps.end());
        host.Then([this] { Close(dialog, 0); });
        RunForm(items);
        EXPECT_TRUE(host.steps.empty()) << "the dialog ended before its script";
    }
    LONG_PTR RunForm(const std::vector<DialogItemTemplate>& items) {
        const DLGTEMPLATE form{WS_POPUP | WS_VSCROLL, 100, 100, L"Form", L"", 8, items};
        return DialogBoxIndirectParamW(nullptr, &form, GetActiveWindow(), Procedure, reinterpret_cast<LPARAM>(this));
    }
    Step Keys(std::vector<WORD> keys) {
        return [this, keys] {
            for (const WORD key : keys)
                host.Press(key);
        };
    }
    Step Typing(const std::wstring& text) {
        return [this, text] { host.Type(text); };
    }
    HWND Item(int id) const { return GetDlgItem(dialog, id); }
    std::wstring TextOf(int id) const { return device::TextOf(Item(id)); }
    RECT PlaceOf(UINT id) const { return ScreenPlace(*device::FindWindowRecord(Item(static_cast<int>(id)))); }
    RECT ClientOf(UINT id) const { return ScreenClient(*device::FindWindowRecord(Item(static_cast<int>(id)))); }
    /// Forty rows for the list, of whichever class it is: each hears its own.
    void FillList() {
        wchar_t text[] = L"row";
        LVITEMW item;
        item.mask = LVIF_TEXT;
        item.pszText = text;
        item.iItem = INT_MAX;
        for (int row = 0; row < 40; ++row) {
            SendDlgItemMessageW(dialog, List, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
            SendDlgItemMessageW(dialog, List, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        }
    }
    /// The upper edge of a row of the list, from that of its client area.
    LONG RowTop(int row) const {
        RECT place;
        SendDlgItemMessageW(dialog, List, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
        return place.top;
    }
    POINT Row(int row) const { return {ClientOf(List).left + 20, ClientOf(List).top + RowTop(row) + 3}; }
    static void ExpectSelection(HWND field, std::size_t start, std::size_t end) {
        const auto& edit = dynamic_cast<const device::Edit&>(*device::ControlOf(field));
        EXPECT_EQ(std::pair(edit.SelectionStart(), edit.SelectionEnd()), std::pair(start, end));
    }
    /// The texts that stand on the screen for a control, from left to right as painted, joined.
    std::wstring Painted(HWND control) const {
        std::wstring joined;
        for (const device::PaintedText& text : host.canvas.Texts())
            if (text.marks.control == control)
                joined += (joined.empty() ? L"" : L"|") + text.text;
        return joined;
    }

    ScriptedHost host;
    HWND dialog = nullptr; ///< the one opened last
    std::vector<std::pair<int, UINT>> notifications; ///< control and code
    std::vector<UINT> hotKeys;
    std::function<void()> onInit;
    std::function<void(int, UINT, LPARAM)> onCommand;

private:
    static LPARAM Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        static ControlTest* test = nullptr;
        if (message == WM_INITDIALOG) {
            test = reinterpret_cast<ControlTest*>(lParam); // NOLINT(performance-no-int-to-ptr)
            test->dialog = window;
            SHInitDialog(window, SHIDIF_SIZEDLGFULLSCREEN);
            if (test->onInit)
                test->onInit();
            return TRUE;
        }
        if (message == WM_HOTKEY)
            test->hotKeys.push_back(LOWORD(static_cast<std::uintptr_t>(lParam)));
        if (message == WM_COMMAND && test) {
            test->notifications.emplace_back(LOWORD(wParam), HIWORD(wParam));
            if (test->onCommand)
                test->onCommand(LOWORD(wParam), HIWORD(wParam), lParam);
        }
        return 0;
    }
};
