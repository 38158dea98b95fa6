#include "patterned.h"
#include "support/memory_source.h"

#include "platform/base/owned.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_shape_files.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_map_view.h"
#include "platform/render/vx_render_layer.h"
#include "platform/render/vx_scale_rows.h"
#include "platform/styles/vxk_styles.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <string>
#include <vector>

namespace {
using namespace vx_test;

constexpr Tvx_color c_white = vx_clr_init_rgb(255, 255, 255);
constexpr Tvx_color c_red = vx_clr_init_rgb(255, 0, 0);
constexpr Tvx_color c_green = vx_clr_init_rgb(0, 128, 0);
constexpr Tvx_color c_blue = vx_clr_init_rgb(0, 0, 255);
constexpr Tvx_color c_grey = vx_clr_init_grey(90);
constexpr Tvx_color c_black = vx_clr_init_grey(0);

/// Ten squares of 10 units in a row, square i from 10 i to 10 i + 10, with a name, a number and a mark of
/// nothing.
struct squares
{
    memory_table table;
    memory_driver driver{L"squares:", table};
    owned_layer layer;
    vx::owned<void, &vx_bmp_dc_destroy> dc{vx_bmp_dc_create()};

    squares()
    {
        table.geom_type = 5;
        table.fields = {{L"NAME", 1}, {L"VALUE", 2}};
        for (int i = 0; i < 10; ++i) {
            double const x = 10.0 * i;
            memory_feature f;
            f.geom_type = 5;
            f.parts = {{{x, 0}, {x, 10}, {x + 10, 10}, {x + 10, 0}, {x, 0}}};
            f.cells = {cell(std::wstring(1, static_cast<wchar_t>(L'a' + i))), cell(static_cast<double>(i))};
            table.features.push_back(f);
        }
        table.features[9].cells = {cell(), cell()};
        layer.reset(vx_shp_lr2d_create(c_lr_key_shp_pgn, L"squares:"));
        void *simple = vx_stl_mngr_get_simple_sp_ptr(mngr());
        plain(simple, c_grey);
    }
    [[nodiscard]] void *mngr() const { return vx_shp_pgn_lr2d_get_stl_mngr_ptr(layer.get()); }

    /// A fill of the colour without an outline.
    static void plain(void *stl_prm, Tvx_color color)
    {
        for (bool const sel : {false, true})
            vx_pgn_style_set_pln_visible(vx_stl_prm_get_pgn_style_ptr(stl_prm, sel), false);
        vx_stl_prm_set_color(stl_prm, false, color);
        vx_stl_prm_set_color(stl_prm, true, c_black);
    }
    static Tvx_map_view view()
    {
        Tvx_map_view v;
        v.world.add(0, 0);
        v.world.add(100, 10);
        v.width = 200;
        v.height = 20;
        return v;
    }
    void start()
    {
        vx_bmp_dc_set_nxy(dc.get(), 200, 20);
        vx_bmp_dc_clear(dc.get(), c_white);
    }
    /// Colour in the middle of square i after drawing.
    [[nodiscard]] Tvx_color at(int i) const { return vx_bmp_dc_get_pixel(dc.get(), 20 * i + 10, 10); }
    void expect(std::initializer_list<Tvx_color> colors)
    {
        start();
        ASSERT_TRUE(vx_render_layer(layer.get(), view(), dc.get()));
        int i = 0;
        for (Tvx_color const c : colors) {
            EXPECT_EQ(at(i), c) << "square " << i;
            ++i;
        }
    }
};

TEST(render_layer, simple_style_covers_the_shapes_to_the_pixel)
{
    squares s;
    s.table.features[4].parts = {{{40, 0}, {40, 5}, {50, 5}, {50, 0}, {40, 0}}};
    s.expect({c_grey, c_grey, c_grey, c_grey, c_grey, c_grey, c_grey, c_grey, c_grey, c_grey});
    for (int y = 0; y < 20; ++y)
        EXPECT_EQ(vx_bmp_dc_get_pixel(s.dc.get(), 90, y), y < 10 ? c_white : c_grey)
            << "north is up, row " << y;
    vx_lr2d_set_visible(s.layer.get(), false);
    s.start();
    EXPECT_TRUE(vx_render_layer(s.layer.get(), squares::view(), s.dc.get()));
    EXPECT_EQ(s.at(0), c_white);
}

TEST(render_layer, value_scale_with_other_row_and_hidden_entries)
{
    squares s;
    void *scale = vx_stl_mngr_get_val_scale_ptr(s.mngr());
    vx_stl_mngr_set_mode(s.mngr(), c_stl_mngr_mode_value);
    vx_val_scale_set_size(scale, 3);
    wchar_t const *const texts[] = {L"b", L"c", L"a"};
    Tvx_color const colors[] = {c_red, c_green, c_blue};
    for (unsigned i = 0; i < 3; ++i) {
        vx_val_scale_set_text_w(scale, i, texts[i]);
        squares::plain(vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, i)), colors[i]);
    }
    squares::plain(vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_other_prm_ptr(scale)), c_grey);
    s.expect({c_grey, c_grey, c_grey, c_grey}); // no property yet
    vx_stl_mngr_set_val_prop_name_w(s.mngr(), L"NAME");
    s.expect({c_blue, c_red, c_green, c_grey, c_grey, c_grey, c_grey, c_grey, c_grey, c_grey});
    vx_scale_prm_set_visible(vx_val_scale_get_scale_prm_ptr(scale, 0), false);
    vx_scale_prm_set_visible(vx_val_scale_get_other_prm_ptr(scale), false);
    s.expect({c_blue, c_white, c_green, c_white, c_white, c_white, c_white, c_white, c_white, c_white});
    // Numbers are matched as text.
    vx_stl_mngr_set_val_prop_name_w(s.mngr(), L"VALUE");
    vx_val_scale_set_text_w(scale, 1, L"7");
    s.expect({c_white, c_white, c_white, c_white, c_white, c_white, c_white, c_green, c_white, c_white});
}

