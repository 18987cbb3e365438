#include "soak_run.h"

#include <cstdlib>
#include <fstream>

namespace fs = std::filesystem;

namespace {

/// Other than any status of the program's own, so that a sanitizer's report is not taken for an end in order.
constexpr const char* SanitizerStatus = ":exitcode=99";

/// The text between the first and the last quotation mark.
std::string QuotedPart(const std::string& line) {
    const std::size_t first = line.find('"');
    return first == std::string::npos ? std::string() : line.substr(first + 1, line.rfind('"') - first - 1);
}

} // namespace

void Require(bool holds, const std::string& what) {
    if (!holds)
        throw std::runtime_error(what);
}

void RequireSame(const std::string& what, const std::string& wanted, const std::string& got) {
    Require(wanted == got, what + " should be\n" + wanted + "\nbut is\n" + got);
}

std::string FileBytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

Round::Round(const std::string& program, unsigned long seed, std::string pattern)
    : Folder(mkdtemp(pattern.data()) ? pattern : throw std::runtime_error("no temporary folder"))
    , Console(std::make_unique<ConsoleProcess>(program))
    , random_(seed) {
    const fs::path runtime = Folder / "runtime";
    fs::create_directories(fs::path(DataFile()).parent_path());
    fs::create_directory(runtime);
    fs::permissions(runtime, fs::perms::owner_all);
    const char* options = std::getenv("ASAN_OPTIONS");
    Surroundings = {{"HANDSET_STORAGE", Storage}, {"HANDSET_LOCALE", "en_US"}, {"XDG_RUNTIME_DIR", runtime},
        {"TZ", "UTC"}, {"HANDSET_CLOCK", "2026-03-01T10:00:00.789Z"},
        {"ASAN_OPTIONS", (options ? options : "") + std::string(SanitizerStatus)}};
}

Round::~Round() {
    Console.reset();
    std::error_code ignored;
    fs::remove_all(Folder, ignored);
}

View Round::Look() {
    const std::pair<const char*, std::string View::*> texts[] = {{"title ", &View::title},
        {"softkey left ", &View::left}, {"softkey right ", &View::right}, {"- Static ", &View::text}};
    View view;
    bool listed = false;
    for (const std::string& line : Console->Ask("controls")) {
        const auto starts = [&line](const char* with) { return line.rfind(with, 0) == 0; };
        const bool shown = line.find(" hidden ") == std::string::npos;
        for (const auto& [with, text] : texts)
            if (starts(with))
                view.*text = QuotedPart(line);
        if (starts("item ") || starts("popup "))
            view.items.push_back(line);
        else if (line.find(" SysListView32 ") != std::string::npos)
            listed = shown;
        else if (starts("  row ") && listed)
            view.rows.push_back(line.substr(line.find("image=")));
        view.isVehicles |= starts("33769 ") && shown;
        view.isLog |= starts("33770 ") && shown;
    }
    return view;
}

View Round::GoHome(int mostSteps, const std::string& end) {
    std::string told;
    for (int step = 0; step < mostSteps; ++step) {
        View view = Look();
        view.text = told += view.text;
        if (view.IsHome())
            return view;
        Lines way{view.left == "OK" ? "key soft1" : "key soft2"};
        if (!view.items.empty())
            way = {"key back"};
        else if (view.right == "Menu")
            way = {"key soft2", "key up", "key action"}; // the last item is "Cancel" or "Done"
        const Lines answer = Console->AskAll(way);
        if (!Console->IsRunning()) {
            RequireSame("the end on the way out of [" + view.title + "]", end, answer.back());
            return view;
        }
    }
    throw std::runtime_error("no way out of [" + Look().title + "]");
}

View Round::Open(int mostSteps, const std::string& end) {
    Console->Start(Surroundings);
    Console->Ask("boot");
    View view = GoHome(mostSteps, end);
    if (view.isVehicles && view.rows.empty())
        Console->AskAll({"key soft1", "key 1", "type Van", "key soft1"});
    if (view.isVehicles)
        Console->AskAll({"key down", "key action"});
    return view;
}

Lines Round::FuelEntry(long odometer) {
    return {"key soft1", "key 2", "key down", "type " + std::to_string(odometer), "key down", "type 1", "key soft1"};
}

void Round::PostClose() {
    const Lines answer = Console->Ask("post close");
    RequireSame("the end", OrderlyEnd, answer.empty() ? "none" : answer.back());
}
