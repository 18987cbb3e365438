#pragma once

#include "platform/drawing/canvas.h"

namespace device {

/// Measures text in the cells of a terminal, each some device pixels wide and high.
class CellMeasurer final : public TextMeasurer {
public:
    /// `unicode`: the terminal shows more than ASCII.
    explicit CellMeasurer(bool unicode);

    /// Of one cell, in device pixels.
    SIZE Cell() const { return cell_; }
    bool IsUnicode() const { return unicode_; }
    /// Cells of one character: 0 (it combines with the one before it), 1 or 2.
    int Columns(wchar_t character) const;
    /// What the terminal is given for a character; one that it cannot show becomes something near.
    std::wstring Shown(wchar_t character) const;

    FontMetrics Metrics(const FontDescription& font) override;
    int Width(const FontDescription& font, std::wstring_view text) override;
    std::vector<double> PrefixWidths(const FontDescription& font, std::wstring_view text) override;
    int CaretX(const FontDescription& font, std::wstring_view text, std::size_t index) override;

private:
    bool unicode_;
    SIZE cell_;
    int smallHeight_;
    int smallFont_; ///< fonts up to this size are the small ones of dialogs
};

} // namespace device
