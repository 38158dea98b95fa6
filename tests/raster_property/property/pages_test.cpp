#include "property_fixture.h"

#include "platform/basic/vx_clr_channel.h"
#include "platform/layers/vx_lr.h"

#include <filesystem>

namespace {
/// The colour of the row of a range scale that a value falls in.
Tvx_color color_of(void *scale, double value)
{
    unsigned const size = vx_rng_scale_get_size(scale);
    void *row = vx_rng_scale_get_max_prm_ptr(scale);
    if (value <= vx_rng_scale_get_min_value(scale))
        row = vx_rng_scale_get_min_prm_ptr(scale);
    else
        for (unsigned i = size; i-- > 0;)
            if (value <= vx_rng_scale_get_max(scale, i))
                row = vx_rng_scale_get_scale_prm_ptr(scale, i);
    return *vx_stl_prm_get_clr_style_ptr(vx_scale_prm_get_stl_prm_ptr(row), false);
}

class property_pages : public property_fixture
{
protected:
    [[nodiscard]] Tvx_tos_grid_lr2d_edit *grid_page() const { return shown<Tvx_tos_grid_lr2d_edit>(); }
    [[nodiscard]] void *range_scale() const
    {
        return vx_stl_mngr_get_rng_scale_ptr(vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer.get()));
    }
    /// Every cell of the host's map has the colour of its class, but for what rounding does.
    void expect_classes(std::vector<double> const &values, std::size_t first = 0)
    {
        auto const colors = picture();
        std::size_t wrong = 0;
        for (std::size_t i = 0; i < colors.size(); ++i)
            wrong += !is_close(colors[i], color_of(range_scale(), values[first + i]));
        EXPECT_EQ(wrong, 0u) << "of " << colors.size();
    }
    void after_apply() override { ++reports; }
    int reports = 0;
};
} // namespace

TEST_F(property_pages, a_slice_is_chosen_counted_from_one)
{
    open_file(shared().slices);
    auto const values = values_of(shared().slices, 0);
    std::size_t const one = grid_of(shared().slices).count[0] * grid_of(shared().slices).count[1];
    vx_tos_grid_lr2d_set_interpolate(copy(), false);
    ASSERT_TRUE(input::click_tab(tabs(), L"Slice"));
    auto *const panel = shown<Tvx_tos_slice_lr2d_edit>()->get_slice_panel();
    EXPECT_EQ(panel->get_max(), 4);
    auto *const edit = panel->get_size_panel()->get_edit();
    EXPECT_EQ(edit->GetText(), L"1");
    struct
    {
        wchar_t const *typed;
        int slice;
    } const cases[] = {{L"5", 4}, {L"2", 1}, {L"9", 4}, {L"1", 0}};
    for (auto const &c : cases) {
        ASSERT_TRUE(input::enter_text(edit, c.typed));
        EXPECT_EQ(vx_tos_slice_lr2d_get_zslice(copy()), c.slice) << c.typed;
        apply();
        expect_classes(values, static_cast<std::size_t>(c.slice) * one);
    }
    EXPECT_TRUE(panel->get_track_bar()->CanFocus());
    panel->get_track_bar()->SetFocus();
    ASSERT_TRUE(input::press(VK_RIGHT));
    EXPECT_EQ(vx_tos_slice_lr2d_get_zslice(copy()), 1);
    EXPECT_EQ(edit->GetText(), L"2");
    EXPECT_EQ(vx_tos_slice_lr2d_get_zslice(layer.get()), 0) << "before Apply";
}

