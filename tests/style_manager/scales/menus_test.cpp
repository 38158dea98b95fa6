#include "style_manager/scales/style_menu.h"
#include "style_manager/shell/typed_stl_mngr_edits.h"
#include "support/temp_dir.h"
#include "tests/controls/prop/prop_form.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/storage/vx_ini_data.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/core/key_codes.h"

#include <algorithm>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

namespace input = vx::user_input;
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;
using colors_t = std::vector<Tvx_color>;
using rows_t = std::vector<unsigned>;

namespace {
constexpr unsigned c_rows = 5;
constexpr Tvx_style_mode c_modes[] = {c_style_mode_value, c_style_mode_range, c_style_mode_rule};
rows_t const c_all{0, 1, 2, 3, 4};

/// The editor of a manager whose three scales have five rows each: the outer rows of the range scale count.
class scale_menus : public prop_form
{
public:
    bool edit_style(TObject *, int x, int y, void *stl_prm, bool sel)
    {
        ++style_dialogs;
        dialog_at = {x, y};
        dialog_color = vx_stl_prm_get_color(stl_prm, sel);
        vx_stl_prm_clr_set_all(stl_prm, vx_clr_init_rgb(1, 2, 3), sel);
        if (in_dialog)
            in_dialog();
        return accepts;
    }
    bool lib_symbol(TObject *, int lib, int code, void *stl_prm, bool sel, std::wstring &text)
    {
        symbols.push_back({lib, code});
        vx_stl_prm_set_color(stl_prm, sel, vx_clr_init_rgb(7, 7, 7));
        text = L"symbol " + std::to_wstring(code);
        return code != 404;
    }

protected:
    void SetUp() override
    {
        prop_form::SetUp();
        vx_ini_data_set_storage_directory(dir.path().wstring().c_str());
        edit = add<Tvx_pgn_stl_mngr_edit>(400);
        edit->create();
        edit->load_res();
        edit->on_changed = recorder();
        edit->set_on_edit_style(make_closure<&scale_menus::edit_style>(this));
        edit->set_pgn_stl_mngr(mngr.get());
        vx_clr_palettes_clear(vx_get_user_palettes());
    }
    void TearDown() override
    {
        vx_clr_palettes_clear(vx_get_user_palettes());
        vx_ini_data_set_storage_directory(nullptr);
        prop_form::TearDown();
    }

