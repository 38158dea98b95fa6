#include "style_manager/scales/detail/style_samples.h"

#include "controls/prop/image_convert.h"

#include "platform/base/owned.h"
#include "platform/styles/vx_stl_prm.h"
#include "platform/toolkit/core/pixel_ratio.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <algorithm>

namespace {
/// Enough for two thousand entries with both styles, each on the ground of a row at rest or of the active
/// one.
constexpr std::size_t c_most_samples = 8192;
} // namespace

struct Tvx_style_samples::sample
{
    TBitmap bitmap;
    TSize size;
    int scale;
    vx::owned<void, &vx_stl_prm_destroy> shown; ///< a copy of the style parameters
};

Tvx_style_samples::Tvx_style_samples() = default;
Tvx_style_samples::~Tvx_style_samples() = default;

std::size_t Tvx_style_samples::key_hash::operator()(key const &k) const
{
    return std::hash<void *>()(k.stl_prm) ^ (static_cast<std::size_t>(k.back) << 1) ^ (k.sel ? 1 : 0);
}

TBitmap *Tvx_style_samples::get(TObject *sender, Tvx_draw_style_event const &draw, void *stl_prm, bool sel,
                                TSize size, int scale, TColor back)
{
    key const wanted{stl_prm, sel, back};
    auto const found = f_places.find(wanted);
    if (found != f_places.end()) {
        f_samples.splice(f_samples.begin(), f_samples, found->second);
        auto &kept = *f_samples.front().second;
        if (kept.size == size && kept.scale == scale && vx_stl_prm_equal(kept.shown.get(), stl_prm))
            return &kept.bitmap;
    } else {
        if (f_samples.size() == c_most_samples) {
            f_places.erase(f_samples.back().first);
            f_samples.pop_back();
        }
        f_samples.emplace_front(wanted, nullptr);
        f_places[wanted] = f_samples.begin();
    }
    auto fresh = std::make_unique<sample>();
    auto &bitmap = fresh->bitmap;
    bitmap.SetSize(std::max(size.cx, 1) * scale, std::max(size.cy, 1) * scale);
    bitmap.SetPixelFormat(pf24bit);
    bitmap.SetTransparentMode(tmFixed);
    bitmap.SetTransparentColor(back);
    vx_bmp_fill_color(&bitmap, back);
    vx_bitmap_set_pixel_scale(bitmap, scale);
    if (draw)
        draw(sender, &bitmap, stl_prm, sel);
    fresh->size = size;
    fresh->scale = scale;
    fresh->shown.reset(vx_stl_prm_clone(stl_prm));
    auto &place = f_samples.front().second;
    place = std::move(fresh);
    return &place->bitmap;
}

void Tvx_style_samples::clear()
{
    f_places.clear();
    f_samples.clear();
}
