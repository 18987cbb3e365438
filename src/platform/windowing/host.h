#pragma once

#include "platform/drawing/canvas.h"
#include "platform/types.h"

#include <string>
#include <vector>

namespace device {

/// What a person, or a script, did.
struct InputEvent {
    enum class Kind {
        None,
        KeyDown, ///< key, character (0: none), modifiers
        KeyUp,
        Text, ///< a character alone, without a key
        Resize, ///< width and height of the screen in device pixels, in x and y
        MouseDown, ///< button
        MouseMove,
        MouseUp, ///< button
        DoubleClick,
        Wheel, ///< delta: lines, up above 0
        Paste, ///< text: what was pasted, line ends as L'\n'
        Close, ///< a person closes the window
        End, ///< the process is told to end
        Repaint, ///< what was presented is lost
        Tap, ///< a finger, in x and y; modifiers as with the mouse
        Pan, ///< a finger that went down at x and y takes the content with it: delta pixels, down above 0; isRepeat: on
        Back, ///< the gesture that leaves what is on the screen, whatever has the focus
        FieldText ///< text: all that a field says now, as a host's own field has it; its selection in x and y
    };

    enum class Button { Left, Middle, Right };

    Kind kind = Kind::None;
    WORD key = 0;
    wchar_t character = 0;
    unsigned modifiers = 0; ///< MOD_CONTROL, MOD_SHIFT
    bool isRepeat = false; ///< of a text: its key is held. A key-down is one while its key-up has not come
    int x = 0; ///< device pixels
    int y = 0;
    int delta = 0;
    Button button = Button::Left;
    std::wstring text{};
    HWND field = nullptr;
};

/// A field in which a person types, as a host needs to know it that lays one of its own over it.
struct ShownField {
    enum class Kind {
        Text,
        Note, ///< several lines, of which one shows
        Lines, ///< several lines with the screen to themselves
        Whole,
        Decimal,
        Date ///< takes digits one by one
    };

    HWND window = nullptr;
    RECT place; ///< on the screen, in device pixels, as much of it as shows
    Kind kind = Kind::Text;
    bool isCapital = false; ///< small letters become capitals
    bool isFocused = false;
    std::size_t limit = 0; ///< the most characters; 0: no limit
    std::size_t start = 0; ///< the selection
    std::size_t end = 0;
    std::wstring label;
    std::wstring text;

    bool operator==(const ShownField&) const = default;
};

/// What a click would do where the pointer is.
enum class PointerShape { Arrow, Hand, Text };

/// Where a desktop keeps texts that were copied: its clipboard, and what was selected last.
enum class Clipboard { Copied, Selected };

/// What the device stands on: a window, a terminal, a script.
class Host {
public:
    virtual ~Host() = default;

    /// The next event. With `wait` it blocks until there is one or Wake was called; false when there is none.
    /// The device asks with `wait` only when it is idle: nothing posted, nothing to paint.
    virtual bool NextEvent(InputEvent& event, bool wait) = 0;
    virtual Canvas& Screen() = 0;
    /// The frame painted last is finished; `changed` is what differs.
    virtual void Present(const RECT& changed) = 0;
    virtual void Beep() = 0;
    /// Ends a NextEvent that waits. Called from any thread.
    virtual void Wake() = 0;

    // Hooks of single hosts.
    virtual void TitleChanged(const std::wstring& /*title*/) { }
    virtual void BringToFront() { }
    /// Go back from the first screen: there is no program before this one.
    virtual void GoBack() { }
    virtual void WaitCursor(bool /*shown*/) { }
    /// A message box came up: no sound of MessageBeep's.
    virtual void Attention() { }
    /// A line about what the user may have to do outside the program.
    virtual void Notify(const std::string& /*line*/) { }
    /// The fields on the screen, in their order, after each painting that changed one of them; none while a menu or a
    /// message stands over them.
    virtual void FieldsChanged(const std::vector<ShownField>& /*fields*/) { }
    virtual void ShowPointer(PointerShape /*shape*/) { }
    virtual void StoreText(Clipboard /*where*/, const std::wstring& /*text*/) { }
    /// Empty where there is none.
    virtual std::wstring StoredText(Clipboard /*where*/) { return {}; }
};

} // namespace device