    void show(Tvx_style_mode mode)
    {
        vx_stl_mngr_set_mode(mngr.get(), mode);
        edit->update_controls();
        input::wait_idle();
    }
    Tvx_scale_grid *grid() const
    {
        switch (vx_stl_mngr_get_mode(mngr.get())) {
        case c_style_mode_value:
            return edit->get_val_edit()->get_grid();
        case c_style_mode_range:
            return edit->get_rng_edit()->get_grid();
        default:
            return edit->get_rule_edit()->get_grid();
        }
    }
    void *scale() const { return grid()->get_scale(); }
    bool is_range() const { return vx_stl_mngr_get_mode(mngr.get()) == c_style_mode_range; }
    /// Fresh rows with this text in texts and captions, or with bounds that begin with the number.
    void fill(std::vector<std::wstring> const &texts)
    {
        auto const count = static_cast<unsigned>(texts.size());
        if (is_range()) {
            vx_rng_scale_set_size(scale(), 0);
            vx_rng_scale_set_size(scale(), count);
            vx_rng_scale_set_min_marked(scale(), false);
            vx_rng_scale_set_max_marked(scale(), false);
        } else {
            vx_val_scale_set_size(scale(), 0);
            vx_val_scale_set_size(scale(), count);
        }
        for (unsigned i = 0; i < count; ++i)
            if (is_range()) {
                vx_rng_scale_set_caption_w(scale(), i, texts[i].c_str());
            } else {
                vx_val_scale_set_text_w(scale(), i, texts[i].c_str());
                vx_val_scale_set_caption_w(scale(), i, texts[i].c_str());
            }
        edit->update_controls();
    }
    void fill_rows()
    {
        fill(is_range() ? std::vector<std::wstring>{L"b", L"c", L"d"}
                        : std::vector<std::wstring>{L"a", L"b", L"c", L"d", L"e"});
        for (unsigned row = 0; row < c_rows; ++row) {
            vx_scale_prm_set_visible(prm(row), row % 2 == 0);
            for (bool const sel : {false, true})
                vx_stl_prm_clr_set_all(stl_prm(row), start_color(row, sel), sel);
        }
    }
    static Tvx_color start_color(unsigned row, bool sel)
    {
        return vx_clr_init_grey(static_cast<int>(10 + 20 * row + (sel ? 100 : 0)));
    }
    void *prm(unsigned row) const { return grid()->get_row_scale_prm_ptr(row); }
    void *stl_prm(unsigned row) const { return vx_scale_prm_get_stl_prm_ptr(prm(row)); }
    colors_t colors(bool sel, rows_t const &of = c_all) const
    {
        colors_t result;
        for (unsigned const row : of)
            result.push_back(vx_stl_prm_get_color(stl_prm(row), sel));
        return result;
    }
    /// What the rows began with, but for these.
    static colors_t started(bool sel, rows_t const &but = {}, colors_t const &with = {})
    {
        colors_t result;
        for (unsigned row = 0; row < c_rows; ++row)
            result.push_back(start_color(row, sel));
        for (std::size_t i = 0; i < but.size(); ++i)
            result[but[i]] = with[i];
        return result;
    }
    template <class Get>
    std::string flags(Get get) const
    {
        std::string result;
        for (unsigned row = 0; row < grid()->get_n_row(); ++row)
            result += get(row) ? 'x' : '.';
        return result;
    }
    std::string marks() const
    {
        return flags([this](unsigned row) { return grid()->get_row_marked(row); });
    }
    std::string visibles() const
    {
        return flags([this](unsigned row) { return vx_scale_prm_get_visible(prm(row)); });
    }
    void mark(rows_t const &rows)
    {
        for (unsigned row = 0; row < grid()->get_n_row(); ++row)
            grid()->set_row_marked(row, std::ranges::find(rows, row) != rows.end());
    }
    std::wstring captions() const
    {
        std::wstring result, text;
        Tvx_std_wstring_adapter adapter(text);
        for (unsigned i = 0; i < (is_range() ? vx_rng_scale_get_size : vx_val_scale_get_size)(scale()); ++i) {
            text.clear();
            (is_range() ? vx_rng_scale_get_caption_w : vx_val_scale_get_caption_w)(scale(), i, adapter);
            result += text + L"|";
        }
        return result;
    }

    int visible_col() const { return grid()->GetColCount() - 3; }
    int style_col(bool sel) const { return grid()->GetColCount() - (sel ? 1 : 2); }
    int caption_col() const { return grid()->GetColCount() - 4; }
    /// Clicks a header and picks a line of the menu that opens there.
    bool choose(int col, UnicodeString const &path)
    {
        input::choose_in_next_menu(path);
        return input::click_cell(grid(), col, 0) && input::menu_choice_done();
    }
    bool choose_style(bool sel, UnicodeString const &path) { return choose(style_col(sel), path); }

    vx_test::temp_dir dir; ///< the user's storage
    owned_mngr mngr{vx_stl_mngr_create("pgn_style")};
    Tvx_pgn_stl_mngr_edit *edit = nullptr;
    int style_dialogs = 0;
    TPoint dialog_at;
    Tvx_color dialog_color;
    std::function<void()> in_dialog;
    std::vector<std::pair<int, int>> symbols;
};

void *add_palette(wchar_t const *name, colors_t const &colors)
{
    void *const palette = vx_clr_palettes_add(vx_get_user_palettes());
    vx_clr_palette_set_wcaption(palette, name);
    vx_clr_palette_set_size(palette, static_cast<unsigned>(colors.size()));
    for (unsigned i = 0; i < colors.size(); ++i)
        vx_clr_palette_set_color(palette, i, colors[i]);
    return palette;
}

colors_t palette_colors(int idx, void const *palette, std::size_t count)
{
    colors_t result(count);
    if (palette)
        vx_clr_arrays_generate_palette_ex(palette, static_cast<unsigned>(count), result.data(), false);
    else
        vx_clr_arrays_generate(idx, static_cast<unsigned>(count), result.data());
    return result;
}

colors_t sorted(colors_t colors)
{
    std::ranges::sort(colors, {},
                      [](Tvx_color const &c) { return c.r | c.g << 8 | c.b << 16 | int(c.a) << 24; });
    return colors;
}
} // namespace

