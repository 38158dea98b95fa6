#include "platform/render/vx_bmp_dc.h"

#include "platform/basic/vx_options.h"
#include "platform/render/dc_priv.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/graphics/canvas.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <algorithm>
#include <utility>

namespace vx::render {
namespace {
/// Pictures up to this many bytes are kept for the next device.
constexpr qsizetype c_max_spare_bytes = 256 * 1024;

QColor qt_color(Tvx_color c)
{
    return QColor(c.r, c.g, c.b, c.a);
}

/// The picture of the last small device: the next one is mostly of the same size, and a picture that was
/// painted on has all that painting needs.
QImage &spare_picture()
{
    thread_local QImage spare;
    return spare;
}

QImage make_picture(QSize const &size)
{
    QImage image = std::exchange(spare_picture(), QImage());
    if (image.size() == size && image.isDetached())
        return image;
    return QImage(size, QImage::Format_ARGB32_Premultiplied);
}
} // namespace

struct bmp_dc::state
{
    QImage image;
    QPainter painter;
    QPainter *foreign = nullptr;
    QSize foreign_size;
    double picture_scale = 0;
    Tvx_color transparent{};
    bool lent = false;
    bool touched = false;
    bool mapped = false;
    int pixel_scale = 1;
    Tvx_box_d2 mm;
    Tvx_box_i2 px;

    void end_painting()
    {
        if (painter.isActive())
            painter.end();
    }
    void fill(Tvx_color color)
    {
        end_painting();
        image.fill(qt_color(color));
    }
    void let_go()
    {
        end_painting();
        foreign = nullptr;
        if (!lent && !image.isNull() && image.sizeInBytes() <= c_max_spare_bytes)
            spare_picture() = std::move(image);
        image = QImage();
    }
};

bmp_dc::bmp_dc() : f_state(std::make_unique<state>())
{
}

bmp_dc::~bmp_dc()
{
    f_state->let_go();
}

void bmp_dc::set_size(int width, int height)
{
    state &s = *f_state;
    s.let_go();
    s.lent = false;
    s.touched = false;
    if (width > 0 && height > 0)
        s.image = make_picture(QSize(width, height));
    if (!s.image.isNull())
        s.fill(s.transparent);
}

void bmp_dc::lend(unsigned char *pixels, int width, int height, int bytes_per_line)
{
    state &s = *f_state;
    s.let_go();
    s.lent = true;
    s.touched = true;
    bool const usable = pixels && width > 0 && height > 0 && bytes_per_line / 4 >= width;
    s.image = usable ? QImage(pixels, width, height, bytes_per_line, QImage::Format_ARGB32_Premultiplied)
                     : QImage();
}

void bmp_dc::lend_painter(vx_native_painter *painter, int width, int height, double picture_scale)
{
    state &s = *f_state;
    s.let_go();
    s.lent = false;
    s.touched = true;
    s.foreign = width > 0 && height > 0 ? vx_qt_painter(painter) : nullptr;
    s.foreign_size = QSize(width, height);
    s.picture_scale = picture_scale;
}

void bmp_dc::set_transparent(Tvx_color color)
{
    state &s = *f_state;
    s.transparent = color;
    if (!s.image.isNull() && !s.touched)
        s.fill(color);
}

void bmp_dc::clear(Tvx_color color)
{
    f_state->touched = true;
    if (!f_state->image.isNull())
        f_state->fill(color);
    else if (f_state->foreign)
        f_state->foreign->fillRect(QRect(QPoint(), f_state->foreign_size), qt_color(color));
}

int bmp_dc::width() const
{
    return f_state->foreign ? f_state->foreign_size.width() : f_state->image.width();
}

int bmp_dc::height() const
{
    return f_state->foreign ? f_state->foreign_size.height() : f_state->image.height();
}

Tvx_color bmp_dc::pixel(int x, int y) const
{
    if (!f_state->image.valid(x, y))
        return {};
    QColor const c = f_state->image.pixelColor(x, y);
    return vx_clr_init_rgba(c.red(), c.green(), c.blue(), c.alpha());
}

vx_native_painter *bmp_dc::painter()
{
    state &s = *f_state;
    if (s.foreign)
        return vx_native(s.foreign);
    if (s.image.isNull())
        return nullptr;
    s.touched = true;
    if (!s.painter.isActive()) {
        s.painter.begin(&s.image);
        s.painter.setRenderHint(QPainter::Antialiasing);
    }
    return vx_native(&s.painter);
}

void bmp_dc::copy_to(vx_native_painter *target, int x, int y, int width, int height)
{
    state &s = *f_state;
    if (!target || s.image.isNull())
        return;
    s.end_painting();
    QPainter *p = vx_qt_painter(target);
    double const opacity = p->opacity();
    p->setOpacity(1);
    p->drawImage(x, y, s.image, 0, 0, width, height);
    p->setOpacity(opacity);
}

void bmp_dc::stretch_to(vx_native_painter *target, int x, int y, int width, int height)
{
    state &s = *f_state;
    if (!target || s.image.isNull())
        return;
    s.end_painting();
    QPainter *p = vx_qt_painter(target);
    bool const smooth = p->testRenderHint(QPainter::SmoothPixmapTransform);
    p->setRenderHint(QPainter::SmoothPixmapTransform);
    p->drawImage(QRect(x, y, width, height), s.image);
    p->setRenderHint(QPainter::SmoothPixmapTransform, smooth);
}

void bmp_dc::set_pixel_scale(int scale)
{
    f_state->pixel_scale = std::max(1, scale);
}

int bmp_dc::pixel_scale() const
{
    return f_state->pixel_scale;
}

surface bmp_dc::get_surface()
{
    surface s;
    s.painter = painter();
    if (f_state->foreign) {
        s.is_vector = f_state->picture_scale > 0;
        s.picture_scale = s.is_vector ? f_state->picture_scale : 1;
    } else if (s.painter) {
        // Not `bits()`, which would copy an image that is being painted on.
        s.pixels = const_cast<unsigned char *>(f_state->image.constBits());
        s.bytes_per_line = static_cast<int>(f_state->image.bytesPerLine());
    }
    s.width = width();
    s.height = height();
    s.px_per_mm_x = px_per_mm_x();
    s.px_per_mm_y = px_per_mm_y();
    s.clip.add(0, 0);
    s.clip.add(width(), height());
    return s;
}

void bmp_dc::set_mapping(Tvx_box_d2 const &mm, Tvx_box_i2 const &pixels)
{
    if (!(mm.width() > 0 && mm.height() > 0 && pixels.width() > 0 && pixels.height() > 0))
        return;
    f_state->mapped = true;
    f_state->mm = mm;
    f_state->px = pixels;
}

double bmp_dc::px_per_mm_x() const
{
    state const &s = *f_state;
    return s.mapped ? s.px.width() / s.mm.width() : vx_options_get_mm2px_x() * s.pixel_scale;
}

double bmp_dc::px_per_mm_y() const
{
    state const &s = *f_state;
    return s.mapped ? s.px.height() / s.mm.height() : vx_options_get_mm2px_y() * s.pixel_scale;
}

Tvx_pnt_d2 bmp_dc::to_px(double x, double y) const
{
    state const &s = *f_state;
    if (!s.mapped)
        return {x, y};
    return {s.px.min_x + (x - s.mm.min_x) * px_per_mm_x(), s.px.min_y + (y - s.mm.min_y) * px_per_mm_y()};
}

Tvx_box_d2 bmp_dc::to_px(Tvx_box_d2 const &box) const
{
    Tvx_pnt_d2 const a = to_px(box.min_x, box.min_y);
    Tvx_pnt_d2 const b = to_px(box.max_x, box.max_y);
    Tvx_box_d2 px;
    px.add(a.x, a.y);
    px.add(b.x, b.y);
    return px;
}
} // namespace vx::render

