#include "platform/drawing/device_face.h"

#include <algorithm>
#include <cstdlib>
#include <fontconfig/fontconfig.h>
#include <string>

namespace device {

namespace {

/// Where systems keep the face.
constexpr const char* Folders[] = {"/usr/share/fonts/truetype/dejavu", "/usr/share/fonts/dejavu-sans-fonts",
    "/usr/share/fonts/dejavu", "/usr/share/fonts/TTF"};

struct Range {
    char32_t first;
    char32_t last;
};

/// Latin, Greek and Cyrillic letters, and the marks that numbers, prices and sentences are written with.
constexpr Range Own[]
    = {{0x20, 0x7E}, {0xA0, 0x24F}, {0x386, 0x3CE}, {0x400, 0x45F}, {0x2007, 0x200A}, {0x2010, 0x2015},
        {0x2018, 0x201E}, {0x2020, 0x2022}, {0x2026, 0x2026}, {0x202F, 0x2030}, {0x20AC, 0x20AC}, {0x2212, 0x2212}};

bool HasFace(FcConfig* config) {
    FcPattern* wanted = FcPatternBuild(nullptr, FC_FAMILY, FcTypeString, DeviceFace, nullptr);
    FcObjectSet* objects = FcObjectSetBuild(FC_FAMILY, nullptr);
    FcFontSet* found = FcFontList(config, wanted, objects);
    const bool has = found != nullptr && found->nfont > 0;
    if (found != nullptr)
        FcFontSetDestroy(found);
    FcObjectSetDestroy(objects);
    FcPatternDestroy(wanted);
    return has;
}

} // namespace

bool UseDeviceFaceAlone() {
    if (std::getenv("FONTCONFIG_FILE") != nullptr || std::getenv("FONTCONFIG_PATH") != nullptr)
        return false;
    FcConfig* config = FcConfigCreate();
    std::string list = "<fontconfig><cachedir>/var/cache/fontconfig</cachedir>"
                       "<cachedir prefix=\"xdg\">fontconfig</cachedir>";
    for (const char* folder : Folders)
        list += std::string("<dir>") + folder + "</dir>";
    list += "</fontconfig>";
    const bool isUsed
        = FcConfigParseAndLoadFromMemory(config, reinterpret_cast<const FcChar8*>(list.c_str()), FcTrue) != 0
        && FcConfigBuildFonts(config) != 0 && HasFace(config) && FcConfigSetCurrent(config) != 0;
    FcConfigDestroy(config); // the process holds its own
    return isUsed;
}

void UseAllFaces() {
    FcConfig* config = FcInitLoadConfigAndFonts();
    FcConfigSetCurrent(config);
    FcConfigDestroy(config);
}

bool IsInDeviceFace(std::wstring_view text) {
    return std::all_of(text.begin(), text.end(), [](wchar_t character) {
        const auto point = static_cast<char32_t>(character);
        return std::any_of(std::begin(Own), std::end(Own),
            [point](const Range& range) { return range.first <= point && point <= range.last; });
    });
}

} // namespace device
