#include "hosts/window/window_host.h"

#include "hosts/window/display.h"
#include "hosts/window/keyboard.h"
#include "hosts/window/remembered_size.h"
#include "hosts/window/tone.h"
#include "platform/drawing/cairo_canvas.h"
#include "platform/drawing/rectangles.h"
#include "platform/system/environment.h"
#include "platform/system/utf8.h"

#include <SDL.h>
#include <algorithm>
#include <atomic>
#include <cmath>
#include <deque>
#include <utility>

namespace device {

namespace {

constexpr char FirstTitle[] = "Handset";
constexpr float LinesPerWheelStep = 3.0F;
constexpr int ToneCheckMilliseconds = 100;
constexpr Uint32 FillsDisplay = SDL_WINDOW_MAXIMIZED | SDL_WINDOW_FULLSCREEN | SDL_WINDOW_FULLSCREEN_DESKTOP;

std::string MemoryFile() {
    return TheEnvironment().registryFile + ".window";
}

} // namespace

struct WindowHost::Window {
    Window();
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    bool Create();
    void ApplyZoom();
    void ApplyResize();
    void ChangeZoom(double chosen);
    void NoteSize(SIZE now);
    bool Obey(Keyboard::HostCommand command);
    bool IsFree() const;
    void Remember() const;
    void CopyToWindow(const RECT& imagePlace);
    void CopyAll();
    bool WaitForEvent(SDL_Event& event);
    void Translate(const SDL_Event& event);
    void TranslateWindow(const SDL_WindowEvent& event);
    void TranslateButton(const SDL_MouseButtonEvent& event);
    void TranslateWheel(const SDL_MouseWheelEvent& event);
    void AddMouse(InputEvent::Kind kind, int x, int y, int delta = 0);

