#include "styles/simple/pgn_stl_edit.h"
#include "styles/simple/pln_stl_edit.h"
#include "styles/simple/pnt_stl_edit.h"
#include "styles/vxk_lib_styles_vcl.h"
#include "support/paint_counter.h"
#include "support/temp_dir.h"
#include "tests/controls/prop/prop_form.h"

#include "platform/base/owned.h"
#include "platform/storage/vx_xml_data.h"
#include "platform/styles/vxk_styles.h"
#include "platform/winapi/file.h"

#include <cerrno>

namespace input = vx::user_input;

namespace {
class composed_edits : public prop_form
{
protected:
    template <class Edit>
    Edit *add_edit()
    {
        auto *edit = add<Edit>(300);
        edit->load_res();
        edit->update_controls();
        edit->on_changed = recorder();
        input::wait_idle();
        return edit;
    }
};

/// A box is as sensitive as its mark and its text are wide.
bool tick(Tvx_check_box *box)
{
    return input::click(box, 10, box->GetHeight() / 2);
}

std::vector<std::string> visible_tabs(Tvx_page_control *pages)
{
    std::vector<std::string> names;
    for (int i = 0; i < pages->GetPageCount(); ++i)
        if (pages->GetPages(i)->GetTabVisible())
            names.push_back(pages->GetPages(i)->GetName().to_utf8());
    return names;
}

using names = std::vector<std::string>;
} // namespace

TEST_F(composed_edits, tabs_of_a_line_follow_their_boxes)
{
    auto *edit = add_edit<Tvx_pln_stl_edit>();
    void *const style = edit->get_pln_style();
    EXPECT_EQ(visible_tabs(edit->get_pages()), names{"bpln_ts"});
    struct
    {
        Tvx_check_box *box;
        bool (*get)(void const *);
    } const parts[] = {
        {edit->get_bpln_cb(), &vx_pln_style_get_pln_visible},
        {edit->get_bpnt_cb(), &vx_pln_style_get_pnt_visible},
        {edit->get_bend_cb(), &vx_pln_style_get_end_visible},
        {edit->get_bbeg_cb(), &vx_pln_style_get_beg_visible},
    };
    for (auto const &part : parts) {
        bool const before = part.get(style);
        ASSERT_TRUE(tick(part.box));
        EXPECT_EQ(part.get(style), !before);
        EXPECT_EQ(taken_events(), 1);
    }
    EXPECT_EQ(visible_tabs(edit->get_pages()), (names{"bpnt_ts", "bend_ts", "bbeg_ts"}));
    ASSERT_TRUE(tick(edit->get_bpln_cb()));
    EXPECT_EQ(visible_tabs(edit->get_pages()), (names{"bpln_ts", "bpnt_ts", "bend_ts", "bbeg_ts"}));

    // Each tab edits its own component; hiding the tab keeps the values.
    taken_events();
    ASSERT_TRUE(input::click_tab(edit->get_pages(), L"End"));
    ASSERT_TRUE(input::enter_text(edit->get_bend_edit()->get_size()->get_edit(), L"6"));
    ASSERT_TRUE(input::click_tab(edit->get_pages(), L"Beginning"));
    ASSERT_TRUE(input::enter_text(edit->get_bbeg_edit()->get_size()->get_edit(), L"7"));
    ASSERT_TRUE(input::click_tab(edit->get_pages(), L"Vertices"));
    ASSERT_TRUE(input::enter_text(edit->get_bpnt_edit()->get_size()->get_edit(), L"8"));
    ASSERT_TRUE(input::click_tab(edit->get_pages(), L"Line"));
    ASSERT_TRUE(input::enter_text(edit->get_bpln_edit()->get_width()->get_edit(), L"9"));
    EXPECT_EQ(taken_events(), 4);
    ASSERT_TRUE(tick(edit->get_bend_cb()));
    EXPECT_EQ(vx_bpnt_style_get_size(vx_pln_style_get_bend_style_ptr(style)), 6);
    EXPECT_EQ(vx_bpnt_style_get_size(vx_pln_style_get_bbeg_style_ptr(style)), 7);
    EXPECT_EQ(vx_bpnt_style_get_size(vx_pln_style_get_bpnt_style_ptr(style)), 8);
    EXPECT_EQ(vx_bpln_style_get_width(vx_pln_style_get_bpln_style_ptr(style)), 9);
    EXPECT_EQ(visible_tabs(edit->get_pages()), (names{"bpln_ts", "bpnt_ts", "bbeg_ts"}));
}

