#include "platform/metrics.h"
#include "platform/resources.h"
#include "scripted_host.h"

namespace {

constexpr DWORD Form = 0x80E80040;
constexpr DWORD Text = 0x50010080;
constexpr DWORD Label = 0x50020000;

std::vector<DialogItemTemplate> Fields(int count) {
    std::vector<DialogItemTemplate> items;
    for (int index = 0; index < count; ++index) {
        items.push_back({L"Static", Label, 3, index * 25, 100, 10, static_cast<UINT>(200 + index), L"Label:"});
        items.push_back({L"Edit", Text, 3, (index * 25) + 11, 100, 12, static_cast<UINT>(100 + index), L"text"});
    }
    return items;
}

/// What a dialog under test hears, and what it does then.
struct Heard {
    std::vector<std::pair<UINT, LPARAM>> commands;
    std::vector<UINT> hotKeys;
    std::function<void(HWND)> onInit;
    std::function<void(HWND, UINT, LPARAM)> onCommand;
} heard;

LPARAM Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        SHInitDialog(dialog, SHIDIF_SIZEDLGFULLSCREEN);
        if (heard.onInit)
            heard.onInit(dialog);
        return TRUE;
    case WM_HOTKEY:
        heard.hotKeys.push_back(LOWORD(static_cast<std::uintptr_t>(lParam)));
        return TRUE;
    case WM_COMMAND:
        heard.commands.emplace_back(static_cast<UINT>(wParam), lParam);
        if (heard.onCommand)
            heard.onCommand(dialog, static_cast<UINT>(wParam), lParam);
        return TRUE;
    default:
        return 0;
    }
}

LONG_PTR RunForm(const std::vector<DialogItemTemplate>& items) {
    const DLGTEMPLATE form{Form, 115, 179, L"Form", L"MS Shell Dlg", 8, items};
    return DialogBoxIndirectParamW(nullptr, &form, GetActiveWindow(), Procedure, 0);
}

HWND Front() {
    const device::Window* front = device::Desktop::The().Front();
    return front ? front->handle : nullptr;
}

RECT PlaceOf(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    return place;
}

class DialogTest : public testing::Test {
protected:
    void SetUp() override { heard = {}; }
    static int Focused() { return GetDlgCtrlID(GetFocus()); }

    ScriptedHost host;
};

TEST_F(DialogTest, UpAndDownWalkInTemplateOrderAndWrap) {
    std::vector<int> visited;
    const auto note = [&] { visited.push_back(Focused()); };
    auto items = Fields(4);
    items[3].style |= WS_DISABLED;
    items[5].style &= ~WS_VISIBLE;
    host.Then(note).Key(VK_DOWN).Then(note).Key(VK_DOWN).Then(note).Key(VK_UP).Then(note);
    host.Then([] { Close(Front(), 7); });
    EXPECT_EQ(RunForm(items), 7);
    EXPECT_EQ(visited, (std::vector{100, 103, 100, 103}));
}

TEST_F(DialogTest, TheControlEnteredShowsWithItsLabel) {
    device::SetScreenSize({176, 160});
    for (int step = 0; step < 9; ++step) {
        host.Key(VK_DOWN).Then([] {
            RECT client;
            GetClientRect(Front(), &client);
            EXPECT_GE(PlaceOf(GetDlgItem(Front(), Focused() + 100)).top, PlaceOf(Front()).top);
            EXPECT_LE(PlaceOf(GetFocus()).bottom, PlaceOf(Front()).bottom);
            EXPECT_LT(client.right, 176) << "a scroll bar takes its room";
        });
    }
    host.Key(VK_ESCAPE).Key(VK_DOWN).Then([] { Close(Front(), 1); });
    RunForm(Fields(8));
    device::SetScreenSize({320, 480});
}

TEST_F(DialogTest, ActionAndBackGiveTheirCommandsWithoutASender) {
    auto items = Fields(1);
    items.push_back({L"ListBox", 0x50210103, 3, 40, 100, 40, 300, L""});
    heard.onCommand = [](HWND dialog, UINT command, LPARAM) {
        if (command == IDCANCEL)
            EndDialog(dialog, IDCANCEL);
    };
    host.Key(VK_TACTION);
    host.Then([this] {
        SetDlgItemTextW(Front(), 100, L"ab");
        SendMessageW(GetFocus(), EM_SETSEL, 2, 2);
        host.Press(VK_TBACK);
    });
    host.Then([] { EXPECT_EQ(TextOf(GetFocus()), L"a") << "in an edit Back deletes a character"; });
    host.Key(VK_DOWN).Key(VK_TBACK);
    EXPECT_EQ(RunForm(items), IDCANCEL);
    std::erase_if(heard.commands, [](const auto& command) { return HIWORD(command.first) != 0; });
    EXPECT_EQ(heard.commands, (std::vector<std::pair<UINT, LPARAM>>{{IDOK, 0}, {IDCANCEL, 0}}));
}