TEST_F(scale_menus, style_commands_work_on_the_marked_rows_or_on_all)
{
    void *const own = add_palette(L"A & B", {vx_clr_init_rgb(9, 0, 0), vx_clr_init_rgb(0, 9, 0)});
    struct
    {
        wchar_t const *path;
        std::function<colors_t(colors_t const &was)> expected;
        bool random;
    } const commands[] = {
        {L"Reverse the styles", [](colors_t const &was) { return colors_t(was.rbegin(), was.rend()); },
         false},
        {L"Palette in its order|Blue",
         [](colors_t const &was) { return palette_colors(c_palette_blue, nullptr, was.size()); }, false},
        {L"Palette in random order|Different colours",
         [](colors_t const &was) { return palette_colors(c_palette_different, nullptr, was.size()); }, true},
        {L"Palette in its order|A & B",
         [=](colors_t const &was) { return palette_colors(0, own, was.size()); }, false},
        {L"Palette in random order|A & B",
         [=](colors_t const &was) { return palette_colors(0, own, was.size()); }, true},
        {L"Edit the style...",
         [](colors_t const &was) { return colors_t(was.size(), vx_clr_init_rgb(1, 2, 3)); }, false},
    };
    for (auto const mode : c_modes) {
        show(mode);
        for (bool const sel : {false, true})
            for (rows_t const &marked : {rows_t{}, rows_t{4}, rows_t{1, 3, 4}})
                for (auto const &command : commands) {
                    SCOPED_TRACE(testing::Message()
                                 << "mode " << mode << " sel " << sel << " marks " << marked.size() << " "
                                 << UnicodeString(command.path).to_utf8());
                    fill_rows();
                    mark(marked);
                    edit->set_pgn_stl_mngr(nullptr); // the check follows the marks anew
                    edit->update_controls();
                    edit->set_pgn_stl_mngr(mngr.get());
                    show(mode);
                    bool const rules = mode == c_style_mode_rule;
                    if (rules && !marked.empty()) {
                        // Of rules all are meant until the user says otherwise.
                        ASSERT_TRUE(choose_style(sel, L"Only marked rows"));
                        EXPECT_EQ(taken_events(), 0);
                    }
                    rows_t const &meant = marked.empty() ? c_all : marked;
                    colors_t const was = colors(sel, meant);
                    ASSERT_TRUE(choose_style(sel, command.path));
                    EXPECT_EQ(taken_events(), 1);
                    if (command.random) {
                        EXPECT_EQ(sorted(colors(sel, meant)), sorted(command.expected(was)));
                        EXPECT_EQ(colors(sel), started(sel, meant, colors(sel, meant)));
                    } else {
                        EXPECT_EQ(colors(sel), started(sel, meant, command.expected(was)));
                    }
                    EXPECT_EQ(colors(!sel), started(!sel));
                    if (std::exchange(style_dialogs, 0) > 0) {
                        EXPECT_EQ(dialog_color, was.front()) << "the first row is the template";
                    }
                }
    }
}

