#include "hosts/window/display.h"

#include "hosts/window/x11_scale.h"
#include "platform/drawing/cairo/pixel_image.h"
#include "platform/drawing/picture.h"

#include <SDL.h>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string_view>

namespace device {

namespace {

constexpr double DesktopDpi = 96.0;
constexpr int IconSize = 64;

/// A driver that shows nothing is taken only when it was asked for by name.
bool IsBlindDriver(std::string_view driver) {
    return driver == "dummy" || driver == "offscreen" || driver == "evdev";
}

double ZoomByDensity(SDL_Window* window, int display) {
    float physical = 0;
    double dpi = DesktopDpi;
    // What the user asked for counts before what the display is.
    if (const auto asked = AskedDpi(window))
        dpi = *asked;
    else if (SDL_GetDisplayDPI(display, nullptr, nullptr, &physical) == 0)
        dpi = double{physical};
    return std::clamp(std::round(dpi / DesktopDpi * 2.0) / 2.0, 1.0, 4.0);
}

constexpr const char* NoDisplay = "no display answers; start it inside a desktop session, or set DISPLAY to one";

} // namespace

bool IsSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool InitVideo(std::string& error) {
    // Libraries below SDL complain on their own where there is nothing to connect to.
    if (!IsSet("DISPLAY") && !IsSet("WAYLAND_DISPLAY") && !IsSet("SDL_VIDEODRIVER")) {
        error = NoDisplay;
        return false;
    }
    if (!IsSet("WAYLAND_DISPLAY") && !IsSet("SDL_VIDEODRIVER"))
        SDL_SetHint(SDL_HINT_VIDEODRIVER, "x11");
    SDL_SetMainReady();
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        error = std::string(NoDisplay) + " (" + SDL_GetError() + ")";
    } else if (IsBlindDriver(SDL_GetCurrentVideoDriver()) && !IsSet("SDL_VIDEODRIVER")) {
        error = NoDisplay;
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
    } else {
        return true;
    }
    std::replace(error.begin(), error.end(), '\n', ' ');
    return false;
}

double PixelsPerPoint(SDL_Window* window) {
    int points = 0;
    int pixels = 0;
    SDL_GetWindowSize(window, &points, nullptr);
    SDL_GetWindowSizeInPixels(window, &pixels, nullptr);
    return points > 0 && pixels > 0 ? static_cast<double>(pixels) / points : 1.0;
}

DisplayRoom RoomOfDisplay(SDL_Window* window, SIZE screen) {
    DisplayRoom room;
    const double scale = PixelsPerPoint(window);
    const int display = std::max(SDL_GetWindowDisplayIndex(window), 0);
    SDL_Rect usable;
    if (SDL_GetDisplayUsableBounds(display, &usable) == 0)
        room.usable = InPixels({usable.w, usable.h}, scale);
    int top = 0;
    int left = 0;
    int bottom = 0;
    int right = 0;
    if (SDL_GetWindowBordersSize(window, &top, &left, &bottom, &right) == 0)
        room.frame = InPixels({left + right, top + bottom}, scale);
    room.zoom = scale > 1.0 ? scale : ZoomByDensity(window, display);
    while (scale <= 1.0 && room.zoom > 1.0 && !Fits(InPixels(screen, room.zoom), room))
        room.zoom -= 0.5;
    return room;
}

void SetProgramIcon(SDL_Window* window) {
    const HINSTANCE module = GetModuleHandleW(nullptr);
    if (module == nullptr || module->images.empty())
        return;
    const auto first = std::min_element(module->images.begin(), module->images.end(),
        [](const ImageResource& a, const ImageResource& b) { return a.id < b.id; });
    const Picture picture = FindPicture(module, first->id);
    const ImageResource* image = BestSize(picture, IconSize);
    if (image == nullptr)
        return;
    std::optional<PixelImage> pixels = DecodePixels(*image);
    if (!pixels)
        return;
    SDL_Surface* icon = SDL_CreateRGBSurfaceWithFormatFrom(pixels->argb.data(), pixels->width, pixels->height, 32,
        pixels->width * static_cast<int>(sizeof(std::uint32_t)), SDL_PIXELFORMAT_ARGB8888);
    if (icon == nullptr)
        return;
    SDL_SetWindowIcon(window, icon);
    SDL_FreeSurface(icon);
}

} // namespace device
