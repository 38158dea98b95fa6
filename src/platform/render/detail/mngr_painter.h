#pragma once

#include "platform/render/detail/point_mask.h"
#include "platform/render/detail/scale_rows.h"
#include "platform/render/detail/style_painter.h"
#include "platform/render/vx_map_view.h"
#include "platform/styles/detail/mngr_model.h"

#include <array>
#include <memory>
#include <vector>

struct Tvx_shape_view;

namespace vx::render {
/// Draws shapes on a surface with one style manager.
class mngr_painter
{
public:
    mngr_painter(surface const &target, Tvx_map_view const &view, styles::stl_mngr const &mngr,
                 row_table &table, styles::variant_of_style variant);
    mngr_painter(mngr_painter const &) = delete;
    mngr_painter &operator=(mngr_painter const &) = delete;
    ~mngr_painter();

    /// See `row_source`: to be called until nothing is left to read.
    bool read_on(int milliseconds) { return f_rows.read_on(milliseconds); }
    /// Of lines in a style of several layers it draws the lowest one; the shape must live until
    /// `draw_upper_levels`.
    void draw(unsigned record, Tvx_shape_view const &shape);
    /// Draws what waits for its turn; `draw` may leave the last few symbols.
    void finish();
    /// After the last shape: the other layers, each over all shapes before the next one, so that no casing
    /// crosses the fill of another line.
    void draw_upper_levels();

private:
    struct prepared;
    struct waiting_shape;
    /// What a row of plain symbols needs, close together: a scale may have very many rows.
    struct plain_symbol
    {
        point_mask const *mask = nullptr;
        Tvx_color color;
    };
    /// A symbol whose pixels are on their way.
    struct coming_symbol
    {
        point_mask const *mask = nullptr;
        Tvx_color color;
        pixel_place at;
    };
    static constexpr unsigned c_coming = 8;

    [[nodiscard]] prepared &row_painter(unsigned row);
    void add_coming(coming_symbol const &symbol);
    void draw_first_coming();
    void draw_symbols(plain_symbol const &symbol, Tvx_shape_view const &shape);
    void draw_points(prepared &with, Tvx_shape_view const &shape, double angle);
    /// False when the drawing is to end.
    [[nodiscard]] bool draw_parts(prepared &with, Tvx_shape_view const &shape, double angle, unsigned level);
    void draw_lines(prepared &with, double angle, unsigned level);
    /// Points on the vertices and at the ends of lines.
    void draw_marks(prepared &with, double angle);
    void draw_areas(prepared &with, double angle, unsigned level);
    /// The parts in pixels, less vertices that are no farther from the one before.
    void load_parts(Tvx_shape_view const &shape, double near_px);

    surface f_target;
    mask_cache f_masks;
    Tvx_map_view f_view;
    styles::stl_mngr const &f_mngr;
    row_source f_rows;
    styles::variant_of_style f_variant;
    std::vector<std::unique_ptr<prepared>> f_prepared;
    std::vector<plain_symbol> f_symbols;
    std::vector<px_line> f_parts;
    std::array<coming_symbol, c_coming> f_coming; ///< a ring
    unsigned f_coming_begin = 0;
    unsigned f_coming_count = 0;
    std::vector<waiting_shape> f_waiting;
};
} // namespace vx::render
