#include "style_manager/shell/typed_stl_mngr_edits.h"
#include "style_manager/shell/vx2gp_env.h"
#include "support/temp_dir.h"
#include "tests/controls/prop/prop_form.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_wstrings.h"
#include "platform/storage/detail/gp_env.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/core/strings.h"

namespace input = vx::user_input;
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;

namespace {
class shell : public prop_form
{
public:
    /// A table of properties.
    bool open(TObject *)
    {
        ++opens;
        return has_data;
    }
    void close(TObject *) { --opens; }
    unsigned get_np(TObject *) { return static_cast<unsigned>(names.size()); }
    char const *get_prop(TObject *, unsigned prop, bool &usable, bool &numeric)
    {
        usable = numeric = true;
        return names[prop];
    }
    unsigned get_no(TObject *) { return 2; }
    char const *get_str(TObject *, unsigned, unsigned, bool &) { return ""; }
    double get_val(TObject *, unsigned, unsigned object, bool &defined)
    {
        defined = true;
        return object * 100.0;
    }
    void get_prop_file_name(TObject *, unsigned, Ivx_string_adp *name)
    {
        vx_string_adp_feed(name, scale_file.c_str());
    }

protected:
    template <class Edit>
    Edit *add_edit()
    {
        auto *const edit = add<Edit>(300);
        edit->create();
        edit->load_res();
        edit->on_changed = recorder();
        return edit;
    }
    owned_mngr mngr{vx_stl_mngr_create("pgn_style")};
    std::vector<char const *> names;
    std::wstring scale_file;
    int opens = 0;
    bool has_data = true;
};

Tvx_color fill_of(void *mngr)
{
    void *const style = vx_stl_prm_get_pgn_style_ptr(vx_stl_mngr_get_simple_sp_ptr(mngr), false);
    return vx_bpgn_style_get_color(vx_pgn_style_get_bpgn_style_ptr(style));
}

/// A legend of one fill.
std::string legend()
{
    return "/3.1\n(ODB.1\n\tFirstRootClassName:\t\"Legend\"\n\tRoots:\t7\n\tVersion:\t31\n)\n\n"
           "(TClr.2\n\tRed:\t0x0909\n\tGreen:\t0x0808\n\tBlue:\t0x0707\n)\n\n"
           "(BShSym.3\n\tColor:\t2\n\tOutline:\t1\n\tOutlineColor:\t2\n\tOutlineWidth:\t1.0\n)\n\n"
           "(LClass.4\n\tLabel:\t\"all\"\n)\n\n(AVStr.5\n\tS:\t\"POP\"\n)\n\n(SymList.6\n\tChild:\t3\n)\n\n"
           "(Legend.7\n\tSymType:\t0x02\n\tLegType:\t0x01\n\tFieldNames:\t5\n\tSymbols:\t6\n\tClass:\t4\n)"
           "\n\n";
}
} // namespace

