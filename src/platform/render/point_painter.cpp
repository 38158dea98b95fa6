#include "platform/render/detail/figure_fit.h"
#include "platform/render/detail/point_mask.h"
#include "platform/render/detail/style_painter.h"
#include "platform/render/detail/text_path.h"
#include "platform/toolkit/bridge/qt_graphics.h"

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtCore/QRectF>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPainterPathStroker>
#include <QtGui/QRgb>
#include <QtGui/QTransform>

#include <algorithm>
#include <cmath>
#include <optional>
#include <variant>
#include <vector>

namespace vx::render {
namespace {
using namespace vx::styles;

/// Symbols up to this size are kept as a picture.
constexpr double c_max_stamp_px = 256;
/// Areas larger than this are cut to what shows: the painter would go all round them.
constexpr double c_large_px = 4096;
/// Outline of figures that have no line width of their own.
constexpr double c_figure_line_mm = 0.25;

QColor qt_color(Tvx_color c)
{
    return QColor(c.r, c.g, c.b, c.a);
}

double limited(double px)
{
    return std::clamp(px, -c_max_length_px, c_max_length_px);
}

/// A size that can be seen.
double sane_size(double px)
{
    return std::clamp(px, 1.0, c_max_symbol_px);
}

/// An area of a symbol, in pixels round its anchor.
struct item
{
    QPainterPath path;
    QColor color;
    std::vector<px_line> rings = {}; ///< of a large area, which is cut before it is filled

    void prepare()
    {
        QRectF const room = path.boundingRect();
        if (room.width() > c_large_px || room.height() > c_large_px)
            for (QPolygonF const &polygon : path.toSubpathPolygons())
                for (px_line &ring = rings.emplace_back(); QPointF const &v : polygon)
                    ring.push_back({v.x(), v.y()});
    }
    /// Moved by `t` first. A painter of vectors would write all that is saved and restored into its file.
    void fill(QPainter &painter, QTransform const &t, Tvx_box_d2 const &clip, bool is_vector) const
    {
        if (rings.empty() && is_vector) {
            painter.fillPath(t.map(path), color);
            return;
        }
        if (rings.empty()) {
            painter.save();
            painter.setTransform(t, true);
            painter.fillPath(path, color);
            painter.restore();
            return;
        }
        QPainterPath seen;
        seen.setFillRule(path.fillRule());
        px_line moved;
        for (px_line const &ring : rings) {
            moved.clear();
            for (Tvx_pnt_d2 const &v : ring) {
                QPointF const p = t.map(QPointF(v.x, v.y));
                moved.push_back({p.x(), p.y()});
            }
            QPolygonF polygon;
            for (Tvx_pnt_d2 const &v : clip_ring(moved, clip))
                polygon.append(QPointF(v.x, v.y));
            seen.addPolygon(polygon);
            seen.closeSubpath();
        }
        painter.fillPath(seen, color);
    }
};

/// Where a layer puts its drawing: `dx` to the right and `dy` up from the anchor, turned counter-clockwise by
/// `angle` about its own middle.
QTransform placement(surface const &s, double dx, double dy, double angle)
{
    QTransform t;
    t.translate(limited(dx * s.px_per_mm_x), limited(-dy * s.px_per_mm_y));
    t.rotate(-angle);
    return t;
}

QPainterPath strokes_of(placed_figure const &placed, figure const &shape)
{
    Tvx_box_d2 const &b = placed.box;
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    if (shape.curve == figure_curve::disc) {
        path.addEllipse(b.min_x, b.min_y, b.width(), b.height());
        return path;
    }
    if (shape.curve == figure_curve::half_disc) {
        path.moveTo(b.max_x, b.max_y);
        path.arcTo(b.min_x, b.min_y, b.width(), 2 * b.height(), 0, 180);
        path.closeSubpath();
        return path;
    }
    for (px_line const &part : placed.parts) {
        for (std::size_t i = 0; i < part.size(); ++i) {
            if (i)
                path.lineTo(part[i].x, part[i].y);
            else
                path.moveTo(part[i].x, part[i].y);
        }
        if (shape.closed)
            path.closeSubpath();
    }
    return path;
}

/// The area of the figure, or that of its outline, `pen` pixels wide. A stroker makes better corners of thin
/// lines than a pen does.
QPainterPath area_of(placed_figure const &placed, figure const &shape, double pen)
{
    QPainterPath const path = strokes_of(placed, shape);
    if (pen <= 0)
        return path;
    QPainterPathStroker stroker;
    stroker.setWidth(pen);
    stroker.setCapStyle(Qt::FlatCap);
    stroker.setJoinStyle(Qt::SvgMiterJoin);
    stroker.setMiterLimit(1.5); // right angles; sharp corners would stick out of the figure
    return stroker.createStroke(path);
}

/// Width of the outline: at least a pixel, and never more than half the figure.
double outline_px(surface const &s, double line_mm, double size_x, double size_y)
{
    return std::min(std::max(1.0, line_mm * s.px_per_mm()), std::max(1.0, std::max(size_x, size_y) / 2));
}

/// A figure of a style layer, as large as told: layers are put together to more than one figure, so each
/// keeps its exact place.
item layer_figure(surface const &s, figure const &shape, double size_x, double size_y, Tvx_color color,
                  double line_mm)
{
    double const kx = sane_size(size_x * s.px_per_mm_x);
    double const ky = sane_size(size_y * s.px_per_mm_y);
    item it;
    it.color = qt_color(color);
    double const pen = shape.filled ? 0 : outline_px(s, line_mm, kx, ky);
    it.path = area_of(scale_figure(shape, kx, ky, pen), shape, pen);
    return it;
}

/// The figure of a plain style, crisp at any size. `shift` becomes where in its pixel the anchor lies.
item plain_figure(surface const &s, figure const &shape, double size, Tvx_color color, Tvx_pnt_d2 &shift)
{
    double const kx = sane_size(size * s.px_per_mm_x);
    double const ky = sane_size(size * s.px_per_mm_y);
    item it;
    it.color = qt_color(color);
    // What is hardly a pixel large has no room for an outline.
    bool const filled = shape.filled || (shape.closed && std::min(kx, ky) < 1.5);
    double const pen = filled ? 0 : std::floor(outline_px(s, c_figure_line_mm, kx, ky) + 0.5);
    placed_figure const fitted = fit_figure(shape, kx, ky, pen);
    shift = fitted.shift;
    it.path = area_of(fitted, shape, pen);
    return it;
}

/// A text or symbol, `size` millimetres high, with the middle of its ink on the anchor.
item text_item(surface const &s, std::wstring_view text, vx_fnt_type const &font, double size,
               Tvx_color color)
{
    item it;
    it.color = qt_color(color);
    it.path.setFillRule(Qt::WindingFill);
    for (px_line const &ring : text_outlines(text, font, sane_size(size * s.px_per_mm()))) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            if (i)
                it.path.lineTo(ring[i].x, ring[i].y);
            else
                it.path.moveTo(ring[i].x, ring[i].y);
        }
        it.path.closeSubpath();
    }
    QRectF const box = it.path.boundingRect();
    it.path.translate(-box.center());
    return it;
}

