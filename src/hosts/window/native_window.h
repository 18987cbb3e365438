#pragma once

#include "hosts/window/end_signals.h"
#include "hosts/window/flash.h"
#include "hosts/window/keyboard.h"
#include "hosts/window/remembered_size.h"
#include "hosts/window/tone.h"
#include "hosts/window/window_host.h"
#include "platform/drawing/cairo/cairo_canvas.h"
#include "platform/windowing/zoom_rule.h"

#include <SDL.h>
#include <array>
#include <atomic>
#include <deque>

namespace device {

/// The desktop's window behind a WindowHost, for the sources of this folder alone.
struct WindowHost::Window {
    Window();
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    bool Create();
    void ChooseFirstZoom();
    SIZE AskedSize() const;
    bool ApplyZoom();
    void MoveInside() const;
    void ApplyRoom();
    void ApplyResize();
    void FixZoom(double fixed);
    void FreeZoom();
    void NoteSize(const ZoomedScreen& now);
    bool Obey(Keyboard::HostCommand command);
    bool IsFree() const;
    void Remember() const;
    void CopyToWindow(const RECT& imagePlace);
    void CopyAll();
    /// From any thread: ends a wait for events.
    void Wake();
    /// From any thread: a signal came.
    void Tell(int signal);
    bool WaitForEvent(SDL_Event& event);
    /// What a beep has left to do. Milliseconds until there is more of that; below 0: nothing is left.
    int AttendToBeep();
    void ShowFlash(bool shown);
    /// An event that its kind says all of; none for None.
    void Add(InputEvent::Kind kind);
    void Translate(const SDL_Event& event);
    void TranslateWindow(const SDL_WindowEvent& event);
    void TranslateButton(const SDL_MouseButtonEvent& event);
    void TranslateWheel(const SDL_MouseWheelEvent& event);
    void TranslateMotion(const SDL_MouseMotionEvent& event);
    InputEvent MouseEvent(InputEvent::Kind kind, int x, int y) const;
    void ShowCursor();

    // What other threads touch, and then the first of them.
    std::atomic<Uint32> wakeEvent = 0;
    std::atomic<bool> wakeIsQueued = false;
    std::atomic<InputEvent::Kind> told = InputEvent::Kind::None; ///< by a signal: to close, or to end
    EndSignals signals{[this](int signal) { Tell(signal); }};
    bool hasVideo = false;
    SDL_Window* handle = nullptr;
    SIZE screen;
    double zoom = 1.0; ///< image pixels a device pixel
    DisplayRoom room;
    SIZE asked{}; ///< what the window was asked to be, in points; nothing once a person gave it another size
    RememberedSize chosen; ///< as the window was, or was asked to be, while it had no display to fill
    bool isRemembered = false; ///< from a former run
    bool isGiven = false; ///< size or zoom were told from outside: nothing is remembered then
    std::unique_ptr<CairoCanvas> canvas;
    bool isPainted = false; ///< the canvas shows something worth copying
    bool isMoved = false; ///< to another display, or the display changed
    bool isResized = false; ///< a size came that the canvas does not have yet
    bool isWoken = false;
    float wheelRest = 0;
    Keyboard keyboard;
    Tone tone;
    Flash flash;
    bool isFlashShown = false;
    RECT flashPlace{}; ///< pixels
    std::array<SDL_Cursor*, SDL_NUM_SYSTEM_CURSORS> cursors{}; ///< by SDL_SystemCursor; made when they are first shown
    bool isWaiting = false;
    PointerShape pointer = PointerShape::Arrow;
    bool isLeftHeld = false;
    std::deque<InputEvent> events;
};

} // namespace device
