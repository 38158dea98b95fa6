#include "controls/forms/caption_panels.h"

#include "controls/forms/event_off.h"

#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_caption_width = 100;
constexpr int c_vert_caption_height = 20;
constexpr int c_vert_height = 48;

void fix_left(TControl &left, TControl &right, int width)
{
    left.SetAlign(alLeft);
    left.SetWidth(width);
    right.SetAlign(alClient);
}

void fix_right(TControl &left, TControl &right, int width)
{
    right.SetAlign(alRight);
    right.SetWidth(width);
    left.SetAlign(alClient);
}
} // namespace

Tvx_caption_panel::Tvx_caption_panel(TComponent *owner)
    : Tvx_panel(owner), f_label(vx_new_for<Tvx_label>(this, this))
{
    f_label->SetParent(this);
    f_label->SetAutoSize(false);
    f_label->SetLayout(tlCenter);
    f_label->SetAlign(alClient);
}

UnicodeString Tvx_caption_panel::get_caption() const
{
    return f_label->GetCaption();
}

void Tvx_caption_panel::set_caption(UnicodeString const &caption)
{
    f_label->SetCaption(caption);
}

void Tvx_caption_panel::EnabledChanged()
{
    Tvx_panel::EnabledChanged();
    f_label->SetEnabled(GetEnabled());
}

Tvx_string_panel::Tvx_string_panel(TComponent *owner)
    : Tvx_panel(owner), f_caption(vx_new_for<Tvx_caption_panel>(this, this)),
      f_edit(vx_new_for<Tvx_edit>(this, this))
{
    f_caption->SetParent(this);
    f_edit->SetParent(this);
    f_caption->set_focus_control(f_edit);
    f_edit->OnChange = make_closure<&Tvx_string_panel::on_edit_change>(this);
    set_caption_width(c_caption_width);
}

UnicodeString Tvx_string_panel::get_caption() const
{
    return f_caption->get_caption();
}

void Tvx_string_panel::set_caption(UnicodeString const &caption)
{
    f_caption->set_caption(caption);
    f_edit->SetAccessibleName(caption);
}

void Tvx_string_panel::set_string(wchar_t const *text)
{
    vx::event_off const quiet(f_edit->OnChange);
    f_edit->SetText(text);
}

void Tvx_string_panel::set_string(char const *text)
{
    set_string(UnicodeString(text).c_str());
}

std::string Tvx_string_panel::get_string() const
{
    return f_edit->GetText().to_bytes();
}

std::wstring Tvx_string_panel::get_wstring() const
{
    return f_edit->GetText().str();
}

int Tvx_string_panel::get_edit_width() const
{
    return f_edit->GetWidth();
}

void Tvx_string_panel::set_edit_width(int width)
{
    fix_right(*f_caption, *f_edit, width);
}

int Tvx_string_panel::get_caption_width() const
{
    return f_caption->GetWidth();
}

void Tvx_string_panel::set_caption_width(int width)
{
    fix_left(*f_caption, *f_edit, width);
}

bool Tvx_string_panel::get_read_only() const
{
    return f_edit->GetReadOnly();
}

void Tvx_string_panel::set_read_only(bool read_only)
{
    f_edit->SetReadOnly(read_only);
}

void Tvx_string_panel::on_edit_change(TObject * /*sender*/)
{
    on_changed(this);
}

Tvx_str_info_panel::Tvx_str_info_panel(TComponent *owner)
    : Tvx_panel(owner), f_caption(vx_new_for<Tvx_caption_panel>(this, this)),
      f_text(vx_new_for<Tvx_edit>(this, this))
{
    f_caption->SetParent(this);
    f_text->SetParent(this);
    f_text->SetReadOnly(true);
    f_text->SetColor(clBtnFace);
    set_caption_width(c_caption_width);
}

UnicodeString Tvx_str_info_panel::get_caption() const
{
    return f_caption->get_caption();
}

void Tvx_str_info_panel::set_caption(UnicodeString const &caption)
{
    f_caption->set_caption(caption);
    f_text->SetAccessibleName(caption);
}

UnicodeString Tvx_str_info_panel::get_text() const
{
    return f_text->GetText();
}

void Tvx_str_info_panel::set_text(UnicodeString const &text)
{
    f_text->SetText(text);
}

int Tvx_str_info_panel::get_caption_width() const
{
    return f_caption->GetWidth();
}

void Tvx_str_info_panel::set_caption_width(int width)
{
    fix_left(*f_caption, *f_text, width);
}

Tvx_combo_box_panel::Tvx_combo_box_panel(TComponent *owner)
    : Tvx_panel(owner), f_caption(vx_new_for<Tvx_caption_panel>(this, this)),
      f_box(vx_new_for<Tvx_combo_box>(this, this))
{
    f_caption->SetParent(this);
    f_box->SetParent(this);
    f_caption->set_focus_control(f_box);
    Tvx_combo_box_panel::set_caption_width(c_caption_width);
}

UnicodeString Tvx_combo_box_panel::get_caption() const
{
    return f_caption->get_caption();
}

void Tvx_combo_box_panel::set_caption(UnicodeString const &caption)
{
    f_caption->set_caption(caption);
    f_box->SetAccessibleName(caption);
}

int Tvx_combo_box_panel::get_box_width() const
{
    return f_box->GetWidth();
}

void Tvx_combo_box_panel::set_box_width(int width)
{
    fix_right(*f_caption, *f_box, width);
}

int Tvx_combo_box_panel::get_caption_width() const
{
    return f_caption->GetWidth();
}

void Tvx_combo_box_panel::set_caption_width(int width)
{
    fix_left(*f_caption, *f_box, width);
}

Tvx_combo_box_vert_panel::Tvx_combo_box_vert_panel(TComponent *owner)
    : Tvx_combo_box_panel(owner), f_top(vx_new_for<Tvx_panel>(this, this))
{
    SetHeight(c_vert_height);
    f_top->SetParent(this);
    f_top->SetHeight(c_vert_caption_height);
    f_top->SetAlign(alTop);
    f_caption->SetParent(f_top);
    f_caption->SetAlign(alClient);
    f_box->SetAlign(alClient);
}

void Tvx_combo_box_vert_panel::set_box_width(int width)
{
    f_box->SetAlign(alLeft);
    f_box->SetWidth(width);
}

void Tvx_combo_box_vert_panel::set_caption_width(int width)
{
    f_caption->SetAlign(alLeft);
    f_caption->SetWidth(width);
}