TEST(render_layer, range_scale_with_min_max_and_other_rows)
{
    squares s;
    void *scale = vx_stl_mngr_get_rng_scale_ptr(s.mngr());
    vx_stl_mngr_set_mode(s.mngr(), c_stl_mngr_mode_range);
    vx_stl_mngr_set_rng_prop_name_w(s.mngr(), L"VALUE");
    vx_rng_scale_set_size(scale, 2);
    vx_rng_scale_set_min_value(scale, 1);
    vx_rng_scale_set_max_value(scale, 7);
    double const bounds[] = {1, 4, 7};
    for (unsigned i = 0; i < 2; ++i) {
        vx_rng_scale_set_min(scale, i, bounds[i]);
        vx_rng_scale_set_max(scale, i, bounds[i + 1]);
    }
    void *const prms[] = {vx_rng_scale_get_min_prm_ptr(scale), vx_rng_scale_get_scale_prm_ptr(scale, 0),
                          vx_rng_scale_get_scale_prm_ptr(scale, 1), vx_rng_scale_get_max_prm_ptr(scale),
                          vx_rng_scale_get_other_prm_ptr(scale)};
    Tvx_color const colors[] = {c_blue, c_red, c_green, c_black, c_grey};
    for (int i = 0; i < 5; ++i)
        squares::plain(vx_scale_prm_get_stl_prm_ptr(prms[i]), colors[i]);
    s.expect({c_blue, c_blue, c_red, c_red, c_red, c_green, c_green, c_green, c_black, c_grey});
    vx_scale_prm_set_visible(prms[4], false);
    vx_scale_prm_set_visible(prms[0], false);
    s.expect({c_white, c_white, c_red, c_red, c_red, c_green, c_green, c_green, c_black, c_white});
}

