#include "cell_measurer.h"

#include <gtest/gtest.h>

using namespace device;

namespace {

const FontDescription AnyFont;

TEST(TextFit, EllipsisNeverSplitsWhatBelongsTogether) {
    const std::tuple<const wchar_t*, int, const wchar_t*> Cases[]
        = {{L"", 0, L""}, {L"Station", 70, L"Station"}, {L"Station", 69, L"Stati…"}, {L"Station", 10, L"…"},
            {L"Station", 0, L"…"}, {L"e\u0301e\u0301e\u0301", 20, L"e\u0301…"}, {L"ab\u0308\u0323c", 20, L"a…"},
            // A family of three is one character to its reader; so are a thumb with a skin tone and a flag.
            {L"\U0001F468\u200D\U0001F469\u200D\U0001F467xy", 20, L"\U0001F468\u200D\U0001F469\u200D\U0001F467…"},
            {L"\U0001F44D\U0001F3FDok", 20, L"\U0001F44D\U0001F3FD…"},
            {L"\U0001F1E9\U0001F1FF\U0001F1EB\U0001F1F7!", 20, L"\U0001F1E9\U0001F1FF…"},
            {L"\u05E9\u05B8\u05DC\u05D5\u05DD", 30, L"\u05E9\u05B8\u05DC…"},
            {L"\u6F22\u5B57\u4EEE\u540D", 30, L"\u6F22\u5B57…"}};
    CellMeasurer measurer;
    for (const auto& [text, width, expected] : Cases)
        EXPECT_EQ(EllipsisText(measurer, AnyFont, text, width), expected) << testing::PrintToString(text) << width;
}

TEST(TextFit, BoundariesWalkBothWaysAndStayInside) {
    const std::wstring text = L"ae\u0301\U0001F1E9\U0001F1EA\U0001F1EBx";
    const std::size_t stops[] = {0, 1, 3, 5, 6, 7};
    for (std::size_t i = 0; i + 1 < std::size(stops); ++i) {
        EXPECT_EQ(NextTextBoundary(text, stops[i]), stops[i + 1]);
        EXPECT_EQ(PreviousTextBoundary(text, stops[i + 1]), stops[i]);
    }
    EXPECT_EQ(PreviousTextBoundary(text, 0), 0U);
    EXPECT_EQ(PreviousTextBoundary(text, 1000), 6U);
}

TEST(TextFit, LinesBreakAtBlanksAndElseBetweenCharacters) {
    const std::tuple<const wchar_t*, int, std::vector<std::wstring>> Cases[] = {{L"", 50, {L""}},
        {L"one two", 70, {L"one two"}}, {L"one\ttwo", 69, {L"one", L"two"}}, {L"one two   ", 70, {L"one two"}},
        {L"one two three", 75, {L"one two", L"three"}}, {L"abcdefgh", 30, {L"abc", L"def", L"gh"}},
        {L"a bcdefgh", 30, {L"a", L"bcd", L"efg", L"h"}}, {L"ab", 1, {L"a", L"b"}}, {L"one\ntwo", 0, {L"one", L"two"}},
        {L"one\r\ntwo\rthree\n", 0, {L"one", L"two", L"three", L""}}, {L"a very long line", 0, {L"a very long line"}},
        {L"e\u0301e\u0301e\u0301", 20, {L"e\u0301e\u0301", L"e\u0301"}},
        {L"\u6F22\u5B57\u4EEE\u540D", 30, {L"\u6F22\u5B57\u4EEE", L"\u540D"}},
        {L"no\u00A0break here", 80, {L"no\u00A0break", L"here"}}, {L"  ab", 30, {L"  a", L"b"}}};
    CellMeasurer measurer;
    for (const auto& [text, width, expected] : Cases) {
        std::vector<std::wstring> lines;
        std::size_t next = 0;
        for (const TextLine& line : BreakLines(measurer, AnyFont, text, width)) {
            EXPECT_EQ(line.start, next) << "no character is lost between two lines";
            next = line.next;
            lines.push_back(std::wstring(text).substr(line.start, line.end - line.start));
        }
        EXPECT_EQ(next, std::wcslen(text));
        EXPECT_EQ(lines, expected) << testing::PrintToString(text) << width;
    }
}

TEST(TextFit, MeasuringALongTextDoesNotDependOnItsLength) {
    CellMeasurer measurer;
    const std::wstring text(1000000, L'x');
    EXPECT_EQ(LineBreaker(measurer, AnyFont, text, 305).Next(0).end, 30U);
    EXPECT_EQ(EllipsisText(measurer, AnyFont, text, 305).size(), 30U);
    EXPECT_LE(measurer.LongestMeasured, LineBreaker::UsualPiece);
    EXPECT_LE(measurer.Calls, 12);
}

} // namespace
