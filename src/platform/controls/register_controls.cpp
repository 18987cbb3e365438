#include "platform/controls/date_picker.h"
#include "platform/controls/edit.h"
#include "platform/controls/list_box.h"
#include "platform/controls/list_view.h"
#include "platform/controls/static_text.h"
#include "platform/controls/up_down.h"

namespace device {

namespace {

template <typename Kind> std::unique_ptr<Control> Make(HWND window) {
    return std::make_unique<Kind>(window);
}

} // namespace

void RegisterControls() {
    RegisterControlClass(L"Static", Make<StaticText>);
    RegisterControlClass(L"Edit", Make<Edit>);
    RegisterControlClass(L"ListBox", Make<ListBox>);
    RegisterControlClass(L"SysListView32", Make<ListView>);
    RegisterControlClass(L"SysDateTimePick32", Make<DatePicker>);
    RegisterControlClass(L"msctls_updown32", Make<UpDown>);
}

} // namespace device