TEST_F(property_pages, a_grid_is_drawn_by_its_scale)
{
    open_file(shared().heights);
    auto const values = values_of(shared().heights, 0);
    auto *const page = grid_page();
    auto *const box = page->get_interpolate_cb()->get_check_box();
    EXPECT_EQ(page->get_draw_type_cb()->get_draw_type(), c_grid_draw_scale);
    ASSERT_TRUE(box->GetShowing());
    EXPECT_TRUE(box->GetChecked());
    ASSERT_TRUE(input::click(box, 8, 10));
    EXPECT_FALSE(vx_tos_grid_lr2d_get_interpolate(copy()));
    EXPECT_EQ(applied, 0);
    apply();
    expect_classes(values);
    auto const plain = picture();
    ASSERT_TRUE(input::click(box, 8, 10));
    apply();
    EXPECT_NE(picture(), plain) << "colours are mixed";

    // Only classes can be mixed; what was chosen stays in the layer.
    auto *const modes = page->get_clr_stl_mngr_edit()->get_mode_edit()->get_combo_box();
    EXPECT_EQ(modes->GetItems()->GetCount(), 3);
    for (int const mode : {0, 1, 2}) {
        ASSERT_TRUE(input::choose_item(modes, mode));
        EXPECT_EQ(box->GetShowing(), mode == 2);
        EXPECT_TRUE(vx_tos_grid_lr2d_get_interpolate(copy()));
    }
    ASSERT_TRUE(input::choose_item(modes, 0));
    next_color = vx_clr_init_rgb(10, 200, 30);
    ASSERT_TRUE(input::click(page->get_clr_stl_mngr_edit()->get_smp_edit()->get_style_panel()->get_btn()));
    apply();
    for (Tvx_color const c : picture())
        ASSERT_TRUE(is_close(c, vx_clr_init_rgb(10, 200, 30)));

    // Opacity is shown as transparency in percent.
    struct
    {
        wchar_t const *typed;
        double opacity;
    } const cases[] = {{L"75", 0.25}, {L"100", 0}, {L"0", 1}, {L"33", 0.67}, {L"250", 0}};
    auto *const percent = page->get_opacity_panel()->get_size_panel()->get_edit();
    for (auto const &c : cases) {
        ASSERT_TRUE(input::enter_text(percent, c.typed));
        EXPECT_NEAR(vx_tos_grid_lr2d_get_opacity(copy()), c.opacity, 1e-9) << c.typed;
        apply();
        auto const mixed = [&](double color) { return int(std::lround(255 + (color - 255) * c.opacity)); };
        EXPECT_TRUE(
            is_close(picture()[5000], vx_clr_init_rgb(std::uint8_t(mixed(10)), std::uint8_t(mixed(200)),
                                                      std::uint8_t(mixed(30)))))
            << c.typed;
    }
    for (auto const &[opacity, position] : {std::pair(1.0, -1), {0.25, 74}, {0.996, -1}, {0.0, 99}}) {
        vx_tos_grid_lr2d_set_opacity(copy(), opacity);
        page->update_controls();
        EXPECT_EQ(page->get_opacity_panel()->get_position(), position) << opacity;
    }
}

