#pragma once

#include "platform/dialog.h"
#include "platform/window.h"

/// A C++ object behind a window: of a class of the program's own (Create), or behind a control that is there already
/// (Subclass), whose messages it then sees first. The window does not own the object; whichever dies first lets go.
class CWindowImpl {
public:
    CWindowImpl() = default;
    CWindowImpl(const CWindowImpl&) = delete;
    CWindowImpl& operator=(const CWindowImpl&) = delete;
    virtual ~CWindowImpl();

    /// Null before Create or Subclass, and after the window was destroyed.
    HWND GetHandle() const { return window_; }

    /// A window of `className`, which is made known if it is not yet. False when it cannot be created.
    bool Create(const wchar_t* className, const wchar_t* title, DWORD style, HWND parent, UINT id);
    /// A control of the device's own as a child of `parent`, taken over at once.
    bool CreateControl(const wchar_t* controlClass, DWORD style, HWND parent, UINT id);
    /// Takes over a window that is there. False when there is none.
    bool Subclass(HWND window);

protected:
    /// Every message of the window. What is not the object's own goes on to DefaultMessage.
    virtual LRESULT ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam);
    /// What the window would do without the object.
    LRESULT DefaultMessage(UINT message, WPARAM wParam, LPARAM lParam) const;
    /// The window is gone; the last thing that is heard of it.
    virtual void OnFinalMessage() { }

private:
    static LRESULT Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Detach();

    HWND window_ = nullptr;
    WNDPROC former_ = nullptr;
};

/// To be called where memory ran out: posts WM_HIBERNATE to the window at the end of `window`'s parents and owners.
void PostOutOfMemory(HWND window);

/// A C++ object behind a modal dialog. A message that runs out of memory ends there, and the dialog goes on: an
/// exception would leave the loop of the dialog, but not its window.
class CDialogImpl {
public:
    CDialogImpl() = default;
    CDialogImpl(const CDialogImpl&) = delete;
    CDialogImpl& operator=(const CDialogImpl&) = delete;
    virtual ~CDialogImpl() = default;

    /// Runs the dialog over the active window and gives what EndDialog was given.
    LONG_PTR DoModal();
    /// Null while the dialog is not open.
    HWND GetHandle() const { return dialog_; }

protected:
    virtual LPCDLGTEMPLATEW GetTemplate() const = 0;
    /// Returns true for a message that was handled, with its `result` (TRUE to begin with). WM_INITDIALOG sets it to
    /// FALSE to keep the focus that it set itself.
    virtual bool ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) = 0;

private:
    static LPARAM Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

    HWND dialog_ = nullptr;
};
