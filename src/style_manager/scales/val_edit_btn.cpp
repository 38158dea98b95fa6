#include "style_manager/scales/val_edit_btn.h"

#include "scale_builders/common/detail/builder_caller.h"
#include "scale_builders/value/val_type_dlg.h"

Tvx_val_edit_btn::Tvx_val_edit_btn(TComponent *owner) : Tvx_bitbtn(owner)
{
    SetShowHint(true);
    SetEnabled(false);
    OnClick = make_closure<&Tvx_val_edit_btn::on_self_click>(this);
}

void Tvx_val_edit_btn::set_stl_mngr(void *mngr)
{
    f_stl_mngr = mngr;
    SetEnabled(mngr != nullptr);
}

void Tvx_val_edit_btn::on_self_click(TObject * /*sender*/)
{
    if (!f_stl_mngr)
        return;
    TPoint const at = ClientToScreen({0, GetHeight()});
    auto const life = Life();
    builder_caller const caller(this, [this, mngr = f_stl_mngr] { return f_stl_mngr == mngr; });
    bool const is_applied = vx_val_type_dlg(at.X, at.Y, f_stl_mngr, f_data.open, f_data.close, f_data.get_np,
                                            f_data.get_no, f_data.get_prop, f_data.get_capt_prop,
                                            f_data.get_stat, f_data.get_str, f_data.get_val);
    if (is_applied && !life.expired())
        on_changed(this);
}
