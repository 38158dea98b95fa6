#include "user_input/user_input.h"
#include "value_table.h"

#include "platform/basic/vx_options.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/strings.h"

namespace input = vx::user_input;

namespace {
class val_dialog : public value_table
{
protected:
    using legend_panel = Tvx_vcl_val_rebuild_with_legend_params_panel;

    val_dialog()
    {
        vx_options_set_language("en");
        dialogs.file = [](void *self, HWND, int, int, Tvx_file_dialog_prm *prm) {
            auto &test = static_cast<val_dialog &>(of(self));
            test.asked = *prm;
            prm->file_name = UnicodeString(test.next_file);
            return !test.next_file.empty();
        };
        vx_dlg_set_table(&dialogs);
        legend_panel::last_params() = {};
        rows = {{{"7", "seven"}}, {{"12", "twelve"}}, {{"3", "three"}}};
    }
    ~val_dialog() override
    {
        EXPECT_EQ(input::pending_modals(), 0);
        input::forget_pending_modals();
    }

    /// Opens the dialog, does something in it and gives what it gave.
    template <class F>
    bool in_dialog(F act)
    {
        auto const events = data();
        input::on_next_modal([this, act](input::modal_window const &window) {
            panel = dynamic_cast<Tvx_vcl_val_type_form &>(*window.form()).get_val_panel();
            act(window);
            if (window.form())
                window.reject();
        });
        return vx_val_type_dlg(100, 100, mngr.get(), events.open, events.close, events.get_np, events.get_no,
                               events.get_prop, events.get_capt_prop, events.get_stat, events.get_str,
                               events.get_val);
    }
    [[nodiscard]] Tvx_vcl_val_rescale_panel *modes() const { return panel->get_rescale_panel(); }
    [[nodiscard]] legend_panel *legends() const { return modes()->get_legend_panel(); }
    [[nodiscard]] Tvx_vcl_val_modify_params_panel *modify() const { return modes()->get_modify_panel(); }
    [[nodiscard]] bool choose_mode(int mode) const
    {
        return input::choose_item(modes()->get_type_panel()->get_box()->get_select_box(), mode);
    }
    [[nodiscard]] std::string listed() const
    {
        auto *const items = panel->get_statistic_panel()->get_list_box()->GetItems();
        std::string result;
        for (int i = 0; i < items->GetCount(); ++i)
            result += "<" + items->GetStrings(i).to_utf8() + ">";
        return result;
    }
    [[nodiscard]] static bool tick(Tvx_vcl_check_box *box)
    {
        return input::click(box, 8, box->GetHeight() / 2);
    }
    void choose_file(std::string const &file)
    {
        next_file = file;
        ASSERT_TRUE(input::click(legends()->get_dbf_open_panel()->get_file_panel()->get_button()));
    }
    /// The legend's settings as they are shown: "L_CODE/B_CODE +TEXT1 -TEXT2 +TEXT3 0".
    [[nodiscard]] std::string shown() const
    {
        std::string result = legends()->get_lcode_panel()->get_prop_name() + "/" +
                             legends()->get_bcode_panel()->get_prop_name();
        for (int part = 0; part < 3; ++part) {
            auto *const text = legends()->get_text_panel(part);
            result += text->get_use_flag() ? " +" : " -";
            result += text->get_propname();
            EXPECT_EQ(text->get_prop_panel()->get_enabled(), text->get_use_flag());
        }
        return result + " " + std::to_string(legends()->get_stdlib_box()->get_libidx());
    }

    Tvx_vcl_val_panel *panel = nullptr;
    std::string next_file;
    Tvx_file_dialog_prm asked;
};
} // namespace

TEST_F(val_dialog, opens_on_the_values_of_the_field)
{
    rows.push_back({"12 ", "again"});
    rows.push_back({std::nullopt, "none"});
    fill({{"old", "entry"}});
    EXPECT_FALSE(in_dialog([&](input::modal_window const &window) {
        EXPECT_EQ(listed(), "<12><3><7>");
        EXPECT_EQ(window.form()->GetWidth(), 800);
        EXPECT_EQ(modes()->get_type_panel()->get_val_type(), 0);
        for (int const mode : {0, 1, 2}) {
            EXPECT_TRUE(choose_mode(mode));
            EXPECT_EQ(modes()->get_rebuild_panel()->GetShowing(), mode == 0);
            EXPECT_EQ(legends()->GetShowing(), mode == 1);
            EXPECT_EQ(modify()->GetShowing(), mode == 2);
        }
        EXPECT_EQ(UnicodeString(modes()->get_rebuild_panel()->get_prp_scale()->get_prop_name()), L"CODE");
        EXPECT_EQ(shown(), "/ - - - 0");
        EXPECT_EQ(legends()->get_stdlib_box()->get_active_caption(), L"Town");
        EXPECT_TRUE(modify()->get_add_box()->GetChecked());
        EXPECT_FALSE(modify()->get_del_box()->GetChecked());
        EXPECT_FALSE(modify()->get_capt_box()->GetChecked());
        EXPECT_EQ(UnicodeString(modify()->get_prp_scale()->get_prop_name()), L"CODE");
        for (bool const enabled : {false, true, false}) {
            EXPECT_EQ(modify()->get_prp_scale()->get_enabled(), enabled);
            EXPECT_TRUE(tick(modify()->get_capt_box()));
        }
    }));
    EXPECT_EQ(entries(), "old=entry");

    // Without values, and without libraries, it works as usual.
    rows.clear();
    vx_global_lib_styles_set_loader(nullptr);
    EXPECT_TRUE(in_dialog([&](input::modal_window const &window) {
        EXPECT_EQ(listed(), "");
        EXPECT_EQ(legends()->get_stdlib_box()->get_libidx(), 0);
        EXPECT_TRUE(window.press_button(L"Apply"));
    }));
    EXPECT_EQ(entries(), "");
}

