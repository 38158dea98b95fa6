#include "support/memory_source.h"
#include "tests/platform/render/page.h"

#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_map_view.h"
#include "platform/render/vx_render_layer.h"

#include <gtest/gtest.h>

// Lines in styles of several layers: each layer is drawn over all of them before the next one.
namespace {
using namespace vx_test;
using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

constexpr int c_side = 100; ///< of the picture; a pixel is a unit of the map
constexpr double c_px_per_mm = 4;
constexpr Tvx_color c_casing = vx_clr_init_grey(0);
constexpr Tvx_color c_green = vx_clr_init_rgb(0, 128, 0);
constexpr Tvx_color c_blue = vx_clr_init_rgb(0, 0, 255);

struct stroke_layer
{
    double width_px;
    Tvx_color color;
};
using stroke_layers = std::vector<stroke_layer>;

stroke_layers const c_red_road{{10, c_casing}, {6, c_red}};
stroke_layers const c_green_road{{10, c_casing}, {6, c_green}};
stroke_layers const c_red_road_with_middle{{10, c_casing}, {6, c_red}, {2, c_blue}};
stroke_layers const c_green_road_with_middle{{10, c_casing}, {6, c_green}, {2, c_blue}};

void set_layers(void *pln_style, stroke_layers const &layers)
{
    void *const base = vx_pln_style_get_bpln_style_ptr(pln_style);
    vx_bpln_style_set_use_complex(base, true);
    void *const list = vx_cpx_style_get_style_lrs_ptr(vx_bpln_style_get_complex_style(base));
    for (stroke_layer const &of : layers) {
        void *const lr = vx_style_lrs_add_lr(list, "pln_line_slr");
        vx_pln_line_lr_set_width(lr, of.width_px / c_px_per_mm);
        vx_pln_line_lr_set_color(lr, of.color);
    }
}

/// A line from the left to the right and a later one from below to above, which cross in the middle.
struct crossing
{
    memory_table table;
    memory_driver driver{L"crossing:", table};
    owned_layer layer;
    vx::owned<void, &vx_bmp_dc_destroy> dc{vx_bmp_dc_create()};

    crossing()
    {
        table.geom_type = 3;
        table.fields = {{L"NAME", 1}};
        table.features = {{{cell(L"a")}, 3, {{{10, 50}, {90, 50}}}},
                          {{cell(L"b")}, 3, {{{50, 10}, {50, 90}}}}};
        layer.reset(vx_shp_lr2d_create(c_lr_key_shp_pln, L"crossing:"));
    }
    [[nodiscard]] void *mngr() const { return vx_shp_lr2d_get_stl_mngr_ptr(layer.get()); }
    [[nodiscard]] void *simple_style() const
    {
        return vx_stl_prm_get_pln_style_ptr(vx_stl_mngr_get_simple_sp_ptr(mngr()), false);
    }
    /// A row of its own for each of the lines.
    void *row_style(unsigned row) const
    {
        void *const scale = vx_stl_mngr_get_val_scale_ptr(mngr());
        if (vx_val_scale_get_size(scale) == 0) {
            vx_stl_mngr_set_mode(mngr(), c_stl_mngr_mode_value);
            vx_stl_mngr_set_val_prop_name_w(mngr(), L"NAME");
            vx_val_scale_set_size(scale, 2);
            vx_val_scale_set_text_w(scale, 0, L"a");
            vx_val_scale_set_text_w(scale, 1, L"b");
        }
        return vx_stl_prm_get_pln_style_ptr(
            vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale, row)), false);
    }
    bool draw(closure<bool()> cancelled = {})
    {
        vx_bmp_dc_set_nxy(dc.get(), c_side, c_side);
        vx_bmp_dc_clear(dc.get(), c_white);
        return vx_render_layer(layer.get(), {page::box(c_side), c_side, c_side, c_px_per_mm, c_px_per_mm},
                               dc.get(), cancelled);
    }
    /// Of the later line, where nothing crosses it.
    bool has_last_casing() { return at(54, 95) == c_casing; }
    [[nodiscard]] Tvx_color at(int x, int y) const { return vx_bmp_dc_get_pixel(dc.get(), x, y); }
};

/// Both roads have their casing, which ends where the fill of the other one goes on.
void expect_open_junction(crossing const &c, Tvx_color across, Tvx_color up)
{
    for (int const off : {-5, 4}) {
        EXPECT_EQ(c.at(50 + off, 49), across) << off;
        EXPECT_EQ(c.at(49, 50 + off), up) << off;
        EXPECT_EQ(c.at(50 + off, 50 + off), c_casing) << off;
        EXPECT_EQ(c.at(30, 50 + off), c_casing) << off;
        EXPECT_EQ(c.at(50 + off, 30), c_casing) << off;
    }
    EXPECT_EQ(c.at(40, 56), c_white);
}

