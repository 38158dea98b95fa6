#include "layout_sheet.h"
#include "support/temp_dir.h"

#include "platform/data/vx_tld_data.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/render/vx_layer_classes.h"
#include "platform/render/vx_map_view.h"

#include <QtCore/QByteArray>

#include <set>
#include <sys/stat.h>
#include <vector>

namespace {
using namespace vx_test;

constexpr Tvx_color c_white = vx_clr_init_rgb(255, 255, 255);
constexpr Tvx_color c_red = vx_clr_init_rgb(255, 0, 0);
constexpr Tvx_color c_green = vx_clr_init_rgb(0, 128, 0);

bool yes(void *)
{
    return true;
}

void add_hatch(Ivx_layer *layer, double step)
{
    void *const prm = vx_stl_mngr_get_simple_sp_ptr(vx_shp_lr2d_get_stl_mngr_ptr(layer));
    void *const fill = vx_pgn_style_get_bpgn_style_ptr(vx_stl_prm_get_pgn_style_ptr(prm, false));
    vx_bpgn_style_set_use_complex(fill, true);
    void *const hatch = vx_style_lrs_add_lr(
        vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(fill)), c_pgn_htch_style_lr);
    vx_pgn_htch_lr_set_delta(hatch, step);
    vx_pgn_htch_lr_set_angle(hatch, 30);
}

TEST(layout_page, elements_stand_at_their_millimetres_and_maps_are_cut_to_their_frames)
{
    layout_sheet s;
    s.add_square(L"red", c_red);
    Ivx_layer *const frame = s.add_frame({20, 10, 70, 50});
    Ivx_layer *const line = s.add(c_lr_key_layout_neatline, {5, 5, 95, 75});
    for (double const dpi : {96.0, 300.0}) {
        SCOPED_TRACE(dpi);
        s.px_per_mm = dpi / 25.4;
        ASSERT_TRUE(s.draw());
        for (double const x : {19.3, 70.7})
            EXPECT_EQ(s.at(x, 30), c_white) << x;
        for (double const y : {9.3, 50.7})
            EXPECT_EQ(s.at(40, y), c_white) << y;
        EXPECT_EQ(s.at(20.7, 10.7), c_red);
        EXPECT_EQ(s.at(69.3, 49.3), c_red);
        for (Tvx_pnt_d2 const on : {Tvx_pnt_d2{20, 30}, {45, 10}, {5, 40}, {50, 5}})
            EXPECT_TRUE(s.is_dark(on.x - 0.2, on.y - 0.2) || s.is_dark(on.x, on.y) ||
                        s.is_dark(on.x + 0.2, on.y + 0.2))
                << on.x << " " << on.y;
    }
    // The map at 1 : 8000, where the square of 200 m is 25 mm wide, and moved by 40 m to the east: 5 mm.
    vx_layout_scene_frame_lr2d_set_scale(frame, 8000, 8000);
    vx_layout_scene_frame_lr2d_set_center(frame, {40, 0});
    vx_lr2d_set_visible(line, false);
    ASSERT_TRUE(s.draw());
    EXPECT_EQ(s.at(27.8, 30), c_red);
    EXPECT_EQ(s.at(27.2, 30), c_white);
    EXPECT_EQ(s.at(52.2, 30), c_red);
    EXPECT_EQ(s.at(52.8, 30), c_white);
    EXPECT_EQ(s.at(5, 40), c_white) << "hidden";
}

