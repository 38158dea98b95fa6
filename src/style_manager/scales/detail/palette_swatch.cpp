#include "style_manager/scales/detail/palette_swatch.h"

#include "platform/dialogs/palette_strip.h"
#include "platform/toolkit/core/pixel_ratio.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

namespace {
constexpr int c_width = 56;
constexpr int c_height = 12;
} // namespace

void vx_palette_swatch(TBitmap &bitmap, int number, void const *palette, bool random)
{
    int const scale = vx_screen_pixel_scale();
    TBitmap picture;
    picture.SetSize(c_width * scale, c_height * scale);
    vx_bitmap_set_pixel_scale(picture, scale);
    vx_clr_palette_draw(picture.GetCanvas(), Rect(0, 0, c_width, c_height), number, palette, random);
    bitmap.Assign(&picture);
}
