#include "controls/forms/misc.h"
#include "dialog_reader.h"
#include "exports/vxk_style_dialog_api.h"
#include "support/temp_dir.h"
#include "tests/controls/prop/prop_form.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_wstrings.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/list_box.h"
#include "platform/toolkit/controls/speed_button.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/winapi/library.h"

namespace input = vx::user_input;
using namespace dialog_reader;

namespace {
using txt_style = vx::owned<void, &vx_txt_style_destroy>;

class text_dialogs : public prop_form
{
protected:
    static void SetUpTestSuite() { ASSERT_NE(LoadLibraryW(L"vxk_scene2d_editor_bdl.dll"), nullptr); }

    /// Runs the dialog of a text at a point, with `act` inside it.
    template <class F>
    bool run(F act)
    {
        input::on_next_modal([=](input::modal_window const &window) { act(window.form(), window); });
        return vx_txt_pnt_style_dialog(0, 0, style.get(), properties.get());
    }
    void set_lines(std::vector<std::wstring> const &texts)
    {
        void *const line = vx_txt_style_get_txt_stl_line(style.get());
        vx_txt_stl_line_clear(line);
        vx_txt_stl_line_add(line, static_cast<unsigned>(texts.size()));
        for (unsigned i = 0; i < texts.size(); ++i)
            vx_txt_stl_line_set_str(line, texts[i].c_str(), i);
    }
    [[nodiscard]] std::vector<std::wstring> lines() const
    {
        void *const line = vx_txt_style_get_txt_stl_line(style.get());
        std::vector<std::wstring> texts(vx_txt_stl_line_count(line));
        for (unsigned i = 0; i < texts.size(); ++i)
            vx_txt_stl_line_get_str(line, Tvx_std_wstring_adapter(texts[i]), i);
        return texts;
    }

    txt_style style{vx_txt_style_create()};
    vx::owned<void, &vx_wstrings_destroy> properties{vx_wstrings_create()};
};

/// Types into the number of this name.
void type_number(TWinControl *form, wchar_t const *name, wchar_t const *text)
{
    auto *edit = find<TEdit>(form, name);
    ASSERT_NE(edit, nullptr) << UnicodeString(name).to_utf8();
    EXPECT_TRUE(input::enter_text(edit, text));
}

void press(TWinControl *form, wchar_t const *name)
{
    auto *button = find<TButton>(form, name);
    ASSERT_NE(button, nullptr) << UnicodeString(name).to_utf8();
    EXPECT_TRUE(input::click(button));
}

/// The eye beside a colour.
void turn_eye(TWinControl *form, wchar_t const *name)
{
    TWinControl *row = find<TButton>(form, name)->GetParent()->GetParent();
    auto *eye = find<TSpeedButton>(row, L"");
    ASSERT_NE(eye, nullptr);
    EXPECT_TRUE(input::click(eye));
}
} // namespace

TEST_F(text_dialogs, every_parameter_is_set_by_its_control)
{
    EXPECT_TRUE(run([this](TCustomForm *form, input::modal_window const &window) {
        ASSERT_TRUE(open_tab(form, L"Font"));
        press(form, L"Font");
        next_color = vx_clr_init_rgb(10, 20, 30);
        press(form, L"Colour");
        type_number(form, L"Size", L"4.5");
        type_number(form, L"Angle", L"-30.5");
        EXPECT_TRUE(input::choose_item(find<TComboBox>(form, L"Place"), L"Left, below"));
        type_number(form, L"Shift to the right", L"-0.25");
        type_number(form, L"Shift up", L"1.75");
        ASSERT_TRUE(open_tab(form, L"Effects"));
        next_color = vx_clr_init_rgb(40, 50, 60);
        press(form, L"Outline");
        turn_eye(form, L"Outline");
        type_number(form, L"Outline width", L"0.55");
        next_color = vx_clr_init_rgb(70, 80, 90);
        press(form, L"Background");
        turn_eye(form, L"Background");
        next_color = vx_clr_init_rgb(11, 12, 13);
        press(form, L"Shadow");
        turn_eye(form, L"Shadow");
        type_number(form, L"Shadow outline", L"0.65");
        type_number(form, L"Shadow to the right", L"0.75");
        type_number(form, L"Shadow up", L"-0.85");
        window.press_button(L"Apply");
    }));
    void *const s = style.get();
    txt_style const wanted(vx_txt_style_create());
    void *const w = wanted.get();
    vx_fnt_type font;
    font.set_wname(L"DejaVu Serif");
    vx_txt_style_set_font(w, &font);
    vx_txt_style_set_color(w, vx_clr_init_rgb(10, 20, 30));
    vx_txt_style_set_font_size(w, 4.5);
    vx_txt_style_set_angle(w, -30.5);
    vx_txt_style_set_pos_x(w, -1);
    vx_txt_style_set_pos_y(w, -1);
    vx_txt_style_set_delta_x(w, -0.25);
    vx_txt_style_set_delta_y(w, 1.75);
    vx_txt_style_set_outline(w, true);
    vx_txt_style_set_outline_clr(w, vx_clr_init_rgb(40, 50, 60));
    vx_txt_style_set_outline_size(w, 0.55);
    vx_txt_style_set_back(w, true);
    vx_txt_style_set_back_clr(w, vx_clr_init_rgb(70, 80, 90));
    vx_txt_style_set_shadow(w, true);
    vx_txt_style_set_shadow_clr(w, vx_clr_init_rgb(11, 12, 13));
    vx_txt_style_set_shadow_width(w, 0.65);
    vx_txt_style_set_shadow_gap_x(w, 0.75);
    vx_txt_style_set_shadow_gap_y(w, -0.85);
    EXPECT_TRUE(vx_txt_style_equal(s, w));

    // Opened again and accepted, all of it is the same; cancelled, nothing is taken over.
    EXPECT_TRUE(run([](TCustomForm *, input::modal_window const &window) { window.press_button(L"Apply"); }));
    EXPECT_TRUE(vx_txt_style_equal(s, w));
    EXPECT_FALSE(run([](TCustomForm *form, input::modal_window const &window) {
        ASSERT_TRUE(open_tab(form, L"Font"));
        type_number(form, L"Size", L"9");
        window.reject();
    }));
    EXPECT_TRUE(vx_txt_style_equal(s, w));
}

