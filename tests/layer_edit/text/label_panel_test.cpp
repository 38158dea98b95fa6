#include "exports/vxk_host_api.h"
#include "layer_edit/text/dtld_lr2d_edit.h"
#include "styles/label/label_style_edit_dlg.h"
#include "styles/label/label_style_effects_dlg.h"
#include "styles/label/label_style_new_class_dlg.h"
#include "support/temp_dir.h"
#include "user_input/user_input.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_bundle.h"
#include "platform/basic/vx_fnt_type.h"
#include "platform/basic/vx_options.h"
#include "platform/data/vx_tld_data.h"
#include "platform/dialogs/vx_dlg_table.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_labels.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/toolkit/core/form.h"

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace input = vx::user_input;

// The editor of text classes: what each control does to the class, and what the dialogs let through.

namespace {
constexpr Tvx_color c_red = vx_clr_init_rgb(230, 20, 30);
using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
using owned_class = vx::owned<void, &vx_textlr_info_destroy>;

/// The page of the text layer of an example, in a window of its own.
class label_page : public testing::Test
{
protected:
    label_page()
    {
        vx_bundles_load();
        vx_options_set_language("en");
        dialogs.user = this;
        dialogs.color = [](void *, HWND, int, int, Tvx_color *color, int) {
            *color = c_red;
            return true;
        };
        dialogs.font = [](void *, HWND, int, int, vx_fnt_type *font) {
            font->set_wname(L"Serif");
            font->bold = true;
            return true;
        };
        dialogs.file = [](void *self, HWND, int, int, Tvx_file_dialog_prm *prm) {
            auto &f = *static_cast<label_page *>(self);
            f.filter = prm->filter;
            prm->file_name = f.file;
            return !f.file.empty();
        };
        dialogs.message = [](void *self, HWND, Tvx_msg_kind, wchar_t const *text) {
            static_cast<label_page *>(self)->message = text;
        };
        vx_dlg_set_table(&dialogs);
        form.SetBounds(50, 50, 480, 480);
        page->SetParent(&form);
        page->create();
        page->SetAlign(alClient);
        page->load_res();
    }
    ~label_page() override
    {
        EXPECT_EQ(input::pending_modals(), 0);
        input::forget_pending_modals();
        vx_dlg_set_table(nullptr);
    }

    void open(wchar_t const *name)
    {
        layer.reset(vx_shp_lr2d_open((std::wstring(L"" VX_EXAMPLE_DATA "/") + name).c_str(), nullptr));
        ASSERT_TRUE(layer);
        vx_lr2d_set_visible(labels(), true);
        show();
    }
    void show(Ivx_layer *text_layer = nullptr)
    {
        page->set_lr2d(text_layer ? text_layer : labels());
        page->update_controls();
        form.Show();
        input::wait_idle();
    }
    [[nodiscard]] Ivx_layer *labels() const { return vx_shp_lr2d_get_text_layer_ptr(layer.get()); }
    [[nodiscard]] void *info() const { return vx_dtld_lr2d_get_text_class(labels()); }
    [[nodiscard]] Tvx_label_style_panel &panel() const { return *page->get_label_panel(); }
    [[nodiscard]] static std::wstring property_of(void *of)
    {
        std::wstring name;
        vx_textlr_info_get_property_name(of, Tvx_std_wstring_adapter(name));
        return name;
    }
    /// Opens a dialog by its button, and ends it by another after `act`.
    template <class Dialog, class Act>
    void with_dialog(TControl *button, wchar_t const *end, Act act)
    {
        input::on_next_modal([&](input::modal_window const &window) {
            auto *const dialog = dynamic_cast<Dialog *>(window.form());
            ASSERT_TRUE(dialog);
            act(*dialog);
            EXPECT_TRUE(window.press_button(end));
        });
        ASSERT_TRUE(input::click(button));
    }

