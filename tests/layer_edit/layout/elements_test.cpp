#include "controls/forms/apply_form.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "layer_edit/form/lr2d_edit_form.h"
#include "layer_edit/page_set/lr2d_edit.h"
#include "layout_fixture.h"
#include "styles/simple/style_btns.h"
#include "support/tab_round.h"
#include "support/text_places.h"
#include "tests/bundles/scene_editor/dialog_reader.h"

#include "platform/basic/vx_options.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_style.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/check_list_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/memo.h"
#include "platform/toolkit/core/strings.h"

#include <cstdlib>

namespace input = vx::user_input;
using dialog_reader::find;

namespace {
/// The window for elements with the pages of the bundle, worked as a person would.
class element_pages : public layout_project
{
protected:
    using edit_form = vx::owned<Tvx_lr2d_edit_form, &vx_lr_layout_edt_form_destroy>;

    element_pages()
    {
        add_map_layer(L"Counties", L"nc.shp", "shp_pgn_lr2d");
        add_map_layer(L"Roads", L"streets.shp", "shp_pln_lr2d");
    }
    void add_map_layer(wchar_t const *name, std::wstring const &file, char const *key)
    {
        auto *const layer = vx_shp_lr2d_create(key, (L"" VX_EXAMPLE_DATA "/" + file).c_str());
        vx_lr2d_set_wcaption(layer, name);
        vx_scn_2d_insert(town, vx_scn_2d_get_count(town), layer);
    }
    void open(char const *key, wchar_t const *file = L"")
    {
        if (!record) {
            record.reset(vx_lr_layout_edt_form_create());
            vx_lr2d_edt_form_create_all(record.get());
            vx_lr2d_edt_form_show_pos(record.get(), 100, 100);
        }
        auto const layer = make_element(key, file);
        vx_lr2d_set_wcaption(layer.get(), L"My element");
        vx_lr2d_edt_form_set_lr2d(record.get(), layer.get());
        vx_lr2d_edt_form_update(record.get());
        input::wait_idle();
    }
    [[nodiscard]] TCustomForm *window() const { return record->get_form(); }
    [[nodiscard]] Ivx_layer *layer() const { return vx_lr2d_edt_form_get_lr2d_ptr(record.get()); }
    [[nodiscard]] TPageControl *pages() const { return record->get_lr2d_edit()->get_pages(); }
    [[nodiscard]] std::vector<std::wstring> tabs() const
    {
        std::vector<std::wstring> captions;
        for (int i = 0; i < pages()->GetPageCount(); ++i)
            if (pages()->GetPages(i)->GetTabVisible())
                captions.push_back(pages()->GetPages(i)->GetCaption().str());
        return captions;
    }

    edit_form record;
};

char const *const c_keys[] = {
    c_lr_key_layout_page,      c_lr_key_layout_scene_frame, c_lr_key_layout_text,
    c_lr_key_layout_neatline,  c_lr_key_layout_legend,      c_lr_key_layout_north_arrow,
    c_lr_key_layout_scale_bar, c_lr_key_layout_scale_text,  c_lr_key_layout_image,
    c_lr_key_layout_table,     c_lr_key_layout_ole_object,
};
} // namespace

