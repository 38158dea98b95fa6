#include "styles/preview/style_example.h"

#include "styles/preview/style3d_params.h"
#include "styles/preview/txt_style_draw.h"

#include "platform/base/owned.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_box.h"
#include "platform/render/vx_drwc.h"
#include "platform/render/vx_render.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vx_style3d.h"
#include "platform/toolkit/core/pixel_ratio.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>
#include <span>

namespace {
/// Side of the square in which the geometry of samples is given.
constexpr double c_side = 100;

constexpr Tvx_vtx_d2 c_middle[] = {{50, 50}};
constexpr Tvx_vtx_d2 c_zigzag[] = {{20, c_side / 3}, {40, 200.0 / 3}, {60, c_side / 3}, {80, 200.0 / 3}};
constexpr Tvx_vtx_d2 c_inner_vertices[] = {c_zigzag[1], c_zigzag[2]};
constexpr Tvx_vtx_d2 c_frame[] = {{0, 0}, {0, c_side}, {c_side, c_side}, {c_side, 0}, {0, 0}};

/// The pattern under translucent fills, half white, half grey.
constexpr Tvx_fill c_check_under_fill = {vx_clr_init_rgba(204, 204, 204, 127),
                                         vx_clr_init_rgba(255, 255, 255, 127), 50, 0};
/// The opaque pattern under colours.
constexpr Tvx_fill c_check_under_color = {vx_clr_init_grey(204), vx_clr_init_int(0xFFFFFF), 50, 0};

constexpr wchar_t c_sample_text[] = L"T";

Tvx_color color_of(TColor color)
{
    return vx_clr_init_int(ColorToRGB(color));
}

/// A bitmap with opacity has no need for a colour that stands for nothing.
bool has_opacity(TBitmap const &bitmap)
{
    return bitmap.GetAlphaFormat() != afIgnored;
}

/// A device of the size of a picture.
class sample_device
{
public:
    sample_device(int width, int height, int scale, Tvx_color transparent)
        : f_width(width), f_height(height), f_scale(scale)
    {
        vx_bmp_dc_set_transparent_clr(get(), transparent);
        vx_bmp_dc_set_nxy(get(), width, height);
        vx_bmp_dc_set_pixel_scale(get(), scale);
    }
    explicit sample_device(TBitmap &bitmap)
        : sample_device(bitmap.GetWidth(), bitmap.GetHeight(), vx_bitmap_get_pixel_scale(bitmap),
                        has_opacity(bitmap) ? Tvx_color{} : color_of(bitmap.GetTransparentColor()))
    {
    }

    [[nodiscard]] void *get() const { return f_dc.get(); }
    [[nodiscard]] int width() const { return f_width; }
    [[nodiscard]] int height() const { return f_height; }
    [[nodiscard]] Tvx_box_d2 pixels() const { return vx_box_d2_make_xy(0, 0, f_width, f_height); }

    void show_on(TBitmap &bitmap) const
    {
        if (has_opacity(bitmap)) {
            // The sample takes the place of what was there, and does not mix with it.
            bitmap.SetSize(0, 0);
            bitmap.SetSize(f_width, f_height);
        }
        // Pixel on pixel: a canvas would draw in logical ones.
        vx_bitmap_set_pixel_scale(bitmap, 1);
        vx_bmp_dc_draw_on_hdc(get(), bitmap.GetCanvas(), 0, 0, f_width, f_height);
        bitmap.Dormant();
        vx_bitmap_set_pixel_scale(bitmap, f_scale);
    }

private:
    vx::owned<void, &vx_bmp_dc_destroy> f_dc{vx_bmp_dc_create()};
    int f_width;
    int f_height;
    int f_scale;
};

/// A device with a renderer that stretches the sample square over it, and sizes in true millimetres.
class geometry_sample
{
public:
    explicit geometry_sample(TBitmap &bitmap) : f_bitmap(bitmap), f_device(bitmap)
    {
        int const w = f_device.width();
        int const h = f_device.height();
        vx_box_d2_init_xy(&f_mm, 0, 0, w / vx_bmp_dc_get_px_per_mm_x(f_device.get()),
                          h / vx_bmp_dc_get_px_per_mm_y(f_device.get()));
        Tvx_box_i2 pixels;
        vx_box_i2_init_xy(&pixels, 0, 0, w, h);
        vx_bmp_dc_set_mm2pxl(f_device.get(), f_mm, pixels);
        vx_render_init(f_render.get(), vx_box_d2_make_xy(0, 0, c_side, c_side), f_device.get());
    }

