/* The plain interface, as a host in C has it: every function by its type. */
#include "exports/vxk_lr2d_edit_form_api.h"

static void on_apply(void *data)
{
    Ivx_layer **seen = data;
    *seen = 0;
}

int main(void)
{
    Ivx_layer *seen = 0;
    Tvx_lr2d_edit_form *form = vx_lr2d_edt_form_create();
    Tvx_lr2d_edit_form *hosted = vx_lr2d_edt_form_create_hosted((Tvx_apply_form *)0);
    vx_lr2d_edt_form_create_all(form);
    vx_lr2d_edt_form_set_callback(form, &seen, on_apply);
    vx_lr2d_edt_form_set_lr2d(form, (Ivx_layer *)0);
    vx_lr2d_edt_form_show_pos(form, 10, 10);
    vx_lr2d_edt_form_dock(form, (TWinControl *)0);
    vx_lr2d_edt_form_set_left(form, vx_lr2d_edt_form_get_left(form));
    vx_lr2d_edt_form_set_top(form, vx_lr2d_edt_form_get_top(form));
    vx_lr2d_edt_form_set_width(form, vx_lr2d_edt_form_get_width(form));
    vx_lr2d_edt_form_set_height(form, vx_lr2d_edt_form_get_height(form));
    vx_lr2d_edt_form_update(form);
    vx_lr2d_edt_form_hide(form);
    vx_lr2d_edt_form_show(form);
    seen = vx_lr2d_edt_form_get_lr2d_ptr(form);
    vx_lr2d_edt_form_destroy(hosted);
    vx_lr2d_edt_form_destroy(form);
    vx_lr_layout_edt_form_destroy(vx_lr_layout_edt_form_create());
    vx_lr_layout_edt_form_destroy(vx_lr_layout_edt_form_create_hosted((Tvx_apply_form *)0));
    return seen || vx_lr2d_edt_form_get_showing(0);
}
