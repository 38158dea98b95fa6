#include "data/grid/grid_datasource.h"
#include "raster_fixture.h"

#include "platform/base/matrix.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_render_layer.h"
#include "platform/toolkit/controls/shape.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/brush.h"
#include "platform/toolkit/graphics/canvas.h"

using raster_page_test = raster_fixture;

namespace {
/// The cells of a raster, and a layer of it drawn with a pixel for each on white paper.
class drawn_raster
{
public:
    explicit drawn_raster(std::wstring const &file)
    {
        vx::data::grid_datasource grid;
        EXPECT_TRUE(grid.open(file, vx::data::access_read));
        bands.resize(static_cast<std::size_t>(grid.field_count()));
        for (std::size_t i = 0; i < bands.size(); ++i)
            EXPECT_TRUE(grid.field_values(static_cast<int>(i), bands[i]));
        Tvx_matrix3x3 matrix;
        EXPECT_TRUE(grid.geotransform(matrix));
        auto const &m = matrix.m;
        view.width = static_cast<int>(grid.xcount());
        view.height = static_cast<int>(grid.ycount());
        view.world = {m[0][2], m[1][2] + m[1][1] * view.height, m[0][2] + m[0][0] * view.width, m[1][2]};
    }
    [[nodiscard]] std::vector<Tvx_color> draw(Ivx_layer *layer) const
    {
        std::vector<unsigned char> pixels(bands[0].size() * 4, 255);
        vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
        vx_bmp_dc_set_pixels(dc.get(), pixels.data(), view.width, view.height, 4 * view.width);
        EXPECT_TRUE(vx_render_layer(layer, view, dc.get()));
        std::vector<Tvx_color> colors;
        for (std::size_t i = 0; i < pixels.size(); i += 4)
            colors.push_back(vx_clr_init_rgb(pixels[i + 2], pixels[i + 1], pixels[i]));
        return colors;
    }

    std::vector<std::vector<double>> bands;
    Tvx_map_view view;
};

int level(double value, double low, double high)
{
    return static_cast<int>(std::lround(255 * std::clamp((value - low) / (high - low), 0.0, 1.0)));
}
} // namespace

TEST_F(raster_page_test, a_draw_type_shows_what_belongs_to_it)
{
    open_raster(example(L"L7_ETMs.tif"));
    auto *const box = raster_page()->get_draw_type_cb()->get_combo_box();
    EXPECT_EQ(box->GetText(), L"Normal");
    EXPECT_TRUE(raster_page()->get_transparent_clr()->GetShowing());
    EXPECT_FALSE(channels()->GetShowing());
    struct
    {
        wchar_t const *text;
        int type;
        std::vector<std::wstring> tabs;
    } const cases[] = {{L"Channels", c_rtr_draw_channels, {L"Red", L"Green", L"Blue"}},
                       {L"Gray", c_rtr_draw_gray, {L"Gray"}},
                       {L"Normal", c_rtr_draw_normal, {}},
                       {L"Gray", c_rtr_draw_gray, {L"Gray"}},
                       {L"Channels", c_rtr_draw_channels, {L"Red", L"Green", L"Blue"}}};
    for (auto const &c : cases) {
        int const before = vx_rtr_lr2d_get_draw_type(layer.get());
        ASSERT_TRUE(choose_type(c.text));
        EXPECT_EQ(vx_rtr_lr2d_get_draw_type(copy()), c.type);
        EXPECT_EQ(vx_rtr_lr2d_get_draw_type(layer.get()), before) << "waits for Apply";
        EXPECT_EQ(channels()->GetShowing(), !c.tabs.empty());
        EXPECT_EQ(raster_page()->get_transparent_clr()->GetShowing(), c.tabs.empty());
        std::vector<std::wstring> tabs;
        auto *const pages = channels()->get_pages();
        for (int i = 0; !c.tabs.empty() && i < pages->GetPageCount(); ++i)
            if (pages->GetPages(i)->GetTabVisible())
                tabs.push_back(pages->GetPages(i)->GetCaption().str());
        EXPECT_EQ(tabs, c.tabs);
        apply();
        EXPECT_EQ(vx_rtr_lr2d_get_draw_type(layer.get()), c.type);
    }
    // A layer of its own shows its own: also where the former one was drawn otherwise.
    layer.reset(vx_rtr_lr2d_create(example(L"olinda_dem_utm25s.tif").c_str()));
    vx_lr2d_edt_form_set_lr2d(record.get(), layer.get());
    EXPECT_EQ(box->GetText(), L"Normal");
    EXPECT_FALSE(channels()->GetShowing());
    vx_lr2d_edt_form_set_lr2d(record.get(), nullptr);
    vx_lr2d_edt_form_update(record.get());
}

