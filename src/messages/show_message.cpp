#include "messages/show_message.h"

#include "platform/dialog.h"
#include "platform/resources.h"
#include "records/data_layer.h"
#include "resources/ids.h"
#include "resources/load_text.h"

#include <new>
#include <string>

namespace {

constexpr std::uintptr_t FirstPointer = 0x10000;

/// What was in the way, and what helps.
UINT CauseText(StoreFailure failure) {
    switch (failure) {
    case StoreFailure::NoMemory:
        return strings::NoMemoryCause;
    case StoreFailure::NoSpace:
        return strings::NoSpaceCause;
    case StoreFailure::ReadOnly:
        return strings::ReadOnlyCause;
    case StoreFailure::Locked:
        return strings::LockedCause;
    case StoreFailure::Replaced:
        return strings::ReplacedCause;
    case StoreFailure::Gone:
        return strings::GoneCause;
    case StoreFailure::None:
    case StoreFailure::Other:
        break;
    }
    return strings::OtherCause;
}

} // namespace

int ShowMessage(HWND owner, std::uintptr_t text, std::uintptr_t caption, UINT style) try {
    std::wstring loadedText;
    std::wstring loadedCaption;
    const auto* textPointer = reinterpret_cast<const wchar_t*>(text);
    const auto* captionPointer = reinterpret_cast<const wchar_t*>(caption);
    if (text < FirstPointer) {
        loadedText = LoadText(static_cast<UINT>(text));
        textPointer = loadedText.c_str();
    }
    if (caption != 0 && caption < FirstPointer) {
        loadedCaption = LoadText(static_cast<UINT>(caption));
        captionPointer = loadedCaption.c_str();
    }
    return MessageBoxW(owner, textPointer, captionPointer, style);
} catch (const std::bad_alloc&) {
    return 0;
}

int ShowMessage(HWND owner, const wchar_t* text, std::uintptr_t caption, UINT style) {
    return ShowMessage(owner, reinterpret_cast<std::uintptr_t>(text), caption, style);
}

void ShowStoreFailure() try {
    const std::wstring text
        = LoadText(strings::ChangeNotStored) + L' ' + LoadText(CauseText(theDataLayer.LastFailure()));
    ShowMessage(GetActiveWindow(), text.c_str(), strings::AppName, messages::FailureStyle);
} catch (const std::bad_alloc&) {
    ShowMessage(GetActiveWindow(), strings::ChangeNotStored, strings::AppName, messages::FailureStyle);
}
