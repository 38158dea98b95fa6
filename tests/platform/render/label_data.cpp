#include "label_page.h"

#include "platform/basic/vx_fnt_type.h"
#include "platform/layers/vx_lr.h"
#include "platform/styles/vxk_styles.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

// Each datum of a text class and what it does on the map, on a few objects whose places are plain.
namespace {
using namespace vx_test;
constexpr Tvx_color c_black = vx_clr_init_rgb(0, 0, 0);
constexpr Tvx_color c_red = vx_clr_init_rgb(255, 0, 0);

/// Objects with the fields NAME and NUMBER on a page of 400 units, a pixel each, 4 pixels in a millimetre.
struct objects
{
    memory_table table;
    std::wstring source = L"labels" + std::to_wstring(++count) + L":";
    memory_driver driver{source, table};
    label_page page;
    void *label = nullptr;
    static inline int count = 0;

    objects(int geom_type, std::vector<std::vector<std::vector<Tvx_pnt_d2>>> const &shapes,
            std::vector<std::wstring> const &names)
    {
        table.geom_type = geom_type;
        table.fields = {{L"NAME", 1}, {L"NUMBER", 2}};
        for (std::size_t i = 0; i < shapes.size(); ++i)
            table.features.push_back({{cell(names[i]), cell(double(i + 1))}, geom_type, shapes[i]});
        char const *const key = geom_type == 1 || geom_type == 8 ? c_lr_key_shp_pnt
                                : geom_type == 3                 ? c_lr_key_shp_pln
                                                                 : c_lr_key_shp_pgn;
        label = page.add(vx_shp_lr2d_create(key, source.c_str()), L"NAME");
        page.show({0, 0, 400, 400}, 400, 400);
    }
    Ivx_layer *layer() { return page.layers.front().get(); }
    drawn_label only()
    {
        auto const labels = page.drawn();
        EXPECT_EQ(labels.size(), 1u);
        return labels.empty() ? drawn_label{} : labels.front();
    }
    int ink(Tvx_color color) { return count_pixels(page.picture().get(), color); }
};

/// A point in the middle, in pixels and units (200, 200).
struct one_point : objects
{
    explicit one_point(std::wstring const &name = L"Oslo") : objects(1, {{{{200, 200}}}}, {name}) {}
};

double width(drawn_label const &l)
{
    return l.view.box.max_x - l.view.box.min_x;
}
double height(drawn_label const &l)
{
    return l.view.box.max_y - l.view.box.min_y;
}
double middle_x(drawn_label const &l)
{
    return (l.view.box.min_x + l.view.box.max_x) / 2;
}
double middle_y(drawn_label const &l)
{
    return (l.view.box.min_y + l.view.box.max_y) / 2;
}
} // namespace

TEST(label_datum, property_size_and_font)
{
    one_point o;
    drawn_label const plain = o.only();
    EXPECT_EQ(plain.text, L"Oslo");
    vx_textlr_info_set_property(o.label, 0, L"number");
    EXPECT_EQ(o.only().text, L"1") << "the name counts, and not its case";
    vx_textlr_info_set_property(o.label, 0, L"gone");
    EXPECT_TRUE(o.page.drawn().empty()) << "a field that is gone";
    vx_textlr_info_set_property(o.label, 0, L"NAME");
    vx_textlr_info_set_size(o.label, 6);
    EXPECT_NEAR(width(o.only()) / width(plain), 2, 0.1);
    EXPECT_NEAR(height(o.only()) / height(plain), 2, 0.1);
    for (double const size : {0.0, 1e6}) {
        vx_textlr_info_set_size(o.label, size);
        EXPECT_TRUE(o.page.drawn().empty()) << size;
    }
    vx_textlr_info_set_size(o.label, 3);
    vx_textlr_info_get_font_ptr(o.label)->bold = true;
    EXPECT_GT(width(o.only()), width(plain));
    vx_textlr_info_get_font_ptr(o.label)->set_wname(L"a font that nobody has");
    EXPECT_GT(width(o.only()), 10) << "another one stands in";
}

