// A dialog's controls by their numbers.

#include "platform/dialog.h"

#include "platform/windowing/window_record.h"

#include <limits>
#include <string>

using device::FindWindowRecord;
using device::Window;

HWND GetDlgItem(HWND dialog, int id) {
    const Window* window = FindWindowRecord(dialog);
    if (!window)
        return nullptr;
    for (const Window* child : window->children)
        if (child->id == id)
            return child->handle;
    return nullptr;
}

int GetDlgCtrlID(HWND control) {
    const Window* window = FindWindowRecord(control);
    return window ? static_cast<int>(window->id) : 0;
}

namespace {

/// A whole number that fills the text but for blanks around it.
bool ParseWhole(const std::wstring& text, std::int64_t& value) {
    const std::size_t first = text.find_first_not_of(L" \t");
    if (first == std::wstring::npos)
        return false;
    const std::size_t end = text.find_last_not_of(L" \t") + 1;
    std::size_t index = first;
    const bool negative = text[index] == L'-';
    if (negative)
        ++index;
    if (index == end)
        return false;
    value = 0;
    for (; index < end; ++index) {
        if (text[index] < L'0' || text[index] > L'9')
            return false;
        value = value * 10 + (text[index] - L'0');
        if (value > (std::int64_t{1} << 33U))
            return false;
    }
    if (negative)
        value = -value;
    return true;
}

} // namespace

UINT GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned) {
    if (translated)
        *translated = FALSE;
    const HWND control = GetDlgItem(dialog, id);
    std::int64_t value = 0;
    if (!control || !ParseWhole(device::TextOf(control), value))
        return 0;
    const bool fits = isSigned ? value >= std::numeric_limits<LONG>::min() && value <= std::numeric_limits<LONG>::max()
                               : value >= 0 && value <= std::numeric_limits<UINT>::max();
    if (!fits)
        return 0;
    if (translated)
        *translated = TRUE;
    return static_cast<UINT>(value);
}

BOOL SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned) {
    const std::wstring text = isSigned ? std::to_wstring(static_cast<INT>(value)) : std::to_wstring(value);
    return SetDlgItemTextW(dialog, id, text.c_str());
}

UINT GetDlgItemTextW(HWND dialog, int id, wchar_t* buffer, int size) {
    return static_cast<UINT>(GetWindowTextW(GetDlgItem(dialog, id), buffer, size));
}

BOOL SetDlgItemTextW(HWND dialog, int id, const wchar_t* text) {
    return SetWindowTextW(GetDlgItem(dialog, id), text);
}

LRESULT SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam) {
    return SendMessageW(GetDlgItem(dialog, id), message, wParam, lParam);
}
