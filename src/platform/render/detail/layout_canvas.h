#pragma once

#include "platform/base/closure.h"
#include "platform/render/dc_priv.h"
#include "platform/render/detail/work_meter.h"

#include <string>

struct Ivx_layer;
struct Ivx_scn_2d;

namespace vx::styles {
struct pgn_style;
}

namespace vx::render {
/// What the elements of a page are drawn on: a device, on all of which stands a box of the page. Lengths are
/// millimetres, places are counted from the upper left corner of the page.
class layout_canvas
{
public:
    layout_canvas(bmp_dc &dc, Tvx_box_d2 const &page_box, closure<bool()> cancelled);
    layout_canvas(layout_canvas const &) = delete;
    layout_canvas &operator=(layout_canvas const &) = delete;

    /// The device has a painter and the box an extent.
    [[nodiscard]] bool is_valid() const;
    [[nodiscard]] surface const &target() const { return f_target; }
    [[nodiscard]] Tvx_box_d2 to_px(Tvx_box_d2 const &mm) const;
    [[nodiscard]] Tvx_pnt_d2 to_px(Tvx_pnt_d2 mm) const;
    [[nodiscard]] double px_per_mm_x() const { return f_target.px_per_mm_x; }
    [[nodiscard]] double px_per_mm_y() const { return f_target.px_per_mm_y; }
    /// Whether something of it may show that reaches so far beyond the box.
    [[nodiscard]] bool shows(Tvx_box_d2 const &mm, double reach) const;

    /// Asks whether the drawing is to end; what was answered once stays.
    [[nodiscard]] bool is_cancelled();
    /// The same question, for others to ask.
    [[nodiscard]] closure<bool()> question();
    /// Notes that something could not be drawn.
    void fail() { f_is_whole = false; }
    [[nodiscard]] bool is_whole() const { return f_is_whole; }

    /// What a style draws in a box, and round it.
    void fill(styles::pgn_style const &style, Tvx_box_d2 const &mm);
    void outline(styles::pgn_style const &style, Tvx_box_d2 const &mm);
    /// Stands for what cannot be shown: a thin frame, crossed out or not, with a text in it.
    void draw_missing(Tvx_box_d2 const &mm, std::wstring const &text, bool is_crossed);

private:
    [[nodiscard]] bool ask();
    [[nodiscard]] Tvx_box_d2 snapped(Tvx_box_d2 const &px) const;

    closure<bool()> f_cancelled;
    bool f_is_cancelled = false;
    bool f_is_whole = true;
    work_meter f_meter;
    surface f_target;
    Tvx_box_d2 f_box;
};

/// As long as it lives, the canvas' painter draws in millimetres of the page, with smooth edges.
class in_millimetres
{
public:
    explicit in_millimetres(layout_canvas const &canvas);
    in_millimetres(in_millimetres const &) = delete;
    in_millimetres &operator=(in_millimetres const &) = delete;
    ~in_millimetres();

private:
    vx_native_painter *f_painter;
};

// ---- the elements. What cannot be shown is noted on the canvas.

void draw_layout_frame(layout_canvas &canvas, Ivx_layer *frame);
void draw_layout_text(layout_canvas &canvas, Ivx_layer *text);
void draw_layout_legend(layout_canvas &canvas, Ivx_scn_2d const *layout, Ivx_layer *legend);
void draw_layout_arrow(layout_canvas &canvas, Ivx_layer *arrow);
void draw_layout_bar(layout_canvas &canvas, Ivx_scn_2d const *layout, Ivx_layer *bar);
void draw_layout_scale_text(layout_canvas &canvas, Ivx_scn_2d const *layout, Ivx_layer *text);
void draw_layout_image(layout_canvas &canvas, Ivx_layer *image);
void draw_layout_table(layout_canvas &canvas, Ivx_layer *table);

/// The room that contents need, in millimetres.
[[nodiscard]] Tvx_pnt_d2 layout_text_size(Ivx_layer *text);
[[nodiscard]] Tvx_pnt_d2 layout_legend_size(Ivx_scn_2d const *layout, Ivx_layer *legend);
[[nodiscard]] Tvx_pnt_d2 layout_table_size(Ivx_layer *table);

/// Display name and file name of an element.
[[nodiscard]] std::wstring element_caption(Ivx_layer const *element);
[[nodiscard]] std::wstring element_file(Ivx_layer const *element);
/// What to say about an element whose file name leads nowhere: the caption with the name.
[[nodiscard]] std::wstring missing_text(int caption, std::wstring const &name);
/// The frame that an element belongs to; null, with a sign in its place, when there is none.
[[nodiscard]] Ivx_layer *frame_of(layout_canvas &canvas, Ivx_scn_2d const *layout, Ivx_layer *element);
} // namespace vx::render
