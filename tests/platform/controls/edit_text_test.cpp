#include "../drawing/cell_measurer.h"
#include "../system/device_fixture.h"

#include "platform/controls/edit_layout.h"
#include "platform/controls/edit_text.h"
#include "platform/drawing.h"
#include "platform/drawing/cairo/cairo_canvas.h"

#include <functional>
#include <random>

using device::EditLayout;
using device::EditText;

namespace {

/// The text with the caret as `|` and the other end of a selection as `[` or `]`.
std::wstring Shown(const EditText& edit) {
    std::wstring text = edit.Text();
    const bool atEnd = edit.Caret() == edit.End();
    if (edit.HasSelection()) {
        text.insert(edit.End(), atEnd ? L"|" : L"]");
        text.insert(edit.Start(), atEnd ? L"[" : L"|");
    } else {
        text.insert(edit.Caret(), L"|");
    }
    return text;
}

const EditText::Rules Limited{false, false, false, 3};
const std::wstring Family = L"\U0001F468\u200D\U0001F469\u200D\U0001F467"; // one picture of five characters

} // namespace

TEST(EditText, MovesSelectsAndChangesInWholeSteps) {
    const EditText::Rules free;
    const EditText::Rules digits{true, false, false, 0};
    const EditText::Rules capitals{false, true, false, 0};
    const EditText::Rules lines{false, false, true, 0};
    using Act = std::function<void(EditText&)>;
    const std::tuple<const wchar_t*, std::wstring, int, int, Act, std::wstring> cases[] = {
        {L"all", L"abc", 0, -1, [](auto&) {}, L"[abc|"},
        {L"start -1 removes", L"abc", 0, -1, [](auto& e) { e.Select(-1, 0); }, L"abc|"},
        {L"backwards", L"abc", 2, 1, [](auto&) {}, L"a|b]c"},
        {L"inside a cluster", L"e\u0301x", 1, 1, [](auto&) {}, L"|e\u0301x"},
        {L"collapse left", L"abcd", 1, 3, [](auto& e) { e.Step(false, false); }, L"a|bcd"},
        {L"extend and shrink", L"abcd", 1, 3, [](auto& e) { e.Step(false, true); }, L"a[b|cd"},
        {L"a cluster is one step", Family + L"!", 0, 0, [](auto& e) { e.Step(true, false); }, Family + L"|!"},
        {L"a cluster goes at once", L"a" + Family, 0, -1, [](auto& e) { e.Select(-1, 0), e.Delete(false); }, L"a|"},
        {L"delete forward", L"xe\u0301", 1, 1, [](auto& e) { e.Delete(true); }, L"x|"},
        {L"a line end of two is one step", L"a\r\nb", 3, 3, [](auto& e) { e.Delete(false); }, L"a|b"},
        {L"typing before what combines", L"\u0301", 0, 0, [&](auto& e) { e.Type(L'e', free); }, L"e\u0301|"},
        {L"control characters", L"a", 1, 1, [&](auto& e) { e.Type(L'\x1b', lines), e.Type(L'\x85', lines); }, L"a|"},
        {L"a line end in several", L"a", 1, 1, [&](auto& e) { e.Type(L'\n', lines); }, L"a\n|"},
        {L"digits refuse", L"1", 0, -1, [&](auto& e) { e.Type(L'-', digits), e.Type(L'\u0663', digits); }, L"[1|"},
        {L"capitals set", L"", 0, 0, [&](auto& e) { e.Set(L"stra\u00dfe", capitals); }, L"|STRA\u00dfE"},
        {L"full", L"abc", 3, 3, [](auto& e) { e.Type(L'x', Limited); }, L"abc|"},
        {L"a selection makes room", L"abc", 1, 2, [](auto& e) { e.Type(L'x', Limited); }, L"ax|c"},
        {L"digits of a paste", L"7", 1, 1, [&](auto& e) { e.Paste(L"12,345 km\n", digits); }, L"712345|"},
        {L"nothing of a paste", L"7", 0, -1, [&](auto& e) { e.Paste(L"km", digits); }, L"[7|"},
        {L"a paste in one line", L"", 0, 0, [&](auto& e) { e.Paste(L"\ra\r\nb\tc\x1b\n\n", free); }, L"a b c|"},
        {L"a paste in lines", L"", 0, 0, [&](auto& e) { e.Paste(L"a\r\nb\r", lines); }, L"a\nb\n|"},
        {L"a paste in capitals", L"", 0, 0, [&](auto& e) { e.Paste(L"kt\u00fc 7", capitals); }, L"KT\u00dc 7|"},
        {L"a paste that is cut", L"a", 1, 1, [&](auto& e) { e.Paste(L"x" + Family, Limited); }, L"ax|"},
        {L"a paste over a selection", L"abc", 1, 3, [](auto& e) { e.Paste(L"xyz", Limited); }, L"axy|"},
        {L"a word", L"one two", 0, 0, [](auto& e) { e.SelectWord(5); }, L"one [two|"}};
    for (const auto& [name, text, start, end, act, expected] : cases) {
        EditText edit;
        edit.Set(text, free);
        edit.Select(start, end);
        act(edit);
        EXPECT_EQ(Shown(edit), expected) << std::wstring(name);
    }
}

