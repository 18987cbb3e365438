#include "platform/system/environment.h"

#include "platform/process.h"
#include "platform/registry.h"
#include "platform/system/host_file.h"
#include "platform/system/locale_name.h"
#include "platform/system/time_zone.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <locale>
#include <pwd.h>
#include <sstream>
#include <unistd.h>

namespace device {
namespace {

constexpr int LargestScreen = 16384;
constexpr int LeastDpi = 24;
constexpr int MostDpi = 960;
constexpr double LeastZoom = 0.25;
constexpr double MostZoom = 16.0;
constexpr std::size_t LargestList = 65536;

constexpr const char* VariableNames[] = {"HANDSET_STORAGE", "HANDSET_SCREEN", "HANDSET_DPI", "HANDSET_ZOOM",
    "HANDSET_MOUSE", "HANDSET_LOCALE", "HANDSET_CLOCK", "HANDSET_SYNC", "TZ", "LC_ALL", "LC_MONETARY", "LC_TIME",
    "LANG", "HOME", "TMPDIR", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "XDG_STATE_HOME"};

std::optional<int> ReadNumber(std::string_view text, int least, int most) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || number < least || number > most)
        return std::nullopt;
    return number;
}

std::optional<int> ReadDpi(const std::string& text) {
    return ReadNumber(text, LeastDpi, MostDpi);
}

std::optional<bool> ReadSwitch(const std::string& text) {
    return text == "0" || text == "1" ? std::optional(text == "1") : std::nullopt;
}

std::optional<double> ReadZoom(const std::string& text) {
    std::istringstream stream{text};
    stream.imbue(std::locale::classic());
    double zoom = 0;
    stream >> std::noskipws >> zoom;
    // Written so that what is not a number fails.
    const bool isWhole = !stream.fail() && stream.peek() == std::istringstream::traits_type::eof();
    return isWhole && zoom >= LeastZoom && zoom <= MostZoom ? std::optional{zoom} : std::nullopt;
}

std::optional<SIZE> ReadSize(const std::string& text) {
    const std::size_t cross = text.find('x');
    if (cross == std::string::npos)
        return std::nullopt;
    const auto width = ReadNumber(std::string_view{text}.substr(0, cross), 1, LargestScreen);
    const auto height = ReadNumber(std::string_view{text}.substr(cross + 1), 1, LargestScreen);
    if (!width || !height)
        return std::nullopt;
    return SIZE{*width, *height};
}

/// Empty where it cannot be read.
std::string ReadFile(const std::string& path) {
    FileDescriptor file;
    std::string text;
    if (OpenToRead(path, file) != ERROR_SUCCESS || ReadWhole(file, LargestList, text) != ERROR_SUCCESS)
        text.clear();
    return text;
}

bool IsAbsolute(const std::string& path) {
    return !path.empty() && path.front() == '/';
}

/// One pass over the variables: each reading takes what it understands and notes the first that it does not.
class Parser {
public:
    explicit Parser(const Variables& variables)
        : variables_(variables) { }

    ParsedEnvironment Parse() {
        ParsePlaces();
        ParseScreen();
        ParseLocales();
        ParseClock();
        return std::move(result_);
    }

private:
    std::string Value(const char* name) const {
        const auto found = variables_.find(name);
        return found == variables_.end() ? std::string{} : found->second;
    }

    void Refuse(const char* name, const std::string& expected) {
        if (!result_.error) {
            std::string shown;
            for (const char character : Value(name)) {
                // A line stays one line, whatever is in the variable.
                shown += static_cast<unsigned char>(character) < ' ' ? '?' : character;
            }
            result_.error = std::string{name} + ": \"" + shown + "\" is not " + expected;
        }
    }

    /// Nothing where the variable is not set, or says what cannot be understood.
    template <typename Read> auto Understood(const char* name, Read read, const std::string& expected) {
        const std::string text = Value(name);
        if (text.empty())
            return decltype(read(text)){};
        auto value = read(text);
        if (!value)
            Refuse(name, expected);
        return value;
    }

    std::string Home() const {
        std::string home = Value("HOME");
        if (!IsAbsolute(home)) {
            const passwd* user = getpwuid(geteuid());
            home = user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "/";
        }
        return home;
    }

    std::string AbsoluteOr(const char* name, const std::string& otherwise) const {
        const std::string value = Value(name);
        return IsAbsolute(value) ? value : otherwise;
    }

    void ParsePlaces();
    std::string DesktopDocuments(const std::string& configuration) const;
    void ParseScreen();
    void ParseLocales();
    void ParseClock();

    const Variables& variables_;
    ParsedEnvironment result_;
};

