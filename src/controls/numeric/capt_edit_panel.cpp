#include "controls/numeric/capt_edit_panel.h"

Tvx_capt_edit_panel::Tvx_capt_edit_panel(TComponent *owner) : Tvx_label_edit_panel(owner)
{
    get_edit()->OnExit = make_closure<&Tvx_capt_edit_panel::on_edit_exit>(this);
}

void Tvx_capt_edit_panel::set_text(UnicodeString const &text)
{
    set_quiet_text(text);
}

void Tvx_capt_edit_panel::on_edit_exit(TObject * /*sender*/)
{
    on_apply(this);
}