TEST_F(property_pages, a_grid_is_drawn_by_its_channels)
{
    open_file(shared().bands);
    auto *const page = grid_page();
    auto *const types = page->get_draw_type_cb()->get_combo_box();
    auto *const channels = page->get_channels_edit();
    EXPECT_FALSE(channels->GetShowing());
    ASSERT_TRUE(input::choose_item(types, L"Channels"));
    EXPECT_EQ(vx_tos_grid_lr2d_get_draw_type(copy()), int{c_grid_draw_channels});
    EXPECT_TRUE(channels->GetShowing());
    EXPECT_EQ(page->get_clr_stl_mngr_edit()->get_stl_mngr(), nullptr);
    struct
    {
        wchar_t const *tab;
        int band;
        int low, high;
    } const stretch[] = {{L"Red", 3, 20, 90}, {L"Green", 2, 40, 120}, {L"Blue", 0, 60, 100}};
    for (int i = 0; i < 3; ++i) {
        auto const &c = stretch[i];
        auto *const edit = channels->get_edit(i);
        ASSERT_TRUE(input::click_tab(channels->get_pages(), c.tab));
        EXPECT_EQ(edit->get_prop_cb()->get_caption(), L"Property");
        ASSERT_TRUE(input::choose_item(edit->get_prop_cb()->get_combo_box(), c.band));
        auto *const low = dialog_reader::find<TEdit>(edit->get_track_min(), L"");
        auto *const high = dialog_reader::find<TEdit>(edit->get_track_max(), L"");
        ASSERT_TRUE(input::enter_text(low, std::to_wstring(c.low).c_str()));
        ASSERT_TRUE(input::enter_text(high, std::to_wstring(c.high).c_str()));
    }
    apply();
    auto const shade = [](double value, double low, double high) {
        return std::uint8_t(std::lround(std::clamp((value - low) / (high - low), 0.0, 1.0) * 255));
    };
    auto const red = values_of(shared().bands, 3), green = values_of(shared().bands, 2),
               blue = values_of(shared().bands, 0);
    auto const colors = picture();
    std::size_t wrong = 0;
    for (std::size_t i = 0; i < colors.size(); ++i)
        wrong += !is_close(colors[i], vx_clr_init_rgb(shade(red[i], 20, 90), shade(green[i], 40, 120),
                                                      shade(blue[i], 60, 100)));
    EXPECT_EQ(wrong, 0u);

    ASSERT_TRUE(input::choose_item(types, L"Gray"));
    EXPECT_EQ(vx_tos_grid_lr2d_get_draw_type(copy()), int{c_grid_draw_gray});
    EXPECT_TRUE(channels->get_edit(3)->GetShowing());
    apply();
    double low = vx_clr_channel_get_min(
               vx_rgb_channels_get_gray(vx_tos_grid_lr2d_get_rgb_channels_ptr(layer.get()))),
           high = vx_clr_channel_get_max(
               vx_rgb_channels_get_gray(vx_tos_grid_lr2d_get_rgb_channels_ptr(layer.get())));
    auto const gray = picture();
    for (std::size_t i = 0; i < gray.size(); i += 1001) {
        auto const s = shade(blue[i], low, high);
        EXPECT_TRUE(is_close(gray[i], vx_clr_init_rgb(s, s, s))) << i;
    }
    ASSERT_TRUE(input::choose_item(types, L"Colour scale"));
    EXPECT_EQ(channels->get_channels(), nullptr);
    EXPECT_EQ(channels->get_edit(3)->get_channel(), nullptr);
    EXPECT_NE(page->get_clr_stl_mngr_edit()->get_stl_mngr(), nullptr);
}

TEST_F(property_pages, ranges_that_are_made_anew_show_at_once)
{
    open_file(shared().bands);
    auto *const ranges = grid_page()->get_clr_stl_mngr_edit()->get_rng_edit();
    std::uint32_t seen = 0;
    auto *const page = grid_page();
    auto const former = page->on_changed;
    struct watcher
    {
        void changed(TObject *sender)
        {
            *mode = page->get_last_mode();
            former(sender);
        }
        Tvx_tos_grid_lr2d_edit *page;
        closure<void(TObject *)> former;
        std::uint32_t *mode;
    } watch{page, former, &seen};
    page->on_changed = make_closure<&watcher::changed>(&watch);

    auto const bounds = vx_rng_scale_get_max(range_scale(), 3);
    ASSERT_TRUE(input::choose_item(ranges->get_prp_scale()->get_combo_box(), 4));
    EXPECT_EQ(applied, 1) << "the host draws the new classes without an Apply";
    EXPECT_EQ(seen, unsigned{c_style_mode_range});
    EXPECT_EQ(page->get_last_mode(), 0u);
    EXPECT_FALSE(page->get_notify_host());
    EXPECT_NE(vx_rng_scale_get_max(range_scale(), 3), bounds);
    vx_tos_grid_lr2d_set_interpolate(layer.get(), false);
    expect_classes(values_of(shared().bands, 4));
    // Another mode is no new scale, and waits.
    ASSERT_TRUE(input::choose_item(page->get_clr_stl_mngr_edit()->get_mode_edit()->get_combo_box(), 0));
    EXPECT_EQ(seen, unsigned{c_style_mode_simple});
    EXPECT_EQ(applied, 1);
}

