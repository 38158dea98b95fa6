#include "extension/service/style_editor_view.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_mngr_list.h"

#include <string_view>

namespace vx {
namespace {
constexpr char const *c_style_types[] = {"pnt_style", "pln_style", "pgn_style"};
constexpr char const *c_list_types[] = {"pnt_mngr_style", "pln_mngr_style", "pgn_mngr_style"};
} // namespace

template <class Model>
template <class Act>
void style_view_impl<Model>::each_edit(Act act)
{
    act(this->f_edits.pnt);
    act(this->f_edits.pln);
    act(this->f_edits.pgn);
}

template <class Model>
template <class Edit>
void style_view_impl<Model>::add_style_edit(Edit *&field)
{
    using self = style_view_impl;
    auto *const edit = field = this->add_edit(new Edit(this->f_sheet), alClient);
    edit->set_data_events({
        .open = make_closure<&self::on_data_open>(this),
        .close = make_closure<&self::on_data_close>(this),
        .get_np = make_closure<&self::on_data_get_np>(this),
        .get_no = make_closure<&self::on_data_get_no>(this),
        .get_prop = make_closure<&self::on_data_get_prop>(this),
        .get_capt_prop = make_closure<&self::on_data_get_capt_prop>(this),
        .get_stat = make_closure<&self::on_data_get_stats>(this),
        .get_str = make_closure<&self::on_data_get_str>(this),
        .get_val = make_closure<&self::on_data_get_val>(this),
        .get_prop_file_name = {},
    });
    edit->on_changed = make_closure<&self::on_style_changed>(this);
    edit->set_on_edit_value_item(make_closure<&self::on_edit_value_item>(this));
}

template <class Model>
void style_view_impl<Model>::add_style_edits()
{
    add_style_edit(this->f_edits.pnt);
    add_style_edit(this->f_edits.pln);
    add_style_edit(this->f_edits.pgn);
}

template <class Model>
void style_view_impl<Model>::show_manager(void *manager, char const *type, char const *const (&types)[3])
{
    int kind = 0;
    while (manager && kind < 3 && (!type || std::string_view(type) != types[kind]))
        ++kind;
    if (kind == 3)
        return;
    bool const rules = manager && this->f_editor.use_rules();
    int place = 0;
    each_edit([&](Tvx_stl_mngr_edit *edit) {
        void *const own = manager && place++ == kind ? manager : nullptr;
        // What is being typed was meant for the former one, which may be gone.
        if (own != edit->get_stl_mngr())
            edit->end_edit(false);
        edit->SetVisible(own != nullptr);
        if (own)
            edit->rule_enabled(rules);
        edit->set_stl_mngr(own);
    });
}

template <class Model>
void style_view_impl<Model>::show_tab_and_edits()
{
    bool shown = false;
    each_edit([&](Tvx_stl_mngr_edit *edit) { shown = shown || edit->GetVisible(); });
    this->show_tab(shown);
    if (this->f_edits.list)
        this->f_edits.list->update_controls();
    bool const selection = this->f_editor.use_selection_styles();
    each_edit([&](Tvx_stl_mngr_edit *edit) {
        edit->enable_selection_style(selection);
        edit->update_controls();
    });
}

template <class Model>
void style_view_impl<Model>::end_edit(bool taken)
{
    each_edit([&](Tvx_stl_mngr_edit *edit) { edit->end_edit(taken); });
}

template <class Model>
void style_view_impl<Model>::on_style_changed(TObject * /*sender*/)
{
    this->f_editor.commit();
}

template <class Model>
bool style_view_impl<Model>::on_edit_value_item(std::wstring &text)
{
    auto *const table = static_cast<Ivx_entity *>(this->f_editor.table_data());
    if (!table)
        return false;
    vx::owned<void, &vx_calc_filter_destroy> const filter(vx_calc_filter_create());
    vx_calc_filter_from_str(filter.get(), text.c_str());
    if (!vx_attr_filter_dialog(filter.get(), table))
        return false;
    vx_calc_filter_to_str(filter.get(), Tvx_std_wstring_adapter(text));
    return true;
}

// The handlers are named by closures only, which makes none of them.
template class editor_view_impl<style_editor, style_edits>;
template class editor_view_impl<style_list_editor, style_edits>;
template class style_view_impl<style_editor>;
template class style_view_impl<style_list_editor>;
} // namespace vx

// ---- one manager

Tvx_style_editor_view::Tvx_style_editor_view(TTabSheet *sheet, vx::style_editor editor)
    : Tvx_editor_view(sheet), f_impl(sheet, editor)
{
}

Tvx_style_editor_view::impl::impl(TTabSheet *sheet, vx::style_editor editor) : style_view_impl(sheet, editor)
{
    add_style_edits();
    first_update();
}

void Tvx_style_editor_view::impl::show_model()
{
    void *const manager = f_editor.style_manager();
    show_manager(manager, manager ? vx_stl_mngr_get_style_type(manager) : nullptr, vx::c_style_types);
    show_tab_and_edits();
}

// ---- a list of managers

Tvx_style_list_editor_view::Tvx_style_list_editor_view(TTabSheet *sheet, vx::style_list_editor editor)
    : Tvx_editor_view(sheet), f_impl(sheet, editor)
{
}

Tvx_style_list_editor_view::impl::impl(TTabSheet *sheet, vx::style_list_editor editor)
    : style_view_impl(sheet, editor)
{
    f_edits.list = add_edit(new Tvx_style_stl_mngr_list_edit(sheet, false), alTop);
    f_edits.list->on_changed = make_closure<&impl::on_stl_mngr_list_active_changed>(this);
    add_style_edits();
    first_update();
}

void Tvx_style_list_editor_view::impl::show_model()
{
    void *const list = f_editor.style_manager_list();
    f_edits.list->set_stl_mngr_list(list);
    show_manager(list ? vx_stl_mngr_list_get_active_mngr(list) : nullptr,
                 list ? vx_stl_mngr_list_get_type(list) : nullptr, vx::c_list_types);
    show_tab_and_edits();
}

void Tvx_style_list_editor_view::impl::on_stl_mngr_list_active_changed(TObject * /*sender*/)
{
    update_data();
}
