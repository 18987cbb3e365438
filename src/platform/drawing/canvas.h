#pragma once

#include "platform/types.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace device {

/// What dialogs name as their face: the plain cut of the device's own, since a field has the width of the screen and
/// its text is small. Titles and lists, whose columns are narrow, have the condensed cut.
inline constexpr wchar_t DialogFace[] = L"MS Shell Dlg";

/// A font as it is asked for. Equal descriptions are the same font.
struct FontDescription {
    int height = -13; ///< device pixels; below 0: of the characters (em), above 0: of the cell
    int weight = 400;
    bool italic = false;
    std::wstring face; ///< empty or unknown: the device's own sans-serif face, condensed

    bool operator==(const FontDescription&) const = default;
};

/// Device pixels.
struct FontMetrics {
    int ascent = 0;
    int descent = 0;
    int externalLeading = 0;
    int averageWidth = 0;

    int Height() const { return ascent + descent; }
};

/// What a painted text means beside its looks: whose it is, and how its owner painted it.
struct PaintMarks {
    enum class Role { Content, Title, InputMode, LeftSoftKey, RightSoftKey, Menu };

    Role role = Role::Content;
    HWND topLevel = nullptr; ///< the full window or message box that it stands in
    HWND control = nullptr; ///< the child window; runs of one control that touch are one text
    bool selected = false; ///< a row painted as selected
    bool focused = false; ///< its control has the focus
    bool greyed = false;

    bool operator==(const PaintMarks&) const = default;
};

/// One picture in several sizes (width in pixels, PNG bytes). Equal ids are the same picture.
struct Picture;

/// Where texts are measured. Every canvas of a device measures alike, so that layout does not depend on who paints.
class TextMeasurer {
public:
    virtual ~TextMeasurer() = default;
    virtual FontMetrics Metrics(const FontDescription& font) = 0;
    /// Advance width of a run on one line, in device pixels.
    virtual int Width(const FontDescription& font, std::wstring_view text) = 0;
    /// How wide the beginnings of a run are as they are laid out within it, from none of its characters to all of them.
    virtual std::vector<double> PrefixWidths(const FontDescription& font, std::wstring_view text) = 0;
    /// Where a caret before character `index` stands, from the left edge of the run (right-to-left text counted right).
    virtual int CaretX(const FontDescription& font, std::wstring_view text, std::size_t index) = 0;
};

/// The device's text measurer, the same one for every canvas; never destroyed.
TextMeasurer& DeviceMeasurer();

/// What a screen can draw, in device pixels. All calls are clipped to the innermost clip rectangle.
class Canvas {
public:
    virtual ~Canvas() = default;
    virtual TextMeasurer& Measurer() = 0;
    /// A painting pass begins, which paints `dirty` anew. Clips of one that was broken off are gone.
    void BeginFrame(const RECT& dirty);
    /// Clips are intersected with the one below them.
    void PushClip(const RECT& clip);
    void PopClip();
    virtual void SetMarks(const PaintMarks& marks) = 0;
    /// alpha 0 to 255.
    virtual void Fill(const RECT& rectangle, COLORREF color, int alpha = 255) = 0;
    /// Level or upright; `to` is not part of it.
    virtual void Line(POINT from, POINT to, COLORREF color, int width) = 0;
    virtual void Frame(const RECT& rectangle, COLORREF color, int width) = 0;
    /// Arrows, check marks and other small shapes.
    virtual void Polygon(std::span<const POINT> points, COLORREF color) = 0;
    /// One run, its cell's upper left corner at (x, y).
    virtual void Text(int x, int y, std::wstring_view text, const FontDescription& font, COLORREF color) = 0;
    virtual void DrawPicture(const RECT& place, const Picture& picture) = 0;

protected:
    /// As much of a rectangle as the clips let through.
    RECT Clipped(const RECT& rectangle) const;
    void PopAllClips();

private:
    virtual void Begin(const RECT& /*dirty*/) { }
    /// Until the Unclip that belongs to it; already intersected with those before it.
    virtual void Clip(const RECT& /*clip*/) { }
    virtual void Unclip() { }

    std::vector<RECT> clips_;
};

/// `text` cut so that it fits `width` with an ellipsis (U+2026) behind it, whole if it fits. Never cuts between a
/// base character and what combines with it.
std::wstring EllipsisText(TextMeasurer& measurer, const FontDescription& font, std::wstring_view text, int width);

} // namespace device
