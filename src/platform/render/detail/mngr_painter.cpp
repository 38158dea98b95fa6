#include "platform/render/detail/mngr_painter.h"

#include "platform/data/vx_shape_files.h"

#include <cmath>
#include <optional>

namespace vx::render {
namespace {
using namespace vx::styles;

/// Vertices nearer than this to the one before, along both axes, hardly show.
constexpr double c_near_px = 0.5;
/// They do where something goes by the vertices or the length of the line.
constexpr double c_near_exact_px = 0.3;
} // namespace

struct mngr_painter::prepared
{
    bool visible = false;
    std::optional<fill_painter> fill;
    std::optional<line_painter> line;
    std::optional<point_painter> point;
    std::optional<point_painter> end;
    std::optional<point_painter> beg;
    double near_px = c_near_px;
    /// Of lines: how many times all shapes are gone through. The marks of a line lie over the fills of
    /// others.
    unsigned levels = 1;

    void count_levels()
    {
        if (!line || line->level_count() < 2)
            return;
        levels = line->level_count() + (point || end || beg ? 1 : 0);
    }
};

/// A shape that has more to be drawn: its view, and what is known about it. There may be very many.
struct mngr_painter::waiting_shape
{
    unsigned const *part_starts;
    Tvx_pnt_d2 const *points;
    int part_count;
    Tvx_shape_kind kind;
    unsigned record;
    unsigned row;
};

mngr_painter::mngr_painter(surface const &target, Tvx_map_view const &view, stl_mngr const &mngr,
                           row_table &table, variant_of_style variant)
    : f_target(target), f_view(view), f_mngr(mngr), f_rows(mngr, table), f_variant(variant),
      f_prepared(f_rows.row_count()), f_symbols(f_prepared.size())
{
    f_target.masks = &f_masks;
}

mngr_painter::~mngr_painter() = default;

mngr_painter::prepared &mngr_painter::row_painter(unsigned row)
{
    auto &slot = f_prepared[row];
    if (slot)
        return *slot;
    slot = std::make_unique<prepared>();
    prepared &p = *slot;
    p.visible = f_rows.visible(row);
    if (!p.visible)
        return p;
    stl_prm const &prm = f_rows.style(row);
    if (auto const *pnt = prm.as<pnt_style>(f_variant)) {
        if (pnt->pnt_visible)
            p.point.emplace(f_target, pnt->bpnt);
    } else if (auto const *pln = prm.as<pln_style>(f_variant)) {
        if (pln->pln_visible)
            p.line.emplace(f_target, pln->bpln);
        if (pln->pnt_visible)
            p.point.emplace(f_target, pln->bpnt);
        if (pln->end_visible)
            p.end.emplace(f_target, pln->bend);
        if (pln->beg_visible)
            p.beg.emplace(f_target, pln->bbeg);
        p.count_levels();
    } else if (auto const *pgn = prm.as<pgn_style>(f_variant)) {
        if (pgn->pgn_visible)
            p.fill.emplace(f_target, pgn->bpgn);
        if (pgn->pln_visible)
            p.line.emplace(f_target, pgn->bpln);
        if (pgn->pnt_visible)
            p.point.emplace(f_target, pgn->bpnt);
    }
    if (p.point || (p.line && p.line->needs_lengths()))
        p.near_px = c_near_exact_px;
    if (p.point)
        f_symbols[row] = {p.point->mask(), p.point->color()};
    return p;
}

void mngr_painter::load_parts(Tvx_shape_view const &shape, double near_px)
{
    constexpr std::size_t c_between_looks = 4096;
    f_parts.resize(static_cast<std::size_t>(shape.part_count));
    // Looked at where they lie: most of many are left out, and not worth two divisions.
    double const near_x = near_px * f_view.world.width() / f_view.width;
    double const near_y = near_px * f_view.world.height() / f_view.height;
    for (int i = 0; i < shape.part_count; ++i) {
        px_line &part = f_parts[static_cast<std::size_t>(i)];
        part.clear();
        Tvx_pnt_d2 const *const begin = shape.points + shape.part_starts[i];
        Tvx_pnt_d2 const *const last = shape.points + shape.part_starts[i + 1] - 1;
        Tvx_pnt_d2 const *kept = begin;
        // Room for all, and one that closes a ring: what is not used costs nothing, and moving does.
        part.reserve(static_cast<std::size_t>(last - begin) + 2);
        for (Tvx_pnt_d2 const *v = begin; v <= last; ++v) {
            bool const is_near = std::abs(v->x - kept->x) <= near_x && std::abs(v->y - kept->y) <= near_y;
            if (is_near && v != begin && v != last)
                continue;
            if (part.size() % c_between_looks == c_between_looks - 1 &&
                !go_on(f_target, c_between_looks * cost::c_object))
                return;
            part.push_back({f_view.world_to_px_x(v->x), f_view.world_to_px_y(v->y)});
            kept = v;
        }
    }
}

void mngr_painter::draw(unsigned record, Tvx_shape_view const &shape)
{
    if (shape.part_count <= 0)
        return;
    double const ahead = cost::c_object * (1 + shape.part_starts[shape.part_count] - shape.part_starts[0]);
    if (!go_on(f_target, ahead))
        return;
    unsigned const row = f_rows.row_of(record);
    double const angle = f_rows.angle_of(record);
    if (shape.kind == c_shape_point && angle == 0 && f_symbols[row].mask) {
        draw_symbols(f_symbols[row], shape);
        return;
    }
    finish();
    prepared &with = row_painter(row);
    if (!with.visible)
        return;
    if (shape.kind == c_shape_point)
        return draw_points(with, shape, angle);
    if (draw_parts(with, shape, angle, 0) && with.levels > 1)
        f_waiting.push_back({shape.part_starts, shape.points, shape.part_count, shape.kind, record, row});
}

void mngr_painter::draw_upper_levels()
{
    for (unsigned level = 1; !f_waiting.empty(); ++level) {
        for (waiting_shape const &w : f_waiting)
            if (!draw_parts(*f_prepared[w.row], {w.kind, w.part_count, w.part_starts, w.points, {}},
                            f_rows.angle_of(w.record), level))
                return;
        std::erase_if(f_waiting,
                      [&](waiting_shape const &w) { return f_prepared[w.row]->levels <= level + 1; });
    }
}

bool mngr_painter::draw_parts(prepared &with, Tvx_shape_view const &shape, double angle, unsigned level)
{
    load_parts(shape, with.near_px);
    if (!go_on(f_target, cost::c_object * (1 + shape.part_starts[shape.part_count] - shape.part_starts[0])))
        return false;
    if (shape.kind == c_shape_polyline)
        draw_lines(with, angle, level);
    else if (shape.kind == c_shape_polygon)
        draw_areas(with, angle, level);
    return true;
}

void mngr_painter::draw_symbols(plain_symbol const &symbol, Tvx_shape_view const &shape)
{
    constexpr double c_far = 1e6; // off every picture, and safe to turn into an int
    constexpr unsigned c_between_looks = 4096;
    unsigned const end = shape.part_starts[shape.part_count];
    unsigned until_look = c_between_looks;
    for (unsigned k = shape.part_starts[0]; k < end; ++k) {
        double const x = f_view.world_to_px_x(shape.points[k].x);
        double const y = f_view.world_to_px_y(shape.points[k].y);
        if (std::abs(x) < c_far && std::abs(y) < c_far)
            add_coming({symbol.mask, symbol.color, symbol.mask->pixel_of({x, y})});
        if (--until_look > 0)
            continue;
        until_look = c_between_looks;
        if (!go_on(f_target, c_between_looks * cost::c_object))
            return;
    }
}

void mngr_painter::add_coming(coming_symbol const &symbol)
{
    if (f_coming_count == c_coming)
        draw_first_coming();
    symbol.mask->fetch(f_target, symbol.at);
    f_coming[(f_coming_begin + f_coming_count++) % c_coming] = symbol;
}

void mngr_painter::draw_first_coming()
{
    coming_symbol const &first = f_coming[f_coming_begin];
    first.mask->blend(f_target, first.at, first.color);
    f_coming_begin = (f_coming_begin + 1) % c_coming;
    --f_coming_count;
}

void mngr_painter::finish()
{
    while (f_coming_count > 0)
        draw_first_coming();
}

void mngr_painter::draw_points(prepared &with, Tvx_shape_view const &shape, double angle)
{
    if (!with.point)
        return;
    double const turn = f_mngr.rotate_flag ? angle : 0;
    unsigned const end = shape.part_starts[shape.part_count];
    for (unsigned k = shape.part_starts[0]; k < end && go_on(f_target, cost::c_object); ++k)
        with.point->draw({f_view.world_to_px_x(shape.points[k].x), f_view.world_to_px_y(shape.points[k].y)},
                         turn);
}

void mngr_painter::draw_lines(prepared &with, double angle, unsigned level)
{
    if (with.levels == 1) {
        if (with.line)
            for (px_line const &part : f_parts)
                with.line->draw(part);
        draw_marks(with, angle);
    } else if (level < with.line->level_count()) {
        for (px_line const &part : f_parts)
            with.line->draw_level(part, level);
    } else {
        draw_marks(with, angle);
    }
}

void mngr_painter::draw_marks(prepared &with, double angle)
{
    if (!with.point && !with.end && !with.beg)
        return;
    double const turn = f_mngr.rotate_flag ? angle : 0;
    for (px_line const &part : f_parts) {
        if (part.empty())
            continue;
        if (with.point)
            for (Tvx_pnt_d2 const &at : part) {
                if (!go_on(f_target, cost::c_object))
                    return;
                with.point->draw(at, turn);
            }
        if (with.end)
            with.end->draw(part.back(), turn);
        if (with.beg)
            with.beg->draw(part.front(), turn);
    }
}

void mngr_painter::draw_areas(prepared &with, double angle, unsigned level)
{
    // Rings may come without their first vertex at the end.
    for (px_line &ring : f_parts)
        if (ring.size() > 2 && ring.front() != ring.back())
            ring.push_back(ring.front());
    if (with.fill && with.line && with.fill->draw_with(*with.line, f_parts))
        return draw_marks(with, angle);
    if (with.fill)
        with.fill->draw(f_parts, f_mngr.rotate_hatch_flag ? angle : 0, f_mngr.rotate_spot_flag ? angle : 0);
    draw_lines(with, angle, level);
}
} // namespace vx::render