    void draw_points(std::span<Tvx_vtx_d2 const> vertices, void *bpnt_style) const
    {
        vx_render_cr_bpnt(f_render.get(), geometry(vertices).get(), bpnt_style);
    }
    void draw_line(std::span<Tvx_vtx_d2 const> vertices, void *bpln_style) const
    {
        vx_render_cr_bpln(f_render.get(), geometry(vertices).get(), bpln_style);
    }
    void draw_area(std::span<Tvx_vtx_d2 const> vertices, void *bpgn_style) const
    {
        vx_drwc_fill_pgn_rect(f_device.get(), c_check_under_fill, f_mm);
        vx_render_cr_bpgn(f_render.get(), geometry(vertices).get(), bpgn_style);
    }
    void show() const { f_device.show_on(f_bitmap); }

private:
    using owned_geometry = vx::owned<Tvx_op2d, &vx_ov_d2_destroy>;

    /// A list of one part.
    [[nodiscard]] static owned_geometry geometry(std::span<Tvx_vtx_d2 const> vertices)
    {
        owned_geometry list(vx_ov_d2_create());
        vx_ov_d2_set_size(list.get(), 1);
        Tvx_pv_d2 *part = vx_ov_d2_get_pv_ptr(list.get(), 0);
        vx_pv_d2_set_size(part, vertices.size());
        for (std::size_t i = 0; i < vertices.size(); ++i)
            vx_pv_d2_set_vtx(part, i, &vertices[i]);
        return list;
    }

    TBitmap &f_bitmap;
    Tvx_box_d2 f_mm;
    sample_device f_device; // goes after the renderer
    vx::owned<void, &vx_render_destroy> f_render{vx_render_create()};
};

bool can_draw(void const *style, TBitmap const *bitmap)
{
    return style && bitmap && bitmap->GetWidth() > 0 && bitmap->GetHeight() > 0;
}

void draw_color(sample_device const &device, Tvx_color color)
{
    vx_drwc_fill_pgn_rect(device.get(), c_check_under_color, device.pixels());
    vx_drwc_draw_pgn_rect(device.get(), color, device.pixels());
}
} // namespace

void vx_style_example_bmp_set_size(TBitmap *bitmap, int width, int height, int scale)
{
    if (!bitmap)
        return;
    bitmap->SetSize(width * std::max(1, scale), height * std::max(1, scale));
    vx_bitmap_set_pixel_scale(*bitmap, scale);
}

void vx_pnt_style_example_bmp(void *style, TBitmap *bitmap)
{
    if (!can_draw(style, bitmap))
        return;
    geometry_sample const sample(*bitmap);
    if (vx_pnt_style_get_pnt_visible(style))
        sample.draw_points(c_middle, vx_pnt_style_get_bpnt_style_ptr(style));
    sample.show();
}

void vx_pln_style_example_bmp(void *style, TBitmap *bitmap)
{
    if (!can_draw(style, bitmap))
        return;
    geometry_sample const sample(*bitmap);
    if (vx_pln_style_get_pln_visible(style))
        sample.draw_line(c_zigzag, vx_pln_style_get_bpln_style_ptr(style));
    if (vx_pln_style_get_pnt_visible(style))
        sample.draw_points(c_inner_vertices, vx_pln_style_get_bpnt_style_ptr(style));
    sample.show();
}

void vx_pgn_style_example_bmp(void *style, TBitmap *bitmap)
{
    if (!can_draw(style, bitmap))
        return;
    geometry_sample const sample(*bitmap);
    if (vx_pgn_style_get_pgn_visible(style))
        sample.draw_area(c_frame, vx_pgn_style_get_bpgn_style_ptr(style));
    if (vx_pgn_style_get_pln_visible(style))
        sample.draw_line(c_zigzag, vx_pgn_style_get_bpln_style_ptr(style));
    if (vx_pgn_style_get_pnt_visible(style))
        sample.draw_points(c_inner_vertices, vx_pgn_style_get_bpnt_style_ptr(style));
    sample.show();
}

