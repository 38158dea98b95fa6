#include "styles/simple/lib_stl_panel.h"

#include "captions/libraries.h"
#include "captions/simple.h"
#include "controls/prop/detail/picture_button.h"

#include "platform/basic/vx_res.h"
#include "platform/styles/vx_global_lib_styles.h"
#include "platform/toolkit/core/new_on.h"

namespace {
/// Numbers of the pictures on the buttons.
constexpr int c_smp_picture_save = 3010;
constexpr int c_smp_picture_load = 3011;
} // namespace

Tvx_lib_stl_panel::Tvx_lib_stl_panel(TComponent *owner)
    : Tvx_panel(owner), f_save_btn(new Tvx_bitbtn(this)), f_load_btn(new Tvx_bitbtn(this)),
      f_main_btn(vx_new_for<Tvx_button>(this, this))
{
    int const side = GetHeight();
    int left = 0;
    for (Tvx_bitbtn *button : {f_save_btn, f_load_btn}) {
        button->SetParent(this);
        button->SetBounds(left, 0, side, side);
        button->SetAlign(alLeft);
        button->SetShowHint(true);
        left += side;
    }
    f_main_btn->SetParent(this);
    f_main_btn->SetAlign(alClient);
}

void Tvx_lib_stl_panel::update_controls()
{
    f_main_btn->SetVisible(vx_global_lib_styles_exists());
}

void Tvx_lib_stl_panel::load_res()
{
    vx_picture_button_load(f_save_btn, c_smp_picture_save, c_smp_save_file);
    vx_picture_button_load(f_load_btn, c_smp_picture_load, c_smp_load_file);
    f_main_btn->SetCaption(vx_res_get_wstr(c_smp_library));
    f_main_btn->SetAccessibleName(vx_res_get_wstr(c_lib_title));
}

void Tvx_lib_stl_panel::Resize()
{
    Tvx_panel::Resize();
    f_save_btn->SetWidth(GetClientHeight());
    f_load_btn->SetWidth(GetClientHeight());
}
