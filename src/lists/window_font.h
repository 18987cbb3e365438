#pragma once

#include "platform/drawing.h"

/// A font of a window's own, which lives as long as this object.
class CWindowFont {
public:
    CWindowFont() = default;
    CWindowFont(const CWindowFont&) = delete;
    CWindowFont& operator=(const CWindowFont&) = delete;
    virtual ~CWindowFont() { Delete(); }

    /// Null until Create succeeded.
    HFONT GetHandle() const { return font_; }
    /// In place of the font that there was. False when the device refuses the description.
    bool Create(const LOGFONTW& description) {
        Delete();
        font_ = CreateFontIndirectW(&description);
        return font_ != nullptr;
    }

private:
    void Delete() {
        if (font_ != nullptr && DeleteObject(font_))
            font_ = nullptr;
    }

    HFONT font_ = nullptr;
};