using vx::render::bmp_dc;

namespace {
bmp_dc *dc_of(void *dc)
{
    return static_cast<bmp_dc *>(dc);
}
bmp_dc const *dc_of(void const *dc)
{
    return static_cast<bmp_dc const *>(dc);
}
} // namespace

void *vx_bmp_dc_create()
{
    return new bmp_dc;
}

void vx_bmp_dc_destroy(void *dc)
{
    delete dc_of(dc);
}

void vx_bmp_dc_set_nxy(void *dc, int width, int height)
{
    if (dc)
        dc_of(dc)->set_size(width, height);
}

void vx_bmp_dc_set_pixels(void *dc, unsigned char *pixels, int width, int height, int bytes_per_line)
{
    if (dc)
        dc_of(dc)->lend(pixels, width, height, bytes_per_line);
}

int vx_bmp_dc_get_width(void const *dc)
{
    return dc ? dc_of(dc)->width() : 0;
}

int vx_bmp_dc_get_height(void const *dc)
{
    return dc ? dc_of(dc)->height() : 0;
}

Tvx_color vx_bmp_dc_get_pixel(void const *dc, int x, int y)
{
    return dc ? dc_of(dc)->pixel(x, y) : Tvx_color{};
}

void vx_bmp_dc_set_transparent_clr(void *dc, Tvx_color color)
{
    if (dc)
        dc_of(dc)->set_transparent(color);
}

void vx_bmp_dc_clear(void *dc, Tvx_color color)
{
    if (dc)
        dc_of(dc)->clear(color);
}

void vx_bmp_dc_set_mm2pxl(void *dc, Tvx_box_d2 const &mm, Tvx_box_i2 const &pixels)
{
    if (dc)
        dc_of(dc)->set_mapping(mm, pixels);
}

void vx_bmp_dc_set_pixel_scale(void *dc, int scale)
{
    if (dc)
        dc_of(dc)->set_pixel_scale(scale);
}

double vx_bmp_dc_get_px_per_mm_x(void const *dc)
{
    return dc ? dc_of(dc)->px_per_mm_x() : 0;
}

double vx_bmp_dc_get_px_per_mm_y(void const *dc)
{
    return dc ? dc_of(dc)->px_per_mm_y() : 0;
}

void vx_bmp_dc_draw_on_hdc(void *dc, TCanvas *canvas, int x, int y, int width, int height)
{
    if (dc && canvas)
        dc_of(dc)->copy_to(canvas->NativePainter(), x, y, width, height);
}

void vx_bmp_dc_stretch_on_hdc(void *dc, TCanvas *canvas, int x, int y, int width, int height)
{
    if (dc && canvas && width > 0 && height > 0)
        dc_of(dc)->stretch_to(canvas->NativePainter(), x, y, width, height);
}
