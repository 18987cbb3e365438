#include "hosts/window/display.h"
#include "hosts/window/native_window.h"
#include "platform/metrics.h"
#include "platform/system/environment.h"
#include "platform/windowing/look.h"

#include <algorithm>
#include <utility>

namespace device {

namespace {

constexpr Uint32 FillsDisplay = SDL_WINDOW_MAXIMIZED | SDL_WINDOW_FULLSCREEN | SDL_WINDOW_FULLSCREEN_DESKTOP;

std::string MemoryFile() {
    return TheEnvironment().registryFile + ".window";
}

/// On which the soft keys and one row of a list can be read.
SIZE LeastScreen() {
    return {Scaled(176), TitleHeight() + Scaled(60) + SoftKeyBarHeight()};
}

SIZE Larger(SIZE first, SIZE second) {
    return {std::max(first.cx, second.cx), std::max(first.cy, second.cy)};
}

SIZE Smaller(SIZE first, SIZE second) {
    return {std::min(first.cx, second.cx), std::min(first.cy, second.cy)};
}

} // namespace

WindowHost::Window::Window()
    : screen(TheEnvironment().screen)
    , isGiven(IsSet("HANDSET_SCREEN") || TheEnvironment().zoom.has_value()) {
    if (const auto remembered = isGiven ? std::nullopt : RememberedSize::Load(MemoryFile())) {
        chosen = *remembered;
        screen = chosen.screen;
    }
    screen = Larger(screen, LeastScreen());
    chosen.screen = screen;
}

/// The size is the person's own to choose, so it is worth keeping.
bool WindowHost::Window::IsFree() const {
    return (SDL_GetWindowFlags(handle) & FillsDisplay) == 0;
}

/// A free window grows and shrinks with the zoom, so that its screen holds as much as before, as far as there is room.
/// Whether it does.
bool WindowHost::Window::ApplyZoom() {
    zoom = TheEnvironment().zoom.value_or(displayZoom) * chosen.zoom;
    isResized = true;
    if (!IsFree())
        return false;
    const auto inPoints = [scale = PixelsPerPoint(handle), this](SIZE size) {
        return SIZE{InImage(size.cx, zoom / scale), InImage(size.cy, zoom / scale)};
    };
    asked = inPoints(chosen.screen);
    SIZE least = inPoints(LeastScreen());
    SDL_Rect room;
    const int display = std::max(SDL_GetWindowDisplayIndex(handle), 0);
    if (SDL_GetDisplayUsableBounds(display, &room) == 0 && room.w > 0 && room.h > 0) {
        least = Smaller(least, {room.w, room.h});
        if (!isGiven)
            asked = Smaller(asked, {room.w, room.h});
    }
    SDL_SetWindowMinimumSize(handle, least.cx, least.cy);
    askedFor = chosen.screen;
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(handle, &width, &height);
    if (width == asked.cx && height == asked.cy)
        return false; // asking again costs a dozen answers of the display
    SDL_SetWindowSize(handle, asked.cx, asked.cy);
    return true;
}

void WindowHost::Window::ChangeZoom(double chosenZoom) {
    if (chosenZoom == chosen.zoom)
        return;
    chosen.zoom = chosenZoom;
    ApplyZoom();
}

bool WindowHost::Window::Obey(Keyboard::HostCommand command) {
    switch (command) {
    case Keyboard::HostCommand::None:
        return false;
    case Keyboard::HostCommand::Held:
        break;
    case Keyboard::HostCommand::ZoomIn:
        ChangeZoom(LargerZoom(chosen.zoom));
        break;
    case Keyboard::HostCommand::ZoomOut:
        ChangeZoom(SmallerZoom(chosen.zoom));
        break;
    case Keyboard::HostCommand::ZoomReset:
        ChangeZoom(1.0);
        break;
    case Keyboard::HostCommand::Close:
        Add(InputEvent::Kind::Close);
        break;
    case Keyboard::HostCommand::FullScreen:
        SDL_SetWindowFullscreen(
            handle, (SDL_GetWindowFlags(handle) & SDL_WINDOW_FULLSCREEN) != 0 ? 0 : SDL_WINDOW_FULLSCREEN_DESKTOP);
        break;
    }
    return true;
}

void WindowHost::Window::Remember() const {
    // What was never shown gave way to a first instance, whose size it is.
    if (isGiven || handle == nullptr || (SDL_GetWindowFlags(handle) & SDL_WINDOW_HIDDEN) != 0)
        return;
    if (RememberedSize::Load(MemoryFile()) != chosen)
        chosen.Store(MemoryFile());
}

/// A size that is not the one asked for is the person's own wish. One that is stands for the screen it was asked for,
/// which may have been more than the display had room for.
void WindowHost::Window::NoteSize(SIZE now) {
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(handle, &width, &height);
    if (IsFree())
        chosen.screen = width == asked.cx && height == asked.cy ? askedFor : now;
}

void WindowHost::Window::ApplyResize() {
    if (isMoved) {
        isMoved = false;
        const double before = std::exchange(displayZoom, ZoomOfDisplay(handle, TheEnvironment().screen));
        if (displayZoom != before)
            ApplyZoom();
    }
    isResized = false;
    int width = 0;
    int height = 0;
    SDL_GetWindowSizeInPixels(handle, &width, &height);
    const auto inDevice = [this](int pixels) { return std::max(1, static_cast<int>(pixels / zoom + 0.001)); };
    const SIZE size{inDevice(width), inDevice(height)};
    NoteSize(size);
    if (size.cx == screen.cx && size.cy == screen.cy && zoom == canvas->Zoom()) {
        CopyAll();
        return;
    }
    screen = size;
    canvas->Resize(screen, zoom);
    isPainted = false;
    InputEvent event;
    event.kind = InputEvent::Kind::Resize;
    event.x = size.cx;
    event.y = size.cy;
    events.push_back(event);
}

} // namespace device