TEST_F(composed_edits, tabs_of_a_polygon_follow_the_style)
{
    auto *edit = add_edit<Tvx_pgn_stl_edit>();
    vx::owned<void, &vx_pgn_style_destroy> const style(vx_pgn_style_create());
    for (int flags = 0; flags < 8; ++flags) {
        vx_pgn_style_set_pgn_visible(style.get(), flags & 1);
        vx_pgn_style_set_pln_visible(style.get(), flags & 2);
        vx_pgn_style_set_pnt_visible(style.get(), flags & 4);
        edit->set_pgn_style(style.get());
        edit->update_controls();
        names wanted;
        for (int i = 0; i < 3; ++i)
            if (flags >> i & 1)
                wanted.push_back(names{"bpgn_ts", "bpln_ts", "bpnt_ts"}[std::size_t(i)]);
        EXPECT_EQ(visible_tabs(edit->get_pages()), wanted) << flags;
        EXPECT_EQ(edit->get_bpgn_cb()->GetChecked(), bool(flags & 1));
        EXPECT_EQ(edit->get_bpln_cb()->GetChecked(), bool(flags & 2));
        EXPECT_EQ(edit->get_bpnt_cb()->GetChecked(), bool(flags & 4));
    }
    EXPECT_EQ(taken_events(), 0) << "setters fire nothing";
    for (Tvx_check_box *box : {edit->get_bpgn_cb(), edit->get_bpln_cb(), edit->get_bpnt_cb()}) {
        ASSERT_TRUE(tick(box));
        EXPECT_EQ(taken_events(), 1);
    }
    void *const mine = edit->get_pgn_style();
    EXPECT_FALSE(vx_pgn_style_get_pgn_visible(mine) || vx_pgn_style_get_pln_visible(mine) ||
                 vx_pgn_style_get_pnt_visible(mine));
    EXPECT_EQ(edit->get_pages()->GetActivePage(), nullptr);
    ASSERT_TRUE(tick(edit->get_bpln_cb()));
    ASSERT_TRUE(input::click(edit->get_bpln_edit()->get_color()->get_clr_panel()->get_button()));
    EXPECT_EQ(vx_bpln_style_get_color(vx_pgn_style_get_bpln_style_ptr(mine)), next_color);
    ASSERT_TRUE(tick(edit->get_bpln_cb()) && tick(edit->get_bpgn_cb()));
    ASSERT_TRUE(input::click(edit->get_bpgn_edit()->get_color()->get_clr_panel()->get_button()));
    EXPECT_EQ(vx_bpgn_style_get_color(vx_pgn_style_get_bpgn_style_ptr(mine)), next_color);
}

TEST_F(composed_edits, a_change_of_colour_repaints_one_sample)
{
    auto *edit = add_edit<Tvx_pnt_stl_edit>();
    Tvx_bpnt_edit *const point = edit->get_bpnt_edit();
    TControl *const color = point->get_color()->get_clr_panel()->get_sample();
    TControl *const figure = point->get_figure()->get_image();
    TWinControl *const button = point->get_color()->get_clr_panel()->get_button();
    // The button has the focus already, so that its own picture changes as little as possible.
    ASSERT_TRUE(input::tab_to(button));
    paint_counter const painted;
    next_color = vx_clr_init_rgb(200, 10, 10);
    ASSERT_TRUE(input::press(VK_SPACE));
    input::wait_idle();
    EXPECT_EQ(vx_bpnt_style_get_color(vx_pnt_style_get_bpnt_style_ptr(edit->get_pnt_style())), next_color);
    EXPECT_EQ(painted.of(color), 1);
    EXPECT_EQ(painted.of(figure), 0);
    EXPECT_EQ(painted.of(point->get_size()->get_edit()), 0);
}

// ---- files

namespace {
class style_files : public composed_edits
{
protected:
    void SetUp() override
    {
        composed_edits::SetUp();
        table.yesno = [](void *self, HWND, wchar_t const *text) {
            auto &test = static_cast<style_files &>(of(self));
            test.questions.emplace_back(text);
            return test.answers_yes;
        };
        vx_dlg_set_table(&table);
        edit = add_edit<Tvx_pnt_stl_edit>();
    }
    void TearDown() override
    {
        vx_set_file_calls(nullptr);
        composed_edits::TearDown();
    }
    static UnicodeString wide(std::filesystem::path const &path) { return path.string().c_str(); }
    bool load(std::filesystem::path const &path)
    {
        next_file = wide(path);
        return input::click(edit->get_lib_panel()->get_load_btn());
    }
    bool save(std::filesystem::path const &path)
    {
        next_file = wide(path);
        return input::click(edit->get_lib_panel()->get_save_btn());
    }
    void set_size(double size)
    {
        vx_bpnt_style_set_size(vx_pnt_style_get_bpnt_style_ptr(edit->get_pnt_style()), size);
        edit->update_controls();
    }
    double shown_size() { return edit->get_bpnt_edit()->get_size()->get_size(); }