TEST(layout_page, a_part_of_the_page_is_drawn_as_in_the_whole)
{
    layout_sheet s;
    Ivx_layer *const square = s.add_square(L"hatch", c_red);
    add_hatch(square, 2);
    // The edge of the part cuts the label, which stands in the middle of the frame.
    s.table.fields = {{L"NAME", 1}};
    s.table.features[0].cells = {cell(std::wstring(L"HHHHHH"))};
    Ivx_layer *const labels = vx_shp_lr2d_get_text_layer_ptr(square);
    vx_lr2d_set_visible(labels, true);
    void *const writing = vx_dtld_lr2d_get_text_class(labels);
    vx_textlr_info_set_property(writing, 0, L"NAME");
    vx_textlr_info_set_color(writing, c_green);
    s.add_frame({20, 10, 70, 50});
    ASSERT_TRUE(s.draw());
    int written = 0;
    for (double y = 25; y < 35; y += 0.25)
        for (double x = 45; x < 60; x += 0.25)
            written += s.at(x, y).g > s.at(x, y).r + 40;
    EXPECT_GT(written, 5) << "the label";
    auto const whole = std::move(s.dc);
    s.dc.reset(vx_bmp_dc_create());
    s.shown = {45, 5, 95, 45};
    ASSERT_TRUE(s.draw());
    int others = 0, inked = 0;
    for (int y = 0; y < 160; ++y)
        for (int x = 0; x < 200; ++x) {
            Tvx_color const here = vx_bmp_dc_get_pixel(s.dc.get(), x, y);
            others += std::abs(here.g - vx_bmp_dc_get_pixel(whole.get(), x + 180, y + 20).g) > 16;
            inked += here != c_white;
        }
    EXPECT_GT(inked, 2000);
    EXPECT_EQ(others, 0) << "but for the last digits of lines whose ends lie elsewhere";
}

TEST(layout_page, what_is_missing_is_told_and_the_rest_is_drawn)
{
    layout_sheet s;
    s.add_square(L"red", c_red);
    Ivx_layer *const frame = s.add_frame({50, 40, 90, 70});
    struct missing
    {
        char const *key;
        wchar_t const *file;
    };
    for (missing const &m : {missing{c_lr_key_layout_image, L"/nowhere/picture.png"},
                             {c_lr_key_layout_image, L""},
                             {c_lr_key_layout_image, L"" VX_EXAMPLE_DATA "/nc.dbf"},
                             {c_lr_key_layout_table, L"/nowhere/table.dbf"},
                             {c_lr_key_layout_scene_frame, L"no such scene"},
                             {c_lr_key_layout_scale_bar, L"no such frame"},
                             {c_lr_key_layout_scale_text, L"no such frame"},
                             {c_lr_key_layout_legend, L"no such frame"}}) {
        SCOPED_TRACE(m.key);
        s.add(m.key, {10, 10, 40, 30}, m.file);
        EXPECT_FALSE(s.draw());
        EXPECT_EQ(s.at(70, 55), c_red) << "the frame above";
        EXPECT_NE(s.at(10.05, 20), c_white) << "a sign of it";
        vx_lr2d_destroy(vx_scn_2d_extract(s.layout.get(), vx_scn_2d_get_count(s.layout.get()) - 1));
        EXPECT_TRUE(s.draw());
    }
    s.add(c_lr_key_layout_ole_object, {10, 10, 40, 30});
    EXPECT_TRUE(s.draw());
    EXPECT_NE(s.at(10.05, 20), c_white);
    EXPECT_FALSE(s.draw(closure<bool()>(&yes, nullptr)));
    EXPECT_EQ(s.at(70, 55).a, 0) << "nothing was drawn";
    EXPECT_TRUE(vx_layout_render_element(s.layout.get(), frame, s.shown, s.dc.get()));
    EXPECT_EQ(s.at(70, 55), c_red);
    EXPECT_FALSE(vx_layout_render(nullptr, s.shown, s.dc.get()));
    EXPECT_FALSE(vx_layout_render(s.layout.get(), {}, s.dc.get()));
    EXPECT_FALSE(vx_layout_render(s.layout.get(), s.shown, nullptr));
}

