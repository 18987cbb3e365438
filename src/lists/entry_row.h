#pragma once

#include "platform/drawing.h"

#include <string>

class CEntry;

/// The texts of one row of the log.
struct CEntryRowTexts {
    std::wstring Date;
    std::wstring Odometer;
    std::wstring Description;
    std::wstring Amount;
};

/// `date` is the row's own text, which stands since the row was made. No text has more than 259 characters.
CEntryRowTexts MakeEntryRowTexts(const CEntry& entry, const wchar_t* date);

/// Fills a row and sets the text's colour. Shades go by the position in the list, which counts from 0.
void FillEntryRow(HDC context, const RECT& place, int row, bool selected);

/// Two lines in `place`: the figures on the right stand whole, the texts on the left give way. `gap` is the distance
/// between them.
void DrawEntryRowTexts(HDC context, const RECT& place, LONG gap, const CEntryRowTexts& texts);
