#include "controls/prop/prop_edit.h"

#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/graphics/font.h"

namespace {
constexpr int c_top_width = 115;
constexpr int c_top_height = 46;
constexpr int c_top_caption_height = 20;
} // namespace

void Tvx_prop_edit::create()
{
    f_caption_panel = vx_new_on<Tvx_caption_panel>(this, this);
    f_caption_panel->SetWidth(f_capt_width);
    f_caption_panel->SetAlign(alLeft);
    f_combo_box = vx_new_on<Tvx_prop_combo_box>(this, this);
    f_combo_box->SetAlign(alClient);
    f_combo_box->on_changed = make_closure<&Tvx_prop_edit::on_combo_box_changed>(this);
    f_caption_panel->set_focus_control(f_combo_box);
}

void Tvx_prop_edit::call_changed()
{
    on_changed(this);
}

void Tvx_prop_edit::on_combo_box_changed(TObject * /*sender*/)
{
    call_changed();
}

void Tvx_prop_edit::update_controls()
{
    f_combo_box->update_controls();
}

std::string Tvx_prop_edit::get_prop_name() const
{
    return f_combo_box->get_prop_name();
}

std::wstring const &Tvx_prop_edit::get_wprop_name() const
{
    return f_combo_box->get_wprop_name();
}

void Tvx_prop_edit::set_prop_name(wchar_t const *name)
{
    f_combo_box->set_prop_name(name);
}

void Tvx_prop_edit::set_prop_name(char const *name)
{
    f_combo_box->set_prop_name(name);
}

int Tvx_prop_edit::get_prop_index() const
{
    return f_combo_box->get_prop_index();
}

void Tvx_prop_edit::set_prop_index(int row)
{
    f_combo_box->set_prop_index(row);
}

int Tvx_prop_edit::get_real_index() const
{
    return f_combo_box->get_real_index();
}

void Tvx_prop_edit::set_real_index(int real_index)
{
    f_combo_box->set_real_index(real_index);
}

int Tvx_prop_edit::get_prop_count() const
{
    return f_combo_box->get_prop_count();
}

bool Tvx_prop_edit::get_only_numeric() const
{
    return f_combo_box->get_only_numeric();
}

void Tvx_prop_edit::set_only_numeric(bool value)
{
    f_combo_box->set_only_numeric(value);
}

bool Tvx_prop_edit::get_forbid_empty() const
{
    return f_combo_box->get_forbid_empty();
}

void Tvx_prop_edit::set_forbid_empty(bool value)
{
    f_combo_box->set_forbid_empty(value);
}

UnicodeString Tvx_prop_edit::get_caption() const
{
    return f_caption_panel->get_caption();
}

void Tvx_prop_edit::set_caption(UnicodeString const &caption)
{
    f_caption_panel->set_caption(caption);
    f_combo_box->SetAccessibleName(caption);
}

int Tvx_prop_edit::get_capt_width() const
{
    return f_capt_width;
}

void Tvx_prop_edit::set_capt_width(int width)
{
    f_capt_width = width;
    if (f_top_location != 1)
        f_caption_panel->SetWidth(width);
}

bool Tvx_prop_edit::get_enabled() const
{
    return f_combo_box->GetEnabled();
}

void Tvx_prop_edit::set_top_location(int location)
{
    f_top_location = location;
    if (location == 1) {
        SetBounds(GetLeft(), GetTop(), c_top_width, c_top_height);
        f_caption_panel->SetAlign(alTop);
        f_caption_panel->SetHeight(c_top_caption_height);
    } else {
        f_caption_panel->SetAlign(alLeft);
        f_caption_panel->SetWidth(f_capt_width);
    }
}

bool Tvx_prop_edit::get_grayed() const
{
    return f_caption_panel->get_label()->GetFont()->GetColor() == clGrayText;
}

void Tvx_prop_edit::set_grayed(bool grayed)
{
    f_caption_panel->get_label()->GetFont()->SetColor(grayed ? clGrayText : clWindowText);
}

int Tvx_prop_edit::get_drop_down_count() const
{
    return f_combo_box->GetDropDownCount();
}

void Tvx_prop_edit::set_drop_down_count(int count)
{
    f_combo_box->SetDropDownCount(count);
}

Tvx_data_open_event Tvx_prop_edit::get_on_data_open() const
{
    return f_combo_box->on_data_open;
}

void Tvx_prop_edit::set_on_data_open(Tvx_data_open_event event)
{
    f_combo_box->on_data_open = event;
}

Tvx_data_close_event Tvx_prop_edit::get_on_data_close() const
{
    return f_combo_box->on_data_close;
}

void Tvx_prop_edit::set_on_data_close(Tvx_data_close_event event)
{
    f_combo_box->on_data_close = event;
}

Tvx_data_get_np_event Tvx_prop_edit::get_on_data_get_np() const
{
    return f_combo_box->on_data_get_np;
}

void Tvx_prop_edit::set_on_data_get_np(Tvx_data_get_np_event event)
{
    f_combo_box->on_data_get_np = event;
}

Tvx_data_get_prop_event Tvx_prop_edit::get_on_data_get_prop() const
{
    return f_combo_box->on_data_get_prop;
}

void Tvx_prop_edit::set_on_data_get_prop(Tvx_data_get_prop_event event)
{
    f_combo_box->on_data_get_prop = event;
}

Tvx_data_get_wprop_event Tvx_prop_edit::get_on_data_get_wprop() const
{
    return f_combo_box->on_data_get_wprop;
}

void Tvx_prop_edit::set_on_data_get_wprop(Tvx_data_get_wprop_event event)
{
    f_combo_box->on_data_get_wprop = event;
}

Tvx_data_get_capt_prop_event Tvx_prop_edit::get_on_data_get_capt_prop() const
{
    return f_combo_box->on_data_get_capt_prop;
}

void Tvx_prop_edit::set_on_data_get_capt_prop(Tvx_data_get_capt_prop_event event)
{
    f_combo_box->on_data_get_capt_prop = event;
}

Tvx_data_get_capt_wprop_event Tvx_prop_edit::get_on_data_get_capt_wprop() const
{
    return f_combo_box->on_data_get_capt_wprop;
}

void Tvx_prop_edit::set_on_data_get_capt_wprop(Tvx_data_get_capt_wprop_event event)
{
    f_combo_box->on_data_get_capt_wprop = event;
}
