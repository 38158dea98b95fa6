#include "styles/complex/edit_cpx_style.h"

#include "styles/complex/cpx_styles_form.h"

#include "platform/styles/vx_cpx_style.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/winapi/collation.h"

namespace {
bool is_of_kind(void const *style, char const *kind)
{
    return style && lstrcmpiA(vx_cpx_style_get_type(style), kind) == 0;
}
} // namespace

bool vx_edit_cpx_pnt_style(void *style)
{
    if (!is_of_kind(style, c_pnt_style))
        return false;
    Tvx_cpx_styles_form form(nullptr);
    form.set_cpx_pnt_style(style);
    if (!form.edit_cpx_style())
        return false;
    form.get_cpx_pnt_style(style);
    return true;
}

bool vx_edit_cpx_pln_style(void *style)
{
    if (!is_of_kind(style, c_pln_style))
        return false;
    Tvx_cpx_styles_form form(nullptr);
    form.set_cpx_pln_style(style);
    if (!form.edit_cpx_style())
        return false;
    form.get_cpx_pln_style(style);
    return true;
}

bool vx_edit_cpx_pgn_style(void *style)
{
    if (!is_of_kind(style, c_pgn_style))
        return false;
    Tvx_cpx_styles_form form(nullptr);
    form.set_cpx_pgn_style(style);
    if (!form.edit_cpx_style())
        return false;
    form.get_cpx_pgn_style(style);
    return true;
}