TEST_F(element_pages, each_element_has_its_tabs_which_are_read_in_both_languages)
{
    for (char const *const language : {"en", "ru"}) {
        vx_options_set_language(language);
        record.reset();
        for (char const *const key : c_keys) {
            SCOPED_TRACE(std::string(language) + " " + key);
            std::string_view const kind = key;
            open(key, kind == c_lr_key_layout_scene_frame ? L"Town"
                      : kind == c_lr_key_layout_table     ? L"" VX_EXAMPLE_DATA "/nc.shp"
                                                          : L"Left");
            bool const has_own = kind != c_lr_key_layout_neatline && kind != c_lr_key_layout_ole_object;
            ASSERT_EQ(tabs().size(), has_own ? 2u : 1u);
            for (int i = 0; i < static_cast<int>(tabs().size()); ++i) {
                ASSERT_TRUE(input::click_tab(pages(), i));
                vx_test::expect_texts_fit(pages()->GetActivePage(), true);
                pages()->SetFocus();
                auto const stops = vx_test::round(pages()->GetActivePage(), true);
                vx_test::expect_reading_order(stops);
                for (auto *const control : vx_test::focusable(pages()->GetActivePage()))
                    EXPECT_TRUE(vx_test::controls_of(stops).contains(control))
                        << "Tab does not reach " << control->GetAccessibleName().to_utf8();
                for (auto const &stop : stops)
                    EXPECT_FALSE(stop.name().empty()) << typeid(*stop.control).name();
                if (char const *const directory = std::getenv("VX_SHOTS"))
                    (void)input::save_shot(window(), UnicodeString(std::string(directory) + "/" + language +
                                                                   "_" + key + std::to_string(i) + ".png"));
            }
        }
    }
    vx_options_set_language("en");
}

namespace {
/// Types into the edit of this name on the page in front.
void type_into(TWinControl *root, wchar_t const *name, wchar_t const *text)
{
    auto *const edit = find<TEdit>(root, name);
    ASSERT_NE(edit, nullptr) << UnicodeString(name).to_utf8();
    EXPECT_TRUE(input::enter_text(edit, text));
}

void choose(TWinControl *root, wchar_t const *name, wchar_t const *item)
{
    auto *const box = find<TComboBox>(root, name);
    ASSERT_NE(box, nullptr) << UnicodeString(name).to_utf8();
    EXPECT_TRUE(input::choose_item(box, item));
}

void press(TWinControl *root, wchar_t const *name)
{
    auto *const button = find<TButton>(root, name);
    ASSERT_NE(button, nullptr) << UnicodeString(name).to_utf8();
    EXPECT_TRUE(input::click(button));
}

void turn(TWinControl *root, wchar_t const *name)
{
    auto *const box = find<TCheckBox>(root, name);
    ASSERT_NE(box, nullptr) << UnicodeString(name).to_utf8();
    EXPECT_TRUE(input::click(box, 8, box->GetHeight() / 2));
}

UnicodeString edit_text(TWinControl *root, wchar_t const *name)
{
    return find<TEdit>(root, name)->GetText();
}

std::vector<std::wstring> list_lines(TWinControl *root)
{
    auto *const list = find<TCheckListBox>(root, L"");
    std::vector<std::wstring> lines;
    for (int i = 0; i < list->GetItems()->GetCount(); ++i)
        lines.push_back((list->GetChecked(i) ? L"+" : L"-") + list->GetItems()->GetStrings(i).str());
    return lines;
}
using lines = std::vector<std::wstring>;
} // namespace

TEST_F(element_pages, what_all_elements_have)
{
    open(c_lr_key_layout_neatline);
    type_into(window(), L"Name", L"Border");
    type_into(window(), L"Left", L"-2.5");
    type_into(window(), L"Top", L"7");
    type_into(window(), L"Width", L"100.25");
    type_into(window(), L"Height", L"50");
    auto const box = vx_layout_lr2d_get_box(layer());
    EXPECT_EQ(std::tuple(box.min_x, box.min_y, box.width(), box.height()),
              std::tuple(-2.5, 7.0, 100.25, 50.0));
    std::wstring name;
    vx_lr2d_get_wcaption(layer(), Tvx_std_wstring_adapter(name));
    EXPECT_EQ(name, L"Border");

    // What cannot be a side gives way when the row is left, and at an Apply.
    type_into(window(), L"Width", L"0");
    EXPECT_NEAR(vx_layout_lr2d_get_box(layer()).width(), 0.1, 1e-9);
    EXPECT_TRUE(input::press(VK_TAB));
    EXPECT_EQ(edit_text(window(), L"Width"), L"0.1");
    type_into(window(), L"Height", L"0");
    ASSERT_TRUE(input::click(record->get_form()->get_apply_btn()));
    EXPECT_EQ(edit_text(window(), L"Height"), L"0.1");

    auto *const style = vx_layout_lr2d_get_pgn_style_ptr(layer());
    turn(window(), L"Fill the area");
    turn(window(), L"Draw the outline");
    EXPECT_TRUE(vx_pgn_style_get_pgn_visible(style));
    EXPECT_FALSE(vx_pgn_style_get_pln_visible(style));
    input::on_next_modal([](input::modal_window const &dialog) {
        turn(dialog.form(), L"Outline");
        EXPECT_TRUE(dialog.press_button(L"Apply"));
    });
    ASSERT_TRUE(input::click(find<Tvx_basic_style_btn>(window(), L"Fill and outline")));
    EXPECT_TRUE(vx_pgn_style_get_pln_visible(style));
    EXPECT_TRUE(find<TCheckBox>(window(), L"Draw the outline")->GetChecked());
}