TEST_F(scale_menus, nothing_changes_when_the_user_gives_a_style_up)
{
    accepts = false;
    for (auto const mode : c_modes) {
        show(mode);
        fill_rows();
        ASSERT_TRUE(choose_style(false, L"Edit the style..."));
        EXPECT_EQ(std::exchange(style_dialogs, 0), 1);
        EXPECT_EQ(colors(false), started(false));
        TRect const header = grid()->CellRect(style_col(false), 0);
        TPoint const at = grid()->ClientToScreen({header.Left, header.Bottom});
        EXPECT_EQ(dialog_at.X, at.X);
        EXPECT_EQ(dialog_at.Y, at.Y);
    }
    // Nothing to work on: the commands are not offered.
    show(c_style_mode_value);
    fill({});
    for (auto const *path : {L"Edit the style...", L"Palette in its order|Blue", L"Colour gradient to a row"})
        EXPECT_FALSE(choose_style(false, path)) << UnicodeString(path).to_utf8();
    ASSERT_TRUE(choose_style(false, L"Reverse the styles"));
    EXPECT_EQ(taken_events(), 1);
}

TEST_F(scale_menus, the_check_follows_the_marks_until_the_user_sets_it)
{
    show(c_style_mode_value);
    fill_rows();
    mark({2});
    ASSERT_TRUE(choose_style(false, L"Palette in its order|Red"));
    EXPECT_NE(colors(false)[2], start_color(2, false));
    EXPECT_EQ(colors(false)[1], start_color(1, false));
    mark({});
    ASSERT_TRUE(choose_style(false, L"Palette in its order|Red"));
    EXPECT_NE(colors(false)[1], start_color(1, false)) << "all again";
    ASSERT_TRUE(choose_style(false, L"Only marked rows"));
    ASSERT_TRUE(choose_style(false, L"Only marked rows")); // off, by the user
    fill_rows();
    mark({2});
    taken_events();
    ASSERT_TRUE(choose_style(false, L"Palette in its order|Red"));
    EXPECT_NE(colors(false)[1], start_color(1, false)) << "the user's word counts";
    // Another manager begins anew.
    owned_mngr other(vx_stl_mngr_clone(mngr.get()));
    std::swap(mngr, other);
    edit->set_pgn_stl_mngr(mngr.get());
    show(c_style_mode_value);
    fill_rows();
    mark({2});
    ASSERT_TRUE(choose_style(false, L"Palette in its order|Red"));
    EXPECT_EQ(colors(false)[1], start_color(1, false));
    EXPECT_EQ(taken_events(), 2);
    edit->set_pgn_stl_mngr(nullptr);
    edit->update_controls();
}

TEST_F(scale_menus, marks_are_set_without_a_report)
{
    for (auto const mode : c_modes) {
        show(mode);
        fill_rows();
        mark({1, 4});
        auto *const del = grid()->get_del_action();
        for (auto const &[path, expected] : std::initializer_list<std::pair<wchar_t const *, char const *>>{
                 {L"Invert the marks", "x.xx."}, {L"Unmark all", "....."}, {L"Mark all", "xxxxx"}}) {
            ASSERT_TRUE(choose(0, path));
            EXPECT_EQ(marks(), expected);
            EXPECT_EQ(del->GetEnabled(), marks() != ".....");
        }
        EXPECT_EQ(taken_events(), 0);
        EXPECT_EQ(colors(false), started(false));
    }
}

TEST_F(scale_menus, rows_are_shown_and_hidden)
{
    struct
    {
        rows_t marked;
        wchar_t const *path;
        char const *expected; ///< begins with "x.x.x"
    } const cases[] = {
        {{}, L"Show", "xxxxx"},
        {{}, L"Hide", "....."},
        {{}, L"Invert the visibility", ".x.x."},
        {{0, 1, 4}, L"Show", "xxx.x"},
        {{0, 1, 4}, L"Hide", "..x.."},
        {{0, 1, 4}, L"Invert the visibility", ".xx.."},
    };
    for (auto const mode : c_modes)
        for (auto const &c : cases) {
            show(mode);
            fill_rows();
            mark(c.marked);
            if (mode == c_style_mode_rule && &c == &cases[3]) {
                ASSERT_TRUE(choose(visible_col(), L"Only marked rows")); // for good
            }
            ASSERT_TRUE(choose(visible_col(), c.path));
            EXPECT_EQ(visibles(), c.expected) << "mode " << mode;
            EXPECT_EQ(taken_events(), 1);
        }
}

