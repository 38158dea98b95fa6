#include "support.h"

#include "platform/basic/vx_fnt_type.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {
TEST(styles, manager_keys_are_known_in_both_forms_and_any_case)
{
    for (std::string const type : c_all_types) {
        std::string const mngr_key = type.substr(0, type.size() - 6) + "_mngr_style";
        std::string upper = mngr_key;
        for (char &c : upper)
            c = static_cast<char>(std::toupper(c));
        for (auto const &key : {type, mngr_key, upper}) {
            auto const mngr = make_mngr(key.c_str());
            ASSERT_TRUE(mngr) << key;
            EXPECT_EQ(vx_stl_mngr_get_style_type(mngr.get()), type);
            EXPECT_EQ(vx_stl_mngr_get_type(mngr.get()), mngr_key);
        }
    }
    for (char const *key : {"", "pnt", "pnt_style ", "slr"})
        EXPECT_FALSE(make_mngr(key)) << key;
    EXPECT_FALSE(make_mngr(nullptr));
}

/// Every style type has the styles it uses and no others.
TEST(styles, parameters_hold_the_styles_of_their_type)
{
    using getter = void *(*)(void *, bool);
    getter const clr = [](void *p, bool s) -> void * { return vx_stl_prm_get_clr_style_ptr(p, s); };
    struct
    {
        char const *type;
        getter own;
    } const table[] = {{"pnt_style", &vx_stl_prm_get_pnt_style_ptr},
                       {"pln_style", &vx_stl_prm_get_pln_style_ptr},
                       {"pgn_style", &vx_stl_prm_get_pgn_style_ptr},
                       {"clr_style", clr},
                       {"pnt3d_style", &vx_stl_prm_get_pnt3d_style_ptr},
                       {"pln3d_style", &vx_stl_prm_get_pln3d_style_ptr},
                       {"pgn3d_style", &vx_stl_prm_get_pgn3d_style_ptr},
                       {"txt_pnt_style", &vx_stl_prm_get_txt_pnt_style_ptr},
                       {"txt_pln_style", &vx_stl_prm_get_txt_pln_style_ptr},
                       {"txt_pgn_style", &vx_stl_prm_get_txt_pgn_style_ptr}};
    for (auto const &row : table) {
        owned_prm const prm(vx_stl_prm_create(row.type));
        for (auto const &other : table)
            EXPECT_EQ(other.own(prm.get(), false) != nullptr, row.own == other.own) << row.type << other.type;
        EXPECT_NE(row.own(prm.get(), false), row.own(prm.get(), true));
        EXPECT_EQ(row.own(prm.get(), true), row.own(prm.get(), true)) << "a handed out style moved";
    }
    owned_prm const grid(vx_stl_prm_create("grid1d_clr_style"));
    EXPECT_NE(vx_stl_prm_get_pln_style_ptr(grid.get(), false), nullptr);
}

TEST(styles, clone_is_equal_and_independent)
{
    for (char const *type : c_all_types) {
        owned_prm const prm(vx_stl_prm_create(type));
        vx_stl_prm_set_color(prm.get(), false, vx_clr_init_rgb(9, 8, 7));
        owned_prm const copy(vx_stl_prm_clone(prm.get()));
        EXPECT_TRUE(vx_stl_prm_equal(prm.get(), copy.get()));
        vx_stl_prm_set_color(copy.get(), false, vx_clr_init_rgb(1, 1, 1));
        EXPECT_FALSE(vx_stl_prm_equal(prm.get(), copy.get()));
        EXPECT_EQ(vx_stl_prm_get_color(prm.get(), false), vx_clr_init_rgb(9, 8, 7));
        // Writing the default back makes it equal to one that was never written.
        owned_prm const fresh(vx_stl_prm_create(type));
        vx_stl_prm_set_color(copy.get(), false, vx_stl_prm_get_color(fresh.get(), false));
        EXPECT_TRUE(vx_stl_prm_equal(fresh.get(), copy.get())) << type;
    }
}

