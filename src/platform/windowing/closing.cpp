#include "platform/windowing/closing.h"

#include "platform/dialog.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/dialog_loop.h"
#include "platform/windowing/soft_key_bar.h"

#include <algorithm>
#include <cstdlib>

namespace device {

namespace {

/// More than any nesting of forms and messages takes.
constexpr int MostSteps = 300;
constexpr const wchar_t* Question = L"Close without storing what was typed?";

bool Confirms(const Window& front) {
    const std::wstring title = Desktop::The().FrontFull()->text;
    return MessageBoxW(front.handle, Question, title.c_str(), MB_YESNO | MB_ICONEXCLAMATION) == IDYES;
}

bool HasTyped(const Window* window) {
    return window->modal && !window->modal->ended && FieldValues(*window) != window->modal->openedWith;
}

} // namespace

bool IsSomethingTyped() {
    const auto& windows = Desktop::The().TopLevels();
    return std::any_of(windows.begin(), windows.end(), HasTyped);
}

bool MayBeLeft(const Window& window) {
    return !HasTyped(&window) || Confirms(window);
}

void Closing::Ask() {
    if (state_ == State::None)
        state_ = State::Asked;
    else if (state_ == State::Asking)
        state_ = State::Ordered;
}

bool Closing::Step() {
    switch (state_) {
    case State::None:
    case State::Asking:
        return false;
    case State::Asked:
        AskIfTyped();
        return true;
    case State::Ordered:
        Leave();
        return true;
    }
    return false;
}

void Closing::AskIfTyped() {
    Desktop& desktop = Desktop::The();
    const Window* front = desktop.Front();
    if (!front || !IsSomethingTyped()) {
        state_ = State::Ordered;
        return;
    }
    if (desktop.Menu()) {
        PostMessageW(front->handle, WM_NULL, 0, 0); // closes it
        return;
    }
    state_ = State::Asking;
    desktop.TheHost()->BringToFront();
    const bool mayClose = Confirms(*front);
    if (state_ == State::Asking)
        state_ = mayClose ? State::Ordered : State::None;
}

void Closing::Leave() {
    if (++steps_ > MostSteps)
        std::exit(EXIT_FAILURE);
    Desktop& desktop = Desktop::The();
    const auto& windows = desktop.TopLevels();
    const Window* front = desktop.Front();
    SoftKeyBar* bar = front ? SoftKeyBar::Of(front->handle) : nullptr;
    if (steps_ == 1 || !front || !front->modal) {
        const auto root = std::find_if(windows.begin(), windows.end(), [](const Window* each) { return !each->owner; });
        if (root != windows.end())
            PostMessageW((*root)->handle, WM_CLOSE, 0, 0);
    } else if (front->isMessageBox && steps_ % 2 == 0 && bar) {
        bar->Press(false); // the right key is the one that changes nothing: No, Cancel
    } else {
        PostMessageW(front->handle, WM_CLOSE, 0, 0);
    }
}

} // namespace device
