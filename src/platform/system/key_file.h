#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace device {
/// A text in the form of desktops' key files: groups, each under its [header], of NAME=VALUE lines. All other lines, be
/// they comments or rubbish, stay as they are, and so does the order. Names of groups and values are found in whatever
/// case, of the basic letters, they are asked for. A name that stands twice has the value that stands last.
class KeyFile {
public:
    explicit KeyFile(std::string_view text = {});
    std::string Text() const;

    std::vector<std::string> Groups() const;
    /// As the file spells them, each once.
    std::vector<std::string> Names(std::string_view group) const;
    /// Null where there is none.
    const std::string* Find(std::string_view group, std::string_view name) const;
    /// Neither name may hold line ends, brackets or '=', nor the value line ends.
    void Set(std::string_view group, std::string_view name, const std::string& value);
    void Remove(std::string_view group, std::string_view name);

private:
    struct Line {
        std::string text;
        std::string group; ///< under whose header it stands; empty before the first one and under a damaged one
        std::string name; ///< empty where it holds no value
        std::string value;

        bool Is(std::string_view wantedGroup, std::string_view wantedName) const;
    };

    /// The last one of that name, or the end.
    std::vector<Line>::const_iterator FindLine(std::string_view group, std::string_view name) const;

    std::vector<Line> lines_;
};

/// Without regard to the case of the basic letters.
bool SameKeyName(std::string_view first, std::string_view second);
} // namespace device
