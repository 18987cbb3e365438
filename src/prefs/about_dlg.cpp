#include "prefs/about_dlg.h"

#include "forms/dialog_helpers.h"
#include "messages/show_message.h"
#include "platform/drawing.h"
#include "platform/files.h"
#include "platform/input.h"
#include "platform/process.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"
#include "resources/load_text.h"

#include <string>
#include <vector>

namespace {

constexpr DWORD WithDoneButton = 1;
constexpr DWORD WithoutInputPanel = 8;

/// Under the picture.
constexpr UINT Texts[] = {controls::AboutName, controls::AboutVersion, controls::AboutRights};

std::wstring VersionLine() {
    std::wstring version = L"no version";
    DWORD build = 0;
    wchar_t path[MAX_PATH] = {};
    DWORD ignored = 0;
    const DWORD size = GetModuleFileNameW(nullptr, path, MAX_PATH) != 0 ? GetFileVersionInfoSizeW(path, &ignored) : 0;
    std::vector<std::byte> record(size);
    void* found = nullptr;
    UINT length = 0;
    if (size != 0 && GetFileVersionInfoW(path, 0, size, record.data())
        && VerQueryValueW(record.data(), L"\\", &found, &length) && length >= sizeof(VS_FIXEDFILEINFO)) {
        const auto* info = static_cast<const VS_FIXEDFILEINFO*>(found);
        version
            = std::to_wstring(HIWORD(info->dwFileVersionMS)) + L"." + std::to_wstring(LOWORD(info->dwFileVersionMS));
        build = LOWORD(info->dwFileVersionLS);
    }
    return L"Version " + version + L" build " + std::to_wstring(build);
}

/// A control's place in its dialog's client area.
RECT PlaceOf(HWND dialog, UINT id) {
    RECT place;
    GetWindowRect(GetDlgItem(dialog, static_cast<int>(id)), &place);
    POINT corner{place.left, place.top};
    ScreenToClient(dialog, &corner);
    return {corner.x, corner.y, corner.x + place.right - place.left, corner.y + place.bottom - place.top};
}

void MoveTo(HWND dialog, UINT id, const RECT& place, LONG left, LONG top) {
    MoveWindow(GetDlgItem(dialog, static_cast<int>(id)), static_cast<int>(left), static_cast<int>(top),
        static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top), TRUE);
}

} // namespace

CAboutDlg::CAboutDlg()
    : picture_(LoadIconW(GetModuleHandleW(nullptr), bitmaps::About)) {
}

CAboutDlg::~CAboutDlg() {
    DestroyIcon(picture_);
}

LPCDLGTEMPLATEW CAboutDlg::GetTemplate() const {
    return &templates::About;
}

bool CAboutDlg::ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& /*result*/) {
    const auto keys = static_cast<std::uintptr_t>(lParam);
    switch (message) {
    case WM_INITDIALOG:
        OnInitDialog();
        return true;
    case WM_SIZE:
        OnSize();
        return true;
    case WM_COMMAND:
        return OnCommand(LOWORD(wParam));
    case WM_HOTKEY:
        if (HIWORD(keys) != VK_TBACK)
            return false;
        if ((LOWORD(keys) & MOD_KEYUP) != 0)
            EndDialog(GetHandle(), commands::Cancel);
        return true;
    default:
        return false;
    }
}

void CAboutDlg::OnInitDialog() {
    const HWND dialog = GetHandle();
    SetDlgItemTextW(dialog, static_cast<int>(controls::AboutName), LoadText(strings::AppName).c_str());
    SetDlgItemTextW(dialog, static_cast<int>(controls::AboutVersion), VersionLine().c_str());
    SendDlgItemMessageW(dialog, static_cast<int>(controls::AboutPicture), STM_SETIMAGE, IMAGE_BITMAP,
        reinterpret_cast<LPARAM>(picture_));
    ShowNameInBold();
    SHInitDialog(dialog, WithDoneButton | SHIDIF_SIZEDLGFULLSCREEN | WithoutInputPanel);
    CreateSoftKeyBar(dialog, menus::AboutKeys, false, false);
}

void CAboutDlg::ShowNameInBold() {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(GetHandle(), WM_GETFONT, 0, 0));
    LOGFONTW description;
    if (GetObjectW(font, sizeof description, &description) == 0)
        return;
    description.lfWeight = FW_BOLD;
    if (boldFont_.Create(description)) {
        SendDlgItemMessageW(GetHandle(), static_cast<int>(controls::AboutName), WM_SETFONT,
            reinterpret_cast<WPARAM>(boldFont_.GetHandle()), TRUE);
    }
}

void CAboutDlg::OnSize() const {
    constexpr LONG gap = 5; // pixels
    const HWND dialog = GetHandle();
    RECT client;
    GetClientRect(dialog, &client);
    const RECT picture = PlaceOf(dialog, controls::AboutPicture);
    MoveTo(dialog, controls::AboutPicture, picture, (client.right - (picture.right - picture.left)) / 2, 0);
    const LONG move = picture.bottom - picture.top + gap - PlaceOf(dialog, controls::AboutName).top;
    for (const UINT id : Texts) {
        const RECT place = PlaceOf(dialog, id);
        MoveTo(dialog, id, place, place.left, place.top + move);
    }
}

bool CAboutDlg::OnCommand(UINT command) const {
    switch (command) {
    case commands::Done:
    case commands::Cancel:
        EndDialog(GetHandle(), static_cast<LONG_PTR>(command));
        return true;
    case commands::AboutDone:
        EndDialog(GetHandle(), commands::Done);
        return true;
    case commands::AboutCancel:
        EndDialog(GetHandle(), commands::Cancel);
        return true;
    case commands::Support:
        ShowMessage(GetHandle(), strings::SupportText, reinterpret_cast<std::uintptr_t>(L""), messages::NoticeStyle);
        return true;
    default:
        return false;
    }
}