    vx_test::temp_dir dir;
    Tvx_pnt_stl_edit *edit = nullptr;
    std::vector<std::wstring> questions;
    bool answers_yes = true;
};
} // namespace

TEST_F(style_files, get_their_suffix_whatever_is_typed)
{
    set_size(6.5);
    ASSERT_TRUE(save(dir / "mine.txt"));
    EXPECT_EQ(asked_file.filter, L"Point styles (*.s_p)|*.s_p");
    EXPECT_TRUE(asked_file.overwrite_prompt);
    EXPECT_TRUE(std::filesystem::exists(dir / "mine.s_p"));
    EXPECT_EQ(dir.count(), 1);
    ASSERT_TRUE(save(dir / "bare"));
    EXPECT_TRUE(std::filesystem::exists(dir / "bare.s_p"));

    set_size(1);
    ASSERT_TRUE(load(dir / "mine.s_l"));
    EXPECT_EQ(shown_size(), 6.5);
    EXPECT_EQ(taken_events(), 0) << "a loaded style is shown and not reported";
    accepts = false;
    set_size(1);
    ASSERT_TRUE(load(dir / "mine.s_p") && save(dir / "never"));
    EXPECT_EQ(shown_size(), 1);
    EXPECT_EQ(dir.count(), 2);
    EXPECT_TRUE(questions.empty());
}

/// Each kind of style has files of its own.
TEST_F(style_files, of_lines_and_polygons_have_their_own_suffixes)
{
    edit->SetVisible(false);
    next_top = 10;
    auto *line = add_edit<Tvx_pln_stl_edit>();
    ASSERT_TRUE(input::enter_text(line->get_bpln_edit()->get_width()->get_edit(), L"3.25"));
    ASSERT_TRUE(tick(line->get_bbeg_cb()));
    next_file = wide(dir / "mine.s_p");
    ASSERT_TRUE(input::click(line->get_lib_panel()->get_save_btn()));
    EXPECT_EQ(asked_file.filter, L"Line styles (*.s_l)|*.s_l");
    EXPECT_TRUE(std::filesystem::exists(dir / "mine.s_l"));
    ASSERT_TRUE(input::enter_text(line->get_bpln_edit()->get_width()->get_edit(), L"1"));
    ASSERT_TRUE(tick(line->get_bbeg_cb()));
    taken_events();
    ASSERT_TRUE(input::click(line->get_lib_panel()->get_load_btn()));
    EXPECT_EQ(asked_file.filter, L"Line styles (*.s_l)|*.s_l");
    EXPECT_EQ(line->get_bpln_edit()->get_width()->get_size(), 3.25);
    EXPECT_TRUE(line->get_bbeg_cb()->GetChecked());
    EXPECT_EQ(visible_tabs(line->get_pages()), (names{"bpln_ts", "bbeg_ts"}));
    EXPECT_EQ(taken_events(), 0);
    line->SetVisible(false);
    next_top = 10;

    auto *area = add_edit<Tvx_pgn_stl_edit>();
    ASSERT_TRUE(input::click(area->get_bpgn_edit()->get_color()->get_clr_panel()->get_button()));
    Tvx_color const saved = next_color;
    next_file = wide(dir / "mine.s_l");
    ASSERT_TRUE(input::click(area->get_lib_panel()->get_save_btn()));
    EXPECT_EQ(asked_file.filter, L"Polygon styles (*.s_a)|*.s_a");
    EXPECT_TRUE(std::filesystem::exists(dir / "mine.s_a"));
    EXPECT_EQ(dir.count(), 2);
    next_color = vx_clr_init_rgb(200, 100, 50);
    ASSERT_TRUE(input::click(area->get_bpgn_edit()->get_color()->get_clr_panel()->get_button()));
    taken_events();
    ASSERT_TRUE(input::click(area->get_lib_panel()->get_load_btn()));
    EXPECT_EQ(area->get_bpgn_edit()->get_color()->get_color(), saved);
    EXPECT_EQ(vx_bpgn_style_get_color(vx_pgn_style_get_bpgn_style_ptr(area->get_pgn_style())), saved);
    EXPECT_EQ(taken_events(), 0);
}

