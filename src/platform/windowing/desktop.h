#pragma once

#include "platform/windowing/closing.h"
#include "platform/windowing/host.h"
#include "platform/windowing/mouse.h"
#include "platform/windowing/window_record.h"

#include <array>
#include <deque>
#include <functional>
#include <optional>
#include <string>

namespace device {

class OpenMenu;

/// The device switched on: its windows, its focus, its queue of messages, and the host under it. There is one.
class Desktop {
public:
    /// The one desktop; never destroyed, so that destructors of static objects may still call the device.
    static Desktop& The();

    /// Connects the device to a host, with all classes known. Everything of a former run is dropped.
    void SwitchOn(Host& host);
    /// Takes the host away; what is left of windows is dropped without a message.
    void SwitchOff();
    bool IsOn() const { return host_ != nullptr; }
    Host* TheHost() { return host_; }

    // Windows
    Window* Create(const WindowClass& windowClass, Window* parent, HWND owner);
    void AddTopLevel(Window& window) { topLevels_.push_back(&window); }
    void Destroy(Window& window);
    const std::vector<Window*>& TopLevels() const { return topLevels_; }
    /// The visible top-level window in front; null when there is none.
    Window* Front() const;
    /// The frontmost that is not a message box: what a message box stands over.
    Window* FrontFull() const;
    void Resize(SIZE screen);

    // Focus
    HWND Focus() const { return focus_; }
    HWND Active() const { return active_; }
    /// False for a window that cannot have it. Null takes the focus away.
    bool SetFocus(HWND window);
    void Activate(HWND topLevel);

    // Messages
    void Post(const MSG& message);
    void PostQuit(int exitCode);
    /// The next message: posted, then input, then (none there) everything invalid is painted and the host waited for.
    void Next(MSG& message);
    /// The next input event for a loop of the device's own (an open menu). False when a posted message wants the turn.
    bool NextInput(InputEvent& event);
    /// An event comes to an open menu: the rest of its key, and a new size of the screen, are seen to here. False when
    /// it is nothing for the menu, being the repeat of a key that acts no more.
    bool NoteForMenu(const InputEvent& event);
    /// What the keys that are held now did has opened or closed something, or moved the focus: they act no more until
    /// they are pressed anew.
    void StopRepeats();
    LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    /// The character that belongs to the key-down last given out; 0 when there is none (any more).
    wchar_t TakePendingCharacter();
    unsigned Modifiers() const { return modifiers_; }
    /// Turns an event into messages; called when no menu is open.
    void Route(const InputEvent& event);
    const Mouse& TheMouse() const { return mouse_; }

    // Texts that were copied or selected: the host's, and our own where it keeps none.
    void StoreText(Clipboard where, const std::wstring& text);
    std::wstring StoredText(Clipboard where) const;

    // Painting
    void Invalidate(const RECT& screenRectangle);
    void InvalidateAll();
    void PaintInvalid();
    /// Paints the whole screen onto another canvas, changing nothing.
    void PaintAll(Canvas& canvas);
    Canvas& Screen();
    /// What a beep concerns, on the screen: the focused field of a dialog, else the title line.
    RECT BeepPlace() const;

    // What the console tells
    OpenMenu* Menu() const { return menu_; }
    void SetMenu(OpenMenu* menu);
    int beeps = 0;
    int goBacks = 0;
    int fronts = 0;
    int waitCursors = 0;

    /// Called between processes: the inbox has something (from any thread).
    void Wake();

private:
    struct HeldKey {
        WORD key;
        HWND listener; ///< the top-level window that heard it go down; null: a menu did
        bool repeats; ///< while it is held it goes on acting
    };

    Desktop() = default;
    void CollectInbox();
    bool Pull(InputEvent& event, bool wait);
    bool PullInput(bool wait);
    bool NoteKeyDown(WORD key, HWND listener);
    bool NoteKeyUp(WORD key, HWND listener);
    bool NoteText(const InputEvent& event);
    void RouteKey(const InputEvent& event);
    HeldKey* FindHeld(WORD key);
    void RouteBack(Window& top, bool down);
    void LeaveFront();
    void EnterText(const InputEvent& event);
    void TellFields();
    void DropMessagesOf(HWND window);
    void Bury(HWND handle);
    void ClearGraveyard();
    void TellTitle();

    Host* host_ = nullptr;
    std::vector<Window*> topLevels_;
    std::vector<std::unique_ptr<Window>> graveyard_;
    std::deque<MSG> queue_;
    HWND focus_ = nullptr;
    HWND active_ = nullptr;
    unsigned focusChange_ = 0;
    bool quit_ = false;
    int exitCode_ = 0;
    int depth_ = 0;
    wchar_t pendingCharacter_ = 0;
    unsigned modifiers_ = 0;
    std::vector<HeldKey> keysDown_;
    bool textRepeats_ = false; ///< the same of the key that typed last
    RECT dirty_;
    std::wstring toldTitle_;
    std::optional<std::vector<ShownField>> toldFields_; ///< nothing: they are to be told anew
    OpenMenu* menu_ = nullptr;
    Closing closing_;
    Mouse mouse_;
    std::array<std::wstring, 2> texts_; ///< what was copied, and what was selected last
};

/// Looks up a class by name, ignoring case; null when there is none.
const WindowClass* FindWindowClass(const wchar_t* name);
ATOM AddWindowClass(const wchar_t* name, WNDPROC procedure, ControlFactory factory, bool isDialog = false);

} // namespace device
