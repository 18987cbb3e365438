#pragma once

#include "platform/window_object.h"

#include <string>

/// What the program's dialogs have in common: how they open, which messages they hear, and the exchange of values
/// between their fields and their controls.
class CFullScreenDialog : public CDialogImpl {
protected:
    enum class BackKey {
        IsCancel,
        IsReported, ///< to OnBackKey
        IsHandedOn, ///< to whatever has the focus; it never closes the dialog
    };

    CFullScreenDialog(const DLGTEMPLATE& dialogTemplate, UINT menu, BackKey backKey);

    LPCDLGTEMPLATEW GetTemplate() const override { return &template_; }
    bool ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    /// Soft keys, label font, full screen; a dialog goes on from there. False when it has set the focus itself.
    virtual bool OnInitDialog();
    virtual void OnSize() const { }
    /// A command or a notification (`code` not 0) of a control. False for one that is not the dialog's.
    virtual bool OnCommand(UINT id, UINT code, HWND sender);
    /// Done; ends the dialog with 1.
    virtual void OnDone();
    /// Both halves of the Back key, as WM_HOTKEY has it. False when the dialog has no use for it.
    virtual bool OnBackKey(WPARAM wParam, LPARAM lParam);

    void CreateSoftKeys() const;
    /// A control; null when the dialog lacks it.
    HWND Item(UINT id) const;
    bool ShowText(UINT id, const std::wstring& text) const;
    /// Which half of the Back key OnBackKey was told.
    static bool IsKeyUp(LPARAM lParam);

    // With `save` the control is read into the field, else the field is shown in the control. On failure the device
    // beeps, the focus goes to the control, and the result is false.

    /// A signed whole number; an empty control fails.
    bool ExchangeInt(UINT id, LONG& field, bool save) const;
    /// Text of any length; fails only when memory runs out.
    bool ExchangeText(UINT id, std::wstring& field, bool save) const;
    /// Six significant digits with the locale's decimal separator; an empty control fails.
    bool ExchangeFloat(UINT id, float& field, bool save) const;
    /// The same with a point, whatever the locale.
    bool ExchangePlainFloat(UINT id, float& field, bool save) const;

private:
    /// How a float is printed and read.
    struct FloatForm {
        std::wstring (*print)(float value, int digits);
        bool (*parse)(const wchar_t* text, double* value);
    };

    bool ExchangeFloatAs(const FloatForm& form, UINT id, float& field, bool save) const;
    bool ReadInt(UINT id, LONG& field) const;
    bool ReadText(UINT id, std::wstring& field) const;
    bool ReadFloat(const FloatForm& form, UINT id, float& field) const;
    /// Reports a failed exchange; gives what it was given.
    bool ReportUnless(bool success, UINT id) const;

    const DLGTEMPLATE& template_;
    const UINT menu_;
    const BackKey backKey_;
};