TEST_F(shell, shows_the_editor_of_the_mode_and_takes_the_users_choice)
{
    auto *const edit = add_edit<Tvx_pgn_stl_mngr_edit>();
    TControl *const values = edit->get_val_edit();
    TControl *const rules = edit->get_rule_edit();
    TControl *const ranges = edit->get_rng_edit();
    auto *const combo = edit->get_mode_edit()->get_combo_box();
    // Without a manager there is nothing to edit.
    edit->update_controls();
    for (TControl *control : {static_cast<TControl *>(edit->get_mode_edit()), static_cast<TControl *>(combo),
                              static_cast<TControl *>(edit->get_smp_edit()), values})
        EXPECT_FALSE(control->GetShowing());

    edit->set_pgn_stl_mngr(mngr.get());
    edit->update_controls();
    EXPECT_TRUE(edit->get_smp_edit()->GetShowing());
    EXPECT_TRUE(edit->get_rotate_btn()->GetShowing());
    ASSERT_TRUE(input::choose_item(combo, 1));
    EXPECT_EQ(vx_stl_mngr_get_mode(mngr.get()), c_style_mode_value);
    EXPECT_TRUE(values->GetShowing());
    EXPECT_FALSE(edit->get_smp_edit()->GetShowing());
    EXPECT_EQ(edit->get_val_edit()->get_grid()->get_scale(), vx_stl_mngr_get_val_scale_ptr(mngr.get()));
    EXPECT_EQ(taken_events(), 1);
    ASSERT_TRUE(input::choose_item(combo, 1));
    EXPECT_EQ(taken_events(), 0) << "the mode in force already";
    ASSERT_TRUE(input::click(edit->get_val_edit()->get_ins_btn()));
    EXPECT_EQ(vx_val_scale_get_size(vx_stl_mngr_get_val_scale_ptr(mngr.get())), 1u);
    EXPECT_EQ(taken_events(), 1) << "once, on the whole way up";

    ASSERT_TRUE(input::choose_item(combo, 2));
    EXPECT_EQ(vx_stl_mngr_get_mode(mngr.get()), c_style_mode_range);
    EXPECT_EQ(edit->get_rng_edit()->get_grid()->get_scale(), vx_stl_mngr_get_rng_scale_ptr(mngr.get()));
    EXPECT_EQ(taken_events(), 1);
    ASSERT_TRUE(input::click(edit->get_rng_edit()->get_tool_panel()->get_ins_btn()));
    EXPECT_EQ(vx_rng_scale_get_size(vx_stl_mngr_get_rng_scale_ptr(mngr.get())), 1u);
    EXPECT_EQ(taken_events(), 1);

    struct
    {
        Tvx_style_mode mode;
        int index;
        TControl *shown;
    } const cases[] = {{c_style_mode_rule, -1, rules},
                       {c_style_mode_none, 0, nullptr},
                       {c_style_mode_simple, 0, edit->get_smp_edit()},
                       {c_style_mode_range, 2, ranges},
                       {9, 0, ranges}, // nothing further changes
                       {c_style_mode_value, 1, values}};
    for (auto const &c : cases) {
        vx_stl_mngr_set_mode(mngr.get(), c.mode);
        edit->update_controls();
        EXPECT_EQ(combo->GetItemIndex(), c.index) << c.mode;
        for (TControl *control : {values, ranges, rules, static_cast<TControl *>(edit->get_smp_edit())})
            EXPECT_EQ(control->GetShowing(), control == c.shown) << c.mode;
    }
    // The entry of rules takes its mode along.
    edit->rule_enabled(true);
    ASSERT_TRUE(input::choose_item(combo, 3));
    EXPECT_EQ(taken_events(), 1);
    edit->rule_enabled(false);
    EXPECT_EQ(vx_stl_mngr_get_mode(mngr.get()), c_style_mode_simple);
    EXPECT_EQ(taken_events(), 1);
}

TEST_F(shell, shows_a_change_before_it_reports_it)
{
    auto *const edit = add_edit<Tvx_pgn_stl_mngr_edit>();
    edit->set_pgn_stl_mngr(mngr.get());
    edit->update_controls();
    struct watcher
    {
        void on_changed(TObject *)
        {
            shown = edit->get_val_edit()->GetShowing();
            rows = edit->get_val_edit()->get_grid()->GetRowCount();
        }
        Tvx_stl_mngr_edit *edit;
        bool shown = false;
        int rows = 0;
    } at_report{edit};
    edit->on_changed = make_closure<&watcher::on_changed>(&at_report);
    ASSERT_TRUE(input::choose_item(edit->get_mode_edit()->get_combo_box(), 1));
    EXPECT_TRUE(at_report.shown);
    for (int const rows : {2, 3}) {
        ASSERT_TRUE(input::click(edit->get_val_edit()->get_ins_btn()));
        EXPECT_EQ(at_report.rows, rows);
    }
}