TEST_F(property_pages, points_are_placed_by_two_properties)
{
    open_file(shared().points);
    vx_stl_mngr_set_need_scale(vx_tos_2crd_lr2d_get_stl_mngr(copy()), true);
    vx_lr2d_edt_form_update(record.get());
    auto *const page = shown<Tvx_tos_2crd_lr2d_edit>();
    EXPECT_FALSE(vx_stl_mngr_get_need_scale(vx_tos_2crd_lr2d_get_stl_mngr(copy())));
    ASSERT_TRUE(input::click_tab(tabs(), L"Coordinates"));
    auto *const panel = page->get_xycrd_panel();
    EXPECT_TRUE(panel->GetShowing());
    EXPECT_EQ(panel->get_edit_x()->get_prop_name(), "X");
    EXPECT_EQ(panel->get_edit_y()->get_prop_name(), "Y");
    // Its middle has the colour of the points, wherever the properties place it.
    auto const shown_at = [&](double x, double y) {
        Tvx_map_view view;
        view.world = {x - 10, y - 10, x + 10, y + 10};
        view.width = view.height = 21;
        std::vector<unsigned char> pixels(21 * 21 * 4, 255);
        vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
        vx_bmp_dc_set_pixels(dc.get(), pixels.data(), 21, 21, 84);
        EXPECT_TRUE(vx_render_layer(layer.get(), view, dc.get()));
        auto const *const at = &pixels[4 * (10 * 21 + 10)];
        return vx_clr_init_rgb(at[2], at[1], at[0]);
    };
    Tvx_color const color = vx_stl_prm_get_color(
        vx_stl_mngr_get_simple_sp_ptr(vx_tos_2crd_lr2d_get_stl_mngr(layer.get())), false);
    auto const xs = values_of(shared().points, 0), ys = values_of(shared().points, 1),
               values = values_of(shared().points, 2);
    EXPECT_TRUE(is_close(shown_at(xs[700], ys[700]), color));
    ASSERT_TRUE(input::choose_item(panel->get_edit_y()->get_combo_box(), L"value"));
    apply();
    EXPECT_FALSE(is_close(shown_at(xs[700], ys[700]), color));
    EXPECT_TRUE(is_close(shown_at(xs[700], values[700]), color));
    std::wstring x, y;
    vx_tos_2crd_lr2d_get_wprop_name_x(layer.get(), Tvx_std_wstring_adapter(x));
    vx_tos_2crd_lr2d_get_wprop_name_y(layer.get(), Tvx_std_wstring_adapter(y));
    EXPECT_EQ(x + L"/" + y, L"X/value");
    ASSERT_TRUE(input::click_tab(tabs(), L"Style"));
    auto *const edit = page->get_stl_mngr_edit();
    EXPECT_TRUE(edit->get_rotate_btn()->GetShowing());
    ASSERT_TRUE(input::choose_item(edit->get_mode_edit()->get_combo_box(), 2));
    EXPECT_EQ(edit->get_rng_edit()->get_prp_scale()->get_combo_box()->get_prop_count(), 3);
    apply();
    EXPECT_EQ(vx_stl_mngr_get_mode(vx_tos_2crd_lr2d_get_stl_mngr(layer.get())), c_style_mode_range);
}

