#include "cpx_form.h"
#include "styles/complex/cpx_styles_form.h"
#include "styles/simple/bpgn_edit.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/storage/vx_xml_data.h"
#include "platform/styles/vxk_styles.h"

namespace input = vx::user_input;

namespace {
Tvx_cpx_style_panel *panel_of(input::modal_window const &window)
{
    return dynamic_cast<Tvx_cpx_styles_form &>(*window.form()).get_panel();
}

template <class Edit>
Edit *edit_in(Tvx_cpx_style_panel *panel, char const *key)
{
    return dynamic_cast<Edit *>(panel->get_layer_panel()->get_edit()->find_edit(key));
}

Tvx_cpx_layers_grid *list_of(Tvx_cpx_style_panel *panel)
{
    return panel->get_layers_panel()->get_edit()->get_grid();
}

/// A polygon style with a hatch of template lines with symbols: three complex styles, one in the other.
class cpx_dialog : public prop_form
{
protected:
    void SetUp() override
    {
        prop_form::SetUp();
        edit = add<Tvx_bpgn_edit>(120);
        edit->load_res();
        void *const base = vx_pgn_style_get_bpgn_style_ptr(style.get());
        vx_bpgn_style_set_use_complex(base, true);
        void *const layers = vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(base));
        void *const hatch = vx_style_lrs_add_lr(layers, c_pgn_htch_style_lr);
        void *const line = vx_style_lrs_add_lr(
            vx_cpx_style_get_style_lrs_ptr(vx_pgn_htch_lr_get_cpx_pln_style_ptr(hatch)), c_pln_tplt_style_lr);
        vx_pln_tplt_lr_set_template(line, "014");
        (void)vx_style_lrs_add_lr(vx_cpx_style_get_style_lrs_ptr(vx_pln_tplt_lr_get_cpx_pnt_style_ptr(line)),
                                  c_pnt_symb_style_lr);
        edit->set_bpgn_style(base);
        edit->update_controls();
        edit->on_changed = recorder();
        input::wait_idle();
    }
    /// The style of the editor as it is saved.
    std::string saved()
    {
        vx_bpgn_style_assign(vx_pgn_style_get_bpgn_style_ptr(style.get()), edit->get_bpgn_style());
        vx_test::temp_dir const dir;
        std::filesystem::path const file = dir / "style";
        EXPECT_TRUE(vx_xml_save_style_save_style_pgn_file(file.wstring().c_str(), style.get()));
        return vx_test::read_file(file);
    }
    /// Changes something in each of the three dialogs; the first `accepted` from within end with Apply.
    void work_through(int accepted)
    {
        auto const end = [](input::modal_window const &window, bool accept) {
            EXPECT_TRUE(window.press_button(accept ? L"Apply" : L"Cancel"));
        };
        input::on_next_modal([=](input::modal_window const &outer) {
            auto *const hatches = panel_of(outer);
            auto *const hatch = edit_in<Tvx_cpx_pgn_htch_edit>(hatches, c_pgn_htch_style_lr);
            input::on_next_modal([=](input::modal_window const &middle) {
                auto *const lines = panel_of(middle);
                auto *const line = edit_in<Tvx_cpx_pln_tplt_edit>(lines, c_pln_tplt_style_lr);
                input::on_next_modal([=](input::modal_window const &inner) {
                    auto *const points = panel_of(inner);
                    auto *const symbol = edit_in<Tvx_cpx_pnt_symb_edit>(points, c_pnt_symb_style_lr);
                    EXPECT_TRUE(input::enter_text(symbol->get_size()->get_edit(), L"7.75"));
                    EXPECT_TRUE(insert(list_of(points), L"Figure"));
                    end(inner, accepted > 0);
                });
                EXPECT_TRUE(input::click(line->get_point_style()->get_button()));
                EXPECT_TRUE(input::enter_text(line->get_dash()->get_edit(), L"3.25"));
                EXPECT_TRUE(insert(list_of(lines), L"Plain line"));
                end(middle, accepted > 1);
            });
            EXPECT_TRUE(input::click(hatch->get_line_style()->get_button()));
            EXPECT_TRUE(input::enter_text(hatch->get_angle()->get_edit(), L"30"));
            EXPECT_TRUE(insert(list_of(hatches), L"Fill"));
            EXPECT_TRUE(choose(list_of(hatches), 1) && remove(list_of(hatches)));
            end(outer, accepted > 2);
        });
        EXPECT_TRUE(input::click(edit->get_cpx_panel()->get_button()));
    }
    [[nodiscard]] void *hatch() const
    {
        return vx_style_lrs_get_lr_ptr(
            vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(edit->get_bpgn_style())), 0);
    }

    vx::owned<void, &vx_pgn_style_destroy> style{vx_pgn_style_create()};
    Tvx_bpgn_edit *edit = nullptr;
};
} // namespace

TEST_F(cpx_dialog, cancel_at_any_depth_leaves_the_style_byte_for_byte)
{
    std::string const before = saved();
    for (int const accepted : {0, 1, 2}) {
        work_through(accepted);
        EXPECT_EQ(taken_events(), 0) << accepted;
        EXPECT_EQ(saved(), before) << accepted << " of the nested dialogs were accepted";
    }
    work_through(3);
    EXPECT_EQ(taken_events(), 1);
    EXPECT_NE(saved(), before);
    EXPECT_EQ(vx_pgn_htch_lr_get_angle(hatch()), 30);
    void *const lines = vx_cpx_style_get_style_lrs_ptr(vx_pgn_htch_lr_get_cpx_pln_style_ptr(hatch()));
    ASSERT_EQ(vx_style_lrs_get_size(lines), 2u);
    void *const line = vx_style_lrs_get_lr_ptr(lines, 0);
    EXPECT_EQ(vx_pln_tplt_lr_get_dash(line), 3.25);
    void *const points = vx_cpx_style_get_style_lrs_ptr(vx_pln_tplt_lr_get_cpx_pnt_style_ptr(line));
    ASSERT_EQ(vx_style_lrs_get_size(points), 2u);
    EXPECT_EQ(vx_pnt_symb_lr_get_size(vx_style_lrs_get_lr_ptr(points, 0)), 7.75);

    // Accepted without a change.
    std::string const after = saved();
    input::on_next_modal([](input::modal_window const &window) { window.press_button(L"Apply"); });
    ASSERT_TRUE(input::click(edit->get_cpx_panel()->get_button()));
    EXPECT_EQ(saved(), after);
    input::on_next_modal([](input::modal_window const &window) { input::close(window.form()); });
    taken_events();
    ASSERT_TRUE(input::click(edit->get_cpx_panel()->get_button()));
    EXPECT_EQ(taken_events(), 0);
}
