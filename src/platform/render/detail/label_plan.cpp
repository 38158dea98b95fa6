#include "platform/render/detail/label_plan.h"

#include "platform/data/vx_tld_data.h"
#include "platform/render/detail/label_source.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <numeric>
#include <optional>
#include <unordered_map>

namespace vx::render {
namespace {
/// Of reading columns, before who waits is asked.
constexpr int c_slice_ms = 10;
/// Labels that are larger are not written, so that no farther object has to be looked at. In pixels of a
/// label that is not yet measured: letters are hardly wider than high.
constexpr double c_reach_em = 66;
/// What lies farther from the map's origin is nowhere.
constexpr double c_farthest_px = 1e12;
/// Free space round labels.
constexpr double c_gap_px = 0.5;
/// Between a point and the text beside it, between a line and the text above it.
constexpr double c_point_gap_em = 0.25;
constexpr double c_line_gap_em = 0.1;
/// Text along a line turns no more than this from letter to letter, in degrees.
constexpr double c_sharpest_turn = 28;
/// A straight label's line goes so far from it, in ems.
constexpr double c_most_bow_em = 0.6;
/// Places along a line, in widths of the text from the middle.
constexpr double c_line_places[] = {0, 0.5, -0.5, 1, -1};

/// Whether text in this direction, in degrees, is read with the head turned too far. Upright lines read
/// upwards.
bool is_upside_down(double angle)
{
    constexpr double c_upright = 2;
    return angle > 90 + c_upright || angle <= -90 + c_upright;
}

std::uint64_t mix(std::uint64_t x)
{
    x += 0x9E3779B97F4A7C15;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EB;
    return x ^ (x >> 31);
}

/// An object, or a part of one, that may get a label.
struct candidate
{
    unsigned source = 0;
    unsigned record = 0;
    unsigned part = 0;
    int size_class = 0; ///< of two powers
    std::uint64_t chance = 0;
    label_rule const *rule = nullptr;
    Tvx_pnt_d2 anchor;        ///< of points, in pixels
    Tvx_shape_view shape;     ///< of others
    int chain = -1;           ///< number of the line that was joined of several
    bool whole_object = true; ///< all rings count
};

bool goes_before(candidate const &a, candidate const &b,
                 std::vector<std::unique_ptr<label_source>> const &sources)
{
    if (a.rule->priority != b.rule->priority)
        return a.rule->priority > b.rule->priority;
    if (a.rule->size != b.rule->size)
        return a.rule->size > b.rule->size;
    unsigned const layer_a = sources[a.source]->layer();
    unsigned const layer_b = sources[b.source]->layer();
    if (layer_a != layer_b)
        return layer_a < layer_b;
    if (a.size_class != b.size_class)
        return a.size_class > b.size_class;
    if (a.chance != b.chance)
        return a.chance < b.chance;
    return std::tie(a.source, a.record, a.part) < std::tie(b.source, b.record, b.part);
}

int size_class(double size)
{
    return size > 0 && std::isfinite(size) ? std::ilogb(size) : std::numeric_limits<int>::min();
}

Tvx_box_d2 grown(Tvx_box_d2 box, double by)
{
    return {box.min_x - by, box.min_y - by, box.max_x + by, box.max_y + by};
}

bool contains(Tvx_box_d2 const &outer, Tvx_box_d2 const &inner)
{
    return inner.min_x >= outer.min_x && inner.max_x <= outer.max_x && inner.min_y >= outer.min_y &&
           inner.max_y <= outer.max_y;
}

std::span<Tvx_pnt_d2 const> part_of(Tvx_shape_view const &shape, unsigned part)
{
    return {shape.points + shape.part_starts[part], shape.points + shape.part_starts[part + 1]};
}

/// A label while places are looked for: what it says and how large it is.
struct measured_text
{
    std::wstring text;
    std::vector<std::wstring_view> lines; ///< of `text`
    std::vector<double> widths;           ///< in pixels
    double width = 0;
    double height = 0;
    double line_height = 0;
    double ascent = 0;
    double descent = 0;
};

/// Labels of one text that keep away from each other.
struct same_text
{
    std::vector<Tvx_pnt_d2> placed;
    std::vector<Tvx_pnt_d2> undecided;
};

bool any_near(std::vector<Tvx_pnt_d2> const &places, Tvx_pnt_d2 at, double distance)
{
    return std::ranges::any_of(places,
                               [&](Tvx_pnt_d2 p) { return std::hypot(p.x - at.x, p.y - at.y) < distance; });
}
} // namespace

struct label_plan::state
{
    label_fonts &fonts;
    label_scale scale;
    std::vector<label_look> looks;
    std::vector<std::unique_ptr<label_source>> sources;
    bool damaged = false;
    Tvx_box_d2 region;
    std::vector<candidate> candidates;
    std::vector<std::vector<Tvx_pnt_d2>> chains; ///< in pixels
    quad_index taken;
    quad_index unsure;
    std::vector<Tvx_box_d2> undecided;
    std::vector<placed_label> placed;
    std::map<std::pair<unsigned, std::wstring>, same_text> same_texts;