TEST(line_levels, no_casing_crosses_a_fill)
{
    struct
    {
        char const *name;
        stroke_layers across;
        stroke_layers up; ///< none: both in one row
        Tvx_color seen_across;
        Tvx_color seen_up;
        Tvx_color fill_up; ///< within one level the later line lies above
    } const cases[] = {
        {"one row", c_red_road, {}, c_red, c_red, c_red},
        {"two rows", c_red_road, c_green_road, c_red, c_green, c_green},
        {"three levels in one row", c_red_road_with_middle, {}, c_blue, c_blue, c_red},
        {"three levels in two rows", c_red_road_with_middle, c_green_road_with_middle, c_blue, c_blue,
         c_green},
        {"three levels over two", c_red_road_with_middle, c_green_road, c_blue, c_green, c_green},
    };
    for (auto const &with : cases) {
        SCOPED_TRACE(with.name);
        crossing c;
        if (with.up.empty()) {
            set_layers(c.simple_style(), with.across);
        } else {
            set_layers(c.row_style(0), with.across);
            set_layers(c.row_style(1), with.up);
        }
        ASSERT_TRUE(c.draw());
        expect_open_junction(c, with.seen_across, with.seen_up);
        EXPECT_EQ(c.at(52, 52), with.fill_up);
    }
}

TEST(line_levels, the_casing_of_a_layer_is_a_level_of_its_own)
{
    crossing c;
    void *const base = vx_pln_style_get_bpln_style_ptr(c.simple_style());
    vx_bpln_style_set_use_complex(base, true);
    void *const road = vx_style_lrs_add_lr(
        vx_cpx_style_get_style_lrs_ptr(vx_bpln_style_get_complex_style(base)), "pln_cart_slr");
    vx_pln_cart_lr_set_color(road, c_red);
    vx_pln_cart_lr_set_width(road, 6 / c_px_per_mm);
    vx_pln_cart_lr_set_casing_width(road, 2 / c_px_per_mm);
    vx_pln_cart_lr_set_casing_color(road, c_casing);
    ASSERT_TRUE(c.draw());
    expect_open_junction(c, c_red, c_red);
}

TEST(line_levels, a_plain_line_lies_below_the_fills)
{
    crossing c;
    set_layers(c.row_style(0), c_red_road);
    void *const path = vx_pln_style_get_bpln_style_ptr(c.row_style(1));
    vx_bpln_style_set_width(path, 2 / c_px_per_mm);
    vx_bpln_style_set_color(path, c_green);
    ASSERT_TRUE(c.draw());
    EXPECT_EQ(c.at(50, 50), c_red);
    EXPECT_EQ(c.at(50, 30), c_green);
}

TEST(line_levels, a_mark_lies_above_the_fills)
{
    crossing c;
    c.table.features[0].parts = {{{10, 50}, {50, 50}}};
    void *const with_end = c.row_style(0);
    set_layers(with_end, c_red_road);
    void *const mark = vx_pln_style_get_bend_style_ptr(with_end);
    vx_bpnt_style_set_size(mark, 1);
    vx_bpnt_style_set_color(mark, c_blue);
    vx_pln_style_set_end_visible(with_end, true);
    set_layers(c.row_style(1), c_green_road);
    ASSERT_TRUE(c.draw());
    EXPECT_EQ(c.at(50, 50), c_blue);
    EXPECT_EQ(c.at(50, 53), c_green);
}

TEST(line_levels, drawing_can_be_ended_between_two_levels)
{
    // Many lines take their time; of the last one nothing but the casing is there when it is ended.
    crossing c;
    c.table.features[1].parts = {{{50, 2}, {50, 90}}};
    memory_feature const last = c.table.features[1];
    memory_feature tangle = c.table.features[0];
    for (int i = 0; i < 60; ++i)
        tangle.parts[0].push_back({i % 2 ? 40.0 : 5.0, 20.0 + i});
    c.table.features.assign(300, tangle);
    c.table.features.push_back(last);
    set_layers(c.simple_style(), c_red_road);
    EXPECT_FALSE(c.draw(make_closure<&crossing::has_last_casing>(&c)));
    EXPECT_EQ(c.at(54, 95), c_casing);
    EXPECT_EQ(c.at(50, 95), c_casing) << "the fill is still to come";
    EXPECT_TRUE(c.draw());
    EXPECT_EQ(c.at(50, 95), c_red);
}
} // namespace
