#pragma once

#include "styles/complex/cpx_style_panel.h"
#include "tests/controls/prop/prop_form.h"

#include "platform/styles/vx_style_keys.h"

#include <string>
#include <vector>

/// The editor of a complex style on a form, as its dialog shows it.
class cpx_form : public prop_form
{
protected:
    void SetUp() override
    {
        prop_form::SetUp();
        form.SetBounds(100, 100, 640, 460);
    }
    enum kind
    {
        points,
        lines,
        areas
    };
    /// Of layers with default values.
    Tvx_cpx_style_panel *show(kind k, std::vector<char const *> const &keys)
    {
        delete panel;
        panel = new Tvx_cpx_style_panel(&form);
        panel->SetParent(&form);
        panel->SetAlign(alClient);
        panel->load_res();
        if (k == points)
            panel->set_cpx_pnt_style(nullptr);
        else if (k == lines)
            panel->set_cpx_pln_style(nullptr);
        else
            panel->set_cpx_pgn_style(nullptr);
        for (char const *key : keys)
            EXPECT_NE(vx_style_lrs_add_lr(layers(), key), nullptr);
        panel->update_controls();
        vx::user_input::wait_idle();
        return panel;
    }
    [[nodiscard]] void *layers() const { return vx_cpx_style_get_style_lrs_ptr(panel->get_style()); }
    [[nodiscard]] void *layer(unsigned index = 0) const { return vx_style_lrs_get_lr_ptr(layers(), index); }
    [[nodiscard]] std::string keys() const
    {
        std::string all;
        for (unsigned i = 0; i < vx_style_lrs_get_size(layers()); ++i)
            all += std::string(i ? " " : "") + vx_style_lr_get_type(layer(i));
        return all;
    }
    [[nodiscard]] Tvx_cpx_layers_grid *list() const
    {
        return panel->get_layers_panel()->get_edit()->get_grid();
    }
    /// The editor that is seen; null for none.
    [[nodiscard]] Tvx_cpx_basic_edit *shown_edit() const
    {
        Tvx_cpx_basic_edit *shown = nullptr;
        for (char const *key :
             {c_pnt_symb_style_lr, c_pnt_figr_style_lr, c_pln_line_style_lr, c_pln_tplt_style_lr,
              c_pgn_fill_style_lr, c_pgn_htch_style_lr, c_pgn_spot_style_lr})
            if (auto *const edit = edit_of(key); edit->GetShowing()) {
                EXPECT_EQ(shown, nullptr) << "two editors are seen";
                shown = edit;
            }
        return shown;
    }
    [[nodiscard]] Tvx_cpx_basic_edit *edit_of(char const *key) const
    {
        return panel->get_layer_panel()->get_edit()->find_edit(key);
    }
    template <class Edit>
    [[nodiscard]] Edit *edit() const
    {
        return dynamic_cast<Edit *>(shown_edit());
    }

    Tvx_cpx_style_panel *panel = nullptr;
};

/// Clicks a command of a list, and an item of the menu that it opens if there is one.
inline bool command(Tvx_cpx_items_grid *list, TBasicAction *action, wchar_t const *menu_item = nullptr)
{
    if (menu_item)
        vx::user_input::choose_in_next_menu(menu_item);
    bool const clicked = vx::user_input::click(list->get_tool_panel()->get_button(action));
    return clicked && (!menu_item || vx::user_input::menu_choice_done());
}

inline bool insert(Tvx_cpx_items_grid *list, wchar_t const *menu_item)
{
    return command(list, list->get_tool_panel()->get_actions()->get_ins_action(), menu_item);
}

inline bool remove(Tvx_cpx_items_grid *list)
{
    return command(list, list->get_tool_panel()->get_actions()->get_del_action());
}

inline bool move_up(Tvx_cpx_items_grid *list)
{
    return command(list, list->get_tool_panel()->get_actions()->get_up_action());
}

inline bool move_down(Tvx_cpx_items_grid *list)
{
    return command(list, list->get_tool_panel()->get_actions()->get_down_action());
}

/// Rows count items from 0.
inline bool choose(Tvx_cpx_items_grid *list, int row)
{
    return vx::user_input::click_cell(list->get_item_grid(), 1, row + 1);
}

inline bool drag(Tvx_cpx_items_grid *list, int from, int to)
{
    return vx::user_input::drag_cell(list->get_item_grid(), 0, from + 1, 0, to + 1);
}
