#pragma once

#include "platform/render/dc_priv.h"
#include "platform/render/detail/geom_clip.h"
#include "platform/render/detail/work_meter.h"
#include "platform/styles/detail/style_model.h"

#include <memory>
#include <span>

/// Base styles made ready to draw many objects on one surface. Coordinates are pixels, y downwards. Style and
/// surface must outlive their painter.
namespace vx::render {
struct point_mask;

/// Styles of strangers may hold any number. Lengths end at the first bound, far outside of every picture, and
/// sizes of symbols are drawn as the nearest between a pixel and the second.
inline constexpr double c_max_length_px = 1e5;
inline constexpr double c_max_symbol_px = 20000;
/// Patterns are thinned where more than so many of their elements would lie one on the other: what is below
/// does not show, and the work is bound by the pixels that do.
inline constexpr double c_max_overlap = 64;
/// How far from where they show elements may have their place if nothing tells where they are drawn.
inline constexpr double c_max_reach_px = 1000;

/// Says how much work is coming; false when the drawing is to end.
[[nodiscard]] inline bool go_on(surface const &target, double nanoseconds)
{
    return !target.meter || target.meter->go_on(nanoseconds);
}
/// By how much steps have to grow so that no more than `c_max_overlap` elements lie one on the other, of
/// which `overlap` do.
[[nodiscard]] double thinning(double overlap);

/// How often a painter is going to draw: preparing a picture of a symbol pays for many.
enum class use_of_painter : unsigned char
{
    few,
    many
};

class point_painter
{
public:
    point_painter(surface const &target, styles::bpnt_style const &style,
                  use_of_painter use = use_of_painter::many);
    point_painter(surface const &target, styles::cpx_style const &style,
                  use_of_painter use = use_of_painter::many);
    point_painter(point_painter &&) noexcept;
    ~point_painter();

    /// `angle` in degrees, counter-clockwise. A symbol that is not turned is put on the grid of pixels.
    void draw(Tvx_pnt_d2 at, double angle = 0);
    /// How far from its anchor the symbol reaches, in pixels.
    [[nodiscard]] double reach() const;
    /// What it covers round its anchor when it is turned so.
    [[nodiscard]] Tvx_box_d2 box(double angle) const;
    /// The mask that stands for the whole symbol in its colour while it is not turned, or null.
    [[nodiscard]] point_mask const *mask() const;
    [[nodiscard]] Tvx_color color() const;

private:
    struct impl;
    std::unique_ptr<impl> f_impl;
};

class line_painter
{
public:
    line_painter(surface const &target, styles::bpln_style const &style);
    line_painter(surface const &target, styles::cpx_style const &style);
    line_painter(line_painter &&) noexcept;
    ~line_painter();

    /// A ring comes with its first vertex repeated at the end. What goes by the length begins `start` pixels
    /// along the line of which this is a piece.
    void draw(std::span<Tvx_pnt_d2 const> line, double start = 0);
    /// What the style draws one over the other: its layers, and before the stroke of a layer its casing.
    [[nodiscard]] unsigned level_count() const;
    /// One of them alone, 0 the lowest; all in turn are what `draw` gives.
    void draw_level(std::span<Tvx_pnt_d2 const> line, unsigned level);
    /// Where the style is one full stroke along the line itself: makes its pen the painter's, so that whoever
    /// fills a ring that lies in `box` draws the line with it. False when more is to be done.
    [[nodiscard]] bool lend_pen(Tvx_box_d2 const &box) const;
    [[nodiscard]] double reach() const;
    /// How wide what it draws is across the line, wherever that lies.
    [[nodiscard]] double thickness() const;
    /// What it draws goes by the length along the line.
    [[nodiscard]] bool needs_lengths() const;
    /// Calls of the painter for a pixel of the line's length.
    [[nodiscard]] double calls_per_px() const;

private:
    struct impl;
    std::unique_ptr<impl> f_impl;
};

class fill_painter
{
public:
    fill_painter(surface const &target, styles::bpgn_style const &style);
    fill_painter(fill_painter &&) noexcept;
    ~fill_painter();

    /// The area that lies in an odd number of rings; the angles turn hatches and spots.
    void draw(std::span<px_line const> rings, double hatch_angle = 0, double spot_angle = 0);
    /// The area and the line round it in one call of the painter, which gives the pixels of two. False, with
    /// nothing drawn, where that cannot be.
    [[nodiscard]] bool draw_with(line_painter const &outline, std::span<px_line const> rings);

private:
    struct impl;
    std::unique_ptr<impl> f_impl;
};
} // namespace vx::render
