#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/panels.h"

class Tvx_scale_grid;

/// The commands of a scale: builders, save and open, insert and delete from the left; from the right the
/// styles of the entries and those for selected objects. 20 high, the buttons as wide.
class VX_API Tvx_scale_tool_panel : public Tvx_panel
{
public:
    explicit Tvx_scale_tool_panel(TComponent *owner);

    /// Puts a button at the left end, behind those before; the first ones stand before `create`.
    void add_builder(Tvx_bitbtn *button);
    /// Makes the other buttons. The grid has been created.
    void create(Tvx_scale_grid *grid);
    void load_res();
    void enable_selection_style(bool enabled) { f_sel_style_btn->SetVisible(enabled); }
    /// What lies between the buttons of the left and of the right end.
    [[nodiscard]] TRect get_free_rect() const;

    [[nodiscard]] Tvx_bitbtn *get_save_btn() const { return f_save_btn; }
    [[nodiscard]] Tvx_bitbtn *get_open_btn() const { return f_open_btn; }
    [[nodiscard]] Tvx_bitbtn *get_ins_btn() const { return f_ins_btn; }
    [[nodiscard]] Tvx_bitbtn *get_del_btn() const { return f_del_btn; }
    [[nodiscard]] Tvx_bitbtn *get_style_btn() const { return f_style_btn; }
    [[nodiscard]] Tvx_bitbtn *get_sel_style_btn() const { return f_sel_style_btn; }

private:
    Tvx_bitbtn *add_left(int gap);
    Tvx_bitbtn *add_right(bool sel);
    void on_style_btn_click(TObject *sender);

    Tvx_scale_grid *f_grid = nullptr;
    int f_left = 0;
    Tvx_bitbtn *f_save_btn = nullptr;
    Tvx_bitbtn *f_open_btn = nullptr;
    Tvx_bitbtn *f_ins_btn = nullptr;
    Tvx_bitbtn *f_del_btn = nullptr;
    Tvx_bitbtn *f_style_btn = nullptr;
    Tvx_bitbtn *f_sel_style_btn = nullptr;
};