TEST_F(element_pages, the_sheet_has_a_size)
{
    open(c_lr_key_layout_page);
    auto const size = [&] {
        auto const box = vx_layout_lr2d_get_box(layer());
        return std::pair(box.width(), box.height());
    };
    choose(window(), L"Orientation", L"Landscape");
    EXPECT_EQ(size(), std::pair(297.0, 210.0));
    choose(window(), L"Paper", L"A3");
    EXPECT_EQ(size(), std::pair(420.0, 297.0));
    EXPECT_EQ(edit_text(window(), L"Width"), L"420");
    choose(window(), L"Paper", L"Custom");
    EXPECT_EQ(size(), std::pair(420.0, 297.0));
    type_into(window(), L"Width", L"100");
    EXPECT_EQ(find<TComboBox>(window(), L"Paper")->GetText(), L"Custom");
    EXPECT_EQ(find<TComboBox>(window(), L"Orientation")->GetText(), L"Portrait");
    choose(window(), L"Paper", L"Letter");
    EXPECT_EQ(size(), std::pair(215.9, 279.4));
}

TEST_F(element_pages, a_frame_shows_all_of_its_scene)
{
    open(c_lr_key_layout_scene_frame);
    EXPECT_FALSE(find<TButton>(window(), L"Show all")->GetEnabled()) << "of no scene";
    choose(window(), L"Scene", L"Town");
    press(window(), L"Show all");
    Tvx_box_d2 all;
    ASSERT_TRUE(vx_scn_2d_get_extent(town, &all));
    auto const shown = vx_layout_scene_frame_lr2d_get_world(layer());
    EXPECT_LE(shown.min_x, all.min_x);
    EXPECT_GE(shown.max_y, all.max_y);
    type_into(window(), L"Middle of the map, x", L"-80.125");
    type_into(window(), L"Scale", L"25000");
    EXPECT_DOUBLE_EQ(vx_layout_scene_frame_lr2d_get_center(layer()).x, -80.125);
    double x = 0;
    vx_layout_scene_frame_lr2d_get_scale(layer(), &x, nullptr);
    EXPECT_EQ(x, 25000);
    // Without data the scene's view counts; without one the user is told.
    choose(window(), L"Scene", L"Profile");
    press(window(), L"Show all");
    EXPECT_EQ(std::exchange(messages, {}).size(), 1u);
    vx_scn_2d_set_view(profile, {5, 6}, 1);
    press(window(), L"Show all");
    EXPECT_EQ(vx_layout_scene_frame_lr2d_get_center(layer()).y, 6);
}

