#include "controls/prop/file_panel.h"
#include "prop_form.h"
#include "support/temp_dir.h"

#include "platform/toolkit/core/clipboard.h"

namespace input = vx::user_input;

namespace {
constexpr wchar_t c_filter[] = L"Tables|*.dbf|text|*.txt;*.log|All|*.*";

class file_panel : public prop_form
{
protected:
    void SetUp() override
    {
        prop_form::SetUp();
        panel = add<Tvx_file_panel>(20);
        panel->set_caption(L"Source");
        panel->set_filter(c_filter);
        panel->on_changed = recorder();
    }
    Tvx_file_panel *panel = nullptr;
};
} // namespace

TEST_F(file_panel, knows_the_pair_of_the_filter)
{
    struct
    {
        wchar_t const *name;
        int index;
    } const cases[] = {{L"/a/b.dbf", 1}, {L"a.txt", 2},   {L"a.log", 2},    {L"a.LOG", 0},
                       {L"noext", 0},    {L"", 0},        {L"/a.dbf/b", 0}, {L"a.prj", 0},
                       {L"a.", 0},       {L"b.x.dbf", 1}, {L"/a/.dbf", 0}};
    for (auto const &c : cases) {
        panel->set_wfilename(c.name);
        EXPECT_EQ(panel->get_filter_index(), c.index) << UnicodeString(c.name).to_utf8();
    }
    panel->set_filter(L"");
    panel->set_wfilename(L"a.dbf");
    EXPECT_EQ(panel->get_filter_index(), 0);
    EXPECT_EQ(taken_events(), 0);
}

TEST_F(file_panel, gives_a_name_the_extension_of_the_pair)
{
    struct
    {
        wchar_t const *name;
        int index;
        wchar_t const *result;
    } const cases[] = {{L"a.log", 2, L"a.txt"},
                       {L"/d.d/a", 1, L"/d.d/a.dbf"},
                       {L"a.b.c", 1, L"a.b.dbf"},
                       {L"a.log", 0, L"a.log"},
                       {L"a.log", 9, L"a.log"},
                       {L"a.log", -1, L"a.log"},
                       {L"a.log", 3, L"a.log"},
                       {L"", 1, L""},
                       {L"/d/.hidden", 1, L"/d/.hidden.dbf"},
                       {L"C:\\x.y\\a", 1, L"C:\\x.y\\a.dbf"}};
    for (auto const &c : cases)
        EXPECT_EQ(panel->pretty_filename(c.name, c.index), c.result) << UnicodeString(c.name).to_utf8();
}

TEST_F(file_panel, opens_a_file)
{
    panel->set_wfilename(L"/maps/Карта.txt");
    EXPECT_EQ(panel->get_name_view()->GetCaption(), L"/maps/Карта.txt");
    panel->set_default_ext(L"txt");
    next_file = L"/other/New.txt";
    ASSERT_TRUE(input::click(panel->get_button()));
    EXPECT_EQ(asked_file.save, false);
    EXPECT_EQ(asked_file.filter, c_filter);
    EXPECT_EQ(asked_file.default_ext, L"txt");
    EXPECT_EQ(asked_file.file_name, L"/maps/Карта.txt");
    EXPECT_EQ(panel->get_filename(), "/other/New.txt");
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(last_sender, panel);

    next_file = L"/OTHER/new.TXT";
    ASSERT_TRUE(input::tab_to(panel->get_button()));
    input::press(VK_SPACE);
    EXPECT_EQ(panel->get_wfilename(), L"/OTHER/new.TXT");
    EXPECT_EQ(taken_events(), 0) << "the same name but for case";
    accepts = false;
    next_file = L"/third";
    ASSERT_TRUE(input::click(panel->get_button()));
    EXPECT_EQ(panel->get_wfilename(), L"/OTHER/new.TXT");
    EXPECT_EQ(taken_events(), 0);
}