    vx_dlg_table dialogs;
    std::wstring file;    ///< that the user names; empty for a cancelled dialog
    UnicodeString filter; ///< that the file dialog had
    std::wstring message;
    owned_layer layer;
    TForm form{nullptr};
    Tvx_dtld_lr2d_edit *page = new Tvx_dtld_lr2d_edit(&form);
};

/// The labels of a layer as a number that other labels do not have; the map is an empty sheet beneath them.
std::string picture_of(Ivx_layer *layer)
{
    double extent[4];
    EXPECT_TRUE(vx_host_get_extent(layer, extent));
    Tvx_map_view view;
    view.world = {extent[0], extent[1], extent[2], extent[3]};
    view.width = 900;
    view.height = 500;
    std::vector<unsigned char> pixels(std::size_t{900} * 500 * 4, 255);
    vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
    vx_bmp_dc_set_pixels(dc.get(), pixels.data(), view.width, view.height, 4 * view.width);
    vx::owned<Ivx_labels, &vx_labels_destroy> const labels(vx_labels_create());
    Tvx_labelled_layer const labelled{layer, 1};
    EXPECT_TRUE(vx_labels_place(labels.get(), &labelled, 1, view, 0));
    EXPECT_TRUE(vx_labels_draw(labels.get(), view, dc.get()));
    EXPECT_GT(vx_labels_get_count(labels.get(), view), 10u);
    std::size_t const sum =
        std::hash<std::string_view>()({reinterpret_cast<char const *>(pixels.data()), pixels.size()});
    return std::to_string(vx_labels_get_count(labels.get(), view)) + "/" + std::to_string(sum);
}

bool tick(TCheckBox *box)
{
    return input::click(box, 8, box->GetHeight() / 2);
}
bool choose(TRadioGroup *group, int item)
{
    return input::click(group->GetButtons(item), 8, 8);
}
} // namespace

TEST_F(label_page, writes_each_change_into_the_current_class_at_once)
{
    open(L"nc.shp");
    vx_dtld_lr2d_add_text_class(labels(), nullptr);
    show();
    panel().get_encode_panel()->SetVisible(true);
    owned_class const other(vx_textlr_info_clone(vx_dtld_lr2d_get_text_class_by_index(labels(), 0)));
    struct
    {
        char const *what;
        std::function<bool()> act;
        std::function<bool()> is_done;
    } const steps[] = {
        {"field", [&] { return input::choose_item(panel().get_prop_edit()->get_combo_box(), L"NAME"); },
         [&] { return property_of(info()) == L"NAME"; }},
        {"font", [&] { return input::click(panel().get_font_panel()->get_button()); },
         [&] {
             auto const *const font = vx_textlr_info_get_font_ptr(info());
             return font->bold && std::wstring(font->wname()) == L"Serif";
         }},
        {"size", [&] { return input::enter_text(panel().get_size_panel()->get_edit(), L"4.25"); },
         [&] { return vx_textlr_info_get_size(info()) == 4.25; }},
        {"colour", [&] { return input::click(panel().get_clr_panel()->get_clr_panel()->GetControls(0)); },
         [&] { return vx_textlr_info_get_color(info()) == c_red; }},
        {"angle", [&] { return input::enter_text(panel().get_angle_panel()->get_edit(), L"-30,5"); },
         [&] { return vx_textlr_info_get_angle(info()) == 30.5; }},
        {"encoding", [&] { return input::choose_item(panel().get_encode_panel()->get_combo_box(), 2); },
         [&] { return vx_textlr_info_get_encoding(info()) == c_textlr_encoding_morvel; }},
        {"priority", [&] { return input::choose_item(panel().get_priority_panel()->get_combo_box(), L"10"); },
         [&] { return vx_textlr_info_get_priority(info()) == 9; }},
        {"overlap", [&] { return tick(panel().get_overlap_check()); },
         [&] { return vx_textlr_info_is_place_overlap(info()); }},
        {"scale", [&] { return tick(panel().get_scale_check()); },
         [&] {
             return vx_textlr_info_get_scale(info()) && panel().get_current_scale_check()->GetEnabled() &&
                    panel().get_current_scale_check()->GetChecked() &&
                    vx_textlr_info_get_init_scale(info()) == 0;
         }},
    };
    for (auto const &step : steps) {
        EXPECT_FALSE(step.is_done()) << step.what;
        EXPECT_TRUE(step.act()) << step.what;
        EXPECT_TRUE(step.is_done()) << step.what;
    }
    EXPECT_TRUE(vx_textlr_info_equal(vx_dtld_lr2d_get_text_class_by_index(labels(), 0), other.get()));

    // The same shows again, and an empty number is none.
    owned_class const kept(vx_textlr_info_clone(info()));
    ASSERT_TRUE(input::enter_text(panel().get_size_panel()->get_edit(), L"\b"));
    show();
    EXPECT_TRUE(vx_textlr_info_equal(info(), kept.get()));
    EXPECT_EQ(panel().get_size_panel()->get_edit()->GetText(), L"4.25");
    EXPECT_EQ(panel().get_angle_panel()->get_edit()->GetText(), L"30.50");
    EXPECT_EQ(panel().get_priority_panel()->get_combo_box()->GetText(), L"10");
}

