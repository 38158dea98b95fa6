#include "exports/vxk_style_dialog_api.h"

bool edit_something(void *style, Tvx_color *color)
{
    return vx_pnt_style_dialog(0, 0, style) || vx_clr_style_dialog(0, 0, color) || vxk_lib_styles_get_pnt(style) ||
           vx_call_vx_global_lib_styles_load();
}
