#include "host/command_line.h"
#include "host/map_text.h"
#include "host/map_unit.h"

#include <gtest/gtest.h>
#include <locale.h>

namespace {
TEST(map_unit, is_read_from_the_projection)
{
    struct
    {
        wchar_t const *text;
        std::optional<Tvx_map_unit> unit;
    } const cases[] = {
        {L"+proj=longlat +datum=WGS84 +no_defs", Tvx_map_unit{true, 1}},
        {L"+proj=latlong +ellps=clrk66", Tvx_map_unit{true, 1}},
        {L"+proj=utm +zone=25 +south +units=m", Tvx_map_unit{false, 1}},
        {L"+proj=tmerc +lat_0=31 +units=us-ft +no_defs", Tvx_map_unit{false, 1200.0 / 3937}},
        {L"+proj=lcc +to_meter=0.3048 +units=m", Tvx_map_unit{false, 0.3048}},
        {L"+proj=lcc +units=km", Tvx_map_unit{false, 1000}},
        {L"proj=merc units=ft", Tvx_map_unit{false, 0.3048}},
        // Nonsense in a number falls back to metres.
        {L"+proj=lcc +to_meter=-4", Tvx_map_unit{false, 1}},
        {L"+proj=lcc +to_meter=nan +units=furlong", Tvx_map_unit{false, 1}},
        {L"+proj=lcc +to_meter=\u0663", Tvx_map_unit{false, 1}},
        {L"", {}},
        {L"   ", {}},
        {L"+init=epsg:4326", {}},
        {L"+proj", {}},
        {L"+proj=", {}},
    };
    for (auto const &c : cases)
        EXPECT_EQ(vx_map_unit_from_proj4(c.text), c.unit) << std::string(c.text, c.text + wcslen(c.text));
}

TEST(map_unit, is_guessed_from_the_extent)
{
    EXPECT_TRUE(vx_map_unit_guess({-180, -90, 180, 83.6}).is_degree);
    EXPECT_FALSE(vx_map_unit_guess({0, 0, 500, 80}).is_degree);
    EXPECT_FALSE(vx_map_unit_guess({288000, 9e6, 290000, 9.1e6}).is_degree);
    EXPECT_FALSE(vx_map_unit_guess({}).is_degree);
}

TEST(map_unit, scale_and_pixel_size_are_inverse)
{
    Tvx_canvas_view view;
    view.set_size(100, 100);
    view.set_center({0, 60});
    for (Tvx_map_unit const unit :
         {Tvx_map_unit{true, 1}, Tvx_map_unit{false, 1}, Tvx_map_unit{false, 0.3048}}) {
        view.set_units_per_pixel(vx_map_scale_to_units_per_pixel(25000, view, unit, 4));
        EXPECT_NEAR(vx_map_scale(view, unit, 4), 25000, 1e-6);
    }
    // A pixel of a quarter of a millimetre that shows 10 m.
    view.set_units_per_pixel(10);
    EXPECT_NEAR(vx_map_scale(view, {false, 1}, 4), 40000, 1e-9);
    // A degree of longitude at 60 degrees of latitude is half of one at the equator; at the pole it is not
    // nothing.
    view.set_units_per_pixel(1);
    EXPECT_NEAR(vx_map_scale(view, {true, 1}, 1), 111195080.0 / 2, 1);
    view.set_center({0, 90});
    EXPECT_GT(vx_map_scale(view, {true, 1}, 1), 0);
}

TEST(map_text, scales_are_written_and_read)
{
    struct
    {
        char const *text;
        double scale; // 0: is refused
    } const cases[] = {
        {"1 : 25\u2009000", 25000},
        {"1:25000", 25000},
        {"1/2500000", 2500000},
        {" 1 / 25,000", 25000},
        {"2/25000", 0},
        {"1/1/25000", 0},
        {"25000", 25000},
        {" 25 000 ", 25000},
        {"1:25,000", 25000},
        {"1 : 2.5", 2.5},
        {"1,234,567", 1234567},
        {"", 0},
        {"abc", 0},
        {"1:", 0},
        {"1:-5", 0},
        {"0", 0},
        {"2:500", 0},
        {"1:2:3", 0},
        {"nan", 0},
        {"inf", 0},
        {"1e40", 0},
        {"25,0", 0},
    };
    for (auto const &c : cases)
        EXPECT_EQ(vx_map_text_parse_scale(QString::fromUtf8(c.text)).value_or(0), c.scale) << c.text;
    for (double const scale : {500.0, 25000.0, 1234567.0, 100000000.0, 7.25})
        EXPECT_EQ(vx_map_text_parse_scale(vx_map_text_scale(scale)), scale);
    EXPECT_EQ(vx_map_text_scale(0), QString());
    EXPECT_EQ(vx_map_text_scale(-3), QString());
}

TEST(map_text, coordinates_have_the_decimals_that_a_pixel_calls_for)
{
    Tvx_canvas_view view;
    view.set_units_per_pixel(0.01);
    EXPECT_EQ(vx_map_text_coordinates({-81.12345, 35.5}, view, {true, 1}),
              QString::fromUtf8("-81.12\u00b0   35.50\u00b0"));
    view.set_units_per_pixel(20);
    EXPECT_EQ(vx_map_text_coordinates({288975.4, 9120600.6}, view, {false, 1}), "288975   9120601");
}

TEST(command_line, is_read)
{
    Tvx_command_line const line = vx_command_line_parse(
        {"a.shp", "--lang=ru", "--shot", "out", "--headless", "-platform", "xcb", "--", "--b"});
    EXPECT_EQ(line.error, "");
    EXPECT_EQ(line.files, (std::vector<std::string>{"a.shp", "--b"}));
    EXPECT_EQ(line.language, "ru");
    EXPECT_EQ(line.shot_directory, "out");
    EXPECT_TRUE(line.headless);
    EXPECT_EQ(vx_command_line_parse({"--extensions", "more"}).extension_directory, "more");
    Tvx_command_line const sheets = vx_command_line_parse({"--style-sheets=out", "a.slib"});
    EXPECT_EQ(sheets.error, "");
    EXPECT_EQ(sheets.sheet_directory, "out");
    Tvx_command_line const import =
        vx_command_line_parse({"--import-property-file", "a.tos4", "1.tif", "2.tif"});
    EXPECT_EQ(import.error, "");
    EXPECT_EQ(import.import_file, "a.tos4");
    EXPECT_EQ(import.files.size(), 2U);
}

TEST(command_line, what_is_wrong_is_told)
{
    for (std::vector<std::string> const &arguments :
         std::vector<std::vector<std::string>>{{"--lang"},
                                               {"--lang", "fr"},
                                               {"--shot="},
                                               {"--headless"},
                                               {"--wat"},
                                               {"-x", "a.shp"},
                                               {"--import-property-file=a.tos4"}})
        EXPECT_NE(vx_command_line_parse(arguments).error, "") << arguments.front();
    EXPECT_EQ(vx_command_line_parse({"--headless", "--help"}).error, "");
}
} // namespace
