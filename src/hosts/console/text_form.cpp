#include "hosts/console/text_form.h"

#include "platform/system/utf8.h"

namespace device {

std::string Quoted(const std::wstring& text) {
    std::wstring quoted = L"\"";
    for (const wchar_t character : text) {
        switch (character) {
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
            break; // a line end is told once
        default:
            quoted += character;
        }
    }
    return ToUtf8(quoted + L"\"");
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
