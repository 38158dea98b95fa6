#include "platform/toolkit/graphics/canvas.h"

#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPen>
#include <QtGui/QPolygonF>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QStyleOptionHeader>

#include <cmath>
#include <optional>
#include <vector>

/// Where drawing goes: the painter handed in last, else an own one on the bitmap, begun at the first call.
struct TCanvas::state
{
    struct frame
    {
        QPainter *painter;
        int saved = 0;
    };

    std::vector<frame> attached;
    std::unique_ptr<QPainter> own;
    QImage const *image = nullptr;
    int own_saved = 0;
    mutable std::optional<QFontMetrics> metrics;
};

namespace {
QPolygonF to_polygon(std::span<TPoint const> points, double shift)
{
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (TPoint const &point : points)
        polygon << QPointF(point.X + shift, point.Y + shift);
    return polygon;
}

Qt::PenStyle to_pen_style(TPenStyle style)
{
    switch (style) {
    case psDash:
        return Qt::DashLine;
    case psDot:
        return Qt::DotLine;
    case psDashDot:
        return Qt::DashDotLine;
    case psDashDotDot:
        return Qt::DashDotDotLine;
    case psClear:
        return Qt::NoPen;
    default:
        return Qt::SolidLine;
    }
}

Qt::BrushStyle to_brush_style(TBrushStyle style)
{
    switch (style) {
    case bsClear:
        return Qt::NoBrush;
    case bsHorizontal:
        return Qt::HorPattern;
    case bsVertical:
        return Qt::VerPattern;
    case bsFDiagonal:
        return Qt::FDiagPattern;
    case bsBDiagonal:
        return Qt::BDiagPattern;
    case bsCross:
        return Qt::CrossPattern;
    case bsDiagCross:
        return Qt::DiagCrossPattern;
    default:
        return Qt::SolidPattern;
    }
}

QPainter::CompositionMode to_composition(TPenMode mode)
{
    switch (mode) {
    case pmNop:
        return QPainter::CompositionMode_Destination;
    case pmNot:
        return QPainter::RasterOp_NotDestination;
    case pmNotCopy:
        return QPainter::RasterOp_NotSource;
    case pmXor:
        return QPainter::RasterOp_SourceXorDestination;
    case pmNotXor:
        return QPainter::RasterOp_NotSourceXorDestination;
    case pmMask:
        return QPainter::RasterOp_SourceAndDestination;
    case pmMerge:
        return QPainter::RasterOp_SourceOrDestination;
    default:
        return QPainter::CompositionMode_SourceOver;
    }
}

QPainter::CompositionMode to_composition(TCopyMode mode)
{
    switch (mode) {
    case cmSrcInvert:
        return QPainter::RasterOp_SourceXorDestination;
    case cmSrcAnd:
        return QPainter::RasterOp_SourceAndDestination;
    case cmSrcPaint:
        return QPainter::RasterOp_SourceOrDestination;
    case cmNotSrcCopy:
        return QPainter::RasterOp_NotSource;
    default:
        return QPainter::CompositionMode_SourceOver;
    }
}

QColor pen_color(TPen const &pen)
{
    if (pen.GetMode() == pmBlack)
        return Qt::black;
    if (pen.GetMode() == pmWhite)
        return Qt::white;
    return vx_qt_color(pen.GetColor());
}

QPen to_pen(TPen const &pen)
{
    bool const thin = pen.GetWidth() <= 1;
    // Only a thin pen is broken into dashes.
    Qt::PenStyle const style = to_pen_style(pen.GetStyle());
    return QPen(pen_color(pen), pen.GetWidth(), thin || style == Qt::NoPen ? style : Qt::SolidLine,
                thin ? Qt::FlatCap : Qt::RoundCap, thin ? Qt::MiterJoin : Qt::RoundJoin);
}

QBrush to_brush(TBrush const &brush)
{
    return QBrush(vx_qt_color(brush.GetColor()), to_brush_style(brush.GetStyle()));
}

/// A painter's state for one call: set at the start, restored at the end. Then, when nothing of the painter
/// is in use any more, the canvas tells of the change.
class painting
{
public:
    explicit painting(TCanvas &canvas)
        : f_canvas(canvas), f_painter(reinterpret_cast<QPainter *>(canvas.NativePainter()))
    {
        if (f_painter)
            f_painter->save();
    }
    ~painting()
    {
        if (f_painter)
            f_painter->restore();
        if (f_done)
            f_canvas.OnChange(&f_canvas);
    }
    painting(painting const &) = delete;
    painting &operator=(painting const &) = delete;

