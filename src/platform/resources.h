#pragma once

#include "platform/types.h"

#include <span>

// What a program carries besides its code. All of it is constant data of the program; the device only reads it.

struct StringResource {
    UINT id;
    const wchar_t* text;
};

/// One line of a popup: an item (command), a popup (items), or a separator (neither).
struct MenuItemResource {
    const wchar_t* text = nullptr;
    UINT command = 0;
    std::span<const MenuItemResource> popup = {};
};

/// A soft-key bar: one or two entries, each a command or a popup.
struct MenuResource {
    UINT id;
    std::span<const MenuItemResource> keys;
};

/// Key and modifiers (MOD_CONTROL of input.h) that give a command.
struct AcceleratorResource {
    UINT id;
    WORD key;
    unsigned modifiers;
    UINT command;
};

/// The id of a control that nobody asks for.
inline constexpr UINT NoDialogItemId = 0xFFFFFFFF;

/// A control of a dialog template, in dialog units.
struct DialogItemTemplate {
    const wchar_t* windowClass;
    DWORD style;
    int x, y, width, height;
    UINT id;
    const wchar_t* text;
};

/// A dialog template, in dialog units of its font.
struct DLGTEMPLATE {
    DWORD style;
    int width, height;
    const wchar_t* title;
    const wchar_t* fontFace;
    int fontPoints;
    std::span<const DialogItemTemplate> items;
};
using LPCDLGTEMPLATEW = const DLGTEMPLATE*;

/// One picture in one size, as a PNG file in memory.
struct ImageResource {
    UINT id;
    int size; ///< width in pixels
    std::span<const unsigned char> png;
    wchar_t letter = 0; ///< what stands for it where there are only letters; 0: nothing
};

struct VersionResource {
    WORD major, minor, third, build;
};

struct Module {
    std::span<const StringResource> strings = {}; ///< in ascending order of their ids
    std::span<const MenuResource> menus = {};
    std::span<const AcceleratorResource> accelerators = {};
    std::span<const ImageResource> images = {};
    const VersionResource* version = nullptr; ///< null: the program file has no version record
};

/// The running program's module; `name` is null. Null until the device was given one.
HINSTANCE GetModuleHandleW(const wchar_t* name);
/// Copies at most `size` - 1 characters and a NUL; returns the number of characters, 0 when there is no such string.
int LoadStringW(HINSTANCE module, UINT id, wchar_t* buffer, int size);

namespace device {
/// Called by a host before the program starts (and by tests).
void SetModule(HINSTANCE module);
} // namespace device
