#include "controls/forms/tool_form.h"

#include "controls/forms/form_position_priv.h"

#include <utility>

Tvx_tool_form::Tvx_tool_form(TComponent *owner) : Tvx_form(owner)
{
    SetBorderStyle(bsSizeToolWin);
    SetFormStyle(fsStayOnTop);
}

void Tvx_tool_form::show_pos(int x, int y)
{
    if (!std::exchange(f_placed, true)) {
        if (x == 0 && y == 0)
            SetPosition(poScreenCenter);
        else
            vx::detail::form_push_into_screen(*this, x, y);
    }
    Show();
    SetPosition(poDesigned);
}
