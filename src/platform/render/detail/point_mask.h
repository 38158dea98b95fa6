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
struct point_mask
{
    int left = 0; ///< of the mask's corner from the anchor
    int top = 0;
    int width = 0;
    int height = 0;
    Tvx_pnt_d2 shift;                   ///< where in its pixel the anchor lies, 0 or 0.5
    std::vector<std::uint8_t> coverage; ///< by rows

    /// To be called once the coverage is complete.
    void find_spans();

    /// Lays the colour through the mask, with the anchor as near to `at` as the grid of pixels allows.
    void blend(surface const &target, Tvx_pnt_d2 at, Tvx_color color) const
    {
        // Halves go to the right and down, as everywhere where points are put on the grid.
        blend_pixels(target, static_cast<int>(std::floor(at.x - shift.x + 0.5)),
                     static_cast<int>(std::floor(at.y - shift.y + 0.5)), color);
    }

private:
    /// Of a row: what is covered at all, and within it pixels that are covered wholly, which an opaque colour
    /// need not be mixed into.
    struct span
    {
        int begin = 0;
        int full_begin = 0;
        int full_end = 0;
        int end = 0;
    };
    std::vector<span> f_spans;

    void blend_pixels(surface const &target, int x, int y, Tvx_color color) const;
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
