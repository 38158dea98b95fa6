#include "counted_raster.h"
#include "raster_fixture.h"
#include "support/temp_dir.h"

#include "platform/base/text_codec.h"
#include "platform/layers/vx_lr2d.h"

#include <filesystem>
#include <limits>

namespace {
constexpr double c_none = std::numeric_limits<double>::quiet_NaN();

class raster_cache_test : public raster_fixture
{
protected:
    raster_cache_test()
    {
        for (double const step : {1.0, 2.0, 3.0, 4.0}) {
            std::vector<double> cells;
            for (int i = 0; i < 1000; ++i)
                cells.push_back(step * (i % 101));
            raster.bands.push_back(cells);
        }
    }
    void expect_walks(int stats, int histograms, char const *where)
    {
        EXPECT_EQ(raster.taken(), std::pair(stats, histograms)) << where;
    }
    [[nodiscard]] static std::pair<double, double> range(Tvx_channel_edit *edit)
    {
        return {edit->get_track_min()->get_min(), edit->get_track_min()->get_max()};
    }
    counted_raster raster;
};
using pair = std::pair<double, double>;
} // namespace

TEST_F(raster_cache_test, nothing_is_worked_out_twice)
{
    open_raster(L"counted:a");
    expect_walks(0, 0, "drawn without channels");
    ASSERT_TRUE(choose_type(L"Channels"));
    expect_walks(3, 3, "each band once");
    EXPECT_EQ(channel_edit(0)->get_prop_cb()->get_combo_box()->GetText(), L"band 1");
    raster_page()->update_controls();
    ASSERT_TRUE(input::click_tab(channels()->get_pages(), 2));
    ASSERT_TRUE(choose_type(L"Gray"));
    apply();
    ASSERT_TRUE(choose_type(L"Channels"));
    expect_walks(0, 0, "shown again, on other tabs, applied, and gray of a band that is known");
    auto *const edit = channel_edit(0);
    auto *const menu = edit->get_chart()->get_menu();
    auto *const chart = edit->get_chart()->get_chart();
    ASSERT_TRUE(input::enter_text(edit->get_track_min()->get_size_panel()->get_edit(), L"20"));
    ASSERT_TRUE(input::enter_text(edit->get_track_max()->get_size_panel()->get_edit(), L"70"));
    ASSERT_TRUE(input::drag(chart, column(edit, 20), c_row, column(edit, 40), c_row));
    expect_walks(0, 0, "stretching");
    ASSERT_TRUE(input::choose(menu, L"Range between the marks"));
    expect_walks(0, 1, "zoom to the marks");
    ASSERT_TRUE(input::choose(menu, L"Range between the marks"));
    raster_page()->update_controls();
    expect_walks(0, 0, "the same range");
    ASSERT_TRUE(input::choose(menu, L"Default range"));
    expect_walks(0, 0, "back to all values, which the band has");
    ASSERT_TRUE(input::choose(menu, L"Compute again"));
    expect_walks(1, 1, "because the user says so");
    ASSERT_TRUE(input::choose_item(edit->get_prop_cb()->get_combo_box(), L"band 2"));
    EXPECT_EQ(range(edit), pair(0, 200));
    expect_walks(0, 0, "the second band is known");
    ASSERT_TRUE(input::choose_item(edit->get_prop_cb()->get_combo_box(), L"band 4"));
    EXPECT_EQ(range(edit), pair(0, 400));
    expect_walks(1, 1, "the fourth is not");

    // Cells that have changed are seen when the user asks, with the bounds as they were too.
    auto &cells = raster.bands[3];
    std::ranges::fill(cells, 400.0);
    cells[0] = 0;
    raster_page()->update_controls();
    EXPECT_EQ(vx_histogramm_get(edit->get_histogramm(), 0), 10);
    ASSERT_TRUE(input::choose(menu, L"Compute again"));
    EXPECT_EQ(vx_histogramm_get(edit->get_histogramm(), 0), 1);
    EXPECT_EQ(vx_histogramm_get(edit->get_histogramm(), 255), 999);
}

TEST_F(raster_cache_test, what_cannot_be_worked_out_shows_bytes)
{
    struct
    {
        char const *what;
        void (*make)(counted_raster &);
        bool has_bands;
    } const cases[] = {
        {"cells cannot be read", [](counted_raster &r) { r.is_broken = true; }, true},
        {"no cell has a value", [](counted_raster &r) { r.bands.assign(4, std::vector<double>(50, c_none)); },
         true},
        {"no bounds that are numbers",
         [](counted_raster &r) {
             r.bands.assign(4, {1, std::numeric_limits<double>::infinity()});
         },
         true},
        {"the raster is gone", [](counted_raster &r) { r.is_gone = true; }, false},
    };
    int number = 0;
    for (auto const &c : cases) {
        SCOPED_TRACE(c.what);
        auto const whole = raster.bands;
        c.make(raster);
        open_raster(L"counted:" + std::to_wstring(number++));
        ASSERT_TRUE(choose_type(L"Gray"));
        auto *const edit = channel_edit(3);
        EXPECT_EQ(edit->get_prop_cb()->get_combo_box()->GetItems()->GetCount(), c.has_bands ? 4 : 0);
        EXPECT_EQ(range(edit), pair(0, 255));
        EXPECT_EQ(vx_histogramm_get_size(edit->get_histogramm()), 100u);
        // It can be stretched all the same, and the menu harms nothing.
        ASSERT_TRUE(input::enter_text(edit->get_track_min()->get_size_panel()->get_edit(), L"10"));
        EXPECT_EQ(stretch_of(copy(), 3), pair(10, 255));
        for (wchar_t const *const line : {L"Range between the marks", L"Compute again", L"Default range"}) {
            ASSERT_TRUE(input::choose(edit->get_chart()->get_menu(), line));
            EXPECT_EQ(range(edit), pair(0, 255));
            EXPECT_EQ(stretch_of(copy(), 3), pair(10, 255));
        }
        apply();
        raster.bands = whole;
        raster.is_broken = raster.is_gone = false;
        ASSERT_TRUE(input::choose(edit->get_chart()->get_menu(), L"Compute again"));
        if (c.has_bands) {
            EXPECT_EQ(range(edit), pair(0, 100)) << "and comes back";
        }
    }
}

