#include "controls/prop/visible_ctrl.h"

#include "captions/prop.h"
#include "controls/prop/detail/action_name.h"
#include "controls/prop/image_convert.h"
#include "controls/prop/prop_pictures_priv.h"

#include "platform/basic/vx_res.h"

Tvx_visible_ctrl::Tvx_visible_ctrl(TComponent *owner) : Tvx_speed_btn(owner)
{
    SetFlat(true);
    SetShowHint(true);
    load_res();
}

void Tvx_visible_ctrl::load_res()
{
    show_state();
}

void Tvx_visible_ctrl::Click()
{
    f_visible = !f_visible;
    show_state();
    Tvx_speed_btn::Click();
    on_changed(this);
}

void Tvx_visible_ctrl::set_visible(bool visible)
{
    if (f_visible == visible)
        return;
    f_visible = visible;
    show_state();
}

void Tvx_visible_ctrl::show_state()
{
    vx_glyph_get_res(GetGlyph(), f_visible ? c_picture_visible : c_picture_hidden);
    UnicodeString const action = vx_res_get_wstr(f_visible ? c_caption_hide : c_caption_show);
    SetHint(action);
    SetAccessibleName(vx_action_name(f_accessible_text, action));
}

void Tvx_visible_ctrl::set_accessible_text(UnicodeString const &text)
{
    f_accessible_text = text;
    show_state();
}
