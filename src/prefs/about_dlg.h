#pragma once

#include "forms/full_screen_dialog.h"
#include "lists/window_font.h"

/// "About": the program's name, picture and version. What DoModal gives tells nothing.
class CAboutDlg final : public CFullScreenDialog {
public:
    CAboutDlg();
    ~CAboutDlg() override;

protected:
    bool OnInitDialog() override;
    void OnSize() const override;
    bool OnCommand(UINT id, UINT code, HWND sender) override;
    bool OnBackKey(WPARAM wParam, LPARAM lParam) override;

private:
    void ShowNameInBold();

    CWindowFont boldFont_;
    const HICON picture_;
};
