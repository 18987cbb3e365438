#pragma once

#include "forms/full_screen_dialog.h"
#include "records/keyword.h"

#include <span>
#include <string>

/// What a form is made of, beyond its fields: constant data of the form's class.
struct FormDescription {
    struct Buddy {
        UINT spin;
        UINT edit;
    };

    const DLGTEMPLATE& dialogTemplate;
    UINT menu;
    UINT firstFocus; ///< the control that has the focus on opening
    UINT keywordField; ///< 0: the form has none
    bool doneNeedsSender; ///< a Done that names no sending window (the Action key) is ignored
    std::span<const UINT> stretched; ///< the value controls, which run the full width
    std::span<const Buddy> buddies;
    std::span<const UINT> numeric; ///< the fields that start in the numbers mode
};

/// The frame of the record forms: how a form opens and ends, its soft keys, its layout, the Back key and the Action key
/// in its keyword field. A form works on its own fields, which its caller fills before and reads after; they hold
/// something new only where DoModal gave 1 (Done), not 2 (Cancel).
class CFormFrame : public CFullScreenDialog {
protected:
    explicit CFormFrame(const FormDescription& description);

    bool OnInitDialog() override;
    void OnSize() const override;
    bool OnCommand(UINT id, UINT code, HWND sender) override;
    /// Ends the form with 1 when the save pass and the rules hold.
    void OnDone() override;
    bool OnBackKey(WPARAM wParam, LPARAM lParam) override;

    /// The print pass, and with `save` the save pass: all fields in the form's own order, up to the first failure.
    virtual bool ExchangeFields(bool save) = 0;
    /// The OLE date that the form's date picker shows.
    virtual double& DateField() = 0;
    /// Particular steps of opening, before the date is shown and after.
    virtual void OnOpening() { }
    virtual void OnDateShown() { }
    /// The save pass at Done failed; the beep and the focus have told so.
    virtual void OnSaveFailed() { }
    /// The form's rules, and its own steps, after the save pass of Done. False keeps the form open.
    virtual bool AcceptFields() { return true; }
    /// The list behind the keyword field.
    virtual CKeyword::Type KeywordType() const { return {}; }

    /// Lets the user pick the text of the keyword field; what the other fields hold stays.
    void SelectKeyword() const;
    /// The rule that `text` is not empty: else a message (string ids) and the focus to its control, and false.
    bool RequireText(const std::wstring& text, UINT id, UINT message, UINT caption) const;
    /// Moves the focus to a control; with `selectAll` all its text is selected.
    void FocusControl(UINT id, bool selectAll) const;

private:
    /// Sees the keyword field's messages before the field does.
    class CKeywordField : public CWindowImpl {
    public:
        explicit CKeywordField(CFormFrame& form)
            : form_(form) { }

    protected:
        LRESULT ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    private:
        CFormFrame& form_;
    };

    const FormDescription description_;
    CKeywordField keyword_{*this};
};
