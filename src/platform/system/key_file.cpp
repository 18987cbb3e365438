#include "platform/system/key_file.h"

#include <algorithm>
#include <iterator>

namespace device {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trimmed(std::string_view text) {
    static constexpr std::string_view Blanks = " \t\r\v\f";
    const std::size_t begin = text.find_first_not_of(Blanks);
    return begin == std::string_view::npos ? std::string_view{}
                                           : text.substr(begin, text.find_last_not_of(Blanks) - begin + 1);
}

bool IsHeader(std::string_view line) {
    return !line.empty() && line.front() == '[';
}

/// Empty for a header that is damaged: what stands under it belongs to nothing that is known.
std::string_view GroupIn(std::string_view header) {
    const std::string_view group = header.substr(1, header.size() - 2);
    return header.size() > 2 && header.back() == ']' && group.find_first_of("[]") == std::string_view::npos
        ? group
        : std::string_view{};
}

} // namespace

KeyFile::KeyFile(std::string_view text) {
    std::string group;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        Line line{std::string{text.substr(begin, end - begin)}, {}, {}, {}};
        const std::size_t markSize = begin == 0 && line.text.rfind(ByteOrderMark, 0) == 0 ? ByteOrderMark.size() : 0;
        const std::string_view content = Trimmed(std::string_view{line.text}.substr(markSize));
        const std::size_t equals = content.find('=');
        if (IsHeader(content)) {
            group = GroupIn(content);
        } else if (!group.empty() && equals != std::string_view::npos && content.front() != '#') {
            line.name = Trimmed(content.substr(0, equals));
            const std::size_t value
                = std::min(line.text.find_first_not_of(" \t", line.text.find('=') + 1), line.text.size());
            line.value = line.text.substr(value);
        }
        line.group = group;
        lines_.push_back(std::move(line));
        begin = end + 1;
    }
}

std::string KeyFile::Text() const {
    std::string text;
    for (const Line& line : lines_)
        text += line.text + '\n';
    return text;
}

std::vector<std::string> KeyFile::Groups() const {
    std::vector<std::string> groups;
    for (const Line& line : lines_)
        if (!line.group.empty() && (groups.empty() || groups.back() != line.group))
            groups.push_back(line.group);
    return groups;
}

std::vector<std::string> KeyFile::Names(std::string_view group) const {
    std::vector<std::string> names;
    for (const Line& line : lines_) {
        const auto isSame = [&line](const std::string& name) { return SameKeyName(name, line.name); };
        if (!line.name.empty() && SameKeyName(line.group, group) && std::none_of(names.begin(), names.end(), isSame))
            names.push_back(line.name);
    }
    return names;
}

std::vector<KeyFile::Line>::const_iterator KeyFile::FindLine(std::string_view group, std::string_view name) const {
    const auto found
        = std::find_if(lines_.rbegin(), lines_.rend(), [&](const Line& line) { return line.Is(group, name); });
    return found == lines_.rend() ? lines_.end() : std::prev(found.base());
}

const std::string* KeyFile::Find(std::string_view group, std::string_view name) const {
    const auto found = FindLine(group, name);
    return found == lines_.end() ? nullptr : &found->value;
}

void KeyFile::Set(std::string_view group, std::string_view name, const std::string& value) {
    if (const auto found = FindLine(group, name); found != lines_.end()) {
        Line& former = lines_[static_cast<std::size_t>(found - lines_.begin())];
        former.value = value;
        former.text = former.name + '=' + value;
        return;
    }
    // Behind the group's last line that says something, or else under a header of its own.
    const auto last = std::find_if(lines_.rbegin(), lines_.rend(),
        [&](const Line& line) { return SameKeyName(line.group, group) && !Trimmed(line.text).empty(); });
    auto place = last.base();
    if (last == lines_.rend()) {
        if (!lines_.empty())
            lines_.push_back({});
        lines_.push_back({'[' + std::string{group} + ']', std::string{group}, {}, {}});
        place = lines_.end();
    }
    lines_.insert(place, {std::string{name} + '=' + value, std::string{group}, std::string{name}, value});
}

void KeyFile::Remove(std::string_view group, std::string_view name) {
    std::erase_if(lines_, [&](const Line& line) { return line.Is(group, name); });
}

bool KeyFile::Line::Is(std::string_view wantedGroup, std::string_view wantedName) const {
    return !name.empty() && SameKeyName(name, wantedName) && SameKeyName(group, wantedGroup);
}

bool SameKeyName(std::string_view first, std::string_view second) {
    const auto lower = [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character | 0x20) : character;
    };
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
        [&](char left, char right) { return lower(left) == lower(right); });
}

} // namespace device