    explicit operator bool() const { return f_painter != nullptr; }
    QPainter *operator->() const { return f_painter; }
    QPainter *get() const { return f_painter; }
    /// Something was drawn.
    void done() { f_done = true; }

    void set_up(TCanvas const &canvas)
    {
        f_painter->setRenderHint(QPainter::Antialiasing, canvas.GetSmooth());
        f_painter->setPen(to_pen(*canvas.GetPen()));
        f_painter->setBrush(to_brush(*canvas.GetBrush()));
        f_painter->setBackgroundMode(Qt::TransparentMode);
        f_painter->setCompositionMode(to_composition(canvas.GetPen()->GetMode()));
    }
    void set_up_text(TCanvas const &canvas)
    {
        f_painter->setFont(vx_qt_font(*canvas.GetFont()));
        f_painter->setPen(vx_qt_color(canvas.GetFont()->GetColor()));
        f_painter->setBackgroundMode(Qt::TransparentMode);
    }

private:
    TCanvas &f_canvas;
    QPainter *f_painter;
    bool f_done = false;
};

/// Whether a straight line along an axis covers whole pixels, so that it can be filled instead of stroked: a
/// fill has the same edges at every scale of the device.
bool is_plain(TPen const &pen)
{
    return (pen.GetStyle() == psSolid || pen.GetStyle() == psInsideFrame) && pen.GetWidth() == 1;
}

int text_flags(TTextFormat const &format)
{
    int flags = 0;
    flags |= format.Contains(tfCenter)  ? Qt::AlignHCenter
             : format.Contains(tfRight) ? Qt::AlignRight
                                        : Qt::AlignLeft;
    flags |= format.Contains(tfVerticalCenter) ? Qt::AlignVCenter
             : format.Contains(tfBottom)       ? Qt::AlignBottom
                                               : Qt::AlignTop;
    if (format.Contains(tfSingleLine))
        flags |= Qt::TextSingleLine;
    if (format.Contains(tfWordBreak))
        flags |= Qt::TextWordWrap;
    if (format.Contains(tfExpandTabs))
        flags |= Qt::TextExpandTabs;
    if (format.Contains(tfNoClip))
        flags |= Qt::TextDontClip;
    if (!format.Contains(tfNoPrefix))
        flags |= Qt::TextShowMnemonic;
    return flags;
}

QImage drawable_image(TBitmap const &bitmap)
{
    QImage const &image = *reinterpret_cast<QImage const *>(bitmap.NativeImage());
    if (!bitmap.GetTransparent() || bitmap.GetAlphaFormat() != afIgnored)
        return image;
    TBitmap masked;
    masked.Assign(&bitmap);
    masked.Mask(bitmap.GetTransparentColor());
    return *reinterpret_cast<QImage const *>(masked.NativeImage());
}
} // namespace

TCanvas::TCanvas()
    : f_state(std::make_unique<state>()), f_pen(std::make_unique<TPen>()),
      f_brush(std::make_unique<TBrush>()), f_font(std::make_unique<TFont>())
{
    f_font->OnChange = make_closure<&TCanvas::on_font_change>(this);
}

TCanvas::TCanvas(TBitmap *bitmap) : TCanvas()
{
    f_bitmap = bitmap;
}