TEST_F(property_pages, each_property_has_a_scale_file_of_its_own)
{
    vx_test::temp_dir const folder;
    auto const file = vx::text::utf8_to_wide((folder / "wells.tos4").string());
    Tvx_tos4_grid set;
    set.count[0] = 4;
    make(file, set,
         {{L"X", {0, 1, 2, 3}}, {L"Y", {0, 1, 2, 3}}, {L"kind", {1, 2, 1, 2}}, {L"kg/m3", {5, 6, 7, 5}}});
    open_file(file);
    auto *const edit = shown<Tvx_tos_2crd_lr2d_edit>()->get_stl_mngr_edit();
    ASSERT_TRUE(input::choose_item(edit->get_mode_edit()->get_combo_box(), 1));
    auto *const fields = edit->get_val_edit()->get_prp_scale()->get_combo_box();
    void *const scale = vx_stl_mngr_get_val_scale_ptr(vx_tos_2crd_lr2d_get_stl_mngr(copy()));
    auto const texts = [&] {
        std::wstring all;
        for (unsigned i = 0; i < vx_val_scale_get_size(scale); ++i)
            all += text_at(scale, i) + L"=" + caption_at(scale, i) + L" ";
        return all;
    };
    ASSERT_TRUE(input::choose_item(fields, L"kind"));
    EXPECT_EQ(texts(), L"1=1 2=2 ");
    ASSERT_TRUE(input::choose_item(fields, L"kg/m3"));
    EXPECT_EQ(texts(), L"5=5 6=6 7=7 ");
    ASSERT_TRUE(input::choose_item(fields, L"kind"));
    EXPECT_EQ(texts(), L"1=1 2=2 ") << "from its file";
    EXPECT_TRUE(std::filesystem::exists(folder / "wells.kind._vl"));
    EXPECT_TRUE(std::filesystem::exists(folder / "wells.kg%2Fm3._vl"));
}

TEST_F(property_pages, a_curve_has_a_height_and_a_line)
{
    layer.reset(vx_tos_lr2d_open(shared().curve.c_str(), nullptr));
    ASSERT_TRUE(layer);
    TForm form(nullptr);
    form.SetBounds(60, 60, 420, 300);
    auto *const page = new Tvx_tos_grid_1d_lr2d_edit(&form);
    page->SetParent(&form);
    page->create();
    page->SetAlign(alClient);
    page->load_res();
    int reports = 0;
    page->on_changed =
        closure<void(TObject *)>([](void *n, TObject *) { ++*static_cast<int *>(n); }, &reports);
    form.Show();
    page->update_controls();
    EXPECT_EQ(page->get_hprop_edit()->get_prop_count(), 0);
    EXPECT_EQ(page->get_hprop_edit()->get_prop_name(), "");
    page->set_lr2d(layer.get());
    page->update_controls();
    EXPECT_EQ(page->get_hprop_edit()->get_prop_name(), "height");
    EXPECT_EQ(reports, 0);
    ASSERT_TRUE(input::choose_item(page->get_hprop_edit()->get_combo_box(), L"half"));
    std::wstring name;
    vx_tos_grid_1d_lr2d_get_height_prp_name(layer.get(), Tvx_std_wstring_adapter(name));
    EXPECT_EQ(name, L"half");
    EXPECT_EQ(reports, 1);
    // A name that the file lacks is kept, and none chosen.
    vx_tos_grid_1d_lr2d_set_height_prp_name(layer.get(), L"gone");
    page->update_controls();
    EXPECT_EQ(page->get_hprop_edit()->get_prop_index(), -1);
    EXPECT_EQ(page->get_hprop_edit()->get_prop_name(), "gone");

    ASSERT_TRUE(input::click_tab(page->get_pages(), L"Line"));
    ASSERT_TRUE(change_color(vx_clr_init_rgb(200, 10, 20), [&] {
        return input::click(page->get_mngr_edit()->get_smp_edit()->get_style_panel()->get_btn());
    }));
    void *const line = vx_stl_prm_get_pln_style_ptr(
        vx_stl_mngr_get_simple_sp_ptr(vx_tos_grid_1d_lr2d_get_stl_mngr_ptr(layer.get())), false);
    EXPECT_EQ(vx_bpln_style_get_color(vx_pln_style_get_bpln_style_ptr(line)), vx_clr_init_rgb(200, 10, 20));
    EXPECT_EQ(reports, 2);
    // The curve runs through its values in that colour.
    vx_tos_grid_1d_lr2d_set_height_prp_name(layer.get(), L"half");
    auto const heights = values_of(shared().curve, 1);
    Tvx_map_view view;
    view.world = {0, -100, 110, 100};
    view.width = 1101;
    view.height = 400;
    std::vector<unsigned char> pixels(std::size_t{1101} * 400 * 4, 255);
    vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
    vx_bmp_dc_set_pixels(dc.get(), pixels.data(), 1101, 400, 1101 * 4);
    ASSERT_TRUE(vx_render_layer(layer.get(), view, dc.get()));
    for (std::size_t i = 1; i + 1 < heights.size(); ++i) {
        auto const row = static_cast<std::size_t>(200 - heights[i] * 2);
        bool is_red = false;
        for (std::size_t y = row - 2; y <= row + 2; ++y)
            is_red = is_red || pixels[(y * 1101 + i * 10) * 4 + 1] < 150;
        EXPECT_TRUE(is_red) << "value " << i;
    }
    page->set_lr2d(nullptr);
    page->update_controls();
    EXPECT_FALSE(page->get_mngr_edit()->get_smp_edit()->GetShowing());
}

