#pragma once

#include "platform/types.h"

// Numbers of messages, notifications and window styles, grouped by who understands them.

// Windows
inline constexpr UINT WM_NULL = 0;
inline constexpr UINT WM_CREATE = 1;
inline constexpr UINT WM_DESTROY = 2;
inline constexpr UINT WM_SIZE = 5;
inline constexpr UINT WM_ACTIVATE = 6;
inline constexpr UINT WM_SETFOCUS = 7;
inline constexpr UINT WM_KILLFOCUS = 8;
inline constexpr UINT WM_ENABLE = 10;
inline constexpr UINT WM_SETREDRAW = 11;
inline constexpr UINT WM_SETTEXT = 12;
inline constexpr UINT WM_GETTEXT = 13;
inline constexpr UINT WM_GETTEXTLENGTH = 14;
inline constexpr UINT WM_PAINT = 15; ///< wParam: the device context to paint on (HDC)
inline constexpr UINT WM_CLOSE = 16;
inline constexpr UINT WM_QUIT = 18;
inline constexpr UINT WM_ERASEBKGND = 20; ///< wParam: the device context
inline constexpr UINT WM_SETTINGCHANGE = 26;
inline constexpr UINT WM_DRAWITEM = 43;
inline constexpr UINT WM_MEASUREITEM = 44;
inline constexpr UINT WM_DELETEITEM = 45;
inline constexpr UINT WM_SETFONT = 48;
inline constexpr UINT WM_GETFONT = 49;
inline constexpr UINT WM_COMPAREITEM = 57;
inline constexpr UINT WM_NOTIFY = 78;
inline constexpr UINT WM_NCDESTROY = 130;
inline constexpr UINT WM_GETDLGCODE = 135; ///< lParam: the pending MSG, or null
inline constexpr UINT EM_SETINPUTMODE = 222;
inline constexpr UINT WM_KEYDOWN = 256;
inline constexpr UINT WM_KEYUP = 257;
inline constexpr UINT WM_CHAR = 258;
inline constexpr UINT WM_INITDIALOG = 272;
inline constexpr UINT WM_COMMAND = 273;
inline constexpr UINT WM_HSCROLL = 276;
inline constexpr UINT WM_VSCROLL = 277;
inline constexpr UINT WM_INITMENUPOPUP = 279;
inline constexpr UINT WM_CTLCOLORFIRST = 306;
inline constexpr UINT WM_CTLCOLORLAST = 312;
inline constexpr UINT WM_MOUSEMOVE = 512; ///< only while the left button, that went down in the window, is held
inline constexpr UINT WM_LBUTTONDOWN = 513; ///< wParam: MK_SHIFT, MK_CONTROL; lParam: client coordinates
inline constexpr UINT WM_LBUTTONUP = 514;
inline constexpr UINT WM_LBUTTONDBLCLK = 515;
inline constexpr UINT WM_RBUTTONDOWN = 516;
inline constexpr UINT WM_MBUTTONDOWN = 519;
inline constexpr UINT WM_MOUSEWHEEL = 522; ///< high word of wParam: lines, up above 0
inline constexpr UINT WM_CUT = 768;
inline constexpr UINT WM_COPY = 769;
inline constexpr UINT WM_PASTE = 770; ///< lParam: the text (const wchar_t*), or null for the clipboard's
inline constexpr UINT WM_HOTKEY = 786; ///< lParam: modifiers below, virtual key above
inline constexpr UINT WM_HIBERNATE = 1023; ///< memory ran out
inline constexpr UINT WM_USER = 1024;
inline constexpr UINT OCM_BASE = 0x2000; ///< added to a notification that a parent reflects
inline constexpr UINT SHCMBM_OVERRIDEKEY = 1427;

inline constexpr WPARAM WA_INACTIVE = 0;
inline constexpr WPARAM WA_ACTIVE = 1;
inline constexpr WPARAM SIZE_RESTORED = 0;
inline constexpr WPARAM SIZE_MINIMIZED = 1;
inline constexpr WPARAM MK_SHIFT = 4;
inline constexpr WPARAM MK_CONTROL = 8;
inline constexpr UINT MOD_KEYUP = 0x1000; ///< in WM_HOTKEY's low word: the key came up

inline constexpr LRESULT DLGC_WANTARROWS = 1;
inline constexpr LRESULT DLGC_WANTTAB = 2;
inline constexpr LRESULT DLGC_WANTMESSAGE = 4; ///< the control takes the pending message
inline constexpr LRESULT DLGC_HASSETSEL = 8;
inline constexpr LRESULT DLGC_WANTCHARS = 128;

inline constexpr DWORD WS_POPUP = 0x80000000;
inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_CAPTION = 0x00C00000;
inline constexpr DWORD WS_BORDER = 0x00800000;
inline constexpr DWORD WS_VSCROLL = 0x00200000;
inline constexpr DWORD WS_HSCROLL = 0x00100000;
inline constexpr DWORD WS_SYSMENU = 0x00080000;
inline constexpr DWORD WS_TABSTOP = 0x00010000;
inline constexpr DWORD DS_SETFONT = 0x40;

// Static
inline constexpr DWORD SS_CENTER = 1;
inline constexpr DWORD SS_BITMAP = 0xE;
inline constexpr DWORD SS_TYPEMASK = 0x1F;
inline constexpr DWORD SS_ENDELLIPSIS = 0x4000; ///< one line, cut with an ellipsis
inline constexpr UINT STM_SETIMAGE = 0x172;

// Edit
inline constexpr DWORD ES_MULTILINE = 0x4;
inline constexpr DWORD ES_UPPERCASE = 0x8;
inline constexpr DWORD ES_AUTOHSCROLL = 0x80;
inline constexpr DWORD ES_READONLY = 0x800;
inline constexpr DWORD ES_NUMBER = 0x2000;
inline constexpr UINT EM_SETSEL = 177;
inline constexpr UINT EM_SCROLLCARET = 183;
inline constexpr UINT EM_LIMITTEXT = 197;
inline constexpr LPARAM EIM_NUMBERS = 2;
inline constexpr UINT EN_KILLFOCUS = 512;

// List box
inline constexpr DWORD LBS_NOTIFY = 1;
inline constexpr DWORD LBS_SORT = 2;
inline constexpr LRESULT LB_ERR = -1;
inline constexpr UINT LB_ADDSTRING = 384;
inline constexpr UINT LB_INSERTSTRING = 385;
inline constexpr UINT LB_DELETESTRING = 386;
inline constexpr UINT LB_RESETCONTENT = 388;
inline constexpr UINT LB_SETCURSEL = 390;
inline constexpr UINT LB_GETCURSEL = 392;
inline constexpr UINT LB_GETTEXT = 393;
inline constexpr UINT LB_GETTEXTLEN = 394;
inline constexpr UINT LB_GETCOUNT = 395;
inline constexpr UINT LB_GETITEMDATA = 409;
inline constexpr UINT LB_SETITEMDATA = 410;

// Date picker
inline constexpr UINT DTM_GETSYSTEMTIME = 4097;
inline constexpr UINT DTM_SETSYSTEMTIME = 4098;
inline constexpr LRESULT GDT_VALID = 0;

// Up-down
inline constexpr UINT UDM_SETBUDDY = 1129;
inline constexpr DWORD UDS_WRAP = 0x1;
inline constexpr DWORD UDS_HORZ = 0x40;
inline constexpr DWORD UDS_EXPANDABLE = 0x200;
inline constexpr DWORD UDS_NOSCROLL = 0x400;
