#include "layer_edit/text/dtld_lr2d_edit.h"
#include "layer_edit/text/tld_lr2d_edit.h"
#include "layer_edit/text/txt_mngr_lr2d_edit.h"
#include "tests/raster_property/property/property_fixture.h"

#include "platform/layers/vx_tld_lr2d.h"
#include "platform/styles/vx_txt_settings.h"

// The pages of texts in the editor's window.

namespace {
class text_pages : public property_fixture
{
protected:
    /// Opens the editor and shows the managers of the texts.
    template <class Page>
    Page *open_labels(wchar_t const *name)
    {
        open(name);
        return show_labels<Page>();
    }
    template <class Page>
    Page *show_labels()
    {
        EXPECT_TRUE(input::click_tab(tabs(), L"Labels"));
        return shown<Page>();
    }
    static bool tick(TCheckBox *box) { return input::click(box, 8, box->GetHeight() / 2); }
    /// Counts what the page reports, in place of the page set.
    void listen(Tvx_basic_lr2d_edit *page)
    {
        reports = 0;
        page->on_changed =
            closure<void(TObject *)>([](void *count, TObject *) { ++*static_cast<int *>(count); }, &reports);
    }
    int reports = 0;
    [[nodiscard]] static void *list_of(Ivx_layer *of)
    {
        return vx_txt_settings_get_stl_mngr_list(vx_shp_lr2d_get_txt_settings(of));
    }
    [[nodiscard]] void *list() const { return list_of(copy()); }
};
} // namespace

TEST_F(text_pages, show_the_active_manager_and_report_its_changes)
{
    struct
    {
        wchar_t const *file;
        wchar_t const *field;
    } const cases[] = {
        {L"naturalearth_cities.shp", L"name"}, {L"streets.shp", L"Length"}, {L"nc.shp", L"NAME"}};
    for (auto const &c : cases) {
        SCOPED_TRACE(vx::text::wide_to_utf8(c.file));
        layer.reset();
        record.reset();
        auto *const page = open_labels<Tvx_txt_shp_mngr_lr2d_edit>(c.file);
        ASSERT_TRUE(page);
        listen(page);
        auto *const strip = page->get_list_edit();
        auto *const edit = page->get_edit();
        ASSERT_TRUE(tick(strip->get_check_box()));
        ASSERT_TRUE(input::click(strip->get_add_btn()));
        EXPECT_EQ(edit->get_stl_mngr(), vx_stl_mngr_list_get_mngr(list(), 1));
        EXPECT_EQ(reports, 0) << "the strip is not the editor";
        EXPECT_EQ(edit->get_mode_edit()->get_combo_box()->GetItems()->GetCount(), 3) << "no rules";
        ASSERT_TRUE(input::choose_item(edit->get_mode_edit()->get_combo_box(), 1));
        EXPECT_EQ(reports, 1);
        ASSERT_TRUE(input::choose_item(edit->get_val_edit()->get_prp_scale()->get_combo_box(), c.field));
        EXPECT_GT(vx_val_scale_get_size(vx_stl_mngr_get_val_scale_ptr(edit->get_stl_mngr())), 10u);
        EXPECT_EQ(edit->get_val_edit()->get_grid()->GetColCount(), 5);
        apply();
        EXPECT_EQ(vx_stl_mngr_list_get_count(list_of(layer.get())), 2u);

        ASSERT_TRUE(input::choose_item(strip->get_combo_box(), 0));
        EXPECT_EQ(edit->get_stl_mngr(), vx_stl_mngr_list_get_mngr(list(), 0));
        EXPECT_TRUE(edit->get_smp_edit()->GetShowing());
        // Texts of selected objects have no style of their own, whatever the layer says.
        vx_lr_set_own_selected_style_flag(layer.get(), true);
        vx_lr2d_edt_form_set_lr2d(record.get(), layer.get());
        EXPECT_TRUE(input::choose_item(strip->get_combo_box(), 1));
        EXPECT_EQ(edit->get_val_edit()->get_grid()->GetColCount(), 5);

        int const before = reports;
        vx_lr2d_edt_form_set_lr2d(record.get(), nullptr);
        EXPECT_EQ(edit->get_stl_mngr(), nullptr);
        EXPECT_EQ(strip->get_stl_mngr_list(), nullptr);
        edit->call_changed();
        EXPECT_EQ(reports, before);
    }
}

