#include "hosts/window/window_host.h"

#include "hosts/window/display.h"
#include "hosts/window/native_window.h"
#include "hosts/window/notification.h"
#include "platform/drawing/rectangles.h"
#include "platform/metrics.h"
#include "platform/system/environment.h"
#include "platform/utf8.h"
#include "platform/windowing/desktop.h"

#include <SDL.h>
#include <algorithm>
#include <atomic>
#include <cmath>
#include <csignal>
#include <deque>
#include <iterator>
#include <utility>

namespace device {

namespace {

constexpr float LinesPerWheelStep = 3.0F;
constexpr int ToneCheckMilliseconds = 100;
constexpr int FlashEdge = 3;
constexpr char ProgramName[] = "Odoledger";

} // namespace

WindowHost::Window::~Window() {
    Remember();
    for (SDL_Cursor* cursor : cursors)
        if (cursor != nullptr)
            SDL_FreeCursor(cursor);
    if (handle != nullptr)
        SDL_DestroyWindow(handle);
    if (hasVideo)
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

bool WindowHost::Window::Create() {
    constexpr Uint32 Flags = SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI;
    handle = SDL_CreateWindow(ProgramName, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, screen.cx, screen.cy, Flags);
    if (handle == nullptr)
        return false;
    ChooseFirstZoom();
    if (ApplyZoom())
        SDL_SetWindowPosition(handle, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED);
    wakeEvent = SDL_RegisterEvents(1);
    zoom = std::min(chosen.zoom * room.zoom, LargestZoom(room));
    canvas = std::make_unique<CairoCanvas>(screen, zoom);
    // What the desktop made of the wish comes as a resize like any other.
    isResized = true;
    SetProgramIcon(handle);
    SDL_StartTextInput();
    return SDL_GetWindowSurface(handle) != nullptr;
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
        const_cast<unsigned char*>(pixels), size.cx, size.cy, 32, canvas->Stride(), SDL_PIXELFORMAT_RGB888);
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
    isFlashShown = false;
}

/// Over what was presented: the canvas knows nothing of it.
void WindowHost::Window::ShowFlash(bool shown) {
    isFlashShown = shown;
    if (!shown) {
        CopyToWindow(flashPlace);
        return;
    }
    const RECT device = Desktop::The().BeepPlace();
    const SIZE from = InPixels({device.left, device.top}, zoom);
    const SIZE to = InPixels({device.right, device.bottom}, zoom);
    flashPlace = {from.cx, from.cy, to.cx, to.cy};
    SDL_Surface* surface = SDL_GetWindowSurface(handle);
    if (surface == nullptr || IsRectEmpty(flashPlace))
        return;
    const int edge = InPixels({Scaled(FlashEdge), 0}, zoom).cx;
    const SDL_Rect edges[] = {{from.cx, from.cy, to.cx - from.cx, edge}, {from.cx, to.cy - edge, to.cx - from.cx, edge},
        {from.cx, from.cy, edge, to.cy - from.cy}, {to.cx - edge, from.cy, edge, to.cy - from.cy}};
    const Uint32 color = SDL_MapRGB(surface->format, 0xF5, 0x7C, 0x00);
    SDL_FillRects(surface, edges, std::size(edges), color);
    SDL_UpdateWindowSurfaceRects(handle, edges, std::size(edges));
}

int WindowHost::Window::AttendToBeep() {
    tone.CloseWhenOver();
    const Uint64 now = SDL_GetTicks64();
    if (flash.IsOn(now) != isFlashShown)
        ShowFlash(!isFlashShown);
    const int flashing = flash.UntilChange(now);
    return flashing == Flash::Over && tone.IsOpen() ? ToneCheckMilliseconds : flashing;
}

bool WindowHost::Window::WaitForEvent(SDL_Event& event) {
    for (;;) {
        const int milliseconds = AttendToBeep();
        if (milliseconds < 0)
            return SDL_WaitEvent(&event) != 0;
        if (SDL_WaitEventTimeout(&event, milliseconds) != 0)
            return true;
    }
}

void WindowHost::Window::Wake() {
    // Before there is an event for it nobody waits.
    if (wakeEvent == 0 || wakeIsQueued.exchange(true))
        return;
    SDL_Event event{};
    event.type = wakeEvent;
    if (SDL_PushEvent(&event) != 1)
        wakeIsQueued = false;
}

void WindowHost::Window::Tell(int signal) {
    // Interrupted from the terminal that it was started in, a person is there to be asked; an order to end outweighs
    // that.
    auto former = InputEvent::Kind::None;
    if (signal == SIGINT)
        told.compare_exchange_strong(former, InputEvent::Kind::Close);
    else
        told = InputEvent::Kind::End;
    Wake();
}

void WindowHost::Window::Add(InputEvent::Kind kind) {
    if (kind != InputEvent::Kind::None)
        events.push_back({.kind = kind});
}

InputEvent WindowHost::Window::MouseEvent(InputEvent::Kind kind, int x, int y) const {
    const double scale = PixelsPerPoint(handle) / zoom;
    return {.kind = kind,
        .modifiers = Keyboard::Modifiers(),
        .x = static_cast<int>(std::floor(x * scale)),
        .y = static_cast<int>(std::floor(y * scale))};
}

void WindowHost::Window::TranslateButton(const SDL_MouseButtonEvent& event) {
    const bool isDown = event.state == SDL_PRESSED;
    const bool isLeft = event.button == SDL_BUTTON_LEFT;
    if (!isLeft && event.button != SDL_BUTTON_MIDDLE && event.button != SDL_BUTTON_RIGHT)
        return;
    const auto kind = !isDown             ? InputEvent::Kind::MouseUp
        : isLeft && event.clicks % 2 == 0 ? InputEvent::Kind::DoubleClick
                                          : InputEvent::Kind::MouseDown;
    events.push_back(MouseEvent(kind, event.x, event.y));
    events.back().button = isLeft           ? InputEvent::Button::Left
        : event.button == SDL_BUTTON_MIDDLE ? InputEvent::Button::Middle
                                            : InputEvent::Button::Right;
    if (isLeft)
        isLeftHeld = isDown;
}

void WindowHost::Window::TranslateMotion(const SDL_MouseMotionEvent& event) {
    // Where the desktop took the mouse away, nobody told that the button came up.
    if (isLeftHeld && (event.state & SDL_BUTTON_LMASK) == 0) {
        isLeftHeld = false;
        events.push_back(MouseEvent(InputEvent::Kind::MouseUp, event.x, event.y));
    }
    // Only the last of several moves in a row counts.
    if (!events.empty() && events.back().kind == InputEvent::Kind::MouseMove)
        events.pop_back();
    events.push_back(MouseEvent(InputEvent::Kind::MouseMove, event.x, event.y));
}

void WindowHost::Window::TranslateWheel(const SDL_MouseWheelEvent& event) {
    // Touch pads send parts of a step.
    wheelRest += event.preciseY * LinesPerWheelStep;
    const auto lines = static_cast<int>(wheelRest);
    wheelRest -= static_cast<float>(lines);
    if (lines == 0)
        return;
    events.push_back(MouseEvent(InputEvent::Kind::Wheel, event.mouseX, event.mouseY));
    events.back().delta = lines;
}

void WindowHost::Window::TranslateWindow(const SDL_WindowEvent& event) {
    switch (event.event) {
    case SDL_WINDOWEVENT_DISPLAY_CHANGED:
    case SDL_WINDOWEVENT_SHOWN:
        isMoved = true;
        isResized = true;
        break;
    case SDL_WINDOWEVENT_SIZE_CHANGED:
        isMoved = isMoved || PixelsPerPoint(handle) != 1.0;
        isResized = true;
        break;
    case SDL_WINDOWEVENT_EXPOSED:
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
        flash.End(); // seen
        if (!Obey(Keyboard::CommandOf(event.key)))
            keyboard.Translate(event.key, events);
        break;
    case SDL_KEYUP:
        keyboard.Translate(event.key, events);
        break;
    case SDL_TEXTINPUT:
        keyboard.TranslateText(event.text.text, events);
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        TranslateButton(event.button);
        break;
    case SDL_MOUSEMOTION:
        TranslateMotion(event.motion);
        break;
    case SDL_MOUSEWHEEL:
        TranslateWheel(event.wheel);
        break;
    case SDL_QUIT:
        Add(InputEvent::Kind::Close);
        break;
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
    auto window = std::make_unique<Window>();
    // Before there is another thread: beside one the X library locks for each character of its tables.
    window->hasVideo = InitVideo(error);
    if (!window->hasVideo)
        return nullptr;
    if (!window->signals.Listen()) {
        error = "no thread is to be had";
        return nullptr;
    }
    if (!window->Create()) {
        error = std::string("No window: ") + SDL_GetError();
        return nullptr;
    }
    return std::unique_ptr<WindowHost>(new WindowHost(std::move(window)));
}

bool WindowHost::NextEvent(InputEvent& event, bool wait) {
    Window& window = *window_;
    window.isWoken = false;
    window.Add(window.told.exchange(InputEvent::Kind::None));
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
    if (window.isFlashShown)
        window.ShowFlash(false); // it comes back where it then belongs
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

void WindowHost::Beep() {
    SDL_FlashWindow(window_->handle, SDL_FLASH_BRIEFLY);
    window_->tone.Play();
    window_->flash.Begin(SDL_GetTicks64());
}

void WindowHost::Wake() {
    window_->Wake();
}

void WindowHost::TitleChanged(const std::wstring& title) {
    // Among the windows of a desktop the name of a vehicle says nothing.
    SDL_SetWindowTitle(window_->handle, (ToUtf8(title) + " - " + ProgramName).c_str());
}

void WindowHost::BringToFront() {
    if ((SDL_GetWindowFlags(window_->handle) & SDL_WINDOW_MINIMIZED) != 0)
        SDL_RestoreWindow(window_->handle);
    SDL_RaiseWindow(window_->handle);
}

void WindowHost::Notify(const std::string& line) {
    SendNotification(line);
}

void WindowHost::GoBack() {
    SDL_MinimizeWindow(window_->handle);
}

void WindowHost::Window::ShowCursor() {
    if (!isPainted)
        return; // no window shows it yet, and cursors are read from files
    const SDL_SystemCursor wanted = isWaiting ? SDL_SYSTEM_CURSOR_WAIT
        : pointer == PointerShape::Hand       ? SDL_SYSTEM_CURSOR_HAND
        : pointer == PointerShape::Text       ? SDL_SYSTEM_CURSOR_IBEAM
                                              : SDL_SYSTEM_CURSOR_ARROW;
    SDL_Cursor*& cursor = cursors[wanted];
    if (cursor == nullptr)
        cursor = SDL_CreateSystemCursor(wanted);
    if (cursor != nullptr)
        SDL_SetCursor(cursor);
}

void WindowHost::WaitCursor(bool shown) {
    window_->isWaiting = shown;
    window_->ShowCursor();
}

void WindowHost::ShowPointer(PointerShape shape) {
    window_->pointer = shape;
    window_->ShowCursor();
}

void WindowHost::StoreText(Clipboard where, const std::wstring& text) {
    const std::string utf8 = ToUtf8(text);
    if (where == Clipboard::Copied)
        SDL_SetClipboardText(utf8.c_str());
    else
        SDL_SetPrimarySelectionText(utf8.c_str());
}

std::wstring WindowHost::StoredText(Clipboard where) {
    char* utf8 = where == Clipboard::Copied ? SDL_GetClipboardText() : SDL_GetPrimarySelectionText();
    if (utf8 == nullptr)
        return {};
    std::wstring text = FromUtf8(utf8);
    SDL_free(utf8);
    return text;
}

} // namespace device