    SDL_Window* handle = nullptr;
    SIZE screen;
    double zoom = 1.0; ///< image pixels a device pixel: the display's own by what was chosen
    double displayZoom = 1.0;
    SIZE asked{}; ///< what the window was asked to be, in points
    SIZE askedFor{}; ///< the screen that would need
    RememberedSize chosen; ///< the zoom that was chosen, and the screen while the window had no display to fill
    bool isGiven = false; ///< size or zoom were told from outside: nothing is remembered then
    std::unique_ptr<CairoCanvas> canvas;
    bool isPainted = false; ///< the canvas shows something worth copying
    bool isMoved = false; ///< to another display, or the display changed
    bool isResized = false; ///< a size came that the canvas does not have yet
    bool isWoken = false;
    std::atomic<bool> wakeIsQueued = false;
    Uint32 wakeEvent = 0;
    float wheelRest = 0;
    Keyboard keyboard;
    Tone tone;
    SDL_Cursor* waitCursor = nullptr;
    std::deque<InputEvent> events;
};

WindowHost::Window::Window()
    : screen(TheEnvironment().screen)
    , isGiven(IsSet("HANDSET_SCREEN") || TheEnvironment().zoom.has_value()) {
    if (const auto remembered = isGiven ? std::nullopt : RememberedSize::Load(MemoryFile())) {
        chosen = *remembered;
        screen = chosen.screen;
    }
    chosen.screen = screen;
}

WindowHost::Window::~Window() {
    Remember();
    if (waitCursor != nullptr)
        SDL_FreeCursor(waitCursor);
    if (handle != nullptr)
        SDL_DestroyWindow(handle);
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

bool WindowHost::Window::Create() {
    constexpr Uint32 Flags = SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI;
    handle = SDL_CreateWindow(FirstTitle, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, screen.cx, screen.cy, Flags);
    if (handle == nullptr)
        return false;
    displayZoom = ZoomOfDisplay(handle, TheEnvironment().screen);
    ApplyZoom();
    SDL_SetWindowPosition(handle, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED);
    wakeEvent = SDL_RegisterEvents(1);
    canvas = std::make_unique<CairoCanvas>(screen, zoom);
    // What the desktop made of the wish comes as a resize like any other.
    isResized = true;
    SDL_StartTextInput();
    return SDL_GetWindowSurface(handle) != nullptr;
}

/// The size is the person's own to choose, so it is worth keeping.
bool WindowHost::Window::IsFree() const {
    return (SDL_GetWindowFlags(handle) & FillsDisplay) == 0;
}

/// A free window grows and shrinks with the zoom, so that its screen holds as much as before, as far as there is room.
void WindowHost::Window::ApplyZoom() {
    zoom = TheEnvironment().zoom.value_or(displayZoom) * chosen.zoom;
    isResized = true;
    if (!IsFree())
        return;
    const double scale = PixelsPerPoint(handle);
    asked = {InImage(chosen.screen.cx, zoom / scale), InImage(chosen.screen.cy, zoom / scale)};
    SDL_Rect room;
    const int display = std::max(SDL_GetWindowDisplayIndex(handle), 0);
    if (!isGiven && SDL_GetDisplayUsableBounds(display, &room) == 0 && room.w > 0 && room.h > 0)
        asked = {std::min(asked.cx, room.w), std::min(asked.cy, room.h)};
    askedFor = chosen.screen;
    SDL_SetWindowSize(handle, asked.cx, asked.cy);
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
    case Keyboard::HostCommand::ZoomIn:
        ChangeZoom(LargerZoom(chosen.zoom));
        break;
    case Keyboard::HostCommand::ZoomOut:
        ChangeZoom(SmallerZoom(chosen.zoom));
        break;
    case Keyboard::HostCommand::ZoomReset:
        ChangeZoom(1.0);
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

void WindowHost::Window::CopyToWindow(const RECT& imagePlace) {
    // Asked for each time: a resize makes the one before it invalid.
    SDL_Surface* surface = SDL_GetWindowSurface(handle);
    const SIZE size = canvas->ImageSize();
    const unsigned char* pixels = canvas->Pixels();
    const RECT place = Intersection(imagePlace, {0, 0, size.cx, size.cy});
    if (surface == nullptr || pixels == nullptr || IsRectEmpty(place))
        return;
    SDL_Surface* image = SDL_CreateRGBSurfaceWithFormatFrom(
        const_cast<unsigned char*>(pixels), size.cx, size.cy, 32, canvas->Stride(), SDL_PIXELFORMAT_RGB888); // NOLINT
    if (image == nullptr)
        return;
    SDL_Rect source{place.left, place.top, place.right - place.left, place.bottom - place.top};
    SDL_Rect target = source;
    // Clips the target to the surface, which may lag behind the window.
    if (SDL_BlitSurface(image, &source, surface, &target) == 0 && !SDL_RectEmpty(&target))
        SDL_UpdateWindowSurfaceRects(handle, &target, 1);
    SDL_FreeSurface(image);
}

void WindowHost::Window::CopyAll() {
    if (!isPainted)
        return;
    const SIZE size = canvas->ImageSize();
    if (SDL_Surface* surface = SDL_GetWindowSurface(handle)) {
        // A window is seldom a whole number of device pixels: a strip is left at its far edges.
        const SDL_Rect strips[]
            = {{size.cx, 0, surface->w - size.cx, surface->h}, {0, size.cy, surface->w, surface->h - size.cy}};
        for (const SDL_Rect& strip : strips) {
            if (SDL_RectEmpty(&strip))
                continue;
            SDL_FillRect(surface, &strip, 0);
            SDL_UpdateWindowSurfaceRects(handle, &strip, 1);
        }
    }
    CopyToWindow({0, 0, size.cx, size.cy});
}

bool WindowHost::Window::WaitForEvent(SDL_Event& event) {
    while (tone.IsOpen()) {
        if (SDL_WaitEventTimeout(&event, ToneCheckMilliseconds) != 0)
            return true;
        tone.CloseWhenOver();
    }
    return SDL_WaitEvent(&event) != 0;
}

void WindowHost::Window::AddMouse(InputEvent::Kind kind, int x, int y, int delta) {
    const double scale = PixelsPerPoint(handle) / zoom;
    InputEvent event;
    event.kind = kind;
    event.modifiers = Keyboard::Modifiers();
    event.x = static_cast<int>(std::floor(x * scale));
    event.y = static_cast<int>(std::floor(y * scale));
    event.delta = delta;
    events.push_back(event);
}

void WindowHost::Window::TranslateButton(const SDL_MouseButtonEvent& event) {
    if (event.button != SDL_BUTTON_LEFT)
        return;
    if (event.state != SDL_PRESSED)
        AddMouse(InputEvent::Kind::MouseUp, event.x, event.y);
    else if (event.clicks % 2 == 0)
        AddMouse(InputEvent::Kind::DoubleClick, event.x, event.y);
    else
        AddMouse(InputEvent::Kind::MouseDown, event.x, event.y);
}

void WindowHost::Window::TranslateWheel(const SDL_MouseWheelEvent& event) {
    // Touch pads send parts of a step.
    wheelRest += event.preciseY * LinesPerWheelStep;
    const auto lines = static_cast<int>(wheelRest);
    wheelRest -= static_cast<float>(lines);
    if (lines != 0)
        AddMouse(InputEvent::Kind::Wheel, event.mouseX, event.mouseY, lines);
}

void WindowHost::Window::TranslateWindow(const SDL_WindowEvent& event) {
    switch (event.event) {
    case SDL_WINDOWEVENT_DISPLAY_CHANGED:
        isMoved = true;
        isResized = true;
        break;
    case SDL_WINDOWEVENT_SIZE_CHANGED:
        isMoved = isMoved || PixelsPerPoint(handle) != 1.0;
        isResized = true;
        break;
    case SDL_WINDOWEVENT_EXPOSED:
    case SDL_WINDOWEVENT_SHOWN:
    case SDL_WINDOWEVENT_RESTORED:
        if (!isResized)
            CopyAll();
        break;
    default:
        break;
    }
}

void WindowHost::Window::Translate(const SDL_Event& event) {
    // Sizes come in bursts: only the last one before anything else counts.
    if (isResized && event.type != SDL_WINDOWEVENT)
        ApplyResize();
    switch (event.type) {
    case SDL_WINDOWEVENT:
        TranslateWindow(event.window);
        break;
    case SDL_KEYDOWN:
        if (!Obey(Keyboard::CommandOf(event.key)))
            keyboard.Translate(event.key, events);
        break;
    case SDL_KEYUP:
        keyboard.Translate(event.key, events);
        break;
    case SDL_TEXTINPUT:
        Keyboard::TranslateText(event.text.text, events);
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        TranslateButton(event.button);
        break;
    case SDL_MOUSEWHEEL:
        TranslateWheel(event.wheel);
        break;
    case SDL_QUIT: {
        InputEvent close;
        close.kind = InputEvent::Kind::Close;
        events.push_back(close);
        break;
    }
    default:
        if (event.type == wakeEvent) {
            wakeIsQueued = false;
            isWoken = true;
        }
        break;
    }
}

WindowHost::WindowHost(std::unique_ptr<Window> window)
    : window_(std::move(window)) {
}

WindowHost::~WindowHost() = default;

std::unique_ptr<WindowHost> WindowHost::Open(std::string& error) {
    if (!InitVideo(error))
        return nullptr;
    auto window = std::make_unique<Window>();
    if (!window->Create()) {
        error = std::string("No window: ") + SDL_GetError();
        return nullptr;
    }
    return std::unique_ptr<WindowHost>(new WindowHost(std::move(window)));
}

SIZE WindowHost::ScreenSize() const {
    return window_->screen;
}

double WindowHost::Zoom() const {
    return window_->zoom;
}

bool WindowHost::NextEvent(InputEvent& event, bool wait) {
    Window& window = *window_;
    window.isWoken = false;
    while (window.events.empty()) {
        SDL_Event native;
        bool isThere = SDL_PollEvent(&native) != 0;
        if (!isThere && window.isResized) {
            window.ApplyResize();
            continue;
        }
        if (!isThere && wait && !window.isWoken)
            isThere = window.WaitForEvent(native);
        if (!isThere)
            return false;
        window.Translate(native);
    }
    event = window.events.front();
    window.events.pop_front();
    return true;
}

Canvas& WindowHost::Screen() {
    return *window_->canvas;
}

void WindowHost::Present(const RECT& changed) {
    Window& window = *window_;
    if (!window.isPainted) {
        window.isPainted = true;
        // Only now: a second start, which gives way to the first one, shows no window.
        if ((SDL_GetWindowFlags(window.handle) & SDL_WINDOW_HIDDEN) != 0)
            SDL_ShowWindow(window.handle);
        window.CopyAll();
        return;
    }
    const double zoom = window.zoom;
    window.CopyToWindow(
        {static_cast<LONG>(std::floor(changed.left * zoom)), static_cast<LONG>(std::floor(changed.top * zoom)),
            static_cast<LONG>(std::ceil(changed.right * zoom)), static_cast<LONG>(std::ceil(changed.bottom * zoom))});
}

void WindowHost::SetIcon(const Picture& picture) {
    SetWindowIcon(window_->handle, picture);
}

void WindowHost::Beep() {
    SDL_FlashWindow(window_->handle, SDL_FLASH_BRIEFLY);
    window_->tone.Play();
}

void WindowHost::Wake() {
    if (window_->wakeIsQueued.exchange(true))
        return;
    SDL_Event event{};
    event.type = window_->wakeEvent;
    if (SDL_PushEvent(&event) != 1)
        window_->wakeIsQueued = false;
}

void WindowHost::TitleChanged(const std::wstring& title) {
    SDL_SetWindowTitle(window_->handle, ToUtf8(title).c_str());
}

void WindowHost::BringToFront() {
    if ((SDL_GetWindowFlags(window_->handle) & SDL_WINDOW_MINIMIZED) != 0)
        SDL_RestoreWindow(window_->handle);
    SDL_RaiseWindow(window_->handle);
}

void WindowHost::GoBack() {
    SDL_MinimizeWindow(window_->handle);
}

void WindowHost::WaitCursor(bool shown) {
    SDL_Cursor*& cursor = window_->waitCursor;
    if (cursor == nullptr)
        cursor = SDL_CreateSystemCursor(SDL_SYSTEM_CURSOR_WAIT);
    if (SDL_Cursor* wanted = shown ? cursor : SDL_GetDefaultCursor())
        SDL_SetCursor(wanted);
}

} // namespace device