TCanvas::~TCanvas() = default;

void TCanvas::on_font_change(TObject *)
{
    f_state->metrics.reset();
}

vx_native_painter *TCanvas::NativePainter()
{
    if (!f_state->attached.empty())
        return reinterpret_cast<vx_native_painter *>(f_state->attached.back().painter);
    if (!f_bitmap || f_bitmap->GetWidth() < 1 || f_bitmap->GetHeight() < 1)
        return nullptr;
    if (!f_state->own) {
        vx_qt_ensure_application();
        auto *image = reinterpret_cast<QImage *>(f_bitmap->NativeImage());
        f_state->own = std::make_unique<QPainter>(image);
        f_state->image = image;
        f_state->own_saved = 0;
    }
    return reinterpret_cast<vx_native_painter *>(f_state->own.get());
}

void TCanvas::Flush()
{
    if (!f_state->own)
        return;
    for (; f_state->own_saved > 0; --f_state->own_saved)
        f_state->own->restore();
    f_state->own.reset();
    f_state->image = nullptr;
}

void TCanvas::Attach(vx_native_painter *painter)
{
    f_state->attached.push_back({reinterpret_cast<QPainter *>(painter)});
}

void TCanvas::Detach()
{
    if (f_state->attached.empty())
        return;
    state::frame &last = f_state->attached.back();
    for (; last.saved > 0; --last.saved)
        last.painter->restore();
    f_state->attached.pop_back();
}

bool TCanvas::HandleAllocated() const
{
    return !f_state->attached.empty() || (f_bitmap && f_bitmap->GetWidth() > 0 && f_bitmap->GetHeight() > 0);
}

void TCanvas::LineTo(int x, int y)
{
    TPoint const from = f_pen_pos;
    f_pen_pos = {x, y};
    painting p(*this);
    if (!p || (from.X == x && from.Y == y) || f_pen->GetStyle() == psClear)
        return;
    p.set_up(*this);
    if (is_plain(*f_pen) && from.Y == y)
        p->fillRect(x > from.X ? from.X : x + 1, y, std::abs(x - from.X), 1, p->pen().color());
    else if (is_plain(*f_pen) && from.X == x)
        p->fillRect(x, y > from.Y ? from.Y : y + 1, 1, std::abs(y - from.Y), p->pen().color());
    else
        p->drawLine(QPointF(from.X + 0.5, from.Y + 0.5), QPointF(x + 0.5, y + 0.5));
    p.done();
}

void TCanvas::Polyline(std::span<TPoint const> points)
{
    painting p(*this);
    if (!p || points.size() < 2)
        return;
    p.set_up(*this);
    p->setBrush(Qt::NoBrush);
    p->drawPolyline(to_polygon(points, 0.5));
    p.done();
}

void TCanvas::Polygon(std::span<TPoint const> points)
{
    painting p(*this);
    if (!p || points.size() < 2)
        return;
    p.set_up(*this);
    p->drawPolygon(to_polygon(points, 0.5));
    p.done();
}

void TCanvas::Rectangle(int left, int top, int right, int bottom)
{
    painting p(*this);
    if (!p || right <= left || bottom <= top)
        return;
    p.set_up(*this);
    int const width = right - left;
    int const height = bottom - top;
    if (is_plain(*f_pen) || f_pen->GetStyle() == psClear) {
        if (f_pen->GetStyle() == psClear) {
            p->fillRect(left, top, width - 1, height - 1, p->brush());
        } else {
            if (f_brush->GetStyle() != bsClear && width > 2 && height > 2)
                p->fillRect(left + 1, top + 1, width - 2, height - 2, p->brush());
            QColor const color = p->pen().color();
            p->fillRect(left, top, width, 1, color);
            if (height > 1)
                p->fillRect(left, bottom - 1, width, 1, color);
            if (height > 2) {
                p->fillRect(left, top + 1, 1, height - 2, color);
                if (width > 1)
                    p->fillRect(right - 1, top + 1, 1, height - 2, color);
            }
        }
        p.done();
        return;
    }
    double const inset = f_pen->GetStyle() == psInsideFrame ? f_pen->GetWidth() / 2.0 : 0.5;
    p->drawRect(QRectF(left + inset, top + inset, std::max(width - 2 * inset, 0.0),
                       std::max(height - 2 * inset, 0.0)));
    p.done();
}

