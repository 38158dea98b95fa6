#include "data/grid/grid_datasource.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_layer_classes.h"
#include "platform/render/vx_render_layer.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {
using layer_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
constexpr int c_width = 93, c_height = 71;
constexpr Tvx_color c_nothing{};
std::string const c_landsat = VX_EXAMPLE_DATA "/L7_ETMs.tif";
std::string const c_heights = VX_EXAMPLE_DATA "/olinda_dem_utm25s.tif";
std::string const c_classes = VX_EXAMPLE_DATA "/lc.tif";

std::string vrt(int width, int height, std::string const &head, std::string const &bands)
{
    return "<VRTDataset rasterXSize=\"" + std::to_string(width) + "\" rasterYSize=\"" +
           std::to_string(height) + "\">" + head + bands + "</VRTDataset>";
}
std::string vrt_band(std::string const &source, int band, std::string const &more = "",
                     std::string const &inside = "")
{
    return "<VRTRasterBand dataType=\"Byte\" band=\"" + std::to_string(band) + "\">" + more +
           "<ComplexSource><SourceFilename>" + source + "</SourceFilename><SourceBand>" +
           std::to_string(band) + "</SourceBand>" + inside + "</ComplexSource></VRTRasterBand>";
}

/// A raster with its cells as the data source class has them.
class rasters : public testing::Test
{
protected:
    void open(std::string const &file)
    {
        auto const name = vx::text::utf8_to_wide(file);
        vx::data::grid_datasource grid;
        ASSERT_TRUE(grid.open(name, vx::data::access_read)) << file;
        layer.reset(vx_rtr_lr2d_create(name.c_str()));
        columns = static_cast<int>(grid.xcount());
        rows = static_cast<int>(grid.ycount());
        matrix = {{{1, 0, 0}, {0, -1, 0}, {0, 0, 1}}};
        (void)grid.geotransform(matrix);
        cells.assign(vx_rtr_lr2d_get_prop_count(layer.get()), {});
        for (unsigned band = 0; band < cells.size(); ++band) {
            vx::data::grid_block block;
            cells[band].resize(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
            ASSERT_TRUE(grid.fetch_block(static_cast<int>(band), block));
            ASSERT_EQ(
                block.read(0, cells[band].size(), cells[band].data(), vx::data::data_type::float64).status,
                vx::data::read_done);
        }
        palette.clear();
        if (vx::data::grid_palette colors; grid.field_palette(0, colors))
            for (int i = 0; i < static_cast<int>(colors.color_count()); ++i)
                palette.push_back(colors.fetch_color(i));
    }
    std::string put(char const *name, std::string const &bytes) const
    {
        vx_test::write_file(folder / name, bytes);
        return (folder / name).string();
    }
    /// Grey numbers of a picture of the given size.
    std::string put_numbers(char const *name, int width, int height,
                            std::function<int(int, int)> number) const
    {
        std::string bytes = "P5\n" + std::to_string(width) + " " + std::to_string(height) + "\n255\n";
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                bytes += static_cast<char>(number(x, y));
        return put(name, bytes);
    }
    [[nodiscard]] double cell(unsigned band, int column, int row) const
    {
        return cells[band][static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                           static_cast<std::size_t>(column)];
    }
    [[nodiscard]] Tvx_pnt_d2 corner(double column, double row) const
    {
        return {matrix.m[0][0] * column + matrix.m[0][1] * row + matrix.m[0][2],
                matrix.m[1][0] * column + matrix.m[1][1] * row + matrix.m[1][2]};
    }
    /// A picture round a place of the raster, where a pixel is so many times a cell.
    [[nodiscard]] Tvx_map_view view_of(double column, double row, double pixel_in_cells) const
    {
        Tvx_pnt_d2 const at = corner(column, row);
        double const pixel = pixel_in_cells * std::hypot(matrix.m[0][0], matrix.m[1][0]);
        Tvx_map_view view;
        view.width = c_width;
        view.height = c_height;
        view.world = {at.x - pixel * c_width * 0.43, at.y - pixel * c_height * 0.56,
                      at.x + pixel * c_width * 0.57, at.y + pixel * c_height * 0.44};
        return view;
    }
    [[nodiscard]] std::vector<unsigned char> draw(Tvx_map_view const &view, bool wanted = true)
    {
        std::vector<unsigned char> pixels(4 * c_width * c_height, 255);
        vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
        vx_bmp_dc_set_pixels(dc.get(), pixels.data(), c_width, c_height, 4 * c_width);
        EXPECT_EQ(vx_render_layer(layer.get(), view, dc.get()), wanted);
        return pixels;
    }
    /// Compares all pixels with what `color_of` says of the cell under them, over white paper; of pieces of
    /// so many cells of their first one.
    void expect(Tvx_map_view const &view, std::function<Tvx_color(int column, int row)> const &color_of,
                int step = 1)
    {
        auto const pixels = draw(view);
        auto const &m = matrix.m;
        double const det = m[0][0] * m[1][1] - m[0][1] * m[1][0];
        int drawn = 0, outside = 0;
        for (int y = 0; y < c_height; ++y)
            for (int x = 0; x < c_width; ++x) {
                double const wx = view.px_to_world_x(x + 0.5) - m[0][2],
                             wy = view.px_to_world_y(y + 0.5) - m[1][2];
                double const column = (wx * m[1][1] - wy * m[0][1]) / det / step;
                double const row = (wy * m[0][0] - wx * m[1][0]) / det / step;
                if (std::fabs(column - std::round(column)) < 1e-6 || std::fabs(row - std::round(row)) < 1e-6)
                    continue; // on the edge of two cells
                bool const is_inside = column > 0 && row > 0 && column < columns / step && row < rows / step;
                if (!is_inside && column * step > 0 && row * step > 0 && column * step < columns &&
                    row * step < rows)
                    continue; // a piece that the end cuts
                Tvx_color const c =
                    is_inside ? color_of(static_cast<int>(column) * step, static_cast<int>(row) * step)
                              : c_nothing;
                ++(is_inside ? drawn : outside);
                auto const *const at = &pixels[static_cast<std::size_t>(4 * (y * c_width + x))];
                auto const over = [&](int part) { return (part * c.a + 255 * (255 - c.a)) / 255.0; };
                ASSERT_NEAR(at[2], over(c.r), 1.5) << x << " " << y;
                ASSERT_NEAR(at[1], over(c.g), 1.5) << x << " " << y;
                ASSERT_NEAR(at[0], over(c.b), 1.5) << x << " " << y;
            }
        EXPECT_GT(drawn, 300);
        EXPECT_GT(outside, 100);
    }
    void feed(void *channel, unsigned band, double low, double high)
    {
        vx_clr_channel_set_prop_name_w(channel, vx_rtr_lr2d_get_prop_name(layer.get(), band));
        vx_clr_channel_set_min(channel, low);
        vx_clr_channel_set_max(channel, high);
    }
    [[nodiscard]] static int level(double value, double low, double high)
    {
        return static_cast<int>(std::lround(255 * std::clamp((value - low) / (high - low), 0.0, 1.0)));
    }
    [[nodiscard]] Tvx_color natural(int x, int y) const
    {
        return vx_clr_init_rgb(static_cast<int>(cell(0, x, y)), static_cast<int>(cell(1, x, y)),
                               static_cast<int>(cell(2, x, y)));
    }

    vx_test::temp_dir folder;
    layer_ptr layer;
    int columns = 0, rows = 0;
    Tvx_matrix3x3 matrix;
    std::vector<std::vector<double>> cells;
    std::vector<Tvx_color> palette;
};
} // namespace