std::wstring symbol_text(unsigned code)
{
    bool const scalar = code > 0 && code <= 0x10FFFF && !(code >= 0xD800 && code <= 0xDFFF);
    return scalar ? std::wstring(1, static_cast<wchar_t>(code)) : std::wstring();
}

/// The layers of a complex style, lowest first.
std::vector<item> layer_items(surface const &s, cpx_style const &style)
{
    std::vector<item> items;
    auto const add = [&](item it, auto const &lr) {
        if (it.path.isEmpty())
            return;
        it.path = placement(s, lr.dx, lr.dy, lr.angle).map(it.path);
        it.prepare();
        items.push_back(std::move(it));
    };
    for (auto const &lr : style.lrs) {
        if (auto const *figr = std::get_if<pnt_figr_lr>(&lr->data)) {
            add(layer_figure(s, get_figure(figr->figure), figr->size_x, figr->size_y, figr->color,
                             figr->line_width),
                *figr);
        } else if (auto const *geom = std::get_if<pnt_geom_lr>(&lr->data)) {
            figure const shape{geom->parts, geom->fill, geom->fill, figure_curve::none};
            add(layer_figure(s, shape, geom->size, geom->size, geom->color, geom->line_width), *geom);
        } else if (auto const *symb = std::get_if<pnt_symb_lr>(&lr->data)) {
            add(text_item(s, symbol_text(symb->symbol), symb->font, symb->size, symb->color), *symb);
        } else if (auto const *text = std::get_if<pnt_text_lr>(&lr->data)) {
            add(text_item(s, text->text, text->font, text->size, text->color), *text);
        }
    }
    return items;
}

