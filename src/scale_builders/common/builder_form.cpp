#include "scale_builders/common/builder_form.h"

#include "scale_builders/common/detail/builder_caller.h"

Tvx_vcl_builder_form::Tvx_vcl_builder_form(TComponent *owner, int width, int height)
    : Tvx_vcl_dialog_form(owner)
{
    SetBorderStyle(bsToolWindow);
    SetWidth(width);
    SetHeight(height);
}

void Tvx_vcl_builder_form::call_apply()
{
    bool const is_applied = builder_caller::is_there() && apply();
    if (!is_applied && builder_caller::is_there())
        return;
    f_applied = is_applied;
    Close();
}

bool Tvx_vcl_builder_form::run(int x, int y, void *stl_mngr, Tvx_data_events const &data)
{
    f_applied = false;
    create();
    load_rc();
    set_position(x, y);
    if (prepare(stl_mngr, data))
        ShowModal();
    return f_applied;
}
