#pragma once

#include "platform/types.h"

// The device has its libraries and all its control classes from the start; these report so.

struct INITCOMMONCONTROLSEX {
    DWORD dwSize = 0;
    DWORD dwICC = 0;
};

inline constexpr DWORD ICC_DATE_CLASSES = 0x100;

inline BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX* classes) {
    return classes && classes->dwSize == sizeof(INITCOMMONCONTROLSEX) ? TRUE : FALSE;
}

inline BOOL SHInitExtraControls() {
    return TRUE;
}

inline HRESULT CoInitializeEx(void* /*reserved*/, DWORD /*flags*/) {
    return 0;
}

inline void CoUninitialize() {
}