TEST_F(scale_menus, entries_are_sorted_by_what_the_header_shows)
{
    for (auto const mode : {c_style_mode_value, c_style_mode_rule}) {
        show(mode);
        for (auto const &[texts, path, expected] :
             std::initializer_list<std::tuple<std::vector<std::wstring>, wchar_t const *, wchar_t const *>>{
                 {{L"10", L"x", L"9"}, L"Sort as numbers|Ascending", L"9|10|x|"},
                 {{L"10", L"x", L"9"}, L"Sort as numbers|Descending", L"x|10|9|"},
                 {{L"2", L"1,5", L"1.5"}, L"Sort as numbers|Ascending", L"1,5|1.5|2|"},
                 {{L"b", L"A", L"a", L"C"}, L"Sort as text|Ascending", L"A|a|b|C|"},
                 {{L"b", L"A", L"a", L"C"}, L"Sort as text|Descending", L"C|b|a|A|"},
             }) {
            fill(texts);
            mark({0});
            ASSERT_TRUE(choose(caption_col(), path));
            EXPECT_EQ(captions(), expected);
            EXPECT_EQ(taken_events(), 1);
            auto const at = captions().substr(0, captions().find(texts[0] + L"|"));
            auto const place = static_cast<std::size_t>(std::ranges::count(at, L'|'));
            EXPECT_EQ(marks().find('x'), place) << "a mark goes with its entry";
        }
    }
    // By the texts, whatever the captions say.
    show(c_style_mode_value);
    fill({L"2", L"1"});
    vx_val_scale_set_caption_w(scale(), 0, L"a");
    vx_val_scale_set_caption_w(scale(), 1, L"b");
    ASSERT_TRUE(choose(1, L"Sort as text|Ascending"));
    EXPECT_EQ(captions(), L"b|a|");
    EXPECT_EQ(taken_events(), 1);
}

TEST_F(scale_menus, ranges_are_sorted_between_the_outer_rows)
{
    show(c_style_mode_range);
    auto const fill_bounds = [this] {
        fill({L"2", L"10", L"1"});
        double const bounds[][2] = {{5, 6}, {0, 9}, {7, 8}};
        for (unsigned i = 0; i < 3; ++i) {
            vx_rng_scale_set_min(scale(), i, bounds[i][0]);
            vx_rng_scale_set_max(scale(), i, bounds[i][1]);
        }
        vx_rng_scale_set_min_caption_w(scale(), L"low");
        for (unsigned row = 0; row < c_rows; ++row)
            vx_stl_prm_clr_set_all(stl_prm(row), start_color(row, false), false);
    };
    for (auto const &[col, path, expected] :
         std::initializer_list<std::tuple<int, wchar_t const *, wchar_t const *>>{
             {1, L"Sort as numbers|Ascending", L"10|2|1|"},
             {1, L"Sort as numbers|Descending", L"1|2|10|"},
             {2, L"Sort as numbers|Ascending", L"2|1|10|"},
             {3, L"Sort as numbers|Ascending", L"1|2|10|"},
             {3, L"Sort as text|Ascending", L"1|10|2|"},
             {3, L"Sort as text|Descending", L"2|10|1|"},
         }) {
        fill_bounds();
        ASSERT_TRUE(choose(col, path));
        EXPECT_EQ(captions(), expected);
        EXPECT_EQ(taken_events(), 1);
        EXPECT_EQ(colors(false).front(), start_color(0, false));
        EXPECT_EQ(colors(false).back(), start_color(4, false));
        EXPECT_EQ(sorted(colors(false)), sorted(started(false)));
    }
    for (int const col : {1, 2})
        EXPECT_FALSE(choose(col, L"Sort as text|Ascending")) << "bounds are numbers";
    EXPECT_EQ(taken_events(), 0);
}