TEST(styles, leading_colour_of_a_polygon_is_that_of_what_shows)
{
    owned_prm const prm(vx_stl_prm_create("pgn_style"));
    void *pgn = vx_stl_prm_get_pgn_style_ptr(prm.get(), false);
    auto const red = vx_clr_init_rgb(255, 0, 0);
    auto const green = vx_clr_init_rgb(0, 255, 0);
    auto const blue = vx_clr_init_rgb(0, 0, 255);
    vx_bpgn_style_set_color(vx_pgn_style_get_bpgn_style_ptr(pgn), red);
    vx_bpln_style_set_color(vx_pgn_style_get_bpln_style_ptr(pgn), green);
    vx_bpnt_style_set_color(vx_pgn_style_get_bpnt_style_ptr(pgn), blue);
    struct
    {
        bool pgn, pln, pnt;
        Tvx_color leader;
    } const table[] = {{true, true, true, red},    {false, true, true, green}, {false, false, true, blue},
                       {false, false, false, red}, {true, false, false, red},  {false, true, false, green}};
    for (auto const &row : table) {
        vx_pgn_style_set_pgn_visible(pgn, row.pgn);
        vx_pgn_style_set_pln_visible(pgn, row.pln);
        vx_pgn_style_set_pnt_visible(pgn, row.pnt);
        EXPECT_EQ(vx_stl_prm_get_color(prm.get(), false), row.leader);
    }
    vx_stl_prm_clr_set_all(prm.get(), vx_clr_init_rgb(5, 6, 7), false);
    EXPECT_EQ(vx_bpln_style_get_color(vx_pgn_style_get_bpln_style_ptr(pgn)), vx_clr_init_rgb(5, 6, 7));
    EXPECT_EQ(vx_bpnt_style_get_color(vx_pgn_style_get_bpnt_style_ptr(pgn)), vx_clr_init_rgb(5, 6, 7));
}

TEST(styles, complex_style_leads_while_it_is_used_and_the_plain_values_come_back)
{
    owned_prm const prm(vx_stl_prm_create("pnt_style"));
    void *bpnt = vx_pnt_style_get_bpnt_style_ptr(vx_stl_prm_get_pnt_style_ptr(prm.get(), false));
    vx_bpnt_style_set_color(bpnt, vx_clr_init_rgb(1, 1, 1));
    vx_bpnt_style_set_size(bpnt, 3);
    vx_bpnt_style_set_use_complex(bpnt, true);
    EXPECT_EQ(vx_stl_prm_get_color(prm.get(), false), vx_clr_init_rgb(1, 1, 1))
        << "no layers, nothing to lead";
    void *lrs = vx_cpx_style_get_style_lrs_ptr(vx_bpnt_style_get_complex_style(bpnt));
    void *lower = vx_style_lrs_add_lr(lrs, "PNT_FIGR_SLR");
    void *upper = vx_style_lrs_add_lr(lrs, "pnt_symb_slr");
    ASSERT_TRUE(lower && upper);
    vx_pnt_figr_lr_set_color(lower, vx_clr_init_rgb(2, 2, 2));
    vx_pnt_figr_lr_set_size_x(lower, 4);
    vx_pnt_figr_lr_set_size_y(lower, 2);
    vx_pnt_symb_lr_set_size(upper, 8);
    EXPECT_EQ(vx_stl_prm_get_color(prm.get(), false), vx_clr_init_rgb(2, 2, 2));
    EXPECT_DOUBLE_EQ(vx_stl_prm_get_size(prm.get(), false), 4);
    vx_stl_prm_set_size(prm.get(), false, 2);
    EXPECT_DOUBLE_EQ(vx_pnt_figr_lr_get_size_y(lower), 1);
    EXPECT_DOUBLE_EQ(vx_pnt_symb_lr_get_size(upper), 4);
    vx_bpnt_style_set_use_complex(bpnt, false);
    EXPECT_DOUBLE_EQ(vx_stl_prm_get_size(prm.get(), false), 3);
}

TEST(styles, a_complex_style_takes_the_layers_of_its_kind_only)
{
    char const *const keys[] = {"pnt_figr_slr", "pnt_geom_slr", "pnt_symb_slr", "pnt_text_slr",
                                "pln_line_slr", "pln_tplt_slr", "pln_cart_slr", "pgn_fill_slr",
                                "pgn_htch_slr", "pgn_spot_slr"};
    vx::owned<void, &vx_cpx_pnt_style_destroy> const pnt(vx_cpx_pnt_style_create());
    vx::owned<void, &vx_cpx_pln_style_destroy> const pln(vx_cpx_pln_style_create());
    vx::owned<void, &vx_cpx_pgn_style_destroy> const pgn(vx_cpx_pgn_style_create());
    for (void *style : {pnt.get(), pln.get(), pgn.get()}) {
        std::string const type = vx_cpx_style_get_type(style);
        void *lrs = vx_cpx_style_get_style_lrs_ptr(style);
        for (std::string const key : keys) {
            void *lr = vx_style_lrs_add_lr(lrs, key.c_str());
            EXPECT_EQ(lr != nullptr, key.substr(0, 3) == type.substr(0, 3)) << type << key;
            if (lr) {
                EXPECT_EQ(vx_style_lr_get_type(lr), key);
            }
        }
        EXPECT_EQ(vx_style_lrs_add_lr(lrs, "no_such_slr"), nullptr);
        EXPECT_EQ(vx_style_lrs_add_lr(lrs, nullptr), nullptr);
    }
    vx_cpx_style_assign(pln.get(), pgn.get());
    EXPECT_EQ(vx_style_lrs_get_size(pln.get()), 0u) << "foreign layers came over";
}

