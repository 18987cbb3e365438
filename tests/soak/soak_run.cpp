#include "soak_run.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sqlite3.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr int LockWaitMilliseconds = 30'000;
constexpr const char* OrderlyEnd = "exit 1 (status 1)";
constexpr const char* MemoryFolder = "/dev/shm";
/// Other than any status of the program's own, so that a sanitizer's report is not taken for an end in order.
constexpr const char* SanitizerStatus = ":exitcode=99";

bool StartsWith(const std::string& text, const std::string& start) {
    return text.rfind(start, 0) == 0;
}

/// The text between the first and the last quotation mark.
std::string QuotedPart(const std::string& line) {
    const std::size_t first = line.find('"');
    return first == std::string::npos ? std::string() : line.substr(first + 1, line.rfind('"') - first - 1);
}

int AddFirst(void* rows, int /*count*/, char** values, char** /*names*/) {
    static_cast<Lines*>(rows)->emplace_back(values[0] ? values[0] : "");
    return 0;
}

} // namespace

Handset::Handset(Place place) {
    const bool inMemory = place == Place::Memory && access(MemoryFolder, W_OK | X_OK) == 0;
    std::string pattern = (inMemory ? fs::path(MemoryFolder) : fs::temp_directory_path()) / "soak-XXXXXX";
    Require(mkdtemp(pattern.data()) != nullptr, "no temporary folder");
    Folder = pattern;
    fs::create_directories(Documents());
    fs::create_directory(Folder / "runtime");
    fs::permissions(Folder / "runtime", fs::perms::owner_all);
    const char* options = std::getenv("ASAN_OPTIONS");
    Surroundings = {{"HANDSET_STORAGE", (Folder / "storage").string()}, {"HANDSET_LOCALE", "en_US"},
        {"XDG_RUNTIME_DIR", (Folder / "runtime").string()}, {"TZ", "UTC"}, {"HANDSET_CLOCK", "2026-03-01T10:00:00Z"},
        {"ASAN_OPTIONS", (options ? options : "") + std::string(SanitizerStatus)}};
}

Handset::~Handset() {
    std::error_code ignored;
    fs::remove_all(Folder, ignored);
}

LogFile::LogFile(const std::string& path)
    : connection_(nullptr, sqlite3_close_v2) {
    sqlite3* raw = nullptr;
    const int opened = sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
    connection_.reset(raw);
    Require(opened == SQLITE_OK, path + ": " + sqlite3_errmsg(raw));
    sqlite3_busy_timeout(raw, LockWaitMilliseconds);
}

Lines LogFile::Column(const std::string& sql) {
    Lines rows;
    const int result = sqlite3_exec(connection_.get(), sql.c_str(), AddFirst, &rows, nullptr);
    Require(result == SQLITE_OK, sql + ": " + sqlite3_errmsg(connection_.get()));
    return rows;
}

std::string LogFile::Text(const std::string& sql) {
    const Lines rows = Column(sql);
    return rows.empty() ? std::string() : rows.front();
}

void LogFile::RequireIntegrity() {
    const std::string found = Text("PRAGMA integrity_check");
    Require(found == "ok", "integrity check: " + found);
}

View Look(ConsoleProcess& console) {
    View view;
    bool listed = false;
    for (const std::string& line : console.Ask("controls")) {
        const bool shown = line.find(" hidden ") == std::string::npos;
        if (StartsWith(line, "title "))
            view.title = QuotedPart(line);
        else if (StartsWith(line, "softkey left "))
            view.left = QuotedPart(line);
        else if (StartsWith(line, "softkey right "))
            view.right = QuotedPart(line);
        else if (StartsWith(line, "- Static "))
            view.text = QuotedPart(line);
        else if (StartsWith(line, "item ") || StartsWith(line, "popup "))
            view.items.push_back(line);
        else if (line.find(" SysListView32 ") != std::string::npos)
            listed = shown;
        else if (StartsWith(line, "  row ") && listed)
            view.rows.push_back(line.substr(line.find("image=")));
        view.isVehicles |= StartsWith(line, "33769 ") && shown;
        view.isLog |= StartsWith(line, "33770 ") && shown;
    }
    view.isMenu = !view.items.empty();
    return view;
}

View GoHome(ConsoleProcess& console, int mostSteps) {
    for (int step = 0; step < mostSteps; ++step) {
        View view = Look(console);
        if (view.IsHome())
            return view;
        Lines answer;
        if (view.isMenu)
            answer = console.Ask("key back");
        else if (view.right == "Menu")
            answer = console.AskAll({"key soft2", "key up", "key action"}); // the last item is "Cancel" or "Done"
        else
            answer = console.Ask(view.left == "OK" ? "key soft1" : "key soft2");
        if (!console.IsRunning()) {
            Require(answer.back() == OrderlyEnd, "on the way out of [" + view.title + "]: " + answer.back());
            return {};
        }
    }
    throw std::runtime_error("no way out of [" + Look(console).title + "]");
}

void PostClose(ConsoleProcess& console) {
    const Lines answer = console.Ask("post close");
    Require(answer == Lines{OrderlyEnd}, "post close: " + (answer.empty() ? "no end" : answer.back()));
}

std::string FileBytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteBytes(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

void Require(bool holds, const std::string& what) {
    if (!holds)
        throw std::runtime_error(what);
}

int RunSoak(int count, char** arguments, const Soak& soak) {
    long wanted = soak.count;
    unsigned long first = 1;
    long seconds = 24L * 60 * 60;
    for (int i = 2; i + 1 < count; i += 2) {
        const std::string name = arguments[i];
        const long value = std::strtol(arguments[i + 1], nullptr, 10);
        if (name == "--count")
            wanted = value;
        else if (name == "--seed")
            first = static_cast<unsigned long>(value);
        else if (name == "--seconds")
            seconds = value;
    }
    if (count < 2 || count % 2 != 0) {
        std::cerr << soak.name << " CONSOLE [--count N] [--seed S] [--seconds T]\n";
        return 2;
    }
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    const auto elapsed = [&] { return std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begin).count(); };
    unsigned long seed = first;
    long done = 0;
    for (; done < wanted && elapsed() < seconds; ++seed) {
        try {
            done += soak.round(arguments[1], seed);
        } catch (const std::exception& fault) {
            std::cout << soak.name << " FAILED, repeat with --seed " << seed << " --count 1: " << fault.what() << '\n';
            return 1;
        }
    }
    std::cout << soak.name << ": " << done << ' ' << soak.summary() << "; seeds " << first << " to " << seed - 1
              << " in " << elapsed() << " s\n";
    return 0;
}
