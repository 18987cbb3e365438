#include "records/stored_text.h"

#include <cwchar>
#include <new>

bool CStoredText::Set(const wchar_t* text) {
    if (!text)
        text = L"";
    if (std::wcscmp(Get(), text) == 0)
        return false;
    Assign(text);
    return true;
}

void CStoredText::Assign(std::wstring_view text) {
    if (text.empty()) {
        text_.reset();
        return;
    }
    std::unique_ptr<wchar_t[]> copy(new (std::nothrow) wchar_t[text.size() + 1]);
    if (!copy)
        return;
    std::wmemcpy(copy.get(), text.data(), text.size());
    copy[text.size()] = L'\0';
    text_ = std::move(copy);
}