TEST_F(shell, fills_a_range_scale_that_needs_it_once)
{
    vx_test::temp_dir const dir;
    auto *const edit = add_edit<Tvx_clr_stl_mngr_edit>();
    names = {"HEIGHT"};
    scale_file = (dir.path() / "grid.HEIGHT.tif").wstring();
    edit->set_on_data_open(make_closure<&shell::open>(this));
    edit->set_on_data_close(make_closure<&shell::close>(this));
    edit->set_on_data_get_np(make_closure<&shell::get_np>(this));
    edit->set_on_data_get_no(make_closure<&shell::get_no>(this));
    edit->set_on_data_get_prop(make_closure<&shell::get_prop>(this));
    edit->set_on_data_get_str(make_closure<&shell::get_str>(this));
    edit->set_on_data_get_val(make_closure<&shell::get_val>(this));
    edit->set_on_data_get_prop_file_name(make_closure<&shell::get_prop_file_name>(this));
    owned_mngr const colors(vx_stl_mngr_create("clr_style"));
    vx_stl_mngr_set_rng_prop_name_w(colors.get(), L"HEIGHT");
    edit->set_clr_stl_mngr(colors.get());
    edit->set_style_mngr_mode(c_style_mode_range);
    vx_stl_mngr_set_need_scale(colors.get(), true);
    edit->update_controls();
    EXPECT_EQ(edit->get_mode_edit()->get_combo_box()->GetItemIndex(), 2);
    EXPECT_FALSE(vx_stl_mngr_get_need_scale(colors.get()));
    EXPECT_FALSE(edit->get_rotate_btn()->GetShowing()) << "colours do not turn";
    EXPECT_TRUE(std::filesystem::exists(dir.path() / "grid.HEIGHT._rg"));
    void *const scale = vx_stl_mngr_get_rng_scale_ptr(colors.get());
    EXPECT_EQ(vx_rng_scale_get_size(scale), 10u);
    vx_rng_scale_set_size(scale, 3);
    edit->update_controls();
    EXPECT_EQ(vx_rng_scale_get_size(scale), 3u);
    EXPECT_EQ(taken_events(), 0);
    EXPECT_EQ(opens, 0);
    // What is in force goes to that file, and the next manager takes it from there.
    edit->save_current_scl();
    owned_mngr const others(vx_stl_mngr_create("clr_style"));
    vx_stl_mngr_set_mode(others.get(), c_style_mode_range);
    vx_stl_mngr_set_rng_prop_name_w(others.get(), L"HEIGHT");
    vx_stl_mngr_set_need_scale(others.get(), true);
    edit->set_clr_stl_mngr(others.get());
    edit->update_controls();
    EXPECT_EQ(vx_rng_scale_get_size(vx_stl_mngr_get_rng_scale_ptr(others.get())), 3u);
}

/// One style of each kind under the number 7, and a line 8 that no item names.
bool fill_symbols(void *libs)
{
    void *const lib = vx_style_libs_add_lib(libs, L"Signs");
    void *(*const lists[])(void *) = {&vx_style_lib_get_pnt_list_ptr, &vx_style_lib_get_pln_list_ptr,
                                      &vx_style_lib_get_pgn_list_ptr};
    for (auto const list : lists)
        vx_style_list_add_idx_style(list(lib), 7, 1);
    void *const line = vx_idx_pln_style_get_pln_style_ptr(
        vx_style_list_add_idx_style(vx_style_lib_get_pln_list_ptr(lib), 8, 1));
    vx_bpln_style_set_width(vx_pln_style_get_bpln_style_ptr(line), 3);
    vx_style_items_add(vx_style_item_get_style_items_ptr(vx_style_lib_get_root_item_ptr(lib)), L"Seven", 7,
                       1);
    return true;
}

TEST_F(shell, symbols_of_a_library_come_in_the_kind_of_the_manager)
{
    auto const loader = vx_global_lib_styles_set_loader(&fill_symbols);
    struct
    {
        Tvx_stl_mngr_edit *edit;
        char const *type;
        bool has_eight;
    } const table[] = {{add_edit<Tvx_pnt_stl_mngr_edit>(), "pnt_style", false},
                       {add_edit<Tvx_pln_stl_mngr_edit>(), "pln_style", true},
                       {add_edit<Tvx_pgn_stl_mngr_edit>(), "pgn_style", false}};
    for (auto const &[edit, type, has_eight] : table) {
        SCOPED_TRACE(type);
        vx::owned<void, &vx_stl_prm_destroy> const prm(vx_stl_prm_create(type));
        auto const take = [&, e = edit](int lib, int code) {
            std::wstring caption = L"before";
            return e->get_val_edit()->get_grid()->on_lib_symbol_style(e, lib, code, prm.get(), false, caption)
                       ? caption
                       : L"none, " + caption;
        };
        EXPECT_EQ(take(0, 7), L"Seven");
        EXPECT_EQ(take(0, 8), has_eight ? L"" : L"none, before");
        EXPECT_EQ(vx_stl_prm_get_size(prm.get(), false) == 3, has_eight);
        EXPECT_EQ(take(0, 9), L"none, before");
        EXPECT_EQ(take(1, 7), L"none, before");
        EXPECT_EQ(take(-1, 7), L"none, before");
    }
    vx_global_lib_styles_set_loader(loader);
}