void TCanvas::Rectangle(TRect const &rect)
{
    Rectangle(rect.Left, rect.Top, rect.Right, rect.Bottom);
}

void TCanvas::RoundRect(int left, int top, int right, int bottom, int ellipse_width, int ellipse_height)
{
    painting p(*this);
    if (!p || right <= left || bottom <= top)
        return;
    p.set_up(*this);
    p->drawRoundedRect(QRectF(left + 0.5, top + 0.5, right - left - 1, bottom - top - 1), ellipse_width / 2.0,
                       ellipse_height / 2.0);
    p.done();
}

void TCanvas::Ellipse(int left, int top, int right, int bottom)
{
    painting p(*this);
    if (!p || right <= left || bottom <= top)
        return;
    p.set_up(*this);
    p->drawEllipse(QRectF(left + 0.5, top + 0.5, right - left - 1, bottom - top - 1));
    p.done();
}

void TCanvas::Ellipse(TRect const &rect)
{
    Ellipse(rect.Left, rect.Top, rect.Right, rect.Bottom);
}

namespace {
/// Start and length of an arc in sixteenths of a degree, anticlockwise from three o'clock.
struct arc_span
{
    int start;
    int length;
};

arc_span span_between(QRectF const &box, QPointF const &from, QPointF const &to)
{
    QPointF const centre = box.center();
    // The rays meet the ellipse where they meet the circle that it is stretched from.
    auto const angle = [&](QPointF const &point) {
        double const x = (point.x() - centre.x()) / std::max(box.width(), 1.0);
        double const y = (centre.y() - point.y()) / std::max(box.height(), 1.0);
        return std::atan2(y, x) * 180 / M_PI * 16;
    };
    int const start = static_cast<int>(std::lround(angle(from)));
    int length = static_cast<int>(std::lround(angle(to))) - start;
    if (length <= 0)
        length += 360 * 16;
    return {start, length};
}
} // namespace

void TCanvas::Arc(int left, int top, int right, int bottom, int x3, int y3, int x4, int y4)
{
    painting p(*this);
    if (!p || right <= left || bottom <= top)
        return;
    p.set_up(*this);
    QRectF const box(left + 0.5, top + 0.5, right - left - 1, bottom - top - 1);
    arc_span const span = span_between(box, QPointF(x3, y3), QPointF(x4, y4));
    p->drawArc(box, span.start, span.length);
    p.done();
}

void TCanvas::Pie(int left, int top, int right, int bottom, int x3, int y3, int x4, int y4)
{
    painting p(*this);
    if (!p || right <= left || bottom <= top)
        return;
    p.set_up(*this);
    QRectF const box(left + 0.5, top + 0.5, right - left - 1, bottom - top - 1);
    arc_span const span = span_between(box, QPointF(x3, y3), QPointF(x4, y4));
    p->drawPie(box, span.start, span.length);
    p.done();
}

void TCanvas::FillRect(TRect const &rect)
{
    painting p(*this);
    if (!p || f_brush->GetStyle() == bsClear)
        return;
    p->fillRect(vx_qt_rect(rect), to_brush(*f_brush));
    p.done();
}

void TCanvas::FrameRect(TRect const &rect)
{
    painting p(*this);
    QRect const box = vx_qt_rect(rect);
    if (!p || box.isEmpty())
        return;
    QColor const color = vx_qt_color(f_brush->GetColor());
    p->fillRect(box.left(), box.top(), box.width(), 1, color);
    p->fillRect(box.left(), box.bottom(), box.width(), 1, color);
    p->fillRect(box.left(), box.top(), 1, box.height(), color);
    p->fillRect(box.right(), box.top(), 1, box.height(), color);
    p.done();
}