TEST_F(raster_page_test, transparency_counts_in_percent)
{
    open_raster(example(L"L7_ETMs.tif"));
    auto *const panel = raster_page()->get_opacity();
    struct
    {
        double opacity;
        int position;
        wchar_t const *text;
    } const shown[] = {{1.0, -1, L"0"},  {0.0, 99, L"100"}, {0.996, -1, L"0"},
                       {0.5, 49, L"50"}, {0.25, 74, L"75"}, {0.994, 0, L"1"}};
    for (auto const &c : shown) {
        vx_rtr_lr2d_set_opacity(copy(), c.opacity);
        raster_page()->update_controls();
        EXPECT_EQ(panel->get_position(), c.position);
        EXPECT_EQ(panel->get_size_panel()->get_edit()->GetText(), c.text);
        EXPECT_EQ(vx_rtr_lr2d_get_opacity(copy()), c.opacity) << "showing changes nothing";
    }
    auto *const edit = panel->get_size_panel()->get_edit();
    struct
    {
        wchar_t const *typed;
        double opacity;
    } const typed[] = {{L"50", 0.5}, {L"0", 1.0}, {L"100", 0.0}, {L"250", 0.0}, {L"7", 0.93}};
    for (auto const &c : typed) {
        ASSERT_TRUE(input::enter_text(edit, c.typed));
        ASSERT_TRUE(input::press(VK_TAB));
        EXPECT_NEAR(vx_rtr_lr2d_get_opacity(copy()), c.opacity, 1e-12) << c.typed;
    }
    panel->get_track_bar()->SetFocus();
    ASSERT_TRUE(input::press(VK_END));
    EXPECT_EQ(vx_rtr_lr2d_get_opacity(copy()), 0.0);
    apply();
    EXPECT_EQ(vx_rtr_lr2d_get_opacity(layer.get()), 0.0);
}

TEST_F(raster_page_test, a_colour_of_the_screen_is_left_out)
{
    open_raster(example(L"L7_ETMs.tif"));
    auto *const panel = raster_page()->get_transparent_clr();
    auto *const none = raster_page()->get_no_clr_btn();
    EXPECT_FALSE(none->GetEnabled());
    // Something of a colour that the window does not have.
    auto *const square = new TShape(record->get_form());
    square->SetParent(raster_page());
    square->SetBounds(40, 200, 60, 60);
    square->GetBrush()->SetColor(RGB(250, 12, 130));
    square->BringToFront();
    input::wait_idle();
    TPoint const middle = square->ClientToScreen({30, 30});
    input::on_next_modal([middle](input::modal_window const &window) {
        auto *const form = dynamic_cast<Tvx_clr_picker_form *>(window.form());
        ASSERT_NE(form, nullptr);
        TPoint const at = form->ScreenToClient(middle);
        EXPECT_TRUE(input::click(form, at.X, at.Y));
    });
    ASSERT_TRUE(input::click(panel->get_picker_btn()));
    EXPECT_EQ(vx_rtr_lr2d_get_transparent_clr(copy()), vx_clr_init_rgb(250, 12, 130));
    EXPECT_EQ(vx_rtr_lr2d_get_transparent_clr(layer.get()).a, 0);
    EXPECT_TRUE(none->GetEnabled());
    apply();
    EXPECT_EQ(vx_rtr_lr2d_get_transparent_clr(layer.get()), vx_clr_init_rgb(250, 12, 130));
    ASSERT_TRUE(input::click(none));
    EXPECT_EQ(vx_rtr_lr2d_get_transparent_clr(copy()).a, 0);
    EXPECT_FALSE(none->GetEnabled());
    next_color = vx_clr_init_rgb(1, 2, 3);
    ASSERT_TRUE(input::click(panel->get_clr_panel()->get_button()));
    EXPECT_EQ(vx_rtr_lr2d_get_transparent_clr(copy()), next_color);
}

