#include "control_test.h"

#include "platform/controls/list_box.h"

class ListBoxTest : public ControlTest {
protected:
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendDlgItemMessageW(dialog, 10, message, wParam, lParam);
    }
    LRESULT Add(const wchar_t* text) { return Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)); }
};

TEST_F(ListBoxTest, SortedRowsAndTheSelectionThatFollowsThem) {
    onInit = [this] {
        EXPECT_EQ(Add(L"pear"), 0);
        EXPECT_EQ(Add(L"Apple"), 0);
        EXPECT_EQ(Add(L"\u00c4quator"), 1) << "the locale's collation";
        EXPECT_EQ(Send(LB_SETCURSEL, 2), 2);
        EXPECT_EQ(Add(L"banana"), 2);
        EXPECT_EQ(Send(LB_GETCURSEL), 3) << "the selection stays with its row";
        EXPECT_EQ(Send(LB_SETITEMDATA, 3, 77), 0);
        EXPECT_EQ(Send(LB_DELETESTRING, 0), 3);
        EXPECT_EQ(Send(LB_GETITEMDATA, 2), 77);
        EXPECT_EQ(Send(LB_GETCURSEL), 2);
        EXPECT_EQ(Send(LB_DELETESTRING, 2), 2);
        EXPECT_EQ(Send(LB_GETCURSEL), LB_ERR) << "the selected row is gone";
        for (const UINT message : {LB_GETTEXTLEN, LB_GETITEMDATA, LB_DELETESTRING, LB_SETITEMDATA, LB_SETCURSEL})
            EXPECT_EQ(Send(message, 2), LB_ERR);
        Send(WM_CHAR, L'B');
        EXPECT_EQ(Send(LB_GETCURSEL), 1) << "a letter takes its row where none is selected, too";
    };
    Run({{L"ListBox", WS_CHILD | WS_VISIBLE | WS_TABSTOP | LBS_SORT, 2, 0, 90, 30, 10, L""}}, {});
}
