#include "controls/forms/vcl_caption_panel.h"

#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_data_width = 70;
constexpr int c_end_caption_width = 30;
constexpr int c_end_caption_gap = 3;
} // namespace

void Tvx_vcl_label_panel::create()
{
    Tvx_vcl_panel::create();
    f_label = vx_new_on<Tvx_vcl_label>(this, this);
    f_label->SetAutoSize(false);
    f_label->SetLayout(tlCenter);
    f_label->SetAlign(alClient);
}

UnicodeString Tvx_vcl_label_panel::get_caption() const
{
    return f_label->GetCaption();
}

void Tvx_vcl_label_panel::set_caption(UnicodeString const &caption)
{
    f_label->SetCaption(caption);
}

void Tvx_vcl_caption_panel::create()
{
    Tvx_vcl_panel::create();
    f_caption = vx_new_on<Tvx_vcl_label_panel>(this, this);
    f_caption->create();
    f_right = vx_new_on<Tvx_vcl_panel>(this, this);
    f_right->create();
    f_data = vx_new_on<Tvx_vcl_panel>(f_right, this);
    f_data->create();
    f_data->SetAlign(alClient);
    f_end_caption = vx_new_on<Tvx_vcl_label_panel>(f_right, this);
    f_end_caption->create();
    f_end_caption->SetVisible(false);
    f_end_caption->SetWidth(c_end_caption_width);
    f_end_caption->SetAlign(alRight);
    f_end_caption->get_label()->GetMargins()->SetBounds(c_end_caption_gap, 0, 0, 0);
    f_end_caption->get_label()->SetAlignWithMargins(true);
    set_data_width(c_data_width);
}

UnicodeString Tvx_vcl_caption_panel::get_caption() const
{
    return f_caption->get_caption();
}

void Tvx_vcl_caption_panel::set_caption(UnicodeString const &caption)
{
    f_caption->set_caption(caption);
}

int Tvx_vcl_caption_panel::get_caption_width() const
{
    return f_caption->GetWidth();
}

void Tvx_vcl_caption_panel::set_caption_width(int width)
{
    f_caption->SetAlign(alLeft);
    f_caption->SetWidth(width);
    f_right->SetAlign(alClient);
}

int Tvx_vcl_caption_panel::get_data_width() const
{
    return f_right->GetWidth();
}

void Tvx_vcl_caption_panel::set_data_width(int width)
{
    f_right->SetAlign(alRight);
    f_right->SetWidth(width);
    f_caption->SetAlign(alClient);
}

UnicodeString Tvx_vcl_caption_panel::get_end_caption() const
{
    return f_end_caption->get_caption();
}

void Tvx_vcl_caption_panel::set_end_caption(UnicodeString const &caption)
{
    f_end_caption->set_caption(caption);
}

int Tvx_vcl_caption_panel::get_end_caption_width() const
{
    return f_end_caption->GetWidth();
}

void Tvx_vcl_caption_panel::set_end_caption_width(int width)
{
    f_end_caption->SetWidth(width);
}

bool Tvx_vcl_caption_panel::get_end_caption_visible() const
{
    return f_end_caption->GetVisible();
}

void Tvx_vcl_caption_panel::set_end_caption_visible(bool visible)
{
    f_end_caption->SetVisible(visible);
}