TEST(label_datum, encoding)
{
    one_point wrong(L"M\u00C3\u00BCnchen");
    EXPECT_EQ(wrong.only().text, L"M\u00C3\u00BCnchen");
    vx_textlr_info_set_encoding(wrong.label, c_textlr_encoding_unicode);
    EXPECT_EQ(wrong.only().text, L"M\u00FCnchen");
}

TEST(label_datum, color_and_effects)
{
    one_point o;
    vx_textlr_info_set_size(o.label, 10);
    EXPECT_EQ(o.ink(c_red), 0);
    vx_textlr_info_set_color(o.label, c_red);
    EXPECT_GT(o.ink(c_red), 10);
    vx_textlr_info_set_color(o.label, c_black);
    vx_textlr_info_set_back(o.label, true, c_red);
    drawn_label const backed = o.only();
    EXPECT_GT(o.ink(c_red), width(backed) * height(backed) / 2);
    vx_textlr_info_set_back(o.label, false, c_red);
    double const before = width(o.only());
    for (double const angle : {0.0, 30.0}) {
        vx_textlr_info_set_angle(o.label, angle);
        vx_textlr_info_set_outline(o.label, true, c_red, 0.5);
        int const rim = o.ink(c_red);
        EXPECT_GT(rim, 60) << angle;
        vx_textlr_info_set_outline(o.label, true, c_red, 1);
        EXPECT_GT(o.ink(c_red), rim);
        vx_textlr_info_set_outline(o.label, false, c_red, 1);
        EXPECT_EQ(o.ink(c_red), 0);
        vx_textlr_info_set_shadow(o.label, true, c_red, 1, 2, 2);
        int const cast = o.ink(c_red);
        EXPECT_GT(cast, 10);
        vx_textlr_info_set_outline(o.label, true, c_black, 0.1);
        EXPECT_GT(o.ink(c_red), 2 * cast) << "with an outline the shadow has a rim";
        vx_textlr_info_set_outline(o.label, false, c_red, 1);
        vx_textlr_info_set_shadow(o.label, false, c_red, 1, 2, 2);
    }
    vx_textlr_info_set_angle(o.label, 0);
    vx_textlr_info_set_outline(o.label, true, c_red, 2);
    EXPECT_NEAR(width(o.only()), before + 16, 0.5) << "2 mm on both sides are taken up too";
}

TEST(label_datum, position_delta_and_angle)
{
    one_point o;
    for (int x = -1; x <= 1; ++x)
        for (int y = -1; y <= 1; ++y) {
            SCOPED_TRACE(std::to_string(x) + " " + std::to_string(y));
            vx_textlr_info_set_text_pos_x(o.label, static_cast<signed char>(x));
            vx_textlr_info_set_text_pos_y(o.label, static_cast<signed char>(y));
            drawn_label const l = o.only();
            double const right = middle_x(l) - 200;
            double const up = 200 - middle_y(l);
            EXPECT_EQ(x, right > width(l) / 2 - 1 ? 1 : right < 1 - width(l) / 2 ? -1 : 0);
            EXPECT_EQ(y, up > height(l) / 2 - 1 ? 1 : up < 1 - height(l) / 2 ? -1 : 0);
            vx_textlr_info_set_delta_x(o.label, 5);
            vx_textlr_info_set_delta_y(o.label, -2.5);
            drawn_label const moved = o.only();
            EXPECT_NEAR(middle_x(moved) - middle_x(l), 20, 1e-6);
            EXPECT_NEAR(middle_y(moved) - middle_y(l), 10, 1e-6) << "up is up";
            vx_textlr_info_set_delta_x(o.label, 0);
            vx_textlr_info_set_delta_y(o.label, 0);
        }
    vx_textlr_info_set_text_pos_x(o.label, 1);
    vx_textlr_info_set_text_pos_y(o.label, 0);
    drawn_label const level = o.only();
    vx_textlr_info_set_angle(o.label, 90);
    drawn_label const turned = o.only();
    EXPECT_NEAR(width(turned), height(level), 1e-6);
    EXPECT_LT(turned.view.box.max_y, 200.0) << "counter-clockwise";
    vx_textlr_info_set_angle(o.label, 0);
    // One that the edge would cut is not drawn.
    vx_textlr_info_set_delta_x(o.label, 45);
    EXPECT_TRUE(o.page.drawn().empty());
}