TEST_F(text_dialogs, lines_are_added_chosen_moved_and_deleted)
{
    vx_wstrings_add(properties.get(), L"NAME");
    vx_wstrings_add(properties.get(), L"AREA");
    set_lines({L"NAME", L"km"});
    EXPECT_TRUE(run([](TCustomForm *form, input::modal_window const &window) {
        auto *list = find<TListBox>(form, L"Lines");
        auto *box = find<TComboBox>(form, L"Line or property");
        ASSERT_TRUE(list && box);
        EXPECT_EQ(list->GetItems()->GetStrings(0), L"NAME (property)");
        EXPECT_EQ(list->GetItems()->GetStrings(1), L"km");
        EXPECT_EQ(box->GetItems()->GetCount(), 2);
        EXPECT_EQ(box->GetText(), L"NAME");
        press(form, L"Add");
        EXPECT_EQ(list->GetItemIndex(), 1);
        EXPECT_TRUE(box->Focused());
        EXPECT_TRUE(input::choose_item(box, L"AREA"));
        EXPECT_EQ(list->GetItems()->GetStrings(1), L"AREA (property)");
        EXPECT_TRUE(input::click_item(list, 2));
        press(form, L"Up");
        EXPECT_EQ(list->GetItems()->GetStrings(1), L"km");
        EXPECT_TRUE(input::enter_text(box, L"sq"));
        EXPECT_TRUE(input::click_item(list, 0));
        press(form, L"Delete");
        EXPECT_EQ(box->GetText(), L"sq");
        EXPECT_FALSE(find<TButton>(form, L"Up")->GetEnabled());
        window.press_button(L"Apply");
    }));
    EXPECT_EQ(lines(), (std::vector<std::wstring>{L"sq", L"AREA"}));

    EXPECT_TRUE(run([](TCustomForm *form, input::modal_window const &window) {
        press(form, L"Delete");
        press(form, L"Delete");
        EXPECT_FALSE(find<TButton>(form, L"Delete")->GetEnabled());
        EXPECT_FALSE(find<TComboBox>(form, L"Line or property")->GetEnabled());
        window.press_button(L"Apply");
    }));
    EXPECT_TRUE(lines().empty());
    EXPECT_EQ(vx_wstrings_get_size(properties.get()), 2u) << "the list stays the caller's";
}

TEST_F(text_dialogs, the_sample_keeps_the_empty_lines)
{
    vx_test::temp_dir const dir;
    vx_txt_style_set_pos_y(style.get(), 0);
    // Number of the first row in which the letters are, with these lines.
    auto const first_row = [&](std::vector<std::wstring> const &texts) {
        set_lines(texts);
        int row = -1;
        run([&](TCustomForm *form, input::modal_window const &window) {
            auto *sample = find<Tvx_gr_ctrl>(form, L"");
            ASSERT_NE(sample, nullptr);
            UnicodeString const file = (dir / "sample.png").wstring().c_str();
            ASSERT_TRUE(input::save_shot(sample, file));
            TBitmap picture;
            ASSERT_TRUE(picture.LoadFromFile(file));
            auto const is_dark = [](TColor c) {
                return (c & 255) < 128 && (c >> 8 & 255) < 128 && (c >> 16 & 255) < 128;
            };
            for (int i = 0; i < picture.GetHeight() * picture.GetWidth() && row < 0; ++i)
                if (is_dark(picture.GetCanvas()->GetPixel(i % picture.GetWidth(), i / picture.GetWidth())))
                    row = i / picture.GetWidth();
            window.reject();
        });
        return row;
    };
    int const below = first_row({L"", L"", L"X"});
    int const above = first_row({L"X", L"", L""});
    EXPECT_GE(above, 0);
    int const middle = first_row({L"X"});
    EXPECT_GT(below, middle + 5);
    EXPECT_GT(middle, above + 5);
    EXPECT_GE(first_row({L"", L""}), 0) << "blank lines show the sample's own text";
}

