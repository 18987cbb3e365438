#include "hosts/window/display.h"
#include "hosts/window/native_window.h"
#include "platform/system/environment.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace device {

namespace {

constexpr Uint32 FillsDisplay = SDL_WINDOW_MAXIMIZED | SDL_WINDOW_FULLSCREEN | SDL_WINDOW_FULLSCREEN_DESKTOP;

std::string MemoryFile() {
    return TheEnvironment().registryFile + ".window";
}

SIZE Larger(SIZE first, SIZE second) {
    return {std::max(first.cx, second.cx), std::max(first.cy, second.cy)};
}

} // namespace

WindowHost::Window::Window()
    : screen(TheEnvironment().screen)
    , isGiven(IsSet("HANDSET_SCREEN") || TheEnvironment().zoom.has_value()) {
    if (const auto remembered = isGiven ? std::nullopt : RememberedSize::Load(MemoryFile())) {
        chosen = *remembered;
        screen = chosen.screen;
        isRemembered = true;
    }
    screen = Larger(screen, LeastScreen());
    chosen.screen = screen;
}

/// Where neither a person nor a former run has said anything.
void WindowHost::Window::ChooseFirstZoom() {
    room = RoomOfDisplay(handle, TheEnvironment().screen);
    if (isRemembered)
        return;
    chosen.zoom = TheEnvironment().zoom.value_or(FirstZoom(chosen.screen, room)) / room.zoom;
    chosen.isFixed = isGiven;
}

/// The size is the person's own to choose, so it is worth keeping.
bool WindowHost::Window::IsFree() const {
    return (SDL_GetWindowFlags(handle) & FillsDisplay) == 0;
}

/// In pixels; by the chosen zoom as far as there is room.
SIZE WindowHost::Window::AskedSize() const {
    return FitRoom(InPixels(chosen.screen, std::min(chosen.zoom * room.zoom, LargestZoom(room))), room);
}

/// A free window grows and shrinks with the zoom, so that its screen holds as much as before, as far as there is room.
/// Whether it does.
bool WindowHost::Window::ApplyZoom() {
    isResized = true;
    if (!IsFree())
        return false;
    const auto inPoints = [scale = PixelsPerPoint(handle)](SIZE pixels) { return InPixels(pixels, 1.0 / scale); };
    const double leastZoom = chosen.isFixed ? chosen.zoom * room.zoom : room.zoom;
    const SIZE least = inPoints(FitRoom(InPixels(LeastScreen(), std::min(leastZoom, LargestZoom(room))), room));
    asked = inPoints(AskedSize());
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(handle, &width, &height); // before the least size, which may make it larger where it stands
    SDL_SetWindowMinimumSize(handle, least.cx, least.cy);
    if (width == asked.cx && height == asked.cy)
        return false; // asking again costs a dozen answers of the display
    SDL_SetWindowSize(handle, asked.cx, asked.cy);
    MoveInside();
    return true;
}

/// A window that grew grew downwards and to the right, where its soft keys may be off the display.
void WindowHost::Window::MoveInside() const {
    SDL_Rect usable;
    SDL_Rect frame{};
    SDL_Rect window;
    if (SDL_GetDisplayUsableBounds(std::max(SDL_GetWindowDisplayIndex(handle), 0), &usable) != 0)
        return;
    SDL_GetWindowBordersSize(handle, &frame.y, &frame.x, &frame.h, &frame.w);
    SDL_GetWindowPosition(handle, &window.x, &window.y);
    SDL_GetWindowSize(handle, &window.w, &window.h);
    const int x = std::max(usable.x + frame.x, std::min(window.x, usable.x + usable.w - frame.w - window.w));
    const int y = std::max(usable.y + frame.y, std::min(window.y, usable.y + usable.h - frame.h - window.h));
    if (x != window.x || y != window.y)
        SDL_SetWindowPosition(handle, x, y);
}

void WindowHost::Window::FixZoom(double fixed) {
    if (chosen.isFixed && std::min(fixed * room.zoom, LargestZoom(room)) == zoom)
        return;
    chosen.zoom = fixed;
    chosen.isFixed = true;
    ApplyZoom();
}

void WindowHost::Window::FreeZoom() {
    chosen.zoom = FirstZoom(TheEnvironment().screen, room) / room.zoom;
    chosen.isFixed = false;
    ApplyZoom();
}

bool WindowHost::Window::Obey(Keyboard::HostCommand command) {
    switch (command) {
    case Keyboard::HostCommand::None:
        return false;
    case Keyboard::HostCommand::Held:
        break;
    case Keyboard::HostCommand::ZoomIn:
        FixZoom(LargerZoom(zoom / room.zoom));
        break;
    case Keyboard::HostCommand::ZoomOut:
        FixZoom(SmallerZoom(zoom / room.zoom));
        break;
    case Keyboard::HostCommand::ZoomReset:
        FreeZoom();
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
void WindowHost::Window::NoteSize(const ZoomedScreen& now) {
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(handle, &width, &height);
    if (!IsFree() || (width == asked.cx && height == asked.cy))
        return;
    asked = {};
    chosen.screen = now.screen;
    if (!chosen.isFixed)
        chosen.zoom = now.zoom / room.zoom;
}

/// The window was shown, and has a frame now, or stands on another display. Where the room is what it was, a person who
/// makes the window larger than that is not corrected.
void WindowHost::Window::ApplyRoom() {
    const DisplayRoom before = std::exchange(room, RoomOfDisplay(handle, TheEnvironment().screen));
    SIZE size;
    SDL_GetWindowSizeInPixels(handle, &size.cx, &size.cy);
    if (room.zoom != before.zoom || (Fits(size, before) && !Fits(size, room)))
        ApplyZoom();
}

void WindowHost::Window::ApplyResize() {
    if (std::exchange(isMoved, false))
        ApplyRoom();
    isResized = false;
    int width = 0;
    int height = 0;
    SDL_GetWindowSizeInPixels(handle, &width, &height);
    const ZoomWish wish{
        TheEnvironment().screen, chosen.isFixed ? std::optional(chosen.zoom * room.zoom) : std::nullopt};
    const ZoomedScreen now = ZoomFor({width, height}, room, wish);
    NoteSize(now);
    zoom = now.zoom;
    const SIZE size = now.screen;
    if (size.cx == screen.cx && size.cy == screen.cy && zoom == canvas->Zoom()) {
        CopyAll();
        return;
    }
    screen = size;
    canvas->Resize(screen, zoom);
    isPainted = false;
    isFlashShown = false;
    events.push_back({.kind = InputEvent::Kind::Resize, .x = size.cx, .y = size.cy});
}

} // namespace device
