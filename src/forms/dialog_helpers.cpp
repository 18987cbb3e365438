#include "forms/dialog_helpers.h"

#include "lists/app_fonts.h"
#include "lists/client_context.h"
#include "platform/dialog.h"
#include "platform/input.h"
#include "platform/metrics.h"
#include "platform/time.h"
#include "resources/control_ids.h"

#include <algorithm>
#include <cwctype>
#include <string_view>

namespace {

bool IsLabel(UINT id) {
    return (id >= controls::FirstLabel && id <= controls::LastLabel)
        || (id >= controls::FirstExtraLabel && id <= controls::LastExtraLabel);
}

/// Class names know no case.
bool IsSameClass(std::wstring_view name, std::wstring_view other) {
    return std::equal(name.begin(), name.end(), other.begin(), other.end(), [](wchar_t left, wchar_t right) {
        return std::towlower(static_cast<std::wint_t>(left)) == std::towlower(static_cast<std::wint_t>(right));
    });
}

} // namespace

HWND CreateSoftKeyBar(HWND dialog, UINT menuId, bool overrideBack, bool onParent) {
    SHMENUBARINFO info;
    info.hwndParent = onParent ? GetParent(dialog) : dialog;
    info.dwFlags = SHCMBF_HMENU;
    info.nToolBarId = menuId;
    info.hInstRes = GetModuleHandleW(nullptr);
    if (!SHCreateMenuBar(&info))
        return nullptr;
    if (overrideBack)
        OverrideBackKey(info.hwndMB);
    return info.hwndMB;
}

void OverrideBackKey(HWND menuBar) {
    SendMessageW(menuBar, SHCMBM_OVERRIDEKEY, VK_TBACK, SHMBOF_NODEFAULT_NOTIFY);
}

void ApplyLabelFont(HWND dialog) {
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (IsLabel(static_cast<UINT>(GetDlgCtrlID(child))))
            SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(LabelFont), TRUE);
}

bool InitFullScreen(HWND dialog) {
    return SHInitDialog(dialog, SHIDIF_SIZEDLGFULLSCREEN) != FALSE;
}

void SetNumericInputMode(HWND dialog, std::span<const UINT> ids) {
    for (const UINT id : ids)
        SendDlgItemMessageW(dialog, static_cast<int>(id), EM_SETINPUTMODE, 0, EIM_NUMBERS);
}

void StretchControls(HWND dialog, std::span<const UINT> ids) {
    const int edge = GetSystemMetrics(SM_CXEDGE);
    RECT client;
    if (!GetClientRect(dialog, &client))
        return;
    const int width = std::max(0, static_cast<int>(client.right - client.left) - 4 * edge);
    for (const UINT id : ids) {
        const HWND control = GetDlgItem(dialog, static_cast<int>(id));
        if (!control)
            continue;
        const RECT place = PlaceIn(dialog, control);
        MoveWindow(control, 2 * edge, place.top, width, place.bottom - place.top, TRUE);
    }
}

void FitControlToClient(HWND dialog, UINT id, int top) {
    const HWND control = GetDlgItem(dialog, static_cast<int>(id));
    RECT client;
    if (!control || !GetClientRect(dialog, &client))
        return;
    MoveWindow(control, 0, top, static_cast<int>(client.right - client.left),
        std::max(0, static_cast<int>(client.bottom - client.top) - top), TRUE);
}

void SetBuddy(HWND dialog, UINT spin, UINT control) {
    const HWND buddy = GetDlgItem(dialog, static_cast<int>(control));
    SendDlgItemMessageW(dialog, static_cast<int>(spin), UDM_SETBUDDY, reinterpret_cast<WPARAM>(buddy), 0);
}

void ShowDate(HWND picker, const SYSTEMTIME& date) {
    SendMessageW(picker, DTM_SETSYSTEMTIME, static_cast<WPARAM>(GDT_VALID), reinterpret_cast<LPARAM>(&date));
}

void ShowDate(HWND picker, double date) {
    SYSTEMTIME time;
    if (VariantTimeToSystemTime(date, &time))
        ShowDate(picker, time);
}

bool ReadDate(HWND picker, SYSTEMTIME* date) {
    return SendMessageW(picker, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(date)) == GDT_VALID;
}

void ReadDate(HWND picker, double* date) {
    SYSTEMTIME time;
    if (ReadDate(picker, &time))
        SystemTimeToVariantTime(&time, date);
}

void FitToInputPanel(HWND dialog, InputPanelRecord* record) {
    constexpr WPARAM InputPanelChanged = 224;
    SHHandleWMSettingChange(dialog, InputPanelChanged, 0, record);
}

bool IsEditFocused() {
    constexpr int ClassNameSize = 8; // holds the longer of the two names, and cuts all that could not match
    const HWND focus = GetFocus();
    wchar_t name[ClassNameSize] = {};
    if (!IsWindow(focus) || GetClassNameW(focus, name, ClassNameSize) == 0)
        return false;
    return IsSameClass(name, L"Edit") || IsSameClass(name, L"CAPEDIT");
}