TEST_F(scale_menus, a_text_that_is_being_typed_goes_into_its_own_entry)
{
    show(c_style_mode_value);
    fill({L"b", L"a"});
    ASSERT_TRUE(input::click_cell(grid(), caption_col(), 1));
    ASSERT_TRUE(input::press(VK_F2));
    ASSERT_TRUE(input::press('A', {ssCtrl}));
    ASSERT_TRUE(input::type(L"B!"));
    ASSERT_TRUE(choose(1, L"Sort as text|Ascending"));
    EXPECT_EQ(captions(), L"a|B!|");
    EXPECT_EQ(taken_events(), 2);
}

TEST_F(scale_menus, keys_open_the_menu_of_the_column_and_that_of_the_marks)
{
    for (auto const mode : c_modes) {
        show(mode);
        fill_rows();
        ASSERT_TRUE(input::click_cell(grid(), caption_col(), 2));
        input::choose_in_next_menu(L"Sort as text|Descending");
        ASSERT_TRUE(input::press(VK_APPS));
        EXPECT_TRUE(input::menu_choice_done());
        EXPECT_EQ(captions(), is_range() ? L"d|c|b|" : L"e|d|c|b|a|");
        input::choose_in_next_menu(L"Mark all");
        ASSERT_TRUE(input::press(VK_F10, {ssShift, ssCtrl}));
        EXPECT_TRUE(input::menu_choice_done());
        EXPECT_EQ(marks(), "xxxxx");
        EXPECT_EQ(taken_events(), 1);
    }
}

TEST_F(scale_menus, rules_are_made_of_the_other_scales)
{
    show(c_style_mode_range);
    fill_rows();
    show(c_style_mode_value);
    fill({L"forest", L"meadow"});
    show(c_style_mode_rule);
    fill({L""});
    auto const *const values = L"Make rules of the unique values", *const ranges =
                                                                       L"Make rules of the ranges";
    EXPECT_FALSE(choose(1, values)) << "of which field?";
    EXPECT_FALSE(choose(1, ranges));
    vx_stl_mngr_set_val_prop_name_w(mngr.get(), L"LAND");
    vx_stl_mngr_set_rng_prop_name_w(mngr.get(), L"AREA");
    ASSERT_TRUE(choose(1, values));
    EXPECT_EQ(captions(), L"forest|meadow|");
    EXPECT_EQ(grid()->GetRowCount(), 3);
    EXPECT_EQ(taken_events(), 1);
    ASSERT_TRUE(choose(1, ranges));
    EXPECT_EQ(vx_val_scale_get_size(scale()), c_rows);
    EXPECT_EQ(colors(false), started(false));
    EXPECT_EQ(taken_events(), 1);
    EXPECT_FALSE(choose(caption_col(), ranges)) << "captions are sorted";
    // The grid shows its rows by itself, whoever listens.
    edit->get_rule_edit()->on_changed = {};
    ASSERT_TRUE(choose(1, values));
    EXPECT_EQ(grid()->GetRowCount(), 3);
}

