#include "platform/drawing/cairo/cairo_canvas.h"

#include "platform/drawing/cairo/cairo_pictures.h"
#include "platform/drawing/cairo/pango_measurer.h"
#include "platform/drawing/pixel_grid.h"
#include "platform/drawing/rectangles.h"

namespace device {

namespace {

/// Cairo's own limit on an image's edge.
constexpr LONG MaximumImageEdge = 32767;

} // namespace

struct CairoCanvas::Surface {
    Surface(SIZE deviceSize, double itsZoom);
    ~Surface();
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    void SetColor(COLORREF color, int alpha = 255) const;
    void FillImage(const RECT& image) const;

    PixelGrid grid;
    SIZE imageSize;
    cairo_surface_t* image = nullptr;
    cairo_t* context = nullptr;
};

CairoCanvas::Surface::Surface(SIZE deviceSize, double itsZoom)
    : grid{itsZoom > 0 ? itsZoom : 1.0} {
    const auto edge = [this](LONG length) {
        const double wanted = std::round(std::max<LONG>(length, 1) * grid.zoom);
        return static_cast<LONG>(std::clamp(wanted, 1.0, double{MaximumImageEdge}));
    };
    imageSize = {edge(deviceSize.cx), edge(deviceSize.cy)};
    image = cairo_image_surface_create(CAIRO_FORMAT_RGB24, imageSize.cx, imageSize.cy);
    context = cairo_create(image);
}

CairoCanvas::Surface::~Surface() {
    cairo_destroy(context);
    cairo_surface_destroy(image);
}

void CairoCanvas::Surface::SetColor(COLORREF color, int alpha) const {
    const auto part = [color](unsigned shift) { return ((color >> shift) & 0xFFU) / 255.0; };
    cairo_set_source_rgba(context, part(0), part(8), part(16), alpha / 255.0);
}

void CairoCanvas::Surface::FillImage(const RECT& place) const {
    if (IsRectEmpty(place))
        return;
    cairo_rectangle(context, place.left, place.top, place.right - place.left, place.bottom - place.top);
    cairo_fill(context);
}

CairoCanvas::CairoCanvas(SIZE deviceSize, double zoom)
    : surface_(std::make_unique<Surface>(deviceSize, zoom)) {
}

CairoCanvas::~CairoCanvas() = default;

void CairoCanvas::Resize(SIZE deviceSize, double zoom) {
    PopAllClips();
    surface_ = std::make_unique<Surface>(deviceSize, zoom);
}

SIZE CairoCanvas::ImageSize() const {
    return surface_->imageSize;
}

double CairoCanvas::Zoom() const {
    return surface_->grid.zoom;
}

const unsigned char* CairoCanvas::Pixels() const {
    cairo_surface_flush(surface_->image);
    return cairo_image_surface_get_data(surface_->image);
}

int CairoCanvas::Stride() const {
    return cairo_image_surface_get_stride(surface_->image);
}

bool CairoCanvas::WritePng(const std::string& hostPath) const {
    return cairo_surface_write_to_png(surface_->image, hostPath.c_str()) == CAIRO_STATUS_SUCCESS;
}

void CairoCanvas::Clip(const RECT& clip) {
    const RECT place = surface_->grid.Snap(clip);
    cairo_t* context = surface_->context;
    cairo_save(context);
    cairo_rectangle(context, place.left, place.top, place.right - place.left, place.bottom - place.top);
    cairo_clip(context);
}

void CairoCanvas::Unclip() {
    cairo_restore(surface_->context);
}

void CairoCanvas::Fill(const RECT& rectangle, COLORREF color, int alpha) {
    surface_->SetColor(color, alpha);
    surface_->FillImage(surface_->grid.Snap(rectangle));
}

void CairoCanvas::Line(POINT from, POINT to, COLORREF color, int width) {
    surface_->SetColor(color);
    surface_->FillImage(surface_->grid.Line(from, to, width));
}

void CairoCanvas::Frame(const RECT& rectangle, COLORREF color, int width) {
    surface_->SetColor(color);
    for (const RECT& edge : surface_->grid.FrameEdges(rectangle, width))
        surface_->FillImage(edge);
}

void CairoCanvas::Polygon(std::span<const POINT> points, COLORREF color) {
    if (points.size() < 3)
        return;
    cairo_t* context = surface_->context;
    surface_->SetColor(color);
    for (const POINT& point : points)
        cairo_line_to(context, point.x * surface_->grid.zoom, point.y * surface_->grid.zoom);
    cairo_fill(context);
}

void CairoCanvas::Text(int x, int y, std::wstring_view text, const FontDescription& font, COLORREF color) {
    const FontMetrics metrics = Measurer().Metrics(font);
    // Marks and stand-in faces may rise above the cell, so that only what is far outside is left out.
    const RECT near{x, y - metrics.Height(), MaximumImageEdge, y + 2 * metrics.Height()};
    if (text.empty() || IsRectEmpty(Clipped(near)))
        return;
    cairo_t* context = surface_->context;
    cairo_save(context);
    surface_->SetColor(color);
    cairo_translate(context, surface_->grid.Snap(x), surface_->grid.Snap(y + metrics.ascent));
    cairo_scale(context, surface_->grid.zoom, surface_->grid.zoom);
    pango_cairo_show_layout_line(context, PangoTextMeasurer::Instance().Line(font, text));
    cairo_restore(context);
}

void CairoCanvas::DrawPicture(const RECT& place, const Picture& picture) {
    const RECT target = surface_->grid.Snap(place);
    if (IsRectEmpty(target))
        return;
    const ImageResource* best = BestSize(picture, target.right - target.left);
    cairo_surface_t* decoded = best == nullptr ? nullptr : DecodedImage(*best);
    if (decoded == nullptr)
        return;
    cairo_t* context = surface_->context;
    cairo_save(context);
    cairo_translate(context, target.left, target.top);
    cairo_scale(context, double(target.right - target.left) / cairo_image_surface_get_width(decoded),
        double(target.bottom - target.top) / cairo_image_surface_get_height(decoded));
    cairo_set_source_surface(context, decoded, 0, 0);
    cairo_paint(context);
    cairo_restore(context);
}

} // namespace device
