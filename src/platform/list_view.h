#pragma once

#include "platform/window.h"

// The list view's messages and records (class "SysListView32", report view).

inline constexpr UINT LVM_SETIMAGELIST = 4099;
inline constexpr UINT LVM_GETITEMCOUNT = 4100;
inline constexpr UINT LVM_DELETEITEM = 4104;
inline constexpr UINT LVM_DELETEALLITEMS = 4105;
inline constexpr UINT LVM_GETNEXTITEM = 4108;
inline constexpr UINT LVM_GETITEMRECT = 4110;
inline constexpr UINT LVM_ENSUREVISIBLE = 4115;
inline constexpr UINT LVM_GETCOLUMNWIDTH = 4125;
inline constexpr UINT LVM_SETCOLUMNWIDTH = 4126;
inline constexpr UINT LVM_GETHEADER = 4127;
inline constexpr UINT HDM_GETITEMCOUNT = 0x1200;
inline constexpr UINT HDM_GETITEMRECT = 0x1207;
inline constexpr UINT LVM_SETITEMSTATE = 4139;
inline constexpr UINT LVM_GETSELECTEDCOUNT = 4146;
inline constexpr UINT LVM_SETEXTENDEDLISTVIEWSTYLE = 4150;
inline constexpr UINT LVM_GETITEMW = 4171;
inline constexpr UINT LVM_SETITEMW = 4172;
inline constexpr UINT LVM_INSERTITEMW = 4173;
inline constexpr UINT LVM_FINDITEMW = 4179;
inline constexpr UINT LVM_INSERTCOLUMNW = 4193;
inline constexpr UINT LVM_GETITEMTEXTW = 4211;

inline constexpr INT LVN_KEYDOWN = -155;
inline constexpr INT NM_CLICK = -2;

inline constexpr DWORD LVS_REPORT = 0x1;
inline constexpr DWORD LVS_SINGLESEL = 0x4;
inline constexpr DWORD LVS_SORTASCENDING = 0x10;
inline constexpr DWORD LVS_AUTOARRANGE = 0x100;
inline constexpr DWORD LVS_OWNERDRAWFIXED = 0x400;
inline constexpr DWORD LVS_NOCOLUMNHEADER = 0x4000;
inline constexpr DWORD LVS_NOSORTHEADER = 0x8000;
inline constexpr DWORD LVS_EX_SUBITEMIMAGES = 0x2;
inline constexpr DWORD LVS_EX_FULLROWSELECT = 0x20;
inline constexpr DWORD LVS_EX_LABELTIP = 0x4000;

inline constexpr UINT LVIF_TEXT = 1;
inline constexpr UINT LVIF_IMAGE = 2;
inline constexpr UINT LVIF_PARAM = 4;
inline constexpr UINT LVIS_FOCUSED = 1;
inline constexpr UINT LVIS_SELECTED = 2;
inline constexpr UINT LVNI_SELECTED = 2;
inline constexpr UINT LVFI_PARAM = 1;
inline constexpr UINT LVCF_FMT = 1;
inline constexpr UINT LVCF_WIDTH = 2;
inline constexpr UINT LVCF_TEXT = 4;
inline constexpr int LVCFMT_LEFT = 0;
inline constexpr int LVCFMT_RIGHT = 1;
inline constexpr int LVSIL_SMALL = 1;
inline constexpr int LVIR_ICON = 1;
inline constexpr int LVIR_LABEL = 2;
inline constexpr int LVSCW_AUTOSIZE_USEHEADER = -2;

struct LVITEMW {
    UINT mask = 0;
    int iItem = 0;
    int iSubItem = 0;
    UINT state = 0;
    UINT stateMask = 0;
    wchar_t* pszText = nullptr; ///< read on insert and set; on get a buffer of cchTextMax characters
    int cchTextMax = 0;
    int iImage = -1;
    LPARAM lParam = 0;
};

struct LVCOLUMNW {
    UINT mask = 0;
    int fmt = 0;
    int cx = 0;
    wchar_t* pszText = nullptr;
};

struct LVFINDINFOW {
    UINT flags = 0;
    LPARAM lParam = 0;
};

struct NMLVKEYDOWN {
    NMHDR hdr;
    WORD wVKey = 0;
};

/// A message of the device's own, for a program that orders the rows itself: at lParam stand the wParam indexes (int)
/// that the rows have now, from the new top down. Focus and selection stay with their rows. FALSE, and nothing happens,
/// for anything but an order of all rows.
inline constexpr UINT LVM_ORDERITEMS = 4352;

inline constexpr UINT ODT_LISTVIEW = 102;
inline constexpr UINT ODS_SELECTED = 1;
inline constexpr UINT ODS_FOCUS = 16;

struct DRAWITEMSTRUCT {
    UINT CtlType = 0;
    UINT CtlID = 0;
    UINT itemID = 0;
    UINT itemState = 0;
    HWND hwndItem = nullptr;
    HDC hDC = nullptr;
    RECT rcItem;
};

struct MEASUREITEMSTRUCT {
    UINT CtlType = 0;
    UINT CtlID = 0;
    UINT itemHeight = 0;
};
