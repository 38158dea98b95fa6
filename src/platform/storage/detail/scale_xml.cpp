#include "platform/storage/detail/scale_xml.h"

#include "platform/storage/detail/style_xml.h"

#include <utility>

namespace vx::storage {
namespace {
using namespace vx::styles;

constexpr char const *c_scale_root = "vx_scale";
constexpr char const *c_style_root = "vx_style";

void write_row(xml_out &row, style_table_out &table, scale_prm const &prm)
{
    row.field("visible", prm.visible);
    table.write(row, prm.prm);
}

void read_row(xml_in &row, style_table_in const &table, scale_prm &prm)
{
    row.field("visible", prm.visible);
    table.read(row, prm.prm);
    row.finish();
}

void write_opacity(xml_out &root, opacity_curve const &curve)
{
    auto out = root.child("opacity");
    for (opacity_pt const &pt : curve) {
        auto point = out.child("point");
        point.field("at", pt.position);
        point.field("value", pt.opacity);
    }
}

opacity_curve read_opacity(xml_in &root)
{
    std::vector<double> positions;
    std::vector<double> values;
    auto in = root.child("opacity");
    while (in.good() && in.at("point")) {
        auto point = in.child("point");
        point.field("at", positions.emplace_back());
        point.field("value", values.emplace_back());
        point.finish();
    }
    in.finish();
    auto curve = make_opacity_curve(positions.data(), values.data(), static_cast<unsigned>(values.size()));
    if (curve.empty())
        in.fail();
    return curve;
}

void write_other(xml_out &root, style_table_out &table, other_entry const &other)
{
    auto row = root.child("other");
    row.field("caption", other.caption);
    write_row(row, table, other.prm);
}

void read_other(xml_in &root, style_table_in const &table, other_entry &other)
{
    auto row = root.child("other");
    row.field("caption", other.caption);
    read_row(row, table, other.prm);
}

void write_end(xml_out &root, char const *name, style_table_out &table, rng_end const &end)
{
    auto row = root.child(name);
    row.bound("value", end.value);
    row.field("caption", end.caption);
    write_row(row, table, end.prm);
}

void read_end(xml_in &root, char const *name, style_table_in const &table, rng_end &end)
{
    auto row = root.child(name);
    row.bound("value", end.value);
    row.field("caption", end.caption);
    read_row(row, table, end.prm);
}

void begin_scale(xml_out &root, char const *scale_kind, style_kind style)
{
    root.field("kind", std::string(scale_kind));
    root.field("style", std::string(style_key(style)));
}

/// Whether the element holds this kind of scale of these styles.
bool is_scale(xml_in &root, char const *scale_kind, style_kind style)
{
    std::string kind;
    std::string key;
    root.field("kind", kind);
    root.field("style", key);
    return kind == scale_kind && style_kind_of(key.c_str()) == style;
}

template <class Read>
xml_fault read_scale_file(std::string bytes, Read read)
{
    xml_file file;
    if (auto fault = file.parse(std::move(bytes), c_scale_root))
        return fault;
    reading state;
    xml_in root = file.root(state);
    auto const kind = read(root);
    return state.good ? xml_fault{kind} : file.outcome(state);
}
} // namespace

void write_scale(xml_out root, val_scale const &scale, char const *kind)
{
    begin_scale(root, kind, scale.kind());
    style_table_out table(root.child("styles"));
    write_opacity(root, scale.opacity);
    auto entries = root.child("entries");
    for (unsigned i = 0; i < scale.size(); ++i) {
        val_entry const &e = *scale.at(i);
        auto row = entries.child("entry");
        row.field("text", e.text);
        row.field("caption", e.caption);
        write_row(row, table, e.prm);
    }
    write_other(root, table, scale.other);
}

std::string scale_bytes(val_scale const &scale, char const *kind)
{
    xml_file file;
    write_scale(file.make(c_scale_root), scale, kind);
    return file.bytes();
}

xml_fault::kind_type read_scale(xml_in &root, val_scale &scale, char const *kind)
{
    if (!is_scale(root, kind, scale.kind()))
        return xml_fault::other;
    val_scale fresh(scale.kind());
    style_table_in const table(root.child("styles"), scale.kind());
    fresh.opacity = read_opacity(root);
    auto entries = root.child("entries");
    unsigned count = 0;
    for (; root.good() && entries.at("entry"); ++count) {
        fresh.resize(count + 1);
        auto row = entries.child("entry");
        val_entry &entry = *fresh.edit(count);
        row.field("text", entry.text);
        row.field("caption", entry.caption);
        read_row(row, table, entry.prm);
    }
    entries.finish();
    read_other(root, table, fresh.other);
    root.finish();
    if (!root.good())
        return xml_fault::damaged;
    scale = std::move(fresh);
    return xml_fault::none;
}

xml_fault read_scale(std::string bytes, val_scale &scale, char const *kind)
{
    return read_scale_file(std::move(bytes), [&](xml_in &root) { return read_scale(root, scale, kind); });
}

void write_scale(xml_out root, rng_scale const &scale)
{
    begin_scale(root, c_range_scale, scale.kind());
    root.field("range_type", scale.rng_type);
    root.field("round_digits", scale.round_digits);
    root.bound("deviation", scale.deviation_coeff);
    style_table_out table(root.child("styles"));
    write_opacity(root, scale.opacity);
    write_end(root, "min", table, scale.min);
    auto ranges = root.child("ranges");
    for (unsigned i = 0; i < scale.size(); ++i) {
        rng_entry const &e = *scale.at(i);
        auto row = ranges.child("range");
        row.bound("from", e.min);
        row.bound("to", e.max);
        row.field("caption", e.caption);
        write_row(row, table, e.prm);
    }
    write_end(root, "max", table, scale.max);
    write_other(root, table, scale.other);
}

std::string scale_bytes(rng_scale const &scale)
{
    xml_file file;
    write_scale(file.make(c_scale_root), scale);
    return file.bytes();
}

xml_fault::kind_type read_scale(xml_in &root, rng_scale &scale)
{
    if (!is_scale(root, c_range_scale, scale.kind()))
        return xml_fault::other;
    rng_scale fresh(scale.kind());
    root.field("range_type", fresh.rng_type);
    root.field("round_digits", fresh.round_digits);
    root.bound("deviation", fresh.deviation_coeff);
    style_table_in const table(root.child("styles"), scale.kind());
    fresh.opacity = read_opacity(root);
    read_end(root, "min", table, fresh.min);
    auto ranges = root.child("ranges");
    for (unsigned i = 0; root.good() && ranges.at("range"); ++i) {
        fresh.resize(i + 1);
        auto row = ranges.child("range");
        double from = 0;
        double to = 0;
        row.bound("from", from);
        row.bound("to", to);
        fresh.set_bounds(i, from, to);
        row.field("caption", fresh.at(i)->caption);
        read_row(row, table, fresh.at(i)->prm);
    }
    ranges.finish();
    read_end(root, "max", table, fresh.max);
    read_other(root, table, fresh.other);
    root.finish();
    if (!root.good())
        return xml_fault::damaged;
    scale = std::move(fresh);
    return xml_fault::none;
}

xml_fault read_scale(std::string bytes, rng_scale &scale)
{
    return read_scale_file(std::move(bytes), [&](xml_in &root) { return read_scale(root, scale); });
}

std::string style_bytes(style_kind kind, void const *object)
{
    xml_file file;
    auto root = file.make(c_style_root);
    root.field("style", std::string(style_key(kind)));
    write_style_object(root, kind, object);
    return file.bytes();
}

xml_fault read_style_file(std::string bytes, style_kind kind, void *object)
{
    xml_file file;
    if (auto fault = file.parse(std::move(bytes), c_style_root))
        return fault;
    reading state;
    auto root = file.root(state);
    std::string key;
    root.field("style", key);
    if (style_kind_of(key.c_str()) != kind)
        return {xml_fault::other};
    auto const fresh = make_default_style(kind, variant_of_style::base);
    read_style_object(root, kind, fresh->value());
    root.finish();
    if (!state.good)
        return file.outcome(state);
    assign_style_object(kind, object, fresh->value());
    return {};
}
} // namespace vx::storage