TEST_F(raster_cache_test, a_raster_that_vanishes_while_it_is_shown)
{
    open_raster(L"counted:a");
    ASSERT_TRUE(choose_type(L"Gray"));
    auto *const edit = channel_edit(3);
    raster.is_gone = true;
    raster_page()->update_controls();
    EXPECT_EQ(range(edit), pair(0, 100)) << "what is known stays";
    ASSERT_TRUE(input::choose(edit->get_chart()->get_menu(), L"Compute again"));
    EXPECT_EQ(range(edit), pair(0, 100));
    ASSERT_TRUE(input::choose_item(edit->get_prop_cb()->get_combo_box(), L"band 3"));
    EXPECT_EQ(range(edit), pair(0, 255));
    EXPECT_EQ(stretch_of(copy(), 3), pair(0, 255));
}

TEST_F(raster_cache_test, odd_numbers_in_cells_and_channels)
{
    raster.bands = {{5, 5, 5}, {0, 1}, {1e300, -1e300}, {1e-9, 3e-9}};
    raster.types = {vx::codes::plain::cells_int16};
    open_raster(L"counted:a");
    ASSERT_TRUE(choose_type(L"Gray"));
    auto *const edit = channel_edit(3);
    EXPECT_EQ(range(edit), pair(5, 5));
    EXPECT_EQ(vx_histogramm_get_size(edit->get_histogramm()), 1u) << "one class";
    EXPECT_EQ(edit->get_chart()->get_chart()->GetSeries()->GetCount(), 2);
    EXPECT_EQ(edit->get_track_min()->get_track_bar()->GetPosition(), 50);
    edit->get_track_min()->get_track_bar()->SetFocus();
    ASSERT_TRUE(input::press_times(VK_RIGHT, 2));
    EXPECT_EQ(stretch_of(copy(), 3).first, 5);
    EXPECT_EQ(edit->get_track_min()->get_track_bar()->GetPosition(), 50);
    for (int const band : {1, 2, 3})
        ASSERT_TRUE(input::choose_item(edit->get_prop_cb()->get_combo_box(), band));
    EXPECT_EQ(stretch_of(copy(), 3), pair(1e-9, 3e-9));
    // Of a file of strangers.
    void *const gray = channel_of(layer.get(), 3);
    vx_rtr_lr2d_set_draw_type(layer.get(), c_rtr_draw_gray);
    for (double const odd : {c_none, std::numeric_limits<double>::infinity(), -1e308}) {
        vx_clr_channel_set_min(gray, odd);
        vx_clr_channel_set_max(gray, -odd);
        vx_clr_channel_set_histogramm_default(gray, false);
        vx_clr_channel_set_histogramm_min(gray, odd);
        vx_clr_channel_set_histogramm_max(gray, odd);
        vx_lr2d_edt_form_set_lr2d(record.get(), layer.get());
        input::wait_idle();
        for (auto *const track : {edit->get_track_min(), edit->get_track_max()}) {
            track->get_track_bar()->SetFocus();
            ASSERT_TRUE(input::press(VK_HOME) && input::press(VK_END) && input::press(VK_LEFT));
        }
        auto const [low, high] = stretch_of(copy(), 3);
        EXPECT_TRUE(std::isfinite(low) && std::isfinite(high)) << odd;
        ASSERT_TRUE(input::choose(edit->get_chart()->get_menu(), L"Default range"));
        EXPECT_EQ(range(edit), pair(5, 5));
    }
}

TEST_F(raster_cache_test, nothing_is_written_beside_the_raster)
{
    vx_test::temp_dir const dir;
    auto const file = dir / "bands.tif";
    std::filesystem::copy_file(VX_EXAMPLE_DATA "/L7_ETMs.tif", file);
    auto const before = std::filesystem::last_write_time(file);
    std::filesystem::permissions(dir.path(), std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::remove);
    open_raster(vx::text::utf8_to_wide(file.string()));
    ASSERT_TRUE(choose_type(L"Channels"));
    ASSERT_TRUE(input::choose(channel_edit(1)->get_chart()->get_menu(), L"Compute again"));
    EXPECT_EQ(range(channel_edit(1)), pair(32, 255));
    std::filesystem::permissions(dir.path(), std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::add);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 1);
    EXPECT_EQ(std::filesystem::last_write_time(file), before);
}