TEST_F(property_pages, without_a_layer_nothing_is_shown_and_nothing_written)
{
    TForm form(nullptr);
    form.SetBounds(60, 60, 420, 500);
    int reports = 0;
    auto const add = [&]<class Page>(Page *page) {
        page->SetParent(&form);
        page->create();
        page->load_res();
        page->SetAlign(alClient);
        page->on_changed =
            closure<void(TObject *)>([](void *n, TObject *) { ++*static_cast<int *>(n); }, &reports);
        page->update_controls();
        return page;
    };
    form.Show();
    auto *const grid = add(new Tvx_tos_grid_lr2d_edit(&form));
    EXPECT_FALSE(grid->get_interpolate_cb()->GetShowing());
    ASSERT_TRUE(input::choose_item(grid->get_draw_type_cb()->get_combo_box(), 2));
    ASSERT_TRUE(input::enter_text(grid->get_opacity_panel()->get_size_panel()->get_edit(), L"50"));
    delete grid;
    auto *const slice = add(new Tvx_tos_slice_lr2d_edit(&form));
    ASSERT_TRUE(input::enter_text(slice->get_slice_panel()->get_size_panel()->get_edit(), L"3"));
    delete slice;
    auto *const points = add(new Tvx_tos_2crd_lr2d_edit(&form));
    EXPECT_EQ(points->get_xycrd_panel()->get_edit_x()->get_prop_count(), 0);
    EXPECT_FALSE(points->get_stl_mngr_edit()->get_smp_edit()->GetShowing());
    EXPECT_EQ(reports, 0);
}

TEST_F(property_pages, a_file_that_has_gone_leaves_the_lists_empty)
{
    vx_test::temp_dir const folder;
    auto const path = folder / "points.tos4";
    std::filesystem::copy_file(shared().points, path);
    open_file(path.wstring());
    std::filesystem::remove(path);
    vx_lr2d_edt_form_update(record.get());
    ASSERT_TRUE(input::click_tab(tabs(), L"Coordinates"));
    auto *const x = shown<Tvx_tos_2crd_lr2d_edit>();
    EXPECT_EQ(x, nullptr) << "the page is on the other tab";
    auto *const panel = shown<Tvx_tos_prp_crd_panel>();
    EXPECT_EQ(panel->get_edit_x()->get_prop_count(), 0);
    EXPECT_EQ(panel->get_edit_x()->get_prop_name(), "X");
    apply();
    std::wstring name;
    vx_tos_2crd_lr2d_get_wprop_name_x(layer.get(), Tvx_std_wstring_adapter(name));
    EXPECT_EQ(name, L"X");
}
