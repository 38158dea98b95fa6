#include "data/vector/transacted_feature.h"
#include "data/vector/vector_definition.h"
#include "extension/binding/string_visitors.h"

#include "platform/base/owned.h"

#include <gtest/gtest.h>

using namespace vx::data;

namespace {
using list = vx::owned<Tvx_op2d, &vx_ov_d2_destroy>;

/// Records which setter ran, and answers reads with the wanted type.
class shape final : public vx::feature_impl
{
public:
    int type = 0;
    std::string calls;

    int geom_type() override { return type; }
    bool is_empty = false;
    bool get_point(Tvx_vtx_d2 *v) override
    {
        if (is_empty)
            return false;
        *v = {3, 4};
        return called("point ");
    }
    bool get_multipoint(Tvx_op2d *) override { return called("multipoint "); }
    bool get_polypoint(Tvx_op2d *) override { return called("polypoint "); }
    bool set_point(Tvx_vtx_d2 *v) override { return v->x == 3 && called("set_point "); }
    bool set_multipoint(Tvx_op2d *) override { return called("set_multipoint "); }
    bool set_polyline(Tvx_op2d *) override { return called("set_polyline "); }
    bool set_polygon(Tvx_op2d *) override { return called("set_polygon "); }

private:
    bool called(char const *name)
    {
        calls += name;
        return true;
    }
};

list make_list(std::vector<Tvx_vtx_d2> const &vertices, Tvx_vector_type type)
{
    list l(vx_ov_d2_create());
    vx_ov_d2_set_size(l.get(), 1);
    auto *part = vx_ov_d2_get_pv_ptr(l.get(), 0);
    vx_pv_d2_set_size(part, vertices.size());
    for (std::size_t i = 0; i < vertices.size(); ++i)
        vx_pv_d2_set_vtx(part, i, &vertices[i]);
    vx_ov_d2_set_vector_type(l.get(), type);
    return l;
}
} // namespace

TEST(geometry, read_by_type)
{
    struct row
    {
        int type;
        char const *call;
        Tvx_vector_type vector_type;
    };
    row const table[] = {{1, "point ", c_vector_points},
                         {11, "point ", c_vector_points},
                         {3, "polypoint ", c_vector_polyline},
                         {13, "polypoint ", c_vector_polyline},
                         {5, "polypoint ", c_vector_polygon},
                         {15, "polypoint ", c_vector_polygon},
                         {8, "multipoint ", c_vector_points},
                         {18, "multipoint ", c_vector_points},
                         {31, "", c_vector_none},
                         {0, "", c_vector_none},
                         {100, "", c_vector_none}};
    for (auto const &r : table) {
        shape s;
        s.type = r.type;
        vector_feature f;
        f.from_handle(s);
        auto const l = make_list({{1, 1}, {2, 2}}, c_vector_polygon);
        EXPECT_EQ(f.fetch_geom2d(l.get()), r.vector_type != c_vector_none) << r.type;
        EXPECT_EQ(s.calls, r.call);
        EXPECT_EQ(vx_ov_d2_get_vector_type(l.get()), r.vector_type) << r.type;
        if (r.vector_type == c_vector_none) {
            EXPECT_EQ(vx_ov_d2_get_vtx_count(l.get()), 0u);
        }
        if (s.calls == "point ") {
            EXPECT_EQ(vx_pv_d2_get_data(vx_ov_d2_get_pv_ptr(l.get(), 0))[0], (Tvx_vtx_d2{3, 4}));
        }
    }
    auto const l = make_list({{1, 1}}, c_vector_points);
    shape empty;
    empty.type = 1;
    empty.is_empty = true;
    vector_feature point;
    point.from_handle(empty);
    EXPECT_FALSE(point.fetch_geom2d(l.get()));
    EXPECT_EQ(vx_ov_d2_get_vtx_count(l.get()), 0u) << "none of the shape before";
    EXPECT_FALSE(vector_feature().fetch_geom2d(l.get()));
    EXPECT_EQ(vx_ov_d2_get_vector_type(l.get()), c_vector_none);
}

TEST(geometry, written_by_vector_type)
{
    auto written = [](list const &l, auto... type) {
        shape s;
        transacted_feature f;
        f.from_handle(s);
        bool const ok = f.set_geom2d(l.get(), type...);
        return ok ? s.calls : "refused";
    };
    auto const one = make_list({{3, 0}}, c_vector_points);
    auto const two = make_list({{3, 0}, {4, 0}}, c_vector_points);
    auto const none = make_list({}, c_vector_points);
    EXPECT_EQ(written(one), "set_point ");
    EXPECT_EQ(written(two), "set_multipoint ");
    EXPECT_EQ(written(none), "refused");
    EXPECT_EQ(written(two, c_vector_polyline), "set_polyline ");
    EXPECT_EQ(written(two, c_vector_polygon), "set_polygon ");
    EXPECT_EQ(written(two, c_vector_none), "refused");
    EXPECT_EQ(written(two, geom_type::point), "set_point ");
    EXPECT_EQ(written(two, geom_type::multipoint), "set_multipoint ");
    EXPECT_EQ(written(two, geom_type::point_z), "refused");
    EXPECT_EQ(written(two, geomtype_flatten(geom_type::point_z)), "set_point ");
}

TEST(definition, is_read_back_through_its_interface)
{
    vector_definition d;
    d.append(L"b", field_type::numeric, 12, 3, true, L"0.5");
    d.prepend(L"a", field_type::string, 20, 0, false, L"");
    d.append_geom({L"shape", L"+proj=longlat", geom_type::polygon});
    EXPECT_EQ(d.find(L"b"), 1);
    EXPECT_EQ(d.find(L"B"), -1);
    EXPECT_EQ(d.name(2), L"");
    EXPECT_EQ(d.type(2), field_type::none);
    d.set_width(7, 1);
    d.set_width(1, 14);

    vx::vector_definition const w = d;
    std::wstring text;
    vx::stdwstring_visitor visitor(text);
    EXPECT_EQ(w.field_count(), 2);
    w.field_name(1, visitor);
    EXPECT_EQ(text, L"b");
    w.field_default(1, visitor);
    EXPECT_EQ(text, L"0.5");
    EXPECT_EQ(w.field_width(1), 14);
    EXPECT_EQ(w.field_precision(1), 3);
    EXPECT_TRUE(w.field_nullable(1));
    EXPECT_EQ(w.field_type(-1), 0);
    EXPECT_EQ(w.geom_field_type(0), 5);
    w.geom_field_proj4(0, visitor);
    EXPECT_EQ(text, L"+proj=longlat");
}