TEST_F(scale_menus, gradients_are_picked_after_their_menu)
{
    for (auto const mode : c_modes)
        for (bool const sel : {false, true}) {
            show(mode);
            fill_rows();
            for (unsigned row = 1; row < 4; ++row)
                vx_stl_prm_clr_set_all(stl_prm(row), vx_clr_init_grey(0), sel);
            ASSERT_TRUE(input::click_cell(grid(), 1, 1));
            ASSERT_TRUE(choose_style(sel, L"Size gradient to a row"));
            ASSERT_TRUE(grid()->get_grad_mode());
            // Another choice takes the place of the first, and is not ended by the click that made it.
            ASSERT_TRUE(choose_style(sel, L"Colour gradient to a row"));
            ASSERT_TRUE(grid()->get_grad_mode());
            ASSERT_TRUE(input::click_cell(grid(), style_col(sel), 5));
            EXPECT_FALSE(grid()->get_grad_mode());
            auto const now = colors(sel);
            for (unsigned row = 0; row < 4; ++row)
                EXPECT_LT(now[row].g, now[row + 1].g);
            EXPECT_EQ(colors(!sel), started(!sel));

            vx_stl_prm_set_size(stl_prm(0), sel, 1);
            vx_stl_prm_set_size(stl_prm(2), sel, 3);
            vx_stl_prm_set_color(stl_prm(0), sel, vx_clr_init_rgba(5, 5, 5, 0));
            vx_stl_prm_set_color(stl_prm(2), sel, vx_clr_init_rgba(5, 5, 5, 200));
            for (auto const *path : {L"Size gradient to a row", L"Transparency gradient to a row"}) {
                ASSERT_TRUE(input::click_cell(grid(), 1, 1));
                ASSERT_TRUE(choose_style(sel, path));
                ASSERT_TRUE(input::click_cell(grid(), style_col(sel), 3));
            }
            EXPECT_NEAR(vx_stl_prm_get_size(stl_prm(1), sel), 2, 1e-6);
            EXPECT_NEAR(vx_stl_prm_get_color(stl_prm(1), sel).a, 100, 1);
            // A header ends a pick.
            ASSERT_TRUE(choose_style(sel, L"Colour gradient to a row"));
            input::choose_in_next_menu({});
            ASSERT_TRUE(input::click_cell(grid(), 0, 0));
            EXPECT_FALSE(grid()->get_grad_mode());
            EXPECT_EQ(taken_events(), 0);
            EXPECT_EQ(style_dialogs, 0);
        }
}

TEST_F(scale_menus, symbols_of_a_library_go_by_the_number_in_the_text)
{
    vx_global_lib_styles_set_loader(nullptr);
    show(c_style_mode_value);
    fill({L"3", L"road", L"4,9", L"404", L"1e99"});
    EXPECT_FALSE(choose_style(false, L"Symbols of a library|Roads")) << "there are no libraries";
    vx_global_lib_styles_set_loader([](void *libs) {
        for (auto const *name : {L"Ground", L"Roads & ways"})
            vx_style_libs_add_lib(libs, name);
        return true;
    });
    edit->set_on_lib_symbol_style(make_closure<&scale_menus::lib_symbol>(this));
    ASSERT_TRUE(choose_style(true, L"Symbols of a library|Roads & ways"));
    EXPECT_EQ(symbols, (std::vector<std::pair<int, int>>{{1, 3}, {1, 4}, {1, 404}}));
    EXPECT_EQ(captions(), L"symbol 3|road|symbol 4|404|1e99|");
    EXPECT_EQ(vx_stl_prm_get_color(stl_prm(0), true), vx_clr_init_rgb(7, 7, 7));
    EXPECT_EQ(taken_events(), 1);
    symbols.clear();
    mark({2});
    ASSERT_TRUE(choose_style(false, L"Symbols of a library|Ground"));
    EXPECT_EQ(symbols, (std::vector<std::pair<int, int>>{{0, 4}}));
    EXPECT_EQ(taken_events(), 1);
    for (auto const mode : {c_style_mode_range, c_style_mode_rule}) {
        show(mode);
        fill_rows();
        EXPECT_FALSE(choose_style(false, L"Symbols of a library|Ground"));
    }
    vx_global_lib_styles_set_loader(nullptr);
}

TEST_F(scale_menus, palettes_of_strangers_stay_single_lines)
{
    add_palette(L"-", {vx_clr_init_rgb(1, 1, 1)});
    add_palette(L"a\tb\nc", {vx_clr_init_rgb(2, 2, 2)});
    add_palette(std::wstring(5000, L'w').c_str(), {vx_clr_init_rgb(3, 3, 3)});
    add_palette(L"empty", {});
    show(c_style_mode_value);
    fill_rows();
    int value = 0;
    for (auto const &name :
         {std::wstring(L"- "), std::wstring(L"a b c"), std::wstring(60, L'w') + L"\u2026"}) {
        ASSERT_TRUE(choose_style(false, UnicodeString(L"Palette in its order|" + name)));
        ++value;
        EXPECT_EQ(colors(false), colors_t(c_rows, vx_clr_init_rgb(value, value, value)));
    }
    EXPECT_FALSE(choose_style(false, L"Palette in its order|empty"));
    // The list is taken up anew each time.
    vx_clr_palettes_clear(vx_get_user_palettes());
    EXPECT_FALSE(choose_style(false, L"Palette in its order|a b c"));
    EXPECT_EQ(taken_events(), 3);
}

