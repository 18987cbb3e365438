#include "platform/system/time_zone.h"

#include <cstdlib>
#include <filesystem>
#include <regex>

namespace device {
namespace {

std::filesystem::path ZoneFolder() {
    const char* folder = std::getenv("TZDIR");
    return folder != nullptr && *folder != '\0' ? folder : "/usr/share/zoneinfo";
}

/// A rule written out, as "CET-1CEST,M3.5.0,M10.5.0/3" or "<+0330>-3:30".
bool IsRule(const std::string& zone) {
    static const char* const Pattern = "(UTC|GMT|(([A-Za-z]{3,}|<[A-Za-z0-9+-]{3,}>)"
                                       "[+-]?[0-9]{1,2}(:[0-9]{1,2}){0,2}"
                                       "(([A-Za-z]{3,}|<[A-Za-z0-9+-]{3,}>)([+-]?[0-9]{1,2}(:[0-9]{1,2}){0,2})?"
                                       "(,[MJ0-9./:+-]+,[MJ0-9./:+-]+)?)?))";
    return zone.size() < 128 && std::regex_match(zone, std::regex{Pattern});
}

} // namespace

bool IsTimeZone(std::string zone) {
    if (!zone.empty() && zone.front() == ':')
        zone.erase(0, 1);
    std::error_code error;
    const std::filesystem::path folder = ZoneFolder();
    if (zone.empty() || std::filesystem::is_regular_file(folder / zone, error) || IsRule(zone))
        return true;
    // A host without zone data cannot tell a zone that it lacks from one that nobody has.
    return !std::filesystem::is_directory(folder, error) && zone.find(' ') == std::string::npos;
}

} // namespace device