TEST_F(raster_page_test, a_channel_is_stretched_by_numbers_sliders_and_marks)
{
    open_raster(example(L"L7_ETMs.tif"));
    ASSERT_TRUE(choose_type(L"Channels"));
    auto *const edit = channel_edit(1); // 32 to 255
    auto *const low = edit->get_track_min();
    auto *const high = edit->get_track_max();
    auto const stretch = [&] { return stretch_of(copy(), 1); };
    using pair = std::pair<double, double>;
    EXPECT_EQ(stretch(), pair(0, 255)) << "nothing is changed by showing it";

    // Numbers.
    ASSERT_TRUE(input::enter_text(low->get_size_panel()->get_edit(), L"60"));
    EXPECT_EQ(stretch(), pair(60, 255));
    ASSERT_TRUE(input::enter_text(high->get_size_panel()->get_edit(), L"120.5"));
    EXPECT_EQ(stretch(), pair(60, 120.5));
    EXPECT_EQ(edit->get_chart()->get_val2(), 120.5);
    ASSERT_TRUE(input::enter_text(high->get_size_panel()->get_edit(), L"9000"));
    EXPECT_EQ(stretch(), pair(60, 255));
    ASSERT_TRUE(input::press(VK_TAB));
    EXPECT_EQ(high->get_size_panel()->get_edit()->GetText(), L"255") << "what was too much is replaced";
    // They may cross; the channel has them in order.
    ASSERT_TRUE(input::enter_text(high->get_size_panel()->get_edit(), L"50"));
    EXPECT_EQ(stretch(), pair(50, 60));
    EXPECT_EQ(edit->get_chart()->get_val1(), 60);

    // Sliders.
    low->get_track_bar()->SetFocus();
    ASSERT_TRUE(input::press(VK_HOME));
    EXPECT_EQ(stretch(), pair(32, 50));
    for (int i = 1; i <= 5; ++i) {
        ASSERT_TRUE(input::press(VK_RIGHT));
        EXPECT_NEAR(stretch().first, 32 + i * 5 * 0.223, 1e-9);
        EXPECT_EQ(low->get_track_bar()->GetPosition(), i * 5);
    }
    high->get_track_bar()->SetFocus();
    ASSERT_TRUE(input::press(VK_END));
    EXPECT_EQ(stretch().second, 255);

    // Marks in the chart.
    auto *const chart = edit->get_chart()->get_chart();
    ASSERT_TRUE(input::enter_text(low->get_size_panel()->get_edit(), L"80"));
    ASSERT_TRUE(input::enter_text(high->get_size_panel()->get_edit(), L"160"));
    ASSERT_TRUE(input::move(chart, column(edit, 80) + 3, c_row));
    EXPECT_EQ(chart->GetCursor(), crDefault);
    ASSERT_TRUE(input::move(chart, column(edit, 80) + 2, c_row));
    EXPECT_EQ(chart->GetCursor(), crSizeWE);
    ASSERT_TRUE(input::drag(chart, column(edit, 80), c_row, column(edit, 100), c_row));
    EXPECT_NEAR(stretch().first, 100, 1);
    EXPECT_EQ(stretch().second, 160);
    EXPECT_FALSE(chart->GetZoomed());
    EXPECT_EQ(low->get_val(), stretch().first);
    ASSERT_TRUE(input::drag(chart, column(edit, low->get_val()), c_row, column(edit, 200), c_row));
    EXPECT_EQ(stretch().first, 160) << "beyond the other mark";
    EXPECT_NEAR(stretch().second, 200, 1);
    ASSERT_TRUE(input::drag(chart, column(edit, 160), c_row, chart->GetWidth() + 500, c_row));
    EXPECT_EQ(high->get_val(), 255) << "stops at the bound of the slider";
    ASSERT_TRUE(input::drag(chart, column(edit, 255), c_row, -300, c_row));
    EXPECT_EQ(high->get_val(), 32);

    // Only the columns of a mark are drawn anew: what stands there is what all of it drawn anew shows.
    ASSERT_TRUE(input::mouse_down(chart, column(edit, 32), c_row));
    ASSERT_TRUE(input::move(chart, column(edit, 60), c_row, {ssLeft}));
    ASSERT_TRUE(input::move(chart, column(edit, 90), c_row, {ssLeft}));
    TBitmap partly, wholly;
    Screen->Grab(partly);
    chart->Invalidate();
    input::wait_idle();
    Screen->Grab(wholly);
    std::size_t others = 0, marked = 0;
    TPoint const corner = chart->ClientToScreen({0, 0});
    for (int y = corner.Y; y < corner.Y + chart->GetHeight(); ++y)
        for (int x = corner.X; x < corner.X + chart->GetWidth(); ++x) {
            TColor const pixel = wholly.GetCanvas()->GetPixel(x, y);
            others += pixel != partly.GetCanvas()->GetPixel(x, y);
            marked += pixel == RGB(255, 0, 0);
        }
    EXPECT_EQ(others, 0u);
    EXPECT_GT(marked, 300u) << "nothing of the window was seen";
    ASSERT_TRUE(input::mouse_up(chart, column(edit, 90), c_row));

    // Two at one place: the first is taken.
    ASSERT_TRUE(input::enter_text(low->get_size_panel()->get_edit(), L"100"));
    ASSERT_TRUE(input::enter_text(high->get_size_panel()->get_edit(), L"100"));
    ASSERT_TRUE(input::drag(chart, column(edit, 100), c_row, column(edit, 50), c_row));
    EXPECT_EQ(high->get_val(), 100);
    EXPECT_NEAR(low->get_val(), 50, 1);
    // By keys.
    ASSERT_TRUE(input::tab_to(chart));
    ASSERT_TRUE(input::press(VK_DOWN) && input::press(VK_RIGHT));
    EXPECT_GT(high->get_val(), 100);
    ASSERT_TRUE(input::press_times(VK_RIGHT, 110));
    EXPECT_EQ(stretch().second, 255);

    // The others are as they were, and the host has it with Apply.
    EXPECT_EQ(stretch_of(copy(), 0), pair(0, 255));
    auto const wanted = stretch();
    apply();
    EXPECT_EQ(stretch_of(layer.get(), 1), wanted);
    EXPECT_EQ(stretch(), wanted);
}

