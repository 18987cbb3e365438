#include "hosts/window/preparation.h"

#include "platform/drawing.h"
#include "platform/drawing/cairo_canvas.h"
#include "platform/locale.h"
#include "platform/system/locale_data.h"

#include <clocale>
#include <system_error>

namespace device {

namespace {

constexpr wchar_t Sample[] = L"0123456789 abcdefghijklmnopqrstuvwxyz";

void PrepareFonts() {
    LOGFONTW font;
    GetObjectW(GetStockObject(SYSTEM_FONT), sizeof font, &font);
    for (const LONG weight : {FW_NORMAL, FW_BOLD}) {
        const FontDescription description{
            static_cast<int>(font.lfHeight), static_cast<int>(weight), false, font.lfFaceName};
        PangoMeasurer().Metrics(description);
        PangoMeasurer().Width(description, Sample);
    }
}

void PrepareFormats() {
    const SYSTEMTIME day{2000, 1, 0, 1, 0, 0, 0, 0};
    GetNumberFormatW(LOCALE_USER_DEFAULT, 0, L"1.5", nullptr, nullptr, 0);
    GetCurrencyFormatW(LOCALE_USER_DEFAULT, 0, L"1.5", nullptr, nullptr, 0);
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &day, nullptr, nullptr, 0);
}

} // namespace

Preparation::Preparation() {
    // Opening the display sets another locale for a moment: what reads the process's own does so now, and the thread
    // has one for itself.
    NoteProcessLocale();
    NoteProcessLanguage();
    try {
        thread_.emplace([] {
            const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
            uselocale(plain);
            PrepareFonts();
            PrepareFormats();
            uselocale(LC_GLOBAL_LOCALE);
            freelocale(plain);
        });
    } catch (const std::system_error&) {
        thread_.reset();
    }
}

} // namespace device
