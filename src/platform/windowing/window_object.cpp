#include "platform/window_object.h"

#include "platform/resources.h"

#include <new>

namespace {

CWindowImpl* ObjectOf(HWND window) {
    return reinterpret_cast<CWindowImpl*>(GetWindowLongW(window, GWL_USERDATA));
}

} // namespace

CWindowImpl::~CWindowImpl() {
    Detach();
}

void CWindowImpl::Detach() {
    if (!window_)
        return;
    SetWindowLongW(window_, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(former_ ? former_ : DefWindowProcW));
    SetWindowLongW(window_, GWL_USERDATA, 0);
    window_ = nullptr;
}

bool CWindowImpl::Create(const wchar_t* className, const wchar_t* title, DWORD style, HWND parent, UINT id) {
    const WNDCLASSW windowClass{Procedure, className};
    RegisterClassW(&windowClass); // fails when it is known already, which is as good
    return CreateWindowExW(0, className, title, style, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
               parent, reinterpret_cast<HMENU>(static_cast<std::uintptr_t>(id)), GetModuleHandleW(nullptr), this)
        != nullptr;
}

bool CWindowImpl::CreateControl(const wchar_t* controlClass, DWORD style, HWND parent, UINT id) {
    return Subclass(CreateWindowExW(0, controlClass, L"", style, 0, 0, 0, 0, parent,
        reinterpret_cast<HMENU>(static_cast<std::uintptr_t>(id)), GetModuleHandleW(nullptr), nullptr));
}

bool CWindowImpl::Subclass(HWND window) {
    if (!IsWindow(window) || window_)
        return false;
    window_ = window;
    SetWindowLongW(window, GWL_USERDATA, reinterpret_cast<LONG_PTR>(this));
    former_ = reinterpret_cast<WNDPROC>(SetWindowLongW(window, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    return true;
}

LRESULT CWindowImpl::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CREATE && !ObjectOf(window)) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        auto* made = creation ? static_cast<CWindowImpl*>(creation->lpCreateParams) : nullptr;
        if (!made)
            return -1;
        made->window_ = window;
        SetWindowLongW(window, GWL_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    CWindowImpl* object = ObjectOf(window);
    if (!object)
        return DefWindowProcW(window, message, wParam, lParam);
    if (message != WM_NCDESTROY)
        return object->ProcessWindowMessage(message, wParam, lParam);
    const LRESULT result = object->DefaultMessage(message, wParam, lParam);
    object->Detach();
    object->OnFinalMessage();
    return result;
}

LRESULT CWindowImpl::ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefaultMessage(message, wParam, lParam);
}

LRESULT CWindowImpl::DefaultMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return former_ ? CallWindowProcW(former_, window_, message, wParam, lParam)
                   : DefWindowProcW(window_, message, wParam, lParam);
}

void PostOutOfMemory(HWND window) {
    for (HWND above = GetParent(window); above; above = GetParent(above))
        window = above;
    PostMessageW(window, WM_HIBERNATE, 0, 0);
}

LONG_PTR CDialogImpl::DoModal() {
    const LONG_PTR result = DialogBoxIndirectParamW(
        GetModuleHandleW(nullptr), GetTemplate(), GetActiveWindow(), Procedure, reinterpret_cast<LPARAM>(this));
    dialog_ = nullptr;
    return result;
}

LPARAM CDialogImpl::Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongW(dialog, GWL_USERDATA, lParam);
        reinterpret_cast<CDialogImpl*>(lParam)->dialog_ = dialog;
    }
    auto* object = reinterpret_cast<CDialogImpl*>(GetWindowLongW(dialog, GWL_USERDATA));
    if (!object)
        return 0;
    LRESULT result = TRUE;
    try {
        return object->ProcessDialogMessage(message, wParam, lParam, result) ? result : 0;
    } catch (const std::bad_alloc&) {
        PostOutOfMemory(dialog);
        return result;
    }
}