TEST_F(shell, a_style_is_edited_by_its_button)
{
    auto *const edit = add_edit<Tvx_clr_stl_mngr_edit>();
    owned_mngr const colors(vx_stl_mngr_create("clr_style"));
    edit->set_clr_stl_mngr(colors.get());
    edit->update_controls();
    void *const prm = vx_stl_mngr_get_simple_sp_ptr(colors.get());
    Tvx_color const before = *vx_stl_prm_get_clr_style_ptr(prm, false);
    ASSERT_TRUE(input::click(edit->get_smp_edit()->get_style_panel()->get_btn_s()));
    EXPECT_EQ(*vx_stl_prm_get_clr_style_ptr(prm, true), next_color);
    EXPECT_EQ(*vx_stl_prm_get_clr_style_ptr(prm, false), before);
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(last_sender, edit);
    accepts = false;
    ASSERT_TRUE(input::click(edit->get_smp_edit()->get_style_panel()->get_btn()));
    EXPECT_EQ(taken_events(), 0);
    edit->enable_selection_style(false);
    EXPECT_FALSE(edit->get_smp_edit()->get_style_panel()->get_btn_s()->GetShowing());
}

TEST_F(shell, lists_all_properties)
{
    auto *const edit = add_edit<Tvx_txt_pnt_stl_mngr_edit>();
    auto const list = [edit] {
        vx::owned<void, &vx_wstrings_destroy> const strings(edit->create_property_list());
        std::vector<std::wstring> result;
        for (unsigned i = 0; i < vx_wstrings_get_size(strings.get()); ++i)
            result.emplace_back(vx_wstrings_get_str(strings.get(), i));
        return result;
    };
    EXPECT_TRUE(list().empty()) << "no events";
    edit->set_on_data_open(make_closure<&shell::open>(this));
    edit->set_on_data_close(make_closure<&shell::close>(this));
    edit->set_on_data_get_np(make_closure<&shell::get_np>(this));
    edit->set_on_data_get_prop(make_closure<&shell::get_prop>(this));
    EXPECT_TRUE(list().empty());
    EXPECT_EQ(opens, 0) << "closed without properties too";
    names = {"NAME", "AREA", ""};
    EXPECT_EQ(list(), (std::vector<std::wstring>{L"NAME", L"AREA", L""}));
    EXPECT_EQ(opens, 0);
    has_data = false;
    EXPECT_TRUE(list().empty());
    EXPECT_EQ(opens, 1) << "what did not open is not closed";
}

TEST_F(shell, legends_are_read_into_managers_of_geometry)
{
    auto const has_row = [this](char const *type) {
        owned_mngr const other(vx_stl_mngr_create(type));
        auto *const edit = add_edit<Tvx_stl_mngr_edit>();
        edit->set_stl_mngr(other.get());
        edit->update_controls();
        bool const shown = edit->get_smp_edit()->get_avl_panel()->GetShowing();
        delete edit;
        next_top = 10;
        return shown;
    };
    EXPECT_TRUE(has_row("pln_style"));
    EXPECT_FALSE(has_row("clr_style"));
    EXPECT_FALSE(has_row("txt_pgn_style"));

    vx_test::temp_dir const dir;
    vx_test::write_file(dir / "land.avl", legend());
    vx_test::write_file(dir / "SEA.AVL", legend());
    vx_test::write_file(dir / "broken.avl", legend().substr(0, 200));
    auto *const edit = add_edit<Tvx_pgn_stl_mngr_edit>();
    edit->set_pgn_stl_mngr(mngr.get());
    edit->update_controls();
    Tvx_bitbtn *const button = edit->get_smp_edit()->get_avl_panel()->get_btn();
    Tvx_color const before = fill_of(mngr.get());
    next_file = UnicodeString((dir / "broken.avl").string());
    ASSERT_TRUE(input::click(button));
    EXPECT_EQ(messages, std::vector<std::wstring>{L"Error loading AVL"});
    messages.clear();
    EXPECT_EQ(fill_of(mngr.get()), before);
    EXPECT_TRUE(vx_stl_mngr_get_just_loaded(mngr.get()));
    EXPECT_EQ(taken_events(), 0);
    for (char const *typed : {"land", "land.txt", "land.avl", "SEA.AVL"}) {
        vx_stl_mngr_set_just_loaded(mngr.get(), false);
        next_file = UnicodeString((dir / typed).string());
        ASSERT_TRUE(input::click(button));
        EXPECT_EQ(fill_of(mngr.get()), vx_clr_init_rgb(9, 8, 7)) << typed;
        EXPECT_TRUE(vx_stl_mngr_get_just_loaded(mngr.get()));
        EXPECT_EQ(taken_events(), 1);
    }
    vx_stl_mngr_set_just_loaded(mngr.get(), false);
    accepts = false;
    ASSERT_TRUE(input::click(button));
    EXPECT_FALSE(vx_stl_mngr_get_just_loaded(mngr.get())) << "cancelled";
    EXPECT_EQ(taken_events(), 0);
}

