#include "controls/vxk_basic_vcl.h"
#include "user_input/user_input.h"

#include "platform/toolkit/core/form.h"

#include <gtest/gtest.h>

namespace input = vx::user_input;

namespace {
/// A shown form to put controls on.
class panels : public testing::Test
{
protected:
    void SetUp() override
    {
        form.SetBounds(100, 100, 500, 400);
        form.Show();
        input::wait_idle();
    }
    template <class T>
    T *add(TWinControl *parent = nullptr)
    {
        auto *control = new T(&form);
        control->SetParent(parent ? parent : &form);
        return control;
    }
    void on_event(TObject *sender)
    {
        ++events;
        last_sender = sender;
    }
    closure<void(TObject *)> recorder() { return make_closure<&panels::on_event>(this); }

    TForm form{nullptr};
    int events = 0;
    TObject *last_sender = nullptr;
};

class sized_grid : public Tvx_custom_grid
{
public:
    using Tvx_custom_grid::Tvx_custom_grid;

protected:
    void DrawCell(int, int, TRect const &, TGridDrawState) override {}
};
} // namespace

TEST_F(panels, enables_everything_windowed_below)
{
    auto *panel = add<Tvx_children_enabled_panel>();
    auto *label = add<Tvx_label>(panel);
    auto *inner = add<Tvx_panel>(panel);
    auto *innermost = add<Tvx_children_enabled_panel>(inner);
    auto *edit = add<Tvx_edit>(innermost);
    for (bool const enabled : {false, true}) {
        panel->set_enabled(enabled);
        for (TControl const *control : {static_cast<TControl *>(label), static_cast<TControl *>(inner),
                                        static_cast<TControl *>(innermost), static_cast<TControl *>(edit)})
            EXPECT_EQ(control->GetEnabled(), enabled);
        EXPECT_TRUE(panel->GetEnabled());
    }
}

TEST_F(panels, bottom_buttons_close_up)
{
    struct
    {
        bool cancel, apply, help, save, load;
        int cancel_left, apply_left, help_left, save_left, load_left; // -1: not to be seen
    } const cases[] = {
        {true, true, true, true, true, 156, 84, 228, 2, 74},
        {true, true, false, true, false, 228, 156, -1, 2, -1},
        {true, true, false, false, true, 228, 156, -1, -1, 2},
        {false, true, false, false, false, -1, 228, -1, -1, -1},
        {false, true, true, false, false, -1, 156, 228, -1, -1},
        {false, false, true, true, true, -1, -1, 228, 2, 74},
    };
    auto *buttons = add<Tvx_vcl_bottom_buttons>();
    buttons->SetBounds(0, 0, 300, 30);
    buttons->create();
    EXPECT_TRUE(buttons->get_cancel_visible());
    EXPECT_TRUE(buttons->get_apply_visible());
    EXPECT_FALSE(buttons->get_help_visible() || buttons->get_save_visible() || buttons->get_load_visible());
    EXPECT_EQ(buttons->get_load_btn()->GetCaption(), L"Load");
    for (auto const &c : cases) {
        SCOPED_TRACE(&c - cases);
        buttons->set_cancel_visible(c.cancel);
        buttons->set_apply_visible(c.apply);
        buttons->set_help_visible(c.help);
        buttons->set_save_visible(c.save);
        buttons->set_load_visible(c.load);
        auto const expect = [](Tvx_vcl_button const *button, int left) {
            if (left < 0)
                return;
            EXPECT_EQ(button->GetBoundsRect(), Bounds(left, 2, 70, 26));
        };
        expect(buttons->get_cancel_btn(), c.cancel_left);
        expect(buttons->get_apply_btn(), c.apply_left);
        expect(buttons->get_help_btn(), c.help_left);
        expect(buttons->get_save_btn(), c.save_left);
        expect(buttons->get_load_btn(), c.load_left);
    }
    buttons->SetBounds(0, 0, 400, 40);
    EXPECT_EQ(buttons->get_help_btn()->GetLeft(), 328);
    EXPECT_EQ(buttons->get_help_btn()->GetTop(), 12);

    buttons->set_apply_visible(true);
    buttons->set_apply_focused(true);
    EXPECT_TRUE(buttons->get_apply_focused());
    buttons->set_apply_enabled(false);
    EXPECT_FALSE(buttons->get_apply_enabled());
    buttons->set_apply_focused(true);
    EXPECT_FALSE(buttons->get_apply_focused());
}

