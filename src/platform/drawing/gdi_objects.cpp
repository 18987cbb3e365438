#include "platform/drawing/gdi_objects.h"

#include "platform/drawing/device_context.h"
#include "platform/metrics.h"
#include "platform/system/handle_table.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>

namespace device {

namespace {

constexpr int SystemFontPoints = 9;
constexpr wchar_t SystemFace[] = L"DejaVu Sans";
constexpr COLORREF Black = RGB(0, 0, 0);

FontReference MakeSystemFont() {
    FontDescription font;
    font.height = -std::max(1, (Dpi() * SystemFontPoints + 36) / 72);
    font.face = SystemFace;
    return std::make_shared<const FontDescription>(std::move(font));
}

struct Objects {
    HandleTable<HGDIOBJ, GdiObject> table;
    std::map<int, HBRUSH> systemBrushes;
    HFONT systemFont = nullptr;
    int systemFontDpi = Dpi();
    HPEN thinPen = nullptr;

    Objects() {
        systemFont = table.Add(MakeSystemFont());
        thinPen = table.Add(Pen{0, Black});
    }

    bool IsOurs(HGDIOBJ object) const {
        return object == systemFont || object == thinPen
            || std::any_of(systemBrushes.begin(), systemBrushes.end(),
                [object](const auto& brush) { return brush.second == object; });
    }
};

/// Never destroyed: static objects of a program hold pens and fonts, and delete them late.
Objects& TheObjects() {
    static auto* const objects = new Objects;
    return *objects;
}

const FontDescription* FindFont(HFONT font) {
    const auto* reference = std::get_if<FontReference>(FindObject(font));
    return reference == nullptr ? nullptr : reference->get();
}

} // namespace

const GdiObject* FindObject(HGDIOBJ object) {
    return TheObjects().table.Find(object);
}

HGDIOBJ AddObject(GdiObject object) {
    return TheObjects().table.Add(std::move(object));
}

HFONT SystemFont() {
    Objects& objects = TheObjects();
    if (std::exchange(objects.systemFontDpi, Dpi()) != objects.systemFontDpi)
        *objects.table.Find(objects.systemFont) = MakeSystemFont();
    return objects.systemFont;
}

HPEN ThinPen() {
    return TheObjects().thinPen;
}

const FontDescription& FontOf(HFONT font) {
    const FontDescription* found = FindFont(font);
    return found != nullptr ? *found : *std::get<FontReference>(*FindObject(SystemFont()));
}

bool BrushColor(HBRUSH brush, COLORREF& color) {
    const auto* found = std::get_if<Brush>(FindObject(brush));
    if (found == nullptr)
        return false;
    color = found->color;
    return true;
}

} // namespace device

using namespace device;

HGDIOBJ GetStockObject(int index) {
    return index == SYSTEM_FONT ? SystemFont() : nullptr;
}

HFONT CreateFontIndirectW(const LOGFONTW* description) {
    if (description == nullptr)
        return nullptr;
    FontDescription font;
    font.height = description->lfHeight != 0 ? description->lfHeight : FontOf(SystemFont()).height;
    font.weight = description->lfWeight != 0 ? description->lfWeight : FW_NORMAL;
    font.italic = description->lfItalic != 0;
    const wchar_t* face = description->lfFaceName;
    font.face.assign(face, std::find(face, face + LF_FACESIZE, L'\0'));
    return AddObject(std::make_shared<const FontDescription>(std::move(font)));
}

HPEN CreatePen(int style, int width, COLORREF color) {
    return style == PS_SOLID ? AddObject(Pen{std::max(width, 0), color}) : nullptr;
}

HBRUSH CreateSolidBrush(COLORREF color) {
    return AddObject(Brush{color});
}

HBRUSH GetSysColorBrush(int index) {
    HBRUSH& brush = TheObjects().systemBrushes[index];
    if (brush == nullptr)
        brush = CreateSolidBrush(GetSysColor(index));
    return brush;
}

BOOL DeleteObject(HGDIOBJ object) {
    Objects& objects = TheObjects();
    if (objects.IsOurs(object))
        return TRUE;
    return objects.table.Remove(object) ? TRUE : FALSE;
}

int GetObjectW(HGDIOBJ object, int size, void* description) {
    const FontDescription* font = FindFont(object);
    if (font == nullptr || description == nullptr || size < static_cast<int>(sizeof(LOGFONTW)))
        return 0;
    LOGFONTW result;
    result.lfHeight = font->height;
    result.lfWeight = font->weight;
    result.lfItalic = font->italic ? 1 : 0;
    font->face.copy(result.lfFaceName, LF_FACESIZE - 1);
    std::memcpy(description, &result, sizeof(result));
    return static_cast<int>(sizeof(result));
}
