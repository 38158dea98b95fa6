#include "platform/render/vx_bmp_dc.h"

#include "platform/basic/vx_options.h"
#include "platform/render/dc_priv.h"
#include "platform/toolkit/canvas.h"
#include "platform/toolkit/qt_bridge.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <new>

namespace vx::render {
namespace {
QColor qt_color(Tvx_color c)
{
    return QColor(c.r, c.g, c.b, c.a);
}
} // namespace

struct bmp_dc::state
{
    QImage image;
    QPainter painter;
    Tvx_color transparent{};
    bool lent = false;
    bool touched = false;
    bool mapped = false;
    Tvx_box_d2 mm;
    Tvx_box_i2 px;

    void fill(Tvx_color color)
    {
        if (painter.isActive())
            painter.end();
        image.fill(qt_color(color));
    }
};

bmp_dc::bmp_dc() : f_state(std::make_unique<state>())
{
}

bmp_dc::~bmp_dc()
{
    if (f_state->painter.isActive())
        f_state->painter.end();
}

void bmp_dc::set_size(int width, int height)
{
    state &s = *f_state;
    if (s.painter.isActive())
        s.painter.end();
    s.lent = false;
    s.touched = false;
    s.image = width > 0 && height > 0 ? QImage(width, height, QImage::Format_ARGB32_Premultiplied) : QImage();
    if (!s.image.isNull())
        s.fill(s.transparent);
}

void bmp_dc::lend(unsigned char *pixels, int width, int height, int bytes_per_line)
{
    state &s = *f_state;
    if (s.painter.isActive())
        s.painter.end();
    s.lent = true;
    s.touched = true;
    bool const usable = pixels && width > 0 && height > 0 && bytes_per_line / 4 >= width;
    s.image = usable ? QImage(pixels, width, height, bytes_per_line, QImage::Format_ARGB32_Premultiplied)
                     : QImage();
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
}

int bmp_dc::width() const
{
    return f_state->image.width();
}

int bmp_dc::height() const
{
    return f_state->image.height();
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
    if (s.painter.isActive())
        s.painter.end();
    QPainter *p = vx_qt_painter(target);
    p->save();
    p->setOpacity(1);
    p->drawImage(x, y, s.image, 0, 0, width, height);
    p->restore();
}

surface bmp_dc::get_surface()
{
    surface s;
    s.painter = painter();
    if (s.painter) {
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
    return s.mapped ? s.px.width() / s.mm.width() : vx_options_get_mm2px_x();
}

double bmp_dc::px_per_mm_y() const
{
    state const &s = *f_state;
    return s.mapped ? s.px.height() / s.mm.height() : vx_options_get_mm2px_y();
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
