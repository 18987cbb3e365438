#pragma once

#include "forms/full_screen_dialog.h"

#include <string>

/// Asks for the text of a keyword, new or renamed. DoModal gives 1 when Text holds one; nothing typed is Cancel.
class CDlgKeywordsAdd : public CFullScreenDialog {
public:
    CDlgKeywordsAdd();

    std::wstring Text; ///< what the field begins with, and what it ended with

protected:
    bool OnInitDialog() override;
    void OnSize() const override;
    void OnDone() override;

private:
    /// Lets the Back key delete a character: the dialog took its default action away.
    class CNameField : public CWindowImpl {
    protected:
        LRESULT ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    };

    CNameField name_;
};
