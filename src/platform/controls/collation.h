#pragma once

#include "platform/locale.h"
#include "platform/system/locale_data.h"

#include <algorithm>
#include <string>

namespace device {

// What both kinds of list do with the texts of their rows.

/// In the order of the locale, ignoring case.
inline bool IsBefore(const std::wstring& first, const wchar_t* second) {
    return TheLocale().Compare(first, second).value_or(0) < 0;
}

/// The next of `count` rows behind `row`, around the end, whose text begins with a character, ignoring case; -1 when
/// there is none.
template <typename TextOfRow> int NextBeginningWith(wchar_t character, int count, int row, TextOfRow textOfRow) {
    wchar_t wanted[2] = {character, 0};
    CharLowerW(wanted);
    for (int tried = 1; tried <= count; ++tried) {
        const int next = (std::max(row, -1) + tried) % count;
        wchar_t first[2] = {textOfRow(next)[0], 0};
        CharLowerW(first);
        if (first[0] != 0 && first[0] == wanted[0])
            return next;
    }
    return -1;
}

} // namespace device
