#pragma once

#include "lists/window_font.h"
#include "platform/window_object.h"

/// "About": the program's name, picture and version. What DoModal gives tells nothing.
class CAboutDlg final : public CDialogImpl {
public:
    CAboutDlg();
    ~CAboutDlg() override;

protected:
    LPCDLGTEMPLATEW GetTemplate() const override;
    bool ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    void OnInitDialog();
    void OnSize() const;
    bool OnCommand(UINT command) const;
    void ShowNameInBold();

    CWindowFont boldFont_;
    const HICON picture_;
};
