#pragma once

#include <cstdint>

/// An event as JavaScript fills it in; numbers as in InputEvent.
struct BrowserEvent {
    std::int32_t kind;
    std::int32_t key;
    std::int32_t character;
    std::int32_t modifiers;
    std::int32_t isRepeat;
    std::int32_t x;
    std::int32_t y;
    std::int32_t delta;
    std::int32_t button;
    std::int32_t field; ///< of a text that a field says: its window
    std::int32_t touchTarget; ///< of a new size
    char* text; ///< UTF-8, to be freed; null where there is none
    double zoom; ///< 0: as before
};

// The functions of worker/host_library.js.
extern "C" {
/// The oldest event that waits; 0 when there is none.
int odoledgerHostTakeEvent(BrowserEvent* event);
/// Comes back when there is an event. The one function that lets others have the thread meanwhile.
void odoledgerHostWait();
/// A field of those that the next "fields" tells of: its window, left, top, width, height, whether it has capitals
/// alone, whether it has the focus, the most characters, start and end of the selection; the texts are UTF-8.
void odoledgerHostAddField(const std::int32_t* numbers, const char* kind, const char* label, const char* text);
/// A message to the page: its type, and a text whose meaning follows from the type.
void odoledgerHostTell(const char* type, const char* text);
}
