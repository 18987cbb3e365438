#pragma once

#include "platform/controls/date_parts.h"
#include "platform/drawing.h"
#include "platform/windowing/control.h"

#include <string>

namespace device {

/// A date in the parts of the locale's short date. The time of day that was put in comes out again unchanged.
class DatePicker final : public Control {
public:
    explicit DatePicker(HWND window);

    /// The part that is chosen, from 1 in the order shown.
    int Part() const { return parts_.Part(); }

    /// The whole date as it shows.
    std::wstring Text() const override;
    void PaintFrame(Canvas& canvas, const RECT& place) override;
    std::wstring Value() const override { return Text(); }
    std::wstring FocusedPart() const override { return parts_.ChosenText(); }
    bool DescribeField(ShownField& field) const override;
    const wchar_t* InputMark() const override { return L"123"; }

protected:
    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT WantedKeys(const MSG* /*pending*/) const override { return DLGC_WANTCHARS; }
    void KeyDown(WORD key) override;
    void Character(wchar_t character) override;
    void LeftPress(POINT point, WPARAM keys) override;
    void DoubleClick(POINT point) override { LeftPress(point, 0); }
    void Paint(HDC context) override;

private:
    LRESULT SetDate(LRESULT validity, const SYSTEMTIME* date);
    LRESULT GetDate(SYSTEMTIME* date) const;
    void Enter(bool hasFormerOwner);
    void Leave();
    void Paste(std::wstring_view text);
    /// What a piece takes from left to right, in client coordinates.
    std::vector<RECT> PiecePlaces(const std::vector<DateParts::Piece>& pieces) const;

    /// What a finger hits to step up or down, in client coordinates; empty where there are no fingers.
    RECT StepPlace(bool up) const;
    void PaintSteps(HDC context) const;

    DateParts parts_;
};

} // namespace device
