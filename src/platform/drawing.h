#pragma once

#include "platform/types.h"

// Device contexts, fonts, pens, brushes, text and icons. Bad handles and arguments give 0 or FALSE.

inline constexpr int SYSTEM_FONT = 13;
inline constexpr int LF_FACESIZE = 32;
inline constexpr LONG FW_NORMAL = 400;
inline constexpr LONG FW_BOLD = 700;
inline constexpr int PS_SOLID = 0;
inline constexpr int LOGPIXELSY = 90;

inline constexpr UINT DT_CENTER = 0x1;
inline constexpr UINT DT_RIGHT = 0x2;
inline constexpr UINT DT_VCENTER = 0x4;
inline constexpr UINT DT_WORDBREAK = 0x10;
inline constexpr UINT DT_SINGLELINE = 0x20;
inline constexpr UINT DT_NOCLIP = 0x100;
inline constexpr UINT DT_NOPREFIX = 0x800;
inline constexpr UINT DT_END_ELLIPSIS = 0x8000;

inline constexpr UINT DI_NORMAL = 3;
inline constexpr UINT ILC_MASK = 0x1;
inline constexpr UINT ILC_COLOR32 = 0x20;
inline constexpr UINT IMAGE_BITMAP = 0;

struct LOGFONTW {
    LONG lfHeight = 0; ///< below 0: height of the characters; above 0: of the cell
    LONG lfWeight = FW_NORMAL;
    BYTE lfItalic = 0;
    wchar_t lfFaceName[LF_FACESIZE] = {};
};

struct TEXTMETRICW {
    LONG tmHeight = 0;
    LONG tmExternalLeading = 0;
    LONG tmAveCharWidth = 0;
};

/// A context on a window's client area, for measuring and, while it paints, for drawing. ReleaseDC returns 1 or 0.
HDC GetDC(HWND window);
int ReleaseDC(HWND window, HDC context);
int SaveDC(HDC context);
/// -1 restores the last state saved.
BOOL RestoreDC(HDC context, int state);

HGDIOBJ GetStockObject(int index);
HFONT CreateFontIndirectW(const LOGFONTW* description);
HPEN CreatePen(int style, int width, COLORREF color);
HBRUSH CreateSolidBrush(COLORREF color);
/// A system colour's brush; never deleted.
HBRUSH GetSysColorBrush(int index);
BOOL DeleteObject(HGDIOBJ object);
/// Copies the description of a font (LOGFONTW); returns the bytes copied, 0 on failure.
int GetObjectW(HGDIOBJ object, int size, void* description);
/// Returns the object of the same kind that was selected before, null on failure.
HGDIOBJ SelectObject(HDC context, HGDIOBJ object);
int GetDeviceCaps(HDC context, int index);

COLORREF SetTextColor(HDC context, COLORREF color);
/// Texts are always drawn on what is there.
COLORREF SetBkColor(HDC context, COLORREF color);

BOOL GetTextMetricsW(HDC context, TEXTMETRICW* metrics);
/// `length` characters of `text`; width in `size->cx`, cell height in `size->cy`.
BOOL GetTextExtentPoint32W(HDC context, const wchar_t* text, int length, SIZE* size);
/// Returns the height of the text, 0 on failure. A length of -1 means NUL-terminated.
int DrawTextW(HDC context, const wchar_t* text, int length, RECT* rectangle, UINT format);
int FillRect(HDC context, const RECT* rectangle, HBRUSH brush);
BOOL MoveToEx(HDC context, int x, int y, POINT* former);
BOOL LineTo(HDC context, int x, int y);

/// Icons and pictures by resource id, in the device's pixels. LoadIconW gives null when the module has none.
HICON LoadIconW(HINSTANCE module, UINT id);
BOOL DestroyIcon(HICON icon);
BOOL DrawIconEx(HDC context, int x, int y, HICON icon, int width, int height, UINT step, HBRUSH brush, UINT flags);

HIMAGELIST ImageList_Create(int width, int height, UINT flags, int initial, int grow); // NOLINT: the handset's names
BOOL ImageList_Destroy(HIMAGELIST list); // NOLINT
/// Adds the icon at the end: the index is always -1. Returns the index that it got, -1 on failure.
int ImageList_ReplaceIcon(HIMAGELIST list, int index, HICON icon); // NOLINT
BOOL ImageList_RemoveAll(HIMAGELIST list); // NOLINT
/// An icon of the list's own; DrawIconEx takes it, DestroyIcon frees it. Null for a bad index.
HICON ImageList_GetIcon(HIMAGELIST list, int index, UINT flags); // NOLINT

inline bool IsRectEmpty(const RECT& rectangle) {
    return rectangle.right <= rectangle.left || rectangle.bottom <= rectangle.top;
}
