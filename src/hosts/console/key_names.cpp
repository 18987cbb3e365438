#include "hosts/console/key_names.h"

#include "platform/input.h"
#include "platform/utf8.h"

#include <array>

namespace device {

namespace {

struct NamedKey {
    const char* name;
    WORD key;
};

constexpr std::array NamedKeys{
    NamedKey{"up", VK_UP},
    NamedKey{"down", VK_DOWN},
    NamedKey{"left", VK_LEFT},
    NamedKey{"right", VK_RIGHT},
    NamedKey{"action", VK_TACTION},
    NamedKey{"back", VK_TBACK},
    NamedKey{"soft1", VK_TSOFT1},
    NamedKey{"soft2", VK_TSOFT2},
    NamedKey{"backspace", VK_BACK},
    NamedKey{"delete", VK_DELETE},
    NamedKey{"home", VK_HOME},
    NamedKey{"end", VK_END},
    NamedKey{"pageup", VK_PRIOR},
    NamedKey{"pagedown", VK_NEXT},
    NamedKey{"tab", VK_TAB},
    NamedKey{"insert", VK_INSERT},
    NamedKey{"menu", VK_APPS},
    NamedKey{"f10", VK_F10},
};

bool TakePrefix(std::string& name, const std::string& prefix) {
    if (name.size() <= prefix.size() || name.compare(0, prefix.size(), prefix) != 0)
        return false;
    name.erase(0, prefix.size());
    return true;
}

bool IsAsciiAlnum(wchar_t character) {
    return (character >= L'0' && character <= L'9') || (character >= L'a' && character <= L'z')
        || (character >= L'A' && character <= L'Z');
}

} // namespace

std::optional<InputEvent> KeyOfName(const std::string& name) {
    InputEvent event;
    event.kind = InputEvent::Kind::KeyDown;
    std::string rest = name;
    if (TakePrefix(rest, "ctrl+"))
        event.modifiers |= MOD_CONTROL;
    if (TakePrefix(rest, "shift+"))
        event.modifiers |= MOD_SHIFT;
    for (const NamedKey& named : NamedKeys) {
        if (rest == named.name) {
            event.key = named.key;
            event.character = named.key == VK_BACK ? wchar_t{VK_BACK} : wchar_t{0};
            return event;
        }
    }
    const std::wstring character = FromUtf8(rest);
    if (character.size() != 1 || character[0] < L' ' || character[0] == 0x7F)
        return std::nullopt;
    // Only letters and digits have a key of their own number; the numbers of other characters are those of other keys.
    if (IsAsciiAlnum(character[0]))
        event.key = static_cast<WORD>(character[0] >= L'a' ? character[0] - L'a' + L'A' : character[0]);
    if ((event.modifiers & MOD_CONTROL) == 0)
        event.character = character[0];
    return event;
}

} // namespace device