TEST_F(element_pages, a_legend_has_layers_and_lines_of_text)
{
    open(c_lr_key_layout_legend, L"Left");
    auto const items = [&] {
        lines result;
        for (auto const &item : vx_layout_legend_lr2d_get(layer()).items)
            result.push_back((item.visible ? L"+" : L"-") + std::wstring(item.is_text ? L"Text: " : L"") +
                             item.text);
        return result;
    };
    EXPECT_EQ(list_lines(window()), (lines{L"+Roads", L"+Counties"})) << "the topmost first";
    auto *const list = find<TCheckListBox>(window(), L"");
    ASSERT_TRUE(input::click_item_check(list, 0));
    EXPECT_EQ(items(), (lines{L"-Roads", L"+Counties"}));
    ASSERT_TRUE(input::click_item(list, 0));
    press(window(), L"Add text");
    ASSERT_TRUE(input::type(L"Areas"));
    EXPECT_EQ(items(), (lines{L"-Roads", L"+Text: Areas", L"+Counties"}));
    press(window(), L"Up");
    EXPECT_EQ(items(), (lines{L"+Text: Areas", L"-Roads", L"+Counties"}));
    EXPECT_EQ(list_lines(window()), items());
    ASSERT_TRUE(input::click_item(list, 2));
    EXPECT_FALSE(find<TButton>(window(), L"Delete")->GetEnabled()) << "layers are switched off";
    EXPECT_FALSE(find<TEdit>(window(), L"Text of the line")->GetEnabled());

    // A layer comes, another goes.
    add_map_layer(L"Parks", L"nc.shp", "shp_pgn_lr2d");
    vx_lr2d_destroy(vx_scn_2d_extract(town, 0));
    vx_lr2d_edt_form_update(record.get());
    EXPECT_EQ(list_lines(window()), (lines{L"+Text: Areas", L"-Roads", L"+Counties", L"-Parks"}));
    ASSERT_TRUE(input::click_item(list, 2));
    press(window(), L"Delete");
    EXPECT_EQ(items(), (lines{L"+Text: Areas", L"-Roads", L"-Parks"}));
    press(window(), L"As in the map");
    EXPECT_EQ(items(), lines{});
    EXPECT_EQ(list_lines(window()), (lines{L"+Parks", L"+Roads"}));

    choose(window(), L"Frame", L"Right");
    EXPECT_EQ(list_lines(window()), lines{}) << "of another scene";
    type_into(window(), L"Title", L"Legend");
    type_into(window(), L"Columns", L"2");
    type_into(window(), L"Gap", L"3.25");
    auto const legend = vx_layout_legend_lr2d_get(layer());
    EXPECT_EQ(std::tuple(legend.title, legend.columns, legend.gap),
              std::tuple(std::wstring(L"Legend"), 2, 3.25));
    type_into(window(), L"Columns", L"99");
    EXPECT_TRUE(input::press(VK_RETURN));
    EXPECT_EQ(edit_text(window(), L"Columns"), L"20");
}

TEST_F(element_pages, texts_and_how_they_are_written)
{
    open(c_lr_key_layout_text);
    auto *const memo = find<TMemo>(window(), L"");
    ASSERT_TRUE(input::click(memo));
    ASSERT_TRUE(input::type(L"Two\nlines"));
    choose(window(), L"Across", L"Right");
    choose(window(), L"Up and down", L"Middle");
    type_into(window(), L"Angle", L"-30.5");
    type_into(window(), L"Height of letters", L"6.5");
    next_color = vx_clr_init_rgb(10, 20, 30);
    press(window(), L"Colour");
    ASSERT_TRUE(input::click(find<TButton>(window(), L"Font")));
    std::wstring text;
    vx_layout_text_lr2d_get_wtext(layer(), Tvx_std_wstring_adapter(text));
    EXPECT_EQ(text, L"Two\nlines");
    EXPECT_EQ(vx_layout_text_lr2d_get_angle(layer()), -30.5);
    auto const writing = vx_layout_lr2d_get_writing(layer());
    EXPECT_EQ(std::tuple(writing.align_x, writing.align_y, writing.size), std::tuple(1, 0, 6.5));
    EXPECT_EQ(writing.color.g, 20);
    EXPECT_EQ(std::wstring(writing.font.wname()), next_font);
    vx_lr2d_edt_form_update(record.get());
    EXPECT_EQ(memo->GetText(), L"Two\nlines");
}