TEST(label_datum, priority_overlap_and_what_does_not_overlap)
{
    objects o(1, {{{{200, 200}}}, {{{205, 203}}}}, {L"first", L"second"});
    auto const seen = o.page.drawn();
    ASSERT_EQ(seen.size(), 1u);
    vx_textlr_info_set_place_overlap(o.label, true);
    EXPECT_EQ(o.page.drawn().size(), 2u);
    vx_textlr_info_set_place_overlap(o.label, false);
    // Another class writes the other field at the same places, and goes first or not.
    Ivx_layer *const text = vx_shp_lr2d_get_text_layer_ptr(o.layer());
    vx_dtld_lr2d_add_text_class(text, nullptr);
    void *const other = vx_dtld_lr2d_get_text_class(text);
    vx_textlr_info_set_property(other, 1, L"NUMBER");
    for (int const first : {0, 9}) {
        vx_textlr_info_set_priority(o.label, first);
        vx_textlr_info_set_priority(other, 9 - first);
        auto const labels = o.page.drawn();
        ASSERT_EQ(labels.size(), 1u);
        EXPECT_EQ(labels[0].text.size() > 1, first == 9);
        EXPECT_EQ(labels[0].view.priority, 9);
    }
}

TEST(label_datum, scale_and_its_limits)
{
    one_point o;
    drawn_label const plain = o.only();
    double const scale = 4000; // a unit of a metre in a pixel, 4 pixels in a millimetre
    vx_textlr_info_set_scale(o.label, true);
    EXPECT_NEAR(width(o.only()), width(plain), 1e-6) << "the first drawing settles the scale";
    EXPECT_NEAR(vx_textlr_info_get_init_scale(o.label), scale, 1e-3);
    o.page.show({100, 100, 300, 300}, 400, 400);
    EXPECT_NEAR(width(o.only()), 2 * width(plain), 2.1) << "twice as near";
    vx_textlr_info_set_scale_init(o.label, false);
    EXPECT_NEAR(width(o.only()), width(plain), 1e-6) << "from here on";
    vx_textlr_info_set_scale(o.label, false);
    o.page.show({0, 0, 400, 400}, 400, 400);
    struct
    {
        bool use_min, use_max;
        double min, max;
        bool drawn;
    } const limits[] = {{true, false, scale - 1, 0, true},  {true, false, scale + 1, 0, false},
                        {false, true, 0, scale + 1, true},  {false, true, 0, scale - 1, false},
                        {false, false, scale + 1, 0, true}, {true, true, scale - 1, scale + 1, true}};
    for (auto const &l : limits) {
        vx_textlr_info_set_use_min_scale(o.label, l.use_min);
        vx_textlr_info_set_use_max_scale(o.label, l.use_max);
        vx_textlr_info_set_min_scale(o.label, l.min);
        vx_textlr_info_set_max_scale(o.label, l.max);
        EXPECT_EQ(!o.page.drawn().empty(), l.drawn) << l.min << " " << l.max;
    }
    o.page.scale = 50; // as the host reckons it
    EXPECT_TRUE(o.page.drawn().empty());
}

TEST(label_datum, range_and_duplicates)
{
    objects points(8, {{{{100, 100}}, {{300, 100}}}, {{{100, 300}}}, {{{300, 300}}}}, {L"a", L"b", L"b"});
    auto const count = [&](int range, int duplicates) {
        vx_textlr_info_set_range(points.label, range);
        vx_textlr_info_set_duplicates(points.label, duplicates);
        return points.page.drawn().size();
    };
    EXPECT_EQ(count(c_textlr_range_object, c_textlr_duplicates_all), 3u);
    EXPECT_EQ(count(c_textlr_range_part, c_textlr_duplicates_all), 4u);
    EXPECT_EQ(count(c_textlr_range_name, c_textlr_duplicates_all), 2u);
    EXPECT_EQ(count(c_textlr_range_part, c_textlr_duplicates_one), 2u);
    EXPECT_EQ(count(c_textlr_range_part, c_textlr_duplicates_apart), 4u) << "200 pixels are 50 mm";
    points.page.show({-100, -100, 500, 500}, 400, 400);
    EXPECT_EQ(count(c_textlr_range_part, c_textlr_duplicates_apart), 2u);
}