TEST(layout_page, pictures_are_drawn_and_hostile_ones_refused)
{
    layout_sheet s;
    temp_dir folder;
    std::string const red = "<rect id='r0' width='40' height='20' fill='#ff0000'/>";
    std::string bomb = "<defs>" + red;
    for (int i = 1; i < 12; ++i) {
        bomb += "<g id='r" + std::to_string(i) + "'>";
        for (int k = 0; k < 10; ++k)
            bomb += "<use xlink:href='#r" + std::to_string(i - 1) + "'/>";
        bomb += "</g>";
    }
    bomb += "</defs><use xlink:href='#r11'/>";
    std::string deep;
    constexpr int c_deep = 100'000;
    for (int i = 0; i < 2 * c_deep; ++i)
        deep += i < c_deep ? "<g>" : "</g>";
    Ivx_layer *const image = s.add(c_lr_key_layout_image, {10, 10, 50, 50});
    auto const set_drawing = [&](std::string const &content, std::string const &before = {}) {
        auto const file = folder / "picture.svg";
        std::ofstream(file)
            << before +
                   "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
                   "viewBox='0 0 40 20'>" +
                   content + "</svg>";
        vx_lr2d_set_wfilename(image, file.wstring().c_str());
    };
    for (auto const &[content, is_drawn] :
         {std::pair{red, true}, {bomb, false}, {deep, false}, {"<use xlink:href='#r0'/>" + red, true}}) {
        set_drawing(content);
        EXPECT_EQ(s.draw(), is_drawn);
        EXPECT_EQ(s.at(20, 25) == c_red, is_drawn);
        EXPECT_EQ(s.at(20, 16), c_white) << "the picture keeps its proportions";
    }
    // What it would take from other files is left out, and that is told. Who reads the pipe waits forever.
    std::string const pipe = (folder / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::string const other = "<image width='9' height='9' xlink:href='";
    QByteArray const inner = ("<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/"
                              "xlink' width='9' height='9'>" +
                              other + pipe + "'/></svg>")
                                 .c_str();
    for (auto const &[before, content] :
         {std::pair<std::string, std::string>{"", other + pipe + "'/>"},
          {"", other + "data:image/png;base64," + inner.toBase64().toStdString() + "'/>"},
          {"<?xml version=\"1.0\"?><?xml-stylesheet type=\"text/css\" href=\"" + pipe + "\"?>", ""}}) {
        set_drawing(content + red, before);
        EXPECT_FALSE(s.draw());
        EXPECT_EQ(s.at(20, 25), c_red);
    }
    constexpr char c_dot[] =
        "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNkYPhfDwAChwGA60e6kgAAAABJRU5"
        "ErkJggg==";
    set_drawing(red + other + "data:image/png;base64," + c_dot + "'/>");
    EXPECT_TRUE(s.draw()) << "what stands in it is drawn";

    vx_layout_image_lr2d_set_keep_ratio(image, false);
    ASSERT_TRUE(s.draw());
    EXPECT_EQ(s.at(20, 12), c_red);
    // A picture that says that it has 60,000 by 60,000 pixels.
    std::string png = "\x89PNG\r\n\x1a\n";
    png += std::string("\0\0\0\rIHDR\0\0\xea\x60\0\0\xea\x60\x8\x2\0\0\0"
                       "\x0f\xb0\xe2\x15",
                       25);
    std::ofstream(folder / "large.png")
        << png << std::string("\0\0\x3\xe8IDAT", 8) << std::string(1000, '\0');
    vx_lr2d_set_wfilename(image, (folder / "large.png").wstring().c_str());
    EXPECT_FALSE(s.draw());
}

TEST(layout_page, a_legend_shows_the_classes_of_the_list_in_its_order)
{
    layout_sheet s;
    s.table.fields = {{L"NAME", 1}};
    s.add_feature({{-100, -100}, {-100, 100}, {100, 100}, {100, -100}, {-100, -100}});
    s.table.features[0].cells = {cell(std::wstring(L"a"))};
    s.add_square(L"below", c_green);
    Ivx_layer *const classed = s.add_square(L"classed", c_red);
    void *const mngr = vx_shp_lr2d_get_stl_mngr_ptr(classed);
    void *const scale = vx_stl_mngr_get_val_scale_ptr(mngr);
    vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_value);
    vx_val_scale_set_size(scale, 4);
    std::vector<Tvx_color> colors;
    for (unsigned i = 0; i < vx_layer_classes_get_count(classed); ++i) {
        void *const entry = vx_layer_classes_get_scale_prm_ptr(classed, i);
        colors.push_back(vx_clr_init_rgb(250, static_cast<int>(40 * i), 9));
        vx_stl_prm_set_color(vx_scale_prm_get_stl_prm_ptr(entry), false, colors.back());
        vx_pgn_style_set_pln_visible(
            vx_stl_prm_get_pgn_style_ptr(vx_layer_classes_get_stl_prm_ptr(classed, i), false), false);
    }
    vx_scale_prm_set_visible(vx_layer_classes_get_scale_prm_ptr(classed, 1), false);
    colors.erase(colors.begin() + 1);
    colors.push_back(c_green);
    s.add_frame({1, 1, 20, 20});
    Ivx_layer *const legend = s.add(c_lr_key_layout_legend, {30, 5, 95, 75}, L"frame");
    auto const samples = [&] {
        std::vector<Tvx_color> found;
        EXPECT_TRUE(s.draw());
        for (double y = 5; y < 75; y += 0.25)
            if (Tvx_color const c = s.at(34, y); c.r != c.g && (found.empty() || found.back() != c))
                found.push_back(c);
        return found;
    };
    EXPECT_EQ(samples(), colors);
    // The lines that the user has put there, and no others.
    Tvx_layout_legend what = vx_layout_legend_lr2d_get(legend);
    what.items = {{true, L"Heading", true}, {false, L"below", true}, {false, L"classed", false}};
    vx_layout_legend_lr2d_set(legend, what);
    EXPECT_EQ(samples(), std::vector{c_green});
    what.items[2] = {false, L"gone", true};
    vx_layout_legend_lr2d_set(legend, what);
    EXPECT_FALSE(s.draw()) << "a layer that is not there";
    // As much room as is wanted shows all of it, at any number of columns; with less there is no half sample.
    what.items.clear();
    Tvx_layout_writing writing = vx_layout_lr2d_get_writing(legend);
    writing.size = 2;
    vx_layout_lr2d_set_writing(legend, writing);
    for (int const columns : {1, 2, 3}) {
        what.columns = columns;
        vx_layout_legend_lr2d_set(legend, what);
        Tvx_pnt_d2 const wanted = vx_layout_get_wanted_size(s.layout.get(), legend);
        auto const count = [&](double height) {
            vx_layout_lr2d_set_box(legend, {25, 5, 25 + wanted.x, 5 + height});
            EXPECT_TRUE(s.draw());
            std::set<int> found;
            for (double y = 5; y < 79; y += 0.25)
                for (double x = 25; x < 99; x += 0.25)
                    if (Tvx_color const c = s.at(x, y); c.r != c.g && c.b == 9)
                        found.insert(c.g);
            return found.size();
        };
        EXPECT_EQ(count(wanted.y), 4U) << columns;
        EXPECT_LT(count(wanted.y * 0.6), 4U) << columns;
    }
}

