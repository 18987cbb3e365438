#include "platform/daily_copy.h"

#include "platform/registry.h"
#include "platform/system/clock.h"
#include "platform/system/environment.h"
#include "platform/system/fresh_file.h"
#include "platform/system/troubles.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <set>

namespace device {
namespace {

constexpr std::string_view Pattern = "0000-00-00.dat";
constexpr std::size_t MonthLength = 7; // of "2026-03"
constexpr std::size_t MostDays = 10;
constexpr std::size_t MostMonths = 12;

bool IsCopyName(const std::string& name) {
    return std::equal(name.begin(), name.end(), Pattern.begin(), Pattern.end(), [](char given, char wanted) {
        return wanted == '0' ? std::isdigit(static_cast<unsigned char>(given)) != 0 : given == wanted;
    });
}

/// The newest first.
std::vector<std::filesystem::path> CopiesIn(const std::string& folder) {
    std::vector<std::filesystem::path> copies;
    std::error_code error;
    std::filesystem::directory_iterator place{folder, error};
    for (; !error && place != std::filesystem::directory_iterator{}; place.increment(error))
        if (IsCopyName(place->path().filename().string()) && place->is_regular_file(error))
            copies.push_back(place->path());
    std::sort(copies.rbegin(), copies.rend());
    return copies;
}

} // namespace

DailyCopy::DailyCopy()
    : folder_(TheEnvironment().copiesFolder) {
    const SYSTEMTIME today = LocalCalendarTime(UtcNow());
    char name[64];
    std::snprintf(name, sizeof name, "%04d-%02d-%02d.dat", today.wYear, today.wMonth, today.wDay);
    name_ = name;
}

bool DailyCopy::HasFormer() const {
    return !CopiesIn(folder_).empty();
}

bool DailyCopy::IsNewest(std::string_view bytes) const {
    const auto copies = CopiesIn(folder_);
    FileDescriptor file;
    std::string newest;
    return !copies.empty() && OpenToRead(copies.front(), file) == ERROR_SUCCESS
        && ReadWhole(file, MostBytes, newest) == ERROR_SUCCESS && newest == bytes;
}

void DailyCopy::Keep(std::string_view bytes, const std::function<bool(const std::string&)>& isSound) const {
    if (const std::string reason = TryToKeep(bytes, isSound); !reason.empty())
        Fail(reason);
    else
        TakeAwayOld();
}

std::string DailyCopy::TryToKeep(std::string_view bytes, const std::function<bool(const std::string&)>& isSound) const {
    if (bytes.size() > MostBytes)
        return "it has more than 200 MB";
    if (const LONG error = MakeFolders(folder_))
        return ReasonOf(error);
    FreshFile copy(folder_ + '/' + name_, FreshFile::Kind::Replacement);
    LONG error = copy.Error();
    if (error == ERROR_SUCCESS)
        error = WriteAll(copy.File(), bytes);
    if (error == ERROR_SUCCESS && !isSound(copy.Name()))
        return "what was written is damaged";
    if (error == ERROR_SUCCESS)
        error = copy.TakeName();
    return error == ERROR_SUCCESS ? "" : ReasonOf(error);
}

void DailyCopy::TakeAwayOld() const {
    std::set<std::string> months;
    std::size_t days = 0;
    std::uintmax_t bytes = 0;
    for (const auto& copy : CopiesIn(folder_)) {
        std::error_code error;
        const bool isNewOfMonth = months.insert(copy.filename().string().substr(0, MonthLength)).second;
        const bool isWanted = ++days <= MostDays || (isNewOfMonth && months.size() <= MostMonths);
        bytes += isWanted ? std::filesystem::file_size(copy, error) : 0;
        if (!isWanted || bytes > MostBytes)
            std::filesystem::remove(copy, error);
    }
}

void DailyCopy::Fail(const std::string& reason) const {
    NoteTrouble(Trouble::Copies, "no copy of the log was made as " + folder_ + '/' + name_ + ": " + reason);
}

} // namespace device
