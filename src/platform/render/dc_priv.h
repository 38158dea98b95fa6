#pragma once

#include "platform/base/color.h"
#include "platform/render/vx_box.h"

#include <memory>

struct vx_native_painter;

namespace vx::render {
class mask_cache;
class work_meter;

/// What base styles are drawn on: a running painter, the size of a millimetre in pixels, and the pixels that
/// show.
struct surface
{
    vx_native_painter *painter = nullptr;
    /// The pixels under the painter, 32 bits each, premultiplied; null where it has none.
    unsigned char *pixels = nullptr;
    int bytes_per_line = 0;
    int width = 0;
    int height = 0;
    /// Symbols drawn before, for painters of many styles; may be null.
    mask_cache *masks = nullptr;
    /// Tells when to end before all is drawn; null draws all.
    work_meter *meter = nullptr;
    double px_per_mm_x = 1;
    double px_per_mm_y = 1;
    Tvx_box_d2 clip;
    /// Where patterns of areas have their origin, in pixels: a place of the map where one is drawn, else the
    /// upper left corner. It may lie far outside.
    Tvx_pnt_d2 origin{0, 0};
    /// What is drawn stays lines, areas and letters: nothing is drawn by way of a picture, and nothing is put
    /// on the grid of pixels. What has pixels only becomes a picture, `picture_scale` pixels for a unit.
    bool is_vector = false;
    double picture_scale = 1;

    [[nodiscard]] double px_per_mm() const { return (px_per_mm_x + px_per_mm_y) / 2; }
};

/// The object behind `vx_bmp_dc_create`.
class bmp_dc
{
public:
    bmp_dc();
    bmp_dc(bmp_dc const &) = delete;
    bmp_dc &operator=(bmp_dc const &) = delete;
    ~bmp_dc();

    void set_size(int width, int height);
    void lend(unsigned char *pixels, int width, int height, int bytes_per_line);
    /// Draws by somebody else's running painter from now on, on `width` by `height` of its units; it must
    /// outlive that. The device has no pixels then. A `picture_scale` above 0 makes it a device of vectors.
    void lend_painter(vx_native_painter *painter, int width, int height, double picture_scale);
    void set_transparent(Tvx_color color);
    void clear(Tvx_color color);
    [[nodiscard]] int width() const;
    [[nodiscard]] int height() const;
    [[nodiscard]] Tvx_color pixel(int x, int y) const;

    /// Running painter with antialiasing, in pixels; null without pixels.
    [[nodiscard]] vx_native_painter *painter();
    /// Draws the pixels on another painter.
    void copy_to(vx_native_painter *target, int x, int y, int width, int height);
    /// Draws all pixels on the rectangle of another painter.
    void stretch_to(vx_native_painter *target, int x, int y, int width, int height);
    void set_pixel_scale(int scale);
    [[nodiscard]] int pixel_scale() const;
    [[nodiscard]] surface get_surface();

    void set_mapping(Tvx_box_d2 const &mm, Tvx_box_i2 const &pixels);
    [[nodiscard]] double px_per_mm_x() const;
    [[nodiscard]] double px_per_mm_y() const;
    /// From drawing units to pixels.
    [[nodiscard]] Tvx_box_d2 to_px(Tvx_box_d2 const &box) const;
    [[nodiscard]] Tvx_pnt_d2 to_px(double x, double y) const;

private:
    struct state;
    std::unique_ptr<state> f_state;
};
} // namespace vx::render