TEST_F(DialogTest, WhoeverSetsTheFocusWhileItIsLostWins) {
    heard.onCommand = [](HWND dialog, UINT command, LPARAM) {
        if (command == (101U | (EN_KILLFOCUS << 16U)))
            SetFocus(GetDlgItem(dialog, 103));
    };
    host.Key(VK_DOWN).Key(VK_DOWN).Then([] {
        EXPECT_EQ(Focused(), 103);
        heard.commands.clear();
        EndDialog(Front(), 1);
        SetFocus(GetDlgItem(Front(), 100));
        PostMessageW(Front(), WM_NULL, 0, 0);
    });
    RunForm(Fields(4));
    EXPECT_TRUE(std::none_of(heard.commands.begin(), heard.commands.end(), [](const auto& command) {
        return HIWORD(command.first) == EN_KILLFOCUS;
    })) << "after EndDialog the controls hear no more of focus";
}

TEST_F(DialogTest, ANestedDialogDisablesItsOwnerAndGivesTheFocusBack) {
    HWND outer = nullptr;
    host.Key(VK_DOWN).Then([&] {
        outer = Front();
        const auto init = std::move(heard.onInit);
        host.Then([&] {
            EXPECT_NE(Front(), outer);
            EXPECT_FALSE(IsWindowEnabled(outer));
            EXPECT_FALSE(SetFocus(GetDlgItem(outer, 100)) == GetDlgItem(outer, 100));
            SetFocus(GetDlgItem(outer, 101));
            Close(Front(), 5);
        });
        host.Then([&] {
            EXPECT_EQ(Front(), outer);
            EXPECT_TRUE(IsWindowEnabled(outer));
            EXPECT_EQ(Focused(), 101);
            Close(outer, 6);
        });
        EXPECT_EQ(RunForm(Fields(1)), 5);
        PostMessageW(outer, WM_NULL, 0, 0);
    });
    EXPECT_EQ(RunForm(Fields(2)), 6);
}

TEST_F(DialogTest, AKeyThatClosesAMessageBoxReachesNobodyElse) {
    heard.onInit = [](HWND dialog) {
        static constexpr MenuItemResource Keys[] = {{L"Done", 1}, {L"Cancel", 2}};
        static constexpr MenuResource Bars[] = {{1, Keys}};
        static const Module module{{}, Bars, {}, {}, nullptr};
        SHMENUBARINFO bar;
        bar.hwndParent = dialog;
        bar.nToolBarId = 1;
        bar.hInstRes = &module;
        ASSERT_TRUE(SHCreateMenuBar(&bar));
        SendMessageW(bar.hwndMB, SHCMBM_OVERRIDEKEY, VK_TBACK, SHMBOF_NODEFAULT_NOTIFY);
    };
    std::vector<int> answers;
    heard.onCommand = [&](HWND dialog, UINT command, LPARAM sender) {
        if (command != 1 || sender == 0)
            return;
        for (const UINT style : {MB_OK, MB_OK, MB_OKCANCEL, MB_YESNO})
            answers.push_back(MessageBoxW(dialog, L"Text", L"Caption", style));
    };
    host.Key(VK_TSOFT1).Key(VK_TBACK).Key(VK_TACTION).Key(VK_TACTION).Key(VK_TBACK);
    host.Key(VK_TACTION).Key(VK_TBACK).Then([] { EXPECT_EQ(device::Desktop::The().Front()->text, L"Caption"); });
    host.Key(VK_TSOFT2).Then([] { EXPECT_TRUE(heard.hotKeys.empty()); });
    host.Key(VK_TBACK).Then([] {
        EXPECT_EQ(heard.hotKeys, (std::vector<UINT>{0, MOD_KEYUP}));
        Close(Front(), 1);
    });
    RunForm(Fields(1));
    EXPECT_EQ(answers, (std::vector{IDOK, IDOK, IDCANCEL, IDNO}));
}

TEST_F(DialogTest, WholeNumbersReadStrictly) {
    const std::tuple<const wchar_t*, BOOL, LONG> cases[]
        = {{L"-5", 1, -5}, {L" 7 ", 1, 7}, {L"", 0, 0}, {L"12a", 0, 0}, {L"-", 0, 0}, {L"2147483647", 1, 2147483647},
            {L"2147483648", 0, 0}, {L"-2147483648", 1, -2147483647 - 1}, {L"99999999999999999999999", 0, 0}};
    host.Then([&] {
        for (const auto& [text, wanted, value] : cases) {
            SetDlgItemTextW(Front(), 100, text);
            BOOL reads = TRUE;
            EXPECT_EQ(static_cast<LONG>(GetDlgItemInt(Front(), 100, &reads, TRUE)), value);
            EXPECT_EQ(reads, wanted) << value;
        }
        Close(Front(), 1);
    });
    RunForm(Fields(1));
}

} // namespace
