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
/// Works the control of this name as its kind wants it: types into an edit, chooses of a list, clicks the
/// others.
void work(TWinControl *root, wchar_t const *name, wchar_t const *text = L"")
{
    SCOPED_TRACE(UnicodeString(name).to_utf8());
    if (auto *const box = find<TComboBox>(root, name))
        EXPECT_TRUE(input::choose_item(box, text));
    else if (auto *const check = find<TCheckBox>(root, name))
        EXPECT_TRUE(input::click(check, 8, check->GetHeight() / 2));
    else if (auto *const edit = find<TEdit>(root, name); edit && *text)
        EXPECT_TRUE(input::enter_text(edit, text));
    else if (auto *const button = find<TButton>(root, name))
        EXPECT_TRUE(input::click(button));
    else
        ADD_FAILURE() << "there is none";
}

UnicodeString edit_text(TWinControl *root, wchar_t const *name)
{
    return find<TEdit>(root, name)->GetText();
}

using lines = std::vector<std::wstring>;
lines list_lines(TWinControl *root)
{
    auto *const list = find<TCheckListBox>(root, L"");
    lines result;
    for (int i = 0; i < list->GetItems()->GetCount(); ++i)
        result.push_back((list->GetChecked(i) ? L"+" : L"-") + list->GetItems()->GetStrings(i).str());
    return result;
}

constexpr auto box = &vx_layout_lr2d_get_box;
constexpr auto bar = &vx_layout_scale_bar_lr2d_get;
constexpr auto arrow = &vx_layout_north_arrow_lr2d_get;
constexpr auto legend = &vx_layout_legend_lr2d_get;
constexpr auto writing = &vx_layout_lr2d_get_writing;

/// What is done to a control, and what the element then has.
struct work_case
{
    char const *key;
    wchar_t const *name, *text;
    double (*value)(Ivx_layer *layer);
    double expected;
};
#define VX_OF(expression) [](Ivx_layer *e) -> double { return expression; }
work_case const c_cases[] = {
    {c_lr_key_layout_neatline, L"Left", L"-2.5", VX_OF(box(e).min_x), -2.5},
    {c_lr_key_layout_neatline, L"Top", L"7", VX_OF(box(e).min_y), 7},
    {c_lr_key_layout_neatline, L"Width", L"100.25", VX_OF(box(e).width()), 100.25},
    {c_lr_key_layout_neatline, L"Height", L"50", VX_OF(box(e).height()), 50},
    {c_lr_key_layout_neatline, L"Fill the area", L"",
     VX_OF(vx_pgn_style_get_pgn_visible(vx_layout_lr2d_get_pgn_style_ptr(e))), 1},
    {c_lr_key_layout_neatline, L"Draw the outline", L"",
     VX_OF(vx_pgn_style_get_pln_visible(vx_layout_lr2d_get_pgn_style_ptr(e))), 0},
    {c_lr_key_layout_page, L"Orientation", L"Landscape", VX_OF(box(e).width()), 297},
    {c_lr_key_layout_page, L"Paper", L"A3", VX_OF(box(e).height()), 420},
    {c_lr_key_layout_page, L"Paper", L"Letter", VX_OF(box(e).width()), 215.9},
    {c_lr_key_layout_page, L"Paper", L"Custom", VX_OF(box(e).width()), 210},
    {c_lr_key_layout_scene_frame, L"Middle of the map, x", L"-80.125",
     VX_OF(vx_layout_scene_frame_lr2d_get_center(e).x), -80.125},
    {c_lr_key_layout_text, L"Across", L"Right", VX_OF(writing(e).align_x), 1},
    {c_lr_key_layout_text, L"Up and down", L"Middle", VX_OF(writing(e).align_y), 0},
    {c_lr_key_layout_text, L"Angle", L"-30.5", VX_OF(vx_layout_text_lr2d_get_angle(e)), -30.5},
    {c_lr_key_layout_text, L"Height of letters", L"6.5", VX_OF(writing(e).size), 6.5},
    {c_lr_key_layout_text, L"Colour", L"", VX_OF(writing(e).color.g), 2},
    {c_lr_key_layout_scale_bar, L"Kind", L"Ticks", VX_OF(bar(e).kind), c_layout_bar_ticks},
    {c_lr_key_layout_scale_bar, L"Unit", L"Miles", VX_OF(bar(e).unit), c_layout_unit_mi},
    {c_lr_key_layout_scale_bar, L"Divisions", L"6", VX_OF(bar(e).divisions), 6},
    {c_lr_key_layout_scale_bar, L"Length", L"0.5", VX_OF(bar(e).length), 0.5},
    {c_lr_key_layout_scale_bar, L"Height of the bar", L"3", VX_OF(bar(e).height), 3},
    {c_lr_key_layout_north_arrow, L"Kind", L"Compass rose", VX_OF(arrow(e).kind), c_layout_arrow_rose},
    {c_lr_key_layout_north_arrow, L"Angle", L"-12", VX_OF(arrow(e).angle), -12},
    {c_lr_key_layout_north_arrow, L"Letter", L"", VX_OF(arrow(e).has_letter), 0},
    {c_lr_key_layout_image, L"Keep", L"", VX_OF(vx_layout_image_lr2d_get_keep_ratio(e)), 0},
    {c_lr_key_layout_legend, L"Title", L"abc", VX_OF(double(legend(e).title.size())), 3},
    {c_lr_key_layout_legend, L"Columns", L"2", VX_OF(legend(e).columns), 2},
    {c_lr_key_layout_legend, L"Columns", L"99", VX_OF(legend(e).columns), 20},
    {c_lr_key_layout_legend, L"Gap", L"3.25", VX_OF(legend(e).gap), 3.25},
    {c_lr_key_layout_table, L"Records", L"7", VX_OF(vx_layout_table_lr2d_get(e).rows), 7},
};
#undef VX_OF
} // namespace