TEST_F(rasters, are_drawn_in_the_three_draw_types)
{
    ASSERT_NO_FATAL_FAILURE(open(c_landsat));
    auto const near = view_of(10, 9, 0.37), plain = view_of(30, 330, 1);
    for (auto const &view : {near, plain})
        ASSERT_NO_FATAL_FAILURE(expect(view, [&](int x, int y) { return natural(x, y); }));
    vx_rtr_lr2d_set_draw_type(layer.get(), c_rtr_draw_channels);
    void *const channels = vx_rtr_lr2d_get_rgb_channels_ptr(layer.get());
    feed(vx_rgb_channels_get_red(channels), 3, 20, 110);
    feed(vx_rgb_channels_get_green(channels), 3, 40.5, 60);
    feed(vx_rgb_channels_get_blue(channels), 1, 30, 90);
    ASSERT_NO_FATAL_FAILURE(expect(near, [&](int x, int y) {
        return vx_clr_init_rgb(level(cell(3, x, y), 20, 110), level(cell(3, x, y), 40.5, 60),
                               level(cell(1, x, y), 30, 90));
    }));
    // A band that is not there gives none of its colour.
    vx_clr_channel_set_prop_name_w(vx_rgb_channels_get_green(channels), L"gone");
    ASSERT_NO_FATAL_FAILURE(expect(near, [&](int x, int y) {
        return vx_clr_init_rgb(level(cell(3, x, y), 20, 110), 0, level(cell(1, x, y), 30, 90));
    }));
    vx_rtr_lr2d_set_draw_type(layer.get(), c_rtr_draw_gray);
    feed(vx_rgb_channels_get_gray(channels), 2, 30, 90);
    vx_rtr_lr2d_set_opacity(layer.get(), 0.4);
    // Bounds that are none are not taken.
    vx_clr_channel_set_min(vx_rgb_channels_get_gray(channels), std::nan(""));
    expect(plain, [&](int x, int y) {
        auto color = vx_clr_init_grey(level(cell(2, x, y), 30, 90));
        color.a = 102;
        return color;
    });
}

