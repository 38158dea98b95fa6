#include "style_manager/scales/scale_tool_panel.h"

#include "captions/style_manager.h"
#include "controls/prop/detail/picture_button.h"
#include "style_manager/scales/detail/scale_pictures.h"
#include "style_manager/scales/scale_grid.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_height = 20;
constexpr int c_gap = c_height / 2;
} // namespace

Tvx_scale_tool_panel::Tvx_scale_tool_panel(TComponent *owner) : Tvx_panel(owner)
{
    SetHeight(c_height);
}

void Tvx_scale_tool_panel::add_builder(Tvx_bitbtn *button)
{
    button->SetParent(this);
    button->SetBounds(f_left, 0, c_height, c_height);
    f_left += c_height;
}

Tvx_bitbtn *Tvx_scale_tool_panel::add_left(int gap)
{
    auto *const button = vx_new_on<Tvx_bitbtn>(this, this);
    button->SetBounds(f_left + gap, 0, c_height, c_height);
    button->SetShowHint(true);
    f_left += gap + c_height;
    return button;
}

Tvx_bitbtn *Tvx_scale_tool_panel::add_right(bool sel)
{
    auto *const button = vx_new_on<Tvx_bitbtn>(this, this);
    button->SetWidth(c_height);
    button->SetLeft(sel ? GetWidth() : 0); // the one of selected objects outermost, as the columns stand
    button->SetAlign(alRight);
    button->SetShowHint(true);
    button->OnClick = make_closure<&Tvx_scale_tool_panel::on_style_btn_click>(this);
    return button;
}

void Tvx_scale_tool_panel::create(Tvx_scale_grid *grid)
{
    DisableAlign();
    f_grid = grid;
    f_save_btn = add_left(f_left > 0 ? c_gap : 0);
    f_open_btn = add_left(0);
    f_ins_btn = add_left(c_gap);
    f_ins_btn->SetAction(grid->get_ins_action());
    f_del_btn = add_left(0);
    f_del_btn->SetAction(grid->get_del_action());
    f_style_btn = add_right(false);
    f_sel_style_btn = add_right(true);
    EnableAlign();
}

void Tvx_scale_tool_panel::load_res()
{
    vx_picture_button_load(f_save_btn, c_picture_save, c_scl_save);
    vx_picture_button_load(f_open_btn, c_picture_open, c_scl_open);
    vx_picture_button_load(f_style_btn, c_picture_style, c_scl_styles);
    vx_picture_button_load(f_sel_style_btn, c_picture_sel_style, c_scl_sel_styles);
    f_ins_btn->SetAccessibleName(vx_res_get_wstr(c_scl_insert));
    f_del_btn->SetAccessibleName(vx_res_get_wstr(c_scl_delete));
}

TRect Tvx_scale_tool_panel::get_free_rect() const
{
    int const right = GetWidth() - c_height * (f_sel_style_btn->GetVisible() ? 2 : 1);
    return {f_left + c_gap, 0, right - c_gap, c_height};
}

void Tvx_scale_tool_panel::on_style_btn_click(TObject *sender)
{
    auto *const button = sender == f_style_btn ? f_style_btn : f_sel_style_btn;
    TPoint const at = button->ClientToScreen({0, button->GetHeight()});
    f_grid->call_style_menu(at.X, at.Y, button == f_sel_style_btn);
}
