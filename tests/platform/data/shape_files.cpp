#include "support/memory_source.h"

#include "platform/base/owned.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_shape_files.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {
using attr_data = vx::owned<Ivx_attr_data, &vx_attr_data_release>;
using shape_files = vx::owned<Ivx_shape_files, &vx_shape_files_close>;
using points = std::vector<Tvx_pnt_d2>;

constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();
constexpr double c_inf = std::numeric_limits<double>::infinity();

struct shape_case
{
    int geom_type;
    std::vector<points> parts;
    Tvx_shape_kind kind;
    std::vector<points> expected;
};
points const ring = {{0, 0}, {4, 0}, {4, 3}, {0, 0}};
points const hole = {{1, 0.5}, {2, 0.5}, {2, 1}, {1, 0.5}};
shape_case const cases[] = {
    {1, {{{2, 3}}}, c_shape_point, {{{2, 3}}}},
    {11, {{{-2, 3}}}, c_shape_point, {{{-2, 3}}}},
    {8, {{{0, 1}}, {{2, 3}}, {{4, 5}}}, c_shape_point, {{{0, 1}, {2, 3}, {4, 5}}}},
    {3,
     {{{0, 0}, {1, 1}}, {{5, 5}, {6, 7}, {8, 8}}},
     c_shape_polyline,
     {{{0, 0}, {1, 1}}, {{5, 5}, {6, 7}, {8, 8}}}},
    {5, {ring, hole}, c_shape_polygon, {ring, hole}},
    {15, {ring}, c_shape_polygon, {ring}},
    {0, {}, c_shape_none, {}},
    {31, {ring}, c_shape_none, {}},
    {100, {ring}, c_shape_none, {}},
    {3, {}, c_shape_none, {}},
    {3,
     {{}, {{1, 1}, {c_nan, 2}, {3, c_inf}, {4, 4}}, {{c_nan, c_nan}}},
     c_shape_polyline,
     {{{1, 1}, {4, 4}}}},
    {1, {{{c_inf, 0}}}, c_shape_none, {}},
};

std::vector<points> parts_of(Tvx_shape_view const &view)
{
    std::vector<points> parts;
    for (int p = 0; p < view.part_count; ++p)
        parts.emplace_back(view.points + view.part_starts[p], view.points + view.part_starts[p + 1]);
    return parts;
}

class shapes : public testing::Test
{
protected:
    void open() { f_shapes.reset(vx_shape_files_open(f_data.get())); }

    vx_test::memory_table f_table;
    vx_test::memory_driver f_driver{L"memory:", f_table};
    attr_data f_data{vx_attr_data_create(L"memory:")};
    shape_files f_shapes;
};
} // namespace

TEST_F(shapes, hold_the_geometry_of_each_record)
{
    Tvx_box_d2 whole;
    for (auto const &c : cases)
        f_table.features.push_back({{}, c.geom_type, c.parts});
    open();
    ASSERT_EQ(std::size(cases), vx_shape_files_get_count(f_shapes.get()));
    for (unsigned i = 0; i < std::size(cases); ++i) {
        SCOPED_TRACE(i);
        Tvx_shape_view view;
        ASSERT_TRUE(vx_shape_files_get(f_shapes.get(), i, &view));
        EXPECT_EQ(cases[i].kind, view.kind);
        EXPECT_EQ(cases[i].expected, parts_of(view));
        Tvx_box_d2 box;
        for (auto const &part : cases[i].expected)
            for (auto const &point : part)
                box.add(point.x, point.y);
        EXPECT_EQ(box, view.box);
        whole.add(box);
    }
    EXPECT_EQ(whole, vx_shape_files_get_box(f_shapes.get()));
    Tvx_shape_view view;
    EXPECT_FALSE(vx_shape_files_get(f_shapes.get(), std::size(cases), &view));
    EXPECT_FALSE(vx_shape_files_get(f_shapes.get(), 0, nullptr));
    EXPECT_EQ(0, f_table.held_features);
}

