#include "platform/storage/detail/style_xml.h"

#include <concepts>
#include <type_traits>
#include <utility>

namespace vx::storage {
namespace {
using namespace vx::styles;

template <class T, class S>
concept is = std::same_as<std::remove_const_t<T>, S>;

// ---- the one description of each object: what stands in files, under which names. A new field comes last.
template <class Io>
void fields(Io &io, is<pnt_symb_lr> auto &l)
{
    io.field("font", l.font);
    io.field("symbol", l.symbol);
    io.field("color", l.color);
    io.field("size", l.size);
    io.field("dx", l.dx);
    io.field("dy", l.dy);
    io.field("angle", l.angle);
}

template <class Io>
void fields(Io &io, is<pnt_figr_lr> auto &l)
{
    io.field("figure", l.figure);
    io.field("color", l.color);
    io.field("size_x", l.size_x);
    io.field("size_y", l.size_y);
    io.field("dx", l.dx);
    io.field("dy", l.dy);
    io.field("angle", l.angle);
    io.field("line_width", l.line_width);
}

std::vector<double> coordinates_of(std::vector<Tvx_pnt_d2> const &part)
{
    std::vector<double> row;
    for (Tvx_pnt_d2 const &p : part) {
        row.push_back(p.x);
        row.push_back(p.y);
    }
    return row;
}

template <class Io>
void fields(Io &io, is<pnt_geom_lr> auto &l)
{
    io.field("fill", l.fill);
    io.field("color", l.color);
    io.field("size", l.size);
    io.field("dx", l.dx);
    io.field("dy", l.dy);
    io.field("angle", l.angle);
    io.field("line_width", l.line_width);
    if constexpr (Io::c_reads) {
        l.parts.clear();
        while (io.at("part")) {
            std::vector<double> row;
            auto element = io.child("part");
            element.field("xy", row);
            element.finish();
            if (row.size() % 2)
                return io.fail();
            auto &points = l.parts.emplace_back();
            for (std::size_t i = 0; i < row.size(); i += 2)
                points.push_back({row[i], row[i + 1]});
        }
    } else {
        for (auto const &points : l.parts) {
            auto element = io.child("part");
            element.field("xy", coordinates_of(points));
            element.finish();
        }
    }
}

template <class Io>
void fields(Io &io, is<pnt_text_lr> auto &l)
{
    io.field("font", l.font);
    io.field("text", l.text);
    io.field("color", l.color);
    io.field("size", l.size);
    io.field("dx", l.dx);
    io.field("dy", l.dy);
    io.field("angle", l.angle);
}

template <class Io>
void fields(Io &io, is<pln_line_lr> auto &l)
{
    io.field("color", l.color);
    io.field("width", l.width);
    io.field("delta", l.delta);
}

template <class Io>
void slot(Io &io, char const *name, is<cpx_slot> auto &s);

template <class Io>
void fields(Io &io, is<pln_tplt_lr> auto &l)
{
    io.field("color", l.color);
    io.field("width", l.width);
    io.field("dash", l.dash);
    io.field("gap", l.gap);
    io.field("shift", l.shift);
    io.field("delta", l.delta);
    io.field("template", l.tplt);
    slot(io, "symbol", l.cpx_pnt);
}

template <class Io>
void fields(Io &io, is<pln_cart_lr> auto &l)
{
    io.field("color", l.color);
    io.field("width", l.width);
    io.field("delta", l.delta);
    io.field("cap", l.cap);
    io.field("join", l.join);
    io.field("dashes", l.dashes);
    io.field("casing_width", l.casing_width);
    io.field("casing_color", l.casing_color);
    if constexpr (Io::c_reads)
        for (double const dash : l.dashes)
            if (dash < 0)
                io.fail();
}

template <class Io>
void fields(Io &io, is<pgn_fill_lr> auto &l)
{
    io.field("color", l.color);
}

template <class Io>
void fields(Io &io, is<pgn_htch_lr> auto &l)
{
    io.field("delta", l.delta);
    io.field("angle", l.angle);
    io.field("shift", l.shift);
    slot(io, "line", l.cpx_pln);
}

template <class Io>
void fields(Io &io, is<pgn_spot_lr> auto &l)
{
    io.field("spot_type", l.spot_type);
    io.field("dx", l.dx);
    io.field("dy", l.dy);
    io.field("x0", l.x0);
    io.field("y0", l.y0);
    io.field("use_complex", l.use_cpx_pnt);
    io.field("color", l.point_clr);
    io.field("size", l.point_size);
    io.field("random_x", l.random_x);
    io.field("random_y", l.random_y);
    io.field("random_angle", l.random_angle);
    slot(io, "point", l.cpx_pnt);
}

/// A complex style; an empty one is not written. Kinds of layers limit how deep they nest.
template <class Io>
void slot(Io &io, char const *name, is<cpx_slot> auto &s)
{
    if constexpr (Io::c_reads) {
        if (!io.at(name))
            return;
        auto in = io.child(name);
        cpx_style &style = s.get();
        style.lrs.clear();
        while (in.at("layer")) {
            auto lr = in.child("layer");
            std::string key;
            lr.field("type", key);
            auto layer = style_lr::create(key.c_str());
            if (!layer || layer->holder_kind() != style.kind)
                return lr.fail();
            std::visit([&](auto &data) { fields(lr, data); }, layer->data);
            lr.finish();
            style.lrs.push_back(std::move(layer));
        }
        in.finish();
    } else {
        cpx_style const *style = s.find();
        if (!style || style->lrs.empty())
            return;
        auto out = io.child(name);
        for (auto const &layer : style->lrs) {
            auto lr = out.child("layer");
            lr.field("type", std::string(layer->key()));
            std::visit([&](auto const &data) { fields(lr, data); }, std::as_const(layer->data));
            lr.finish();
        }
        out.finish();
    }
}

template <class Io>
void fields(Io &io, is<bpnt_style> auto &s)
{
    io.field("use_figure", s.use_figure);
    io.field("figure", s.figure);
    io.field("font", s.font);
    io.field("symbol", s.symbol);
    io.field("color", s.color);
    io.field("size", s.size);
    io.field("use_complex", s.use_complex);
    slot(io, "complex", s.complex);
}

template <class Io>
void fields(Io &io, is<bpln_style> auto &s)
{
    io.field("color", s.color);
    io.field("width", s.width);
    io.field("use_complex", s.use_complex);
    slot(io, "complex", s.complex);
}

template <class Io>
void fields(Io &io, is<bpgn_style> auto &s)
{
    io.field("color", s.color);
    io.field("use_complex", s.use_complex);
    slot(io, "complex", s.complex);
}

template <class Io, class S>
requires is<S, bpnt3d_style> || is<S, bpln3d_style> || is<S, bpgn3d_style>
void fields(Io &io, S &s)
{
    io.field("color", s.color);
    if constexpr (requires { s.size; })
        io.field("size", s.size);
    if constexpr (requires { s.width; })
        io.field("width", s.width);
}

template <class Io>
void part(Io &io, char const *name, auto &component)
{
    auto element = io.child(name);
    fields(element, component);
    element.finish();
}

template <class Io>
void fields(Io &io, is<pnt_style> auto &s)
{
    io.field("show_point", s.pnt_visible);
    part(io, "point", s.bpnt);
}

template <class Io>
void fields(Io &io, is<pln_style> auto &s)
{
    io.field("show_line", s.pln_visible);
    io.field("show_point", s.pnt_visible);
    io.field("show_end", s.end_visible);
    io.field("show_begin", s.beg_visible);
    part(io, "line", s.bpln);
    part(io, "point", s.bpnt);
    part(io, "end", s.bend);
    part(io, "begin", s.bbeg);
}

template <class Io>
void fields(Io &io, is<pgn_style> auto &s)
{
    io.field("show_fill", s.pgn_visible);
    io.field("show_line", s.pln_visible);
    io.field("show_point", s.pnt_visible);
    part(io, "fill", s.bpgn);
    part(io, "line", s.bpln);
    part(io, "point", s.bpnt);
}

template <class Io>
void fields(Io &io, is<pnt3d_style> auto &s)
{
    io.field("show_point", s.pnt_visible);
    part(io, "point", s.bpnt3d);
}

template <class Io>
void fields(Io &io, is<pln3d_style> auto &s)
{
    io.field("show_line", s.pln_visible);
    io.field("show_point", s.pnt_visible);
    part(io, "line", s.bpln3d);
    part(io, "point", s.bpnt3d);
}

template <class Io>
void fields(Io &io, is<pgn3d_style> auto &s)
{
    io.field("show_fill", s.pgn_visible);
    io.field("show_line", s.pln_visible);
    io.field("show_point", s.pnt_visible);
    part(io, "fill", s.bpgn3d);
    part(io, "line", s.bpln3d);
    part(io, "point", s.bpnt3d);
}

template <class Io>
void fields(Io &io, is<Tvx_color> auto &color)
{
    io.field("color", color);
}

template <class Io>
void fields(Io &io, is<txt_style> auto &s)
{
    io.field("font", s.font);
    io.field("color", s.color);
    io.field("angle", s.angle);
    io.field("font_size", s.font_size);
    io.field("outline", s.outline);
    io.field("outline_color", s.outline_clr);
    io.field("outline_size", s.outline_size);
    io.field("back", s.back);
    io.field("back_color", s.back_clr);
    io.field("shadow", s.shadow);
    io.field("shadow_color", s.shadow_clr);
    io.field("shadow_width", s.shadow_width);
    io.field("shadow_gap_x", s.shadow_gap_x);
    io.field("shadow_gap_y", s.shadow_gap_y);
    io.field("pos_x", s.pos_x);
    io.field("pos_y", s.pos_y);
    io.field("delta_x", s.delta_x);
    io.field("delta_y", s.delta_y);
    if constexpr (Io::c_reads) {
        if (s.pos_x < -1 || s.pos_x > 1 || s.pos_y < -1 || s.pos_y > 1)
            io.fail();
        s.lines.lines.clear();
        while (io.at("line")) {
            auto line = io.child("line");
            line.field("text", s.lines.lines.emplace_back());
            line.finish();
        }
    } else {
        for (std::wstring const &text : s.lines.lines) {
            auto line = io.child("line");
            line.field("text", text);
            line.finish();
        }
    }
}

/// Runs `f` on the object as what it is.
template <class F>
void with_object(style_kind kind, void *object, F f)
{
    switch (kind) {
    case style_kind::pnt:
        return f(*static_cast<pnt_style *>(object));
    case style_kind::pln:
    case style_kind::grid1d_clr:
        return f(*static_cast<pln_style *>(object));
    case style_kind::pgn:
        return f(*static_cast<pgn_style *>(object));
    case style_kind::clr:
        return f(*static_cast<Tvx_color *>(object));
    case style_kind::pnt3d:
        return f(*static_cast<pnt3d_style *>(object));
    case style_kind::pln3d:
        return f(*static_cast<pln3d_style *>(object));
    case style_kind::pgn3d:
        return f(*static_cast<pgn3d_style *>(object));
    case style_kind::txt_pnt:
    case style_kind::txt_pln:
    case style_kind::txt_pgn:
        return f(*static_cast<txt_style *>(object));
    }
}

std::uint64_t hash_of(style_kind kind, any_style const &style)
{
    std::uint64_t sum = 0;
    hash_out out(sum);
    with_object(kind, const_cast<void *>(style.value()), [&](auto const &object) { fields(out, object); });
    return sum;
}
} // namespace

void write_style_object(xml_out &to, style_kind kind, void const *object)
{
    with_object(kind, const_cast<void *>(object), [&](auto const &style) { fields(to, style); });
}

void read_style_object(xml_in &from, style_kind kind, void *object)
{
    with_object(kind, object, [&](auto &style) { fields(from, style); });
}

void assign_style_object(style_kind kind, void *target, void const *source)
{
    with_object(kind, target, [&](auto &style) {
        style = *static_cast<std::remove_cvref_t<decltype(style)> const *>(source);
    });
}

void write_style(xml_out &to, style_kind kind, any_style const &style)
{
    write_style_object(to, kind, style.value());
}

std::unique_ptr<any_style> read_style(xml_in &from, style_kind kind)
{
    auto style = make_default_style(kind, variant_of_style::base);
    read_style_object(from, kind, style->value());
    return style;
}

// ---- tables
unsigned style_table_out::place(style_kind kind, any_style const &style)
{
    if (auto const known = f_known.find(&style); known != f_known.end())
        return known->second;
    auto const hash = hash_of(kind, style);
    auto const [begin, end] = f_written.equal_range(hash);
    for (auto it = begin; it != end; ++it)
        if (it->second.style->equals(style))
            return f_known[&style] = it->second.place;
    auto element = f_table.child("style");
    write_style(element, kind, style);
    f_written.emplace(hash, written{&style, f_size});
    return f_known[&style] = f_size++;
}

void style_table_out::write(xml_out &entry, stl_prm const &prm)
{
    entry.field("base", place(prm.kind(), prm.read(variant_of_style::base)));
    entry.field("selected", place(prm.kind(), prm.read(variant_of_style::selected)));
}

style_table_in::style_table_in(xml_in table, style_kind kind)
{
    while (table.good() && table.at("style")) {
        auto element = table.child("style");
        item i;
        i.style = read_style(element, kind);
        element.finish();
        i.is_default[0] = i.style->equals(default_style(kind, variant_of_style::base));
        i.is_default[1] = i.style->equals(default_style(kind, variant_of_style::selected));
        f_items.push_back(std::move(i));
    }
    table.finish();
}

void style_table_in::read(xml_in &entry, stl_prm &prm) const
{
    read(entry, "base", prm, variant_of_style::base);
    read(entry, "selected", prm, variant_of_style::selected);
}

void style_table_in::read(xml_in &entry, char const *name, stl_prm &prm, variant_of_style variant) const
{
    constexpr unsigned c_none = static_cast<unsigned>(-1);
    unsigned place = c_none;
    entry.field(name, place);
    if (place == c_none) // the default style
        return;
    if (place >= f_items.size())
        return entry.fail();
    item const &i = f_items[place];
    if (!i.is_default[static_cast<std::size_t>(variant)])
        prm.get(variant).assign(*i.style);
}
} // namespace vx::storage
