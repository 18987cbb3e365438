#include "forms/field_exchange.h"

#include "platform/dialog.h"
#include "units/field_text.h"

#include <algorithm>
#include <new>
#include <utility>

namespace exchange {

namespace {

constexpr int SignificantDigits = 6;
constexpr UINT GeneralBeep = 0xFFFFFFFF;

bool Succeed(HWND dialog, UINT id, bool success) {
    if (success)
        return true;
    MessageBeep(GeneralBeep);
    if (const HWND control = GetDlgItem(dialog, static_cast<int>(id)))
        SetFocus(control);
    return false;
}

bool ReadInt(HWND dialog, int id, LONG& field) {
    BOOL translated = FALSE;
    const UINT value = GetDlgItemInt(dialog, id, &translated, TRUE);
    if (!translated)
        return false;
    field = static_cast<LONG>(value);
    return true;
}

bool ReadText(HWND dialog, int id, std::wstring& field) {
    const HWND control = GetDlgItem(dialog, id);
    if (!control)
        return false;
    try {
        std::wstring text(static_cast<std::size_t>(std::max(0, GetWindowTextLengthW(control))) + 1, L'\0');
        text.resize(static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
        field = std::move(text);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

bool ReadFloat(HWND dialog, int id, float& field) {
    wchar_t text[FieldTextSize] = {};
    GetDlgItemTextW(dialog, id, text, static_cast<int>(FieldTextSize));
    double value = 0.0;
    if (!ParseFieldFloat(text, &value))
        return false;
    field = static_cast<float>(value);
    return true;
}

} // namespace

bool Int(HWND dialog, UINT id, LONG& field, bool save) {
    const int control = static_cast<int>(id);
    return Succeed(dialog, id,
        save ? ReadInt(dialog, control, field)
             : SetDlgItemInt(dialog, control, static_cast<UINT>(field), TRUE) != FALSE);
}

bool Text(HWND dialog, UINT id, std::wstring& field, bool save) {
    const int control = static_cast<int>(id);
    return Succeed(
        dialog, id, save ? ReadText(dialog, control, field) : SetDlgItemTextW(dialog, control, field.c_str()) != FALSE);
}

bool LocaleFloat(HWND dialog, UINT id, float& field, bool save) {
    const int control = static_cast<int>(id);
    return Succeed(dialog, id,
        save ? ReadFloat(dialog, control, field)
             : SetDlgItemTextW(dialog, control, PrintFieldFloat(field, SignificantDigits).c_str()) != FALSE);
}

} // namespace exchange
