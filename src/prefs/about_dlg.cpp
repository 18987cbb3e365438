#include "prefs/about_dlg.h"

#include "forms/dialog_helpers.h"
#include "lists/client_context.h"
#include "messages/show_message.h"
#include "platform/drawing.h"
#include "platform/files.h"
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

/// Moves a control whose size stays that of `place`.
void MoveTo(HWND control, const RECT& place, LONG left, LONG top) {
    MoveWindow(control, left, top, place.right - place.left, place.bottom - place.top, TRUE);
}

} // namespace

CAboutDlg::CAboutDlg()
    : CFullScreenDialog(templates::About, menus::AboutKeys, BackKey::IsCancel)
    , picture_(LoadIconW(GetModuleHandleW(nullptr), bitmaps::About)) {
}

CAboutDlg::~CAboutDlg() {
    DestroyIcon(picture_);
}

bool CAboutDlg::OnInitDialog() {
    ShowText(controls::AboutName, LoadText(strings::AppName));
    ShowText(controls::AboutVersion, VersionLine());
    SendMessageW(Item(controls::AboutPicture), STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(picture_));
    ShowNameInBold();
    SHInitDialog(GetHandle(), WithDoneButton | SHIDIF_SIZEDLGFULLSCREEN | WithoutInputPanel);
    CreateSoftKeys();
    return true;
}

void CAboutDlg::ShowNameInBold() {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(GetHandle(), WM_GETFONT, 0, 0));
    LOGFONTW description;
    if (GetObjectW(font, sizeof description, &description) == 0)
        return;
    description.lfWeight = FW_BOLD;
    if (boldFont_.Create(description))
        SendMessageW(Item(controls::AboutName), WM_SETFONT, reinterpret_cast<WPARAM>(boldFont_.GetHandle()), TRUE);
}

void CAboutDlg::OnSize() const {
    constexpr LONG Gap = 5; // pixels
    const HWND dialog = GetHandle();
    const HWND pictureControl = Item(controls::AboutPicture);
    RECT client;
    GetClientRect(dialog, &client);
    const RECT picture = PlaceIn(dialog, pictureControl);
    MoveTo(pictureControl, picture, (client.right - (picture.right - picture.left)) / 2, 0);
    const LONG move = picture.bottom - picture.top + Gap - PlaceIn(dialog, Item(controls::AboutName)).top;
    for (const UINT id : Texts) {
        const RECT place = PlaceIn(dialog, Item(id));
        MoveTo(Item(id), place, place.left, place.top + move);
    }
}

bool CAboutDlg::OnCommand(UINT id, UINT code, HWND sender) {
    switch (id) {
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
        return CFullScreenDialog::OnCommand(id, code, sender);
    }
}

bool CAboutDlg::OnBackKey(WPARAM /*wParam*/, LPARAM lParam) {
    if (IsKeyUp(lParam))
        EndDialog(GetHandle(), commands::Cancel);
    return true;
}