TEST_F(shapes, windows_of_any_size_give_what_meets_them)
{
    // Against a look at all boxes: points, lines of all lengths, records without geometry, data sets without
    // extent.
    enum
    {
        points_only,
        points_and_none,
        mixed,
        on_a_line,
        on_one_place,
        kinds
    };
    constexpr int c_shapes = 5000;
    std::mt19937 random(5);
    auto const in = [&](double low, double high) {
        return std::uniform_real_distribution(low, high)(random);
    };
    for (int kind = 0; kind < kinds; ++kind) {
        SCOPED_TRACE(kind);
        f_table.features.clear();
        for (int i = 0; i < c_shapes; ++i) {
            Tvx_pnt_d2 const at = kind == on_one_place ? Tvx_pnt_d2{7, 7}
                                  : kind == on_a_line  ? Tvx_pnt_d2{in(-500, 500), 7}
                                                       : Tvx_pnt_d2{in(-500, 500), std::exp(in(-5, 5))};
            bool const none = kind != points_only && i % 7 == 0;
            bool const line = kind == mixed && i % 3 == 0;
            double const length = line ? std::exp(in(-3, 6)) : 0;
            if (none)
                f_table.features.push_back({{}, 0, {}});
            else if (line) // of two points, or of so many that its box is kept
                f_table.features.push_back(
                    {{},
                     3,
                     {std::vector<Tvx_pnt_d2>(i % 2 ? 1 : 20, at), {{at.x + length, at.y + length / 3}}}});
            else
                f_table.features.push_back({{}, 1, {{at}}});
        }
        vx_attr_data_reload(f_data.get());
        open();
        for (int n = 0; n < 200; ++n) {
            Tvx_box_d2 box;
            double const x = in(-600, 600);
            double const y = in(-20, 150);
            box.add(x, y);
            box.add(x + std::exp(in(-8, 7)), y + std::exp(in(-8, 5)));
            if (n % 10 == 0) { // with its corner on a point
                Tvx_shape_view view;
                vx_shape_files_get(f_shapes.get(), static_cast<unsigned>(n * 11 + 1), &view);
                if (view.part_count)
                    box = {view.box.min_x - 1, view.box.min_y - 1, view.box.min_x, view.box.min_y};
            }
            std::vector<unsigned> expected;
            for (unsigned i = 0; i < c_shapes; ++i) {
                Tvx_shape_view view;
                ASSERT_TRUE(vx_shape_files_get(f_shapes.get(), i, &view));
                if (view.box.intersects(box))
                    expected.push_back(i);
            }
            std::vector<unsigned> seen;
            vx_shape_files_visit(
                f_shapes.get(), &box,
                [](unsigned index, Tvx_shape_view const *, void *user) {
                    static_cast<std::vector<unsigned> *>(user)->push_back(index);
                    return true;
                },
                &seen);
            ASSERT_EQ(expected, seen) << n;
        }
    }
}

TEST_F(shapes, are_visited_by_box_in_order)
{
    for (int i = 0; i < 10; ++i)
        f_table.features.push_back({{}, 1, {{{i * 1.0, 0}}}});
    f_table.features.push_back({{}, 0, {}});
    open();
    struct visit_log
    {
        std::vector<unsigned> seen;
        std::size_t limit;
    };
    auto const visit = [&](Tvx_box_d2 const &box, std::size_t limit) {
        visit_log log{{}, limit};
        vx_shape_files_visit(
            f_shapes.get(), &box,
            [](unsigned index, Tvx_shape_view const *view, void *user) {
                auto &l = *static_cast<visit_log *>(user);
                EXPECT_EQ(c_shape_point, view->kind);
                l.seen.push_back(index);
                return l.seen.size() < l.limit;
            },
            &log);
        return log.seen;
    };
    EXPECT_EQ((std::vector<unsigned>{3, 4, 5}), visit({2.5, -1, 5, 1}, 100)) << "the edge belongs to the box";
    EXPECT_EQ((std::vector<unsigned>{3, 4}), visit({2.5, -1, 9, 1}, 2)) << "ends when told";
    EXPECT_EQ(std::vector<unsigned>(), visit({0, 1, 9, 2}, 100));
    EXPECT_EQ(std::vector<unsigned>(), visit({}, 100));
    EXPECT_EQ(10u, visit({-100, -100, 100, 100}, 100).size());
}

TEST_F(shapes, are_read_once_and_outlive_the_data)
{
    f_table.features.push_back({{}, 5, {ring}});
    f_table.missing_features = 1;
    open();
    shape_files const again(vx_shape_files_open(f_data.get()));
    EXPECT_EQ(1, f_table.walks);
    f_data.reset();
    EXPECT_EQ(0, f_table.opened);
    Tvx_shape_view view;
    ASSERT_TRUE(vx_shape_files_get(again.get(), 0, &view));
    EXPECT_EQ(std::vector<points>{ring}, parts_of(view));
    ASSERT_TRUE(vx_shape_files_get(again.get(), 1, &view)) << "counted but not given";
    EXPECT_EQ(c_shape_none, view.kind);
}
