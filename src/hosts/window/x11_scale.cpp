// Apart from the rest: the headers of X define words such as None and Status.

#include "hosts/window/x11_scale.h"

#include <SDL_syswm.h>
#include <X11/Xlib.h>
#include <charconv>
#include <string_view>

namespace device {

std::optional<double> AskedDpi(SDL_Window* window) {
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    if (SDL_GetWindowWMInfo(window, &info) != SDL_TRUE || info.subsystem != SDL_SYSWM_X11)
        return std::nullopt;
    const char* value = XGetDefault(info.info.x11.display, "Xft", "dpi");
    const std::string_view text = value != nullptr ? value : "";
    double dpi = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), dpi);
    if (read.ec != std::errc() || !(dpi > 0))
        return std::nullopt;
    return dpi;
}

} // namespace device
