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

    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;
    ScrollBar Bar() const override;
    void ScrollTo(int position) override;
    void PaintFrame(Canvas& canvas, const RECT& place) override;

private:
    bool HasStyle(DWORD style) const;
    int HeaderHeight() const;
    int RowsShown() const;
    /// In client coordinates.
    RECT RowRect(int row) const;
    bool ItemRect(int row, RECT* rectangle) const;
    HFONT Font() const;
    void Measure();
    /// Rows, size or scroll position changed.
    void Changed();

    LRESULT ListMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT InsertItem(const LVITEMW& item);
    LRESULT SetItem(const LVITEMW& item);
    LRESULT GetItem(LVITEMW& item) const;
    LRESULT GetText(int row, LVITEMW& item) const;
    UINT GetState(int row) const;
    LRESULT SetState(int row, const LVITEMW& item);
    LRESULT DeleteItem(int row);
    LRESULT DeleteAllItems();
    int FindItem(int after, const LVFINDINFOW* wanted) const;
    LRESULT EnsureVisible(int row);
    HIMAGELIST SetImages(HIMAGELIST images);
    bool HasColumn(int column) const;
    int InsertColumn(int place, const LVCOLUMNW& column);
    LRESULT SetColumnWidth(int column, int width);
    bool HeaderRect(int column, RECT* place) const;
    bool SetOrder(std::span<const int> order);

    void KeyDown(WORD key);
    void MoveKey(WORD key);
    void TypeAhead(wchar_t character);
    void Click(WPARAM keys, LPARAM point);
    void DoubleClick(LPARAM point);
    void RightClick(LPARAM point);
    void DragTo(LPARAM point);
    void LookChanged(bool isFont);
    void SendKeyNotification(WORD key);
    void SendNotification(INT code);
    int RowAt(int y) const;

    void Paint(HDC context);
    void PaintHeader(HDC context, const RECT& client) const;
    void PaintRow(HDC context, int row, RECT place) const;
    void AskOwnerToPaint(HDC context, int row, const RECT& place) const;

    ListViewRows rows_;
    std::vector<Column> columns_;
    HIMAGELIST images_ = nullptr; ///< the owner's
    int imageSize_ = 0;
    int rowHeight_ = 16;
};

} // namespace device