void vx_pnt3d_style_example_bmp(void *style, TBitmap *bitmap)
{
    if (!can_draw(style, bitmap))
        return;
    vx::owned<void, &vx_pnt_style_destroy> const flat(vx_pnt_style_create());
    vx_pnt_style_set_pnt_visible(flat.get(), vx_pnt3d_style_get_pnt_visible(style));
    vx_copy_bpnt_params(vx_pnt3d_style_get_bpnt3d_style_ptr(style),
                        vx_pnt_style_get_bpnt_style_ptr(flat.get()));
    vx_pnt_style_example_bmp(flat.get(), bitmap);
}

void vx_pln3d_style_example_bmp(void *style, TBitmap *bitmap)
{
    if (!can_draw(style, bitmap))
        return;
    vx::owned<void, &vx_pln_style_destroy> const flat(vx_pln_style_create());
    vx_pln_style_set_pln_visible(flat.get(), vx_pln3d_style_get_pln_visible(style));
    vx_pln_style_set_pnt_visible(flat.get(), vx_pln3d_style_get_pnt_visible(style));
    vx_copy_bpln_params(vx_pln3d_style_get_bpln3d_style_ptr(style),
                        vx_pln_style_get_bpln_style_ptr(flat.get()));
    vx_copy_bpnt_params(vx_pln3d_style_get_bpnt3d_style_ptr(style),
                        vx_pln_style_get_bpnt_style_ptr(flat.get()));
    vx_pln_style_example_bmp(flat.get(), bitmap);
}

void vx_pgn3d_style_example_bmp(void *style, TBitmap *bitmap)
{
    if (!can_draw(style, bitmap))
        return;
    vx::owned<void, &vx_pgn_style_destroy> const flat(vx_pgn_style_create());
    vx_pgn_style_set_pgn_visible(flat.get(), vx_pgn3d_style_get_pgn_visible(style));
    vx_pgn_style_set_pln_visible(flat.get(), vx_pgn3d_style_get_pln_visible(style));
    vx_pgn_style_set_pnt_visible(flat.get(), vx_pgn3d_style_get_pnt_visible(style));
    vx_copy_bpgn_params(vx_pgn3d_style_get_bpgn3d_style_ptr(style),
                        vx_pgn_style_get_bpgn_style_ptr(flat.get()));
    vx_copy_bpln_params(vx_pgn3d_style_get_bpln3d_style_ptr(style),
                        vx_pgn_style_get_bpln_style_ptr(flat.get()));
    vx_copy_bpnt_params(vx_pgn3d_style_get_bpnt3d_style_ptr(style),
                        vx_pgn_style_get_bpnt_style_ptr(flat.get()));
    vx_pgn_style_example_bmp(flat.get(), bitmap);
}

void vx_clr_style_example_bmp(Tvx_color const *color, TBitmap *bitmap)
{
    if (!can_draw(color, bitmap))
        return;
    sample_device const device(*bitmap);
    draw_color(device, *color);
    device.show_on(*bitmap);
}

void vx_clr_style_example_canvas(TCanvas *canvas, TRect const &rect, Tvx_color const &color)
{
    if (!canvas || rect.IsEmpty())
        return;
    int const scale = vx_canvas_pixel_scale(canvas);
    sample_device const device(rect.Width() * scale, rect.Height() * scale, scale, {});
    draw_color(device, color);
    vx_drwc_draw_pln_rect(device.get(), {vx_clr_init_int(0), 0, 1.0 * scale}, device.pixels());
    vx_bmp_dc_stretch_on_hdc(device.get(), canvas, rect.Left, rect.Top, rect.Width(), rect.Height());
}

void vx_txt_style_example_bmp(void *style, TBitmap *bitmap)
{
    if (!can_draw(style, bitmap))
        return;
    sample_device const device(*bitmap);
    int const cx = device.width() / 2;
    int const cy = device.height() / 2;
    vx_txt_style_draw(device.get(), style, c_sample_text, {static_cast<double>(cx), static_cast<double>(cy)});
    device.show_on(*bitmap);
}
