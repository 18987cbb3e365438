#include "hosts/console/control_list.h"

#include "hosts/console/text_form.h"
#include "platform/controls/date_picker.h"
#include "platform/controls/edit.h"
#include "platform/controls/list_box.h"
#include "platform/controls/list_view.h"
#include "platform/utf8.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/open_menu.h"
#include "platform/windowing/soft_key_bar.h"

#include <algorithm>

namespace device {

namespace {

std::string EditFlags(const Edit& edit, bool focused) {
    std::string flags;
    if (edit.IsReadOnly())
        flags += " readonly";
    if (edit.IsNumeric())
        flags += " numeric";
    if (edit.IsMultiline())
        flags += " multiline";
    if (focused)
        flags += " sel=" + std::to_string(edit.SelectionStart()) + "," + std::to_string(edit.SelectionEnd());
    return flags;
}

std::string ControlLine(const Window& window) {
    const bool focused = Desktop::The().Focus() == window.handle;
    std::string line = static_cast<UINT>(window.id) != NoDialogItemId ? std::to_string(window.id) : "-";
    line += " " + ToUtf8(window.windowClass->name);
    if (focused)
        line += " focus";
    if (window.Has(WS_DISABLED))
        line += " disabled";
    if (!window.Has(WS_VISIBLE))
        line += " hidden";
    if (const auto* edit = dynamic_cast<const Edit*>(window.control.get()))
        line += EditFlags(*edit, focused);
    const auto* picker = dynamic_cast<const DatePicker*>(window.control.get());
    if (picker && focused)
        line += " part=" + std::to_string(picker->Part());
    const RECT& place = window.place;
    line += " at=" + std::to_string(place.left) + "," + std::to_string(place.top) + ","
        + std::to_string(place.right - place.left) + "," + std::to_string(place.bottom - place.top);
    if (const auto* list = dynamic_cast<const ListView*>(window.control.get())) {
        RECT client;
        GetClientRect(window.handle, &client);
        line += " client=" + std::to_string(client.right) + "," + std::to_string(client.bottom);
        line += " rowheight=" + std::to_string(list->RowHeight());
    }
    return line + " " + Quoted(TextOf(window.handle));
}

void AddListViewRows(std::vector<std::string>& lines, const ListView& list) {
    for (std::size_t index = 0; index < list.Columns().size(); ++index) {
        const ListView::Column& column = list.Columns()[index];
        lines.push_back("  column " + std::to_string(index) + " width=" + std::to_string(column.width) + " "
            + Quoted(column.heading));
    }
    const ListViewRows& rows = list.Rows();
    const int cells = std::max(1, static_cast<int>(list.Columns().size()));
    for (int row = 0; row < rows.Count(); ++row) {
        std::string line = "  row " + std::to_string(row);
        if (rows.IsSelected(row))
            line += " selected";
        if (rows.Focused() == row)
            line += " focused";
        const int image = rows.At(row).image;
        line += " image=" + (image >= 0 ? std::to_string(image) : std::string("-"));
        for (int cell = 0; cell < cells; ++cell)
            line += " " + Quoted(rows.Cell(row, cell));
        lines.push_back(std::move(line));
    }
}

void AddListBoxRows(std::vector<std::string>& lines, const ListBox& list) {
    for (std::size_t row = 0; row < list.Rows().size(); ++row) {
        std::string line = "  row " + std::to_string(row);
        if (list.Selected() == static_cast<int>(row))
            line += " selected";
        line += " data=" + std::to_string(list.Rows()[row].data) + " " + Quoted(list.Rows()[row].text);
        lines.push_back(std::move(line));
    }
}

void AddMenuItems(std::vector<std::string>& lines, const OpenMenu& menu) {
    const auto& items = menu.Popup().Items();
    for (int index = 0; index < static_cast<int>(items.size()); ++index) {
        const MenuItem& item = items[static_cast<std::size_t>(index)];
        if (item.separator) {
            lines.emplace_back("separator");
            continue;
        }
        std::string line = item.popup ? "popup" : "item " + std::to_string(item.command);
        if (index == menu.Focused())
            line += " focus";
        if (item.checked)
            line += " checked";
        if (item.grayed)
            line += " grayed";
        lines.push_back(line + " " + Quoted(item.text));
    }
}

void AddChildren(std::vector<std::string>& lines, const Window& window) {
    for (const Window* child : window.children) {
        lines.push_back(ControlLine(*child));
        if (const auto* view = dynamic_cast<const ListView*>(child->control.get()))
            AddListViewRows(lines, *view);
        else if (const auto* box = dynamic_cast<const ListBox*>(child->control.get()))
            AddListBoxRows(lines, *box);
    }
}

} // namespace

std::vector<std::string> ControlLines() {
    const Desktop& desktop = Desktop::The();
    const Window* front = desktop.Front();
    std::vector<std::string> lines;
    lines.push_back("title " + Quoted(front ? front->text : std::wstring()));
    if (const OpenMenu* menu = desktop.Menu())
        AddMenuItems(lines, *menu);
    else if (front)
        AddChildren(lines, *front);
    const SoftKeyBar* bar = front ? SoftKeyBar::Of(front->handle) : nullptr;
    lines.push_back("softkey left " + Quoted(bar ? bar->At(true).text : std::wstring()));
    lines.push_back("softkey right " + Quoted(bar ? bar->At(false).text : std::wstring()));
    return lines;
}

} // namespace device
