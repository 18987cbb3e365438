#include "hosts/console/text_form.h"

#include "platform/utf8.h"

#include <algorithm>

namespace device {

namespace {

bool IsControl(wchar_t character) {
    const bool isLineEnd = character == 0x2028 || character == 0x2029;
    return character < L' ' || (character >= 0x7F && character < 0xA0) || isLineEnd;
}

} // namespace

std::string OneLine(std::wstring text) {
    std::replace_if(text.begin(), text.end(), IsControl, L' ');
    return ToUtf8(text);
}

std::string Quoted(const std::wstring& text) {
    std::wstring quoted = L"\"";
    for (std::size_t index = 0; index < text.size(); ++index) {
        switch (text[index]) {
        case L'"':
            quoted += L"\\\"";
            break;
        case L'\\':
            quoted += L"\\\\";
            break;
        case L'\n':
            quoted += L"\\n";
            break;
        case L'\t':
            quoted += L"\\t";
            break;
        case L'\r':
            if (text.compare(index, 2, L"\r\n") != 0) // a line end of two is told once
                quoted += L' ';
            break;
        default:
            quoted += text[index];
        }
    }
    return OneLine(quoted + L"\"");
}

bool Unquote(const std::string& text, std::wstring& result) {
    if (text.size() < 2 || text.front() != '"' || text.back() != '"')
        return false;
    std::string plain;
    for (std::size_t index = 1; index + 1 < text.size(); ++index) {
        char character = text[index];
        if (character == '"')
            return false;
        if (character == '\\') {
            if (++index + 1 >= text.size())
                return false;
            character = text[index];
            if (character == 'n')
                character = '\n';
            else if (character == 't')
                character = '\t';
            else if (character != '"' && character != '\\')
                return false;
        }
        plain += character;
    }
    result = FromUtf8(plain);
    return true;
}

} // namespace device
