#pragma once

#include "platform/types.h"

#include <string>

// Values between the fields of a form and its controls. With `save` the control is read into the field, else the
// field is shown in the control. On failure the device beeps, the focus goes to the control, and the result is false.

namespace exchange {
/// A signed whole number; an empty control fails.
bool Int(HWND dialog, UINT id, LONG& field, bool save);
/// Text of any length; fails only when memory runs out.
bool Text(HWND dialog, UINT id, std::wstring& field, bool save);
/// Six significant digits with the locale's decimal separator; an empty control fails.
bool LocaleFloat(HWND dialog, UINT id, float& field, bool save);
} // namespace exchange

/// Gives a dialog class its exchange of text and whole numbers.
template <typename Dialog> class CWinDataExchange {
protected:
    bool ExchangeInt(UINT id, LONG& field, bool save) { return exchange::Int(Window(), id, field, save); }
    bool ExchangeText(UINT id, std::wstring& field, bool save) { return exchange::Text(Window(), id, field, save); }
    HWND Window() const { return static_cast<const Dialog*>(this)->GetHandle(); }
};

/// The same with floats in the locale's form.
template <typename Dialog> class CWinDataExchangeLocale : public CWinDataExchange<Dialog> {
protected:
    bool ExchangeFloat(UINT id, float& field, bool save) {
        return exchange::LocaleFloat(this->Window(), id, field, save);
    }
};