TEST_F(panels, select_box_goes_by_id)
{
    auto *box = add<Tvx_vcl_select_box_panel>();
    box->create();
    box->set_on_change(recorder());
    EXPECT_EQ(box->get_active_idx(), 0u);
    EXPECT_EQ(box->get_active_caption(), L"");
    box->add_item(L"nine", 9);
    EXPECT_EQ(box->get_active_idx(), 9u);
    box->add_item(L"four", 4);
    box->add_item(L"huge", 0xFFFFFFFFu);
    EXPECT_EQ(box->get_active_idx(), 9u) << "only the first item selects itself";

    unsigned id = 5;
    EXPECT_TRUE(box->find_str(L"huge", id));
    EXPECT_EQ(id, 0xFFFFFFFFu);
    EXPECT_FALSE(box->find_str(L"HUGE", id));
    EXPECT_EQ(id, 0xFFFFFFFFu);

    box->set_active_idx(4);
    EXPECT_EQ(box->get_active_caption(), L"four");
    box->set_item_captions(1, L"fourth");
    box->set_item_captions(0, L"ninth");
    box->set_item_captions(3, L"outside");
    EXPECT_EQ(box->get_active_idx(), 4u);
    EXPECT_EQ(box->get_active_caption(), L"fourth");
    EXPECT_EQ(box->get_item_captions(0), L"ninth");
    EXPECT_EQ(box->get_item_captions(3), L"");
    box->set_active_caption(L"ninth");
    EXPECT_EQ(box->get_active_idx(), 9u);
    box->set_active_idx(1);
    EXPECT_EQ(box->get_active_idx(), 0u) << "no item has this id";
    EXPECT_EQ(box->get_active_caption(), L"");
    EXPECT_EQ(events, 0);

    EXPECT_TRUE(input::choose_item(box->get_select_box(), L"huge"));
    EXPECT_EQ(box->get_active_idx(), 0xFFFFFFFFu);
    EXPECT_EQ(events, 1);
    EXPECT_EQ(last_sender, box);
    box->clear();
    EXPECT_EQ(box->get_active_idx(), 0u);
    box->add_item(L"new", 3);
    EXPECT_EQ(box->get_active_idx(), 3u);
}

TEST_F(panels, captions_lead_to_their_control)
{
    auto *text = add<Tvx_string_panel>();
    auto *combo = add<Tvx_combo_box_vert_panel>();
    auto *choice = add<Tvx_vcl_select_box_panel>();
    choice->create();
    auto const check = [](auto *panel, TWinControl *control) {
        panel->BringToFront();
        panel->set_caption(L"&Name");
        EXPECT_EQ(control->GetAccessibleName(), L"Name");
        EXPECT_TRUE(input::click(panel, 10, 10));
        EXPECT_TRUE(control->Focused());
        panel->SetVisible(false);
    };
    check(text, text->get_edit());
    check(combo, combo->get_combo_box());
    check(choice, choice->get_select_box());
}

TEST_F(panels, progress_is_held_between_its_ends)
{
    auto *panel = add<Tvx_vcl_progress_panel>();
    panel->create();
    panel->load_rc();
    struct
    {
        int set, shown;
    } const cases[] = {{150, 100}, {-1, 0}, {100, 100}, {42, 42}, {0, 0}};
    for (auto const &c : cases) {
        panel->set_progress(c.set);
        EXPECT_EQ(panel->get_progress(), c.shown);
    }
    EXPECT_FALSE(panel->get_stop());
    EXPECT_TRUE(input::click(panel->get_stop_btn()));
    EXPECT_TRUE(panel->get_stop());
    panel->set_all_visible(false);
    EXPECT_FALSE(panel->get_all_visible());
}

TEST_F(panels, wheel_moves_a_grid_by_one_row)
{
    auto const walk = [&](TCustomGrid &grid) {
        grid.SetBounds(0, 0, 200, 105);
        grid.SetRowCount(8);
        grid.SetFixedRows(2);
        int const last = 8 - grid.GetVisibleRowCount();
        ASSERT_GT(last, 3);
        EXPECT_EQ(grid.GetTopRow(), 2);
        input::wheel(&grid, 1);
        EXPECT_EQ(grid.GetTopRow(), 2);
        input::wheel(&grid, -1);
        EXPECT_EQ(grid.GetTopRow(), 3);
        for (int i = 0; i < 9; ++i)
            input::wheel(&grid, -1);
        EXPECT_EQ(grid.GetTopRow(), last);
        input::wheel(&grid, 1);
        EXPECT_EQ(grid.GetTopRow(), last - 1);
        EXPECT_EQ(grid.GetRow(), 2) << "the current cell moved";
        // A handler may do it in the grid's place.
        bool takes = false;
        grid.OnMouseWheelUp = {[](void *how, TObject *, TShiftState, TPoint const &, bool &handled) {
                                   handled = *static_cast<bool *>(how);
                               },
                               &takes};
        grid.OnMouseWheelDown = grid.OnMouseWheelUp;
        for (int const rows : {1, 0}) {
            input::wheel(&grid, 1);
            EXPECT_EQ(grid.GetTopRow(), last - 1 - rows);
            input::wheel(&grid, -1);
            EXPECT_EQ(grid.GetTopRow(), last - 1);
            takes = true;
        }
        grid.OnMouseWheelUp = grid.OnMouseWheelDown = {};
    };
    auto *custom = add<sized_grid>();
    EXPECT_TRUE(custom->GetShowHint());
    walk(*custom);
    custom->SetVisible(false);
    walk(*add<Tvx_string_grid>());
}

TEST_F(panels, modifier_keys_are_seen_in_events)
{
    auto *panel = add<Tvx_panel>();
    static std::string held;
    panel->OnClick = {[](void *, TObject *) {
                          held = std::string(vx_control_pressed() ? "c" : "") +
                                 (vx_alt_pressed() ? "a" : "") + (vx_shift_pressed() ? "s" : "");
                      },
                      nullptr};
    EXPECT_TRUE(input::click(panel, mbLeft, TShiftState{ssCtrl}));
    EXPECT_EQ(held, "c");
    EXPECT_TRUE(input::click(panel, mbLeft, TShiftState{ssShift, ssAlt}));
    EXPECT_EQ(held, "as");
    EXPECT_TRUE(input::click(panel));
    EXPECT_EQ(held, "");
}
