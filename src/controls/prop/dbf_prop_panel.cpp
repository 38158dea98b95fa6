#include "controls/prop/dbf_prop_panel.h"

#include "platform/base/text_codec.h"
#include "platform/toolkit/core/new_on.h"

Tvx_dbf_prop_panel::Tvx_dbf_prop_panel(TComponent *owner)
    : Tvx_panel(owner), f_prop_edit(vx_new_for<Tvx_prop_edit>(this, this))
{
    f_prop_edit->SetParent(this);
    f_prop_edit->create();
    f_prop_edit->SetAlign(alClient);
    f_prop_edit->set_on_data_open(make_closure<&Tvx_dbf_prop_panel::on_open>(this));
    f_prop_edit->set_on_data_close(make_closure<&Tvx_dbf_prop_panel::on_close>(this));
    f_prop_edit->set_on_data_get_np(make_closure<&Tvx_dbf_prop_panel::on_get_np>(this));
    f_prop_edit->set_on_data_get_wprop(make_closure<&Tvx_dbf_prop_panel::on_get_wprop>(this));
    f_prop_edit->set_on_changed(make_closure<&Tvx_dbf_prop_panel::on_prop_edit_changed>(this));
}

bool Tvx_dbf_prop_panel::on_open(TObject * /*sender*/)
{
    f_table.reset();
    f_table.reset(vx_dbf_open_w(f_dbf_filename.c_str(), 1, f_dbf_dos_flag));
    return f_table != nullptr;
}

void Tvx_dbf_prop_panel::on_close(TObject * /*sender*/)
{
    f_table.reset();
}

unsigned Tvx_dbf_prop_panel::on_get_np(TObject * /*sender*/)
{
    return static_cast<unsigned>(vx_dbf_get_nf(f_table.get()));
}

wchar_t const *Tvx_dbf_prop_panel::on_get_wprop(TObject * /*sender*/, unsigned prop, bool &usable,
                                                bool &numeric)
{
    auto const field = static_cast<int>(prop);
    usable = prop < static_cast<unsigned>(vx_dbf_get_nf(f_table.get()));
    numeric = vx_dbf_is_numeric(vx_dbf_get_field_type(f_table.get(), field));
    return vx_dbf_get_field_wname(f_table.get(), field);
}

void Tvx_dbf_prop_panel::on_prop_edit_changed(TObject * /*sender*/)
{
    on_changed(this);
}

void Tvx_dbf_prop_panel::update_controls()
{
    f_prop_edit->update_controls();
}

std::string Tvx_dbf_prop_panel::get_dbf_filename() const
{
    return vx::text::to_bytes(f_dbf_filename);
}

void Tvx_dbf_prop_panel::set_dbf_filename(char const *name)
{
    f_dbf_filename = UnicodeString(name).str();
}

void Tvx_dbf_prop_panel::set_dbf_filename(wchar_t const *name)
{
    f_dbf_filename = name ? name : L"";
}

UnicodeString Tvx_dbf_prop_panel::get_caption() const
{
    return f_prop_edit->get_caption();
}

void Tvx_dbf_prop_panel::set_caption(UnicodeString const &caption)
{
    f_prop_edit->set_caption(caption);
}

int Tvx_dbf_prop_panel::get_capt_width() const
{
    return f_prop_edit->get_capt_width();
}

void Tvx_dbf_prop_panel::set_capt_width(int width)
{
    f_prop_edit->set_capt_width(width);
}

std::string Tvx_dbf_prop_panel::get_prop_name() const
{
    return f_prop_edit->get_prop_name();
}

std::wstring const &Tvx_dbf_prop_panel::get_wprop_name() const
{
    return f_prop_edit->get_wprop_name();
}

void Tvx_dbf_prop_panel::set_prop_name(char const *name)
{
    f_prop_edit->set_prop_name(name);
}

void Tvx_dbf_prop_panel::set_prop_name(wchar_t const *name)
{
    f_prop_edit->set_prop_name(name);
}

int Tvx_dbf_prop_panel::get_real_index() const
{
    return f_prop_edit->get_real_index();
}

bool Tvx_dbf_prop_panel::get_only_numeric() const
{
    return f_prop_edit->get_only_numeric();
}

void Tvx_dbf_prop_panel::set_only_numeric(bool value)
{
    f_prop_edit->set_only_numeric(value);
}

bool Tvx_dbf_prop_panel::get_forbid_empty() const
{
    return f_prop_edit->get_forbid_empty();
}

void Tvx_dbf_prop_panel::set_forbid_empty(bool value)
{
    f_prop_edit->set_forbid_empty(value);
}

bool Tvx_dbf_prop_panel::get_enabled() const
{
    return f_prop_edit->get_enabled();
}

void Tvx_dbf_prop_panel::set_enabled(bool enabled)
{
    f_prop_edit->set_enabled(enabled);
}
