#include "lists/app_fonts.h"

#include "lists/client_context.h"
#include "platform/dialog.h"
#include "platform/drawing.h"

namespace {

constexpr int PointsPerInch = 72;
constexpr int LabelPoints = 10;
constexpr UINT InterfaceFontHeight = 2; ///< of SHGetUIMetrics

/// 0: as the user has set up the device.
int PointsOf(int textSize) {
    switch (textSize) {
    case 0:
        return 0;
    case 2:
        return 12;
    case 3:
        return 14;
    default:
        return 10;
    }
}

/// Below 0, as the height of the characters.
LONG HeightOf(int textSize, int pixelsPerInch) {
    const int points = PointsOf(textSize);
    if (points > 0)
        return -static_cast<LONG>(
            static_cast<float>(pixelsPerInch) * static_cast<float>(points) / static_cast<float>(PointsPerInch));
    DWORD pixels = 0;
    SHGetUIMetrics(InterfaceFontHeight, &pixels, sizeof pixels, nullptr);
    return -static_cast<LONG>(pixels);
}

void DeleteFont(HFONT& font) {
    if (font && DeleteObject(font))
        font = nullptr;
}

} // namespace

void CreateAppFonts() {
    if (TextFont)
        DeleteAppFonts();
    LOGFONTW description;
    GetObjectW(GetStockObject(SYSTEM_FONT), sizeof description, &description);
    const CClientContext desktop(nullptr);
    const int pixelsPerInch = GetDeviceCaps(desktop.GetHandle(), LOGPIXELSY);

    description.lfHeight = HeightOf(theSettings.TextSize, pixelsPerInch);
    TextFont = CreateFontIndirectW(&description);
    description.lfWeight = FW_BOLD;
    BoldTextFont = CreateFontIndirectW(&description);
    description.lfHeight = -(pixelsPerInch * LabelPoints) / PointsPerInch;
    LabelFont = CreateFontIndirectW(&description);
}

void DeleteAppFonts() {
    DeleteFont(TextFont);
    DeleteFont(BoldTextFont);
    DeleteFont(LabelFont);
}