TEST_F(element_pages, what_is_done_is_in_the_copy_at_once)
{
    for (auto const &c : c_cases) {
        SCOPED_TRACE(std::string(c.key) + UnicodeString(c.name).to_utf8());
        open(c.key);
        ASSERT_TRUE(input::click_tab(pages(), 0)); // the tab of the former element may be there still
        double const before = c.value(layer());
        work(window(), c.name, c.text);
        EXPECT_NEAR(c.value(layer()), c.expected, 1e-9);
        vx_lr2d_edt_form_update(record.get());
        EXPECT_NEAR(c.value(layer()), c.expected, 1e-9) << "what is shown is what is there";
        EXPECT_TRUE(before != c.expected || c.text == std::wstring(L"Custom"));
    }
    // Values that hang together.
    open(c_lr_key_layout_page);
    ASSERT_TRUE(input::click_tab(pages(), 0));
    work(window(), L"Width", L"400");
    EXPECT_EQ(find<TComboBox>(window(), L"Paper")->GetText(), L"Custom");
    EXPECT_EQ(find<TComboBox>(window(), L"Orientation")->GetText(), L"Landscape");
}

TEST_F(element_pages, what_cannot_be_gives_way_when_it_is_left_and_at_an_apply)
{
    open(c_lr_key_layout_neatline);
    work(window(), L"Left", L"99999999999999999999");
    EXPECT_EQ(edit_text(window(), L"Width"), L"190") << "of an element that is moved too far";
    EXPECT_TRUE(input::press(VK_TAB));
    EXPECT_EQ(edit_text(window(), L"Left"), L"100000");
    work(window(), L"Width", L"0");
    EXPECT_EQ(edit_text(window(), L"Width"), L"0");
    EXPECT_TRUE(input::press(VK_TAB));
    EXPECT_EQ(edit_text(window(), L"Width"), L"0.1");
    work(window(), L"Height", L"0");
    ASSERT_TRUE(input::click(record->get_form()->get_apply_btn()));
    EXPECT_EQ(edit_text(window(), L"Height"), L"0.1");
    input::on_next_modal([](input::modal_window const &dialog) {
        work(dialog.form(), L"Fill");
        EXPECT_TRUE(dialog.press_button(L"Apply"));
    });
    ASSERT_TRUE(input::click(find<Tvx_basic_style_btn>(window(), L"Fill and outline")));
    EXPECT_TRUE(find<TCheckBox>(window(), L"Fill the area")->GetChecked());
    EXPECT_TRUE(vx_pgn_style_get_pgn_visible(vx_layout_lr2d_get_pgn_style_ptr(layer())));
}

TEST_F(element_pages, a_frame_shows_all_of_its_scene)
{
    open(c_lr_key_layout_scene_frame);
    EXPECT_FALSE(find<TButton>(window(), L"Show all")->GetEnabled()) << "of no scene";
    work(window(), L"Scene", L"Town");
    work(window(), L"Show all");
    Tvx_box_d2 all;
    ASSERT_TRUE(vx_scn_2d_get_extent(town, &all));
    auto const shown = vx_layout_scene_frame_lr2d_get_world(layer());
    EXPECT_LE(shown.min_x, all.min_x);
    EXPECT_GE(shown.max_y, all.max_y);
    // Without data the scene's view counts; without one the user is told.
    work(window(), L"Scene", L"Profile");
    work(window(), L"Show all");
    EXPECT_EQ(std::exchange(messages, {}).size(), 1u);
    vx_scn_2d_set_view(profile, {5, 6}, 1);
    work(window(), L"Show all");
    EXPECT_EQ(vx_layout_scene_frame_lr2d_get_center(layer()).y, 6);
}

