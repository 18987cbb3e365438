#include "platform/windowing/shown_fields.h"

#include "platform/drawing/rectangles.h"
#include "platform/windowing/desktop.h"

namespace device {

std::vector<ShownField> ShownFields(const Window& dialog) {
    std::vector<ShownField> fields;
    for (const Window* child : dialog.children) {
        ShownField field;
        field.place = Intersection(ScreenPlace(*child), ScreenClient(dialog));
        const bool takesText = IsShown(*child) && !child->Has(WS_DISABLED) && !IsRectEmpty(field.place)
            && child->control && child->control->DescribeField(field);
        if (!takesText)
            continue;
        field.window = child->handle;
        field.isFocused = Desktop::The().Focus() == child->handle;
        field.label = LabelOf(*child);
        fields.push_back(field);
    }
    return fields;
}

std::wstring LabelOf(const Window& control) {
    std::wstring label;
    for (const Window* each : control.parent->children) {
        if (each == &control)
            break;
        if (each->control && !each->control->TakesFocus() && !each->text.empty())
            label = each->text;
    }
    const std::size_t end = label.find_last_not_of(L": ");
    return label.substr(0, end == std::wstring::npos ? 0 : end + 1);
}

} // namespace device
