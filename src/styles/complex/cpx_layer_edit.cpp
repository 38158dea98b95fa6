#include "styles/complex/cpx_layer_edit.h"

#include "captions/complex.h"

#include "platform/styles/vx_cpx_style.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/winapi/collation.h"

template <class Edit>
void Tvx_cpx_layer_edit::add_edit(char const *key)
{
    auto *const edit = new Edit(this);
    edit->SetVisible(false);
    edit->SetParent(get_frame());
    edit->SetAlign(alClient);
    edit->on_changed = make_closure<&Tvx_cpx_layer_edit::on_edit_changed>(this);
    f_kinds.push_back({key, edit});
}

Tvx_cpx_layer_edit::Tvx_cpx_layer_edit(TComponent *owner) : Tvx_cpx_framed_panel(owner, c_cpx_layer)
{
    add_edit<Tvx_cpx_pnt_symb_edit>(c_pnt_symb_style_lr);
    add_edit<Tvx_cpx_pnt_figr_edit>(c_pnt_figr_style_lr);
    add_edit<Tvx_cpx_pln_line_edit>(c_pln_line_style_lr);
    add_edit<Tvx_cpx_pln_tplt_edit>(c_pln_tplt_style_lr);
    add_edit<Tvx_cpx_pgn_fill_edit>(c_pgn_fill_style_lr);
    add_edit<Tvx_cpx_pgn_htch_edit>(c_pgn_htch_style_lr);
    add_edit<Tvx_cpx_pgn_spot_edit>(c_pgn_spot_style_lr);
}

void Tvx_cpx_layer_edit::load_res()
{
    Tvx_cpx_framed_panel::load_res();
    for (kind const &k : f_kinds)
        k.edit->load_res();
}

Tvx_cpx_basic_edit *Tvx_cpx_layer_edit::find_edit(char const *key) const
{
    for (kind const &k : f_kinds)
        if (lstrcmpiA(k.key, key) == 0)
            return k.edit;
    return nullptr;
}

void Tvx_cpx_layer_edit::update_controls()
{
    Tvx_cpx_basic_edit *const shown = f_style_lr ? find_edit(vx_style_lr_get_type(f_style_lr)) : nullptr;
    for (kind const &k : f_kinds)
        if (k.edit != shown) {
            k.edit->SetVisible(false);
            k.edit->set_style_lr(nullptr); // the layer may end
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