TEST_F(raster_page_test, the_range_of_the_histogram_is_chosen_in_its_menu)
{
    open_raster(example(L"L7_ETMs.tif"));
    ASSERT_TRUE(choose_type(L"Gray"));
    auto *const edit = channel_edit(3);
    void *const gray = channel_of(copy(), 3);
    auto *const menu = edit->get_chart()->get_menu();
    auto const range = [&] {
        double low = 0, high = 0;
        vx_histogramm_get_params(edit->get_histogramm(), nullptr, &low, &high);
        return std::pair(low, high);
    };
    auto const counted = [&] {
        double sum = 0;
        for (unsigned i = 0; i < vx_histogramm_get_size(edit->get_histogramm()); ++i)
            sum += vx_histogramm_get(edit->get_histogramm(), i);
        return sum;
    };
    using pair = std::pair<double, double>;
    EXPECT_EQ(menu->GetItems()->GetCount(), 3);
    EXPECT_EQ(range(), pair(47, 255));
    ASSERT_TRUE(input::enter_text(edit->get_track_min()->get_size_panel()->get_edit(), L"57"));
    ASSERT_TRUE(input::enter_text(edit->get_track_max()->get_size_panel()->get_edit(), L"55"));
    ASSERT_TRUE(input::choose(menu, L"Range between the marks"));
    EXPECT_EQ(range(), pair(55, 57)) << "crossed marks too";
    EXPECT_EQ(counted(), 97 + 395 + 1073);
    EXPECT_EQ(pair(edit->get_track_min()->get_min(), edit->get_track_max()->get_max()), pair(55, 57));
    EXPECT_FALSE(vx_clr_channel_get_histogramm_default(gray));
    EXPECT_EQ(pair(vx_clr_channel_get_histogramm_min(gray), vx_clr_channel_get_histogramm_max(gray)),
              pair(55, 57));
    EXPECT_EQ(stretch_of(copy(), 3), pair(55, 57));
    apply();
    EXPECT_EQ(range(), pair(55, 57)) << "it is the channel's";
    ASSERT_TRUE(input::choose(menu, L"Default range"));
    EXPECT_EQ(range(), pair(47, 255));
    EXPECT_TRUE(vx_clr_channel_get_histogramm_default(channel_of(copy(), 3)));
    EXPECT_EQ(stretch_of(copy(), 3), pair(55, 57)) << "the stretch stays";
    ASSERT_TRUE(input::choose(menu, L"Range between the marks"));
    ASSERT_TRUE(input::choose(menu, L"Compute again"));
    EXPECT_EQ(range(), pair(47, 255));
    EXPECT_EQ(counted(), 122848);

    // Another band: its values from the least to the greatest.
    ASSERT_TRUE(input::choose_item(edit->get_prop_cb()->get_combo_box(), 3));
    EXPECT_EQ(band_of(copy(), 3), vx_rtr_lr2d_get_prop_name(copy(), 3));
    EXPECT_EQ(range(), pair(9, 255));
    EXPECT_EQ(stretch_of(copy(), 3), pair(9, 255));
}

