#include "list_device.h"

namespace {

/// Counts what reaches it.
class PlainList final : public CCustomListView {
public:
    int Drawn = 0;
    int Measured = 0;
    void DrawItem(const DRAWITEMSTRUCT* /*request*/) override { ++Drawn; }
    void MeasureItem(MEASUREITEMSTRUCT* request) override {
        ++Measured;
        request->itemHeight = 30;
    }
};

class ListControl : public ListDevice {
protected:
    static constexpr DWORD OwnerDrawn = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDRAWFIXED | LVS_NOCOLUMNHEADER;
    static constexpr DWORD WithHeader = WS_CHILD | WS_VISIBLE | LVS_REPORT;

    int Width(int column) const {
        return static_cast<int>(SendMessageW(List.GetHandle(), LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    }
    LONG ClientWidth() const {
        RECT client;
        GetClientRect(List.GetHandle(), &client);
        return client.right;
    }

    PlainList List;
};

TEST_F(ListControl, TheTextOfAnEmptyListStandsInTheMiddleBelowTheHeader) {
    const std::wstring empty = L"There are no items in this list.";
    Show(List, WithHeader);
    List.InsertColumn(0, L"Heading", LVCFMT_LEFT, 100);
    const device::PaintedText* text = Painted(empty);
    ASSERT_TRUE(text);
    EXPECT_GT(text->place.top, device::TitleHeight() + 20);
    EXPECT_EQ(text->font.weight, FW_NORMAL) << "the list's own font is bold";
    EXPECT_NEAR(text->place.left + text->place.right, device::ScreenSize().cx, 1);
    List.InsertRow(0, L"row", -1);
    EXPECT_FALSE(Painted(empty));
}

TEST_F(ListControl, AColumnTakesWhatTheOthersLeave) {
    Show(List, WithHeader);
    List.InsertColumn(0, L"", LVCFMT_LEFT, 50);
    List.FitColumn(-1);
    EXPECT_EQ(Width(0), 50);
    List.FitColumn(0);
    EXPECT_EQ(Width(0), ClientWidth());
    List.InsertColumn(1, L"", LVCFMT_RIGHT, 90);
    List.FitColumn(0);
    EXPECT_EQ(Width(0), ClientWidth() - 90);
}

TEST_F(ListControl, DrawsAndMeasuresItsRowsThroughItsParent) {
    Show(List, OwnerDrawn);
    List.InsertRow(0, L"row", -1);
    List.RemeasureRows();
    EXPECT_GE(List.Measured, 2);
    Painted();
    EXPECT_EQ(List.Drawn, 1);
    RECT row;
    SendMessageW(List.GetHandle(), LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
    EXPECT_EQ(row.bottom - row.top, 30);
}

TEST_F(ListControl, ReflectsOnlyWhatConcernsAChild) {
    Show(List, OwnerDrawn);
    const HWND frame = Frame.GetHandle();
    const auto self = reinterpret_cast<LPARAM>(frame);
    const auto child = reinterpret_cast<LPARAM>(List.GetHandle());
    DRAWITEMSTRUCT drawing;
    MEASUREITEMSTRUCT measuring;
    drawing.hwndItem = List.GetHandle();
    measuring.CtlID = 7;
    const struct {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        bool reflected;
        LRESULT result;
    } cases[] = {{WM_DRAWITEM, 7, reinterpret_cast<LPARAM>(&drawing), true, TRUE}, {WM_DRAWITEM, 7, 0, false, 0},
        {WM_MEASUREITEM, 7, reinterpret_cast<LPARAM>(&measuring), true, TRUE}, {WM_DELETEITEM, 7, 0, true, TRUE},
        {WM_COMPAREITEM, 7, 0, true, TRUE}, {WM_COMPAREITEM, 8, 0, false, 0}, {WM_VSCROLL, 0, child, true, 0},
        {WM_CTLCOLORLAST, 0, child, true, 0}, {WM_CTLCOLORLAST + 1, 0, child, false, 0}, {WM_COMMAND, 1, 0, false, 0},
        {WM_COMMAND, 1, self, false, 0}, {WM_SIZE, 0, child, false, 0}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.message);
        LRESULT result = 0;
        EXPECT_EQ(ReflectNotification(frame, each.message, each.wParam, each.lParam, result), each.reflected);
        EXPECT_EQ(result, each.result);
    }
    EXPECT_EQ(List.Drawn, 1);
}

TEST_F(ListControl, FontsHaveTheHeightOfTheTextSize) {
    DWORD automatic = 0;
    SHGetUIMetrics(2, &automatic, sizeof automatic, nullptr);
    for (const auto& [textSize, height] :
        {std::pair{1, -13L}, {2, -16L}, {3, -18L}, {5, -13L}, {-1, -13L}, {0, -static_cast<LONG>(automatic)}}) {
        SCOPED_TRACE(textSize);
        theSettings.TextSize = textSize;
        CreateAppFonts();
        for (const auto& [font, expected, weight] :
            {std::tuple{TextFont, height, FW_NORMAL}, {BoldTextFont, height, FW_BOLD}, {LabelFont, -13L, FW_BOLD}}) {
            LOGFONTW made;
            ASSERT_NE(GetObjectW(font, sizeof made, &made), 0);
            EXPECT_EQ(made.lfHeight, expected);
            EXPECT_EQ(made.lfWeight, weight);
        }
    }
}

} // namespace