TEST_F(element_pages, bars_arrows_pictures_and_tables)
{
    open(c_lr_key_layout_scale_bar);
    choose(window(), L"Frame", L"Right");
    choose(window(), L"Kind", L"Ticks");
    choose(window(), L"Unit", L"Miles");
    type_into(window(), L"Divisions", L"6");
    type_into(window(), L"Length", L"0.5");
    type_into(window(), L"Height of the bar", L"3");
    auto const bar = vx_layout_scale_bar_lr2d_get(layer());
    EXPECT_EQ(std::tuple(bar.kind, bar.unit, bar.divisions, bar.length, bar.height),
              std::tuple(c_layout_bar_ticks, c_layout_unit_mi, 6, 0.5, 3.0));

    open(c_lr_key_layout_north_arrow);
    choose(window(), L"Kind", L"Compass rose");
    type_into(window(), L"Angle", L"-12");
    turn(window(), L"Letter");
    auto const arrow = vx_layout_north_arrow_lr2d_get(layer());
    EXPECT_EQ(std::tuple(arrow.kind, arrow.angle, arrow.has_letter),
              std::tuple(c_layout_arrow_rose, -12.0, false));

    open(c_lr_key_layout_image);
    turn(window(), L"Keep");
    EXPECT_FALSE(vx_layout_image_lr2d_get_keep_ratio(layer()));

    open(c_lr_key_layout_table);
    next_file = L"" VX_EXAMPLE_DATA "/nc_legend.dbf";
    press(window(), L"Data set");
    auto const fields = list_lines(window());
    ASSERT_GT(fields.size(), 2u);
    auto *const list = find<TCheckListBox>(window(), L"");
    ASSERT_TRUE(input::click_item_check(list, 2));
    ASSERT_TRUE(input::click_item(list, 2));
    press(window(), L"Up");
    press(window(), L"Up");
    ASSERT_TRUE(input::click_item_check(list, 1));
    type_into(window(), L"Records", L"7");
    auto const table = vx_layout_table_lr2d_get(layer());
    EXPECT_EQ(table.rows, 7);
    EXPECT_EQ(table.fields, (lines{fields[2].substr(1), fields[0].substr(1)}));
    next_file = L"" VX_EXAMPLE_DATA "/nc_legend.nothing";
    press(window(), L"Data set");
    EXPECT_EQ(std::exchange(messages, {}).size(), 1u) << "which cannot be opened";
    EXPECT_EQ(list_lines(window()), (lines{L"+" + fields[2].substr(1), L"+" + fields[0].substr(1)}));
    vx_lr2d_edt_form_set_lr2d(record.get(), nullptr);
    EXPECT_TRUE(tabs().empty());
}

TEST_F(element_pages, a_low_window_scrolls_to_what_has_the_focus)
{
    open(c_lr_key_layout_legend, L"Left");
    vx_lr2d_edt_form_set_height(record.get(), 260);
    input::wait_idle();
    auto *const page = pages()->GetActivePage();
    auto const in_sight = [&](TControl *control) {
        auto const at = page->ScreenToClient(control->ClientToScreen({0, control->GetHeight() / 2}));
        return at.Y > 0 && at.Y < page->GetClientHeight();
    };
    auto *const frame = find<TComboBox>(window(), L"Frame");
    auto *const color = find<TButton>(window(), L"Colour");
    ASSERT_TRUE(frame && color);
    EXPECT_TRUE(in_sight(frame) && !in_sight(color));
    ASSERT_TRUE(input::tab_to(color));
    EXPECT_TRUE(in_sight(color));
    ASSERT_TRUE(input::tab_to(frame));
    EXPECT_TRUE(in_sight(frame));
}