TEST(render_layer, rule_scale_takes_the_first_rule_that_matches)
{
    squares s;
    void *scale = vx_stl_mngr_get_rule_scale_ptr(s.mngr());
    vx_stl_mngr_set_mode(s.mngr(), c_stl_mngr_mode_rule);
    wchar_t const *const filters[] = {L"no filter \"", L"VALUE GREATER 4 AND VALUE LESS EQUAL 6",
                                      L"VALUE GREATER EQUAL 6 OR NAME EQUAL b", L"VALUE NULL",
                                      L"LOST EQUAL 1"};
    Tvx_color const colors[] = {c_black, c_red, c_green, c_blue, c_black};
    for (unsigned i = 0; i < 5; ++i) {
        vx_val_scale_set_text_w(scale, vx_val_scale_add(scale) - 1, filters[i]);
        squares::plain(vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, i)), colors[i]);
    }
    void *other = vx_val_scale_get_other_prm_ptr(scale);
    squares::plain(vx_scale_prm_get_stl_prm_ptr(other), c_grey);
    s.expect({c_grey, c_green, c_grey, c_grey, c_grey, c_red, c_red, c_green, c_green, c_blue});
    vx_scale_prm_set_visible(vx_val_scale_get_scale_prm_ptr(scale, 1), false);
    vx_scale_prm_set_visible(other, false);
    s.expect({c_white, c_green, c_white, c_white, c_white, c_white, c_white, c_green, c_green, c_blue});
}

TEST(scale_rows, every_object_counts_once_and_as_it_is_drawn)
{
    squares s;
    Ivx_attr_data *data = vx_shp_lr2d_get_attr_data_ptr(s.layer.get());
    void *mngr = s.mngr();
    auto const counts = [&](unsigned mode) {
        vx_stl_mngr_set_mode(mngr, mode);
        std::vector<unsigned> n(vx_scale_rows_get_count(mngr));
        EXPECT_TRUE(vx_scale_rows_count_objects(mngr, data, n.data(), static_cast<unsigned>(n.size())));
        return n;
    };
    using list = std::vector<unsigned>;
    EXPECT_EQ(counts(c_stl_mngr_mode_simple), (list{10}));
    vx_stl_mngr_set_val_prop_name_w(mngr, L"name");
    void *values = vx_stl_mngr_get_val_scale_ptr(mngr);
    for (wchar_t const *text : {L"c", L"c", L"", L"C"})
        vx_val_scale_set_text_w(values, vx_val_scale_add(values) - 1, text);
    EXPECT_EQ(counts(c_stl_mngr_mode_value), (list{1, 0, 0, 0, 9})) << "no value is no text";

    vx_stl_mngr_set_rng_prop_name_w(mngr, L"VALUE");
    void *ranges = vx_stl_mngr_get_rng_scale_ptr(mngr);
    void *rules = vx_stl_mngr_get_rule_scale_ptr(mngr);
    vx_rng_scale_set_size(ranges, 2);
    vx_rng_scale_set_min_value(ranges, 2);
    vx_rng_scale_set_max_value(ranges, 7);
    double const bounds[] = {2, 4, 7};
    wchar_t const *const filters[] = {L"VALUE LESS EQUAL 2", L"VALUE GREATER 2 AND VALUE LESS EQUAL 4",
                                      L"VALUE GREATER 4 AND VALUE LESS EQUAL 7", L"VALUE GREATER 7"};
    for (unsigned i = 0; i < 2; ++i) {
        vx_rng_scale_set_min(ranges, i, bounds[i]);
        vx_rng_scale_set_max(ranges, i, bounds[i + 1]);
    }
    for (wchar_t const *filter : filters)
        vx_val_scale_set_text_w(rules, vx_val_scale_add(rules) - 1, filter);
    EXPECT_EQ(counts(c_stl_mngr_mode_range), (list{3, 2, 3, 1, 1}));
    EXPECT_EQ(counts(c_stl_mngr_mode_rule), counts(c_stl_mngr_mode_range)) << "rules of the same bounds";
    vx_stl_mngr_set_rng_prop_name_w(mngr, L"LOST");
    EXPECT_EQ(counts(c_stl_mngr_mode_range), (list{0, 0, 0, 0, 10}));

    unsigned one[] = {77, 77};
    EXPECT_TRUE(vx_scale_rows_count_objects(mngr, data, one, 1));
    EXPECT_EQ(one[0], 0u);
    EXPECT_FALSE(vx_scale_rows_count_objects(mngr, nullptr, one, 2));
    EXPECT_EQ(one[1], 77u);
}

