#pragma once

#include "platform/time.h"

#include <cstdio>
#include <string>

/// As in "2026-03-01T10:00:00.500/0", with the day of the week behind it.
inline std::string Text(const SYSTEMTIME& time) {
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03d/%d", time.wYear, time.wMonth, time.wDay,
        time.wHour, time.wMinute, time.wSecond, time.wMilliseconds, time.wDayOfWeek);
    return text;
}