TEST(layout_page, scale_bars_are_as_long_as_they_say)
{
    layout_sheet s;
    Ivx_layer *const frame = s.add_frame({1, 1, 20, 20});
    Ivx_layer *const bar = s.add(c_lr_key_layout_scale_bar, {10, 40, 95, 60}, L"frame");
    Tvx_layout_writing writing = vx_layout_lr2d_get_writing(bar);
    writing.align_y = 1;
    vx_layout_lr2d_set_writing(bar, writing);
    s.px_per_mm = 20;
    struct expected
    {
        Tvx_layout_unit unit;
        double length;
        int divisions;
        double scale;
        double mm;
    };
    auto const length = [&] {
        EXPECT_TRUE(s.draw());
        auto const [from, to] = s.ink(59.97);
        return to - from;
    };
    for (expected const &e : {expected{c_layout_unit_automatic, 10, 4, 1000, 40},
                              {c_layout_unit_m, 250, 2, 10'000, 50},
                              {c_layout_unit_km, 1, 5, 100'000, 50},
                              {c_layout_unit_ft, 100, 3, 2000, 45.72},
                              {c_layout_unit_mi, 1, 2, 62'500, 51.499},
                              {c_layout_unit_nmi, 2, 1, 100'000, 37.04}})
        for (auto const kind : {c_layout_bar_boxes, c_layout_bar_double, c_layout_bar_ticks}) {
            vx_layout_scene_frame_lr2d_set_scale(frame, e.scale, e.scale);
            vx_layout_scale_bar_lr2d_set(bar, {kind, e.unit, e.divisions, e.length, 3});
            EXPECT_NEAR(length(), e.mm, 0.06) << e.unit << " " << kind;
        }
    // A round division that fits: of 85 mm at 1 : 1000, which are 85 m, four of 20 m and their numbers do.
    vx_layout_scene_frame_lr2d_set_scale(frame, 1000, 1000);
    vx_layout_scale_bar_lr2d_set(bar, {c_layout_bar_boxes, c_layout_unit_automatic, 4, 0, 3});
    double const fitted = length();
    EXPECT_TRUE(std::abs(fitted - 80) < 0.06 || std::abs(fitted - 40) < 0.06) << fitted;
    // On a map in degrees the bar measures along the parallel in the middle.
    vx_scn_2d_set_unit(s.scene, true, 1);
    vx_layout_scene_frame_lr2d_set_center(frame, {10, 60});
    vx_layout_scene_frame_lr2d_set_scale(frame, 1e7, 1e7);
    vx_layout_scale_bar_lr2d_set(bar, {c_layout_bar_boxes, c_layout_unit_km, 2, 200, 3});
    double const degrees = vx_layout_scene_frame_lr2d_get_world(frame).width() / 19 * length();
    EXPECT_NEAR(degrees * 111.195 * std::cos(60 * 3.14159265358979 / 180), 400, 1);
}

TEST(layout_page, arrows_turn_and_texts_are_aligned)
{
    layout_sheet s;
    Ivx_layer *const arrow = s.add(c_lr_key_layout_north_arrow, {40, 20, 60, 60});
    for (double const angle : {0.0, 90.0, 180.0, 270.0}) {
        vx_layout_north_arrow_lr2d_set(arrow, {c_layout_arrow_plain, angle, false});
        ASSERT_TRUE(s.draw());
        // Behind the head the shaft is thin: the head is on the side where the arrow is broad.
        auto const dark = [&](double x, double y) {
            int count = 0;
            for (double k = -4; k <= 4; k += 0.25)
                count += angle == 0 || angle == 180 ? s.is_dark(x + k, y) : s.is_dark(x, y + k);
            return count;
        };
        double const reach = angle == 0 || angle == 180 ? 8 : 3;
        double const a = angle * 3.14159265358979 / 180;
        EXPECT_GT(dark(50 + reach * std::sin(a), 40 - reach * std::cos(a)),
                  dark(50 - reach * std::sin(a), 40 + reach * std::cos(a)) + 3)
            << angle;
    }
    Ivx_layer *const text = s.add(c_lr_key_layout_text, {10, 62, 90, 78});
    vx_layout_text_lr2d_set_wtext(text, L"HH\nH");
    Tvx_pnt_d2 const size = vx_layout_get_wanted_size(s.layout.get(), text);
    for (int const align : {-1, 0, 1}) {
        Tvx_layout_writing writing = vx_layout_lr2d_get_writing(text);
        writing.size = 5;
        writing.align_x = align;
        vx_layout_lr2d_set_writing(text, writing);
        ASSERT_TRUE(s.draw());
        double low = 100, high = 0;
        for (double y = 62; y < 78; y += 0.25) {
            auto const [from, to] = s.ink(y, 5, 95);
            low = std::min(low, from);
            high = std::max(high, to);
        }
        double const at = align < 0 ? low - 10 : align > 0 ? 90 - high : (low + high) / 2 - 50;
        EXPECT_NEAR(at, 0, 1.2) << align;
        EXPECT_NEAR(high - low, size.x * 5 / 4, 2);
    }
    std::wstring line;
    for (auto const &[scale, expected] : {std::pair<double, wchar_t const *>{2.5, L"1 : 2.50"},
                                          {999, L"1 : 999"},
                                          {50'000, L"1 : 50\u2009000"},
                                          {-1, L""}}) {
        vx_map_scale_get_text_w(scale, Tvx_std_wstring_adapter(line));
        EXPECT_EQ(line, expected);
    }
}
} // namespace
