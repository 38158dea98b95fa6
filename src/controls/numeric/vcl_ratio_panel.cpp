#include "controls/numeric/vcl_ratio_panel.h"

#include "platform/toolkit/core/new_on.h"

#include <algorithm>

namespace {
constexpr int c_top_height = 20;
constexpr int c_track_height = 45;
constexpr int c_value_width = 100;
constexpr int c_whole = 100;
} // namespace

Tvx_vcl_ratio_panel::Tvx_vcl_ratio_panel(TComponent *owner) : Tvx_vcl_panel(owner)
{
    SetHeight(c_top_height + c_track_height);
}

void Tvx_vcl_ratio_panel::create()
{
    Tvx_vcl_panel::create();
    auto const make_label = [this](TAlign align, TAlignment alignment) {
        auto *panel = vx_new_on<Tvx_vcl_label_panel>(f_top, this);
        panel->create();
        panel->get_label()->SetAlignment(alignment);
        panel->SetAlign(align);
        return panel;
    };
    f_top = vx_new_on<Tvx_vcl_panel>(this, this);
    f_top->create();
    f_top->SetHeight(c_top_height);
    f_top->SetAlign(alTop);
    f_lft_caption = make_label(alLeft, taLeftJustify);
    f_rgt_caption = make_label(alRight, taRightJustify);
    f_value = make_label(alClient, taCenter);
    f_top->OnResize = make_closure<&Tvx_vcl_ratio_panel::on_top_resize>(this);
    on_top_resize(f_top);

    f_track = vx_new_on<Tvx_vcl_track_bar>(this, this);
    f_track->SetTop(c_top_height);
    f_track->SetHeight(c_track_height);
    f_track->SetAlign(alTop);
    f_track->SetMin(0);
    f_track->SetMax(c_whole);
    f_track->SetFrequency(1);
    f_track->OnChange = make_closure<&Tvx_vcl_ratio_panel::on_track_change>(this);
    on_track_change(f_track);
}

void Tvx_vcl_ratio_panel::set_lft_caption(UnicodeString const &caption)
{
    f_lft_caption->set_caption(caption);
    name_track_bar();
}

void Tvx_vcl_ratio_panel::set_rgt_caption(UnicodeString const &caption)
{
    f_rgt_caption->set_caption(caption);
    name_track_bar();
}

void Tvx_vcl_ratio_panel::name_track_bar()
{
    f_track->SetAccessibleName(f_lft_caption->get_caption() + L" : " + f_rgt_caption->get_caption());
}

int Tvx_vcl_ratio_panel::get_value() const
{
    return f_track->GetPosition();
}

void Tvx_vcl_ratio_panel::set_value(int value)
{
    f_track->SetPosition(value);
}

UnicodeString Tvx_vcl_ratio_panel::get_text() const
{
    return f_value->get_caption();
}

void Tvx_vcl_ratio_panel::on_top_resize(TObject * /*sender*/)
{
    int const width = std::max((f_top->GetWidth() - c_value_width) / 2, 0);
    f_lft_caption->SetWidth(width);
    f_rgt_caption->SetWidth(width);
}

void Tvx_vcl_ratio_panel::on_track_change(TObject * /*sender*/)
{
    int const value = get_value();
    f_value->set_caption(UnicodeString(c_whole - value) + L"%" + L"  :  " + UnicodeString(value) + L"%");
}