TEST(render_layer, each_manager_of_the_list_draws_in_turn)
{
    squares s;
    void *list = vx_shp_lr2d_get_style_mngr_list_ptr(s.layer.get());
    void *second = vx_stl_mngr_list_add(list);
    vx_stl_mngr_set_mode(second, c_stl_mngr_mode_value);
    vx_stl_mngr_set_val_prop_name_w(second, L"NAME");
    void *scale = vx_stl_mngr_get_val_scale_ptr(second);
    vx_scale_prm_set_visible(vx_val_scale_get_other_prm_ptr(scale), false);
    vx_val_scale_set_text_w(scale, vx_val_scale_add(scale) - 1, L"b");
    squares::plain(vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, 0)), c_red);
    s.expect({c_grey, c_red, c_grey});
}

TEST(scale_rows, texts_that_repeat_and_texts_that_do_not_are_found_alike)
{
    for (int const different : {7, 3000}) {
        memory_table table;
        memory_driver driver(L"names:", table);
        table.geom_type = 1;
        table.fields = {{L"NAME", 1}};
        for (int i = 0; i < 6000; ++i)
            table.features.push_back(
                {{cell(L"a name of more than sixteen " + std::to_wstring(i % different))}, 1, {{{0, 0}}}});
        table.features[5000].cells = {cell()};
        owned_layer const layer(vx_shp_lr2d_create(c_lr_key_shp_pnt, L"names:"));
        void *mngr = vx_shp_pnt_lr2d_get_stl_mngr_ptr(layer.get());
        void *scale = vx_stl_mngr_get_val_scale_ptr(mngr);
        vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_value);
        vx_stl_mngr_set_val_prop_name_w(mngr, L"NAME");
        auto const size = static_cast<unsigned>(different) - 1; // the last text has no entry
        vx_val_scale_set_size(scale, size);
        for (unsigned i = 0; i < size; ++i)
            vx_val_scale_set_text_w(scale, i, (L"a name of more than sixteen " + std::to_wstring(i)).c_str());
        std::vector<unsigned> counts(size + 1);
        ASSERT_TRUE(vx_scale_rows_count_objects(mngr, vx_shp_lr2d_get_attr_data_ptr(layer.get()),
                                                counts.data(), size + 1));
        for (unsigned i = 0; i <= size; ++i) {
            auto expected = static_cast<unsigned>((6000 - static_cast<int>(i) + different - 1) / different);
            if (i == 5000u % static_cast<unsigned>(different))
                --expected;
            if (i == size)
                ++expected; // the record without a value
            ASSERT_EQ(counts[i], expected) << different << " " << i;
        }
    }
}

struct chosen
{
    std::set<unsigned long long> ids;
    int asked = 0;
    bool has(unsigned long long id) { return ids.contains(id); }
    bool stop()
    {
        ++asked;
        return true;
    }
};

TEST(render_layer, selection_and_cancelling)
{
    squares s;
    chosen c{{2, 5}};
    s.start();
    EXPECT_TRUE(vx_render_layer_selection(s.layer.get(), squares::view(), s.dc.get(),
                                          make_closure<&chosen::has>(&c)));
    EXPECT_EQ(s.at(2), c_black);
    EXPECT_EQ(s.at(5), c_black);
    EXPECT_EQ(s.at(3), c_white);
    EXPECT_TRUE(vx_render_layer_selection(s.layer.get(), squares::view(), s.dc.get(), {}));
    for (int i = 0; i < 5000; ++i)
        s.table.features.push_back(s.table.features[0]);
    owned_layer const big(vx_shp_lr2d_create(c_lr_key_shp_pgn, L"squares:"));
    EXPECT_FALSE(vx_render_layer(big.get(), squares::view(), s.dc.get(), make_closure<&chosen::stop>(&c)));
    EXPECT_EQ(c.asked, 1);
}

void table_of_small_areas(memory_table &table, int side)
{
    table.features.clear();
    double const step = side / 10.0;
    for (int i = 0; i < 100; ++i) {
        double const x = i % 10 * step;
        double const y = i / 10 * step;
        table.features.push_back(
            {{}, 5, {{{x, y}, {x, y + step}, {x + step, y + step}, {x + step, y}, {x, y}}}});
    }
}

struct questions
{
    int asked = 0;
    int stop_at = 0; ///< 0: never
    bool ask() { return ++asked == stop_at; }
};

