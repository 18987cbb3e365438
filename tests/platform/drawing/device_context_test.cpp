#include "cell_measurer.h"
#include "platform/drawing/device_context.h"
#include "platform/drawing/recording_canvas.h"

#include <gtest/gtest.h>

using namespace device;

namespace {

constexpr RECT Screen{0, 0, 400, 400};

class DeviceContextTest : public testing::Test {
protected:
    ~DeviceContextTest() override { DestroyContext(context); }

    CellMeasurer measurer;
    RecordingCanvas canvas{measurer};
    HDC context = CreateContext({.canvas = &canvas, .origin = {100, 50}, .clip = Screen});
};

TEST_F(DeviceContextTest, StaleHandlesGiveTheDocumentedFailure) {
    const HFONT font = GetStockObject(SYSTEM_FONT);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    RECT place{0, 0, 50, 50};
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_NE(CreateSolidBrush(0), brush) << "the place is used again, the number is not";
    EXPECT_FALSE(DeleteObject(brush));
    EXPECT_EQ(FillRect(context, &place, brush), 0);
    EXPECT_EQ(FillRect(context, &place, font), 0) << "a font is no brush";
    for (const std::intptr_t bad : {std::intptr_t{0}, std::intptr_t{-1}, INTPTR_MIN})
        EXPECT_EQ(SelectObject(context, reinterpret_cast<HBRUSH>(bad)), nullptr) << bad; // NOLINT

    const HDC stale = CreateContext({.canvas = &canvas, .clip = Screen, .font = font});
    EXPECT_TRUE(DestroyContext(stale));
    EXPECT_EQ(DrawTextW(stale, L"x", -1, &place, 0), 0);
    EXPECT_EQ(SaveDC(stale), 0);
}

TEST_F(DeviceContextTest, FontsKeepTheirDescriptionAndOutliveTheirHandleInAContext) {
    LOGFONTW description;
    const HFONT system = GetStockObject(SYSTEM_FONT);
    ASSERT_EQ(GetObjectW(system, sizeof(description), &description), int{sizeof(description)});
    EXPECT_EQ(GetObjectW(system, sizeof(description) - 1, &description), 0);
    std::fill(std::begin(description.lfFaceName), std::end(description.lfFaceName), L'W');
    description.lfHeight = 20;
    const HFONT font = CreateFontIndirectW(&description);
    EXPECT_EQ(FontOf(font).face, std::wstring(LF_FACESIZE, L'W')) << "a face name may fill its field without a NUL";
    EXPECT_EQ(SelectObject(context, font), system);
    EXPECT_TRUE(DeleteObject(font));
    RECT place{0, 0, 50, 50};
    DrawTextW(context, L"x", -1, &place, 0);
    EXPECT_EQ(canvas.Texts().back().font.height, 20);
    EXPECT_EQ(SelectObject(context, system), font);
    DeleteObject(system);
    EXPECT_NE(GetObjectW(system, sizeof(description), &description), 0) << "it is never deleted";
}

TEST_F(DeviceContextTest, RestoreGoesBackToTheStateThatIsNamed) {
    for (const int state : {1, 2, 3}) {
        ClipContext(context, {0, 0, state == 1 ? 1000 : 20 - state, 10});
        SetTextColor(context, static_cast<COLORREF>(state));
        EXPECT_EQ(SaveDC(context), state);
    }
    for (const auto& [state, restored, right] : {std::tuple{-1, 3U, 117}, {1, 1U, 400}}) {
        EXPECT_TRUE(RestoreDC(context, state));
        EXPECT_EQ(SetTextColor(context, 0), restored);
        EXPECT_EQ(ContextClip(context).right, right);
    }
    for (const int bad : {-1, 0, 1, INT_MIN})
        EXPECT_FALSE(RestoreDC(context, bad)) << bad;
}

TEST_F(DeviceContextTest, TextGoesWhereTheFlagsSay) {
    constexpr UINT Line = DT_SINGLELINE | DT_NOPREFIX;
    // The runs as text@left,top in the canvas's coordinates.
    const std::tuple<const wchar_t*, RECT, UINT, std::wstring, int> Cases[]
        = {{L"abc", {0, 0, 100, 20}, Line | DT_RIGHT, L"abc@170,50 ", 20},
            {L"abc", {0, 0, 101, 20}, Line | DT_CENTER, L"abc@135,50 ", 20},
            {L"abc", {0, 0, 100, 60}, Line | DT_VCENTER, L"abc@100,70 ", 20},
            {L"abcdef", {0, 0, 40, 20}, Line | DT_END_ELLIPSIS, L"abc…@100,50 ", 20},
            {L"abcdef", {50, 0, 60, 20}, Line | DT_RIGHT | DT_NOCLIP, L"abcdef@100,50 ", 20},
            {L"abc", {0, 0, 0, 20}, Line, L"", 20}, {L"abc", {0, 0, 0, 20}, Line | DT_NOCLIP, L"abc@100,50 ", 20},
            {L"two\nlines", {0, 0, 100, 40}, DT_NOPREFIX, L"two@100,50 lines@100,70 ", 40},
            {L"end\n", {0, 0, 100, 40}, DT_NOPREFIX, L"end@100,50 ", 20},
            {L"one two", {0, 0, 40, 60}, DT_NOPREFIX | DT_WORDBREAK | DT_CENTER, L"one@105,50 two@105,70 ", 40},
            {L"&Fuel && Oil&", {0, 0, 200, 20}, DT_SINGLELINE, L"Fuel & Oil@100,50 ", 20},
            {L"&Fuel", {0, 0, 200, 20}, Line, L"&Fuel@100,50 ", 20}};
    for (const auto& [text, place, format, expected, height] : Cases) {
        RECT rectangle = place;
        canvas.BeginFrame(Screen);
        EXPECT_EQ(DrawTextW(context, text, -1, &rectangle, format), height) << testing::PrintToString(text);
        std::wstring runs;
        for (const PaintedText& run : canvas.Texts())
            runs += run.text + L'@' + std::to_wstring(run.place.left) + L',' + std::to_wstring(run.place.top) + L' ';
        EXPECT_EQ(runs, expected) << format;
    }
}

} // namespace