void TCanvas::DrawFocusRect(TRect const &rect)
{
    painting p(*this);
    QRect const box = vx_qt_rect(rect);
    if (!p || box.width() < 2 || box.height() < 2)
        return;
    p->setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    QBrush const dots(Qt::white, Qt::Dense4Pattern);
    p->fillRect(box.left(), box.top(), box.width(), 1, dots);
    p->fillRect(box.left(), box.bottom(), box.width(), 1, dots);
    p->fillRect(box.left(), box.top() + 1, 1, box.height() - 2, dots);
    p->fillRect(box.right(), box.top() + 1, 1, box.height() - 2, dots);
    p.done();
}

namespace {
QFontMetrics const &metrics_of(std::optional<QFontMetrics> &kept, TFont const &font)
{
    if (!kept) {
        vx_qt_ensure_application();
        kept.emplace(vx_qt_font(font));
    }
    return *kept;
}
} // namespace

int TCanvas::TextWidth(UnicodeString const &text) const
{
    return metrics_of(f_state->metrics, *f_font).horizontalAdvance(vx_qt_string(text));
}

int TCanvas::TextHeight(UnicodeString const &) const
{
    return metrics_of(f_state->metrics, *f_font).height();
}

TSize TCanvas::TextExtent(UnicodeString const &text) const
{
    return {TextWidth(text), TextHeight(text)};
}

void TCanvas::TextOut(int x, int y, UnicodeString const &text)
{
    TSize const extent = TextExtent(text);
    f_pen_pos = {x + extent.cx, y};
    painting p(*this);
    if (!p)
        return;
    p.set_up_text(*this);
    int const ascent = metrics_of(f_state->metrics, *f_font).ascent();
    if (f_font->GetOrientation() != 0) {
        p->translate(x, y);
        p->rotate(-f_font->GetOrientation() / 10.0);
        p->translate(-x, -y);
    }
    if (f_brush->GetStyle() != bsClear)
        p->fillRect(x, y, extent.cx, extent.cy, vx_qt_color(f_brush->GetColor()));
    p->drawText(x, y + ascent, vx_qt_string(text));
    p.done();
}

void TCanvas::TextRect(TRect const &rect, int x, int y, UnicodeString const &text)
{
    painting p(*this);
    if (!p)
        return;
    p.set_up_text(*this);
    p->setClipRect(vx_qt_rect(rect), Qt::IntersectClip);
    if (f_brush->GetStyle() != bsClear)
        p->fillRect(vx_qt_rect(rect), to_brush(*f_brush));
    p->drawText(x, y + metrics_of(f_state->metrics, *f_font).ascent(), vx_qt_string(text));
    p.done();
}

void TCanvas::TextRect(TRect &rect, UnicodeString const &text, TTextFormat format)
{
    QFontMetrics const &metrics = metrics_of(f_state->metrics, *f_font);
    int const flags = text_flags(format);
    QRect const box = vx_qt_rect(rect);
    QString shown = vx_qt_string(text);
    if (format.Contains(tfCalcRect)) {
        QRect const room =
            metrics.boundingRect(QRect(box.left(), box.top(), std::max(box.width(), 0), 1 << 20),
                                 flags & ~(Qt::AlignVCenter | Qt::AlignBottom), shown);
        rect.Right = rect.Left + room.width();
        rect.Bottom = rect.Top + room.height();
        return;
    }
    painting p(*this);
    if (!p)
        return;
    if (format.Contains(tfEndEllipsis) || format.Contains(tfWordEllipsis))
        shown = metrics.elidedText(shown, Qt::ElideRight, box.width(), flags);
    else if (format.Contains(tfPathEllipsis))
        shown = metrics.elidedText(shown, Qt::ElideMiddle, box.width(), flags);
    p.set_up_text(*this);
    if (f_brush->GetStyle() != bsClear)
        p->fillRect(box, to_brush(*f_brush));
    p->drawText(box, flags, shown);
    p.done();
}