TEST_F(rasters, of_other_numbers_reach_over_what_there_is)
{
    ASSERT_NO_FATAL_FAILURE(open(c_heights));
    auto const [low, high] = std::ranges::minmax(cells[0]);
    auto const grey = [&](int x, int y) { return vx_clr_init_grey(level(cell(0, x, y), low, high)); };
    ASSERT_NO_FATAL_FAILURE(expect(view_of(10, 100, 0.5), grey));
    vx_rtr_lr2d_set_draw_type(layer.get(), c_rtr_draw_gray);
    expect(view_of(10, 100, 0.5), grey);
}

TEST_F(rasters, with_a_palette_are_drawn_by_it)
{
    ASSERT_NO_FATAL_FAILURE(open(c_classes));
    ASSERT_FALSE(palette.empty());
    auto const color = [&](int x, int y) { return palette[static_cast<std::size_t>(cell(0, x, y))]; };
    auto const view = view_of(5, 5, 0.3);
    ASSERT_NO_FATAL_FAILURE(expect(view, color));
    Tvx_color const left_out = color(10, 10);
    vx_rtr_lr2d_set_transparent_clr(layer.get(), left_out);
    ASSERT_NO_FATAL_FAILURE(
        expect(view, [&](int x, int y) { return color(x, y) == left_out ? c_nothing : color(x, y); }));
    // Seen from far, numbers of classes are never mixed.
    vx_rtr_lr2d_set_transparent_clr(layer.get(), {});
    expect(
        view_of(5, 5, 3.4), [&](int x, int y) { return color(x + 1, y + 1); }, 3);
}

TEST_F(rasters, have_the_colors_of_their_cells_as_classes)
{
    struct row
    {
        std::wstring caption;
        std::vector<Tvx_color> colors;
        bool operator==(row const &) const = default;
    };
    auto const classes = [&] {
        std::vector<row> found(vx_layer_classes_get_count(layer.get()));
        for (unsigned i = 0; i < found.size(); ++i) {
            EXPECT_EQ(vx_layer_classes_get_stl_prm_ptr(layer.get(), i), nullptr);
            vx_layer_classes_get_caption_w(layer.get(), i, Tvx_std_wstring_adapter(found[i].caption));
            found[i].colors.resize(vx_layer_classes_get_colors(layer.get(), i, nullptr, 0));
            vx_layer_classes_get_colors(layer.get(), i, found[i].colors.data(),
                                        static_cast<unsigned>(found[i].colors.size()));
        }
        return found;
    };
    constexpr Tvx_color black = vx_clr_init_grey(0);

    // Of a palette what cells have, and is drawn.
    ASSERT_NO_FATAL_FAILURE(open(c_classes));
    std::set<int> const numbers(cells[0].begin(), cells[0].end());
    std::vector<row> wanted;
    for (int const number : numbers)
        wanted.push_back({std::to_wstring(number), {palette[static_cast<std::size_t>(number)]}});
    ASSERT_GT(wanted.size(), 3U);
    EXPECT_EQ(classes(), wanted);
    vx_rtr_lr2d_set_transparent_clr(layer.get(), wanted[1].colors[0]);
    vx_rtr_lr2d_set_opacity(layer.get(), 0.5);
    std::erase_if(wanted, [left_out = wanted[1].colors[0]](row const &r) { return r.colors[0] == left_out; });
    for (row &r : wanted)
        r.colors[0].a = 128;
    EXPECT_EQ(classes(), wanted);

    ASSERT_NO_FATAL_FAILURE(open(c_landsat));
    auto const name = [&](unsigned band) {
        return std::wstring(vx_rtr_lr2d_get_prop_name(layer.get(), band));
    };
    EXPECT_EQ(classes(),
              (std::vector<row>{{name(0) + L": 0 \u2013 255", {black, vx_clr_init_rgb(255, 0, 0)}},
                                {name(1) + L": 0 \u2013 255", {black, vx_clr_init_rgb(0, 255, 0)}},
                                {name(2) + L": 0 \u2013 255", {black, vx_clr_init_rgb(0, 0, 255)}}}));
    vx_rtr_lr2d_set_draw_type(layer.get(), c_rtr_draw_gray);
    feed(vx_rgb_channels_get_gray(vx_rtr_lr2d_get_rgb_channels_ptr(layer.get())), 4, 9.5, 61);
    EXPECT_EQ(classes(), (std::vector<row>{{L"9.5 \u2013 61", {black, vx_clr_init_grey(255)}}}));

    // A palette whose colours go from one into the next is one line.
    std::string entries;
    for (int i = 0; i < 256; ++i)
        entries += "<Entry c1=\"" + std::to_string(i) + "\" c2=\"90\" c3=\"0\" c4=\"255\"/>";
    ASSERT_NO_FATAL_FAILURE(open(
        put("ramp.vrt",
            vrt(40, 30, "",
                vrt_band(put_numbers("ramp.pgm", 40, 30, [](int x, int) { return 20 + x; }), 1,
                         "<ColorInterp>Palette</ColorInterp><ColorTable>" + entries + "</ColorTable>")))));
    auto const ramp = classes();
    ASSERT_EQ(ramp.size(), 1U);
    EXPECT_EQ(ramp[0].caption, L"20 \u2013 59");
    EXPECT_EQ(ramp[0].colors.front(), vx_clr_init_rgb(20, 90, 0));
    EXPECT_EQ(ramp[0].colors.back(), vx_clr_init_rgb(59, 90, 0));
    EXPECT_EQ(ramp[0].colors.size(), 40U);

    // Of a raster with too many cells those that somebody has set.
    entries.clear();
    for (int i = 0; i < 256; ++i)
        entries +=
            "<Entry c1=\"" + std::to_string(i < 3 ? 70 * i + 50 : 0) + "\" c2=\"0\" c3=\"0\" c4=\"255\"/>";
    put("large.vrt", vrt(9000, 9000, "",
                         "<VRTRasterBand dataType=\"Byte\" band=\"1\"><ColorInterp>Palette</ColorInterp>"
                         "<ColorTable>" +
                             entries + "</ColorTable></VRTRasterBand>"));
    layer.reset(vx_rtr_lr2d_create((folder / "large.vrt").wstring().c_str()));
    EXPECT_EQ(classes(), (std::vector<row>{{L"0", {vx_clr_init_rgb(50, 0, 0)}},
                                           {L"1", {vx_clr_init_rgb(120, 0, 0)}},
                                           {L"2", {vx_clr_init_rgb(190, 0, 0)}}}));

    layer.reset(vx_rtr_lr2d_create(L"/nowhere/gone.tif"));
    EXPECT_TRUE(classes().empty());
}

