#include "controls/forms/tool_form.h"

#include "controls/forms/detail/form_position.h"

Tvx_tool_form::Tvx_tool_form(TComponent *owner) : Tvx_form(owner)
{
    SetBorderStyle(bsSizeToolWin);
    SetFormStyle(fsStayOnTop);
}

void Tvx_tool_form::show_pos(int x, int y)
{
    vx::detail::form_show_placed_once(*this, f_placed, x, y);
}
