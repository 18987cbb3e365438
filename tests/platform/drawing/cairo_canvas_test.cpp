#include "platform/drawing/cairo_canvas.h"
#include "platform/drawing/picture.h"

#include <climits>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
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
    const struct {
        double zoom;
        int width;
        int rows;
    } Cases[] = {{1, 1, 1}, {2, 1, 2}, {3, 1, 3}, {1.5, 1, 1}, {2, 0, 1}, {4, 0, 1}, {1, 3, 3}, {0.5, 1, 1}};
    for (const auto& [zoom, width, rows] : Cases) {
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

TEST(CairoCanvas, NeighboursMeetWithoutASeam) {
    CairoCanvas canvas({30, 3}, 1.3);
    for (LONG x = 0; x < 30; ++x)
        canvas.Fill({x, 0, x + 1, 3}, Red, 255);
    for (int x = 0; x < canvas.ImageSize().cx; ++x)
        ASSERT_EQ(PixelAt(canvas, x, 1), 0xC80000U) << x;
}

TEST(CairoCanvas, AFrameChangesOnlyItsDirtyPart) {
    CairoCanvas canvas({10, 10}, 2);
    canvas.Fill({0, 0, 10, 10}, White, 255);
    canvas.BeginFrame({2, 2, 4, 4});
    canvas.PushClip({3, 0, 10, 10});
    canvas.Fill({0, 0, 10, 10}, Red, 255);
    canvas.EndFrame();
    EXPECT_EQ(PixelAt(canvas, 5, 5), 0xFFFFFFU);
    EXPECT_EQ(PixelAt(canvas, 6, 4), 0xC80000U);
    EXPECT_EQ(PixelAt(canvas, 7, 7), 0xC80000U);
    EXPECT_EQ(PixelAt(canvas, 8, 7), 0xFFFFFFU);
    canvas.PopClip();
    canvas.Fill({0, 0, 10, 10}, Red, 255);
    EXPECT_EQ(PixelAt(canvas, 19, 19), 0xC80000U) << "the clip ended with its frame";
}

TEST(CairoCanvas, ATextTakesItsMeasuredWidthAtEveryZoom) {
    FontDescription font;
    font.height = -13;
    for (const wchar_t* text : {L"HHillWWWW 10.00 gal @ $3.10 (East) ======H",
             L"HÖl Größe \u03A9\u03BC\u03AD\u03B3\u03B1H", L"H\u6F22\u5B57\u6F22\u5B57\u6F22\u5B57H"}) {
        const int measured = PangoMeasurer().Width(font, text);
        for (const double zoom : {1.0, 1.5, 2.0, 3.0}) {
            CairoCanvas canvas({measured + 40, 40}, zoom);
            canvas.Fill({0, 0, measured + 40, 40}, White, 255);
            canvas.Text(20, 10, text, font, 0);
            // The first and the last letter keep some room to their sides.
            EXPECT_NEAR(InkWidth(canvas) / zoom, measured - 2.5, 1.5) << zoom << ' ' << testing::PrintToString(text);
        }
    }
}

TEST(CairoCanvas, PicturesFillTheirPlaceAndABadOneDrawsNothing) {
    CairoCanvas canvas({40, 40}, 1.5);
    canvas.Fill({0, 0, 40, 40}, White, 255);
    const unsigned char noPng[] = {0x89, 'P', 'N', 'G', 0};
    canvas.DrawPicture({0, 0, 40, 40}, {1, {{1, 16, noPng}}});
    canvas.DrawPicture({5, 5, 5, 40}, FindPicture(nullptr, ExclamationPicture));
    EXPECT_EQ(InkWidth(canvas), 0);
    canvas.DrawPicture({0, 0, 32, 32}, FindPicture(nullptr, ExclamationPicture));
    EXPECT_NEAR(InkWidth(canvas), 48, 8);
}

TEST(CairoCanvas, WritesAnEightBitRgbPng) {
    const std::filesystem::path path = std::filesystem::path(testing::TempDir()) / "shot \u00E4.png";
    CairoCanvas canvas({7, 5}, 2);
    ASSERT_TRUE(canvas.WritePng(path.string()));
    std::ifstream file(path, std::ios::binary);
    unsigned char head[29] = {};
    file.read(reinterpret_cast<char*>(head), sizeof(head)); // NOLINT
    EXPECT_EQ(std::memcmp(head, "\x89PNG\r\n\x1A\n", 8), 0);
    EXPECT_EQ(head[19], 14);
    EXPECT_EQ(head[23], 10);
    EXPECT_EQ(head[24], 8) << "bits a channel";
    EXPECT_EQ(head[25], 2) << "RGB, no alpha";
    std::filesystem::remove(path);
    EXPECT_FALSE(canvas.WritePng("/no/such/place/shot.png"));
}

TEST(PangoMeasurer, HeightsMeanCharactersOrTheCell) {
    TextMeasurer& measurer = PangoMeasurer();
    for (int height = 1; height < 60; height += 3) {
        FontDescription font;
        font.height = height;
        EXPECT_EQ(measurer.Metrics(font).Height(), height);
        font.height = -height;
        EXPECT_GE(measurer.Metrics(font).Height(), height);
    }
    for (const int height : {0, INT_MIN, INT_MAX}) {
        FontDescription font;
        font.height = height;
        EXPECT_GT(measurer.Metrics(font).Height(), 0) << height;
    }
}

TEST(PangoMeasurer, AnyTextIsOneLineAndDrawsSomething) {
    TextMeasurer& measurer = PangoMeasurer();
    const FontDescription font;
    EXPECT_EQ(measurer.Width(font, L""), 0);
    EXPECT_EQ(measurer.Width(font, L"a\nb\tc\u2029d"), measurer.Width(font, L"a b c d"));
    const wchar_t broken[] = {L'a', static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x110000), L'\0', L'\x1B', L'b'};
    const std::wstring_view text(broken, std::size(broken));
    EXPECT_EQ(measurer.Width(font, text), measurer.Width(font, L"a\uFFFD\uFFFD\uFFFD\uFFFDb"));
    EXPECT_GT(measurer.Width(font, L"\U0001F469\u200D\U0001F527\U0010FFFD"), 0) << "missing glyphs take room";
    EXPECT_GT(measurer.Width(font, std::wstring(20000, L'x')), 20000);
}

} // namespace