/// Room for all items, and one pixel round them for the smooth edges.
QRectF bounds(std::vector<item> const &items)
{
    QRectF all;
    for (item const &it : items)
        if (!it.path.isEmpty())
            all |= it.path.boundingRect().adjusted(-1, -1, 1, 1);
    return all;
}

Tvx_box_d2 to_box(QRectF const &r)
{
    return r.isEmpty() ? Tvx_box_d2{0, 0, 0, 0} : Tvx_box_d2{r.left(), r.top(), r.right(), r.bottom()};
}

/// The items drawn on a picture that just holds them, whose corner is `corner` from the anchor; null for none
/// and for large ones.
QImage picture(std::vector<item> const &items, QRectF const &room, QImage::Format format, QPoint &corner)
{
    if (room.isEmpty() || room.width() > c_max_stamp_px || room.height() > c_max_stamp_px)
        return {};
    QRect const box = room.toAlignedRect();
    QImage image(box.size(), format);
    image.fill(Qt::transparent);
    corner = box.topLeft();
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.translate(-corner);
    for (item const &it : items)
        p.fillPath(it.path, it.color);
    return image;
}
} // namespace

double thinning(double overlap)
{
    return overlap > c_max_overlap ? std::ceil(overlap / c_max_overlap) : 1;
}

struct point_painter::impl
{
    surface const &target;
    Tvx_color color{};
    std::optional<mask_key> plain; ///< a style without layers, which is fitted to the grid
    Tvx_pnt_d2 shift;              ///< of that style
    std::vector<item> items;       ///< as drawn while it is not turned; may come late
    std::vector<item> turned;      ///< those of a plain style as exact as numbers are; come late
    std::shared_ptr<point_mask const> mask;
    QImage stamp;
    QPoint stamp_at;            ///< of the stamp's corner, from the anchor
    Tvx_box_d2 box{0, 0, 0, 0}; ///< of what is drawn round the anchor, not turned
    double reach = 0;

    explicit impl(surface const &s) : target(s) {}

    void prepare_plain(bpnt_style const &style, use_of_painter use)
    {
        plain = mask_key{style.use_figure, style.figure, style.symbol, style.size, style.font};
        color = style.color;
        if (target.masks)
            mask = target.masks->find(*plain);
        if (mask) {
            shift = mask->shift;
            take_room(QRectF(mask->left, mask->top, mask->width, mask->height));
            return;
        }
        make_items();
        QRectF const room = bounds(items);
        take_room(room);
        if (use == use_of_painter::few || target.is_vector)
            return;
        if (!target.pixels) {
            stamp = picture(items, room, QImage::Format_ARGB32_Premultiplied, stamp_at);
            return;
        }
        mask = make_mask(room);
        if (mask && target.masks)
            target.masks->add(*plain, mask);
    }

    void take_room(QRectF const &room)
    {
        box = to_box(room);
        reach = std::hypot(std::max(-box.min_x, box.max_x), std::max(-box.min_y, box.max_y));
    }

    [[nodiscard]] Tvx_box_d2 turned_box(double angle) const
    {
        if (angle == 0)
            return box;
        QRectF const upright(QPointF(box.min_x, box.min_y), QPointF(box.max_x, box.max_y));
        return to_box(QTransform().rotate(-angle).mapRect(upright));
    }

    void make_items()
    {
        if (!items.empty() || !plain)
            return;
        if (plain->use_figure)
            items.push_back(plain_figure(target, get_figure(plain->figure), plain->size, color, shift));
        else
            items.push_back(text_item(target, symbol_text(plain->symbol), plain->font, plain->size, color));
        items.back().prepare();
    }

    /// What a turned symbol is drawn with.
    [[nodiscard]] std::vector<item> const &turned_items()
    {
        if (!plain || !plain->use_figure) {
            make_items();
            return items;
        }
        if (turned.empty()) {
            turned.push_back(layer_figure(target, get_figure(plain->figure), plain->size, plain->size, color,
                                          c_figure_line_mm));
            turned.back().prepare();
        }
        return turned;
    }

