#include "platform/drawing/cairo/cairo_canvas.h"
#include "platform/drawing/picture.h"

#include <climits>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>

using namespace device;

namespace {

constexpr COLORREF White = RGB(255, 255, 255);
constexpr COLORREF Red = RGB(200, 0, 0);

std::uint32_t PixelAt(const CairoCanvas& canvas, int x, int y) {
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, canvas.Pixels() + y * canvas.Stride() + x * 4, sizeof(pixel));
    return pixel & 0xFFFFFFU;
}

/// The columns between the first and the last that are not white, both included; 0 when all are.
int InkWidth(const CairoCanvas& canvas) {
    int first = INT_MAX;
    int last = INT_MIN;
    for (int y = 0; y < canvas.ImageSize().cy; ++y) {
        for (int x = 0; x < canvas.ImageSize().cx; ++x) {
            if (PixelAt(canvas, x, y) != 0xFFFFFF) {
                first = std::min(first, x);
                last = std::max(last, x);
            }
        }
    }
    return first > last ? 0 : last - first + 1;
}

TEST(CairoCanvas, ALineFillsExactlyItsPixelsAtEveryZoom) {
    for (const auto& [zoom, width, rows] :
        {std::tuple{1.0, 1, 1}, {2.0, 1, 2}, {1.5, 1, 1}, {2.0, 0, 1}, {1.0, 3, 3}, {0.5, 1, 1}}) {
        CairoCanvas canvas({20, 20}, zoom);
        canvas.Fill({0, 0, 20, 20}, White, 255);
        canvas.Line({0, 10}, {10, 10}, Red, width);
        int found = 0;
        for (int y = 0; y < canvas.ImageSize().cy; ++y)
            found += PixelAt(canvas, 0, y) == 0xC80000 ? 1 : 0;
        EXPECT_EQ(found, rows) << zoom << ' ' << width;
        EXPECT_EQ(InkWidth(canvas), std::lround(10 * zoom)) << "the end point is not part of a line";
    }
}

TEST(CairoCanvas, ClipsHoldUntilTheNextFrame) {
    CairoCanvas canvas({10, 10}, 2);
    canvas.Fill({0, 0, 10, 10}, White, 255);
    canvas.PushClip({2, 2, 4, 4});
    canvas.PushClip({3, 0, 10, 10});
    canvas.Fill({0, 0, 10, 10}, Red, 255);
    for (const auto& [x, y, pixel] :
        {std::tuple{5, 5, 0xFFFFFFU}, {6, 4, 0xC80000}, {7, 7, 0xC80000}, {8, 7, 0xFFFFFF}})
        EXPECT_EQ(PixelAt(canvas, x, y), pixel) << x;
    canvas.BeginFrame({0, 0, 10, 10});
    canvas.Fill({0, 0, 10, 10}, Red, 255);
    EXPECT_EQ(PixelAt(canvas, 19, 19), 0xC80000U) << "as after one that was broken off";
}

TEST(CairoCanvas, ATextTakesItsMeasuredWidthAtEveryZoom) {
    for (const wchar_t* text : {L"HHillWWWW 10.00 gal @ $3.10 (East) ======H", L"H\u6F22\u5B57\u6F22\u5B57\u6F22H"}) {
        const int measured = DeviceMeasurer().Width({}, text);
        for (const double zoom : {1.0, 1.5, 2.0, 3.0}) {
            CairoCanvas canvas({measured + 40, 40}, zoom);
            canvas.Fill({0, 0, measured + 40, 40}, White, 255);
            canvas.Text(20, 10, text, {}, 0);
            // The first and the last letter keep some room to their sides.
            EXPECT_NEAR(InkWidth(canvas) / zoom, measured - 2.5, 1.5) << zoom << ' ' << testing::PrintToString(text);
        }
    }
}

TEST(CairoCanvas, DialogsHaveThePlainCutOfTheFace) {
    const FontDescription dialogs{-10, 400, false, L"MS Shell Dlg"};
    EXPECT_GT(
        DeviceMeasurer().Width(dialogs, L"1/21/2008"), DeviceMeasurer().Width({-10, 400, false, {}}, L"1/21/2008"));
}

TEST(CairoCanvas, PicturesFillTheirPlaceAndABadOneDrawsNothing) {
    CairoCanvas canvas({40, 40}, 1.5);
    canvas.Fill({0, 0, 40, 40}, White, 255);
    const unsigned char noPng[] = {0x89, 'P', 'N', 'G', 0};
    canvas.DrawPicture({0, 0, 40, 40}, {1, {{1, 16, noPng}}});
    EXPECT_EQ(InkWidth(canvas), 0);
    canvas.DrawPicture({0, 0, 32, 32}, FindPicture(nullptr, ExclamationPicture));
    EXPECT_NEAR(InkWidth(canvas), 48, 8);
}

TEST(PangoMeasurer, HeightsMeanCharactersOrTheCell) {
    const auto heightOf = [](int height) { return DeviceMeasurer().Metrics({height, 400, false, {}}).Height(); };
    for (const int height : {1, 4, 13, 59}) {
        EXPECT_EQ(heightOf(height), height);
        EXPECT_GE(heightOf(-height), height);
    }
    for (const int height : {0, INT_MIN, INT_MAX})
        EXPECT_GT(heightOf(height), 0) << height;
}

TEST(PangoMeasurer, AnyTextIsOneLineAndDrawsSomething) {
    const auto width = [](std::wstring_view text) { return DeviceMeasurer().Width({}, text); };
    EXPECT_EQ(width(L"a\nb\tc\u2029d"), width(L"a b c d"));
    const wchar_t broken[] = {L'a', static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x110000), L'\0', L'\x1B', L'b'};
    EXPECT_EQ(width({broken, std::size(broken)}), width(L"a\uFFFD\uFFFD\uFFFD\uFFFDb"));
    EXPECT_GT(width(L"\U0001F469\u200D\U0001F527\U0010FFFD"), 0) << "missing glyphs take room";
    EXPECT_GT(width(std::wstring(20000, L'x')), 20000);
}

} // namespace
