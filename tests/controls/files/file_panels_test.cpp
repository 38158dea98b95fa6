#include "controls/prop/prop_form.h"
#include "controls/vxk_basic_vcl.h"
#include "support/temp_dir.h"

#include "platform/toolkit/controls/list_box.h"

namespace input = vx::user_input;

namespace {
class file_panels : public prop_form
{
protected:
    template <class Panel>
    Panel *made(int height = 24)
    {
        auto *const panel = add<Panel>(height);
        panel->create();
        panel->load_rc();
        return panel;
    }
    /// Answers the next dialogs with these names.
    void choose(std::vector<UnicodeString> names)
    {
        chosen = std::move(names);
        table.file = [](void *self, HWND, int, int, Tvx_file_dialog_prm *prm) {
            auto &test = static_cast<file_panels &>(of(self));
            test.asked_file = *prm;
            prm->file_names = test.chosen;
            prm->file_name = test.chosen.empty() ? UnicodeString() : test.chosen.front();
            return !test.chosen.empty();
        };
        vx_dlg_set_table(&table);
    }
    std::vector<UnicodeString> chosen;
};

/// What the list shows, and the whole paths behind it.
std::string shown(Tvx_vcl_many_file_panel const &panel)
{
    std::string text;
    for (int i = 0; i < panel.get_list_box()->GetItems()->GetCount(); ++i)
        text += (i == panel.get_active_index() ? "*" : "") +
                panel.get_list_box()->GetItems()->GetStrings(i).to_utf8() + " ";
    for (int i = 0; i < panel.get_filenames()->GetCount(); ++i)
        text += "| " + panel.get_filenames()->GetStrings(i).to_utf8();
    return text;
}
} // namespace

TEST_F(file_panels, take_a_file_to_open_or_to_save)
{
    for (bool const save : {false, true}) {
        Tvx_vcl_file_panel *const panel =
            save ? static_cast<Tvx_vcl_file_panel *>(made<Tvx_vcl_file_save_panel>())
                 : made<Tvx_vcl_file_open_panel>();
        panel->set_on_change(recorder());
        panel->set_filter(L"Tables|*.dbf");
        panel->set_default_ext(L".dbf");
        panel->set_filename(L"/maps/a.dbf");
        EXPECT_EQ(panel->get_caption_width(), 130);
        EXPECT_EQ(panel->get_button()->GetWidth(), 22);
        EXPECT_EQ(taken_events(), 0);

        choose({});
        ASSERT_TRUE(input::click(panel->get_button()));
        EXPECT_EQ(panel->get_filename(), L"/maps/a.dbf");
        EXPECT_EQ(taken_events(), 0);
        EXPECT_EQ(asked_file.save, save);
        EXPECT_TRUE(asked_file.overwrite_prompt);
        EXPECT_EQ(asked_file.filter, L"Tables|*.dbf");
        EXPECT_EQ(asked_file.default_ext, L".dbf");
        EXPECT_EQ(asked_file.file_name, L"/maps/a.dbf");

        for (auto const *const name : {L"/maps/Карта.dbf", L"/maps/Карта.dbf"}) {
            choose({name});
            ASSERT_TRUE(input::click(panel->get_button()));
            EXPECT_EQ(panel->get_filename(), name);
            EXPECT_EQ(panel->get_name_view()->GetCaption(), name);
            EXPECT_EQ(taken_events(), 1) << "the same name once more counts too";
            EXPECT_EQ(last_sender, panel);
        }
    }
}

TEST_F(file_panels, take_a_directory_of_another_name_only)
{
    auto *const panel = made<Tvx_vcl_dir_panel>();
    panel->set_on_change(recorder());
    panel->set_dirname(L"/maps/World");
    struct
    {
        wchar_t const *chosen;
        int events;
        wchar_t const *taken;
    } const cases[] = {{L"/maps/world", 0, L"/maps/World"}, {L"/maps/roads", 1, L"/maps/roads"}};
    for (auto const &c : cases) {
        choose({c.chosen});
        ASSERT_TRUE(input::click(panel->get_button()));
        EXPECT_TRUE(asked_file.directory);
        EXPECT_EQ(asked_file.title, L"Select Directory");
        EXPECT_EQ(asked_file.accept_caption, L"Select");
        EXPECT_EQ(panel->get_dirname(), c.taken);
        EXPECT_EQ(panel->GetHint(), c.taken);
        EXPECT_EQ(taken_events(), c.events);
    }
    auto *const made_below = made<Tvx_vcl_new_dir_panel>(50);
    made_below->set_dircaption(L"In");
    made_below->set_sub_dircaption(L"Name");
    made_below->set_dirname(L"/maps");
    ASSERT_TRUE(input::enter_text(made_below->get_sub_dir_panel()->get_edit(), L"new"));
    choose({L"/other"});
    ASSERT_TRUE(input::click(made_below->get_dir_panel()->get_button()));
    EXPECT_EQ(made_below->get_dirname(), L"/other");
    EXPECT_EQ(made_below->get_sub_dirname(), L"new");
    EXPECT_EQ(made_below->get_sub_dircaption(), L"Name");
}

