#pragma once

#include "platform/controls/list_view_rows.h"
#include "platform/drawing.h"
#include "platform/windowing/control.h"

#include <memory>

namespace device {

/// The list view in report view: with and without a header, rows drawn by itself or by its owner.
class ListView final : public Control {
public:
    struct Column {
        std::wstring heading;
        int format = 0;
        int width = 0;
    };

    explicit ListView(HWND window);

    const ListViewRows& Rows() const { return rows_; }
    const std::vector<Column>& Columns() const { return columns_; }
    int RowHeight() const { return rowHeight_; }

    ScrollBar Bar() const override;
    void ScrollTo(int position) override;
    std::wstring FocusedPart() const override;
    bool IsChosen(POINT point) const override;
    bool Pan(int pixels) override;
    void PaintFrame(Canvas& canvas, const RECT& place) override;

protected:
    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT WantedKeys(const MSG* /*pending*/) const override { return DLGC_WANTARROWS | DLGC_WANTCHARS; }
    void KeyDown(WORD key) override;
    void Character(wchar_t character) override;
    void LeftPress(POINT point, WPARAM keys) override;
    void DoubleClick(POINT point) override;
    void RightPress(POINT point) override;
    bool Wheel(int lines) override;
    void Sized() override;
    void PaintGround(HDC context) override;
    void Paint(HDC context) override;

private:
    int HeaderHeight() const;
    int RowsShown() const;
    /// In client coordinates.
    RECT RowRect(int row) const;
    BOOL ItemRect(int row, RECT* rectangle) const;
    /// What fingers leave free above and below what an owner paints of a row.
    int TouchMargin() const;
    void Measure();
    /// Rows, size or scroll position changed.
    void Changed();

    LRESULT InsertItem(const LVITEMW& item);
    LRESULT SetItem(const LVITEMW& item);
    LRESULT GetItem(LVITEMW& item) const;
    LRESULT GetText(int row, LVITEMW& item) const;
    LRESULT SetState(int row, const LVITEMW& item);
    LRESULT DeleteItem(int row);
    LRESULT DeleteAllItems();
    int FindItem(int after, const LVFINDINFOW* wanted) const;
    LRESULT EnsureVisible(int row);
    HIMAGELIST SetImages(HIMAGELIST images);
    bool HasColumn(int column) const;
    int InsertColumn(int place, const LVCOLUMNW& column);
    LRESULT SetColumnWidth(int column, int width);
    BOOL HeaderRect(int column, RECT* place) const;
    BOOL SetOrder(std::span<const int> order);

    void MoveKey(WORD key);
    void DragTo(WPARAM keys, POINT point);
    LRESULT LookChanged(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT ColumnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void SendNotification(INT code, WORD key = 0) const;
    int RowAt(LONG y) const;
    void ShowRow(int row);

    void PaintHeader(HDC context, const RECT& client) const;
    void PaintRow(HDC context, int row, const RECT& place) const;
    static void PaintCell(HDC context, const std::wstring& text, const Column& column, RECT cell);
    void AskOwnerToPaint(HDC context, int row, const RECT& place) const;

    ListViewRows rows_;
    std::vector<Column> columns_;
    HIMAGELIST images_ = nullptr; ///< the owner's
    int imageSize_ = 0;
    int rowHeight_ = 16;
    int hidden_ = 0; ///< what a finger left of the first row above the edge, in pixels
};

} // namespace device