TEST_F(scale_menus, user_palettes_are_kept_for_all_processes)
{
    show(c_style_mode_value);
    fill_rows();
    vx_dlg_set_table(nullptr); // the built-in dialogs
    input::on_next_modal([](input::modal_window const &w) {
        EXPECT_EQ(w.title(), L"User palettes");
        EXPECT_TRUE(w.press_button(L"Add"));
        EXPECT_TRUE(input::type(L"Soil"));
        EXPECT_TRUE(w.press_button(L"OK"));
    });
    ASSERT_TRUE(choose_style(false, L"User palettes..."));
    vx_dlg_set_table(&table);
    EXPECT_EQ(taken_events(), 0) << "the scale is as it was";
    ASSERT_TRUE(choose_style(false, L"Palette in its order|Soil"));
    EXPECT_EQ(taken_events(), 1);

    // Another process finds it, and adds one of its own.
    pid_t const other = fork();
    if (other == 0) {
        vx::owned<void, &vx_clr_palettes_destroy> const list(vx_clr_palettes_create());
        vx::owned<Ivx_xml_data, &vx_xml_save_2d_destroy> const xml(vx_xml_save_2d_create());
        auto const file = (dir.path() / "user_palettes.clrs").wstring();
        bool const found = vx_xml_data_load_clr_palettes(xml.get(), file.c_str(), list.get()) &&
                           vx_clr_palettes_get_size(list.get()) == 1;
        void *const own = vx_clr_palettes_add(list.get());
        vx_clr_palette_set_wcaption(own, L"Coast");
        vx_clr_palette_set_size(own, 1);
        vx_clr_palette_set_color(own, 0, vx_clr_init_rgb(4, 5, 6));
        _exit(found && vx_xml_data_save_clr_palettes(xml.get(), file.c_str(), list.get()) ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(other, &status, 0), other);
    ASSERT_EQ(status, 0);
    ASSERT_TRUE(choose_style(false, L"Palette in its order|Coast")) << "the list was read before";
    EXPECT_EQ(colors(false), colors_t(c_rows, vx_clr_init_rgb(4, 5, 6)));
    // One that cannot be read takes nothing away.
    vx_test::write_file(dir / "user_palettes.clrs", "<vx_palettes");
    ASSERT_TRUE(choose_style(false, L"Palette in its order|Soil"));
}

TEST_F(scale_menus, outlive_a_manager_that_goes_in_the_middle)
{
    show(c_style_mode_value);
    fill_rows();
    auto const go = [this] {
        edit->set_pgn_stl_mngr(nullptr);
        edit->update_controls();
        mngr.reset(vx_stl_mngr_create("pgn_style"));
    };
    in_dialog = go;
    ASSERT_TRUE(choose_style(false, L"Edit the style..."));
    EXPECT_EQ(taken_events(), 0);
    // Without a manager nothing opens.
    auto *const values = edit->get_val_edit()->get_grid();
    values->call_style_menu(10, 10, false);
    values->call_name_menu(10, 10, false);
    values->call_select_menu(10, 10);
    values->call_visible_menu(10, 10);
    // The window goes with the dialog.
    edit->set_pgn_stl_mngr(mngr.get());
    show(c_style_mode_value);
    fill_rows();
    in_dialog = [this] { delete std::exchange(edit, nullptr); };
    input::choose_in_next_menu(L"Edit the style...");
    ASSERT_TRUE(input::click_cell(values, style_col(false), 0));
    EXPECT_EQ(edit, nullptr);
    EXPECT_EQ(taken_events(), 0);
}
