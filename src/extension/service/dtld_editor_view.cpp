#include "extension/service/dtld_editor_view.h"

// The handlers are named by closures only, which makes none of them.
template class vx::editor_view_impl<vx::dtld_editor, vx::dtld_edits>;

Tvx_dtld_editor_view::Tvx_dtld_editor_view(TTabSheet *sheet, vx::dtld_editor editor)
    : Tvx_editor_view(sheet), f_impl(sheet, editor)
{
}

Tvx_dtld_editor_view::impl::impl(TTabSheet *sheet, vx::dtld_editor editor) : editor_view_impl(sheet, editor)
{
    auto *const panel = f_edits.panel = add_edit(new Tvx_label_style_panel(sheet), alClient);
    panel->set_on_data_open(make_closure<&impl::on_data_open>(this));
    panel->set_on_data_close(make_closure<&impl::on_data_close>(this));
    panel->set_on_data_get_np(make_closure<&impl::on_data_get_np>(this));
    panel->set_on_data_get_prop(make_closure<&impl::on_data_get_prop>(this));
    panel->set_on_data_get_capt_prop(make_closure<&impl::on_data_get_capt_prop>(this));
    first_update();
}

void Tvx_dtld_editor_view::impl::show_model()
{
    Ivx_layer *const layer = f_editor.dtld_layer();
    show_tab(layer != nullptr);
    f_edits.panel->set_layer(layer);
    f_edits.panel->update_controls();
}