TEST_F(rasters, lie_where_their_place_says)
{
    struct
    {
        char const *name;
        std::string place;
    } const cases[] = {
        {"turned", "<GeoTransform>100, 3, -2, 500, 1.5, 2.5</GeoTransform>"},
        {"sheared", "<GeoTransform>-1e6, 4, 1.5, 2e6, 0, -3</GeoTransform>"},
        {"upside down", "<GeoTransform>0, -2, 0, 0, 0, 2</GeoTransform>"},
        {"none", ""},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(c.name);
        std::string bands;
        for (int band = 1; band <= 3; ++band)
            bands += vrt_band(c_landsat, band);
        ASSERT_NO_FATAL_FAILURE(open(put("p.vrt", vrt(349, 352, c.place, bands))));
        for (double const size : {0.31, 1.2})
            ASSERT_NO_FATAL_FAILURE(
                expect(view_of(12, 9, size), [&](int x, int y) { return natural(x, y); }));
    }
}

TEST_F(rasters, leave_out_what_has_no_value)
{
    std::string const mask = "<MaskBand>" +
                             vrt_band(c_landsat, 1, "", "<LUT>0:0,70:0,71:128,90:128,91:255,255:255</LUT>") +
                             "</MaskBand>";
    auto const bands = [](std::string const &more) {
        std::string text;
        for (int band = 1; band <= 3; ++band)
            text += vrt_band(c_landsat, band, band == 2 ? more : "");
        return text;
    };
    ASSERT_NO_FATAL_FAILURE(open(put("m.vrt", vrt(349, 352, "", bands("") + mask))));
    ASSERT_NO_FATAL_FAILURE(expect(view_of(10, 12, 0.45), [&](int x, int y) {
        auto color = natural(x, y);
        color.a = cell(0, x, y) <= 70 ? 0 : cell(0, x, y) <= 90 ? 128 : 255;
        return color;
    }));
    ASSERT_NO_FATAL_FAILURE(open(put("n.vrt", vrt(349, 352, "", bands("<NoDataValue>56</NoDataValue>")))));
    ASSERT_NO_FATAL_FAILURE(expect(view_of(10, 12, 0.45), [&](int x, int y) {
        return cell(1, x, y) == 56 ? c_nothing : natural(x, y);
    }));
    // Nothing but cells without a value.
    auto const one = put_numbers("one.pgm", 60, 50, [](int, int) { return 7; });
    ASSERT_NO_FATAL_FAILURE(
        open(put("a.vrt", vrt(60, 50, "", vrt_band(one, 1, "<NoDataValue>7</NoDataValue>")))));
    for (int const type : {c_rtr_draw_normal, c_rtr_draw_channels, c_rtr_draw_gray}) {
        vx_rtr_lr2d_set_draw_type(layer.get(), type);
        ASSERT_NO_FATAL_FAILURE(expect(view_of(5, 5, 0.5), [](int, int) { return c_nothing; }));
    }
}