TEST_F(label_page, settles_the_scale_at_which_sizes_hold)
{
    open(L"nc.shp");
    vx_textlr_info_set_scale(info(), true);
    vx_textlr_info_set_init_scale(info(), 25000);
    show();
    auto *const current = panel().get_current_scale_check();
    EXPECT_FALSE(current->GetChecked());
    ASSERT_TRUE(tick(current));
    EXPECT_EQ(vx_textlr_info_get_init_scale(info()), 0) << "that of the next drawing counts";
    ASSERT_TRUE(tick(current));
    EXPECT_EQ(vx_textlr_info_get_init_scale(info()), 25000);
    ASSERT_TRUE(tick(panel().get_scale_check()));
    EXPECT_FALSE(current->GetEnabled());
}

TEST_F(label_page, shows_and_hides_the_layer_at_once)
{
    open(L"nc.shp");
    auto &p = panel();
    ASSERT_TRUE(tick(p.get_visible_check()));
    EXPECT_FALSE(vx_lr2d_get_visible(labels()));
    EXPECT_TRUE(p.get_visible_check()->GetEnabled());
    for (TControl *const control : std::initializer_list<TControl *>{
             p.get_class_panel()->get_combo_box(), p.get_class_add_btn(), p.get_prop_edit()->get_combo_box(),
             p.get_size_panel()->get_edit(), p.get_scale_check(), p.get_current_scale_check(),
             p.get_load_btn(), p.get_effects_btn(), p.get_advanced_btn()})
        EXPECT_FALSE(control->GetEnabled()) << control->GetAccessibleName().to_utf8();
    ASSERT_TRUE(tick(p.get_visible_check()));
    EXPECT_TRUE(vx_lr2d_get_visible(labels()));
    EXPECT_TRUE(p.get_class_add_btn()->GetEnabled());
    EXPECT_FALSE(p.get_current_scale_check()->GetEnabled()) << "sizes do not grow with the map";
}

TEST_F(label_page, adds_and_removes_classes)
{
    open(L"nc.shp");
    auto *const classes = panel().get_class_panel()->get_combo_box();
    vx_textlr_info_set_size(info(), 7);
    for (wchar_t const *const number : {L"2", L"3"}) {
        ASSERT_TRUE(input::click(panel().get_class_add_btn()));
        EXPECT_EQ(classes->GetText(), number);
    }
    EXPECT_EQ(vx_dtld_lr2d_count_text_class(labels()), 3);
    EXPECT_EQ(property_of(info()), L"AREA") << "the first of the data, at once";
    ASSERT_TRUE(input::choose_item(classes, L"1"));
    EXPECT_EQ(vx_dtld_lr2d_get_text_class_index(labels()), 0);
    EXPECT_EQ(panel().get_size_panel()->get_size(), 7);
    ASSERT_TRUE(input::click(panel().get_class_del_btn()));
    EXPECT_EQ(vx_dtld_lr2d_count_text_class(labels()), 2);
    EXPECT_EQ(classes->GetText(), L"1");
    EXPECT_EQ(panel().get_size_panel()->get_size(), 3);
    ASSERT_TRUE(input::click(panel().get_class_del_btn()));
    static_cast<void>(input::click(panel().get_class_del_btn()));
    EXPECT_EQ(vx_dtld_lr2d_count_text_class(labels()), 1) << "one is always left";
}

