#include "extension/service/text_settings_editor_view.h"

#include "platform/styles/vx_stl_mngr_list.h"
#include "platform/styles/vx_txt_settings.h"

#include <string_view>

// The handlers are named by closures only, which makes none of them.
template class vx::editor_view_impl<vx::text_settings_editor, vx::text_settings_edits>;

Tvx_text_settings_editor_view::Tvx_text_settings_editor_view(TTabSheet *sheet,
                                                             vx::text_settings_editor editor)
    : Tvx_editor_view(sheet), f_impl(sheet, editor)
{
}

Tvx_text_settings_editor_view::impl::impl(TTabSheet *sheet, vx::text_settings_editor editor)
    : editor_view_impl(sheet, editor)
{
    f_edits.list = add_edit(new Tvx_txt_stl_mngr_list_edit(sheet, true), alTop);
    f_edits.list->on_changed = make_closure<&impl::on_stl_mngr_list_active_changed>(this);
    add_text_edit(f_edits.pgn);
    add_text_edit(f_edits.pln);
    add_text_edit(f_edits.pnt);
    first_update();
}

template <class Edit>
void Tvx_text_settings_editor_view::impl::add_text_edit(Edit *&field)
{
    field = add_edit(new Edit(f_sheet), alClient);
    field->set_data_events({
        .open = make_closure<&impl::on_data_open>(this),
        .close = make_closure<&impl::on_data_close>(this),
        .get_np = make_closure<&impl::on_data_get_np>(this),
        .get_no = make_closure<&impl::on_data_get_no>(this),
        .get_prop = make_closure<&impl::on_data_get_prop>(this),
        .get_capt_prop = make_closure<&impl::on_data_get_capt_prop>(this),
        .get_stat = {},
        .get_str = make_closure<&impl::on_data_get_str>(this),
        .get_val = make_closure<&impl::on_data_get_val>(this),
        .get_prop_file_name = {},
    });
}

void Tvx_text_settings_editor_view::impl::show_model()
{
    void *const settings = f_editor.text_settings();
    void *const list = settings ? vx_txt_settings_get_stl_mngr_list(settings) : nullptr;
    show_tab(list != nullptr);
    f_edits.list->set_stl_mngr_list(list);
    f_edits.list->update_controls();
    char const *const key = list ? vx_stl_mngr_list_get_type(list) : nullptr;
    std::string_view const type = key ? key : "";
    void *const manager = list ? vx_stl_mngr_list_get_active_mngr(list) : nullptr;
    bool const selection = f_editor.use_selection_styles();
    show_manager(f_edits.pgn, type == "txt_pgn_mngr_style" ? manager : nullptr, selection);
    show_manager(f_edits.pln, type == "txt_pln_mngr_style" ? manager : nullptr, selection);
    show_manager(f_edits.pnt, type == "txt_pnt_mngr_style" ? manager : nullptr, selection);
}

void Tvx_text_settings_editor_view::impl::show_manager(Tvx_txt_stl_mngr_edit *edit, void *manager,
                                                       bool selection)
{
    // What is being typed was meant for the former one, which may be gone.
    if (manager != edit->get_stl_mngr())
        edit->end_edit(false);
    edit->SetVisible(manager != nullptr);
    edit->set_stl_mngr(manager);
    edit->enable_selection_style(selection);
    edit->update_controls();
}

void Tvx_text_settings_editor_view::impl::end_edit(bool taken)
{
    for (Tvx_txt_stl_mngr_edit *const edit : {static_cast<Tvx_txt_stl_mngr_edit *>(f_edits.pgn),
                                              static_cast<Tvx_txt_stl_mngr_edit *>(f_edits.pln),
                                              static_cast<Tvx_txt_stl_mngr_edit *>(f_edits.pnt)})
        edit->end_edit(taken);
}

void Tvx_text_settings_editor_view::impl::on_stl_mngr_list_active_changed(TObject * /*sender*/)
{
    update_data();
}