    state(label_fonts &f, label_scale const &s) : fonts(f), scale(s) {}

    /// What a label's neighbours say of a place.
    enum verdict
    {
        c_free,
        c_taken,
        c_unsure
    };

    [[nodiscard]] bool gather(work_meter &meter);
    [[nodiscard]] bool gather_from(unsigned source, work_meter &meter);
    void add_points(candidate const &common, Tvx_shape_view const &shape);
    void add_parts(candidate const &common, Tvx_shape_view const &shape, int hint);
    [[nodiscard]] double measure_part(Tvx_shape_view const &shape, unsigned part, int hint) const;
    void join_names();
    [[nodiscard]] std::vector<candidate> join_lines(std::vector<candidate> parts);
    [[nodiscard]] std::vector<Tvx_pnt_d2> to_px(std::span<Tvx_pnt_d2 const> points) const;

    [[nodiscard]] bool measure(candidate const &c, measured_text &text);
    [[nodiscard]] verdict judge(candidate const &c, std::wstring const &text,
                                std::vector<label_quad> const &quads);
    /// Gives the label the place, if that can be told, and then its ink; one that `is_lost` may not have it
    /// any more, but what lies there cannot be told either.
    template <class MakeInk>
    verdict settle(candidate const &c, measured_text const &text, placed_label &label, bool is_lost,
                   MakeInk make_ink);
    void place_one(candidate const &c);
    /// Whether a label at a point is in the way of another, however wide it is.
    [[nodiscard]] bool is_surely_taken(candidate const &c) const;
    void place_at(candidate const &c, measured_text const &text, Tvx_pnt_d2 anchor);
    void place_in_area(candidate const &c, measured_text const &text);
    void place_at_line(candidate const &c, measured_text const &text);
    [[nodiscard]] verdict follow(candidate const &c, measured_text const &text, measured_line const &line,
                                 double begin, bool is_lost);
    verdict lay_straight(candidate const &c, measured_text const &text, Tvx_pnt_d2 anchor, double angle,
                         int pos_x, int pos_y, double gap_x, double gap_y, bool is_lost);
};

label_plan::label_plan(label_fonts &fonts, std::vector<Ivx_layer *> const &layers, label_scale const &scale)
    : f_state(std::make_unique<state>(fonts, scale))
{
    for (unsigned i = 0; i < layers.size(); ++i)
        label_source::add_sources(layers[i], i, scale, fonts, f_state->looks, f_state->sources);
}

label_plan::~label_plan() = default;

bool label_plan::has_labels() const
{
    return !f_state->sources.empty();
}

bool label_plan::needs_whole_map() const
{
    return std::ranges::any_of(f_state->sources, [](auto const &s) { return s->needs_whole_map(); });
}

bool label_plan::is_damaged() const
{
    return f_state->damaged;
}

std::vector<placed_label> label_plan::take_placed()
{
    return std::move(f_state->placed);
}

std::vector<label_look> const &label_plan::looks() const
{
    return f_state->looks;
}

std::vector<Tvx_box_d2> const &label_plan::undecided() const
{
    return f_state->undecided;
}

bool label_plan::place(Tvx_box_d2 const &region, work_meter &meter)
{
    constexpr double c_label_cost = 2000;
    state &s = *f_state;
    s.region = region;
    s.candidates.clear();
    s.chains.clear();
    s.taken = {};
    s.unsure = {};
    s.undecided.clear();
    s.placed.clear();
    s.same_texts.clear();
    if (!s.gather(meter))
        return false;
    s.join_names();
    std::ranges::sort(s.candidates,
                      [&](candidate const &a, candidate const &b) { return goes_before(a, b, s.sources); });
    for (candidate const &c : s.candidates) {
        if (!meter.go_on(c_label_cost))
            return false;
        s.place_one(c);
    }
    return true;
}

// ---- what there is to label

bool label_plan::state::gather(work_meter &meter)
{
    damaged = false;
    for (unsigned i = 0; i < sources.size(); ++i) {
        while (sources[i]->read_on(c_slice_ms))
            if (!meter.go_on(c_slice_ms * 1e6))
                return false;
        if (!gather_from(i, meter))
            return false;
    }
    return true;
}

bool label_plan::state::gather_from(unsigned number, work_meter &meter)
{
    label_source &source = *sources[number];
    double reach = 0;
    for (label_look const &look : looks)
        reach = std::max(reach, look.size * c_reach_em + look.reach());
    Tvx_box_d2 const px = grown(region, reach);
    Tvx_box_d2 const box{px.min_x / scale.px_per_unit_x, -px.max_y / scale.px_per_unit_y,
                         px.max_x / scale.px_per_unit_x, -px.min_y / scale.px_per_unit_y};
    struct pass
    {
        state &plan;
        label_source &source;
        unsigned number;
        work_meter &meter;

        bool visit(unsigned record, Tvx_shape_view const &shape)
        {
            if (!meter.go_on(10 * cost::c_object))
                return false;
            candidate c;
            c.source = number;
            c.rule = shape.part_count > 0 ? source.rule_of(record) : nullptr;
            if (!c.rule)
                return true;
            c.record = record;
            c.chance = mix(record + (std::uint64_t{source.layer()} << 40));
            if (shape.kind == c_shape_point)
                plan.add_points(c, shape);
            else
                plan.add_parts(c, shape, source.hint());
            return true;
        }
    } p{*this, source, number, meter};
    if (!source.objects().visit(box, meter, make_closure<&pass::visit>(&p)))
        return false;
    damaged = damaged || source.objects().is_damaged();
    return true;
}

void label_plan::state::add_points(candidate const &common, Tvx_shape_view const &shape)
{
    auto const begin = shape.part_starts[0];
    auto const end =
        common.rule->range == c_textlr_range_part ? shape.part_starts[shape.part_count] : begin + 1;
    for (auto k = begin; k < end; ++k) {
        candidate c = common;
        c.part = k - begin;
        c.chance = mix(c.chance + c.part);
        c.anchor = scale.to_px(shape.points[k]);
        if (std::abs(c.anchor.x) < c_farthest_px && std::abs(c.anchor.y) < c_farthest_px)
            candidates.push_back(c);
    }
}

double label_plan::state::measure_part(Tvx_shape_view const &shape, unsigned part, int hint) const
{
    auto const points = part_of(shape, part);
    if (hint == c_textlr_hint_polygons)
        return ring_area(points) * scale.px_per_unit_x * scale.px_per_unit_y;
    double length = 0;
    for (std::size_t i = 1; i < points.size(); ++i)
        length += std::hypot((points[i].x - points[i - 1].x) * scale.px_per_unit_x,
                             (points[i].y - points[i - 1].y) * scale.px_per_unit_y);
    return length;
}

void label_plan::state::add_parts(candidate const &common, Tvx_shape_view const &shape, int hint)
{
    auto const count = static_cast<unsigned>(shape.part_count);
    bool const each = common.rule->range == c_textlr_range_part;
    unsigned best = 0;
    double best_size = -1;
    for (unsigned part = 0; part < count; ++part) {
        double const size = measure_part(shape, part, hint);
        if (size > best_size) {
            best = part;
            best_size = size;
        }
        if (!each)
            continue;
        candidate c = common;
        c.part = part;
        c.chance = mix(c.chance + part);
        c.shape = shape;
        c.size_class = size_class(size);
        c.whole_object = false;
        candidates.push_back(c);
    }
    if (each)
        return;
    candidate c = common;
    c.part = best;
    c.shape = shape;
    c.size_class = size_class(best_size);
    candidates.push_back(c);
}

// ---- objects of one name

void label_plan::state::join_names()
{
    if (std::ranges::none_of(sources, [](auto const &s) { return s->needs_whole_map(); }))
        return;
    std::map<std::pair<unsigned, std::wstring>, std::vector<candidate>> names;
    std::vector<candidate> kept;
    for (candidate const &c : candidates)
        if (c.rule->range == c_textlr_range_name)
            names[{c.source, sources[c.source]->text_of(*c.rule, c.record)}].push_back(c);
        else
            kept.push_back(c);
    for (auto &[name, group] : names) {
        int const hint = sources[name.first]->hint();
        if (hint == c_textlr_hint_lines)
            group = join_lines(std::move(group));
        auto const first = std::ranges::min_element(group, [](candidate const &a, candidate const &b) {
            return std::tie(b.size_class, a.record) < std::tie(a.size_class, b.record);
        });
        if (!name.second.empty() && first != group.end())
            kept.push_back(*first);
    }
    candidates = std::move(kept);
}

std::vector<candidate> label_plan::state::join_lines(std::vector<candidate> parts)
{
    struct end_less
    {
        bool operator()(Tvx_pnt_d2 a, Tvx_pnt_d2 b) const { return std::tie(a.x, a.y) < std::tie(b.x, b.y); }
    };
    std::multimap<Tvx_pnt_d2, std::size_t, end_less> ends;
    auto const points_of = [&](std::size_t i) { return part_of(parts[i].shape, parts[i].part); };
    for (std::size_t i = 0; i < parts.size(); ++i)
        if (auto const points = points_of(i); !points.empty()) {
            ends.emplace(points.front(), i);
            ends.emplace(points.back(), i);
        }
    std::vector<bool> used(parts.size());
    std::vector<candidate> joined;
    for (std::size_t begin = 0; begin < parts.size(); ++begin) {
        if (used[begin])
            continue;
        used[begin] = true;
        auto const first = points_of(begin);
        std::vector<Tvx_pnt_d2> chain(first.begin(), first.end());
        // On at the end, and then, turned round, at the beginning.
        for (int side = 0; side < 2 && !chain.empty(); ++side) {
            for (bool found = true; found;) {
                found = false;
                for (auto [at, last] = ends.equal_range(chain.back()); at != last && !found; ++at) {
                    if (used[at->second])
                        continue;
                    found = used[at->second] = true;
                    auto const next = points_of(at->second);
                    if (next.front() == chain.back())
                        chain.insert(chain.end(), next.begin() + 1, next.end());
                    else
                        chain.insert(chain.end(), next.rbegin() + 1, next.rend());
                }
            }
            std::ranges::reverse(chain);
        }
        candidate c = parts[begin];
        c.chain = static_cast<int>(chains.size());
        chains.push_back(to_px(chain));
        c.size_class = size_class(measured_line(chains.back()).length());
        joined.push_back(c);
    }
    return joined;
}

std::vector<Tvx_pnt_d2> label_plan::state::to_px(std::span<Tvx_pnt_d2 const> points) const
{
    std::vector<Tvx_pnt_d2> px;
    px.reserve(points.size());
    for (Tvx_pnt_d2 const p : points) {
        Tvx_pnt_d2 const at = scale.to_px(p);
        if (std::abs(at.x) < c_farthest_px && std::abs(at.y) < c_farthest_px)
            px.push_back(at);
    }
    return px;
}

// ---- one label

bool label_plan::state::measure(candidate const &c, measured_text &text)
{
    label_rule const &rule = *c.rule;
    unsigned const font = looks[rule.look].font;
    text.text = sources[c.source]->text_of(rule, c.record);
    if (text.text.empty())
        return false;
    if (sources[c.source]->hint() == c_textlr_hint_lines && rule.line_type == c_textlr_line_bends)
        std::ranges::replace(text.text, L'\n', L' ');
    text.ascent = fonts.ascent(font) * rule.size;
    text.descent = fonts.descent(font) * rule.size;
    text.line_height = text.ascent + text.descent;
    std::wstring_view rest = text.text;
    for (;;) {
        auto const end = rest.find(L'\n');
        text.lines.push_back(rest.substr(0, end));
        text.widths.push_back(fonts.width(font, text.lines.back()) * rule.size);
        text.width = std::max(text.width, text.widths.back());
        if (end == std::wstring_view::npos)
            break;
        rest.remove_prefix(end + 1);
    }
    text.height = text.line_height * static_cast<double>(text.lines.size());
    return text.width > 0 && text.width <= c_reach_em * rule.size;
}

label_plan::state::verdict label_plan::state::judge(candidate const &c, std::wstring const &text,
                                                    std::vector<label_quad> const &quads)
{
    label_rule const &rule = *c.rule;
    if (!rule.overlap && std::ranges::any_of(quads, [&](label_quad const &q) { return taken.meets(q); }))
        return c_taken;
    Tvx_box_d2 box;
    for (label_quad const &q : quads)
        box.add(q.box());
    bool sure = contains(region, box);
    if (rule.duplicates != c_textlr_duplicates_all) {
        bool const one = rule.duplicates == c_textlr_duplicates_one;
        double const apart =
            one ? std::numeric_limits<double>::infinity() : c_textlr_apart_mm * scale.px_per_mm;
        Tvx_pnt_d2 const at{(box.min_x + box.max_x) / 2, (box.min_y + box.max_y) / 2};
        auto const &others = same_texts[{c.source, text}];
        if (any_near(others.placed, at, apart))
            return c_taken;
        sure = sure && contains(region, grown(box, apart)) && !any_near(others.undecided, at, apart);
    }
    sure = sure && (rule.overlap ||
                    std::ranges::none_of(quads, [&](label_quad const &q) { return unsure.meets(q); }));
    return sure ? c_free : c_unsure;
}

template <class MakeInk>
label_plan::state::verdict label_plan::state::settle(candidate const &c, measured_text const &text,
                                                     placed_label &label, bool is_lost, MakeInk make_ink)
{
    double const margin = c_gap_px + c.rule->back_margin + looks[c.rule->look].reach();
    for (label_quad &q : label.quads) {
        q.half_length += margin;
        q.half_height += margin;
        label.box.add(q.box());
    }
    verdict const v = judge(c, text.text, label.quads);
    if (v == c_taken)
        return v;
    bool const is_sure = v == c_free && !is_lost;
    if (c.rule->duplicates != c_textlr_duplicates_all) {
        auto &others = same_texts[{c.source, text.text}];
        (is_sure ? others.placed : others.undecided)
            .push_back({(label.box.min_x + label.box.max_x) / 2, (label.box.min_y + label.box.max_y) / 2});
    }
    for (label_quad const &q : label.quads)
        (is_sure ? taken : unsure).add(q);
    if (!is_sure) {
        undecided.push_back(label.box);
        return c_unsure;
    }
    label.layer = sources[c.source]->layer();
    label.record = c.record;
    label.part = c.part;
    label.text = text.text;
    label.priority = c.rule->priority;
    label.may_overlap = c.rule->overlap;
    label.look = c.rule->look;
    label.ink = std::make_shared<label_ink>();
    make_ink(*label.ink);
    placed.push_back(std::move(label));
    return c_free;
}

bool label_plan::state::is_surely_taken(candidate const &c) const
{
    label_rule const &rule = *c.rule;
    if (rule.overlap || sources[c.source]->hint() != c_textlr_hint_points)
        return false;
    // The place where all labels of the rule begin, just inside of them.
    double const gap = c_point_gap_em * rule.size;
    double const right = rule.pos_x * gap;
    double const down = -rule.pos_y * (c_gap_px + rule.back_margin + looks[rule.look].reach());
    double const turn = rule.angle * M_PI / 180;
    Tvx_pnt_d2 const along{std::cos(turn), -std::sin(turn)};
    return taken.meets({{c.anchor.x + rule.delta_x + along.x * right - along.y * down,
                         c.anchor.y + rule.delta_y + along.y * right + along.x * down},
                        along,
                        c_gap_px / 2,
                        c_gap_px / 2});
}

void label_plan::state::place_one(candidate const &c)
{
    if (is_surely_taken(c))
        return;
    measured_text text;
    if (!measure(c, text))
        return;
    switch (sources[c.source]->hint()) {
    case c_textlr_hint_polygons:
        return place_in_area(c, text);
    case c_textlr_hint_lines:
        return place_at_line(c, text);
    default:
        return place_at(c, text, c.anchor);
    }
}

label_plan::state::verdict label_plan::state::lay_straight(candidate const &c, measured_text const &text,
                                                           Tvx_pnt_d2 anchor, double angle, int pos_x,
                                                           int pos_y, double gap_x, double gap_y,
                                                           bool is_lost)
{
    double const left = pos_x < 0 ? -text.width - gap_x : pos_x > 0 ? gap_x : -text.width / 2;
    double const top = pos_y > 0 ? -text.height - gap_y : pos_y < 0 ? gap_y : -text.height / 2;
    double const turn = angle * M_PI / 180;
    Tvx_pnt_d2 const along{std::cos(turn), -std::sin(turn)};
    auto const to_page = [&](double right, double down) {
        return Tvx_pnt_d2{along.x * right - along.y * down, along.y * right + along.x * down};
    };
    placed_label label;
    label.at = anchor;
    Tvx_pnt_d2 const middle = to_page(left + text.width / 2, top + text.height / 2);
    label.quads = {{{anchor.x + middle.x, anchor.y + middle.y}, along, text.width / 2, text.height / 2}};
    return settle(c, text, label, is_lost, [&](label_ink &ink) {
        for (std::size_t i = 0; i < text.lines.size(); ++i) {
            double const free = text.width - text.widths[i];
            double const from = left + (pos_x < 0 ? free : pos_x > 0 ? 0 : free / 2);
            double const down = top + static_cast<double>(i) * text.line_height + text.ascent;
            ink.add_line(fonts.shape(looks[c.rule->look].font, text.lines[i]), {to_page(from, down), angle});
        }
    });
}

void label_plan::state::place_at(candidate const &c, measured_text const &text, Tvx_pnt_d2 anchor)
{
    label_rule const &rule = *c.rule;
    double const gap = rule.pos_x == 0 ? 0 : c_point_gap_em * rule.size;
    // Labels above and below a point do not touch.
    double const margin = c_gap_px + rule.back_margin + looks[rule.look].reach();
    static_cast<void>(lay_straight(c, text, {anchor.x + rule.delta_x, anchor.y + rule.delta_y}, rule.angle,
                                   rule.pos_x, rule.pos_y, gap, margin, false));
}

void label_plan::state::place_in_area(candidate const &c, measured_text const &text)
{
    label_rule const &rule = *c.rule;
    label_rings rings;
    rings.push_back(to_px(part_of(c.shape, c.part)));
    if (rings.front().size() < 3)
        return;
    // Holes, and what lies in them. A ring of its own inside another one is a hole.
    auto const count = static_cast<unsigned>(c.shape.part_count);
    label_rings const outer = rings;
    for (unsigned part = 0; part < count; ++part) {
        if (part == c.part)
            continue;
        auto ring = to_px(part_of(c.shape, part));
        if (ring.size() < 3)
            continue;
        if (is_inside(outer, ring.front()))
            rings.push_back(std::move(ring));
        else if (!c.whole_object && is_inside({std::move(ring)}, outer.front().front()))
            return;
    }
    double const turn = rule.angle * M_PI / 180;
    Tvx_pnt_d2 const at =
        place_inside(rings, {std::cos(turn), -std::sin(turn)}, text.width / 2, text.height / 2);
    place_at(c, text, at);
}

// ---- along lines

void label_plan::state::place_at_line(candidate const &c, measured_text const &text)
{
    label_rule const &rule = *c.rule;
    measured_line line(c.chain >= 0 ? chains[static_cast<std::size_t>(c.chain)]
                                    : to_px(part_of(c.shape, c.part)));
    if (!(line.length() > 0))
        return;
    if (rule.line_type == c_textlr_line_level)
        return place_at(c, text, line.at(line.length() / 2));
    bool const is_across = rule.line_type == c_textlr_line_across;
    double const needed = is_across ? 0 : text.width;
    if (line.length() < needed)
        return;
    // Where a place cannot be told, those after it may all be needed.
    bool is_lost = false;
    for (double const away : c_line_places) {
        double const begin = (line.length() - needed) / 2 + away * text.width;
        if (begin < 0 || begin + needed > line.length())
            continue;
        verdict v = c_taken;
        if (rule.line_type == c_textlr_line_bends) {
            v = follow(c, text, line, begin, is_lost);
        } else {
            double const half = is_across ? text.height / 2 : text.width / 2;
            double const middle = begin + needed / 2;
            Tvx_pnt_d2 const a = line.at(std::max(middle - half, 0.0));
            Tvx_pnt_d2 const b = line.at(std::min(middle + half, line.length()));
            if (!is_across &&
                line.farthest_from_chord(middle - half, middle + half) > c_most_bow_em * rule.size)
                continue;
            double angle = std::atan2(a.y - b.y, b.x - a.x) * 180 / M_PI + (is_across ? 90 : 0);
            angle = std::remainder(angle, 360.0);
            if (!rule.line_direction && is_upside_down(angle))
                angle = std::remainder(angle + 180, 360.0);
            Tvx_pnt_d2 const at = is_across ? line.at(middle) : Tvx_pnt_d2{(a.x + b.x) / 2, (a.y + b.y) / 2};
            v = lay_straight(c, text, at, angle, 0, rule.pos_y, 0, c_line_gap_em * rule.size, is_lost);
        }
        if (v == c_free)
            return;
        is_lost = is_lost || v == c_unsure;
    }
}

label_plan::state::verdict label_plan::state::follow(candidate const &c, measured_text const &text,
                                                     measured_line const &whole, double begin, bool is_lost)
{
    label_rule const &rule = *c.rule;
    measured_line line = whole;
    Tvx_pnt_d2 const first = line.at(begin);
    Tvx_pnt_d2 const last = line.at(begin + text.width);
    if (!rule.line_direction && is_upside_down(std::atan2(first.y - last.y, last.x - first.x) * 180 / M_PI)) {
        line.reverse();
        begin = line.length() - begin - text.width;
    }
    shaped_ptr const shaped = fonts.shape_clusters(looks[rule.look].font, text.text);
    auto const clusters = label_fonts::clusters(*shaped);
    if (clusters.empty())
        return c_taken;
    // The base line above, on or below the line.
    double const gap = c_line_gap_em * rule.size;
    double const up = rule.pos_y > 0   ? text.descent + gap
                      : rule.pos_y < 0 ? -text.ascent - gap
                                       : (text.descent - text.ascent) / 2;
    placed_label label;
    label.at = line.at(begin + text.width / 2);
    std::vector<ink_place> places;
    std::optional<double> former;
    for (text_cluster const &cluster : clusters) {
        double const from = begin + cluster.begin * rule.size;
        double const width = (cluster.end - cluster.begin) * rule.size;
        // The direction of a narrow letter is that of a piece of the line which bends no sooner.
        double const around = std::max(width, rule.size / 2) / 2;
        double const middle = from + width / 2;
        Tvx_pnt_d2 const a = line.at(std::max(middle - around, 0.0));
        Tvx_pnt_d2 const b = line.at(std::min(middle + around, line.length()));
        double const turn = std::atan2(a.y - b.y, b.x - a.x);
        double const degrees = turn * 180 / M_PI;
        if (former && std::abs(std::remainder(degrees - *former, 360.0)) > c_sharpest_turn)
            return c_taken;
        former = degrees;
        Tvx_pnt_d2 const along{std::cos(turn), -std::sin(turn)};
        Tvx_pnt_d2 const normal{along.y, -along.x}; // upwards from the reader
        Tvx_pnt_d2 const on = line.at(middle);
        Tvx_pnt_d2 const start{on.x - along.x * width / 2 + normal.x * up,
                               on.y - along.y * width / 2 + normal.y * up};
        places.push_back({{start.x - label.at.x, start.y - label.at.y}, degrees});
        double const rise = up + (text.ascent - text.descent) / 2;
        label.quads.push_back({{on.x + normal.x * rise, on.y + normal.y * rise},
                               along,
                               width / 2,
                               (text.ascent + text.descent) / 2});
    }
    return settle(c, text, label, is_lost,
                  [&](label_ink &ink) { ink.add_clusters(shaped, std::move(places)); });
}
} // namespace vx::render
