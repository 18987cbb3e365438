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
    std::wstring Text() const;

    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PaintFrame(Canvas& canvas, const RECT& place) override;
    std::wstring Value() const override { return Text(); }
    const wchar_t* InputMark() const override { return L"123"; }

private:
    LRESULT SetDate(LRESULT validity, const SYSTEMTIME* date);
    LRESULT GetDate(SYSTEMTIME* date) const;
    void Enter(bool hasFormerOwner);
    void Leave();
    void Changed();
    void Key(WORD key);
    void Character(wchar_t character);
    void Click(int x);
    LRESULT CopyText(wchar_t* buffer, std::size_t size) const;
    /// What a piece takes from left to right, in client coordinates.
    std::vector<RECT> PiecePlaces(const std::vector<DateParts::Piece>& pieces, const FontDescription& font) const;
    void Paint(HDC context) const;

    DateParts parts_;
};

} // namespace device
