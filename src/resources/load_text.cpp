#include "resources/load_text.h"

#include "platform/resources.h"

std::wstring LoadText(UINT id) {
    constexpr int UsualSize = 256;
    const HINSTANCE module = GetModuleHandleW(nullptr);
    wchar_t usual[UsualSize];
    int length = LoadStringW(module, id, usual, UsualSize);
    if (length < UsualSize - 1)
        return {usual, static_cast<std::size_t>(length)};
    // A full buffer may have cut the text.
    std::wstring text;
    int size = UsualSize;
    do {
        size *= 2;
        text.resize(static_cast<std::size_t>(size));
        length = LoadStringW(module, id, text.data(), size);
    } while (length == size - 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}
