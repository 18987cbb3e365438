#include "shell/messages/show_message.h"

#include "platform/dialog.h"
#include "platform/resources.h"
#include "resources/ids.h"

#include <new>
#include <string>

namespace {

constexpr std::uintptr_t FirstPointer = 0x10000;
constexpr int FirstRoom = 256;

/// Loads a string of any length: while it fills the buffer up to the last place, there may be more of it.
std::wstring LoadWhole(UINT id) {
    std::wstring text;
    for (int room = FirstRoom;; room *= 2) {
        text.resize(static_cast<std::size_t>(room));
        const int length = LoadStringW(GetModuleHandleW(nullptr), id, text.data(), room);
        if (length < room - 1) {
            text.resize(static_cast<std::size_t>(length));
            return text;
        }
    }
}

} // namespace

int ShowMessage(HWND owner, std::uintptr_t text, std::uintptr_t caption, UINT style) try {
    std::wstring loadedText;
    std::wstring loadedCaption;
    const auto* textPointer = reinterpret_cast<const wchar_t*>(text); // NOLINT(performance-no-int-to-ptr)
    const auto* captionPointer = reinterpret_cast<const wchar_t*>(caption); // NOLINT(performance-no-int-to-ptr)
    if (text < FirstPointer) {
        loadedText = LoadWhole(static_cast<UINT>(text));
        textPointer = loadedText.c_str();
    }
    if (caption != 0 && caption < FirstPointer) {
        loadedCaption = LoadWhole(static_cast<UINT>(caption));
        captionPointer = loadedCaption.c_str();
    }
    return MessageBoxW(owner, textPointer, captionPointer, style);
} catch (const std::bad_alloc&) {
    return 0;
}

int ShowMessage(HWND owner, const wchar_t* text, std::uintptr_t caption, UINT style) {
    return ShowMessage(owner, reinterpret_cast<std::uintptr_t>(text), caption, style);
}

void ShowStoreFailure() {
    ShowMessage(GetActiveWindow(), strings::ChangeNotStored, strings::AppName, messages::FailureStyle);
}
