#include "platform/render/vx_labels.h"

#include "platform/basic/vx_options.h"
#include "platform/render/dc_priv.h"
#include "platform/render/detail/label_plan.h"
#include "platform/render/detail/label_source.h"
#include "platform/toolkit/bridge/qt_graphics.h"

#include <QtGui/QPainter>
#include <QtGui/QPolygonF>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

using namespace vx::render;

struct Ivx_labels
{
    label_fonts fonts;
    /// What the places were found for.
    std::vector<long long> revisions;
    label_scale scale;
    bool known = false;
    Tvx_box_d2 region; ///< in pixels of the map
    bool damaged = false;
    std::vector<placed_label> placed; ///< by rank
    std::vector<label_look> looks;
    std::vector<Tvx_box_d2> undecided;
    unsigned placings = 0;
    /// The labels that a view shows whole, found at the first question.
    mutable Tvx_pnt_d2 seen_origin;
    mutable int seen_width = -1;
    mutable int seen_height = -1;
    mutable std::vector<unsigned> seen;

    [[nodiscard]] std::vector<unsigned> const &seen_in(Tvx_map_view const &view) const;
};

namespace {
/// Places are looked for this far beyond the view at first, in steps of this many pixels.
constexpr double c_margin_px = 128;
constexpr double c_step_px = 256;
/// Beyond this many widths of the view all of the map is taken.
constexpr double c_most_views = 16;

Tvx_pnt_d2 shift(Tvx_map_view const &view, Tvx_pnt_d2 px)
{
    Tvx_pnt_d2 const origin = view.origin();
    return {px.x + origin.x, px.y + origin.y};
}

Tvx_box_d2 shift(Tvx_map_view const &view, Tvx_box_d2 const &px)
{
    Tvx_pnt_d2 const a = shift(view, Tvx_pnt_d2{px.min_x, px.min_y});
    Tvx_pnt_d2 const b = shift(view, Tvx_pnt_d2{px.max_x, px.max_y});
    return {a.x, a.y, b.x, b.y};
}

/// What the view shows, in pixels of the map.
Tvx_box_d2 seen_box(Tvx_map_view const &view)
{
    Tvx_pnt_d2 const origin = view.origin();
    return {-origin.x, -origin.y, view.width - origin.x, view.height - origin.y};
}

/// The same number for views of one scale, whose corners were rounded.
double rounded(double value)
{
    constexpr int c_bits = 36;
    int exponent = 0;
    double const part = std::frexp(value, &exponent);
    return std::ldexp(std::round(std::ldexp(part, c_bits)), exponent - c_bits);
}

label_scale scale_of(Tvx_map_view const &view, double denominator)
{
    label_scale scale;
    scale.px_per_unit_x = rounded(view.width / view.world.width());
    scale.px_per_unit_y = rounded(view.height / view.world.height());
    double const mm_x = view.mm2px_x > 0 ? view.mm2px_x : vx_options_get_mm2px_x();
    double const mm_y = view.mm2px_y > 0 ? view.mm2px_y : vx_options_get_mm2px_y();
    scale.px_per_mm = (mm_x + mm_y) / 2;
    scale.denominator = denominator > 0 ? rounded(denominator) : scale.growth();
    return scale;
}

/// The same for views that are moved a little.
Tvx_box_d2 region_of(Tvx_box_d2 const &seen, double margin)
{
    auto const down = [&](double at) { return std::floor((at - margin) / c_step_px) * c_step_px; };
    auto const up = [&](double at) { return std::ceil((at + margin) / c_step_px) * c_step_px; };
    return {down(seen.min_x), down(seen.min_y), up(seen.max_x), up(seen.max_y)};
}

bool holds_box(Tvx_box_d2 const &outer, Tvx_box_d2 const &inner)
{
    return inner.min_x >= outer.min_x && inner.max_x <= outer.max_x && inner.min_y >= outer.min_y &&
           inner.max_y <= outer.max_y;
}

bool is_decided(Ivx_labels const &labels, Tvx_box_d2 const &seen)
{
    return labels.known && holds_box(labels.region, seen) &&
           std::ranges::none_of(labels.undecided, [&](Tvx_box_d2 const &b) { return b.intersects(seen); });
}

void take(Ivx_labels &labels, label_plan &plan, Tvx_box_d2 const &region)
{
    labels.placed = plan.take_placed();
    labels.looks = plan.looks();
    labels.undecided = plan.undecided();
    labels.region = region;
    labels.damaged = plan.is_damaged();
    labels.known = true;
    labels.seen_width = -1;
}

/// Finds places for a region as large as it must be for every label in sight to be decided.
bool place(Ivx_labels &labels, label_plan &plan, Tvx_box_d2 const &seen, work_meter &meter)
{
    constexpr double c_endless = std::numeric_limits<double>::infinity();
    double const most = c_most_views * std::max(seen.width(), seen.height());
    for (double margin = plan.needs_whole_map() ? most : c_margin_px;; margin *= 4) {
        Tvx_box_d2 const region = margin < most ? region_of(seen, margin)
                                                : Tvx_box_d2{-c_endless, -c_endless, c_endless, c_endless};
        if (!plan.place(region, meter))
            return false;
        take(labels, plan, region);
        if (is_decided(labels, seen) || margin >= most)
            return true;
    }
}

void paint(placed_label const &label, label_look const &look, label_fonts &fonts, Tvx_map_view const &view,
           surface const &target)
{
    QPainter &painter = *vx_qt_painter(target.painter);
    if (look.back)
        for (label_quad const &quad : label.quads) {
            QPolygonF corners;
            for (int i = 0; i < 4; ++i) {
                Tvx_pnt_d2 const p = shift(view, quad.corner(i));
                corners << QPointF(p.x, p.y);
            }
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(look.back_clr.r, look.back_clr.g, look.back_clr.b, look.back_clr.a));
            painter.drawPolygon(corners);
        }
    label.ink->paint(target.painter, fonts, shift(view, label.at), look, target.is_vector);
}

