#pragma once

#include "platform/base/color.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/render/dc_priv.h"

#include <cmath>
#include <cstdint>
#include <memory>
#include <vector>

/// Symbols of one colour, kept as how much of each pixel they cover: whatever the colour, one mask serves.
namespace vx::render {
struct pixel_place
{
    int x = 0;
    int y = 0;
};

struct point_mask
{
    int left = 0; ///< of the mask's corner from the anchor
    int top = 0;
    int width = 0;
    int height = 0;
    Tvx_pnt_d2 shift; ///< where in its pixel the anchor lies, 0 or 0.5
    /// By rows, each of which begins `stride` behind the one before; zero behind the width.
    std::vector<std::uint8_t> coverage;
    int stride = 0;

    /// Makes room for the size.
    void make_room()
    {
        constexpr int c_at_once = 4; // pixels that are mixed together
        stride = (width + c_at_once - 1) / c_at_once * c_at_once;
        coverage.assign(static_cast<std::size_t>(stride) * static_cast<std::size_t>(height), 0);
    }

    /// The pixel that stands for a place, as near to it as the grid of pixels allows. Halves go to the right
    /// and down, as everywhere where points are put on the grid.
    [[nodiscard]] pixel_place pixel_of(Tvx_pnt_d2 at) const
    {
        return {static_cast<int>(std::floor(at.x - shift.x + 0.5)),
                static_cast<int>(std::floor(at.y - shift.y + 0.5))};
    }
    /// Lays the colour through the mask, with the anchor on that pixel.
    void blend(surface const &target, pixel_place at, Tvx_color color) const;
    /// Has the pixels that `blend` will change brought near: symbols come in no order, and waiting for each
    /// takes longer than mixing.
    void fetch(surface const &target, pixel_place at) const;

private:
    /// Of a symbol that lies in part beside the surface.
    void blend_part(surface const &target, pixel_place at, std::uint32_t ink) const;
};

/// What tells the masks of plain point styles apart.
struct mask_key
{
    bool use_figure = true;
    int figure = 0;
    unsigned symbol = 0;
    double size = 0;
    vx_fnt_type font;
    bool operator==(mask_key const &) const = default;
};

/// A few masks, for the styles of a scale, which mostly differ by colour alone.
class mask_cache
{
public:
    [[nodiscard]] std::shared_ptr<point_mask const> find(mask_key const &key) const;
    void add(mask_key key, std::shared_ptr<point_mask const> mask);

private:
    struct entry
    {
        mask_key key;
        std::shared_ptr<point_mask const> mask;
    };
    std::vector<entry> f_entries;
    std::size_t f_next = 0;
};
} // namespace vx::render
