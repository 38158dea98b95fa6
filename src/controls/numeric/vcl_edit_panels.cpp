#include "controls/numeric/vcl_edit_panels.h"

#include "controls/forms/event_off.h"

#include "platform/toolkit/core/new_on.h"

namespace {
/// Makes the edit of a captioned panel, over the whole data area.
template <class Edit>
Edit *make_edit(Tvx_vcl_panel &data)
{
    auto *edit = vx_new_on<Edit>(&data, &data);
    edit->SetAlign(alClient);
    return edit;
}
} // namespace

void Tvx_vcl_int_edit_panel::create()
{
    Tvx_vcl_caption_panel::create();
    f_edit = make_edit<Tvx_vcl_int_edit>(*get_data_panel());
    set_focus_control(f_edit);
    f_edit->on_change = make_closure<&Tvx_vcl_int_edit_panel::on_edit_change>(this);
}

void Tvx_vcl_int_edit_panel::set_caption(UnicodeString const &caption)
{
    Tvx_vcl_caption_panel::set_caption(caption);
    f_edit->SetAccessibleName(caption);
}

void Tvx_vcl_int_edit_panel::on_edit_change(TObject * /*sender*/)
{
    f_on_change(this);
}

void Tvx_vcl_dbl_edit_panel::create()
{
    Tvx_vcl_caption_panel::create();
    f_edit = make_edit<Tvx_vcl_dbl_edit>(*get_data_panel());
    set_focus_control(f_edit);
    f_edit->on_change = make_closure<&Tvx_vcl_dbl_edit_panel::on_edit_change>(this);
}

void Tvx_vcl_dbl_edit_panel::set_caption(UnicodeString const &caption)
{
    Tvx_vcl_caption_panel::set_caption(caption);
    f_edit->SetAccessibleName(caption);
}

void Tvx_vcl_dbl_edit_panel::on_edit_change(TObject * /*sender*/)
{
    f_on_change(this);
}

void Tvx_vcl_spin_edit_panel::create()
{
    Tvx_vcl_caption_panel::create();
    f_edit = make_edit<Tvx_vcl_spin_edit>(*get_data_panel());
    set_focus_control(f_edit);
    f_edit->on_changed = make_closure<&Tvx_vcl_spin_edit_panel::on_edit_change>(this);
}

void Tvx_vcl_spin_edit_panel::set_caption(UnicodeString const &caption)
{
    Tvx_vcl_caption_panel::set_caption(caption);
    f_edit->SetAccessibleName(caption);
}

void Tvx_vcl_spin_edit_panel::on_edit_change(TObject * /*sender*/)
{
    f_on_change(this);
}

void Tvx_vcl_text_edit_panel::create()
{
    Tvx_vcl_caption_panel::create();
    f_edit = make_edit<Tvx_vcl_edit>(*get_data_panel());
    set_focus_control(f_edit);
    f_edit->OnChange = make_closure<&Tvx_vcl_text_edit_panel::on_edit_change>(this);
}

void Tvx_vcl_text_edit_panel::set_caption(UnicodeString const &caption)
{
    Tvx_vcl_caption_panel::set_caption(caption);
    f_edit->SetAccessibleName(caption);
}

void Tvx_vcl_text_edit_panel::set_text(UnicodeString const &text)
{
    vx::event_off const quiet(f_edit->OnChange);
    f_edit->SetText(text);
}

void Tvx_vcl_text_edit_panel::on_edit_change(TObject * /*sender*/)
{
    f_on_change(this);
}
