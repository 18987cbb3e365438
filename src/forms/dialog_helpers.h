#pragma once

#include "platform/types.h"

#include <span>

// What the program's dialogs have in common. `dialog` is a dialog's window; a control that it lacks is passed over.

/// Makes the soft-key bar of a menu resource for the dialog, or for its parent with `onParent`. With `overrideBack` the
/// Back key comes to the dialog as WM_HOTKEY instead of being Cancel. The bar's window, null when the shell refused.
HWND CreateSoftKeyBar(HWND dialog, UINT menuId, bool overrideBack, bool onParent);
/// Takes the Back key over for the owner of a bar, as `overrideBack` does.
void OverrideBackKey(HWND menuBar);
/// Gives every label (control_ids.h) the label font.
void ApplyLabelFont(HWND dialog);
/// Sizes the dialog to the full screen; the dialog hears WM_SIZE. False when the shell refused.
bool InitFullScreen(HWND dialog);
/// The keypad types digits into these edits to begin with.
void SetNumericInputMode(HWND dialog, std::span<const UINT> ids);
/// Gives these controls the width of the dialog but for a margin on both sides; they keep their tops and heights.
void StretchControls(HWND dialog, std::span<const UINT> ids);
/// Gives the control all of the dialog from `top` (pixels) downwards.
void FitControlToClient(HWND dialog, UINT id, int top);
/// Makes a control the buddy of an up-down.
void SetBuddy(HWND dialog, UINT spin, UINT control);

/// A date picker's value, as a calendar time and as an OLE date. One beyond the calendar leaves the picker at the date
/// that it has of itself, and `date` stays where the picker has none.
void ShowDate(HWND picker, const SYSTEMTIME& date);
void ShowDate(HWND picker, double date);
bool ReadDate(HWND picker, SYSTEMTIME* date);
void ReadDate(HWND picker, double* date);

/// The shell's notes on a dialog and the input panel. The shell knows it by its size.
struct InputPanelRecord {
    DWORD size = 12;
    DWORD state[2] = {};
};
static_assert(sizeof(InputPanelRecord) == 12);

/// Lets the shell fit the dialog to the input panel.
void FitToInputPanel(HWND dialog, InputPanelRecord* record);

/// True when an edit has the focus, so that the Back key is the edit's.
bool IsEditFocused();