TEST_F(shell, the_environment_is_the_program)
{
    std::vector<std::pair<int, std::wstring>> log; // by level: started; 100 + level: finished
    vx_dlg_table own = table;
    own.user = &log;
    own.message = [](void *user, HWND, Tvx_msg_kind kind, wchar_t const *text) {
        static_cast<decltype(log) *>(user)->emplace_back(200 + kind, text);
    };
    own.progress_start = [](void *user, HWND, int level, wchar_t const *caption) -> void * {
        static_cast<decltype(log) *>(user)->emplace_back(level, caption);
        return reinterpret_cast<void *>(std::intptr_t{level + 1});
    };
    own.progress_set = [](void *, void *, int, wchar_t const *) {};
    static bool stopped;
    stopped = false;
    own.progress_is_stopped = [](void *, void *) { return stopped; };
    own.progress_finish = [](void *user, void *progress) {
        static_cast<decltype(log) *>(user)->emplace_back(99 + reinterpret_cast<std::intptr_t>(progress), L"");
    };
    vx_dlg_set_table(&own);
    TCursor const cursor = Screen->GetCursor();
    {
        Tvx_vx2gp_env const env;
        gp_env_callbacks const calls = gp_env_main_get_env()->callbacks;
        calls.message(calls.object, "said");
        calls.error(calls.object, "failed");
        calls.debug_message(calls.object, "silent");
        calls.set_debug_flag(calls.object, true);
        calls.debug_message(calls.object, "found");
        ASSERT_EQ(log.size(), 3u);
        EXPECT_EQ(log[0], std::pair(200 + int(c_msg_message), std::wstring(L"said")));
        EXPECT_EQ(log[1], std::pair(200 + int(c_msg_error), std::wstring(L"failed")));
        EXPECT_EQ(log[2], std::pair(200 + int(c_msg_message), std::wstring(L"DEBUG: found")));
        log.clear();

        calls.wait_start(calls.object);
        calls.wait_start(calls.object);
        calls.wait_finish(calls.object);
        EXPECT_EQ(Screen->GetCursor(), crHourGlass);
        calls.wait_finish(calls.object);
        EXPECT_EQ(Screen->GetCursor(), cursor);

        EXPECT_FALSE(calls.stopped(calls.object)) << "nothing to stop";
        for (int round = 0; round < 2; ++round) { // one piece of work after the other
            stopped = false;
            int const first = calls.progress_start(calls.object, "main");
            int const second = calls.progress_start(calls.object, "part");
            calls.progress(calls.object, second, 50);
            EXPECT_FALSE(calls.stopped(calls.object));
            stopped = true;
            EXPECT_TRUE(calls.stopped(calls.object));
            calls.progress_finish(calls.object, second);
            EXPECT_TRUE(calls.stopped(calls.object)) << "the main one is asked";
            calls.progress_finish(calls.object, first);
            calls.progress_finish(calls.object, first);
            calls.progress(calls.object, 77, 50);
            EXPECT_EQ(log, (decltype(log){{0, L"main"}, {1, L"part"}, {101, L""}, {100, L""}}));
            log.clear();
        }
        calls.wait_start(calls.object);
        (void)calls.progress_start(calls.object, "left open");
    }
    EXPECT_EQ(log.back().first, 100) << "what was not ended ends with the environment";
    EXPECT_EQ(Screen->GetCursor(), cursor);
    vx_dlg_set_table(&table);
}
