// Commands that run out of memory: they end, one message tells so, and the program goes on.

#include "failing_allocation.h"
#include "frame_device.h"
#include "platform/input.h"
#include "platform/list_view.h"

#include <new>

namespace {

constexpr int Entries = 60;
constexpr const char* Log = R"(
INSERT INTO vehicles VALUES (1, 2001, 'Car', '', '', '', 900, 2000, '', '', '', '', 0, '', '', '');
WITH RECURSIVE count(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM count WHERE i < 60)
INSERT INTO entries SELECT i, 3000 + i, 2001, 46000 + i / 9, 2, 1000 - i, 0, 0, 0, printf('%50d', i), '', '' FROM count;
)";

class LittleMemory : public FrameDevice {
protected:
    LittleMemory()
        : FrameDevice(Log) {
        Host.Press(VK_DOWN);
        Host.Pump();
    }

    /// Answers the message that stands open, and counts what it tells.
    ScriptedHost::Step Answer() {
        return [this] {
            if (GetActiveWindow() == Frame.GetHandle())
                return;
            const HWND text = GetWindow(GetActiveWindow(), GW_CHILD);
            told_ += text && TextOf(text) == LoadText(strings::NotEnoughMemory) ? 1 : 0;
            Host.Press(VK_TSOFT1);
        };
    }
    int TakeMessages() {
        told_ = 0;
        Host.Then(Answer()).Then(Answer()).Pump();
        return told_;
    }
    LRESULT Rows() {
        return SendMessageW(
            GetDlgItem(Frame.GetHandle(), static_cast<int>(controls::EntryList)), LVM_GETITEMCOUNT, 0, 0);
    }
    /// What the Action key on the vehicle does.
    void OpenLog() {
        NMLVKEYDOWN note{};
        note.hdr.idFrom = controls::VehicleList;
        note.hdr.code = LVN_KEYDOWN;
        note.wVKey = VK_TACTION;
        SendMessageW(Frame.GetHandle(), WM_NOTIFY, note.hdr.idFrom, reinterpret_cast<LPARAM>(&note));
    }

    int told_ = 0;
};

TEST_F(LittleMemory, ALogIsOpenedWholeOrNotAtAllAndTheNextTimeItIsWhole) {
    int notOpened = 0;
    bool failed = true;
    for (int allocation = 0; failed && !HasFailure(); ++allocation) {
        SCOPED_TRACE(allocation);
        allocationsLeft = allocation;
        OpenLog();
        failed = allocationsLeft < 0;
        allocationsLeft = -1;
        const int told = TakeMessages();
        EXPECT_LE(told, 1);
        EXPECT_TRUE(told == 1 || Rows() != 0) << "an empty list without a word";
        EXPECT_TRUE(Rows() == 0 || Rows() == Entries) << Rows();
        notOpened += told == 1 && Rows() == 0 ? 1 : 0;
        OpenLog();
        EXPECT_EQ(TakeMessages(), 0);
        EXPECT_EQ(Rows(), Entries);
    }
    EXPECT_GT(notOpened, 0);
}

/// Opens, hears a command, and fails at both.
class Dialog : public CDialogImpl {
    static constexpr DLGTEMPLATE Template{WS_POPUP, 10, 10, L"", L"", 8, {}};
    LPCDLGTEMPLATEW GetTemplate() const override { return &Template; }
    bool ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM /*lParam*/, LRESULT& /*result*/) override {
        if (message == WM_INITDIALOG || (message == WM_COMMAND && wParam == commands::Edit))
            throw std::bad_alloc();
        return message == WM_COMMAND && EndDialog(GetHandle(), static_cast<LONG_PTR>(wParam));
    }
};

TEST_F(LittleMemory, ADialogGoesOn) {
    Dialog dialog;
    const auto command = [&](UINT id) { return [&, id] { PostMessageW(dialog.GetHandle(), WM_COMMAND, id, 0); }; };
    Host.Then(Answer()).Then(command(commands::Edit)).Then(Answer()).Then(command(commands::Done));
    EXPECT_EQ(dialog.DoModal(), static_cast<LONG_PTR>(commands::Done));
    EXPECT_EQ(told_, 2);
    EXPECT_TRUE(IsWindowEnabled(Frame.GetHandle()));
}

} // namespace
