#pragma once

#include "platform/drawing.h"
#include "platform/windowing/control.h"

#include <string>
#include <vector>

namespace device {

/// A list of texts with a number each, one of them selected. With a horizontal up-down as its partner it is a spinner:
/// one line, left and right step through the rows.
class ListBox final : public Control {
public:
    struct Row {
        std::wstring text;
        LPARAM data = 0;
    };

    explicit ListBox(HWND window)
        : Control(window) { }

    const std::vector<Row>& Rows() const { return rows_; }
    int Selected() const { return selected_; }

    ScrollBar Bar() const override;
    void ScrollTo(int position) override;
    bool IsChosen(POINT point) const override;
    bool Pan(int pixels) override;
    void PaintFrame(Canvas& canvas, const RECT& place) override;
    /// A row of a list is not entered, but walked over.
    std::wstring Value() const override { return IsSpinner() ? std::to_wstring(selected_) : std::wstring(); }

protected:
    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT WantedKeys(const MSG* pending) const override;
    void KeyDown(WORD key) override;
    void Character(wchar_t character) override;
    void LeftPress(POINT point, WPARAM keys) override;
    void DoubleClick(POINT point) override;
    void RightPress(POINT point) override;
    bool Wheel(int lines) override;
    void Sized() override { Changed(); }
    void Paint(HDC context) override;

private:
    bool IsSpinner() const;
    int Count() const { return static_cast<int>(rows_.size()); }
    bool IsRow(WPARAM index) const { return static_cast<int>(index) >= 0 && static_cast<int>(index) < Count(); }
    LRESULT Add(const wchar_t* text);
    int Insert(int index, const wchar_t* text);
    int SortedPlace(const std::wstring& text) const;
    LRESULT Remove(WPARAM index);
    void Clear();
    LRESULT CopyText(std::size_t row, wchar_t* buffer) const;
    LRESULT SetData(std::size_t row, LPARAM data);
    LRESULT Select(int index);
    void Step(int step, bool wrap);
    int RowAt(POINT point) const;
    void Changed();
    int RowHeight() const;
    int RowsShown() const;
    static int ArrowRoom();
    static void PaintArrows(Canvas& canvas, const RECT& place, COLORREF color, bool focused);
    void PaintSpinner(HDC context, const RECT& client) const;
    void PaintRows(HDC context, const RECT& client) const;

    std::vector<Row> rows_;
    int selected_ = -1;
    int first_ = 0;
    int hidden_ = 0; ///< what a finger left of the first row above the edge, in pixels
};

} // namespace device