// ---- what the texts of a manager have in common

TEST_F(text_dialogs, what_is_ticked_is_set_in_all_texts)
{
    vx::owned<void, &vx_stl_mngr_destroy> const mngr(vx_stl_mngr_create("txt_pgn_style"));
    void *const m = mngr.get();
    void *const values = vx_stl_mngr_get_val_scale_ptr(m);
    void *const rules = vx_stl_mngr_get_rule_scale_ptr(m);
    void *const ranges = vx_stl_mngr_get_rng_scale_ptr(m);
    vx_val_scale_set_size(values, 2);
    vx_val_scale_set_size(rules, 1);
    vx_rng_scale_set_size(ranges, 1);
    std::vector<void *> all{vx_stl_mngr_get_simple_sp_ptr(m)};
    for (void *prm : {vx_val_scale_get_scale_prm_ptr(values, 0), vx_val_scale_get_scale_prm_ptr(values, 1),
                      vx_val_scale_get_other_prm_ptr(values), vx_val_scale_get_scale_prm_ptr(rules, 0),
                      vx_val_scale_get_other_prm_ptr(rules), vx_rng_scale_get_scale_prm_ptr(ranges, 0),
                      vx_rng_scale_get_other_prm_ptr(ranges), vx_rng_scale_get_min_prm_ptr(ranges),
                      vx_rng_scale_get_max_prm_ptr(ranges)})
        all.push_back(vx_scale_prm_get_stl_prm_ptr(prm));
    auto const text = [&](std::size_t i, bool selected) {
        return vx_stl_prm_get_txt_pgn_style_ptr(all[i], selected);
    };
    for (std::size_t i = 0; i < all.size(); ++i) {
        vx_txt_style_set_angle(text(i, false), 10.0 + double(i));
        vx_txt_style_set_font_size(text(i, false), 2.5);
    }
    Tvx_color const selected_color = vx_txt_style_get_color(text(0, true));

    vx::owned<void, &vx_stl_mngr_destroy> const before(vx_stl_mngr_clone(m));
    auto const act = [this](TCustomForm *form) {
        EXPECT_TRUE(input::enter_text(find<TEdit>(form, L"Name"), L"Labels"));
        type_number(form, L"Size", L"3.5");
        next_color = vx_clr_init_rgb(9, 9, 200);
        press(form, L"Colour");
        // A value that is right already is ticked by hand.
        auto *tick = find<TCheckBox>(form, L"Shift up");
        ASSERT_NE(tick, nullptr);
        EXPECT_FALSE(tick->GetChecked());
        EXPECT_TRUE(input::click(tick, 8, tick->GetHeight() / 2));
        EXPECT_TRUE(find<TCheckBox>(form, L"Size")->GetChecked());
    };
    input::on_next_modal([&](input::modal_window const &window) {
        act(window.form());
        window.reject();
    });
    EXPECT_FALSE(vx_txt_common_style_dialog(0, 0, m));
    EXPECT_TRUE(vx_stl_mngr_equal(m, before.get()));

    for (std::size_t i = 1; i < all.size(); ++i)
        vx_txt_style_set_delta_y(text(i, false), 5);
    input::on_next_modal([&](input::modal_window const &window) {
        act(window.form());
        window.press_button(L"Apply");
    });
    EXPECT_TRUE(vx_txt_common_style_dialog(0, 0, m));
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_EQ(vx_txt_style_get_font_size(text(i, false)), 3.5) << i;
        EXPECT_EQ(vx_txt_style_get_font_size(text(i, true)), 3.5) << i;
        EXPECT_EQ(vx_txt_style_get_color(text(i, false)), next_color) << i;
        EXPECT_EQ(vx_txt_style_get_color(text(i, true)), selected_color) << i;
        EXPECT_EQ(vx_txt_style_get_delta_y(text(i, false)), 0) << i;
        EXPECT_EQ(vx_txt_style_get_angle(text(i, false)), 10.0 + double(i)) << "what is not ticked stays";
    }
    std::wstring name;
    vx_stl_mngr_get_name_w(m, Tvx_std_wstring_adapter(name));
    EXPECT_EQ(name, L"Labels");

    vx::owned<void, &vx_stl_mngr_destroy> const points(vx_stl_mngr_create("pnt_style"));
    EXPECT_FALSE(vx_txt_common_style_dialog(0, 0, points.get())) << "no manager of texts";
}