void TCanvas::Draw(int x, int y, TGraphic *graphic)
{
    Draw(x, y, graphic, 255);
}

void TCanvas::Draw(int x, int y, TGraphic *graphic, unsigned char opacity)
{
    if (graphic)
        stretch(Bounds(x, y, graphic->GetWidth(), graphic->GetHeight()), graphic, opacity);
}

void TCanvas::StretchDraw(TRect const &rect, TGraphic *graphic)
{
    if (graphic)
        stretch(rect, graphic, 255);
}

void TCanvas::stretch(TRect const &rect, TGraphic *graphic, unsigned char opacity)
{
    if (graphic->GetEmpty())
        return;
    auto const *bitmap = dynamic_cast<TBitmap const *>(graphic);
    if (!bitmap)
        return graphic->Draw(this, rect);
    // Taken before the own painter runs: the bitmap may be the one that is drawn on.
    QImage const image = drawable_image(*bitmap);
    painting p(*this);
    if (!p)
        return;
    QRect const box = vx_qt_rect(rect);
    p->setOpacity(p->opacity() * opacity / 255);
    p->setRenderHint(QPainter::SmoothPixmapTransform, box.size() != image.size());
    p->setCompositionMode(to_composition(f_copy_mode));
    p->drawImage(box, image);
    p.done();
}

void TCanvas::CopyRect(TRect const &dest, TCanvas *canvas, TRect const &source)
{
    if (!canvas || !canvas->f_bitmap || canvas->f_bitmap->GetEmpty())
        return;
    // Taken before the own painter runs: source and target may be one bitmap.
    QImage const image = reinterpret_cast<QImage const *>(std::as_const(*canvas->f_bitmap).NativeImage())
                             ->copy(vx_qt_rect(source));
    painting p(*this);
    if (!p)
        return;
    QRect const box = vx_qt_rect(dest);
    p->setRenderHint(QPainter::SmoothPixmapTransform, box.size() != image.size());
    p->setCompositionMode(f_copy_mode == cmSrcCopy ? QPainter::CompositionMode_Source
                                                   : to_composition(f_copy_mode));
    p->drawImage(box, image);
    p.done();
}

TColor TCanvas::GetPixel(int x, int y) const
{
    if (!f_bitmap || !f_state->attached.empty() || x < 0 || y < 0 || x >= f_bitmap->GetWidth() ||
        y >= f_bitmap->GetHeight())
        return clNone;
    // A running painter has put its pixels into the image already.
    QImage const *image = f_state->image
                              ? f_state->image
                              : reinterpret_cast<QImage const *>(std::as_const(*f_bitmap).NativeImage());
    return vx_color(QColor::fromRgb(image->pixel(x, y)));
}

void TCanvas::SetPixel(int x, int y, TColor color)
{
    painting p(*this);
    if (!p)
        return;
    p->fillRect(x, y, 1, 1, vx_qt_color(color));
    p.done();
}

TRect TCanvas::GetClipRect() const
{
    auto *painter = reinterpret_cast<QPainter *>(const_cast<TCanvas *>(this)->NativePainter());
    if (!painter)
        return {};
    QRect box = painter->hasClipping() ? painter->clipBoundingRect().toAlignedRect() : painter->window();
    return vx_rect(box);
}