class EditLayoutTest : public DeviceTest {
protected:
    void Update(const std::wstring& text, SIZE client, bool lines) {
        layout.Update({&measurer, {}, client, 4, lines}, text);
    }
    device::TextMeasurer& measurer = device::DeviceMeasurer();
    EditLayout layout;
};

TEST_F(EditLayoutTest, OneLineScrollsAsFarAsTheCaretNeeds) {
    Update(std::wstring(60, L'm'), {100, 24}, false);
    layout.ShowCaret(60);
    EXPECT_LE(layout.CaretX(0, 60), 96);
    Update(L"mm", {100, 24}, false);
    layout.ShowCaret(2);
    EXPECT_EQ(layout.CaretX(0, 0), 4) << "a short text stands at the left again";
    Update(L"\u05e9\u05dc", {100, 24}, false);
    EXPECT_FALSE(IsRectEmpty(layout.SelectionPlace(0, 0, 1))) << "from right to left";
    for (const wchar_t* text : {L"\u05e9\u05dc", L"ab \u05e9\u05dc\u05d5\u05dd cd", L"one e\u0301 two", L""}) {
        Update(text, {300, 24}, false);
        for (std::size_t index = 0; index <= std::wcslen(text); index = device::NextTextBoundary(text, index)) {
            const int x = layout.CaretX(0, index);
            EXPECT_EQ(layout.CaretX(0, layout.IndexAt({x, 12})), x) << index << testing::PrintToString(text);
            if (index == std::wcslen(text))
                break;
        }
    }
}

TEST_F(EditLayoutTest, AClickInALongTextMeasuresLittle) {
    CellMeasurer cells;
    std::wstring text;
    while (text.size() < 100'000)
        text += std::to_wstring(text.size()) + (text.size() % 7 == 0 ? L"\n" : L" ");
    layout.Update({&cells, {}, {200, 24}, 4, false}, text);
    layout.ShowCaret(50'000);
    cells.Calls = 0;
    EXPECT_EQ(layout.IndexAt({layout.CaretX(0, 49'995) + 1, 12}), 49'995U) << "a click";
    EXPECT_LE(cells.Calls, 6);
}

TEST_F(EditLayoutTest, LinesBreakAndEveryPlaceBelongsToOne) {
    const int width = measurer.Width({}, L"aaaa bbbb") + 12;
    const std::wstring text = L"aaaa bbbb cccc\n\nmmmmmmmmmmmmmmmmmmmm";
    Update(text, {width, 40}, true);
    EXPECT_EQ(layout.LineText(0), L"aaaa bbbb");
    EXPECT_EQ(layout.LineText(2), L"");
    EXPECT_TRUE(layout.LineOf(9) == 0 && layout.LineOf(10) == 1 && layout.LineOf(text.size()) >= 5);
    for (std::size_t line = 0; line < layout.Lines().size(); ++line)
        EXPECT_EQ(layout.LineOf(layout.LineEnd(line)), line) << "End stays on its line";
    layout.ShowCaret(text.size());
    EXPECT_GT(layout.FirstLine(), 0);
}