TEST_F(element_pages, a_legend_has_layers_and_lines_of_text)
{
    open(c_lr_key_layout_legend, L"Left");
    auto const items = [&] {
        lines result;
        for (auto const &item : legend(layer()).items)
            result.push_back((item.visible ? L"+" : L"-") + std::wstring(item.is_text ? L"Text: " : L"") +
                             item.text);
        return result;
    };
    EXPECT_EQ(list_lines(window()), (lines{L"+Roads", L"+Counties"})) << "the topmost first";
    auto *const list = find<TCheckListBox>(window(), L"");
    ASSERT_TRUE(input::click_item_check(list, 0) && input::click_item(list, 0));
    EXPECT_EQ(items(), (lines{L"-Roads", L"+Counties"}));
    work(window(), L"Add text");
    ASSERT_TRUE(input::type(L"Areas"));
    EXPECT_EQ(items(), (lines{L"-Roads", L"+Text: Areas", L"+Counties"}));
    work(window(), L"Up");
    EXPECT_EQ(items(), (lines{L"+Text: Areas", L"-Roads", L"+Counties"}));
    ASSERT_TRUE(input::click_item(list, 2));
    EXPECT_FALSE(find<TButton>(window(), L"Delete")->GetEnabled()) << "layers are switched off";

    // A layer comes, another goes.
    add_map_layer(L"Parks", L"nc.shp", "shp_pgn_lr2d");
    vx_lr2d_destroy(vx_scn_2d_extract(town, 0));
    vx_lr2d_edt_form_update(record.get());
    EXPECT_EQ(list_lines(window()), (lines{L"+Text: Areas", L"-Roads", L"+Counties", L"-Parks"}));
    ASSERT_TRUE(input::click_item(list, 2));
    work(window(), L"Delete");
    EXPECT_EQ(items(), (lines{L"+Text: Areas", L"-Roads", L"-Parks"}));
    work(window(), L"As in the map");
    EXPECT_EQ(items(), lines{});
    EXPECT_EQ(list_lines(window()), (lines{L"+Parks", L"+Roads"}));
    work(window(), L"Frame", L"Right");
    EXPECT_EQ(list_lines(window()), lines{}) << "of another scene";
}

TEST_F(element_pages, texts_of_lines_and_columns_of_tables)
{
    open(c_lr_key_layout_text);
    auto *const memo = find<TMemo>(window(), L"");
    ASSERT_TRUE(input::click(memo) && input::type(L"Two\nlines"));
    ASSERT_TRUE(input::click(find<TButton>(window(), L"Font")));
    std::wstring text;
    vx_layout_text_lr2d_get_wtext(layer(), Tvx_std_wstring_adapter(text));
    EXPECT_EQ(text, L"Two\nlines");
    EXPECT_EQ(std::wstring(writing(layer()).font.wname()), next_font);
    vx_lr2d_edt_form_update(record.get());
    EXPECT_EQ(memo->GetText(), L"Two\nlines");

    open(c_lr_key_layout_table);
    next_file = L"" VX_EXAMPLE_DATA "/nc_legend.dbf";
    work(window(), L"Data set");
    auto const fields = list_lines(window());
    ASSERT_GT(fields.size(), 2u);
    auto *const list = find<TCheckListBox>(window(), L"");
    ASSERT_TRUE(input::click_item_check(list, 2) && input::click_item(list, 2));
    work(window(), L"Up");
    work(window(), L"Up");
    ASSERT_TRUE(input::click_item_check(list, 1));
    lines const chosen = {fields[2].substr(1), fields[0].substr(1)};
    EXPECT_EQ(vx_layout_table_lr2d_get(layer()).fields, chosen);
    next_file = L"" VX_EXAMPLE_DATA "/nc_legend.nothing";
    work(window(), L"Data set");
    EXPECT_EQ(std::exchange(messages, {}).size(), 1u) << "which cannot be opened";
    EXPECT_EQ(list_lines(window()), (lines{L"+" + chosen[0], L"+" + chosen[1]}));
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
