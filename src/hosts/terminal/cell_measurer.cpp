#include "hosts/terminal/cell_measurer.h"

#include "platform/drawing/text_fit.h"
#include "platform/metrics.h"

#include <algorithm>
#include <cstdlib>
#include <unicode/uchar.h>

namespace device {

namespace {

// A cell is large beside the few pixels that lie between texts, so that rounding to cells loses those alone.
constexpr int CellWidth = 50; // at 96 pixels per inch, as the others
constexpr int CellHeight = 100;
/// The font of dialogs is a little lower than a cell: a field with its label then takes three rows exactly.
constexpr int DialogFontHeight = 96;
constexpr int DialogFontPoints = 8;
constexpr wchar_t Ellipsis = 0x2026;

int AtDpi(int length) {
    return std::max(1, length * Dpi() / 96);
}

/// They would turn round what the terminal shows beside the text.
bool IsDirection(wchar_t character) {
    return character == 0x61C || (character >= 0x200E && character <= 0x200F)
        || (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
}

bool IsCharacter(wchar_t character) {
    return character >= 0 && character <= UCHAR_MAX_VALUE && !U_IS_SURROGATE(character);
}

/// Marks on the character before, and what shows nothing at all.
bool HasNoWidth(wchar_t character) {
    constexpr wchar_t SoftHyphen = 0xAD;
    const bool isInnerJamo = character >= 0x1160 && character <= 0x11FF;
    switch (u_charType(character)) {
    case U_NON_SPACING_MARK:
    case U_ENCLOSING_MARK:
        return true;
    case U_FORMAT_CHAR:
        return character != SoftHyphen;
    default:
        return isInnerJamo;
    }
}

bool IsWide(wchar_t character) {
    const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH;
}

} // namespace

CellMeasurer::CellMeasurer(bool unicode)
    : unicode_(unicode)
    , cell_{AtDpi(CellWidth), AtDpi(CellHeight)}
    , smallHeight_(AtDpi(DialogFontHeight))
    , smallFont_(DialogFontPoints * Dpi() / 72) {
}

int CellMeasurer::Columns(wchar_t character) const {
    if (!IsCharacter(character))
        return 1;
    if (!IsControlCharacter(character) && HasNoWidth(character))
        return 0;
    if (!unicode_)
        return static_cast<int>(Shown(character).size());
    return IsWide(character) ? 2 : 1;
}

std::wstring CellMeasurer::Shown(wchar_t character) const {
    if (character == L'\t' || character == L'\n' || character == L'\r' || character == 0x2028 || character == 0x2029)
        return L" ";
    if (IsDirection(character))
        return {};
    if (IsControlCharacter(character) || !IsCharacter(character))
        return unicode_ ? L"\uFFFD" : L"?";
    if (unicode_ || character < 0x80)
        return std::wstring(1, character);
    switch (character) {
    case Ellipsis:
        return L"..";
    case 0x2713: // the check mark
        return L"*";
    case 0x25B8: // the mark of an inner popup
        return L">";
    case 0xA0:
        return L" ";
    default:
        return L"?";
    }
}

FontMetrics CellMeasurer::Metrics(const FontDescription& font) {
    const int height = std::abs(font.height) <= smallFont_ ? smallHeight_ : static_cast<int>(cell_.cy);
    const int descent = height / 5;
    return {height - descent, descent, 0, static_cast<int>(cell_.cx)};
}

int CellMeasurer::Width(const FontDescription& /*font*/, std::wstring_view text) {
    int columns = 0;
    for (const wchar_t character : text)
        columns += Columns(character);
    return columns * static_cast<int>(cell_.cx);
}

std::vector<double> CellMeasurer::PrefixWidths(const FontDescription& /*font*/, std::wstring_view text) {
    std::vector<double> widths{0};
    for (const wchar_t character : text)
        widths.push_back(widths.back() + Columns(character) * static_cast<int>(cell_.cx));
    return widths;
}

int CellMeasurer::CaretX(const FontDescription& font, std::wstring_view text, std::size_t index) {
    return Width(font, text.substr(0, std::min(index, text.size())));
}

} // namespace device