TEST(label_datum, one_label_for_a_name_or_an_object)
{
    // A road of three pieces, in no order and direction, has its name once, in its middle.
    {
        objects road(3, {{{{50, 200}, {120, 200}}}, {{{350, 200}, {240, 200}}}, {{{120, 200}, {240, 200}}}},
                     {L"A long road", L"A long road", L"A long road"});
        vx_textlr_info_set_range(road.label, c_textlr_range_name);
        EXPECT_NEAR(middle_x(road.only()), 200, 2);
    }
    objects islands(5,
                    {{{{20, 20}, {120, 20}, {120, 120}, {20, 120}, {20, 20}},
                      {{150, 150}, {380, 150}, {380, 380}, {150, 380}, {150, 150}},
                      {{200, 200}, {330, 200}, {330, 330}, {200, 330}, {200, 200}}}},
                    {L"isle"});
    drawn_label const largest = islands.only();
    EXPECT_GT(largest.place.x, 150);
    EXPECT_TRUE(largest.place.x < 200 || largest.place.x > 330 || largest.place.y < 200 ||
                largest.place.y > 330)
        << "not in the lake";
    vx_textlr_info_set_range(islands.label, c_textlr_range_part);
    EXPECT_EQ(islands.page.drawn().size(), 2u) << "a hole is no part";
}

TEST(label_datum, lines)
{
    // Up to the right, then down: what lies along it bends.
    objects o(3, {{{{380, 150}, {200, 220}, {20, 150}}}}, {L"A long river"});
    vx_textlr_info_set_text_pos_y(o.label, 0);
    auto const angles = [&](drawn_label const &l) {
        std::vector<double> all;
        for (quad const &q : l.quads)
            all.push_back(std::atan2(q[0].y - q[1].y, q[1].x - q[0].x) * 180 / M_PI);
        return all;
    };
    drawn_label const bends = o.only();
    auto const turning = angles(bends);
    ASSERT_GE(turning.size(), 10u);
    EXPECT_GT(turning.front(), 15) << "it is read from the left, though it was drawn from the right";
    EXPECT_LT(turning.back(), -15);
    for (quad const &q : bends.quads) {
        double const x = (q[0].x + q[2].x) / 2;
        double const line = 400 - (220 - std::abs(x - 200) * 70 / 180);
        EXPECT_NEAR((q[0].y + q[2].y) / 2, line, 6);
    }
    vx_textlr_info_set_line_direction(o.label, true);
    EXPECT_GT(std::abs(angles(o.only()).front()), 90) << "as it was drawn";
    vx_textlr_info_set_line_direction(o.label, false);
    vx_textlr_info_set_line_type(o.label, c_textlr_line_level);
    drawn_label const level = o.only();
    EXPECT_EQ(angles(level), std::vector<double>{0});
    EXPECT_NEAR(middle_x(level), 200, 1);
    vx_textlr_info_set_delta_x(o.label, 10);
    EXPECT_NEAR(middle_x(o.only()), 240, 1);
    vx_textlr_info_set_line_type(o.label, c_textlr_line_across);
    drawn_label const across = o.only();
    EXPECT_NEAR(middle_x(across), 200, 1) << "the deltas are those of level labels";
    EXPECT_NEAR(std::abs(angles(across).front()), 90, 5);
    vx_textlr_info_set_line_type(o.label, c_textlr_line_straight);
    drawn_label const straight = o.only();
    EXPECT_NEAR(std::abs(angles(straight).front()), 21.25, 1)
        << "beside the bend, where the line is straight";
    vx_textlr_info_set_line_type(o.label, c_textlr_line_bends);
    drawn_label above[2];
    for (int i = 0; i < 2; ++i) {
        vx_textlr_info_set_text_pos_y(o.label, static_cast<signed char>(i == 0 ? 1 : -1));
        above[i] = o.only();
    }
    EXPECT_LT(middle_y(above[0]), middle_y(bends) - 4);
    EXPECT_GT(middle_y(above[1]), middle_y(bends) + 4);
}