TEST_F(label_page, offers_the_fields_of_the_layer_that_is_labelled)
{
    open(L"nc.shp");
    auto *const fields = panel().get_prop_edit()->get_combo_box();
    EXPECT_EQ(fields->GetText(), L"AREA");
    EXPECT_EQ(vx_textlr_info_get_property_index(info()), 0);
    ASSERT_TRUE(input::choose_item(fields, L"NAME"));
    EXPECT_EQ(panel().get_encode_panel()->get_combo_box()->GetItemIndex(), c_textlr_encoding_unicode);
    EXPECT_EQ(vx_textlr_info_get_encoding(info()), c_textlr_encoding_plain) << "shown, not set";

    // A field that has gone stays the class's until another is chosen, the first one too.
    vx_textlr_info_set_property(info(), 99, L"GONE");
    show();
    EXPECT_EQ(fields->GetItemIndex(), -1);
    EXPECT_EQ(property_of(info()), L"GONE");
    ASSERT_TRUE(input::choose_item(fields, L"AREA"));
    EXPECT_EQ(property_of(info()), L"AREA");

    // A text layer by itself has no fields, and is edited all the same.
    owned_layer const alone(vx_lr2d_create("dyn_tld_lr2d"));
    show(alone.get());
    EXPECT_EQ(fields->get_prop_count(), 0);
    EXPECT_EQ(panel().get_layer(), alone.get());
    EXPECT_EQ(property_of(vx_dtld_lr2d_get_text_class(alone.get())), L"");
    ASSERT_TRUE(input::enter_text(panel().get_size_panel()->get_edit(), L"9"));
    EXPECT_EQ(vx_textlr_info_get_size(vx_dtld_lr2d_get_text_class(alone.get())), 9);
    EXPECT_EQ(property_of(info()), L"AREA");
}

TEST_F(label_page, goes_on_without_the_layer_that_was_labelled)
{
    open(L"nc.shp");
    owned_layer const text(vx_dtld_lr2d_create(layer.get()));
    show(text.get());
    EXPECT_EQ(panel().get_prop_edit()->get_prop_name(), "AREA");
    layer.reset();
    ASSERT_TRUE(input::choose_item(panel().get_prop_edit()->get_combo_box(), L"NAME"));
    EXPECT_EQ(property_of(vx_dtld_lr2d_get_text_class(text.get())), L"NAME");
    show(text.get());
    EXPECT_EQ(panel().get_prop_edit()->get_prop_count(), 0);
    ASSERT_TRUE(tick(panel().get_overlap_check()));
    EXPECT_TRUE(vx_textlr_info_is_place_overlap(vx_dtld_lr2d_get_text_class(text.get())));

    // Without any layer nothing happens, whatever is done.
    page->set_lr2d(nullptr);
    page->update_controls();
    for (TControl *const control : std::initializer_list<TControl *>{
             panel().get_class_add_btn(), panel().get_overlap_check(), panel().get_scale_check(),
             panel().get_save_btn(), panel().get_effects_btn(), panel().get_visible_check()})
        static_cast<void>(input::click(control, 8, 8));
    EXPECT_EQ(vx_dtld_lr2d_count_text_class(text.get()), 1);
    EXPECT_TRUE(vx_lr2d_get_visible(text.get()));
}