TEST_F(raster_page_test, heights_may_be_logarithmic_and_a_hint_tells_the_share)
{
    open_raster(example(L"L7_ETMs.tif"));
    ASSERT_TRUE(choose_type(L"Channels"));
    auto *const edit = channel_edit(0);
    auto *const chart = edit->get_chart()->get_chart();
    int const most = chart->GetChartRect().Top;
    auto const top = [&](double share) { return chart->GetLeftAxis()->CalcPosValue(share); };
    EXPECT_NEAR(top(3635.0 / 122848), most, 3);
    EXPECT_GT(top(19.0 / 122848), chart->GetChartRect().Bottom - 4) << "hardly seen";
    ASSERT_TRUE(input::click(edit->get_chart()->get_log_box(), 8, 8));
    EXPECT_NEAR(top(3635.0 / 122848), most, 3);
    EXPECT_LT(top(1.0 / 122848), chart->GetChartRect().Bottom - 4) << "a single cell is seen";
    EXPECT_TRUE(channel_edit(2)->get_chart()->get_log_height()) << "on all tabs";
    ASSERT_TRUE(input::click(channel_edit(2)->get_chart()->get_log_box(), 8, 8));
    EXPECT_FALSE(channel_edit(0)->get_chart()->get_log_height());

    ASSERT_TRUE(input::move(chart, column(edit, 60.3), c_row));
    EXPECT_EQ(Application->GetHint(), chart->GetHint());
    EXPECT_TRUE(chart->GetHint().str().starts_with(L"60.")) << chart->GetHint().to_utf8();
    EXPECT_NE(chart->GetHint().Pos(L": 2.61 % of the values lie between 59.9"), 0)
        << chart->GetHint().to_utf8();
    ASSERT_TRUE(input::move(chart, 2, 2));
    EXPECT_TRUE(chart->GetHint().IsEmpty());
}

TEST_F(raster_page_test, the_host_draws_what_was_applied)
{
    std::wstring const file = example(L"L7_ETMs.tif");
    drawn_raster const raster(file);
    open_raster(file);
    auto const wrong = [&](auto const &wanted) {
        auto const colors = raster.draw(layer.get());
        std::size_t count = 0;
        for (std::size_t i = 0; i < colors.size(); ++i)
            count += !is_close(colors[i], wanted(i));
        return count;
    };
    auto const &cells = raster.bands;

    ASSERT_TRUE(choose_type(L"Gray"));
    auto *const gray = channel_edit(3);
    ASSERT_TRUE(input::choose_item(gray->get_prop_cb()->get_combo_box(), 3));
    ASSERT_TRUE(input::enter_text(gray->get_track_min()->get_size_panel()->get_edit(), L"20"));
    auto *const chart = gray->get_chart()->get_chart();
    ASSERT_TRUE(input::drag(chart, column(gray, 255), c_row, column(gray, 110), c_row));
    auto const [low, high] = stretch_of(copy(), 3);
    EXPECT_NEAR(high, 110, 1);
    apply();
    EXPECT_EQ(wrong([&, low = low, high = high](std::size_t i) {
                  int const g = level(cells[3][i], low, high);
                  return vx_clr_init_rgb(g, g, g);
              }),
              0u);

    ASSERT_TRUE(choose_type(L"Channels"));
    int const bands[] = {4, 3, 0};
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(input::choose_item(channel_edit(i)->get_prop_cb()->get_combo_box(), bands[i]));
    ASSERT_TRUE(input::enter_text(raster_page()->get_opacity()->get_size_panel()->get_edit(), L"40"));
    apply();
    EXPECT_EQ(wrong([&](std::size_t i) {
                  auto const over = [](int part) { return static_cast<int>(std::lround(0.6 * part + 102)); };
                  return vx_clr_init_rgb(over(level(cells[4][i], 1, 255)), over(level(cells[3][i], 9, 255)),
                                         over(level(cells[0][i], 47, 255)));
              }),
              0u);

    ASSERT_TRUE(input::enter_text(raster_page()->get_opacity()->get_size_panel()->get_edit(), L"0"));
    ASSERT_TRUE(choose_type(L"Normal"));
    apply();
    auto const normal = raster.draw(layer.get());
    next_color = normal[normal.size() / 2];
    ASSERT_TRUE(input::click(raster_page()->get_transparent_clr()->get_clr_panel()->get_button()));
    apply();
    auto const paper = vx_clr_init_rgb(255, 255, 255);
    EXPECT_EQ(wrong([&](std::size_t i) { return normal[i] == next_color ? paper : normal[i]; }), 0u);
    EXPECT_FALSE(is_close(raster.draw(layer.get())[normal.size() / 2], next_color));
}
