#pragma once

#include "hosts/browser/spoken_text.h"
#include "hosts/console/device_commands.h"
#include "platform/drawing/browser/browser_canvas.h"
#include "platform/drawing/forked_canvas.h"
#include "platform/drawing/recording_canvas.h"
#include "platform/windowing/host.h"

#include <string>
#include <vector>

namespace device {

/// The device in a worker of a page: events come from the page, the screen is a canvas of the page's. What is painted
/// is also kept as texts, for those who do not see it.
class BrowserHost final : public Host {
public:
    explicit BrowserHost(ProgramFacts facts);

    /// The lines that answer a command of the scripted device, or "frame". What it has the program do is done when the
    /// program waits the next time: until then it must not be asked again.
    std::vector<std::string> AnswerTo(const std::string& command);

    /// The only function of the program that lets the page's messages come in while it waits.
    bool NextEvent(InputEvent& event, bool wait) override;
    Canvas& Screen() override { return canvas_; }
    void Present(const RECT& changed) override;
    void Beep() override;
    /// There is no other thread that could call it.
    void Wake() override { }

    void TitleChanged(const std::wstring& title) override;
    void GoBack() override;
    void WaitCursor(bool shown) override;
    void Attention() override;
    void Notify(const std::string& line) override;
    void FieldsChanged(const std::vector<ShownField>& fields) override;
    void ShowPointer(PointerShape shape) override;
    void StoreText(Clipboard where, const std::wstring& text) override;

private:
    bool TakeEvent(InputEvent& event);
    bool TakeToldEvent(InputEvent& event);
    void Speak();

    BrowserCanvas pixels_;
    RecordingCanvas texts_;
    ForkedCanvas canvas_;
    DeviceCommands commands_;
    bool isPainted_ = false;
    bool isTyped_ = false;
    int answers_ = 0; ///< the number of the page's text that was taken last
    Speaker speaker_;
};

} // namespace device
