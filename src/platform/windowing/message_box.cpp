#include "platform/dialog.h"
#include "platform/drawing.h"
#include "platform/drawing/device_context.h"
#include "platform/drawing/picture.h"
#include "platform/drawing/text_fit.h"
#include "platform/input.h"
#include "platform/metrics.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/dialog_loop.h"
#include "platform/windowing/look.h"
#include "platform/windowing/soft_key_bar.h"

#include <algorithm>

namespace device {

namespace {

constexpr const wchar_t* BoxClass = L"MessageBox";
constexpr const wchar_t* DefaultCaption = L"Error";
constexpr int IconSize = 32; // at 96 pixels per inch

FontDescription BoxFont() {
    return DeviceFont(10, false);
}

/// The panel of a message box: icon and text; its buttons stand on the soft keys.
class MessagePanel final : public Control {
public:
    explicit MessagePanel(HWND window)
        : Control(window) { }

    void Fill(const wchar_t* text, UINT style) {
        style_ = style;
        picture_ = (style & MB_ICONINFORMATION) == MB_ICONINFORMATION ? InformationPicture
            : (style & MB_ICONEXCLAMATION) == MB_ICONEXCLAMATION      ? ExclamationPicture
                                                                      : 0;
        LOGFONTW description;
        description.lfHeight = BoxFont().height;
        font_ = CreateFontIndirectW(&description);
        text_ = CreateWindowExW(0, L"Static", text, WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, Handle(),
            reinterpret_cast<HMENU>(static_cast<std::uintptr_t>(NoDialogItemId)), nullptr, nullptr);
        SendMessageW(text_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), 0);
        Layout();
    }

    bool HasOneButton() const { return (style_ & 0xFU) == MB_OK; }
    bool HasCancel() const { return (style_ & 0xFU) == MB_OKCANCEL; }

    ScrollBar Bar() const override;
    void ScrollTo(int position) override;

protected:
    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;
    void KeyDown(WORD key) override;
    bool Wheel(int lines) override;
    void Paint(HDC context) override;

private:
    void Layout();
    void Answer(int id) { EndDialog(Handle(), id); }
    void Command(int id, LPARAM sender);

