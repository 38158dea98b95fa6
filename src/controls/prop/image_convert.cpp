#include "controls/prop/image_convert.h"

#include "controls/prop/color_convert.h"

#include "platform/toolkit/core/pixel_ratio.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/graphics/image_list.h"

#include <algorithm>
#include <map>
#include <utility>

namespace {
constexpr int c_pixel_bytes = 4;
constexpr int c_opaque = 255;

/// A copy in which each pixel is blue, green, red and opacity.
void take_pixels(TBitmap &target, TBitmap const &source)
{
    target.Assign(&source);
    target.SetPixelFormat(pf32bit);
}

/// Of a colour that is kept multiplied by its opacity.
std::uint8_t undo_opacity(std::uint8_t value, std::uint8_t opacity)
{
    return static_cast<std::uint8_t>(std::min((value * c_opaque + opacity / 2) / opacity, c_opaque));
}

std::uint8_t apply_opacity(std::uint8_t value, std::uint8_t opacity)
{
    return static_cast<std::uint8_t>((value * opacity + c_opaque / 2) / c_opaque);
}

Tvx_color to_color(std::uint8_t const *pixel, bool has_opacity)
{
    if (!has_opacity)
        return {pixel[2], pixel[1], pixel[0], c_opaque};
    std::uint8_t const opacity = pixel[3];
    if (opacity == 0)
        return {};
    return {undo_opacity(pixel[2], opacity), undo_opacity(pixel[1], opacity), undo_opacity(pixel[0], opacity),
            opacity};
}

/// The same few pictures stand on the buttons of every page, so they are made once.
TBitmap const &picture_of(int number, int scale)
{
    static auto &made = *new std::map<std::pair<int, int>, TBitmap>;
    auto const [place, fresh] = made.try_emplace({number, scale});
    TBitmap &picture = place->second;
    if (fresh) {
        dib_2_bmp(vx_res_get_dib(number, scale), &picture);
        if (!picture.GetEmpty())
            vx_bitmap_set_pixel_scale(picture, scale);
    }
    return picture;
}

/// In the screen's own pixels.
void draw_res(TCanvas *canvas, int number, TRect const &rect, bool enabled)
{
    int const scale = vx_screen_pixel_scale();
    TBitmap picture;
    dib_2_bmp(vx_res_get_dib(number, scale), &picture);
    if (picture.GetEmpty())
        return;
    int const width = picture.GetWidth();
    int const height = picture.GetHeight();
    TImageList list(nullptr, width, height);
    int const index = list.Add(&picture, nullptr);
    TBitmap shown;
    dib_2_bmp(nullptr, &shown);
    shown.SetSize(width, height);
    list.Draw(shown.GetCanvas(), 0, 0, index, enabled);
    canvas->StretchDraw(Bounds(rect.Left + (rect.Width() - width / scale) / 2,
                               rect.Top + (rect.Height() - height / scale) / 2, width / scale,
                               height / scale),
                        &shown);
}
} // namespace

void bmp_2_dib(TBitmap const *bitmap, Ivx_dib *dib)
{
    if (!bitmap || !dib)
        return;
    vx_dib_set_size(dib, bitmap->GetWidth(), bitmap->GetHeight());
    TBitmap pixels;
    take_pixels(pixels, *bitmap);
    bool const has_opacity = pixels.GetAlphaFormat() != afIgnored;
    for (int y = 0; y < vx_dib_get_height(dib); ++y) {
        auto const *const row = static_cast<std::uint8_t const *>(std::as_const(pixels).ScanLine(y));
        for (int x = 0; x < vx_dib_get_width(dib); ++x)
            vx_dib_set_pixel(dib, x, y, to_color(row + c_pixel_bytes * x, has_opacity));
    }
}

void dib_2_bmp(Ivx_dib const *dib, TBitmap *bitmap)
{
    if (!bitmap)
        return;
    bitmap->SetSize(0, 0);
    bitmap->SetPixelFormat(pf32bit);
    bitmap->SetAlphaFormat(afPremultiplied);
    bitmap->SetSize(vx_dib_get_width(dib), vx_dib_get_height(dib));
    for (int y = 0; y < bitmap->GetHeight(); ++y) {
        auto *const row = static_cast<std::uint8_t *>(bitmap->ScanLine(y));
        for (int x = 0; x < bitmap->GetWidth(); ++x) {
            Tvx_color const color = vx_dib_get_pixel(dib, x, y);
            std::uint8_t *const pixel = row + c_pixel_bytes * x;
            pixel[0] = apply_opacity(color.b, color.a);
            pixel[1] = apply_opacity(color.g, color.a);
            pixel[2] = apply_opacity(color.r, color.a);
            pixel[3] = color.a;
        }
    }
}

void bmp_2_dib_transparent(TBitmap const *bitmap, Ivx_dib *dib, TColor color)
{
    if (!bitmap || !dib)
        return;
    bmp_2_dib(bitmap, dib);
    Tvx_color const key = clr2rgb(color);
    for (int y = 0; y < vx_dib_get_height(dib); ++y)
        for (int x = 0; x < vx_dib_get_width(dib); ++x)
            if (vx_dib_get_pixel(dib, x, y) == key)
                vx_dib_set_pixel(dib, x, y, {});
}

void icon_2_dib_transparent(TGraphic *icon, Ivx_dib *dib, TColor color)
{
    if (!icon || !dib)
        return;
    if (icon->GetEmpty())
        return vx_dib_set_size(dib, 0, 0);
    TBitmap picture(icon->GetWidth(), icon->GetHeight());
    vx_bmp_fill_color(&picture, color);
    picture.GetCanvas()->Draw(0, 0, icon);
    bmp_2_dib_transparent(&picture, dib, color);
}

void vx_bmp_fill_color(TBitmap *bitmap, TColor color)
{
    if (!bitmap || bitmap->GetEmpty())
        return;
    TCanvas *const canvas = bitmap->GetCanvas();
    canvas->GetBrush()->SetStyle(bsSolid);
    canvas->GetBrush()->SetColor(color);
    canvas->FillRect(Rect(0, 0, bitmap->GetWidth(), bitmap->GetHeight()));
}

void vx_glyph_get_res(TBitmap *glyph, int number)
{
    if (!glyph)
        return;
    glyph->Assign(&picture_of(number, vx_screen_pixel_scale()));
}

void canvas_draw_rsrc(TCanvas *canvas, int number, TRect const &rect, bool enabled)
{
    if (canvas)
        draw_res(canvas, number, rect, enabled);
}

void canvas_draw_rsrc_opaque(TCanvas *canvas, int number, TRect const &rect, bool enabled)
{
    if (!canvas)
        return;
    canvas->FillRect(rect);
    draw_res(canvas, number, rect, enabled);
}

int vx_image_list_get_res(TCustomImageList *list, int number)
{
    if (!list)
        return -1;
    TBitmap const &picture = picture_of(number, 1);
    return picture.GetEmpty() ? -1 : list->Add(&picture, nullptr);
}