TEST_F(text_pages, of_two_coordinates_are_fed_from_the_property_file)
{
    open_file(shared().points);
    auto *const page = show_labels<Tvx_txt_tos_2crd_mngr_lr2d_edit>();
    ASSERT_TRUE(page);
    listen(page);
    ASSERT_TRUE(tick(page->get_list_edit()->get_check_box()));
    auto *const edit = page->get_stl_mngr_edit();
    EXPECT_EQ(edit->get_stl_mngr(), vx_stl_mngr_list_get_active_mngr(vx_txt_settings_get_stl_mngr_list(
                                        vx_tos_2crd_lr2d_get_txt_settings(copy()))));
    EXPECT_FALSE(edit->get_data_events().get_stat);
    ASSERT_TRUE(input::choose_item(edit->get_mode_edit()->get_combo_box(), 2));
    auto *const fields = edit->get_rng_edit()->get_prp_scale()->get_combo_box();
    EXPECT_EQ(fields->get_prop_count(), 3);
    ASSERT_TRUE(input::choose_item(fields, L"value"));
    EXPECT_GT(vx_rng_scale_get_size(vx_stl_mngr_get_rng_scale_ptr(edit->get_stl_mngr())), 1u);
    EXPECT_EQ(reports, 2);
    ASSERT_TRUE(tick(page->get_list_edit()->get_check_box()));
    EXPECT_FALSE(edit->GetVisible());
    // Its text layer has the properties of the file.
    auto *const labels =
        dynamic_cast<Tvx_dtld_lr2d_edit *>(record->get_lr2d_edit()->get_page(vx::lr2d_page::dtld));
    ASSERT_TRUE(labels);
    EXPECT_EQ(labels->get_dtld_lr2d(), vx_tos_2crd_lr2d_get_text_layer_ptr(copy()));
    EXPECT_EQ(labels->get_label_panel()->get_prop_edit()->get_prop_count(), 3);
}

TEST_F(text_pages, of_text_layers_know_whose_text_they_are)
{
    open(L"nc.shp");
    auto *const edit = record->get_lr2d_edit();
    auto *const labels = dynamic_cast<Tvx_dtld_lr2d_edit *>(edit->get_page(vx::lr2d_page::dtld));
    ASSERT_TRUE(labels);
    EXPECT_EQ(labels->get_dtld_lr2d(), vx_shp_lr2d_get_text_layer_ptr(copy()));
    EXPECT_EQ(labels->get_label_panel()->get_layer(), labels->get_dtld_lr2d());
    EXPECT_EQ(labels->get_label_panel()->get_prop_edit()->get_prop_name(), "AREA");
    EXPECT_TRUE(labels->get_data_source()->is_valid());
    // No strategy knows a raster: it has no fields, and no text layer.
    layer.reset(vx_lr2d_create("rtr_lr2d"));
    vx_lr2d_edt_form_set_lr2d(record.get(), layer.get());
    EXPECT_EQ(labels->get_dtld_lr2d(), nullptr);
    EXPECT_EQ(labels->get_label_panel()->get_layer(), nullptr);
    EXPECT_EQ(labels->get_data_source()->get_data_ptr(), nullptr);

    layer.reset(vx_lr2d_create("tld_lr2d"));
    vx_lr2d_edt_form_set_lr2d(record.get(), layer.get());
    input::wait_idle();
    auto *const empty = shown<Tvx_tld_lr2d_edit>();
    ASSERT_TRUE(empty);
    EXPECT_EQ(empty->get_tld_lr2d(), copy());
    EXPECT_EQ(empty->GetControlCount(), 0);
}