    UINT style_ = 0;
    UINT picture_ = 0;
    bool hasIcon_ = false;
    HFONT font_ = nullptr;
    HWND text_ = nullptr;
    int textHeight_ = 0;
    int room_ = 0; ///< what shows of the text
    int scroll_ = 0;
};

void MessagePanel::Layout() {
    Window* window = FindWindowRecord(Handle());
    const Window* child = FindWindowRecord(text_);
    if (!window || !child)
        return;
    const RECT area = WorkArea();
    const int padding = Scaled(10);
    // On a very narrow screen the text needs the icon's place.
    hasIcon_ = picture_ != 0 && area.right - area.left > Scaled(5 * IconSize);
    const int icon = hasIcon_ ? Scaled(IconSize) : 0;
    // Where there are only cells, one of them stays free between icon and text.
    TextMeasurer& measurer = Desktop::The().Screen().Measurer();
    const int gap = std::max(padding, measurer.Metrics(BoxFont()).averageWidth);
    const int left = padding + (icon > 0 ? icon + gap : 0);
    const int width = std::max(1, static_cast<int>(area.right - area.left) - left - padding);
    const auto lines = BreakLines(measurer, BoxFont(), child->text, width);
    textHeight_ = static_cast<int>(lines.size()) * measurer.Metrics(BoxFont()).Height();
    const LONG height = std::min<LONG>(std::max(icon, textHeight_) + (2 * padding), area.bottom - area.top);
    room_ = std::max(0, static_cast<int>(height) - (2 * padding));
    scroll_ = std::clamp(scroll_, 0, std::max(0, textHeight_ - room_));
    window->place = {area.left, area.bottom - height, area.right, area.bottom};
    MoveWindow(text_, left, padding + std::max(0, (icon - textHeight_) / 2) - scroll_, width, textHeight_, TRUE);
    Desktop::The().InvalidateAll();
}

void MessagePanel::ScrollTo(int position) {
    scroll_ = position;
    Layout();
}

bool MessagePanel::Wheel(int lines) {
    ScrollTo(scroll_ - lines * Desktop::The().Screen().Measurer().Metrics(BoxFont()).Height());
    return true;
}

void MessagePanel::KeyDown(WORD key) {
    if (key == VK_RETURN && HasOneButton())
        Answer(IDOK);
    else if (key == VK_UP || key == VK_DOWN)
        Wheel(key == VK_UP ? 1 : -1);
}

ScrollBar MessagePanel::Bar() const {
    const Window* window = FindWindowRecord(Handle());
    if (!window || textHeight_ <= room_)
        return {};
    const RECT& place = window->place;
    const LONG left = place.right - GetSystemMetrics(SM_CXVSCROLL);
    return {{left, place.top + Scaled(3), place.right, place.bottom}, textHeight_, std::max(1, room_), scroll_};
}

void MessagePanel::Command(int id, LPARAM sender) {
    if (sender != 0) {
        Answer(id);
    } else if (id == IDCANCEL) { // the Back key
        if (HasOneButton())
            Answer(IDOK);
        else if (HasCancel())
            Answer(IDCANCEL);
    }
}

void MessagePanel::Paint(HDC context) {
    const RECT client = Client();
    Canvas& canvas = ContextCanvas(context);
    canvas.SetMarks(ContextMarks(context));
    canvas.Fill(ToCanvas(context, client), GetSysColor(COLOR_WINDOW));
    canvas.Fill(ToCanvas(context, RECT{0, 0, client.right, Scaled(3)}), GetSysColor(COLOR_HIGHLIGHT));
    if (!hasIcon_)
        return;
    const int padding = Scaled(10);
    const RECT place{padding, padding, padding + Scaled(IconSize), padding + Scaled(IconSize)};
    canvas.DrawPicture(ToCanvas(context, place), FindPicture(nullptr, picture_));
}

LRESULT MessagePanel::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        Command(LOWORD(wParam), lParam);
        return 0;
    case WM_SETTINGCHANGE:
        Layout();
        return 0;
    case WM_CLOSE:
        Command(IDCANCEL, 0);
        return 0;
    case WM_DESTROY:
        DeleteObject(font_);
        return 0;
    default:
        return Control::Message(message, wParam, lParam);
    }
}

std::span<const MenuItemResource> ButtonsOf(UINT style) {
    static constexpr MenuItemResource Ok[] = {{L"OK", IDOK}};
    static constexpr MenuItemResource OkCancel[] = {{L"OK", IDOK}, {L"Cancel", IDCANCEL}};
    static constexpr MenuItemResource YesNo[] = {{L"Yes", IDYES}, {L"No", IDNO}};
    switch (style & 0xFU) {
    case MB_OKCANCEL:
        return OkCancel;
    case MB_YESNO:
        return YesNo;
    default:
        return Ok;
    }
}

} // namespace

} // namespace device

int MessageBoxW(HWND owner, const wchar_t* text, const wchar_t* caption, UINT style) {
    using namespace device;
    Desktop& desktop = Desktop::The();
    if (!desktop.IsOn())
        return 0;
    RegisterControlClass(BoxClass, MakeControl<MessagePanel>);
    if (!IsWindow(owner))
        owner = desktop.Active();
    const HWND handle = CreateWindowExW(
        0, BoxClass, caption ? caption : DefaultCaption, WS_POPUP, 0, 0, 0, 0, owner, nullptr, nullptr, nullptr);
    Window* window = FindWindowRecord(handle);
    auto* panel = dynamic_cast<MessagePanel*>(ControlOf(handle));
    if (!window || !panel)
        return 0;
    window->isMessageBox = true;
    window->modal = std::make_unique<ModalState>();
    SoftKeyBar::Make(handle, ButtonsOf(style));
    EnableWindow(owner, FALSE);
    panel->Fill(text ? text : L"", style);
    desktop.TheHost()->Attention();
    ShowWindow(handle, SW_SHOW);
    return static_cast<int>(RunModal(handle, owner, IDCANCEL));
}
