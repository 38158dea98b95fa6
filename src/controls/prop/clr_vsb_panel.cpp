#include "controls/prop/clr_vsb_panel.h"

#include "controls/prop/clr_picker.h"

#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_height = 20;
constexpr int c_eye_width = 20;
} // namespace

Tvx_clr_vsb_panel::Tvx_clr_vsb_panel(TComponent *owner)
    : Tvx_children_enabled_panel(owner), f_clr_panel(vx_new_for<Tvx_clr_panel>(this, this)),
      f_visible_ctrl(vx_new_for<Tvx_visible_ctrl>(this, this)),
      f_caption(vx_new_for<Tvx_caption_panel>(this, this))
{
    SetHeight(c_height);
    // Right-aligned controls stand in the order of their places: the colour at the edge, the eye beside it.
    f_visible_ctrl->SetParent(this);
    f_visible_ctrl->SetBounds(GetWidth() - f_clr_panel->GetWidth() - c_eye_width, 0, c_eye_width, c_height);
    f_clr_panel->SetParent(this);
    f_clr_panel->SetLeft(GetWidth() - f_clr_panel->GetWidth());
    f_clr_panel->SetAlign(alRight);
    f_visible_ctrl->SetAlign(alRight);
    f_caption->SetParent(this);
    f_caption->SetAlign(alClient);
    f_visible_ctrl->on_changed = make_closure<&Tvx_clr_vsb_panel::on_visible_changed>(this);
    f_clr_panel->on_changed = make_closure<&Tvx_clr_vsb_panel::on_color_changed>(this);
}

void Tvx_clr_vsb_panel::load_res()
{
    f_clr_panel->load_res();
    f_visible_ctrl->load_res();
}

UnicodeString Tvx_clr_vsb_panel::get_text() const
{
    return f_caption->get_caption();
}

void Tvx_clr_vsb_panel::set_text(UnicodeString const &text)
{
    f_caption->set_caption(text);
    f_clr_panel->set_accessible_text(text);
    f_visible_ctrl->set_accessible_text(text);
}

Tvx_color Tvx_clr_vsb_panel::get_color() const
{
    return f_clr_panel->get_color();
}

void Tvx_clr_vsb_panel::set_color(Tvx_color color)
{
    f_clr_panel->set_color(color);
}

Tvx_color_format Tvx_clr_vsb_panel::get_format() const
{
    return f_clr_panel->get_format();
}

void Tvx_clr_vsb_panel::set_format(Tvx_color_format format)
{
    f_clr_panel->set_format(format);
}

bool Tvx_clr_vsb_panel::get_visible() const
{
    return f_visible_ctrl->get_visible();
}

void Tvx_clr_vsb_panel::set_visible(bool visible)
{
    f_visible_ctrl->set_visible(visible);
}

bool Tvx_clr_vsb_panel::get_can_visible() const
{
    return f_visible_ctrl->GetVisible();
}

void Tvx_clr_vsb_panel::set_can_visible(bool value)
{
    // While it was hidden the panel may have become smaller; its place says on which side it stands.
    if (value && !f_visible_ctrl->GetVisible())
        f_visible_ctrl->SetLeft(f_clr_panel->GetLeft() - c_eye_width);
    f_visible_ctrl->SetVisible(value);
}

void Tvx_clr_vsb_panel::on_visible_changed(TObject * /*sender*/)
{
    call_changed();
}

void Tvx_clr_vsb_panel::on_color_changed(TObject * /*sender*/)
{
    call_changed();
}

Tvx_clr_vsb_pick_panel::Tvx_clr_vsb_pick_panel(TComponent *owner)
    : Tvx_clr_vsb_panel(owner), f_picker_btn(vx_new_for<Tvx_clr_picker_btn>(this, this))
{
    f_picker_btn->SetParent(this);
    // Right of the sample.
    f_picker_btn->SetBounds(GetWidth(), 0, GetHeight(), GetHeight());
    f_picker_btn->SetAlign(alRight);
    f_picker_btn->on_color_picked = make_closure<&Tvx_clr_vsb_pick_panel::on_clr_picked>(this);
}

void Tvx_clr_vsb_pick_panel::load_res()
{
    Tvx_clr_vsb_panel::load_res();
    f_picker_btn->load_res();
}

void Tvx_clr_vsb_pick_panel::set_text(UnicodeString const &text)
{
    Tvx_clr_vsb_panel::set_text(text);
    f_picker_btn->set_accessible_text(text);
}

void Tvx_clr_vsb_pick_panel::Resize()
{
    Tvx_clr_vsb_panel::Resize();
    f_picker_btn->SetWidth(GetClientHeight());
}

void Tvx_clr_vsb_pick_panel::on_clr_picked(TObject * /*sender*/)
{
    set_color(f_picker_btn->get_color());
    call_changed();
}