TEST_F(label_page, effects_are_written_when_they_are_accepted)
{
    using dialog = Tvx_label_style_effects_dlg;
    open(L"nc.shp");
    owned_class const before(vx_textlr_info_clone(info()));
    auto const change = [](dialog &d) {
        EXPECT_FALSE(d.get_back_clr()->get_clr_panel()->GetEnabled());
        EXPECT_FALSE(d.get_outline_width()->get_edit()->GetEnabled());
        EXPECT_FALSE(d.get_shadow_a()->get_edit()->GetEnabled());
        EXPECT_TRUE(tick(d.get_back_check()));
        EXPECT_TRUE(input::click(d.get_back_clr()->get_clr_panel()->GetControls(0)));
        EXPECT_TRUE(tick(d.get_shadow_check()));
        EXPECT_TRUE(d.get_shadow_a()->get_edit()->GetEnabled());
        EXPECT_FALSE(d.get_shadow_width()->get_edit()->GetEnabled()) << "there is no outline";
        EXPECT_TRUE(tick(d.get_outline_check()));
        EXPECT_TRUE(d.get_shadow_width()->get_edit()->GetEnabled());
        EXPECT_TRUE(input::enter_text(d.get_outline_width()->get_edit(), L"0.75"));
        EXPECT_TRUE(input::enter_text(d.get_shadow_width()->get_edit(), L"0.25"));
        EXPECT_TRUE(input::enter_text(d.get_shadow_a()->get_edit(), L"-1.5"));
        EXPECT_TRUE(input::enter_text(d.get_shadow_b()->get_edit(), L"\b")) << "emptied";
    };
    with_dialog<dialog>(panel().get_effects_btn(), L"Cancel", change);
    EXPECT_TRUE(vx_textlr_info_equal(info(), before.get()));
    with_dialog<dialog>(panel().get_effects_btn(), L"Apply", change);
    EXPECT_TRUE(vx_textlr_info_is_back(info()));
    EXPECT_EQ(vx_textlr_info_get_back_clr(info()), c_red);
    Tvx_color color{};
    double width = 0;
    double right = 0;
    double up = 0;
    EXPECT_TRUE(vx_textlr_info_get_outline(info(), &color, &width));
    EXPECT_EQ(width, 0.75);
    EXPECT_TRUE(vx_textlr_info_get_shadow(info(), &color, &width, &right, &up));
    EXPECT_EQ(width, 0.25);
    EXPECT_EQ(right, -1.5);
    double former = 0;
    static_cast<void>(vx_textlr_info_get_shadow(before.get(), nullptr, nullptr, nullptr, &former));
    EXPECT_EQ(up, former);
    // Also what is switched off is written, and comes back.
    with_dialog<dialog>(panel().get_effects_btn(), L"Apply", [](dialog &d) {
        EXPECT_TRUE(input::enter_text(d.get_outline_width()->get_edit(), L"0.5"));
        EXPECT_TRUE(tick(d.get_outline_check()));
        EXPECT_FALSE(d.get_shadow_width()->get_edit()->GetEnabled());
    });
    EXPECT_FALSE(vx_textlr_info_get_outline(info(), nullptr, &width));
    EXPECT_EQ(width, 0.5);
}