    [[nodiscard]] std::shared_ptr<point_mask const> make_mask(QRectF const &room)
    {
        std::vector<item> ink = items;
        for (item &it : ink)
            it.color = Qt::black; // coverage only
        QPoint corner;
        QImage const image = picture(ink, room, QImage::Format_ARGB32_Premultiplied, corner);
        if (image.isNull())
            return nullptr;
        auto made = std::make_shared<point_mask>();
        made->left = corner.x();
        made->top = corner.y();
        made->width = image.width();
        made->height = image.height();
        made->shift = shift;
        made->make_room();
        for (int y = 0; y < image.height(); ++y) {
            auto const *row = reinterpret_cast<QRgb const *>(image.constScanLine(y));
            for (int x = 0; x < image.width(); ++x)
                made->coverage[static_cast<std::size_t>(y * made->stride + x)] =
                    static_cast<std::uint8_t>(qAlpha(row[x]));
        }
        return made;
    }

    void prepare_layers(cpx_style const &style, use_of_painter use)
    {
        items = layer_items(target, style);
        QRectF const room = bounds(items);
        take_room(room);
        if (use == use_of_painter::many && !target.is_vector)
            stamp = picture(items, room, QImage::Format_ARGB32_Premultiplied, stamp_at);
    }

    void fill(std::vector<item> const &areas, QTransform const &t) const
    {
        QPainter &p = *vx_qt_painter(target.painter);
        Tvx_box_d2 const clip = grown(target.clip, 2);
        for (item const &it : areas)
            it.fill(p, t, clip, target.is_vector);
    }

    /// At its exact place.
    void draw_turned(Tvx_pnt_d2 at, double angle)
    {
        fill(turned_items(), QTransform::fromTranslate(at.x, at.y).rotate(-angle));
    }

    void draw_upright(QPoint at)
    {
        if (!stamp.isNull()) {
            vx_qt_painter(target.painter)->drawImage(at + stamp_at, stamp);
            return;
        }
        make_items();
        fill(items, QTransform::fromTranslate(at.x(), at.y()));
    }
};

point_painter::point_painter(surface const &target, bpnt_style const &style, use_of_painter use)
    : f_impl(std::make_unique<impl>(target))
{
    if (!style.use_complex)
        f_impl->prepare_plain(style, use);
    else if (cpx_style const *cpx = style.complex.find())
        f_impl->prepare_layers(*cpx, use);
}

point_painter::point_painter(surface const &target, cpx_style const &style, use_of_painter use)
    : f_impl(std::make_unique<impl>(target))
{
    f_impl->prepare_layers(style, use);
}

point_painter::point_painter(point_painter &&) noexcept = default;
point_painter::~point_painter() = default;

double point_painter::reach() const
{
    return f_impl->reach;
}

Tvx_box_d2 point_painter::box(double angle) const
{
    return f_impl->turned_box(angle);
}

point_mask const *point_painter::mask() const
{
    return f_impl->mask.get();
}

Tvx_color point_painter::color() const
{
    return f_impl->color;
}

void point_painter::draw(Tvx_pnt_d2 at, double angle)
{
    impl &d = *f_impl;
    Tvx_box_d2 const &clip = d.target.clip;
    double const by = d.reach;
    if (!(at.x >= clip.min_x - by && at.x <= clip.max_x + by && at.y >= clip.min_y - by &&
          at.y <= clip.max_y + by))
        return;
    if (!d.mask || angle != 0) {
        Tvx_box_d2 shown = d.turned_box(angle);
        shown = {shown.min_x + at.x - 1, shown.min_y + at.y - 1, shown.max_x + at.x + 1,
                 shown.max_y + at.y + 1};
        if (!shown.intersects(clip))
            return;
        double const width = std::min(shown.max_x, clip.max_x) - std::max(shown.min_x, clip.min_x);
        double const height = std::min(shown.max_y, clip.max_y) - std::max(shown.min_y, clip.min_y);
        if (!go_on(d.target, cost::c_path + width * height * cost::c_pixel))
            return;
    }
    if (angle != 0 || d.target.is_vector)
        d.draw_turned(at, angle);
    else if (d.mask)
        d.mask->blend(d.target, d.mask->pixel_of(at), d.color);
    else
        d.draw_upright(QPoint(static_cast<int>(std::floor(at.x - d.shift.x + 0.5)),
                              static_cast<int>(std::floor(at.y - d.shift.y + 0.5))));
}
} // namespace vx::render