TEST(render_layer, one_area_with_a_pattern_can_be_cancelled)
{
    for (bool const hatched : {true, false}) {
        patterned page(1500);
        if (hatched) {
            void *htch = page.add_layer("pgn_htch_slr");
            vx_pgn_htch_lr_set_delta(htch, 0.6);
            void *dashes = vx_style_lrs_add_lr(
                vx_cpx_style_get_style_lrs_ptr(vx_pgn_htch_lr_get_cpx_pln_style_ptr(htch)), "pln_tplt_slr");
            vx_pln_tplt_lr_set_template(dashes, "10");
            vx_pln_tplt_lr_set_dash(dashes, 0.5);
            vx_pln_tplt_lr_set_gap(dashes, 0.5);
        } else {
            void *spot = page.add_layer("pgn_spot_slr");
            vx_pgn_spot_lr_set_dx(spot, 0.5);
            vx_pgn_spot_lr_set_dy(spot, 0.5);
            vx_pgn_spot_lr_set_random_angle(spot, true);
        }
        questions q{0, 3};
        EXPECT_FALSE(
            vx_render_layer(page.layer.get(), page.view, page.dc.get(), make_closure<&questions::ask>(&q)));
        EXPECT_EQ(q.asked, 3) << "at the start, and twice while the one area was drawn";
    }
}

/// A zigzag over the page: half of every pixel lies in an odd number of turns.
std::vector<Tvx_pnt_d2> zigzag(int points, double side)
{
    std::vector<Tvx_pnt_d2> line;
    for (int i = 0; i < points; ++i)
        line.push_back({side * i / points, i % 2 ? side : 0});
    line.push_back({side, -1});
    line.push_back({0, -1});
    line.push_back(line.front());
    return line;
}