TEST_F(label_page, placement_is_written_when_it_is_accepted)
{
    using dialog = Tvx_label_style_edit_dlg;
    for (bool const is_line : {false, true}) {
        SCOPED_TRACE(is_line);
        open(is_line ? L"streets.shp" : L"nc.shp");
        EXPECT_EQ(panel().get_angle_panel()->GetVisible(), !is_line);
        owned_class const before(vx_textlr_info_clone(info()));
        auto const change = [is_line](dialog &d) {
            EXPECT_EQ(d.get_text_pos_x_group()->GetVisible(), !is_line);
            EXPECT_EQ(d.get_line_type_group()->GetVisible(), is_line);
            EXPECT_EQ(d.get_line_direction_check()->GetShowing(), is_line);
            EXPECT_EQ(d.get_delta_x()->get_edit()->GetEnabled(), !is_line);
            EXPECT_FALSE(d.get_min_scale()->get_edit()->GetEnabled());
            EXPECT_TRUE(choose(d.get_range_group(), 1));
            EXPECT_TRUE(choose(d.get_duplicates_group(), 2));
            if (is_line) {
                EXPECT_TRUE(tick(d.get_line_direction_check()));
                EXPECT_TRUE(choose(d.get_line_type_group(), 1));
                EXPECT_FALSE(d.get_delta_y()->get_edit()->GetEnabled());
                EXPECT_TRUE(choose(d.get_line_type_group(), 3));
            } else {
                EXPECT_TRUE(choose(d.get_text_pos_x_group(), 0));
            }
            EXPECT_TRUE(choose(d.get_text_pos_y_group(), 0));
            EXPECT_TRUE(input::enter_text(d.get_delta_x()->get_edit(), L"2.5"));
            EXPECT_TRUE(input::enter_text(d.get_delta_y()->get_edit(), L"-1"));
            EXPECT_TRUE(tick(d.get_use_min_scale_check()));
            EXPECT_TRUE(input::enter_text(d.get_min_scale()->get_edit(), L"5000"));
            EXPECT_TRUE(tick(d.get_use_max_scale_check()));
            EXPECT_TRUE(input::enter_text(d.get_max_scale()->get_edit(), L"250000"));
        };
        with_dialog<dialog>(panel().get_advanced_btn(), L"Cancel", change);
        EXPECT_TRUE(vx_textlr_info_equal(info(), before.get()));
        with_dialog<dialog>(panel().get_advanced_btn(), L"Apply", change);
        EXPECT_EQ(vx_textlr_info_get_range(info()), c_textlr_range_part);
        EXPECT_EQ(vx_textlr_info_get_duplicates(info()), c_textlr_duplicates_one);
        EXPECT_EQ(vx_textlr_info_is_line_direction(info()), is_line);
        EXPECT_EQ(vx_textlr_info_get_line_type(info()), is_line ? c_textlr_line_level : 0);
        EXPECT_EQ(vx_textlr_info_get_text_pos_x(info()),
                  is_line ? vx_textlr_info_get_text_pos_x(before.get()) : -1);
        EXPECT_EQ(vx_textlr_info_get_text_pos_y(info()), -1);
        EXPECT_EQ(vx_textlr_info_get_delta_x(info()), 2.5);
        EXPECT_EQ(vx_textlr_info_get_delta_y(info()), -1);
        EXPECT_TRUE(vx_textlr_info_use_min_scale(info()));
        EXPECT_EQ(vx_textlr_info_get_min_scale(info()), 5000);
        EXPECT_TRUE(vx_textlr_info_use_max_scale(info()));
        EXPECT_EQ(vx_textlr_info_get_max_scale(info()), 250000);
        with_dialog<dialog>(panel().get_advanced_btn(), L"Cancel", [is_line](dialog &d) {
            EXPECT_EQ(d.get_range_group()->GetItemIndex(), 1);
            EXPECT_EQ(d.get_duplicates_group()->GetItemIndex(), 2);
            EXPECT_EQ(is_line ? d.get_line_type_group()->GetItemIndex()
                              : d.get_text_pos_x_group()->GetItemIndex(),
                      is_line ? 3 : 0);
            EXPECT_EQ(d.get_text_pos_y_group()->GetItemIndex(), 0);
            EXPECT_TRUE(d.get_delta_y()->get_edit()->GetEnabled());
            EXPECT_EQ(d.get_delta_y()->get_edit()->GetText(), L"-1.00");
            EXPECT_TRUE(d.get_max_scale()->get_edit()->GetEnabled());
            EXPECT_EQ(d.get_max_scale()->get_edit()->GetText(), L"250000");
        });
        page->set_lr2d(nullptr); // before its layer goes
        page->update_controls();
    }
}

TEST_F(label_page, a_dialog_whose_layer_goes_meanwhile_writes_nothing)
{
    open(L"nc.shp");
    with_dialog<Tvx_label_style_effects_dlg>(panel().get_effects_btn(), L"Apply",
                                             [&](Tvx_label_style_effects_dlg &) {
                                                 page->set_lr2d(nullptr);
                                                 page->update_controls();
                                                 layer.reset();
                                             });
    EXPECT_EQ(panel().get_layer(), nullptr);
    // The page itself may go.
    open(L"nc.shp");
    owned_class const before(vx_textlr_info_clone(info()));
    with_dialog<Tvx_label_style_effects_dlg>(panel().get_effects_btn(), L"Apply",
                                             [&](Tvx_label_style_effects_dlg &d) {
                                                 EXPECT_TRUE(tick(d.get_back_check()));
                                                 delete page;
                                             });
    EXPECT_TRUE(vx_textlr_info_equal(info(), before.get()));
}

TEST_F(label_page, the_dialog_of_a_new_class_asks_for_its_name)
{
    Tvx_label_style_new_class_dlg dialog(nullptr);
    dialog.create_controls();
    dialog.set_class_name("Rivers");
    input::on_next_modal([&](input::modal_window const &window) {
        EXPECT_EQ(window.title(), L"Enter New Class Name");
        EXPECT_EQ(dialog.get_name_panel()->get_caption(), L"Class Name");
        EXPECT_TRUE(input::enter_text(dialog.get_name_panel()->get_edit(), L"Lakes"));
        window.press_button(L"Apply");
    });
    EXPECT_EQ(dialog.show_pos(0, 0), mrOk);
    EXPECT_EQ(dialog.get_class_name(), "Lakes");
}