TEST(styles, layers_move_and_keep_their_address_through_an_assignment_of_nested_styles)
{
    vx::owned<void, &vx_cpx_pgn_style_destroy> const a(vx_cpx_pgn_style_create());
    void *htch = vx_style_lrs_add_lr(a.get(), "pgn_htch_slr");
    void *fill = vx_style_lrs_add_lr(a.get(), "pgn_fill_slr");
    void *spot = vx_style_lrs_add_lr(a.get(), "pgn_spot_slr");
    vx_style_lrs_move_lr(a.get(), 0, 2);
    EXPECT_EQ(vx_style_lrs_get_lr_ptr(a.get(), 0), fill);
    EXPECT_EQ(vx_style_lrs_get_lr_ptr(a.get(), 1), spot);
    EXPECT_EQ(vx_style_lrs_get_lr_ptr(a.get(), 2), htch);
    vx_style_lrs_move_lr(a.get(), 2, 3);
    EXPECT_EQ(vx_style_lrs_get_lr_ptr(a.get(), 2), htch);

    void *inner = vx_pgn_htch_lr_get_cpx_pln_style_ptr(htch);
    ASSERT_NE(inner, nullptr);
    EXPECT_STREQ(vx_cpx_style_get_type(inner), "pln_style");
    vx_pln_tplt_lr_set_template(vx_style_lrs_add_lr(inner, "pln_tplt_slr"), "1024");
    vx::owned<void, &vx_cpx_pgn_style_destroy> const b(vx_cpx_pgn_style_create());
    void *other = vx_style_lrs_add_lr(b.get(), "pgn_htch_slr");
    void *other_inner = vx_pgn_htch_lr_get_cpx_pln_style_ptr(other);
    vx_style_lr_assign(other, htch);
    EXPECT_TRUE(vx_style_lr_equal(other, htch));
    EXPECT_EQ(vx_pgn_htch_lr_get_cpx_pln_style_ptr(other), other_inner) << "an editor holds this pointer";
    EXPECT_STREQ(vx_pln_tplt_lr_get_template(vx_style_lrs_get_lr_ptr(other_inner, 0)), "1024");
    vx_style_lr_assign(other, fill);
    EXPECT_STREQ(vx_style_lr_get_type(other), "pgn_htch_slr");
    // A style may be given what is nested in it.
    vx_cpx_style_assign(inner, inner);
    EXPECT_EQ(vx_style_lrs_get_size(inner), 1u);
}

TEST(styles, layer_functions_keep_to_their_key)
{
    vx::owned<void, &vx_cpx_pnt_style_destroy> const style(vx_cpx_pnt_style_create());
    void *symb = vx_style_lrs_add_lr(style.get(), "pnt_symb_slr");
    vx_pnt_figr_lr_set_size_x(symb, 99);
    EXPECT_EQ(vx_pnt_figr_lr_get_size_x(symb), 0);
    EXPECT_EQ(vx_pln_tplt_lr_get_cpx_pnt_style_ptr(symb), nullptr);
    double const size = vx_pnt_symb_lr_get_size(symb);
    for (double const bad : {std::nan(""), std::numeric_limits<double>::infinity()}) {
        vx_pnt_symb_lr_set_size(symb, bad);
        EXPECT_EQ(vx_pnt_symb_lr_get_size(symb), size);
    }
    vx_fnt_type_set_wname(vx_pnt_symb_lr_get_fnt_type_ptr(symb), L"Symbola");
    EXPECT_STREQ(vx_fnt_type_get_wname_ptr(vx_pnt_symb_lr_get_fnt_type_ptr(symb)), L"Symbola");
}

TEST(styles, text_lines)
{
    vx::owned<void, &vx_txt_style_destroy> const style(vx_txt_style_create());
    void *lines = vx_txt_style_get_txt_stl_line(style.get());
    vx_txt_stl_line_add(lines, 2);
    vx_txt_stl_line_set_str(lines, L"NAME", 1);
    vx_txt_stl_line_set_str(lines, L"lost", 2);
    EXPECT_EQ(vx_txt_stl_line_count(lines), 2u);
    EXPECT_EQ(text_from([&](Ivx_string_adp *adp) { vx_txt_stl_line_get_str(lines, adp, 1); }), L"NAME");
    EXPECT_EQ(text_from([&](Ivx_string_adp *adp) { vx_txt_stl_line_get_str(lines, adp, 2); }), L"");
    vx_txt_stl_line_del(lines, 0);
    EXPECT_EQ(text_from([&](Ivx_string_adp *adp) { vx_txt_stl_line_get_str(lines, adp, 0); }), L"NAME");

    auto const mngr = make_mngr("txt_pln_mngr_style");
    vx_txt_stl_mngr_init(mngr.get(), L"STREET");
    void *simple = vx_stl_prm_get_txt_pln_style_ptr(vx_stl_mngr_get_simple_sp_ptr(mngr.get()), false);
    lines = vx_txt_style_get_txt_stl_line(simple);
    ASSERT_EQ(vx_txt_stl_line_count(lines), 1u);
    EXPECT_EQ(text_from([&](Ivx_string_adp *adp) { vx_txt_stl_line_get_str(lines, adp, 0); }), L"STREET");
}