TEST_F(file_panels, hold_many_files_in_an_order)
{
    auto *const panel = made<Tvx_vcl_many_file_panel>(140);
    int active_events = 0;
    auto const count_active = [](void *count, TObject *) { ++*static_cast<int *>(count); };
    panel->on_change = recorder();
    panel->on_active_change = {count_active, &active_events};
    panel->set_filter(L"Tables|*.dbf");
    choose({L"/b/c.dbf", L"/d.dbf"});
    TStringList first;
    first.Add(L"/a/a.dbf");
    first.Add(L"/a/b.dbf");
    panel->set_filenames(&first);
    panel->set_active_index(1);
    EXPECT_EQ(taken_events() + active_events, 0);
    EXPECT_EQ(shown(*panel), "a.dbf *b.dbf | /a/a.dbf| /a/b.dbf");

    auto *const list = panel->get_list_box();
    struct
    {
        char const *what;
        TWinControl *button; ///< null: the first row is clicked
        int changes, active_changes;
        char const *shows;
    } const steps[] = {
        {"add", panel->get_add_btn(), 1, 0,
         "a.dbf *b.dbf c.dbf d.dbf | /a/a.dbf| /a/b.dbf| /b/c.dbf| /d.dbf"},
        {"up", panel->get_up_btn(), 1, 1, "*b.dbf a.dbf c.dbf d.dbf | /a/b.dbf| /a/a.dbf| /b/c.dbf| /d.dbf"},
        {"up at the top", panel->get_up_btn(), 0, 0,
         "*b.dbf a.dbf c.dbf d.dbf | /a/b.dbf| /a/a.dbf| /b/c.dbf| /d.dbf"},
        {"down", panel->get_down_btn(), 1, 1,
         "a.dbf *b.dbf c.dbf d.dbf | /a/a.dbf| /a/b.dbf| /b/c.dbf| /d.dbf"},
        {"choose", nullptr, 0, 1, "*a.dbf b.dbf c.dbf d.dbf | /a/a.dbf| /a/b.dbf| /b/c.dbf| /d.dbf"},
        {"delete", panel->get_delete_btn(), 1, 0, "*b.dbf c.dbf d.dbf | /a/b.dbf| /b/c.dbf| /d.dbf"},
        {"clear", panel->get_clear_btn(), 1, 0, ""},
        {"delete nothing", panel->get_delete_btn(), 0, 0, ""},
        {"down nothing", panel->get_down_btn(), 0, 0, ""},
    };
    for (auto const &step : steps) {
        SCOPED_TRACE(step.what);
        active_events = 0;
        ASSERT_TRUE(step.button ? input::click(step.button) : input::click_item(list, 0));
        EXPECT_EQ(taken_events(), step.changes);
        EXPECT_EQ(active_events, step.active_changes);
        EXPECT_EQ(shown(*panel), step.shows);
    }
    EXPECT_TRUE(asked_file.several);
    EXPECT_EQ(asked_file.filter, L"Tables|*.dbf");

    // The buttons take the first of several rows.
    list->SetMultiSelect(true);
    panel->set_filenames(&first);
    list->SelectAll();
    ASSERT_TRUE(input::click(panel->get_delete_btn()));
    EXPECT_EQ(panel->get_filenames()->GetStrings(0), L"/a/b.dbf");
    ASSERT_TRUE(input::press(VK_TAB));
    list->ClearSelection();
    panel->set_filenames(&first);
    panel->set_active_index(1);
    ASSERT_TRUE(input::click(panel->get_down_btn()));
    EXPECT_EQ(panel->get_filenames()->GetStrings(1), L"/a/b.dbf") << "the last one goes no further";
}

TEST_F(file_panels, ask_in_windows_of_our_own)
{
    vx_test::temp_dir const dir;
    std::filesystem::create_directory(dir / "inside");
    vx_test::write_file(dir / "inside" / "a.dbf", "x");
    vx_test::write_file(dir / "inside" / "b.dbf", "x");
    table.file = nullptr;
    vx_dlg_set_table(&table);
    auto const answer = [](wchar_t const *typed, wchar_t const *button) {
        input::on_next_modal([=](input::modal_window const &window) {
            input::press('A', {ssCtrl});
            input::type(typed);
            input::press(VK_TAB);
            EXPECT_TRUE(window.press_button(button));
            window.reject();
        });
    };
    auto *const directory = made<Tvx_vcl_dir_panel>();
    directory->set_dirname(UnicodeString((dir.path()).string()));
    answer(L"inside", L"Select");
    ASSERT_TRUE(input::click(directory->get_button()));
    EXPECT_EQ(directory->get_dirname(), UnicodeString((dir / "inside").string()));

    auto *const many = made<Tvx_vcl_many_file_panel>(140);
    answer(L"\"a.dbf\" \"b.dbf\"", L"Open"); // the folder that was chosen last
    ASSERT_TRUE(input::click(many->get_add_btn()));
    ASSERT_EQ(many->get_filenames()->GetCount(), 2);
    EXPECT_EQ(many->get_filenames()->GetStrings(1), UnicodeString((dir / "inside" / "b.dbf").string()));
}