TEST_F(rasters, seen_from_far_are_read_in_pieces)
{
    std::mt19937 random(3);
    auto const numbers =
        put_numbers("n.pgm", 202, 161, [&](int, int) { return static_cast<int>(random() % 256); });
    ASSERT_NO_FATAL_FAILURE(open(numbers));
    auto const average = [&](int x, int y) {
        double sum = 0;
        for (int i = 0; i < 16; ++i)
            sum += cell(0, x + i % 4, y + i / 4);
        return vx_clr_init_grey(static_cast<int>(std::lround(sum / 16)));
    };
    ASSERT_NO_FATAL_FAILURE(expect(view_of(30, 20, 4.7), average, 4));
    // Nothing that the raster does not hold where a colour is to be left out.
    vx_rtr_lr2d_set_transparent_clr(layer.get(), vx_clr_init_grey(9));
    ASSERT_NO_FATAL_FAILURE(expect(
        view_of(30, 20, 4.7),
        [&](int x, int y) {
            int const grey = static_cast<int>(cell(0, x + 2, y + 2));
            return grey == 9 ? c_nothing : vx_clr_init_grey(grey);
        },
        4));
    // Overviews are taken where the raster has them.
    auto const small = put_numbers("s.pgm", 51, 41, [](int x, int y) { return 100 + x + y; });
    auto const overview =
        "<Overview><SourceFilename>" + small + "</SourceFilename><SourceBand>1</SourceBand></Overview>";
    ASSERT_NO_FATAL_FAILURE(open(put("o.vrt", vrt(204, 164, "", vrt_band(numbers, 1, overview)))));
    ASSERT_NO_FATAL_FAILURE(expect(
        view_of(30, 20, 4.1), [](int x, int y) { return vx_clr_init_grey(100 + x / 4 + y / 4); }, 4));
    // Also where it is hardly larger than a pixel.
    auto const pixels = draw(view_of(100, 80, 100));
    EXPECT_GE(std::ranges::count_if(pixels, [](unsigned char part) { return part < 255; }), 3);
}

TEST_F(rasters, that_are_gone_or_damaged_are_no_end)
{
    auto const file = (folder / "l.tif").string();
    std::filesystem::copy_file(c_landsat, file);
    ASSERT_NO_FATAL_FAILURE(open(file));
    auto const view = view_of(20, 15, 0.37);
    auto const whole = draw(view);
    // An open file is still there, for copies of the layer too; whoever opens it now has nothing.
    std::filesystem::remove(file);
    EXPECT_EQ(draw(view), whole);
    layer.reset(vx_lr2d_clone(layer.get()));
    EXPECT_EQ(draw(view), whole);
    layer.reset(vx_rtr_lr2d_create(vx::text::utf8_to_wide(file).c_str()));
    auto const nothing = draw(view, false);
    EXPECT_EQ(std::ranges::count(nothing, 255), std::ssize(nothing));
    // What can be read of a cut file is drawn.
    vx_test::write_file(file, vx_test::read_file(c_landsat).substr(0, 500'000));
    layer.reset(vx_rtr_lr2d_create(vx::text::utf8_to_wide(file).c_str()));
    (void)draw(view_of(340, 340, 0.37), false);
    EXPECT_EQ(draw(view), whole);
    // It ends when asked to.
    struct
    {
        int questions = 0;
        bool stop() { return ++questions > 0; }
    } asking;
    vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
    std::vector<unsigned char> pixels(4 * c_width * c_height, 255);
    vx_bmp_dc_set_pixels(dc.get(), pixels.data(), c_width, c_height, 4 * c_width);
    EXPECT_FALSE(
        vx_render_layer(layer.get(), view, dc.get(), make_closure<&decltype(asking)::stop>(&asking)));
    EXPECT_GT(asking.questions, 0);
}