placed_label const *seen_label(Ivx_labels const *labels, Tvx_map_view const &view, unsigned index)
{
    return index < vx_labels_get_count(labels, view) ? &labels->placed[labels->seen_in(view)[index]]
                                                     : nullptr;
}
} // namespace

std::vector<unsigned> const &Ivx_labels::seen_in(Tvx_map_view const &view) const
{
    Tvx_pnt_d2 const origin = view.origin();
    if (seen_width == view.width && seen_height == view.height && seen_origin == origin)
        return seen;
    seen_origin = origin;
    seen_width = view.width;
    seen_height = view.height;
    seen.clear();
    Tvx_box_d2 const window = seen_box(view);
    for (unsigned i = 0; i < placed.size(); ++i)
        if (holds_box(window, placed[i].box))
            seen.push_back(i);
    return seen;
}

Ivx_labels *vx_labels_create()
{
    return new Ivx_labels;
}

void vx_labels_destroy(Ivx_labels *labels)
{
    delete labels;
}

bool vx_labels_has_any(Ivx_layer *layer)
{
    return label_source::has_any(layer);
}

bool vx_labels_place(Ivx_labels *labels, Tvx_labelled_layer const *layers, unsigned count,
                     Tvx_map_view const &view, double scale, closure<bool()> cancelled)
{
    if (!labels || !view.is_valid() || !std::isfinite(scale))
        return false;
    label_scale const wanted = scale_of(view, scale);
    std::vector<long long> revisions;
    std::vector<Ivx_layer *> used;
    for (unsigned i = 0; layers && i < count; ++i) {
        revisions.push_back(layers[i].revision);
        used.push_back(layers[i].layer);
    }
    Tvx_box_d2 const seen = seen_box(view);
    if (labels->revisions == revisions && labels->scale == wanted && is_decided(*labels, seen))
        return !labels->damaged;
    labels->known = false;
    labels->placed.clear();
    labels->undecided.clear();
    labels->seen_width = -1;
    work_meter meter(cancelled);
    if (meter.stopped())
        return false;
    label_plan plan(labels->fonts, used, wanted);
    labels->revisions = std::move(revisions);
    labels->scale = wanted;
    ++labels->placings;
    if (!plan.has_labels()) {
        constexpr double c_endless = std::numeric_limits<double>::infinity();
        take(*labels, plan, {-c_endless, -c_endless, c_endless, c_endless});
        return true;
    }
    if (!place(*labels, plan, seen, meter)) {
        labels->known = false;
        labels->placed.clear();
        return false;
    }
    return !labels->damaged;
}

bool vx_labels_draw(Ivx_labels *labels, Tvx_map_view const &view, void *dc, closure<bool()> cancelled)
{
    constexpr double c_label_cost = 10'000;
    if (!labels || !labels->known || !dc || !view.is_valid())
        return false;
    surface const target = static_cast<bmp_dc *>(dc)->get_surface();
    if (!target.painter)
        return false;
    work_meter meter(cancelled);
    auto const &seen = labels->seen_in(view);
    for (auto i = seen.rbegin(); i != seen.rend(); ++i) {
        if (!meter.go_on(c_label_cost))
            return false;
        placed_label const &label = labels->placed[*i];
        paint(label, labels->looks[label.look], labels->fonts, view, target);
    }
    return !meter.stopped();
}

unsigned vx_labels_get_count(Ivx_labels const *labels, Tvx_map_view const &view)
{
    return labels && view.is_valid() ? static_cast<unsigned>(labels->seen_in(view).size()) : 0;
}

bool vx_labels_get(Ivx_labels const *labels, Tvx_map_view const &view, unsigned index, Tvx_label_view *label)
{
    placed_label const *const found = seen_label(labels, view, index);
    if (!found || !label)
        return false;
    *label = {found->layer,
              found->record,
              found->priority,
              found->may_overlap,
              static_cast<unsigned>(found->quads.size()),
              shift(view, found->box)};
    return true;
}

bool vx_labels_get_quad(Ivx_labels const *labels, Tvx_map_view const &view, unsigned index, unsigned quad,
                        Tvx_pnt_d2 corners[4])
{
    placed_label const *const found = seen_label(labels, view, index);
    if (!found || quad >= found->quads.size() || !corners)
        return false;
    for (int i = 0; i < 4; ++i)
        corners[i] = shift(view, found->quads[quad].corner(i));
    return true;
}

void vx_labels_get_text(Ivx_labels const *labels, Tvx_map_view const &view, unsigned index,
                        Ivx_string_adp *text)
{
    placed_label const *const found = seen_label(labels, view, index);
    vx_string_adp_feed(text, found ? found->text.c_str() : nullptr);
}

unsigned vx_labels_get_placings(Ivx_labels const *labels)
{
    return labels ? labels->placings : 0;
}
