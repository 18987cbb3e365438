// What the handset's shell offers: the soft-key bar, full-screen dialogs, the Back key, the user's font size.

#include "platform/dialog.h"
#include "platform/files.h"
#include "platform/input.h"
#include "platform/metrics.h"
#include "platform/notice.h"
#include "platform/registry.h"
#include "platform/system/host_file.h"
#include "platform/system/troubles.h"
#include "platform/utf8.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/dialog_scroll.h"
#include "platform/windowing/soft_key_bar.h"

using device::Desktop;
using device::FindWindowRecord;
using device::Window;

BOOL SHCreateMenuBar(SHMENUBARINFO* info) {
    if (!info || !info->hInstRes)
        return FALSE;
    info->hwndMB = nullptr;
    for (const MenuResource& menu : info->hInstRes->menus) {
        if (menu.id != info->nToolBarId)
            continue;
        const device::SoftKeyBar* bar = device::SoftKeyBar::Make(info->hwndParent, menu.keys);
        info->hwndMB = bar ? bar->Handle() : nullptr;
        return bar ? TRUE : FALSE;
    }
    return FALSE;
}

HWND SHFindMenuBar(HWND window) {
    const device::SoftKeyBar* bar = device::SoftKeyBar::Of(window);
    return bar ? bar->Handle() : nullptr;
}

BOOL SHInitDialog(HWND dialog, DWORD /*flags*/) {
    Window* window = FindWindowRecord(dialog);
    if (!window || !window->IsTopLevel())
        return FALSE;
    window->place = device::WorkArea();
    device::UpdateDialogScroll(*window);
    device::SendSize(dialog);
    return TRUE;
}

void SHSendBackToFocusWindow(UINT message, WPARAM /*wParam*/, LPARAM lParam) {
    const bool down = (LOWORD(static_cast<std::uintptr_t>(lParam)) & MOD_KEYUP) == 0;
    if (message == WM_HOTKEY && HIWORD(static_cast<std::uintptr_t>(lParam)) == VK_TBACK && down)
        SendMessageW(GetFocus(), WM_CHAR, VK_BACK, 0);
}

void TellOfFile(const wchar_t* path, const wchar_t* what, DWORD error) {
    const std::wstring name = path ? path : L"";
    const std::string place = HostPathOf(name).value_or(device::ToUtf8(name));
    std::string line = place + " (on the screen " + device::ToUtf8(name) + "): " + device::ToUtf8(what);
    if (error != ERROR_SUCCESS)
        line += std::string(" (") + device::ReasonOf(static_cast<LONG>(error)) + ')';
    device::NoteTrouble(device::Trouble::File, line);
    if (Desktop::The().IsOn())
        Desktop::The().TheHost()->Notify(line);
}

void SHNavigateBack() {
    Desktop& desktop = Desktop::The();
    ++desktop.goBacks;
    desktop.StopRepeats();
    if (desktop.IsOn())
        desktop.TheHost()->GoBack();
}

BOOL SHGetUIMetrics(UINT metric, void* value, DWORD size, DWORD* required) {
    constexpr UINT FontSizePixels = 2;
    if (required)
        *required = sizeof(DWORD);
    if (metric != FontSizePixels || !value || size < sizeof(DWORD))
        return FALSE;
    constexpr DWORD UserFontPoints = 10;
    *static_cast<DWORD*>(value) = UserFontPoints * static_cast<DWORD>(device::Dpi()) / 72;
    return TRUE;
}

BOOL SHHandleWMSettingChange(HWND dialog, WPARAM /*wParam*/, LPARAM /*lParam*/, void* /*record*/) {
    return IsWindow(dialog);
}
