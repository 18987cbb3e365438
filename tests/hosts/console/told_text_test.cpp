#include "../../platform/controls/control_test.h"
#include "hosts/console/control_list.h"
#include "hosts/console/screen_text.h"
#include "platform/utf8.h"

namespace {

class ToldTextTest : public ControlTest { };

// An answer ends with a line that is a single dot: no text may end it early.
TEST_F(ToldTextTest, StaysOnItsLine) {
    const std::wstring text = L"a\n.\nb\r.\u0085.\u2028.\u2029.\x0B.\x7F.\u009B";
    onInit = [&] { SetWindowTextW(dialog, text.c_str()); };
    Run({{L"Edit", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 2, 2, 90, 12, 10, text.c_str()},
            {L"Static", WS_CHILD | WS_VISIBLE, 2, 20, 90, 90, 11, text.c_str()},
            {L"ListBox", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 2, 80, 90, 12, 12, L""}},
        {[&] { SendDlgItemMessageW(dialog, 12, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())); },
            [&] {
                for (const auto& lines : {device::ScreenLines(host.canvas), device::ControlLines()}) {
                    EXPECT_GE(lines.size(), 5U);
                    for (const std::string& line : lines) {
                        EXPECT_NE(line, ".");
                        const std::wstring told = device::FromUtf8(line);
                        EXPECT_EQ(told.find_first_of(L"\n\r\u0085\u2028\u2029\x0B\x7F\u009B"), std::wstring::npos)
                            << line;
                    }
                }
            }});
}

} // namespace
