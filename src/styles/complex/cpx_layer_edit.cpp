#include "styles/complex/cpx_layer_edit.h"

#include "captions/complex.h"

#include "platform/styles/vx_cpx_style.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/winapi/collation.h"

namespace {
template <class Edit>
Tvx_cpx_basic_edit *make_edit(TComponent *owner)
{
    return new Edit(owner);
}
} // namespace

struct Tvx_cpx_layer_edit::kind
{
    char const *key;
    Tvx_cpx_basic_edit *(*make)(TComponent *owner);
};

Tvx_cpx_layer_edit::kind const Tvx_cpx_layer_edit::c_kinds[c_kind_count] = {
    {c_pnt_symb_style_lr, &make_edit<Tvx_cpx_pnt_symb_edit>},
    {c_pnt_figr_style_lr, &make_edit<Tvx_cpx_pnt_figr_edit>},
    {c_pln_line_style_lr, &make_edit<Tvx_cpx_pln_line_edit>},
    {c_pln_tplt_style_lr, &make_edit<Tvx_cpx_pln_tplt_edit>},
    {c_pgn_fill_style_lr, &make_edit<Tvx_cpx_pgn_fill_edit>},
    {c_pgn_htch_style_lr, &make_edit<Tvx_cpx_pgn_htch_edit>},
    {c_pgn_spot_style_lr, &make_edit<Tvx_cpx_pgn_spot_edit>},
};

Tvx_cpx_layer_edit::Tvx_cpx_layer_edit(TComponent *owner) : Tvx_cpx_framed_panel(owner, c_cpx_layer)
{
}

void Tvx_cpx_layer_edit::load_res()
{
    Tvx_cpx_framed_panel::load_res();
    for (Tvx_cpx_basic_edit *const edit : f_edits)
        if (edit)
            edit->load_res();
}

Tvx_cpx_basic_edit *Tvx_cpx_layer_edit::find_edit(char const *key)
{
    for (std::size_t i = 0; i < c_kind_count; ++i) {
        if (lstrcmpiA(c_kinds[i].key, key) != 0)
            continue;
        Tvx_cpx_basic_edit *&edit = f_edits[i];
        if (!edit) {
            edit = c_kinds[i].make(this);
            edit->SetVisible(false);
            edit->load_res();
            edit->SetParent(get_frame());
            edit->SetAlign(alClient);
            edit->on_changed = make_closure<&Tvx_cpx_layer_edit::on_edit_changed>(this);
        }
        return edit;
    }
    return nullptr;
}

void Tvx_cpx_layer_edit::update_controls()
{
    Tvx_cpx_basic_edit *const shown = f_style_lr ? find_edit(vx_style_lr_get_type(f_style_lr)) : nullptr;
    for (Tvx_cpx_basic_edit *const edit : f_edits)
        if (edit && edit != shown) {
            edit->SetVisible(false);
            edit->set_style_lr(nullptr); // the layer may end
        }
    if (!shown)
        return;
    shown->set_style_lr(f_style_lr);
    shown->update_controls();
    shown->SetVisible(true);
}

void Tvx_cpx_layer_edit::on_edit_changed(TObject * /*sender*/)
{
    on_changed(this);
}
