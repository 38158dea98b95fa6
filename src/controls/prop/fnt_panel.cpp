#include "controls/prop/fnt_panel.h"

#include "captions/prop.h"
#include "controls/prop/detail/action_name.h"
#include "controls/prop/image_convert.h"
#include "controls/prop/prop_pictures_priv.h"

#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_caption_width = 65;
constexpr int c_button_width = 20;
constexpr int c_current_btn_width = 15;
} // namespace

Tvx_fnt_panel::Tvx_fnt_panel(TComponent *owner)
    : Tvx_panel(owner), f_caption_panel(vx_new_for<Tvx_caption_panel>(this, this)),
      f_button(vx_new_for<Tvx_button>(this, this)), f_current_btn(vx_new_for<Tvx_speed_btn>(this, this)),
      f_edit(vx_new_for<Tvx_edit>(this, this))
{
    f_caption_panel->SetParent(this);
    f_caption_panel->SetWidth(c_caption_width);
    f_caption_panel->SetAlign(alLeft);
    // In the order of the focus.
    f_edit->SetParent(this);
    f_edit->SetReadOnly(true);
    f_button->SetParent(this);
    f_current_btn->SetParent(this);
    f_button->SetBounds(GetWidth() - c_current_btn_width - c_button_width, 0, c_button_width, GetHeight());
    f_button->SetCaption(L"...");
    f_button->OnClick = make_closure<&Tvx_fnt_panel::on_button_click>(this);
    f_current_btn->SetBounds(GetWidth() - c_current_btn_width, 0, c_current_btn_width, GetHeight());
    f_current_btn->OnClick = make_closure<&Tvx_fnt_panel::on_current_btn_click>(this);
    f_current_btn->SetAlign(alRight);
    f_button->SetAlign(alRight);
    f_edit->SetAlign(alClient);
    f_caption_panel->set_focus_control(f_edit);
    load_res();
    show_name();
}

void Tvx_fnt_panel::load_res()
{
    UnicodeString const choose = vx_res_get_wstr(c_caption_choose_font);
    UnicodeString const use_current = vx_res_get_wstr(c_caption_use_current_font);
    f_button->SetHint(choose);
    f_button->SetShowHint(true);
    f_current_btn->SetHint(use_current);
    f_current_btn->SetShowHint(true);
    vx_glyph_get_res(f_current_btn->GetGlyph(), c_picture_current_font);
    f_edit->SetAccessibleName(get_caption().IsEmpty() ? UnicodeString(vx_res_get_wstr(c_caption_font_name))
                                                      : get_caption());
    f_button->SetAccessibleName(vx_action_name(get_caption(), choose));
    f_current_btn->SetAccessibleName(vx_action_name(get_caption(), use_current));
}

UnicodeString Tvx_fnt_panel::get_caption() const
{
    return f_caption_panel->get_caption();
}

void Tvx_fnt_panel::set_caption(UnicodeString const &caption)
{
    f_caption_panel->set_caption(caption);
    load_res();
}

int Tvx_fnt_panel::get_capt_width() const
{
    return f_caption_panel->GetWidth();
}

void Tvx_fnt_panel::set_capt_width(int width)
{
    int const more = width - get_capt_width();
    f_caption_panel->SetWidth(width);
    SetWidth(GetWidth() + more);
}

void Tvx_fnt_panel::get_font(vx_fnt_type *out) const
{
    vx_fnt_type_assign(out, &f_font);
}

void Tvx_fnt_panel::set_font(vx_fnt_type const *font)
{
    vx_fnt_type_assign(&f_font, font);
    show_name();
}

void Tvx_fnt_panel::show_name()
{
    f_edit->SetText(vx_fnt_type_get_wname_ptr(&f_font));
}

void Tvx_fnt_panel::on_button_click(TObject * /*sender*/)
{
    TPoint const corner = f_button->ClientToScreen({0, f_button->GetHeight()});
    if (!vx_font_dialog(GetHandle(), corner.X, corner.Y, &f_font))
        return;
    show_name();
    on_changed(this);
}

void Tvx_fnt_panel::on_current_btn_click(TObject * /*sender*/)
{
    if (!vx_fnt_type_has_current_font())
        return;
    set_font(vx_fnt_type_get_current_font_ptr());
    on_changed(this);
}