TEST_F(style_files, are_not_replaced_unasked)
{
    set_size(6.5);
    ASSERT_TRUE(save(dir / "mine"));
    std::string const before = vx_test::read_file(dir / "mine.s_p");
    set_size(2.5);
    answers_yes = false;
    ASSERT_TRUE(save(dir / "mine.txt"));
    EXPECT_EQ(vx_test::read_file(dir / "mine.s_p"), before) << "the dialog asked about another name";
    ASSERT_EQ(questions.size(), 1u);
    EXPECT_NE(questions[0].find(L"mine.s_p"), std::wstring::npos);
    answers_yes = true;
    ASSERT_TRUE(save(dir / "mine.txt"));
    EXPECT_NE(vx_test::read_file(dir / "mine.s_p"), before);
}

TEST_F(style_files, that_cannot_be_read_leave_the_style)
{
    set_size(3.5);
    vx_test::write_file(dir / "bad.s_p", "<style");
    for (char const *name : {"bad.s_p", "missing"}) {
        ASSERT_TRUE(load(dir / name));
        EXPECT_EQ(shown_size(), 3.5);
        ASSERT_EQ(messages.size(), 1u) << name;
        messages.clear();
    }
    vx::owned<void, &vx_pln_style_destroy> const line(vx_pln_style_create());
    ASSERT_TRUE(vx_xml_save_style_save_style_pln_file(wide(dir / "line.s_p").c_str(), line.get()));
    ASSERT_TRUE(load(dir / "line"));
    EXPECT_EQ(messages.size(), 1u) << "a style of another kind";
    messages.clear();
    EXPECT_EQ(shown_size(), 3.5);
}

TEST_F(style_files, stay_whole_on_a_full_disk)
{
    set_size(6.5);
    ASSERT_TRUE(save(dir / "mine"));
    std::string const before = vx_test::read_file(dir / "mine.s_p");
    auto calls = vx_set_file_calls(nullptr);
    calls.write = [](int, void const *, std::size_t) {
        errno = ENOSPC;
        return -1L;
    };
    vx_set_file_calls(&calls);
    set_size(2.5);
    ASSERT_TRUE(save(dir / "mine"));
    EXPECT_EQ(vx_test::read_file(dir / "mine.s_p"), before);
    EXPECT_EQ(dir.count(), 1);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].find(L"mine.s_p"), std::wstring::npos);
    messages.clear();
}

TEST_F(composed_edits, the_library_button_needs_a_library)
{
    auto const loader = vx_global_lib_styles_set_loader(nullptr);
    auto *edit = add_edit<Tvx_pnt_stl_edit>();
    Tvx_lib_stl_panel *const strip = edit->get_lib_panel();
    EXPECT_FALSE(strip->get_main_btn()->GetShowing());
    EXPECT_TRUE(strip->get_load_btn()->GetShowing() && strip->get_save_btn()->GetShowing());
    EXPECT_EQ(strip->get_load_btn()->GetWidth(), strip->get_load_btn()->GetHeight());

    vx_global_lib_styles_set_loader([](void *libs) {
        void *const list = vx_style_lib_get_pnt_list_ptr(vx_style_libs_add_lib(libs, L"Signs"));
        void *const style = vx_idx_pnt_style_get_pnt_style_ptr(vx_style_list_add_idx_style(list, 1, 1));
        vx_bpnt_style_set_size(vx_pnt_style_get_bpnt_style_ptr(style), 7);
        return true;
    });
    edit->update_controls();
    input::wait_idle();
    for (bool const takes : {false, true}) {
        input::on_next_modal([&](input::modal_window const &window) {
            EXPECT_EQ(window.title(), L"Style libraries");
            auto const &browser = dynamic_cast<Tvx_style_libs_form &>(*window.form());
            ASSERT_TRUE(input::click_tab(browser.get_lib_panel()->get_style_panel()->get_pages(), 1));
            window.press_button(takes ? L"Apply" : L"Cancel");
        });
        ASSERT_TRUE(input::click(strip->get_main_btn()));
        EXPECT_EQ(taken_events(), takes);
        EXPECT_EQ(edit->get_bpnt_edit()->get_size()->get_size(), takes ? 7 : 2);
    }
    strip->set_on_click(recorder());
    ASSERT_TRUE(input::click(strip->get_main_btn()));
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(strip->get_on_click(), recorder());
    vx_global_lib_styles_set_loader(loader);
}