TEST_F(label_page, saves_and_loads_the_classes)
{
    vx_test::temp_dir const dir;
    std::wstring const path = (dir / "counties._ta").wstring();
    open(L"nc.shp");
    vx_textlr_info_set_size(info(), 5.5);
    vx_textlr_info_set_outline(info(), true, c_red, 0.5);
    ASSERT_TRUE(input::click(panel().get_class_add_btn()));
    ASSERT_TRUE(input::choose_item(panel().get_prop_edit()->get_combo_box(), L"NAME"));
    ASSERT_TRUE(input::click(panel().get_save_btn())) << "the file dialog is cancelled";
    EXPECT_EQ(dir.count(), 0);
    EXPECT_NE(filter.str().find(L"*._ta"), std::wstring::npos) << filter.to_utf8();
    file = path;
    ASSERT_TRUE(input::click(panel().get_save_btn()));
    EXPECT_EQ(message, L"");

    // Another process, which knows nothing of this one.
    std::string const map = picture_of(layer.get());
    auto const run = "VX_LABELS='" + (dir / "counties._ta").string() + "' VX_MAP='" + map + "' '" +
                     std::filesystem::read_symlink("/proc/self/exe").string() +
                     "' --gtest_filter=labels_of_another_process.* > /dev/null 2>&1";
    EXPECT_EQ(std::system(run.c_str()), 0);

    ASSERT_TRUE(input::click(panel().get_class_del_btn()));
    vx_textlr_info_set_size(info(), 1);
    ASSERT_TRUE(input::click(panel().get_load_btn()));
    EXPECT_EQ(vx_dtld_lr2d_count_text_class(labels()), 2);
    EXPECT_EQ(panel().get_class_panel()->get_combo_box()->GetText(), L"2");
    EXPECT_EQ(property_of(info()), L"NAME");
    EXPECT_EQ(vx_textlr_info_get_size(vx_dtld_lr2d_get_text_class_by_index(labels(), 0)), 5.5);
    EXPECT_EQ(message, L"");

    vx_test::write_file(dir / "counties._ta", "<vx_labels version=\"2\"/>");
    ASSERT_TRUE(input::click(panel().get_load_btn()));
    EXPECT_NE(message.find(L"counties._ta"), std::wstring::npos) << "the user is told why";
    EXPECT_EQ(vx_dtld_lr2d_count_text_class(labels()), 2);
    file = (dir / "missing/labels._ta").wstring();
    message.clear();
    ASSERT_TRUE(input::click(panel().get_save_btn()));
    EXPECT_NE(message, L"");
}

TEST(labels_of_another_process, come_from_the_file)
{
    char const *const path = std::getenv("VX_LABELS");
    if (!path)
        GTEST_SKIP() << "runs inside the test that saves them";
    vx_bundles_load();
    owned_layer const layer(vx_shp_lr2d_open(L"" VX_EXAMPLE_DATA "/nc.shp", nullptr));
    Ivx_layer *const labels = vx_shp_lr2d_get_text_layer_ptr(layer.get());
    vx_lr2d_set_visible(labels, true);
    ASSERT_TRUE(vx_xml_data_load_lr2d_dtld(nullptr, vx::text::utf8_to_wide(path).c_str(), labels));
    EXPECT_EQ(vx_dtld_lr2d_count_text_class(labels), 2);
    EXPECT_EQ(vx_dtld_lr2d_get_text_class_index(labels), 1);
    EXPECT_EQ(vx_textlr_info_get_size(vx_dtld_lr2d_get_text_class_by_index(labels, 0)), 5.5);
    std::wstring name;
    vx_textlr_info_get_property_name(vx_dtld_lr2d_get_text_class(labels), Tvx_std_wstring_adapter(name));
    EXPECT_EQ(name, L"NAME");
    EXPECT_EQ(picture_of(layer.get()), std::getenv("VX_MAP")) << "the same map";
}