TEST(styles, manager_copies_hold_all_of_it)
{
    auto const a = make_mngr("pgn_style");
    vx_stl_mngr_set_mode(a.get(), 2);
    vx_stl_mngr_set_name_w(a.get(), L"Сёла");
    vx_stl_mngr_set_rng_prop_name_w(a.get(), L"AREA");
    vx_stl_mngr_set_val_prop_name_w(a.get(), L"Имя");
    vx_stl_mngr_set_rotate_prop_name(a.get(), "ANGLE");
    vx_stl_mngr_set_rotate_start(a.get(), 3);
    vx_stl_mngr_set_rotate_start(a.get(), 4);
    vx_stl_mngr_set_rotate_dir(a.get(), 1);
    vx_stl_mngr_set_rotate_dir(a.get(), -1);
    EXPECT_EQ(vx_stl_mngr_get_rotate_start(a.get()), 3);
    EXPECT_EQ(vx_stl_mngr_get_rotate_dir(a.get()), 1);
    EXPECT_STREQ(vx_stl_mngr_get_val_prop_name(a.get()), "Имя");
    void *rng = vx_stl_mngr_get_rng_scale_ptr(a.get());
    vx_rng_scale_set_size(rng, 3);
    vx_stl_prm_set_color(rng_row_prm(rng, 2), false, vx_clr_init_rgb(3, 2, 1));
    vx_val_scale_set_size(vx_stl_mngr_get_rule_scale_ptr(a.get()), 2);

    owned_mngr const b(vx_stl_mngr_clone(a.get()));
    EXPECT_TRUE(vx_stl_mngr_equal(a.get(), b.get()));
    vx_stl_prm_set_color(rng_row_prm(vx_stl_mngr_get_rng_scale_ptr(b.get()), 2), false,
                         vx_clr_init_rgb(0, 0, 0));
    EXPECT_FALSE(vx_stl_mngr_equal(a.get(), b.get()));
    EXPECT_EQ(vx_stl_prm_get_color(rng_row_prm(rng, 2), false), vx_clr_init_rgb(3, 2, 1));
    auto const c = make_mngr("pnt_style");
    vx_stl_mngr_assign(c.get(), a.get());
    EXPECT_TRUE(vx_stl_mngr_equal(a.get(), c.get()));
}

TEST(styles, manager_lists_keep_one_manager_and_an_active_one)
{
    vx::owned<void, &vx_stl_mngr_list_destroy> const list(vx_stl_mngr_list_create("pln_style"));
    EXPECT_EQ(vx_stl_mngr_list_get_count(list.get()), 1u);
    EXPECT_FALSE(vx_stl_mngr_list_can_erase(list.get(), 0));
    vx_stl_mngr_list_erase_by_idx(list.get(), 0);
    EXPECT_EQ(vx_stl_mngr_list_get_count(list.get()), 1u);
    void *first = vx_stl_mngr_list_get_mngr(list.get(), 0);
    void *second = vx_stl_mngr_list_add(list.get());
    void *third = vx_stl_mngr_list_add(list.get());
    EXPECT_EQ(vx_stl_mngr_list_get_active_mngr(list.get()), first);
    vx_stl_mngr_list_set_active_by_mngr(list.get(), third);
    vx_stl_mngr_list_erase_by_idx(list.get(), 0);
    EXPECT_EQ(vx_stl_mngr_list_get_active_mngr(list.get()), third)
        << "the active manager moved with its place";
    vx_stl_mngr_list_erase_by_idx(list.get(), 1);
    EXPECT_EQ(vx_stl_mngr_list_get_active_mngr(list.get()), second);
    vx_stl_mngr_list_set_active_by_idx(list.get(), 7);
    EXPECT_EQ(vx_stl_mngr_list_get_active_idx(list.get()), 0u);
    EXPECT_FALSE(vx_stl_mngr_list_can_erase(list.get(), 0));
}
} // namespace