void Parser::ParsePlaces() {
    Environment& environment = result_.environment;
    environment.runtimeFolder = AbsoluteOr("XDG_RUNTIME_DIR", "");
    environment.temporaryFolder = AbsoluteOr("TMPDIR", "/tmp");
    std::error_code error;
    if (const std::string storage = Value("HANDSET_STORAGE"); !storage.empty()) {
        const std::filesystem::path place = std::filesystem::absolute(storage, error).lexically_normal();
        if (!error && (!std::filesystem::exists(place, error) || std::filesystem::is_directory(place, error))) {
            environment.storagePlace = place;
            environment.registryFile = place / "registry";
            environment.documentsFolder = place / "My Documents";
            environment.copiesFolder = place / "copies";
            return;
        }
        Refuse("HANDSET_STORAGE", "a directory");
    }
    const std::string configuration = AbsoluteOr("XDG_CONFIG_HOME", Home() + "/.config");
    environment.storagePlace = configuration + "/odoledger";
    environment.registryFile = environment.storagePlace + "/registry";
    environment.documentsNote = environment.registryFile + ".documents";
    // A folder, and in the next line the file that keeps it.
    const std::string kept = ReadFile(environment.documentsNote);
    const std::size_t end = std::min(kept.find('\n'), kept.size());
    const bool isThere
        = IsAbsolute(kept) && end < kept.size() && std::filesystem::is_regular_file(kept.substr(end + 1), error);
    environment.documentsFolder = isThere ? kept.substr(0, end) : DesktopDocuments(configuration);
    environment.copiesFolder = AbsoluteOr("XDG_STATE_HOME", Home() + "/.local/state") + "/odoledger/copies";
}

/// What the desktop's own list of the user's folders says, which names them in the user's language.
std::string Parser::DesktopDocuments(const std::string& configuration) const {
    static const std::string Begin = "XDG_DOCUMENTS_DIR=\"";
    static const std::string HomeVariable = "$HOME";
    std::string folder = Home() + "/Documents";
    std::istringstream list{ReadFile(configuration + "/user-dirs.dirs")};
    for (std::string line; std::getline(list, line);) {
        const std::size_t end = line.rfind('"');
        if (line.rfind(Begin, 0) != 0 || end < Begin.size())
            continue;
        std::string value = line.substr(Begin.size(), end - Begin.size());
        if (value.rfind(HomeVariable, 0) == 0)
            value = Home() + value.substr(HomeVariable.size());
        if (IsAbsolute(value))
            folder = value;
    }
    return folder;
}

void Parser::ParseScreen() {
    Environment& environment = result_.environment;
    if (const auto size = Understood(
            "HANDSET_SCREEN", ReadSize, "a size in pixels as 320x480, each from 1 to " + std::to_string(LargestScreen)))
        environment.screen = *size;
    if (const auto dpi = Understood("HANDSET_DPI", ReadDpi,
            "a whole number from " + std::to_string(LeastDpi) + " to " + std::to_string(MostDpi)))
        environment.dpi = *dpi;
    environment.zoom = Understood("HANDSET_ZOOM", ReadZoom, "a number from 0.25 to 16");
    environment.mouse = Understood("HANDSET_MOUSE", ReadSwitch, "0 or 1").value_or(true);
}

void Parser::ParseLocales() {
    Environment& environment = result_.environment;
    if (const auto name = Understood("HANDSET_LOCALE", LocaleName, "the name of a locale as en_US")) {
        environment.numberLocale = environment.dateLocale = *name;
        return;
    }
    // The host's own settings serve as far as they can be understood: they are not the device's to complain of.
    const auto ofHost = [this](const char* category) {
        for (const char* name : {"LC_ALL", category, "LANG"})
            if (const std::string text = Value(name); !text.empty())
                return LocaleName(text).value_or("en_US");
        return std::string{"en_US"};
    };
    environment.numberLocale = ofHost("LC_MONETARY");
    environment.dateLocale = ofHost("LC_TIME");
}

void Parser::ParseClock() {
    Environment& environment = result_.environment;
    environment.clock = Understood("HANDSET_CLOCK", ParseUtcTime, "a time in UTC as 2026-03-01T10:00:00Z");
    if (Understood("HANDSET_SYNC", ReadSwitch, "0 or 1").value_or(false))
        environment.presetMutexes.emplace_back(DesktopSyncMutex);
    if (const std::string zone = Value("TZ"); !zone.empty() && !IsTimeZone(zone))
        Refuse("TZ", "a time zone of this host");
}

Variables ProcessVariables() {
    Variables variables;
    for (const char* name : VariableNames)
        if (const char* value = std::getenv(name))
            variables.emplace(name, value);
    return variables;
}

unsigned& Generation() {
    static unsigned generation = 0;
    return generation;
}

ParsedEnvironment& Parsed() {
    static auto* parsed = new ParsedEnvironment(ParseEnvironment(ProcessVariables()));
    return *parsed;
}

} // namespace

ParsedEnvironment ParseEnvironment(const Variables& variables) {
    return Parser{variables}.Parse();
}

const Environment& TheEnvironment() {
    return Parsed().environment;
}

const std::optional<std::string>& EnvironmentError() {
    return Parsed().error;
}

void ReplaceEnvironment(const Variables& variables) {
    Parsed() = ParseEnvironment(variables);
    ++Generation();
}

unsigned EnvironmentGeneration() {
    return Generation();
}

} // namespace device