TEST(render_layer, one_tangled_area_is_drawn_soon_and_can_be_cancelled)
{
    constexpr int c_side = 600;
    for (bool const hatched : {false, true}) {
        patterned page(c_side);
        page.table.features = {{{}, 5, {zigzag(20'000, c_side)}}};
        if (hatched)
            vx_pgn_htch_lr_set_delta(page.add_layer("pgn_htch_slr"), 0.6);
        else
            vx_pgn_fill_lr_set_color(page.add_layer("pgn_fill_slr"), c_black);
        questions q{0, 3};
        EXPECT_FALSE(
            vx_render_layer(page.layer.get(), page.view, page.dc.get(), make_closure<&questions::ask>(&q)));
        EXPECT_EQ(q.asked, 3);
        questions all;
        EXPECT_TRUE(
            vx_render_layer(page.layer.get(), page.view, page.dc.get(), make_closure<&questions::ask>(&all)));
        EXPECT_LT(all.asked, 300) << "some 12 milliseconds each";
    }
}

TEST(render_layer, one_object_with_many_symbols_can_be_cancelled)
{
    constexpr int c_side = 500;
    constexpr int c_count = 300'000;
    constexpr int c_questions = 5;
    std::vector<std::vector<Tvx_pnt_d2>> line(1);
    for (int i = 0; i < c_count; ++i)
        line[0].push_back({(i * 37 % c_side) + 0.5, (i * 113 % c_side) + 0.5});
    for (bool const is_line : {true, false})
        for (double const size : {2.0, 20.0}) { // with a mask, and without
            memory_table table;
            memory_driver const driver(L"symbols:", table);
            table.geom_type = is_line ? 3 : 8;
            table.features = {{{}, table.geom_type, line}};
            owned_layer const layer(
                vx_shp_lr2d_create(is_line ? c_lr_key_shp_pln : c_lr_key_shp_pnt, L"symbols:"));
            void *base = nullptr;
            if (is_line) {
                void *const style = vx_stl_prm_get_pln_style_ptr(
                    vx_stl_mngr_get_simple_sp_ptr(vx_shp_pln_lr2d_get_stl_mngr_ptr(layer.get())), false);
                vx_pln_style_set_pln_visible(style, false);
                vx_pln_style_set_pnt_visible(style, true);
                base = vx_pln_style_get_bpnt_style_ptr(style);
            } else {
                base = vx_pnt_style_get_bpnt_style_ptr(vx_stl_prm_get_pnt_style_ptr(
                    vx_stl_mngr_get_simple_sp_ptr(vx_shp_pnt_lr2d_get_stl_mngr_ptr(layer.get())), false));
            }
            vx_bpnt_style_set_size(base, size);
            vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
            vx_bmp_dc_set_nxy(dc.get(), c_side, c_side);
            vx_bmp_dc_clear(dc.get(), c_white);
            Tvx_map_view view;
            view.world.add(0, 0);
            view.world.add(c_side, c_side);
            view.width = view.height = c_side;
            vx::owned<Ivx_shape_files, &vx_shape_files_close> const shapes(
                vx_shape_files_open(vx_shp_lr2d_get_attr_data_ptr(layer.get())));
            ASSERT_TRUE(shapes) << "all is read";
            questions q{0, c_questions};
            EXPECT_FALSE(vx_render_layer(layer.get(), view, dc.get(), make_closure<&questions::ask>(&q)));
            EXPECT_EQ(q.asked, c_questions) << is_line << ' ' << size;
        }
}

TEST(render_layer, the_work_for_a_pattern_is_bound_by_what_can_be_seen)
{
    // Each of these would draw for minutes if all elements were drawn that have a place. Questions come every
    // 12 milliseconds.
    struct
    {
        char const *what;
        double size;   ///< of the symbol, millimetres
        double offset; ///< from its place
        double step;
        bool turned;
    } const cases[] = {
        {"a giant symbol", 1e6, 0, 0.5, false},
        {"a giant symbol far off", 2e4, 2e4, 0.5, false},
        {"a small symbol far off", 1, 1e6, 0.5, false},
        {"a small symbol far off, turned", 1, 1e6, 0.5, true},
        {"a giant symbol, turned", 1e300, 10, 1e-300, true},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(c.what);
        patterned page(400);
        // A hundred areas.
        table_of_small_areas(page.table, 400);
        void *spot = page.add_layer("pgn_spot_slr");
        vx_pgn_spot_lr_set_dx(spot, c.step);
        vx_pgn_spot_lr_set_dy(spot, c.step);
        vx_pgn_spot_lr_set_random_angle(spot, c.turned);
        vx_pgn_spot_lr_set_use_cpx_pnt(spot, true);
        void *figure = vx_style_lrs_add_lr(
            vx_cpx_style_get_style_lrs_ptr(vx_pgn_spot_lr_get_cpx_pnt_style_ptr(spot)), "pnt_figr_slr");
        vx_pnt_figr_lr_set_size_x(figure, c.size);
        vx_pnt_figr_lr_set_size_y(figure, c.size);
        vx_pnt_figr_lr_set_dx(figure, c.offset);
        questions q;
        EXPECT_TRUE(
            vx_render_layer(page.layer.get(), page.view, page.dc.get(), make_closure<&questions::ask>(&q)));
        EXPECT_LT(q.asked, 1000);
    }
}

TEST(render_layer, what_cannot_be_drawn_says_so)
{
    squares s;
    s.start();
    EXPECT_FALSE(vx_render_layer(nullptr, squares::view(), s.dc.get()));
    EXPECT_FALSE(vx_render_layer(s.layer.get(), squares::view(), nullptr));
    EXPECT_FALSE(vx_render_layer(s.layer.get(), {}, s.dc.get()));
    owned_layer const lost(vx_shp_lr2d_create(c_lr_key_shp_pgn, L"/no/such/file.shp"));
    EXPECT_FALSE(vx_render_layer(lost.get(), squares::view(), s.dc.get()));
    owned_layer const raster(vx_lr2d_create(c_lr_key_rtr));
    EXPECT_FALSE(vx_render_layer(raster.get(), squares::view(), s.dc.get()));
    owned_layer const texts(vx_lr2d_create(c_lr_key_tld));
    EXPECT_TRUE(vx_render_layer(texts.get(), squares::view(), s.dc.get())) << "a kind that is not drawn";
    EXPECT_EQ(s.at(0), c_white);
}

TEST(render_layer, symbols_turn_with_a_property)
{
    memory_table table;
    memory_driver driver(L"points:", table);
    table.geom_type = 1;
    table.fields = {{L"AZIMUTH", 2}};
    for (int i = 0; i < 4; ++i)
        table.features.push_back({{cell(90.0 * i)}, 1, {{{10.0 + 20 * i, 10}}}});
    owned_layer const layer(vx_shp_lr2d_create(c_lr_key_shp_pnt, L"points:"));
    void *mngr = vx_shp_pnt_lr2d_get_stl_mngr_ptr(layer.get());
    void *pnt = vx_stl_prm_get_pnt_style_ptr(vx_stl_mngr_get_simple_sp_ptr(mngr), false);
    void *bpnt = vx_pnt_style_get_bpnt_style_ptr(pnt);
    vx_bpnt_style_set_figure(bpnt, 19); // an arrow up
    vx_bpnt_style_set_size(bpnt, 8);
    vx_stl_mngr_set_rotate_flag(mngr, true);
    vx_stl_mngr_set_rotate_prop_name(mngr, "AZIMUTH");
    vx_stl_mngr_set_rotate_start(mngr, 1); // north
    vx_stl_mngr_set_rotate_dir(mngr, 1);   // clockwise
    Tvx_map_view view;
    view.world.add(0, 0);
    view.world.add(80, 20);
    view.width = 160;
    view.height = 40;
    view.mm2px_x = view.mm2px_y = 4;
    vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
    vx_bmp_dc_set_nxy(dc.get(), 160, 40);
    vx_bmp_dc_clear(dc.get(), c_white);
    ASSERT_TRUE(vx_render_layer(layer.get(), view, dc.get()));
    // The head is broad 10 pixels from the anchor on the side to which the arrow points, the shaft is not.
    auto const broad = [&](int i, int dx, int dy) {
        return vx_bmp_dc_get_pixel(dc.get(), 20 + 40 * i + dx, 20 + dy) != c_white;
    };
    EXPECT_TRUE(broad(0, -6, -4) && broad(0, 6, -4) && !broad(0, -6, 6)) << "0 is north";
    EXPECT_TRUE(broad(1, 4, -6) && broad(1, 4, 6) && !broad(1, -6, 6)) << "90 is east";
    EXPECT_TRUE(broad(2, -6, 4) && broad(2, 6, 4) && !broad(2, -6, -6)) << "180 is south";
    EXPECT_TRUE(broad(3, -4, -6) && broad(3, -4, 6) && !broad(3, 6, 6)) << "270 is west";
}

TEST(map_view, fits_boxes_of_every_shape)
{
    double const inf = std::numeric_limits<double>::infinity();
    struct
    {
        double x0, y0, x1, y1;
    } const boxes[] = {{0, 0, 100, 10}, {0, 0, 10, 100},   {5, 5, 5, 5},         {1e9, 1e9, 1e9, 1e9},
                       {5, 0, 5, 10},   {-inf, 0, inf, 1}, {1e-15, 0, 2e-15, 0}, {0, 0, 0, 0}};
    for (auto const &b : boxes) {
        Tvx_box_d2 box;
        box.add(b.x0, b.y0);
        box.add(b.x1, b.y1);
        Tvx_map_view const v = vx_map_view_fit(box, 400, 300, 10);
        ASSERT_TRUE(v.is_valid());
        EXPECT_NEAR(v.world.width() / v.world.height(), 4.0 / 3, 1e-5);
        if (std::isinf(b.x0))
            continue;
        for (double const x : {b.x0, b.x1}) {
            EXPECT_GE(v.world_to_px_x(x), 9.9);
            EXPECT_LE(v.world_to_px_x(x), 390.1);
            EXPECT_NEAR(v.px_to_world_x(v.world_to_px_x(x)), x, v.world.width() / 400 / 10);
        }
        for (double const y : {b.y0, b.y1}) {
            EXPECT_GE(v.world_to_px_y(y), 9.9);
            EXPECT_LE(v.world_to_px_y(y), 290.1);
        }
    }
    EXPECT_TRUE(vx_map_view_fit({}, 10, 10).is_valid());
    EXPECT_FALSE(vx_map_view_fit({}, 0, 10).is_valid());
}
} // namespace
