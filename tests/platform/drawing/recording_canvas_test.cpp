#include "cell_measurer.h"
#include "platform/drawing/recording_canvas.h"
#include "platform/metrics.h"

#include <gtest/gtest.h>

using namespace device;

namespace {

constexpr RECT Screen{0, 0, 200, 200};

class RecordingCanvasTest : public testing::Test {
protected:
    void Draw(int x, int y, const wchar_t* text) { canvas.Text(x, y, text, {}, 0); }
    void DrawThree() {
        for (const auto& [y, text] : {std::pair{0, L"top"}, {20, L"middle"}, {40, L"bottom"}})
            Draw(0, y, text);
    }
    std::wstring Shown() const {
        std::wstring texts;
        for (const PaintedText& text : canvas.Texts())
            texts += text.text + L' ';
        return texts;
    }

    CellMeasurer measurer;
    RecordingCanvas canvas{measurer};
};

TEST_F(RecordingCanvasTest, AFrameTouchesOnlyItsDirtyPart) {
    DrawThree();
    canvas.BeginFrame({0, 20, 200, 40});
    EXPECT_EQ(Shown(), L"top bottom ");
    canvas.PushClip({0, 20, 200, 40});
    DrawThree();
    canvas.PopClip();
    EXPECT_EQ(Shown(), L"top bottom middle ");
    canvas.BeginFrame({0, 39, 1, 41});
    EXPECT_EQ(Shown(), L"top ") << "a touch by one pixel drops the whole run";
}

TEST_F(RecordingCanvasTest, WhatStoodBeyondAScreenThatBecameSmallerIsGone) {
    const SIZE former = ScreenSize();
    DrawThree();
    SetScreenSize({200, 30});
    canvas.BeginFrame({0, 0, 200, 30});
    SetScreenSize(former);
    EXPECT_EQ(Shown(), L"");
}

TEST_F(RecordingCanvasTest, AnOpaqueFillCoversWhatLiesWhollyBelowIt) {
    const std::tuple<RECT, RECT, int, bool> Cases[]
        = {{{10, 10, 40, 30}, Screen, 255, true}, {{11, 10, 40, 30}, Screen, 255, false},
            {{10, 10, 40, 29}, Screen, 255, false}, {{0, 0, 200, 200}, Screen, 254, false},
            {{0, 0, 200, 200}, {0, 0, 200, 29}, 255, false}, {{0, 0, 200, 200}, {10, 10, 40, 30}, 255, true}};
    for (const auto& [fill, clip, alpha, covers] : Cases) {
        Draw(10, 10, L"abc");
        canvas.PushClip(clip);
        canvas.Fill(fill, 0, alpha);
        canvas.PopClip();
        EXPECT_EQ(canvas.Texts().empty(), covers) << fill.left << ' ' << fill.bottom << ' ' << clip.bottom;
        canvas.BeginFrame(Screen);
    }
}

TEST_F(RecordingCanvasTest, ClipsNestAndTextsOutsideAreNotKept) {
    canvas.PushClip({0, 0, 50, 50});
    canvas.PushClip({40, 40, 200, 200});
    Draw(60, 60, L"outside the outer clip");
    Draw(0, 0, L"abc");
    Draw(45, 45, L"inside");
    canvas.PopClip();
    Draw(0, 0, L"abc");
    EXPECT_EQ(Shown(), L"inside abc ");
}

} // namespace
