#include "platform/storage/detail/mngr_xml.h"

#include "platform/storage/detail/scale_xml.h"
#include "platform/storage/detail/style_xml.h"

#include <memory>

namespace vx::storage {
namespace {
using namespace vx::styles;

constexpr char const *c_mngr = "manager";
constexpr char const *c_simple = "simple";
constexpr char const *c_values = "values";
constexpr char const *c_ranges = "ranges";
constexpr char const *c_rules = "rules";

/// One description for writing and reading.
template <class Element, class Mngr>
void describe(Element &element, Mngr &mngr)
{
    element.field("name", mngr.name);
    element.field("mode", mngr.mode);
    element.field("value_property", mngr.val_prop_name);
    element.field("range_property", mngr.rng_prop_name);
    element.field("need_scale", mngr.need_scale);
    element.field("rotate", mngr.rotate_flag);
    element.field("rotate_spots", mngr.rotate_spot_flag);
    element.field("rotate_hatches", mngr.rotate_hatch_flag);
    element.field("rotate_property", mngr.rotate_prop_name);
    element.field("rotate_start", mngr.rotate_start);
    element.field("rotate_direction", mngr.rotate_dir);
}

void check(xml_in &element, xml_fault::kind_type fault)
{
    if (fault != xml_fault::none)
        element.fail();
}
} // namespace

void write_mngr(xml_out element, stl_mngr const &mngr)
{
    describe(element, mngr);
    style_kind const kind = mngr.simple.kind();
    xml_out simple = element.child(c_simple);
    style_table_out(simple.child("styles")).write(simple, mngr.simple);
    if (!(mngr.values == val_scale(kind)))
        write_scale(element.child(c_values), mngr.values, c_value_scale);
    if (!(mngr.ranges == rng_scale(kind)))
        write_scale(element.child(c_ranges), mngr.ranges);
    if (!(mngr.rules == val_scale(kind)))
        write_scale(element.child(c_rules), mngr.rules, c_rule_scale);
    element.finish();
}

void read_mngr(xml_in &element, stl_mngr &mngr)
{
    describe(element, mngr);
    xml_in simple = element.child(c_simple);
    style_table_in const table(simple.child("styles"), mngr.simple.kind());
    table.read(simple, mngr.simple);
    simple.finish();
    if (element.at(c_values)) {
        xml_in scale = element.child(c_values);
        check(scale, read_scale(scale, mngr.values, c_value_scale));
    }
    if (element.at(c_ranges)) {
        xml_in scale = element.child(c_ranges);
        check(scale, read_scale(scale, mngr.ranges));
    }
    if (element.at(c_rules)) {
        xml_in scale = element.child(c_rules);
        check(scale, read_scale(scale, mngr.rules, c_rule_scale));
    }
    if (mngr.rotate_start < 0 || mngr.rotate_start > 3 || mngr.rotate_dir < 0 || mngr.rotate_dir > 1)
        element.fail();
    element.finish();
}

void write_mngr_list(xml_out element, stl_mngr_list const &list)
{
    element.field("visible", list.visible);
    element.field("active", list.active);
    for (auto const &mngr : list.mngrs)
        write_mngr(element.child(c_mngr), *mngr);
    element.finish();
}

void read_mngr_list(xml_in &element, stl_mngr_list &list)
{
    element.field("visible", list.visible);
    element.field("active", list.active);
    std::vector<std::unique_ptr<stl_mngr>> mngrs;
    while (element.good() && element.at(c_mngr)) {
        xml_in child = element.child(c_mngr);
        read_mngr(child, *mngrs.emplace_back(std::make_unique<stl_mngr>(list.kind)));
        if (mngrs.size() > c_most_mngrs)
            element.fail();
    }
    element.finish();
    if (mngrs.empty() || list.active >= mngrs.size())
        return element.fail();
    list.mngrs = std::move(mngrs);
}

bool is_new(stl_mngr_list const &list)
{
    stl_mngr_list const fresh(list.kind);
    return list.mngrs.size() == 1 && *list.mngrs.front() == *fresh.mngrs.front();
}
} // namespace vx::storage
