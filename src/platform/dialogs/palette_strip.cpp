#include "platform/dialogs/palette_strip.h"

#include "platform/basic/vx_palette.h"
#include "platform/dialogs/detail/color_field.h"
#include "platform/toolkit/graphics/canvas.h"

#include <algorithm>
#include <vector>

namespace {
constexpr int c_tiles = 8;
} // namespace

void vx_clr_palette_draw(TCanvas *canvas, TRect const &rect, int number, void const *palette, bool random)
{
    bool const empty = palette && vx_clr_palette_get_size(palette) == 0;
    int const width = rect.Width();
    if (width > 0 && !empty) {
        auto const count = random ? std::min(c_tiles, width) : width;
        std::vector<Tvx_color> colors(static_cast<std::size_t>(count));
        if (palette)
            vx_clr_arrays_generate_palette_ex(palette, static_cast<unsigned>(count), colors.data(), random);
        else
            vx_clr_arrays_generate_ex(number, static_cast<unsigned>(count), colors.data(), random);
        for (int i = 0; i < count; ++i) {
            vx::dialogs::fill_checked(canvas,
                                      Rect(rect.Left + width * i / count, rect.Top,
                                           rect.Left + width * (i + 1) / count, rect.Bottom),
                                      colors[static_cast<std::size_t>(i)]);
        }
    }
    canvas->GetBrush()->SetColor(clBtnShadow);
    canvas->FrameRect(rect);
}
