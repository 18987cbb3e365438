#pragma once

#include "forms/field_exchange.h"
#include "platform/window_object.h"

#include <string>

/// Asks for the text of a keyword, new or renamed. DoModal gives 1 when Text holds one; nothing typed is Cancel.
class CDlgKeywordsAdd : public CDialogImpl, private CWinDataExchange<CDlgKeywordsAdd> {
public:
    std::wstring Text; ///< what the field begins with, and what it ended with

protected:
    LPCDLGTEMPLATEW GetTemplate() const override;
    bool ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    friend class CWinDataExchange<CDlgKeywordsAdd>;

    /// Lets the Back key delete a character: the dialog took its default action away.
    class CNameField : public CWindowImpl {
    protected:
        LRESULT ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    };

    void OnInitDialog();
    void OnDone(UINT command);

    CNameField name_;
};