void TCanvas::IntersectClipRect(TRect const &rect)
{
    if (auto *painter = reinterpret_cast<QPainter *>(NativePainter()))
        painter->setClipRect(vx_qt_rect(rect), painter->hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
}

void TCanvas::ExcludeClipRect(TRect const &rect)
{
    auto *painter = reinterpret_cast<QPainter *>(NativePainter());
    if (!painter)
        return;
    QRegion const all = painter->hasClipping() ? painter->clipRegion() : QRegion(painter->window());
    painter->setClipRegion(all.subtracted(vx_qt_rect(rect)));
}

void TCanvas::SaveState()
{
    auto *painter = reinterpret_cast<QPainter *>(NativePainter());
    if (!painter)
        return;
    painter->save();
    ++(f_state->attached.empty() ? f_state->own_saved : f_state->attached.back().saved);
}

void TCanvas::RestoreState()
{
    int &saved = f_state->attached.empty() ? f_state->own_saved : f_state->attached.back().saved;
    if (saved < 1 || !HandleAllocated())
        return;
    --saved;
    reinterpret_cast<QPainter *>(NativePainter())->restore();
}

void TCanvas::MoveOrigin(int dx, int dy)
{
    if (auto *painter = reinterpret_cast<QPainter *>(NativePainter()))
        painter->translate(dx, dy);
}

void DrawFrameControl(TCanvas *canvas, TRect const &rect, TFrameControl kind, TFrameStates state)
{
    painting p(*canvas);
    if (!p)
        return;
    QStyle const *style = QApplication::style();
    QStyleOptionButton option;
    option.rect = vx_qt_rect(rect);
    option.palette = QApplication::palette();
    option.state =
        state.Contains(fsInactive) ? QStyle::State_None : QStyle::State_Enabled | QStyle::State_Active;
    option.state |= state.Contains(fsPushed) ? QStyle::State_Sunken : QStyle::State_Raised;
    option.state |= state.Contains(fsChecked) ? QStyle::State_On : QStyle::State_Off;
    if (state.Contains(fsHot))
        option.state |= QStyle::State_MouseOver;
    if (state.Contains(fsFlat))
        option.features |= QStyleOptionButton::Flat;
    switch (kind) {
    case fcButton:
        style->drawControl(QStyle::CE_PushButtonBevel, &option, p.get());
        break;
    case fcCheckBox:
        style->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, p.get());
        break;
    case fcRadioButton:
        style->drawPrimitive(QStyle::PE_IndicatorRadioButton, &option, p.get());
        break;
    case fcComboButton:
        style->drawControl(QStyle::CE_PushButtonBevel, &option, p.get());
        option.rect.adjust(3, 3, -3, -3);
        style->drawPrimitive(QStyle::PE_IndicatorArrowDown, &option, p.get());
        break;
    case fcHeader: {
        QStyleOptionHeader header;
        static_cast<QStyleOption &>(header) = option;
        header.type = QStyleOption::SO_Header;
        header.version = QStyleOptionHeader::Version;
        header.orientation = Qt::Horizontal;
        header.position = QStyleOptionHeader::Middle;
        style->drawControl(QStyle::CE_HeaderSection, &header, p.get());
        break;
    }
    }
}

void DrawEdge(TCanvas *canvas, TRect const &rect, TEdgeStyle edge)
{
    if (edge == esNone)
        return;
    painting p(*canvas);
    QRect const box = vx_qt_rect(rect);
    if (!p || box.isEmpty())
        return;
    QColor const light = vx_qt_color(clBtnHighlight);
    QColor const dark = vx_qt_color(clBtnShadow);
    auto const ring = [&](QRect const &r, QColor const &top_left, QColor const &bottom_right) {
        p->fillRect(r.left(), r.top(), r.width() - 1, 1, top_left);
        p->fillRect(r.left(), r.top(), 1, r.height() - 1, top_left);
        p->fillRect(r.left(), r.bottom(), r.width(), 1, bottom_right);
        p->fillRect(r.right(), r.top(), 1, r.height(), bottom_right);
    };
    bool const raised = edge == esRaised || edge == esBump;
    ring(box, raised ? light : dark, raised ? dark : light);
    if (edge == esEtched || edge == esBump)
        ring(box.adjusted(1, 1, -1, -1), raised ? dark : light, raised ? light : dark);
}
