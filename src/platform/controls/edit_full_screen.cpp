#include "platform/controls/edit_full_screen.h"

#include "platform/controls/edit.h"
#include "platform/dialog.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/shown_fields.h"
#include "platform/windowing/soft_key_bar.h"

namespace device {

namespace {

constexpr UINT TextId = 1000;
constexpr int TemplateFontPoints = 8;
constexpr MenuItemResource Keys[] = {{L"Done", IDOK}, {L"Cancel", IDCANCEL}};

/// What the dialog is given, and where it leaves its result.
struct Session {
    HWND edit = nullptr;
    std::size_t limit = 0;
    FullScreenText text;
};

void Fill(HWND dialog) {
    RECT client;
    GetClientRect(dialog, &client);
    MoveWindow(GetDlgItem(dialog, TextId), 0, 0, client.right, client.bottom, TRUE);
}

void Open(HWND dialog, Session& session) {
    SetWindowLongW(dialog, GWL_USERDATA, reinterpret_cast<LONG_PTR>(&session));
    SoftKeyBar::Make(dialog, Keys);
    SHInitDialog(dialog, SHIDIF_SIZEDLGFULLSCREEN);
    const HWND text = GetDlgItem(dialog, TextId);
    SendMessageW(text, WM_SETFONT, static_cast<WPARAM>(SendMessageW(session.edit, WM_GETFONT, 0, 0)), 0);
    SendMessageW(text, EM_LIMITTEXT, session.limit, 0);
    SetWindowTextW(text, session.text.text.c_str());
    SetFocus(text);
    // Entering an edit selects its text, but here typing goes on with it.
    SendMessageW(text, EM_SETSEL, session.text.caret, static_cast<LPARAM>(session.text.caret));
    SendMessageW(text, EM_SCROLLCARET, 0, 0);
}

void Close(HWND dialog, Session& session, bool taken) {
    const HWND text = GetDlgItem(dialog, TextId);
    if (const auto* edit = dynamic_cast<const Edit*>(ControlOf(text)); edit && taken) {
        session.text.text = TextOf(text);
        session.text.caret = edit->Caret();
        session.text.taken = true;
    }
    EndDialog(dialog, taken ? IDOK : IDCANCEL);
}

LPARAM DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        Open(dialog, *reinterpret_cast<Session*>(lParam));
        return 0;
    }
    auto* session = reinterpret_cast<Session*>(GetWindowLongW(dialog, GWL_USERDATA));
    switch (message) {
    case WM_SIZE:
        Fill(dialog);
        return TRUE;
    case WM_COMMAND:
        if (!session || (wParam != IDOK && wParam != IDCANCEL))
            return FALSE;
        Close(dialog, *session, wParam == IDOK);
        return TRUE;
    default:
        return FALSE;
    }
}

} // namespace

FullScreenText EditFullScreen(HWND edit, FullScreenText text, std::size_t limit) {
    constexpr DWORD Kept = ES_UPPERCASE | ES_NUMBER | ES_READONLY;
    const DWORD style = (static_cast<DWORD>(GetWindowLongW(edit, GWL_STYLE)) & Kept) | ES_MULTILINE | EditWantsReturn
        | WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL;
    const std::wstring title = LabelOf(*FindWindowRecord(edit));
    const DialogItemTemplate item{L"Edit", style, 0, 0, 10, 10, TextId, L""};
    const DLGTEMPLATE dialogTemplate{WS_POPUP | WS_CAPTION, 10, 10, title.c_str(), L"", TemplateFontPoints, {&item, 1}};
    const Window* top = TopLevelOf(FindWindowRecord(edit));
    Session session{edit, limit, std::move(text)};
    if (top)
        DialogBoxIndirectParamW(
            nullptr, &dialogTemplate, top->handle, DialogProcedure, reinterpret_cast<LPARAM>(&session));
    return session.text;
}

} // namespace device