TEST(label_datum, lines_that_are_too_short_or_bent)
{
    objects none(3,
                 {{{{10, 10}, {20, 10}}},
                  {{{100, 100},
                    {105, 110},
                    {110, 100},
                    {115, 110},
                    {120, 100},
                    {125, 110},
                    {130, 100},
                    {135, 110},
                    {140, 100},
                    {145, 110}}}},
                 {L"too long for it", L"zigzag"});
    EXPECT_TRUE(none.page.drawn().empty());
}

TEST(label_datum, polygons_hold_their_labels_where_they_fit)
{
    // Of this bracket the middle lies outside.
    objects o(5,
              {{{{50, 50},
                 {350, 50},
                 {350, 350},
                 {50, 350},
                 {50, 310},
                 {310, 310},
                 {310, 90},
                 {50, 90},
                 {50, 50}}}},
              {L"a name in it"});
    for (double const angle : {0.0, 90.0}) {
        vx_textlr_info_set_angle(o.label, angle);
        drawn_label const l = o.only();
        for (Tvx_pnt_d2 const p : l.quads.front()) {
            double const x = p.x;
            double const y = 400 - p.y;
            bool const inside =
                x >= 50 && x <= 350 && y >= 50 && y <= 350 && (x >= 310 || y <= 90 || y >= 310);
            EXPECT_TRUE(inside) << angle << ": " << x << " " << y;
        }
    }
}

TEST(labels, of_text_settings)
{
    objects o(1, {{{{60, 320}}}, {{{60, 200}}}, {{{60, 80}}}}, {L"one", L"two", L"three"});
    vx_lr2d_set_visible(vx_shp_lr2d_get_text_layer_ptr(o.layer()), false);
    void *const list = vx_txt_settings_get_stl_mngr_list(vx_shp_lr2d_get_txt_settings(o.layer()));
    void *const mngr = vx_stl_mngr_list_get_active_mngr(list);
    auto const write = [](void *prm, std::vector<wchar_t const *> const &lines) {
        void *const style = vx_stl_prm_get_txt_pnt_style_ptr(prm, false);
        void *const to = vx_txt_style_get_txt_stl_line(style);
        vx_txt_stl_line_clear(to);
        vx_txt_stl_line_add(to, unsigned(lines.size()));
        for (unsigned i = 0; i < lines.size(); ++i)
            vx_txt_stl_line_set_str(to, lines[i], i);
        return style;
    };
    auto const texts = [&] {
        std::vector<std::wstring> all;
        for (auto const &l : o.page.drawn())
            all.push_back(l.text);
        std::ranges::sort(all);
        return all;
    };
    using texts_type = std::vector<std::wstring>;
    write(vx_stl_mngr_get_simple_sp_ptr(mngr), {L"No.", L"number", L"NAME"});
    EXPECT_EQ(texts(), texts_type{}) << "the list is not visible";
    vx_stl_mngr_list_set_visible(list, true);
    EXPECT_EQ(texts(), (texts_type{L"No.\n1\none", L"No.\n2\ntwo", L"No.\n3\nthree"}));
    // A row of its own for one value, in larger letters; the others are not written.
    double const plain = height(o.page.drawn().front());
    vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_value);
    vx_stl_mngr_set_val_prop_name_w(mngr, L"NAME");
    void *const values = vx_stl_mngr_get_val_scale_ptr(mngr);
    vx_val_scale_set_text_w(values, vx_val_scale_add(values) - 1, L"two");
    void *const row = vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(values, 0));
    vx_txt_style_set_font_size(write(row, {L"NAME"}), 9);
    vx_scale_prm_set_visible(vx_val_scale_get_other_prm_ptr(values), false);
    EXPECT_EQ(texts(), texts_type{L"two"});
    EXPECT_NEAR(height(o.page.drawn().front()), plain, 4) << "one line of 9 mm is as high as three of 3 mm";
    // Ranges, and rules that a file brings.
    vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_range);
    vx_stl_mngr_set_rng_prop_name_w(mngr, L"NUMBER");
    void *const ranges = vx_stl_mngr_get_rng_scale_ptr(mngr);
    vx_rng_scale_set_size(ranges, 1);
    vx_rng_scale_set_min_value(ranges, 1.5);
    vx_rng_scale_set_max_value(ranges, 3);
    vx_rng_scale_set_min(ranges, 0, 1.5);
    vx_rng_scale_set_max(ranges, 0, 3);
    write(vx_scale_prm_get_stl_prm_ptr(vx_rng_scale_get_scale_prm_ptr(ranges, 0)), {L"NAME"});
    EXPECT_EQ(texts(), (texts_type{L"three", L"two"}));
    vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_rule);
    void *const rules = vx_stl_mngr_get_rule_scale_ptr(mngr);
    vx_val_scale_set_text_w(rules, vx_val_scale_add(rules) - 1, L"\"NUMBER\" GREATER \"2\"");
    write(vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(rules, 0)), {L"NAME"});
    EXPECT_EQ(texts(), texts_type{L"three"});
    // A second manager writes at the same objects.
    void *const second = vx_stl_mngr_list_add(list);
    vx_txt_style_set_pos_y(write(vx_stl_mngr_get_simple_sp_ptr(second), {L"NUMBER"}), -1);
    EXPECT_EQ(texts(), (texts_type{L"1", L"2", L"3", L"three"}));
}

