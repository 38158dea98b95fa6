#include "value_table.h"

namespace {
class val_exec : public value_table
{
protected:
    /// Runs a mode on what the dialog would have listed.
    void run(int mode, char const *capt_field = "Code")
    {
        params.set_stl_mngr(mngr.get());
        params.set_mode(mode);
        params.get_rebuild_params_ptr()->set_capt_propname(capt_field);
        params.get_modify_params_ptr()->set_capt_propname(capt_field);
        EXPECT_EQ(Tvx_val_exec::execute(&params, data()), 0);
    }
    void list_values() { Tvx_val_statistic_calc::execute(params.get_statistic_ptr(), mngr.get(), data()); }
    /// "<a><b>..." of what the data hold.
    std::string values(bool &is_read)
    {
        Tvx_val_statistic found;
        is_read = Tvx_val_statistic_calc::execute(&found, mngr.get(), data());
        std::string result;
        for (char const *text = found.get_first(); text; text = found.get_next())
            result += "<" + std::string(text) + ">";
        return result;
    }
    void run_legend(std::string const &file, bool first = true, bool second = true, bool third = true)
    {
        auto &p = *params.get_rebuild_with_legend_params_ptr();
        p.set_legdbf_filename(file);
        p.set_lcode_propname("l_code");
        p.set_bcode_propname("B_Code");
        p.set_capt1_flag(first);
        p.set_capt2_flag(second);
        p.set_capt3_flag(third);
        p.set_capt1_propname("TEXT1");
        p.set_capt2_propname("TEXT2");
        p.set_capt3_propname("TEXT3");
        run(c_val_builder_rebuild_with_legend);
    }

    Tvx_val_params params;
};
} // namespace