TEST_F(val_dialog, a_stop_leaves_everything)
{
    rows.resize(1000, rows.front());
    fill({{"old", "entry"}});
    stop_after = 500;
    auto const events = data();
    EXPECT_FALSE(vx_val_type_dlg(0, 0, mngr.get(), events.open, events.close, events.get_np, events.get_no,
                                 events.get_prop, {}, {}, events.get_str, events.get_val))
        << "no window comes";
    // While the scale is built: the window stays, and what it would have remembered is forgotten.
    stop_after = 1'000'000;
    EXPECT_FALSE(in_dialog([&](input::modal_window const &window) {
        EXPECT_TRUE(choose_mode(1));
        choose_file(legend({{"7", "7", "A", "B", "C"}}));
        stop_after = cells_read + 500;
        window.press_button(L"Apply");
        EXPECT_TRUE(window.form());
        stop_after = 1'000'000;
    }));
    EXPECT_EQ(entries(), "old=entry");
    EXPECT_EQ(legend_panel::last_params().get_legdbf_filename(), "");
}

TEST_F(val_dialog, a_legend_proposes_its_standard_fields)
{
    struct
    {
        std::vector<std::string> fields;
        char const *shown;
    } const cases[] = {
        {{"L_CODE", "B_CODE", "TEXT1", "TEXT2", "TEXT3"}, "L_CODE/B_CODE +TEXT1 +TEXT2 +TEXT3 0"},
        {{"l_code", "b_Code", "text1", "Text2", "text3"}, "l_code/b_Code +text1 +Text2 +text3 0"},
        {{"L_CODE", "B_CODE", "TEXT1", "NOTE", "TEXT3"}, "L_CODE/B_CODE +TEXT1 -L_CODE +TEXT3 0"},
        {{"ID", "NUMBER", "L_CODE", "B_CODE", "TEXT2"}, "ID/ID -ID +TEXT2 -ID 0"}, // codes are numbers
    };
    in_dialog([&](input::modal_window const &) {
        EXPECT_TRUE(choose_mode(1));
        for (auto const &c : cases) {
            choose_file(legend({{"1", "2", "a", "b", "c"}}, c.fields));
            EXPECT_EQ(shown(), c.shown);
        }
        EXPECT_EQ(asked.default_ext, L".dbf");
        choose_file((dir / "missing.dbf").string());
        EXPECT_EQ(shown(), "L_CODE/B_CODE -TEXT1 -TEXT2 -TEXT3 0")
            << "nothing is held by a file that is not there";
    });
    EXPECT_EQ(legend_panel::last_params().get_legdbf_filename(), "") << "it was not accepted";
}

TEST_F(val_dialog, remembers_the_legend_that_was_last_accepted)
{
    auto const file = legend({{"7", "7", "A", "B", "C"}});
    EXPECT_TRUE(in_dialog([&](input::modal_window const &window) {
        EXPECT_TRUE(choose_mode(1));
        choose_file(file);
        EXPECT_TRUE(tick(legends()->get_text_panel(1)->get_use_box()));
        EXPECT_TRUE(input::choose_item(
            legends()->get_text_panel(2)->get_prop_panel()->get_prop_edit()->get_combo_box(), L"TEXT1"));
        EXPECT_TRUE(input::choose_item(legends()->get_stdlib_box()->get_select_box(), L"Wood"));
        EXPECT_TRUE(choose_mode(0)); // in another mode too
        EXPECT_TRUE(window.press_button(L"Apply"));
    }));
    for (bool const is_accepted : {false, true, true})
        EXPECT_EQ(in_dialog([&](input::modal_window const &window) {
                      EXPECT_EQ(legends()->get_dbf_open_panel()->get_filename(), UnicodeString(file));
                      EXPECT_EQ(shown(), "L_CODE/B_CODE +TEXT1 -TEXT2 +TEXT1 1");
                      EXPECT_EQ(legends()->get_lcode_panel()->get_real_index(), 0) << "the list is there too";
                      EXPECT_TRUE(choose_mode(1));
                      if (!is_accepted) {
                          EXPECT_TRUE(tick(legends()->get_text_panel(0)->get_use_box()));
                      }
                      window.press_button(is_accepted ? L"Apply" : L"Cancel");
                  }),
                  is_accepted);
    // The button beside the file shows what is in it.
    in_dialog([&](input::modal_window const &) {
        EXPECT_TRUE(choose_mode(1));
        input::on_next_modal([](input::modal_window const &table) {
            EXPECT_EQ(table.title(), L"legend.dbf");
            table.reject();
        });
        EXPECT_TRUE(input::click(legends()->get_dbf_open_panel()->get_show_btn()));
    });
}
