#include "cell_measurer.h"
#include "platform/drawing/device_context.h"
#include "platform/drawing/handle_table.h"
#include "platform/drawing/icons.h"
#include "platform/drawing/recording_canvas.h"
#include "platform/metrics.h"

#include <gtest/gtest.h>

using namespace device;

namespace {

constexpr RECT Screen{0, 0, 400, 400};

class DeviceContextTest : public testing::Test {
protected:
    ~DeviceContextTest() override { DestroyContext(context); }

    CellMeasurer measurer;
    RecordingCanvas canvas{measurer};
    HDC context = CreateContext(canvas, {100, 50}, Screen, nullptr);
};

TEST(HandleTable, AHandleOfSomethingGoneFindsNothing) {
    HandleTable<HFONT, int> table;
    const HFONT first = table.Add(1);
    const HFONT second = table.Add(2);
    EXPECT_TRUE(table.Remove(first));
    EXPECT_FALSE(table.Remove(first));
    const HFONT third = table.Add(3);
    EXPECT_NE(third, first) << "the place is used again, the number is not";
    EXPECT_EQ(table.Find(first), nullptr);
    EXPECT_EQ(*table.Find(second), 2);
    EXPECT_EQ(*table.Find(third), 3);
    for (const std::intptr_t bad : {std::intptr_t{0}, std::intptr_t{-1}, std::intptr_t{0xFFFF}, INTPTR_MIN})
        EXPECT_EQ(table.Find(reinterpret_cast<HFONT>(bad)), nullptr) << bad; // NOLINT
}

TEST_F(DeviceContextTest, StaleHandlesGiveTheDocumentedFailure) {
    const HFONT font = GetStockObject(SYSTEM_FONT);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    RECT place{0, 0, 50, 50};
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_FALSE(DeleteObject(brush));
    EXPECT_EQ(FillRect(context, &place, brush), 0);
    EXPECT_EQ(FillRect(context, &place, font), 0) << "a font is no brush";
    EXPECT_EQ(SelectObject(context, brush), nullptr);

    const HDC stale = CreateContext(canvas, {}, Screen, font);
    EXPECT_TRUE(DestroyContext(stale));
    SIZE size;
    EXPECT_EQ(DrawTextW(stale, L"x", -1, &place, 0), 0);
    EXPECT_FALSE(GetTextExtentPoint32W(stale, L"x", 1, &size));
    EXPECT_FALSE(LineTo(stale, 1, 1));
    EXPECT_EQ(SaveDC(stale), 0);
    EXPECT_EQ(ReleaseDC(nullptr, stale), 0);
}

TEST_F(DeviceContextTest, FontsKeepTheirDescriptionAndOutliveTheirHandleInAContext) {
    LOGFONTW description;
    ASSERT_EQ(GetObjectW(GetStockObject(SYSTEM_FONT), sizeof(description), &description), int{sizeof(description)});
    EXPECT_EQ(description.lfHeight, -Dpi() * 9 / 72);
    EXPECT_EQ(description.lfWeight, FW_NORMAL);
    EXPECT_EQ(GetObjectW(GetStockObject(SYSTEM_FONT), sizeof(description) - 1, &description), 0);

    std::fill(std::begin(description.lfFaceName), std::end(description.lfFaceName), L'W');
    description.lfHeight = 20;
    description.lfWeight = FW_BOLD;
    const HFONT font = CreateFontIndirectW(&description);
    EXPECT_EQ(FontOf(font).face, std::wstring(LF_FACESIZE, L'W')) << "a face name may fill its field without a NUL";
    EXPECT_EQ(SelectObject(context, font), GetStockObject(SYSTEM_FONT));
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_EQ(GetObjectW(font, sizeof(description), &description), 0);
    EXPECT_EQ(ContextFont(context).height, 20);
    EXPECT_EQ(SelectObject(context, GetStockObject(SYSTEM_FONT)), font);
    EXPECT_TRUE(DeleteObject(GetStockObject(SYSTEM_FONT)));
    EXPECT_NE(GetObjectW(GetStockObject(SYSTEM_FONT), sizeof(description), &description), 0) << "it is never deleted";
}

TEST_F(DeviceContextTest, RestoreGoesBackToTheStateThatIsNamed) {
    EXPECT_EQ(SetTextColor(context, 1), RGB(0, 0, 0));
    EXPECT_EQ(SaveDC(context), 1);
    SetTextColor(context, 2);
    ClipContext(context, {0, 0, 10, 10});
    EXPECT_EQ(SaveDC(context), 2);
    SetTextColor(context, 3);
    EXPECT_TRUE(RestoreDC(context, -1));
    EXPECT_EQ(ContextTextColor(context), 2U);
    EXPECT_EQ(ContextClip(context).right, 110);
    EXPECT_TRUE(RestoreDC(context, 1));
    EXPECT_EQ(ContextTextColor(context), 1U);
    EXPECT_EQ(ContextClip(context).right, 400);
    for (const int bad : {-1, 0, 1, 9, INT_MIN})
        EXPECT_FALSE(RestoreDC(context, bad)) << bad;
}

TEST_F(DeviceContextTest, TextGoesWhereTheFlagsSay) {
    constexpr UINT Line = DT_SINGLELINE | DT_NOPREFIX;
    const struct {
        const wchar_t* text;
        RECT place;
        UINT format;
        std::vector<std::pair<std::wstring, POINT>> runs; // in the canvas's coordinates
        int height;
    } Cases[] = {{L"abc", {0, 0, 100, 20}, Line | DT_RIGHT, {{L"abc", {170, 50}}}, 20},
        {L"abc", {0, 0, 101, 20}, Line | DT_CENTER, {{L"abc", {135, 50}}}, 20},
        {L"abc", {0, 0, 100, 60}, Line | DT_VCENTER, {{L"abc", {100, 70}}}, 20},
        {L"abcdef", {0, 0, 40, 20}, Line | DT_END_ELLIPSIS, {{L"abc…", {100, 50}}}, 20},
        {L"abcdef", {50, 0, 60, 20}, Line | DT_RIGHT | DT_NOCLIP, {{L"abcdef", {100, 50}}}, 20},
        {L"abc", {0, 0, 0, 20}, Line, {}, 20}, {L"abc", {0, 0, 0, 20}, Line | DT_NOCLIP, {{L"abc", {100, 50}}}, 20},
        {L"two\nlines", {0, 0, 100, 40}, DT_NOPREFIX, {{L"two", {100, 50}}, {L"lines", {100, 70}}}, 40},
        {L"end\n", {0, 0, 100, 40}, DT_NOPREFIX, {{L"end", {100, 50}}}, 20},
        {L"one two", {0, 0, 40, 60}, DT_NOPREFIX | DT_WORDBREAK | DT_CENTER, {{L"one", {105, 50}}, {L"two", {105, 70}}},
            40},
        {L"&Fuel && Oil&", {0, 0, 200, 20}, DT_SINGLELINE, {{L"Fuel & Oil", {100, 50}}}, 20},
        {L"&Fuel", {0, 0, 200, 20}, Line, {{L"&Fuel", {100, 50}}}, 20}};
    for (const auto& [text, place, format, runs, height] : Cases) {
        RECT rectangle = place;
        canvas.BeginFrame(Screen);
        EXPECT_EQ(DrawTextW(context, text, -1, &rectangle, format), height) << testing::PrintToString(text);
        canvas.EndFrame();
        ASSERT_EQ(canvas.Texts().size(), runs.size()) << testing::PrintToString(text);
        for (std::size_t i = 0; i < runs.size(); ++i) {
            EXPECT_EQ(canvas.Texts()[i].text, runs[i].first);
            EXPECT_EQ(canvas.Texts()[i].place.left, runs[i].second.x) << testing::PrintToString(text) << format;
            EXPECT_EQ(canvas.Texts()[i].place.top, runs[i].second.y) << testing::PrintToString(text) << format;
        }
    }
}

TEST_F(DeviceContextTest, MeasuringDrawsNothingAndGivesTheRoomNeeded) {
    RECT place{5, 5, 45, 6};
    EXPECT_EQ(DrawTextW(context, L"one two three", -1, &place, DT_CALCRECT | DT_WORDBREAK), 80);
    EXPECT_EQ(place.right, 45) << "five letters do not fit: the long word is broken";
    EXPECT_EQ(place.bottom, 85);
    place = {5, 5, 6, 6};
    EXPECT_EQ(DrawTextW(context, L"one two", 3, &place, DT_CALCRECT | DT_SINGLELINE), 20);
    EXPECT_EQ(place.right, 35);
    EXPECT_TRUE(canvas.Texts().empty());
    SIZE size;
    EXPECT_TRUE(GetTextExtentPoint32W(context, L"ab cd", 2, &size));
    EXPECT_EQ(size.cx, 20);
    EXPECT_EQ(size.cy, 20);
}

TEST(Icons, ListsOwnTheirPicturesAndGiveIconsOfTheirOwn) {
    const HIMAGELIST list = ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 1, 1);
    const HICON bell = LoadIconW(nullptr, ExclamationPicture);
    const HICON note = LoadIconW(nullptr, InformationPicture);
    EXPECT_EQ(LoadIconW(nullptr, 4711), nullptr);
    EXPECT_EQ(ImageList_ReplaceIcon(list, -1, bell), 0);
    EXPECT_EQ(ImageList_ReplaceIcon(list, 1, note), -1);
    EXPECT_EQ(ImageList_ReplaceIcon(list, 0, note), 0);
    EXPECT_TRUE(DestroyIcon(note) && DestroyIcon(bell));
    const HICON own = ImageList_GetIcon(list, 0, 0);
    EXPECT_TRUE(ImageList_RemoveAll(list) && ImageList_Destroy(list));
    EXPECT_FALSE(ImageList_Destroy(list));
    ASSERT_NE(IconPicture(own), nullptr);
    EXPECT_EQ(IconPicture(own)->id, InformationPicture);
    EXPECT_TRUE(DestroyIcon(own));
}

TEST(Icons, TheSizeNextAboveIsTaken) {
    const Picture picture = FindPicture(nullptr, InformationPicture);
    for (const auto& [wanted, size] : {std::pair{1, 16}, {16, 16}, {17, 32}, {33, 48}, {64, 64}, {500, 64}})
        EXPECT_EQ(BestSize(picture, wanted)->size, size) << wanted;
    EXPECT_EQ(BestSize(Picture{}, 16), nullptr);
}

} // namespace