TEST_F(file_panel, names_a_file_to_save)
{
    panel->set_save_flag(true);
    panel->set_overwrite_prompt(false);
    panel->set_filename("/maps/a.log");
    next_file = L"/maps/b.log";
    next_filter_index = 1;
    ASSERT_TRUE(input::click(panel->get_button()));
    EXPECT_TRUE(asked_file.save);
    EXPECT_FALSE(asked_file.overwrite_prompt);
    EXPECT_EQ(asked_file.filter_index, 2);
    EXPECT_EQ(retyped, L"b.dbf") << "what stands in the name box after the type was changed";
    EXPECT_EQ(panel->get_wfilename(), L"/maps/b.dbf");
    EXPECT_EQ(taken_events(), 1);
}

TEST_F(file_panel, menu_shows_and_copies_names)
{
    panel->set_wfilename(L"/maps/rivers & lakes.dbf");
    EXPECT_FALSE(panel->get_pop_menu());
    panel->set_pop_menu(true);
    ASSERT_TRUE(input::choose(panel->get_menu(), L"Show the name without path"));
    EXPECT_EQ(panel->make_text(), L"rivers & lakes.dbf");
    EXPECT_EQ(panel->get_name_view()->GetCaption(), L"rivers & lakes.dbf");
    EXPECT_EQ(panel->get_wfilename(), L"/maps/rivers & lakes.dbf");
    ASSERT_TRUE(input::choose(panel->get_menu(), L"Copy the full name"));
    EXPECT_EQ(Clipboard()->GetAsText(), L"/maps/rivers & lakes.dbf");
    ASSERT_TRUE(input::choose(panel->get_menu(), L"Copy the name without path"));
    EXPECT_EQ(Clipboard()->GetAsText(), L"rivers & lakes.dbf");
    input::choose_in_next_menu(L"Show the full name");
    ASSERT_TRUE(input::click(panel->get_name_view(), mbRight));
    EXPECT_TRUE(input::menu_choice_done());
    EXPECT_EQ(panel->make_text(), L"/maps/rivers & lakes.dbf");
    EXPECT_EQ(taken_events(), 0);
    panel->set_pop_menu(false);
    EXPECT_FALSE(panel->get_pop_menu());
}

TEST_F(file_panel, asks_about_the_name_that_it_completes_to)
{
    vx_test::temp_dir const dir;
    vx_test::write_file(dir / "old.dbf", "x");
    UnicodeString const old((dir / "old.dbf").string());
    UnicodeString const typed((dir / "old.txt").string());
    panel->set_save_flag(true);
    panel->set_wfilename(UnicodeString((dir / "a.dbf").string()).c_str());

    auto const file_dialog = table.file;
    // In our own window, which stays open after a "no".
    table.file = nullptr;
    vx_dlg_set_table(&table);
    input::on_next_modal([&](input::modal_window const &window) {
        input::press('A', {ssCtrl});
        input::type(L"old.txt");
        input::press(VK_TAB);
        EXPECT_TRUE(window.press_button(L"Save"));
        window.reject();
    });
    input::on_next_modal([](input::modal_window const &question) {
        EXPECT_NE(question.text().str().find(L"old.dbf"), std::wstring::npos);
        question.reject();
    });
    ASSERT_TRUE(input::click(panel->get_button()));
    EXPECT_EQ(taken_events(), 0);

    // In a window of the host's, which completes nothing.
    static int asked;
    asked = 0;
    table.file = file_dialog;
    table.yesno = [](void *, HWND, wchar_t const *) { return ++asked == 2; };
    vx_dlg_set_table(&table);
    next_file = typed;
    ASSERT_TRUE(input::click(panel->get_button()));
    EXPECT_EQ(asked, 2) << "after a no the name is asked for again";
    EXPECT_EQ(panel->get_wfilename(), old.str());
    panel->set_overwrite_prompt(false);
    ASSERT_TRUE(input::click(panel->get_button()));
    EXPECT_EQ(asked, 2);
}