TEST_F(val_exec, reads_what_the_data_hold)
{
    rows = {{{"b ", "x"}}, {{" a\t", "y"}}, {{std::nullopt, "z"}}, {{"", "w"}}, {{"b", "v"}}, {{"Ж", "u"}}};
    bool is_read = false;
    EXPECT_EQ(values(is_read), "<><a><b><Ж>") << "a blank text is a value, a cell without one is none";
    EXPECT_TRUE(is_read);

    struct
    {
        char const *what;
        wchar_t const *field;
        bool has_data;
        int stop_after;
    } const refusals[] = {{"no such field", L"LENGTH", true, 10'000},
                          {"no data", L"code", false, 10'000},
                          {"stopped", L"code", true, 200}};
    rows.resize(1000, rows.front());
    for (auto const &refusal : refusals) {
        vx_stl_mngr_set_val_prop_name_w(mngr.get(), refusal.field);
        has_data = refusal.has_data;
        stop_after = refusal.stop_after;
        EXPECT_EQ(values(is_read), "") << refusal.what;
        EXPECT_FALSE(is_read) << refusal.what;
    }
    auto without_cells = data();
    without_cells.get_str = {};
    Tvx_val_statistic found;
    EXPECT_FALSE(Tvx_val_statistic_calc::execute(&found, mngr.get(), without_cells));
    EXPECT_FALSE(Tvx_val_statistic_calc::execute(&found, nullptr, data()));
}

TEST_F(val_exec, asks_once_whether_so_many_values_are_wanted)
{
    auto const fill_rows = [this](int count) {
        rows.clear();
        for (int i = 0; i < count; ++i)
            rows.push_back({std::to_string(5000 - i), "n"});
    };
    struct
    {
        int rows;
        bool yes;
        int listed, listed_questions;
        int built, built_questions;
    } const cases[] = {
        {999, false, 999, 0, 999, 0},
        {1000, false, 1000, 1, 1000, 0}, // the one asks with the last, the other before the next
        {1001, false, 1000, 1, 1000, 1},
        {3000, true, 3000, 1, 3000, 1}};
    for (auto const &c : cases) {
        SCOPED_TRACE(c.rows);
        fill_rows(c.rows);
        says_yes = c.yes;
        questions = 0;
        list_values();
        EXPECT_EQ(params.get_statistic_ptr()->get_size(), static_cast<unsigned>(c.listed));
        EXPECT_EQ(questions, c.listed_questions);
        questions = 0;
        run(c_val_builder_rebuild);
        EXPECT_EQ(vx_val_scale_get_size(scale()), static_cast<unsigned>(c.built));
        EXPECT_EQ(questions, c.built_questions);
        if (c.listed == 1000) {
            // The first ones of the data, in the order of texts.
            EXPECT_STREQ(params.get_statistic_ptr()->get_first(), "4001");
            EXPECT_EQ(entries().substr(0, 9), "4001=4001");
        }
    }
}

TEST_F(val_exec, rebuilds_from_the_data)
{
    rows = {{{"1.0", "one"}},
            {{"1", " uno "}},
            {{"1.00", std::nullopt}},
            {{"1", "again"}},
            {{std::nullopt, "x"}}};
    fill({{"1", "former"}, {"old", "entry"}});
    Tvx_color const blank = color(0);
    vx_stl_prm_set_color(style_prm(0), false, c_navy);
    vx_val_scale_set_marked(scale(), 0, true);
    vx_scale_prm_set_visible(vx_val_scale_get_scale_prm_ptr(scale(), 0), false);
    run(c_val_builder_rebuild, "name");
    EXPECT_EQ(entries(), "1=uno|1.0=one|1.00=?") << "compared as texts; the first object gives the caption";
    EXPECT_EQ(color(0), blank) << "nothing stays by accident";
    EXPECT_EQ(vx_val_scale_get_marked_count(scale()), 0U);
    EXPECT_TRUE(vx_scale_prm_get_visible(vx_val_scale_get_scale_prm_ptr(scale(), 0)));
    run(c_val_builder_rebuild);
    EXPECT_EQ(entries(), "1=1|1.0=1.0|1.00=1.00");
    for (char const *const field : {"LENGTH", "name"}) {
        has_data = field[0] == 'L';
        run(c_val_builder_rebuild, field);
        EXPECT_EQ(entries(), "") << "what cannot be read leaves no entries";
        fill({{"old", "entry"}});
    }
    run(77);
    EXPECT_EQ(entries(), "old=entry") << "no mode";
}

TEST_F(val_exec, a_reading_that_is_stopped_leaves_the_scale)
{
    for (int i = 0; i < 500; ++i)
        rows.push_back({std::to_string(i), "n"});
    list_values();
    params.get_modify_params_ptr()->set_del_flag(true);
    params.get_modify_params_ptr()->set_capt_flag(true);
    fill({{"old", "entry"}});
    vx_val_scale_set_marked(scale(), 0, true);
    stop_after = cells_read + 100;
    for (int const mode : {c_val_builder_rebuild, c_val_builder_rebuild_with_legend, c_val_builder_modify}) {
        run(mode, "name");
        EXPECT_EQ(entries(), "old=entry") << mode;
        EXPECT_TRUE(vx_val_scale_get_marked(scale(), 0)) << mode;
    }
}

TEST_F(val_exec, brings_up_to_date)
{
    code_is_numeric = true;
    rows = {{{"2", "two"}}, {{"3", " three"}}, {{"1", "one"}}};
    list_values();
    auto &p = *params.get_modify_params_ptr();
    struct
    {
        bool add, del, capt;
        char const *result;
    } const cases[] = {
        {false, false, false, "9=nine|1.0=first| 2 =second"},
        {true, false, false, "9=nine|1.0=first| 2 =second|1=1|3=3"},
        {false, true, false, " 2 =second"},
        {true, true, false, " 2 =second|1=1|3=3"},
        {false, false, true, "9=nine|1.0=one| 2 =two"}, // by the number where not by the text
        {true, true, true, " 2 =two|1=one|3=three"},
    };
    for (auto const &c : cases) {
        fill({{"9", "nine"}, {"1.0", "first"}, {" 2 ", "second"}});
        vx_stl_prm_set_color(style_prm(2), false, c_navy);
        p.set_add_flag(c.add);
        p.set_del_flag(c.del);
        p.set_capt_flag(c.capt);
        run(c_val_builder_modify, "name");
        EXPECT_EQ(entries(), c.result);
        EXPECT_EQ(color(c.del ? 0 : 2), c_navy) << "what stays keeps its style";
    }
    // A text that is a number finds none among texts; a field that is not there changes no caption.
    code_is_numeric = false;
    fill({{"1.0", "first"}, {"1", "second"}});
    run(c_val_builder_modify, "name");
    EXPECT_EQ(entries(), "1=one|2=two|3=three");
    p.set_add_flag(false);
    run(c_val_builder_modify, "LENGTH");
    EXPECT_EQ(entries(), "1=one|2=two|3=three");
}

TEST_F(val_exec, builds_by_a_legend)
{
    rows = {{{"7", "a"}}, {{"07", "b"}}, {{"12", "c"}}, {{"-1", "d"}}, {{"0", "f"}}, {{"3", "e"}}};
    auto const file = legend({{"12", "7", "Road", "main", "x"},
                              {"3", "9", " A", "", "C"},
                              {"99", "7", "not there", "", ""},
                              {"7", "7", "", "", ""},
                              {"12", "5", "Again", "", ""},
                              {"", "8", "No code", "", ""}});
    run_legend(file);
    EXPECT_EQ(entries(), "12=Roadmainx|3=AC|7=|12=Again|-1=No code");
    run_legend(file, true, false, false);
    EXPECT_EQ(entries(), "12=Road|3=A|7=|12=Again|-1=No code");
    run_legend(file, false, false, false);
    EXPECT_EQ(entries(), "12=|3=|7=|12=|-1=");

    // Symbol 7 stands in three rows, the second of which the data do not have: steps 0 and 2 of 3.
    vx::owned<void, &vx_pnt_style_destroy> const step(vx_pnt_style_create());
    for (auto const &[entry, position] : {std::pair{0U, 0U}, std::pair{2U, 2U}}) {
        ASSERT_TRUE(vx_global_lib_styles_get_spec_pnt_gradient(0, 7, position, 3, step.get()));
        EXPECT_EQ(color(entry), vx_bpnt_style_get_color(vx_pnt_style_get_bpnt_style_ptr(step.get())));
    }
    EXPECT_NE(color(0), color(2));
    EXPECT_EQ(color(1), c_navy) << "a symbol of one row comes as it is";
    // Neither a code that the library lacks nor one of another kind gives a style.
    vx::owned<void, &vx_pnt_style_destroy> const blank(vx_pnt_style_create());
    auto const blank_color = vx_bpnt_style_get_color(vx_pnt_style_get_bpnt_style_ptr(blank.get()));
    EXPECT_EQ(color(3), blank_color);
    EXPECT_EQ(color(4), blank_color);

    // The first kind that has the symbol decides: 9 is a point, and gives areas nothing.
    set_style("pgn_style");
    run_legend(file);
    EXPECT_EQ(entries(), "12=Roadmainx|3=AC|7=|12=Again|-1=No code");
    Tvx_stdleg_items items;
    Tvx_stdleg_load_dbf().execute(&items, file.c_str(), "L_CODE", "b_code", true, false, false, "TEXT1", "",
                                  "", 0);
    std::string kinds;
    for (unsigned i = 0; i < items.get_size(); ++i) {
        auto const *const item = items.get_ptr(i);
        EXPECT_TRUE(item->get_marked());
        kinds += std::to_string(item->get_order()) + ":" + std::to_string(item->get_lcode()) + "/" +
                 std::to_string(item->get_bcode()) + "/" + std::to_string(item->get_style_type()) + " ";
    }
    EXPECT_EQ(kinds, "1:12/7/1 2:3/9/1 3:99/7/1 4:7/7/1 5:12/5/0 6:-1/8/3 ");

    // Without a field of codes only "-1" is found; without a file nothing is.
    run_legend(legend({{"12", "7", "A", "B", "C"}}, {"X", "B_CODE", "TEXT1", "TEXT2", "T"}));
    EXPECT_EQ(entries(), "-1=AB");
    fill({{"old", "entry"}});
    run_legend((dir / "missing.dbf").string());
    EXPECT_EQ(entries(), "");
}