TEST(labels, of_hostile_texts)
{
    std::wstring const huge(1 << 20, L'W');
    std::vector<std::wstring> const names = {L"",
                                             huge,
                                             L" \t ",
                                             L"a\nb\nc",
                                             L"\u0645\u0631\u062D\u0628\u0627",
                                             L"e\u0301\u0302\u0303",
                                             L"\u4E1C\u4EAC",
                                             std::wstring(100, L'\n'),
                                             L"\u05E9\u05DC\u05D5\u05DD 12"};
    std::vector<std::vector<std::vector<Tvx_pnt_d2>>> points;
    std::vector<std::vector<std::vector<Tvx_pnt_d2>>> lines;
    for (std::size_t i = 0; i < names.size(); ++i) {
        double const y = 20 + 40 * double(i);
        points.push_back({{{10, y}}});
        lines.push_back({{{10, y}, {150, y + 5}, {390, y}}});
    }
    for (int const kind : {1, 3}) {
        objects o(kind, kind == 1 ? points : lines, names);
        vx_textlr_info_set_size(o.label, 2);
        vx_textlr_info_set_text_pos_x(o.label, 1);
        auto const labels = o.page.drawn();
        EXPECT_EQ(labels.size(), 5u) << "not what says nothing, nor what is too wide for the page";
        for (auto const &l : labels)
            EXPECT_LE(l.text.size(), 64u);
        EXPECT_LT(o.ink(vx_clr_init_rgb(255, 255, 255)), 400 * 400 - 200);
    }
}

TEST(labels, end_when_they_are_told_to_and_survive_their_parents)
{
    one_point o;
    bool end = true;
    struct asked
    {
        bool &end;
        bool ask() { return end; }
    } a{end};
    ++o.page.revision;
    EXPECT_FALSE(o.page.place(make_closure<&asked::ask>(&a)));
    EXPECT_EQ(vx_labels_get_count(o.page.labels.get(), o.page.view), 0u);
    end = false;
    EXPECT_TRUE(o.page.place(make_closure<&asked::ask>(&a)));
    EXPECT_EQ(vx_labels_get_count(o.page.labels.get(), o.page.view), 1u);
    // A text layer that stands by itself writes at the objects of its parent as long as that is there.
    label_page::layer_ptr parent = std::move(o.page.layers.front());
    vx_lr2d_set_visible(vx_shp_lr2d_get_text_layer_ptr(parent.get()), false);
    o.page.layers.front().reset(vx_dtld_lr2d_create(parent.get()));
    vx_textlr_info_set_property(vx_dtld_lr2d_get_text_class(o.page.layers.front().get()), 0, L"NAME");
    EXPECT_EQ(o.page.drawn().size(), 1u);
    parent.reset();
    EXPECT_TRUE(o.page.drawn().empty());
    EXPECT_EQ(vx_labels_get_count(nullptr, o.page.view), 0u);
    EXPECT_FALSE(vx_labels_place(o.page.labels.get(), nullptr, 0, {}, 0));
}
