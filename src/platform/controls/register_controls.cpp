#include "platform/controls/date_picker.h"
#include "platform/controls/edit.h"
#include "platform/controls/list_box.h"
#include "platform/controls/list_view.h"
#include "platform/controls/static_text.h"
#include "platform/controls/up_down.h"

namespace device {

void RegisterControls() {
    RegisterControlClass(L"Static", MakeControl<StaticText>);
    RegisterControlClass(L"Edit", MakeControl<Edit>);
    RegisterControlClass(L"ListBox", MakeControl<ListBox>);
    RegisterControlClass(L"SysListView32", MakeControl<ListView>);
    RegisterControlClass(L"SysDateTimePick32", MakeControl<DatePicker>);
    RegisterControlClass(L"msctls_updown32", MakeControl<UpDown>);
}

} // namespace device
